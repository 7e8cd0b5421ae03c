// The sun against the astronomical almanac's own low-precision algorithm (a different fit),
// the moon's age against eclipses (new and full moons known to the minute), the time
// pixels, and the light of clear air rising with the sun.
#include "render/sky_colours.h"
#include "render/sun_moon.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr double D = M_PI / 180.0;

// Michalsky's almanac algorithm: elevation and azimuth clockwise from north, degrees.
void almanac_sun(double jd, double lat, double lon, double* el, double* az)
{
	const double n = jd - 2451545.0;
	const double L = std::fmod(280.460 + 0.9856474 * n, 360.0), g = std::fmod(357.528 + 0.9856003 * n, 360.0);
	const double lambda = L + 1.915 * std::sin(g * D) + 0.020 * std::sin(2 * g * D), eps = 23.439 - 0.0000004 * n;
	const double ra = std::atan2(std::cos(eps * D) * std::sin(lambda * D), std::cos(lambda * D)) / D;
	const double dec = std::asin(std::sin(eps * D) * std::sin(lambda * D));
	const double hour = (jd + 0.5 - std::floor(jd + 0.5)) * 24.0;
	const double lmst = std::fmod(6.697375 + 0.0657098242 * n + hour + lon / 15.0, 24.0);
	double ha = std::fmod(lmst * 15.0 - ra, 360.0);
	if (ha > 180) ha -= 360;
	if (ha < -180) ha += 360;
	*el = std::asin(std::sin(dec) * std::sin(lat * D) + std::cos(dec) * std::cos(lat * D) * std::cos(ha * D)) / D;
	*az = std::fmod(std::atan2(-std::cos(dec) * std::sin(ha * D),
	                           std::sin(dec) * std::cos(lat * D) - std::cos(dec) * std::cos(ha * D) * std::sin(lat * D)) / D + 360.0, 360.0);
}

int doy(int y, int m, int d)
{
	static const int before[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
	const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
	return before[m - 1] + d - 1 + (leap && m > 2);
}

}  // namespace

TEST(SunMoon, TheSunStandsWhereTheAlmanacPutsItAtAnyDateTimeAndPlace)
{
	EXPECT_DOUBLE_EQ(julian_day_utc(2000, 0, 43200.0), 2451545.0);   // the epoch: noon, 1 January 2000
	std::mt19937 rng(11);
	std::uniform_real_distribution<double> lat(-70, 70), lon(-180, 180), sec(0, 86400);
	for (int n = 0; n < 500; n++) {
		const int year = 1990 + (int)(rng() % 50), day = (int)(rng() % 365);
		const double la = lat(rng), lo = lon(rng), s = sec(rng);
		update_sun_moon(year, day, (float)s, la, lo);
		double el, az;
		almanac_sun(julian_day_utc(year, day, s), la, lo, &el, &az);
		ASSERT_NEAR(lgt[0].the, el, 0.1) << year << " day " << day << " at " << la << "," << lo;
		if (std::fabs(el) < 85) {
			double daz = std::fmod(lgt[0].psi - az + 540.0, 360.0) - 180.0;
			ASSERT_NEAR(daz, 0.0, 0.15 / std::max(0.2, std::cos(el * D))) << year << " day " << day;
		}
	}
	// The June solstice at 40 north: noon 23.44 degrees above the equator's height; the
	// declination keeps its negative June sign.
	update_sun_moon(2026, doy(2026, 6, 21), 19 * 3600 + 1 * 60, 40.0, -105.0);
	EXPECT_NEAR(lgt[0].the, 90 - 40 + 23.44, 0.05);
	EXPECT_NEAR(declination_deg, -23.44, 0.02);
	EXPECT_NEAR(hours, 12.0, 0.02);
}

