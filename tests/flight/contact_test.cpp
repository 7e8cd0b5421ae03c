// One contact point of the trainer against a level deck: the spring's first touch, the
// friction gain's retreat at a standstill, a locked tyre's wear, a ship's moving deck.
#include "support/fleet.h"
#include "core/failures.h"
#include <cstdio>
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Contact : ::testing::Test {
	int en = 68;   // a main wheel
	void SetUp() override
	{
		ASSERT_EQ(start_fleet_aircraft("General Aviation:Wren 180:Wren 180.acf", 0.0f), 1);
		env.over_obs = 1;   // a level deck at y 0 round the frame's origin
		env.obj_x = env.obj_z = env.obj_y_top = 0.0f;
		flt[0].dob_x = flt[0].dob_z = 0.0;
		flt[0].P = flt[0].Q = flt[0].R = flt[0].Prad = flt[0].Qrad = flt[0].Rrad = 0.0f;
	}
	// The wheel's bottom this far below the deck, the aircraft moving at (vx, vz).
	int press(float depth, float vx = 0.0f, float vz = 0.0f)
	{
		const veh_struct& v = veh[0];
		flt_struct& f = flt[0];
		f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = f.L = f.M = f.N = 0.0f;
		f.dob_y = -(v.gear_ynodef[en] - v.tire_radius[en]) - depth;
		return handle_contact_point(0, en, f.dob_x, vx, v.gear_xnodef[en], 0.0f, v.roll_co, f.dob_y, 0.0f, v.gear_ynodef[en] - v.tire_radius[en], 0.0f,
		                            v.brake_co, v.gearcon[en], &f.tire_steer[en], f.dob_z, vz, v.gear_znodef[en], 0.0f, v.brake_co * 0.7f, v.geardmp[en]);
	}
};

}  // namespace

TEST_F(Contact, AWheelJustTouchingGivesNoForceAndASpringsWorthOnceIn)
{
	EXPECT_EQ(press(0.0f), 0);
	EXPECT_FLOAT_EQ(flt[0].fnrml_gear_acf, 0.0f);
	EXPECT_EQ(press(0.01f), 1);
	EXPECT_NEAR(flt[0].fnrml_gear_acf, veh[0].gearcon[en] * 0.01f, veh[0].gearcon[en] * 0.0002f);
	EXPECT_NEAR(flt[0].tire_vrt_frc_veh[en], flt[0].fnrml_gear_acf, 1e-3f);
	// A heavy landing's compression is held to four times the heaviest weight.
	EXPECT_EQ(press(5.0f), 1);
	EXPECT_NEAR(flt[0].fnrml_gear_acf, 4.0f * con.g * veh[0].m_max, 1.0f);
}

TEST_F(Contact, AtAStandstillTheFrictionGainHalvesInAboutSevenFlips)
{
	const float s = 0.002f;   // a slide small enough that the friction is on its slope
	press(0.02f, s, 0.0f);
	press(0.02f, -s, 0.0f);   // the first flip
	const float first = std::fabs(flt[0].fside_gear_acf);
	for (int k = 0; k < 7; k++) press(0.02f, k % 2 ? -s : s, 0.0f);
	const float after = std::fabs(flt[0].fside_gear_acf);
	EXPECT_NEAR(after / first, std::pow(0.9f, 7.0f), 0.02f);
}

TEST_F(Contact, ALockedTyreBlowsOnlyAfterAHundredMetresOfSkid)
{
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM, speed = 10.0f;
	// A wheel held locked: stopped before each step, too heavy to spin up within one.
	veh[0].tire_mi[en] = 1e6f;
	const float depth = 0.4f * veh[0].m_max * con.g / veh[0].gearcon[en];
	auto skid_for = [&](float metres) {
		for (float d = 0.0f; d < metres; d += speed * dt) {
			f.tire_omega[en] = 0.0f;
			press(depth, 0.0f, -speed);
		}
	};
	skid_for(99.0f);
	EXPECT_LT(std::fabs(f.tire_omega[en] * veh[0].tire_radius[en]), 0.5f);   // locked
	EXPECT_NE(f.fail_stat[rel_tire1 + en - en_gear_lo], fail_inop);
	skid_for(51.0f);   // the scrub fades 5 % a second: at 10 m/s it blows near 139 m
	EXPECT_EQ(f.fail_stat[rel_tire1 + en - en_gear_lo], fail_inop) << f.tire_drag_dis[en] << " omega " << f.tire_omega[en] << " term " << f.term_omega[en];
}

