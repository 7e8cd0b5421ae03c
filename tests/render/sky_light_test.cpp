// The light beyond the tables without drawing: lightning only from dense cloud, the tint
// that stays within its limits and reaches the sky as far as the air is thick, the lamps
// as the day dims, the glare toward the sun, the ground's one extra texture by priority,
// the eye's red-out and black-out, meteors by the code, and the stars' turn into the sky.
#include "render/light.h"
#include "render/overlay.h"
#include "render/sky_objects.h"
#include "render/stars.h"
#include "render/sun_moon.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

struct Light : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		init_con();
		set_planet_specs(0);
		atm.vis_sky = atm.vis_ground = 46300.0f;
		ren.draw_shadows = 1;
		mnw.prd_FM = 0.02f;
		stg.draw_g_load = 1;
	}
	void sun_at(float the, float psi = 180.0f)
	{
		lgt[0].the = lgt[2].the = the;
		lgt[0].psi = lgt[2].psi = psi;
	}
	void light_of(float amb, float dir)
	{
		for (int c = 0; c < 3; c++) {
			ren.lgt_amb[c] = amb;
			ren.lgt_dir[c] = dir;
		}
	}
};

}  // namespace

TEST_F(Light, AStrikeComesOnlyFromDenseCloudAndRunsFromItsBaseToTheGround)
{
	atm.base_h_MSL[0] = 2000.0f;
	flt[0].dob_ele = flt[0].dob_y = 500.0;
	ren.act_puf_rad = 300.0f;
	EXPECT_EQ(lightning_try_strike(0.1f, 5.0f, 90.0f, 10.0f), 0);
	EXPECT_EQ(atm.strike_stop_time, 0.0f);
	ASSERT_EQ(lightning_try_strike(0.5f, 5.0f, 90.0f, 10.0f), 1);
	EXPECT_GE(atm.strike_stop_time, 10.2f);
	EXPECT_LE(atm.strike_stop_time, 10.4f);
	const float x0 = 5.0f * 1852.0f;   // due east
	for (int s = 0; s < 3; s++) {
		EXPECT_NEAR(atm.strike_xyz[s][0][0], x0, 1e-2f);
		EXPECT_NEAR(atm.strike_xyz[s][0][1], 2300.0f, 1e-2f);   // from the cloud's base and a puff's radius
		const float step = (2300.0f - atm.strike_xyz[s][199][1]) / 199.0f;
		EXPECT_GT(step, 0.0f);
		EXPECT_LT(std::fabs(atm.strike_xyz[s][199][0] - x0), 199.0f * step * 0.5f);   // the jag stays within its bounds
	}
	mnw.totl_time = 10.1f;
	const float near_flash = lightning_ratio(1.0f);
	EXPECT_NEAR(near_flash, 1.0f - 5.0f / 40.0f, 1e-4f);
	mnw.totl_time = 11.0f;
	EXPECT_EQ(lightning_ratio(1.0f), 0.0f);   // over
}

TEST_F(Light, TheTintStaysWithinLimitsAndReachesTheSkyAsFarAsTheAirIsThick)
{
	light_of(0.9f, 0.05f);
	for (auto& row : ren.sky_256)
		for (auto& cell : row) cell[0] = cell[1] = cell[2] = 100;
	inc_colors(0.5f, -0.5f, 0.0f, 0);
	EXPECT_FLOAT_EQ(ren.lgt_amb[0], 1.0f);
	EXPECT_FLOAT_EQ(ren.lgt_dir[1], 0.0f);
	EXPECT_EQ(ren.sky_256[3][7][0], 100);   // clear air: the sky keeps its colour
	atm.vis_sky = 0.0f;
	inc_colors(0.2f, 0.0f, 0.0f, 0);
	EXPECT_EQ(ren.sky_256[3][7][0], 151);   // thick air: all of it
	ren.sun_rgb[1] = 0.5f;
	inc_colors(0.0f, 10.0f, 0.0f, 0);
	EXPECT_FLOAT_EQ(ren.sun_rgb[1], 0.5f);   // the discs only with night vision's flag
	inc_colors(0.0f, 10.0f, 0.0f, 1);
	EXPECT_FLOAT_EQ(ren.sun_rgb[1], 1.0f);
}

