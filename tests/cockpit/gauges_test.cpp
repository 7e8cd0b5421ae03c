// The flight instruments' arithmetic without a display: the preset airspeed faces' curve at
// its break speeds, the drum counter's carry and wrap, the scale's spacing, and the gyros
// reading the attitude they are fed.
#include "cockpit/gauges.h"
#include "flight/HL_FLIGHT.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

TEST(PresetAirspeed, CurveMeetsItsSegmentsAtTheBreakSpeeds)
{
	// At each break speed the earlier segments are whole and the later ones empty, so the
	// angle is the sum of (v_k - v_k-1) * r_k over the whole segments.
	EXPECT_NEAR(asi_to_ang(74, 0.0f), 0.0f, 1e-4f);
	EXPECT_NEAR(asi_to_ang(74, 40.0f), 40 * 0.75f, 1e-3f);
	EXPECT_NEAR(asi_to_ang(74, 120.0f), 30 + 80 * 2.2f, 1e-3f);
	EXPECT_NEAR(asi_to_ang(74, 200.0f), 30 + 176 + 80 * 1.425f, 1e-3f);
	EXPECT_NEAR(asi_to_ang(75, 300.0f), 60 * 0.7f + 80 * 1.625f + 160 * 1.025f, 1e-3f);
	EXPECT_NEAR(asi_to_ang(77, 400.0f), asi_to_ang(76, 400.0f), 1e-6f);
	EXPECT_NEAR(asi_to_ang(527, 250.0f), 60 * 0.1333f + 190 * 1.2842f, 1e-3f);
	// Inside a segment the power shapes it: half way through the first of 74.
	EXPECT_NEAR(asi_to_ang(74, 20.0f), 30.0f * std::pow(0.5f, 1.2f), 1e-3f);
	// Past the face's top the needle goes on round instead of stopping.
	EXPECT_GT(asi_to_ang(74, 230.0f), asi_to_ang(74, 200.0f) + 20.0f);
	for (float v = 0; v < 260; v += 1) EXPECT_LT(asi_to_ang(74, v), asi_to_ang(74, v + 1)) << v;
}

TEST(PresetAirspeed, AnotherCodeAlertsAndReadsZero)
{
	const int before = alert_count;
	EXPECT_EQ(asi_to_ang(80, 100.0f), 0.0f);
	EXPECT_EQ(alert_count, before + 1);
	EXPECT_NE(last_alert_text.find("Bad asi_to_ang ins_type!"), std::string::npos);
	EXPECT_TRUE(std::isfinite(asi_to_ang(74, NAN)));
}

TEST(DrumCounter, UnitsCarryIntoEveryWheelTheyTurn)
{
	float d[6];
	drum_wheels(1999.5f, d);   // units half way from 9 to 0: tens and hundreds with them, thousands half way to 2
	EXPECT_FLOAT_EQ(d[5], 9.5f);
	EXPECT_FLOAT_EQ(d[4], 9.5f);
	EXPECT_FLOAT_EQ(d[3], 9.5f);
	EXPECT_FLOAT_EQ(d[2], 1.5f);
	EXPECT_FLOAT_EQ(d[1], 0.0f);
	drum_wheels(19.5f, d);
	EXPECT_FLOAT_EQ(d[4], 1.5f);
	drum_wheels(18.5f, d);   // no carry before the units pass 9
	EXPECT_FLOAT_EQ(d[4], 1.0f);
	EXPECT_FLOAT_EQ(d[5], 8.5f);
}

TEST(DrumCounter, ZeroAfterATurnedWheelReadsTheStripsTopZero)
{
	float d[6];
	drum_wheels(100.0f, d);
	EXPECT_FLOAT_EQ(d[3], 1.0f);
	EXPECT_FLOAT_EQ(d[4], 10.0f);
	EXPECT_FLOAT_EQ(d[5], 10.0f);
	EXPECT_FLOAT_EQ(d[2], 0.0f);   // leading zeros stay at the bottom
	drum_wheels(-2992.0f, d);      // a drum shows the size of its value
	EXPECT_FLOAT_EQ(d[2], 2.0f);
	EXPECT_FLOAT_EQ(d[5], 2.0f);
	drum_wheels(NAN, d);
	for (float x : d) EXPECT_FLOAT_EQ(x, 0.0f);
	drum_wheels(1e12f, d);   // more than six wheels hold: all nines, at most rolling on to the top 0
	for (float x : d) {
		EXPECT_GE(x, 9.0f);
		EXPECT_LE(x, 10.0f);
	}
}

TEST(ScaleSteps, RangesTakeTheFirstRowTheyReach)
{
	EXPECT_FLOAT_EQ(ret_scale_steps(2000.0f).step, 100.0f);
	EXPECT_FLOAT_EQ(ret_scale_steps(1999.0f).step, 50.0f);
	EXPECT_FLOAT_EQ(ret_scale_steps(160.0f).step, 5.0f);
	EXPECT_FLOAT_EQ(ret_scale_steps(160.0f).modnum, 20.0f);
	EXPECT_FLOAT_EQ(ret_scale_steps(5e7f).modnum, 1e7f);
	EXPECT_FLOAT_EQ(ret_scale_steps(0.5f).step, 0.02f);
	EXPECT_FLOAT_EQ(ret_scale_steps(0.5f).units, 0.1f);
	// Every row's numbered step is a whole number of ticks.
	for (float r = 0.3f; r < 1e8f; r *= 1.7f) {
		const scale_steps s = ret_scale_steps(r);
		const float n = s.modnum / s.step;
		EXPECT_NEAR(n, std::round(n), 1e-3f) << r;
	}
}

TEST(Gyros, BothSetsReadTheAttitudeTheyAreFed)
{
	zero_all_records();
	flt[0].the = 12.0f, flt[0].phi = -30.0f, flt[0].psi_mag_act = 275.0f;
	manage_gyro(0);
	manage_gyro(1);
	for (int g = 0; g < 2; g++) {
		EXPECT_FLOAT_EQ(flt[0].the_ind[g], 12.0f);
		EXPECT_FLOAT_EQ(flt[0].phi_ind[g], -30.0f);
		EXPECT_FLOAT_EQ(flt[0].psi_ind_mag[g], 275.0f);
	}
}

TEST(Gyros, AJetHasSuctionAndAStoppedPistonNone)
{
	zero_all_records();
	con.lcl_sig = 1.0f;
	veh[0].num_engines = 1;
	veh[0].engn_type[0] = 4;
	update_gyro_feeds();
	EXPECT_FLOAT_EQ(flt[0].vacuum, 1.0f);
	EXPECT_FLOAT_EQ(flt[0].gyro_force[0], 1.0f);
	veh[0].engn_type[0] = 0;
	update_gyro_feeds();
	EXPECT_FLOAT_EQ(flt[0].vacuum, 0.0f);
	EXPECT_FLOAT_EQ(flt[0].gyro_force[1], 0.0f);   // no bus, no inverter
}

}  // namespace
