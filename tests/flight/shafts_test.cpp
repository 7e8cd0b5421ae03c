#include "support/fleet.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

// The helicopter cold and dark on a test stand, given a pre-rotator, so that the rotor's
// speed comes from the pre-rotator alone.
struct PreRotator : ::testing::Test {
	void SetUp() override
	{
		ASSERT_EQ(start_fleet_aircraft("Helicopters:Hornet 250:Hornet 250.acf", 500.0f), 1);
		flt[0].y_agl_mtr = 500.0f;
		set_engines_for_start(0, 0);
		ASSERT_TRUE(veh[0].props_linked);
		veh[0].has_prerotate = 1;
		for (int en = 0; en < engn_max; en++) flt[0].POINT_tac_rad[en] = flt[0].ENGN_tacrad[en] = 0.0f;
	}
	// Seconds on the stand; returns the main rotor's highest speed as a share of its red line.
	float run(float seconds)
	{
		float most = 0.0f;
		for (int n = 0; n < (int)(seconds / mnw.prd_FM); n++) {
			mnw.totl_time += mnw.prd_FM;
			WORLD_math_all_cases();
			WORLD_math_in_flight();
			const double y = flt[0].dob_y;
			PLANE_math_in_flight(0);
			flt_struct& f = flt[0];
			f.vx = f.vy = f.vz = f.P = f.Q = f.R = 0.0f;
			f.dob_x = f.dob_z = 0.0;
			f.dob_y = y;
			init_quaternion(0, 0, 0, f.q);
			quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
			update_derived_flt(0);
			EXPECT_TRUE(std::isfinite(f.POINT_tac_rad[0]) && std::isfinite(f.POINT_tac_rad[1]));
			most = fltmax2(most, f.POINT_tac_rad[0] / veh[0].RSC_redline_PROP);
		}
		return most;
	}
	float speed() const { return flt[0].POINT_tac_rad[0] / veh[0].RSC_redline_PROP; }
};

}  // namespace

TEST_F(PreRotator, OffLeavesTheRotorAtRest)
{
	stg.pre_rotating = 0;
	run(10.0f);
	EXPECT_LT(std::fabs(speed()), 0.01f);
}

TEST_F(PreRotator, FullLevelSpinsTheRotorUpFasterAndHoldsItShortOfFlyingSpeed)
{
	stg.pre_rotating = 1;
	stg.pre_rotate_level = 0;
	run(5.0f);
	const float gentle = speed();
	SetUp();
	stg.pre_rotating = 1;
	stg.pre_rotate_level = 1;
	run(5.0f);
	const float full = speed();
	EXPECT_GT(gentle, 0.02f);
	EXPECT_GT(full, 2.0f * gentle);
	// Given time, either level settles near 85% of the red line and does not pass it by much.
	const float most = run(120.0f);
	EXPECT_NEAR(speed(), 0.85f, 0.05f);
	EXPECT_LT(most, 0.9f);
	// Turned off, the rotor runs down under its own drag.
	const float held = speed();
	stg.pre_rotating = 0;
	run(20.0f);
	EXPECT_LT(speed(), held - 0.01f);
}