TEST(SunMoon, TheMoonsAgeMatchesEclipsesAndItStandsBySunOrOppositeIt)
{
	struct { int y, m, d, h, min; double phase; } known[] = {
		{2017, 8, 21, 18, 30, 0.0}, {2019, 7, 2, 19, 16, 0.0}, {2024, 4, 8, 18, 21, 0.0},      // total eclipses of the sun
		{2015, 9, 28, 2, 50, 0.5}, {2022, 11, 8, 11, 2, 0.5}, {2025, 3, 14, 6, 55, 0.5},       // and of the moon
	};
	for (const auto& k : known) {
		update_sun_moon(k.y, doy(k.y, k.m, k.d), (float)(k.h * 3600 + k.min * 60), 34.0, -117.0);
		double off = PhaseFraction - k.phase;
		off -= std::round(off);
		EXPECT_LT(std::fabs(off) * 29.5306, 1.0) << k.y << "-" << k.m << "-" << k.d;
		const double apart = std::fabs(std::fmod(lgt[1].azi - lgt[0].azi + 540.0, 360.0) - 180.0);
		if (k.phase == 0.0) EXPECT_LT(apart, 15.0);
		else EXPECT_GT(apart, 165.0);
		EXPECT_NEAR(moon_brt, 1.0 - std::fabs(PhaseFraction - 0.5), 1e-6);
		EXPECT_GE(moon_tex, 228);
		EXPECT_LE(moon_tex, 250);
	}
}

TEST(SkyColours, TimePixelsRunFromNightThroughDawnToNoonAndBack)
{
	int i1, i2;
	float r1, r2;
	get_time_pixels(&i1, &i2, &r1, &r2, 40.0f, true);   // high sun, either side of noon: the middle
	EXPECT_EQ(i1, 255);
	EXPECT_FLOAT_EQ(r1, 0.5f);
	get_time_pixels(&i1, &i2, &r1, &r2, 40.0f, false);
	EXPECT_EQ(i1, 255);
	get_time_pixels(&i1, &i2, &r1, &r2, -12.0f, true);   // deep twilight: the first pixel
	EXPECT_EQ(i1, 0);
	EXPECT_FLOAT_EQ(r1, 1.0f);
	get_time_pixels(&i1, &i2, &r1, &r2, -12.0f, false);
	EXPECT_EQ(i1, 510);
	get_time_pixels(&i1, &i2, &r1, &r2, -2.0f, true);   // dawn and dusk mirror each other
	const int dawn = i1;
	get_time_pixels(&i1, &i2, &r1, &r2, -2.0f, false);
	EXPECT_NEAR(dawn + i1, 510, 1);
	get_time_frames(&i1, &i2, &r1, &r2, 40.0f, true);
	EXPECT_EQ(i1, 7);
	EXPECT_FLOAT_EQ(r2, 0.5f);
}

TEST(SkyColours, TheLightOfClearAirRisesWithTheSunFromNightToDay)
{
	zero_all_records();
	bmp_path = std::string(NIMBARA_DATA_TREE) + "/Resources/bitmaps/";
	ASSERT_EQ(load_sky_colours(0), 1);
	ASSERT_EQ(load_sky_colours(1), 1);   // Mars's sets read as well
	ASSERT_EQ(load_sky_colours(0), 1);
	const float clean[5] = {1, 0, 0, 0, 0};
	moon_brt = 0.5f;
	float last_amb = -1.0f, last_dir = -1.0f;
	for (float the = -20.0f; the <= 10.0f; the += 1.0f) {
		float amb[3], dir[3];
		blend_light(clean, the, true, amb, dir);
		const float a = amb[0] + amb[1] + amb[2], d = dir[0] + dir[1] + dir[2];
		EXPECT_GE(a, last_amb - 1e-4f) << the;
		if (the > -10.0f) {   // below, the moon's light hands over to the sun's
			EXPECT_GE(d, last_dir - 1e-4f) << the;
		}
		if (the <= -15.0f) {
			EXPECT_LT(a, 0.2f);   // night
		}
		if (the >= 6.0f) {
			EXPECT_GT(a, 1.2f);   // day
			EXPECT_GT(d, 2.0f);
			EXPECT_GT(amb[2], amb[0]);   // the sky's light is blue
		}
		last_amb = a;
		last_dir = d;
	}
	blend_world_colours(clean, 30.0f, true);   // by day water is darker and bluer than the clouds' lit side
	EXPECT_GT(ren.wat_rgb[2], ren.wat_rgb[0]);
	EXPECT_GT(ren.cld_lgt[0] + ren.cld_lgt[1] + ren.cld_lgt[2], ren.wat_rgb[0] + ren.wat_rgb[1] + ren.wat_rgb[2]);
	EXPECT_GT(ren.sun_rgb[0], 0.9f);
	const float day_water = ren.wat_rgb[2];
	blend_world_colours(clean, -20.0f, true);   // and at night, dimmed by the moon
	EXPECT_LT(ren.wat_rgb[2], day_water * 0.5f);
	float low[3], high[3], amb[3];
	blend_light(clean, 1.0f, true, amb, low);   // a low sun is warm, a high one white
	blend_light(clean, 30.0f, true, amb, high);
	EXPECT_GT(low[0] / low[2], 1.5f * high[0] / high[2]);
}

