#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>

namespace {

struct Weather : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		init_con();
		init_tables();
		set_planet_specs(0);
		init_weather_defaults();
		mnw.prd_FM = 0.05f;
		flt[0].dob_y = flt[0].dob_ele = 500.0;
		flt[0].y_agl_mtr = 500.0f;
	}
	void calm_layers(float dir_mag, float spd_kts)
	{
		for (int i = 0; i < 3; i++) {
			atm.set_wind_dir_mag[i] = dir_mag;
			atm.set_wind_spd_kts[i] = spd_kts;
			atm.set_shear_spd_kts[i] = atm.set_shear_dir[i] = atm.set_turb_inc[i] = 0.0f;
		}
	}
	void frames(int n)
	{
		for (int k = 0; k < n; k++) {
			mnw.puff1 = k % 20 == 0;
			mnw.totl_time += mnw.prd_FM;
			WORLD_math_all_cases();
		}
	}
};

}  // namespace

TEST_F(Weather, AWindFromMagneticNorthBlowsTowardPlusZ)
{
	calm_layers(0.0f, 20.0f);
	env.mag_var = 0.0f;
	frames(400);   // 20 s: the smoothing has long settled
	EXPECT_NEAR(atm.wind_Z_msc, 20.0f * con.ktstomsc, 0.01f);
	EXPECT_NEAR(atm.wind_X_msc, 0.0f, 0.01f);
	EXPECT_NEAR(atm.wind_spd_msc, 20.0f * con.ktstomsc, 0.01f);
	EXPECT_LT(std::fabs(fltwrap(atm.wind_dir_true, -180.0f, 180.0f)), 0.1f);
	// From the east: the air moves west, toward -x.
	calm_layers(90.0f, 20.0f);
	frames(400);
	EXPECT_NEAR(atm.wind_X_msc, -20.0f * con.ktstomsc, 0.01f);
	EXPECT_NEAR(atm.wind_dir_true, 90.0f, 0.1f);
	// A magnetic variation of 10 degrees east turns a magnetic 90 into a true 80.
	env.mag_var = 10.0f;
	frames(400);
	EXPECT_NEAR(atm.wind_dir_true, 80.0f, 0.5f);
}

TEST_F(Weather, LayersInterpolateAndHoldAtTheEnds)
{
	atm.set_wind_alt_mtrs[0] = 1000.0f; atm.set_wind_alt_mtrs[1] = 2000.0f; atm.set_wind_alt_mtrs[2] = 6000.0f;
	atm.set_wind_spd_kts[0] = 10.0f; atm.set_wind_spd_kts[1] = 20.0f; atm.set_wind_spd_kts[2] = 60.0f;
	atm.set_wind_dir_mag[0] = 350.0f; atm.set_wind_dir_mag[1] = 10.0f;
	float spd, dir, ss, sd, tb;
	get_wind(0.0f, &spd, &dir, &ss, &sd, &tb);
	EXPECT_EQ(spd, 10.0f);
	EXPECT_EQ(dir, 350.0f);
	get_wind(1500.0f, &spd, &dir, &ss, &sd, &tb);
	EXPECT_FLOAT_EQ(spd, 15.0f);
	EXPECT_FLOAT_EQ(dir, 180.0f);   // straight between 350 and 10, with no wrap, as the layers are set
	get_wind(4000.0f, &spd, &dir, &ss, &sd, &tb);
	EXPECT_FLOAT_EQ(spd, 40.0f);
	get_wind(9000.0f, &spd, &dir, &ss, &sd, &tb);
	EXPECT_EQ(spd, 60.0f);
}

TEST_F(Weather, RainMakesCloudsOneStepAFrame)
{
	atm.cld_type[0] = 1;
	atm.cld_type[1] = 0;
	atm.rain_set = 0.5f;
	atm.rate_change = 0.0f;
	frames(1);
	EXPECT_EQ(atm.cld_type[0], 2);
	frames(1);
	EXPECT_EQ(atm.cld_type[0], 3);
	frames(5);
	EXPECT_EQ(atm.cld_type[0], 3);   // a raining cloud type needs no more
	limit_cloud_typ_rat(1);
	EXPECT_EQ(atm.rain_set, 0.5f);
	atm.cld_type[0] = 1;
	limit_cloud_typ_rat(1);          // hard clouds: the rain goes instead
	EXPECT_EQ(atm.rain_set, 0.0f);
}