TEST_F(Light, LampsComeOnAsTheDayDimsAndGlareComesFromTheSun)
{
	sun_at(30.0f);
	light_of(0.7f, 0.8f);
	update_light({1.0f, 1.0f, 1.0f, 0.0f});
	EXPECT_FLOAT_EQ(ren.lite_rat_on, 0.0f);
	light_of(0.05f, 0.05f);
	update_light({1.0f, 1.0f, 0.0f, 0.0f});
	EXPECT_FLOAT_EQ(ren.lite_rat_on, 1.0f);
	// The amb and dir light thinned by thin air: black shadows in space.
	light_of(0.5f, 0.5f);
	ren.glare_rat = 0.0f;
	update_light({0.0f, 0.0f, 1.0f, 0.0f});
	EXPECT_FLOAT_EQ(ren.lgt_amb[0], 0.0f);
	EXPECT_FLOAT_EQ(ren.lgt_dir[0], 0.5f);
	// Looking at a bright sun, then away from it, then through sunglasses.
	ren.final_psi = 180.0f;
	ren.final_the = 30.0f;
	light_of(0.6f, 0.9f);
	ren.glare_rat = 0.0f;
	update_light({1.0f, 1.0f, 1.0f, 0.0f});
	const float at_sun = ren.glare_rat;
	EXPECT_GT(at_sun, 0.3f);
	ren.final_psi = 0.0f;
	light_of(0.6f, 0.9f);
	update_light({1.0f, 1.0f, 1.0f, 0.0f});
	EXPECT_FLOAT_EQ(ren.glare_rat, 0.0f);
	ren.final_psi = 180.0f;
	ren.sunglasses_on = 1;
	light_of(0.6f, 0.9f);
	update_light({1.0f, 1.0f, 1.0f, 0.0f});
	EXPECT_NEAR(ren.glare_rat, 0.5f * at_sun, 1e-5f);
}

TEST_F(Light, TheGroundsSecondTextureGoesToShadowsThenTheLandingLightThenTheGlitter)
{
	auto choose = [&](float sun) {
		sun_at(sun);
		light_of(0.05f, 0.05f);
		update_light({1.0f, 1.0f, 1.0f, 0.0f});
	};
	atm.cld_type[0] = 3;
	atm.base_h_MSL[0] = 1000.0f;
	atm.tops_h_MSL[0] = 2000.0f;
	ren.cld_lgt[0] = ren.cld_lgt[1] = ren.cld_lgt[2] = 0.9f;
	flt[0].lan_lite = 1;   // and the landing light on, but no power
	choose(20.0f);
	EXPECT_GT(ren.shadow_alpha, 0.0f);
	EXPECT_EQ(ren.shadow_final_tex, 422);
	EXPECT_FLOAT_EQ(ren.shad_yc, 1500.0f);
	EXPECT_EQ(ren.plot_lan_litemap + ren.plot_sun_reflect, 0);
	EXPECT_EQ(ren.sha_or_lit_or_sun, 1);
	atm.cld_type[0] = 0;
	choose(2.0f);
	EXPECT_EQ(ren.plot_sun_reflect, 1);
	EXPECT_FLOAT_EQ(ren.shadow_alpha, 0.0f);
	choose(-20.0f);
	EXPECT_EQ(ren.sha_or_lit_or_sun, 0);   // the light needs power
}

TEST_F(Light, RedOutAndBlackOutFollowTheirRampsOfLoad)
{
	auto settle = [](float g) {
		flt[0].g_nrml = g;
		body_effect e{};
		for (int n = 0; n < 2000; n++) e = update_body_effects(0.02f);
		return e;
	};
	EXPECT_NEAR(settle(-2.5f).redout, 0.0f, 1e-4f);
	EXPECT_NEAR(settle(-3.0f).redout, 0.5f, 1e-3f);
	EXPECT_NEAR(settle(-4.0f).redout, 1.0f, 1e-3f);
	EXPECT_NEAR(settle(7.0f).blackout, 0.0f, 1e-4f);
	const body_effect b = settle(8.5f);
	EXPECT_NEAR(b.blackout, 0.5f, 1e-3f);
	EXPECT_NEAR(b.alpha, 0.5f, 1e-3f);
	EXPECT_NEAR(b.rgb[0], 0.0f, 1e-3f);   // a black veil
	EXPECT_NEAR(settle(-3.5f).rgb[0], 1.0f, 1e-3f);   // a red one
	stg.draw_g_load = 0;
	EXPECT_EQ(settle(9.0f).alpha, 0.0f);
}