TEST_F(Contact, AnAircraftParkedOnAMovingDeckMovesWithItWithoutSlip)
{
	env.over_obs = 0;
	env.over_carr = 1;   // the carrier's deck, 21 m up, steaming north at 15 m/s
	env.boat_x[0] = env.boat_z[0] = env.boat_y[0] = 0.0f;
	flt_struct& f = flt[0];
	f.tire_omega[en] = 0.0f;
	f.tire_trq[en] = 0.0f;
	f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = 0.0f;
	const veh_struct& v = veh[0];
	f.dob_y = 21.0 - (v.gear_ynodef[en] - v.tire_radius[en]) - 0.02;
	for (int k = 0; k < 50; k++) {
		f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = 0.0f;
		handle_contact_point(0, en, f.dob_x, 0.0f, v.gear_xnodef[en], 0.0f, v.roll_co, f.dob_y, 0.0f, v.gear_ynodef[en] - v.tire_radius[en], 0.0f, v.brake_co,
		                     v.gearcon[en], &f.tire_steer[en], f.dob_z, -15.0f, v.gear_znodef[en], 0.0f, v.brake_co * 0.7f, v.geardmp[en]);
	}
	EXPECT_NEAR(f.tire_omega[en], 0.0f, 0.01f);   // no slip to spin the wheel
	EXPECT_LT(std::fabs(f.faxil_gear_acf), 1.0f);
	EXPECT_LT(std::fabs(f.fside_gear_acf), 1.0f);
	EXPECT_GT(f.fnrml_gear_acf, 0.0f);
}

TEST(ContactAtRest, TheTrainersWheelLoadsSplitByTheirLeverArmsFuelIncluded)
{
	ASSERT_EQ(start_fleet_aircraft("General Aviation:Wren 180:Wren 180.acf", 0.0f), 1);
	one_runway_airport("36", 0.0f, 3000.0f, 60.0f, 0.0f);   // a long runway under the aircraft at sea level
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	f.dob_y = v.h_eqlbm;
	f.gear_handle = 1;
	set_engines_for_start(0, 0);
	for (int n = 0; n < 500; n++) {   // ten seconds to settle
		mnw.totl_time += mnw.prd_FM;
		WORLD_math_all_cases();
		WORLD_math_in_flight();
		PLANE_math_in_flight(0);
	}
	ASSERT_EQ(f.onground_all, 1) << "height " << f.dob_y << " over the runway " << env.over_obs;
	EXPECT_LT(pythag(f.vx, f.vy, f.vz), 0.01f);
	// The weight of the empty aircraft acts at its centre of gravity, the fuel's at its tanks.
	const float W = f.m_total * con.g;
	float fuel_moment = 0.0f;
	for (int t = 0; t < tank_max; t++) fuel_moment += f.m_fuel[t] * con.g * v.tank_Z[t];
	const float zn = v.gear_znodef[67], zm = 0.5f * (v.gear_znodef[68] + v.gear_znodef[69]);
	const float nose = (W * zm - fuel_moment) / (zm - zn);
	EXPECT_NEAR(f.tire_vrt_frc_veh[67], nose, 0.01f * W);
	EXPECT_NEAR(f.tire_vrt_frc_veh[68] + f.tire_vrt_frc_veh[69], W - nose, 0.01f * W);
	EXPECT_NEAR(f.tire_vrt_frc_veh[68], f.tire_vrt_frc_veh[69], 0.005f * W);
}

TEST_F(Contact, AZeroTyreOrWheelInertiaStaysFinite)
{
	veh[0].tire_radius[en] = 0.0f;
	veh[0].tire_mi[en] = 0.0f;
	flt_struct& f = flt[0];
	for (int k = 0; k < 100; k++) {
		f.tire_trq[en] = -1000.0f * fltlim(f.tire_omega[en], -1.0f, 1.0f);
		press(0.02f, 0.5f, -20.0f);
	}
	for (float x : {f.tire_omega[en], f.term_omega[en], f.tire_rotation[en], f.fside_gear_acf, f.fnrml_gear_acf, f.faxil_gear_acf, f.L, f.M, f.N, f.tire_drag_dis[en]})
		EXPECT_TRUE(std::isfinite(x));
}