TEST_F(Weather, SettingsStayStillWithoutARateOfChangeAndAreHeldToTheirRanges)
{
	atm.rate_change = 0.0f;
	atm.wind_tbl = 0.0f;
	const float before = atm.set_wind_spd_kts[1];
	frames(100);
	EXPECT_EQ(atm.set_wind_spd_kts[1], before);
	atm.rate_change = 1.0f;   // improving weather with no variability pulls the wind toward calm
	atm.set_wind_spd_kts[1] = 50.0f;
	frames(200);
	EXPECT_LT(atm.set_wind_spd_kts[1], 50.0f);
	atm.set_wind_spd_kts[2] = 500.0f;
	atm.set_turb_inc[0] = -3.0f;
	atm.vis_rep = 1.0f;
	atm.rain_set = 0.1f;
	atm.tstm_set = 0.6f;
	frames(1);
	EXPECT_EQ(atm.set_wind_spd_kts[2], 200.0f);
	EXPECT_EQ(atm.set_turb_inc[0], 0.0f);
	EXPECT_EQ(atm.vis_rep, 100.0f);
	EXPECT_GE(atm.rain_set, atm.tstm_set);
}

TEST_F(Weather, MicroburstsComeOnlyNearTheGround)
{
	calm_layers(0.0f, 0.0f);
	atm.burst_prob = 1.0f;
	flt[0].y_agl_mtr = 1000.0f;
	float peak = 0.0f;
	for (int k = 0; k < 2400; k++) { frames(1); peak = fltmax2(peak, pythag(atm.wind_X_msc, atm.wind_Y_msc, atm.wind_Z_msc)); }
	EXPECT_LT(peak, 0.01f);
	flt[0].y_agl_mtr = 100.0f;   // two minutes low down: one a minute, on average
	for (int k = 0; k < 2400; k++) { frames(1); peak = fltmax2(peak, pythag(atm.wind_X_msc, atm.wind_Y_msc, atm.wind_Z_msc)); }
	EXPECT_GT(peak, 5.0f);
}

TEST_F(Weather, TurbulenceRocksAWingAndThermalsLift)
{
	calm_layers(0.0f, 10.0f);
	for (float& t : atm.set_turb_inc) t = 9.0f;
	frames(50);
	float a[3], b[3];
	ret_wind_spds_wrl(0.0f, 500.0f, 0.0f, &a[0], &a[1], &a[2], 1);
	ret_wind_spds_wrl(5.0f, 500.0f, 0.0f, &b[0], &b[1], &b[2], 0);   // the other wingtip
	EXPECT_GT(pythag(a[0] - b[0], a[1] - b[1], a[2] - b[2]), 0.5f);
	for (float& t : atm.set_turb_inc) t = 0.0f;
	frames(400);
	ret_wind_spds_wrl(0.0f, 500.0f, 0.0f, &a[0], &a[1], &a[2], 1);
	EXPECT_NEAR(a[1], 0.0f, 1e-3f);
	atm.therm_prt = 1.0f;             // thermals nearly everywhere
	flt[0].i = 17; flt[0].j = 23;
	flt[0].y_agl_mtr = 500.0f;
	ret_wind_spds_wrl(0.0f, 500.0f, 0.0f, &a[0], &a[1], &a[2], 1);
	EXPECT_GT(a[1], 0.5f * 800.0f * con.fpmtomsc);
	flt[0].y_agl_mtr = 0.0f;          // none at the ground
	ret_wind_spds_wrl(0.0f, 0.0f, 0.0f, &a[0], &a[1], &a[2], 1);
	EXPECT_NEAR(ret_therm_vy(), 0.0f, 1e-6f);
}

TEST_F(Weather, MarsAirIsThinAndItsRatioIsToEarthsSeaLevel)
{
	set_planet_specs(1);
	flt[0].dob_y = flt[0].dob_ele = 0.0;
	update_local_air();
	EXPECT_NEAR(con.lcl_r_met, 0.01505f, 1e-6f);
	EXPECT_NEAR(con.lcl_sig, 0.01505f / 1.225f, 1e-5f);
	EXPECT_NEAR(con.lcl_P_pas, 920.0f, 2.0f);
	EXPECT_NEAR(con.lcl_g, 4.2845e13f / (3396200.0f * 3396200.0f), 1e-4f);
	EXPECT_EQ(find_standard_rho(1, 60000.0f), 0.0f);
	EXPECT_EQ(find_standard_rho(1, -30000.0f), 0.074f);
}