TEST_F(Light, MeteorsComeAsOftenAsTheCodeSaysAndTheMoonShinesByItsPhase)
{
	EXPECT_EQ(meteor_period(0), 300);
	EXPECT_EQ(meteor_period(1), 600);
	EXPECT_EQ(meteor_period(2), 300);
	EXPECT_EQ(meteor_period(3), 150);
	EXPECT_EQ(meteor_period(4), 30);
	EXPECT_FLOAT_EQ(sky_magnify(10.0f), 1.0f);
	EXPECT_FLOAT_EQ(sky_magnify(-3.0f), 1.5f);
	// 2026-01-03 10:03 UTC was a full moon, 2026-01-18 19:52 a new one.
	update_sun_moon(2026, 2, 10.05f * 3600.0f, 34.0, -117.0);
	EXPECT_NEAR(moon_brt, 1.0f, 0.03f);
	update_sun_moon(2026, 17, 19.87f * 3600.0f, 34.0, -117.0);
	EXPECT_NEAR(moon_brt, 0.5f, 0.03f);
}

// Each star's place against the altitude and azimuth of the textbook formula.
TEST(Stars, TheSkyTurnsIntoTheLocalFrameByLatitudeAndSiderealTime)
{
	const double d2r = M_PI / 180.0;
	for (double lat : {-33.9, 0.0, 34.0, 64.1})
		for (double lst : {0.0, 5.3, 13.7, 22.9})
			for (const auto& [ra, dec] : {std::pair{2.5302, 89.2642}, {6.7525, -16.7161}, {18.6156, 38.7836}, {14.66, -60.8353}}) {
				float m[16];
				sky_to_local(lat, lst, m);
				const double e[3] = {std::cos(dec * d2r) * std::cos(ra * 15 * d2r), std::cos(dec * d2r) * std::sin(ra * 15 * d2r), std::sin(dec * d2r)};
				double v[3];
				for (int r = 0; r < 3; r++) v[r] = m[r] * e[0] + m[4 + r] * e[1] + m[8 + r] * e[2];
				const double H = (lst - ra) * 15 * d2r, f = lat * d2r, dl = dec * d2r;
				const double alt = std::asin(std::sin(f) * std::sin(dl) + std::cos(f) * std::cos(dl) * std::cos(H));
				const double az = std::atan2(-std::cos(dl) * std::sin(H), std::sin(dl) * std::cos(f) - std::cos(dl) * std::sin(f) * std::cos(H));
				EXPECT_NEAR(std::asin(v[1]), alt, 1e-5) << lat << " " << lst << " " << ra;
				if (std::cos(alt) > 1e-3) {
					double got = std::atan2(v[0], -v[2]) - az;
					got = std::remainder(got, 2.0 * M_PI);
					EXPECT_NEAR(got, 0.0, 1e-4) << lat << " " << lst << " " << ra;
				}
			}
}

TEST(Stars, TheCatalogueReadsBrightestFirstAndABadFileLeavesAnEmptySky)
{
	zero_all_records();
	const std::string real = std::string(NIMBARA_DATA_TREE) + "/Resources/Earth nav data/astro.dat";
	ASSERT_EQ(read_star_catalogue(real.c_str()), 1);
	EXPECT_GT(num_stars, 9000);
	EXPECT_NEAR(stars[0].mag, -1.46f, 1e-3f);   // Sirius
	bool polaris = false;
	for (int k = 0; k < num_stars; k++) {
		if (k) {
			ASSERT_GE(stars[k].mag, stars[k - 1].mag);
		}
		polaris |= std::fabs(stars[k].dec_deg - 89.26f) < 0.01f && std::fabs(stars[k].mag - 2.02f) < 0.01f;
	}
	EXPECT_TRUE(polaris);
	const std::string dir = std::string(NIMBARA_TEST_TREE) + "/stars/";
	std::filesystem::create_directories(dir);
	const char* bad[] = {"", "A\n", "A\n739 Version\n1 2 3 x\n99\n", "A\n740 Version\n25 2 3 x\n99\n", "A\n740 Version\n1 2 3 x\n4.5 -1"};
	for (const char* text : bad) {
		std::ofstream(dir + "astro.dat") << text;
		read_star_catalogue((dir + "astro.dat").c_str());
		EXPECT_LE(num_stars, 2) << text;   // no crash; a truncated tail is no star
	}
	EXPECT_EQ(read_star_catalogue((dir + "missing.dat").c_str()), 0);
	EXPECT_EQ(num_stars, 0);
}