// The sky table: bright and warm round a low sun, dark at night, thick weather grey,
// socked in below a mile, and black toward space from the top down.
TEST(SkyColours, TheSkyIsWarmRoundALowSunDarkAtNightAndBlackTowardSpace)
{
	zero_all_records();
	bmp_path = std::string(NIMBARA_DATA_TREE) + "/Resources/bitmaps/";
	ASSERT_EQ(load_sky_colours(0), 1);
	float w[5];
	weather_set_weights(1.0f, 50000.0f, 1000.0f, w);
	EXPECT_FLOAT_EQ(w[0], 1.0f);
	auto bright = [](int j, int i) { return ren.sky_256[j][i][0] + ren.sky_256[j][i][1] + ren.sky_256[j][i][2]; };
	compute_sky_256(w, 2.0f, false, 50000.0f, 1.0f, 1.0f, 0.0f);   // a low evening sun
	EXPECT_GT(bright(1, 32), bright(1, 0) + 60);                    // toward the sun, brighter
	EXPECT_GT(ren.sky_256[1][32][0] - ren.sky_256[1][32][2], ren.sky_256[1][0][0] - ren.sky_256[1][0][2] + 20);   // and warmer
	const int sunset_sky = bright(15, 0);
	compute_sky_256(w, 40.0f, true, 50000.0f, 1.0f, 1.0f, 0.0f);   // midday: blue overhead
	EXPECT_GT(ren.sky_256[15][0][2], ren.sky_256[15][0][0] + 60);
	EXPECT_GT(bright(15, 0), sunset_sky);
	EXPECT_GT(ren.fog_rgb[2], 0.5f);
	compute_sky_256(w, -20.0f, true, 50000.0f, 1.0f, 1.0f, 0.0f);   // night
	EXPECT_LT(bright(15, 0), 40);
	compute_sky_256(w, 40.0f, true, 50000.0f, 0.0f, 1.0f, 0.0f);   // thin air: black overhead, the horizon still lit
	EXPECT_EQ(bright(15, 10), 0);
	EXPECT_GT(bright(0, 10), 200);
	compute_sky_256(w, 40.0f, true, 1000.0f, 1.0f, 1.0f, 0.0f);   // socked in: the fog colour top to bottom
	EXPECT_NEAR(ren.sky_256[15][5][0], ren.fog_rgb[0] * 255.0f, 1.5f);
	EXPECT_NEAR(ren.sky_256[0][40][2], ren.fog_rgb[2] * 255.0f, 1.5f);
	atm.cld_type[0] = 5;   // under an overcast deck
	atm.base_h_MSL[0] = 2000.0f;
	atm.tops_h_MSL[0] = 3000.0f;
	weather_set_weights(1.0f, 50000.0f, 1000.0f, w);
	EXPECT_FLOAT_EQ(w[4], 1.0f);
	weather_set_weights(0.2f, 50000.0f, 12000.0f, w);   // far above it, in thin air
	EXPECT_FLOAT_EQ(w[3], 1.0f);
	weather_set_weights(1.0f, 3 * 1852.0f, 12000.0f, w);   // thick haze
	EXPECT_FLOAT_EQ(w[2], 1.0f);
	float sum = 0.0f;
	weather_set_weights(0.4f, 8 * 1852.0f, 3100.0f, w);
	for (float x : w) sum += x;
	EXPECT_NEAR(sum, 1.0f, 1e-5f);
}
