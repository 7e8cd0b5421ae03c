#include "support/fleet.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace {

// An aircraft of the fleet with its engines running, held still on a test stand when asked.
struct Engines : ::testing::Test {
	int pass_count = 0;
	void start(const char* rel, float alt_m)
	{
		ASSERT_EQ(start_fleet_aircraft(rel, alt_m), 1);
		flt[0].y_agl_mtr = 1000.0f;
		set_engines_for_start(1, 0);
	}
	// One pass; on the stand the aircraft is put back where it was, at rest.
	void pass(bool stand)
	{
		mnw.puff1 = pass_count % 50 == 0;
		pass_count++;
		mnw.totl_time += mnw.prd_FM;
		WORLD_math_all_cases();
		WORLD_math_in_flight();
		const double y = flt[0].dob_y;
		PLANE_math_in_flight(0);
		if (stand) {
			flt_struct& f = flt[0];
			f.vx = f.vy = f.vz = 0.0f;
			f.P = f.Q = f.R = 0.0f;
			f.dob_x = f.dob_z = 0.0;
			f.dob_y = y;
			init_quaternion(0, 0, 0, f.q);
			quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
			update_derived_flt(0);
		}
	}
};

}  // namespace

TEST_F(Engines, TheJetGivesItsRatedThrustLowDownAndLessHighUp)
{
	const float rated = 27000.0f * 0.45359237f * 9.80665f;   // 27000 lbf
	for (float alt_ft : {0.0f, 30000.0f}) {
		start("Heavy Metal:Meridian 320:Meridian 320.acf", alt_ft * 0.3048f);
		set_thro(0, 1.0f);
		set_thro(1, 1.0f);
		for (int n = 0; n < 1500; n++) pass(true);   // 30 s to spool up
		const float sigma = con.lcl_sig;
		EXPECT_NEAR(flt[0].ENGN_N1_[0], 100.0f, 1.0f);
		// Thrust lapses with density from sea level, with no critical altitude.
		EXPECT_NEAR(flt[0].POINT_thrust[0] / rated, sigma, 0.03f * sigma) << alt_ft << " ft";
		EXPECT_NEAR(flt[0].POINT_thrust[1], flt[0].POINT_thrust[0], 1.0f);
	}
	EXPECT_LT(con.lcl_sig, 0.45f);
}

TEST_F(Engines, FuelInTheTanksFallsByTheIntegratedFlow)
{
	start("Heavy Metal:Meridian 320:Meridian 320.acf", 0.0f);
	set_thro(0, 1.0f);
	set_thro(1, 1.0f);
	for (int n = 0; n < 1500; n++) pass(true);
	const float before = flt[0].m_fuel_total;
	double burnt = 0.0;
	for (int n = 0; n < 3000; n++) {   // a minute at full power
		burnt += (flt[0].ENGN_FF_kgs[0] + flt[0].ENGN_FF_kgs[1]) * mnw.prd_FM;
		pass(true);
	}
	const float used = before - flt[0].m_fuel_total;
	EXPECT_NEAR(used, burnt, 0.03 * burnt);
	// Fuel flow is thrust times the specific fuel consumption: 0.36 lb per lbf per hour.
	const float sfc = 0.36f / 3600.0f / 9.80665f;   // kg per newton-second
	EXPECT_NEAR(flt[0].ENGN_FF_kgs[0], flt[0].POINT_thrust[0] * sfc, 0.1f * flt[0].POINT_thrust[0] * sfc);
}

TEST_F(Engines, CuttingTheMixtureStopsThePistonEngine)
{
	start("General Aviation:Wren 180:Wren 180.acf", 300.0f);
	for (int n = 0; n < 200; n++) pass(true);
	EXPECT_EQ(flt[0].ENGN_burning_fuel[0], 1);
	EXPECT_GT(flt[0].ENGN_TRQ_nm[0], 0.0f);
	const float fuel = flt[0].m_fuel_total;
	set_mixt(0, 0.0f);
	for (int n = 0; n < 1500; n++) pass(true);
	EXPECT_EQ(flt[0].ENGN_burning_fuel[0], 0);
	EXPECT_LT(flt[0].ENGN_tacrad[0], 1.0f);
	EXPECT_NEAR(flt[0].ENGN_FF_kgs[0], 0.0f, 1e-4f);
	EXPECT_NEAR(flt[0].m_fuel_total, fuel, 0.02f);   // no fuel taken
}

TEST_F(Engines, StartedStoppedAndRestartedEverythingStaysFinite)
{
	start("General Aviation:Wren 180:Wren 180.acf", 1000.0f);
	auto finite = []() {
		const flt_struct& f = flt[0];
		for (float v : {f.ENGN_tacrad[0], f.ENGN_TRQ_nm[0], f.ENGN_power[0], f.ENGN_FF_kgs[0], f.ENGN_MPR[0], f.ENGN_EGT[0],
		                f.ENGN_CHT[0], f.ENGN_OILT[0], f.ENGN_OILP[0], f.ENGN_bat_volt[0], f.POINT_tac_rad[0], f.m_fuel_total})
			if (!std::isfinite(v)) return false;
		return true;
	};
	set_thro(0, 1.0f);
	for (int n = 0; n < 1000; n++) pass(false);
	set_mixt(0, 0.0f);
	for (int n = 0; n < 1500; n++) pass(false);
	EXPECT_TRUE(finite());
	EXPECT_EQ(flt[0].ENGN_burning_fuel[0], 0);
	set_mixt(0, 1.0f);
	set_thro(0, 0.2f);
	stg.start_time[0] = mnw.totl_time + 10.0f;   // the starter, for ten seconds
	for (int n = 0; n < 1000; n++) pass(false);
	EXPECT_TRUE(finite());
	EXPECT_EQ(flt[0].ENGN_burning_fuel[0], 1);
	EXPECT_GT(flt[0].ENGN_tacrad[0], veh[0].RSC_idlespeed_ENGN * 0.5f);
	for (int n = 0; n < 3000; n++) pass(false);
	EXPECT_TRUE(finite());
}

TEST_F(Engines, TheLeverMappingsRoundTrip)
{
	start("Heavy Metal:Meridian 320:Meridian 320.acf", 0.0f);
	for (float lever : {1.0f, 0.8f, 0.5f, 0.3f}) {
		const float back = set_thro_prop(lever, 0, 1);
		EXPECT_NEAR(back, lever, 1e-5f) << lever;
		EXPECT_EQ(flt[0].CONT_prop_mode[0], 1);
	}
	set_thro_prop(0.1f, 0, 1);   // below the detent: reverse
	EXPECT_EQ(flt[0].CONT_prop_mode[0], 3);
	EXPECT_GT(flt[0].CONT_thro_ref[0], 0.0f);
	set_thro(0, 5.0f);
	EXPECT_LE(flt[0].CONT_thro_ref[0], veh[0].throt_max_REV);
}
