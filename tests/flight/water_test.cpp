// A hull on the water: a flat-bottomed box floats where the water it displaces weighs
// what it weighs; the wave train is a sine of its length running with the weather; the
// anchor pulls at most 2 m/s^2; a hard drop and waves higher than the hull stay finite; a
// water bomber scoops and dumps its load.
#include "support/fleet.h"
#include "core/failures.h"
#include "world/scenery.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr float W = 1.0f, H = 0.5f, dz = 0.3f;   // half width, half height, station spacing (m)

struct Water : ::testing::Test {
	float length = 0.0f;
	void SetUp() override
	{
		ASSERT_EQ(start_fleet_aircraft("General Aviation:Wren 180:Wren 180.acf", 0.0f), 1);
		veh_struct& v = veh[0];
		for (int en = 0; en < part_max; en++) v.part_eq[en] = en == en_fuse;   // the hull alone
		// A box about the centre of gravity, flat-bottomed: its keel points, the six nearest
		// the keel, float the middle two thirds of its bottom.
		static const float half[9][2] = {{0, H}, {W / 2, H}, {W, H}, {W, H / 3}, {W, -H / 3}, {W, -H}, {2 * W / 3, -H}, {W / 3, -H}, {0, -H}};
		int ns = 0, np = 0;
		ret_body_grid(0, en_fuse, 0, &ns, &np);
		ASSERT_EQ(np, 18);
		for (int s = 0; s < ns; s++)
			for (int r = 0; r < np; r++) {
				const int q = r < 9 ? r : 17 - r;
				v.body_X[en_fuse][s][r] = (r < 9 ? 1.0f : -1.0f) * half[q][0];
				v.body_Y[en_fuse][s][r] = half[q][1];
				v.body_Z[en_fuse][s][r] = (s - 0.5f * (ns - 1)) * dz;
			}
		v.Xarm[en_fuse] = v.Yarm[en_fuse] = v.Zarm[en_fuse] = 0.0f;
		length = (ns - 1) * dz;
		for (int i = 0; i < regn_dim_i; i++)   // the sea, level at y 0
			for (int j = 0; j < regn_dim_j; j++) landuse[i][j] = 15;
		calm();
		atm.wave_height = 0.0f;
		flt_struct& f = flt[0];
		f.dob_x = f.dob_z = 0.0;
		f.terrain_y_cg = 0.0f;
		mnw.first_miss_cycle = 0;   // under way: no lift to the resting height
	}
	static void calm()
	{
		for (int i = 0; i < 3; i++) atm.set_wind_spd_kts[i] = atm.set_shear_spd_kts[i] = atm.set_turb_inc[i] = 0.0f;
		atm.therm_prt = atm.burst_prob = atm.rate_change = atm.wind_tbl = 0.0f;
		atm.wind_X_msc = atm.wind_Y_msc = atm.wind_Z_msc = 0.0f;
	}
	void passes(int n)
	{
		for (int k = 0; k < n; k++) {
			WORLD_math_all_cases();
			calm();
			WORLD_math_in_flight();
			PLANE_math_in_flight(0);
		}
	}
	bool finite() const
	{
		const flt_struct& f = flt[0];
		return std::isfinite(f.dob_y) && std::isfinite(f.vx) && std::isfinite(f.vy) && std::isfinite(f.vz) && std::isfinite(f.P) &&
		       std::isfinite(f.Q) && std::isfinite(f.R) && std::isfinite(f.q[0]);
	}
};

TEST_F(Water, AFlatBottomedHullFloatsWhereItsDisplacementWeighsWhatItWeighs)
{
	flt_struct& f = flt[0];
	f.dob_y = H;   // dropped with its bottom on the surface
	passes(1500);
	ASSERT_TRUE(finite());
	EXPECT_EQ(f.onground_any, 1);
	// Displaced volume: depth times the wet bottom (four thirds of a half-width by the length).
	const float depth = f.m_total / (con.planet_rho_water * 4.0f / 3.0f * W * length);
	EXPECT_NEAR(H - f.dob_y, depth, 0.02f * depth) << "settled at " << f.dob_y;
	EXPECT_LT(std::fabs(f.vy), 0.01f);
	EXPECT_NEAR(f.fnrml_gear_acf, f.m_total * con.g, 0.01f * f.m_total * con.g);
}

TEST_F(Water, TheWaveTrainIsASineOfItsLengthRunningWithTheWeather)
{
	atm.wave_height = 2.0f;
	atm.wave_length_to_height = 15.0f;
	atm.wave_dir = 90;   // from the east: it runs west, toward -x
	WORLD_math_all_cases();
	const float L = atm.wave_length, c = atm.wave_speed;
	ASSERT_NEAR(L, 30.0f, 1e-3f);
	// Deep-water waves of 30 m run at sqrt(g L / 2 pi), about 6.8 m/s.
	EXPECT_NEAR(c, std::sqrt(9.81f * L / (2.0f * 3.14159265f)), 0.05f * c);
	mnw.totl_time = 0.0f;
	float lo = 1e9f, hi = -1e9f;
	for (int k = 0; k < 100; k++) {
		const float x = k * L / 100.0f, h = wave_h(x, 0.0f, 5.0f);
		lo = fltmin2(lo, h); hi = fltmax2(hi, h);
		EXPECT_NEAR(wave_h(x + L, 0.0f, 5.0f), h, 1e-3f);   // its length
		EXPECT_NEAR(wave_h(x, 40.0f, 5.0f), h, 1e-3f);      // crests square to its direction
	}
	EXPECT_NEAR(hi - 5.0f, 1.0f, 0.01f);   // half the height above the calm surface
	EXPECT_NEAR(lo - 5.0f, -1.0f, 0.01f);
	const float h0 = wave_h(12.0f, 0.0f, 0.0f);
	mnw.totl_time = 2.0f;
	EXPECT_NEAR(wave_h(12.0f - 2.0f * c, 0.0f, 0.0f), h0, 1e-3f);   // the same crest, moved west
	atm.wave_height = 0.02f;
	EXPECT_EQ(wave_h(3.0f, 4.0f, 7.0f), 7.0f);   // ripples below a tenth of a foot are calm
}

TEST_F(Water, TheAnchorPullsAtMostTwoMetresASecondSquaredAndWithoutItTheHullDrifts)
{
	flt_struct& f = flt[0];
	f.dob_y = H - 0.1f;
	f.parkbrake = 0.0f;
	passes(1);   // the masses summed
	ASSERT_GT(f.m_total, 0.0f);
	f.vx = f.vy = f.vz = 0.0f;
	f.vx_acf_axis = f.vz_acf_axis = 0.0f;
	auto pull = [&](float brake, double x, float vx_acf) {   // the side force on the level hull: the anchor's alone
		f.parkbrake = brake;
		f.dob_x = x;
		f.vx_acf_axis = vx_acf;
		f.fside_gear_acf = f.faxil_gear_acf = f.fnrml_gear_acf = f.L = f.M = f.N = 0.0f;
		do_water();
		return f.fside_gear_acf / f.m_total;
	};
	EXPECT_NEAR(pull(0.0f, 0.0, 0.0f), 0.0f, 1e-4f);   // the anchor follows the hull while the brake is off
	EXPECT_NEAR(pull(1.0f, 0.0, 0.0f), 0.0f, 1e-4f);   // dropped here
	EXPECT_NEAR(pull(1.0f, 300.0, 0.0f), -2.0f, 1e-4f);   // pushed far off: back at the limit
	EXPECT_NEAR(pull(1.0f, 5.0, 0.2f), -0.2f - 0.1f * 5.0f, 1e-4f);
	EXPECT_NEAR(pull(0.0f, 300.0, 0.2f), 0.0f, 1e-4f);   // weighed: no pull
	// No brake, a wind: it drifts downwind.
	f.dob_x = 0.0; f.dob_y = H - 0.1; f.vx = f.vy = f.vz = 0.0f;
	f.parkbrake = 0.0f;
	for (int k = 0; k < 500; k++) {
		WORLD_math_all_cases();
		atm.wind_X_msc = 8.0f;   // toward +x
		WORLD_math_in_flight();
		PLANE_math_in_flight(0);
	}
	EXPECT_GT(f.dob_x, 1.0);
}

TEST_F(Water, AHardDropAndWavesHigherThanTheHullStayFiniteAndNoPanelOutweighsIt)
{
	flt_struct& f = flt[0];
	// One panel deep under, fast: its force is held to the weight.
	f.dob_y = -30.0;
	f.vy = -40.0f; f.vz = -60.0f;
	f.fside_gear_acf = f.faxil_gear_acf = f.fnrml_gear_acf = 0.0f;
	ASSERT_EQ(handle_float_point(en_fuse, 5, 8, 0.0f, -H, 0.0f), 1);
	const float Wt = f.m_total * con.g;
	EXPECT_LE(std::fabs(f.fnrml_gear_acf), Wt * 1.0001f);
	EXPECT_LE(std::fabs(f.faxil_gear_acf), Wt * 1.0001f);
	EXPECT_LE(std::fabs(f.fside_gear_acf), Wt * 1.0001f);
	// Dropped from 20 m onto the water at the longest step.
	mnw.prd_FM = 0.08f;
	f.dob_y = 20.0; f.vx = f.vz = 0.0f; f.vy = -10.0f;
	passes(300);
	EXPECT_TRUE(finite());
	// Waves 15 m high over a hull one metre deep.
	atm.wave_height = 15.0f;
	atm.wave_length_to_height = 7.0f;
	passes(300);
	EXPECT_TRUE(finite());
}

}  // namespace

namespace {

TEST_F(Water, AWaterBomberScoopsItsLoadInTwelveSecondsAndDumpsItInFour)
{
	veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	v.jett_is_water = 1;
	v.m_jettison = 600.0f;
	f.m_jettison = 0.0f;
	f.dob_y = H - 0.1f;
	passes(1);
	f.onground_any = 1;
	stg.water_scoop = 1;
	f.V_msc = 30.0f;
	const float dt = mnw.prd_FM;
	f.faxil_aero_acf = 0.0f;
	do_water_bomber();
	EXPECT_NEAR(f.m_jettison, 600.0f / 12.0f * dt, 1e-4f);
	EXPECT_NEAR(f.faxil_aero_acf, 600.0f / 12.0f * 30.0f, 1e-3f);   // the scooped water's momentum
	for (int k = 0; k < (int)(13.0f / dt); k++) do_water_bomber();
	EXPECT_EQ(f.m_jettison, 600.0f);   // full, no more
	stg.water_scoop = 0;
	f.is_dumping_water = 1;
	for (int k = 0; k < (int)(2.0f / dt); k++) do_water_bomber();
	EXPECT_NEAR(f.m_jettison, 300.0f, 600.0f / 4.0f * dt * 1.5f);
	for (int k = 0; k < (int)(2.5f / dt); k++) do_water_bomber();
	EXPECT_EQ(f.m_jettison, 0.0f);
	EXPECT_EQ(f.is_dumping_water, 0);   // the dump stops when empty
}

}  // namespace
