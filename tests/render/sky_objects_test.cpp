// The sky's objects through nimbara-fly view: the sun where the solar equations put it and
// moving as the projection says, the full moon a round disc and the quarter half lit, the
// stars at their places on a moonless night and none by day, and the eye's filters.
#include "support/view_shot.h"
#include "render/sun_moon.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <tuple>

namespace {

constexpr double d2r = M_PI / 180.0;

struct Sky : ViewShot {
	// Pixels brighter than the threshold in every channel (or red and green) within a radius of the centre,
	// and where their middle is.
	int bright(int threshold, double* cx = nullptr, double* cy = nullptr, int radius = 100000, int channels = 3) const
	{
		int n = 0;
		double sx = 0.0, sy = 0.0;
		for (int y = 0; y < H; y++)
			for (int x = 0; x < W; x++) {
				const unsigned char* p = at(x, y);
				if (std::hypot(x - W / 2.0, y - H / 2.0) > radius) continue;
				if (p[0] >= threshold && p[1] >= threshold && (channels < 3 || p[2] >= threshold)) {
					n++;
					sx += x;
					sy += y;
				}
			}
		if (cx && n) *cx = sx / n - W / 2.0;
		if (cy && n) *cy = sy / n - H / 2.0;
		return n;
	}
	// The brightest pixel within a radius of the centre: its offset from the centre.
	double brightest_off_centre(int radius, int* level) const
	{
		double best_d = 1e9;
		*level = -1;
		for (int y = 0; y < H; y++)
			for (int x = 0; x < W; x++) {
				const double d = std::hypot(x - W / 2.0, y - H / 2.0);
				const int v = at(x, y)[0] + at(x, y)[1] + at(x, y)[2];
				if (d <= radius && v > *level) {
					*level = v;
					best_d = d;
				}
			}
		return best_d;
	}
	std::string place(double az, double el, const char* date, int minutes) const
	{
		char s[200];
		std::snprintf(s, sizeof s, "--lat 34 --lon -117 --alt-ft 3000 --heading %.3f --pitch %.3f --date %s --time-utc %02d:%02d --vis-nm 60", az,
		              el, date, minutes / 60, minutes % 60);
		return s;
	}
};

// Where a direction lands in a level-rolled view along heading psi, pitch the: pixels from
// the centre, the half width spanning FOV / 90.
void project(double az, double el, double psi, double the, int w, double* x, double* y)
{
	const double d[3] = {std::sin(az * d2r) * std::cos(el * d2r), std::sin(el * d2r), -std::cos(az * d2r) * std::cos(el * d2r)};
	const double f[3] = {std::sin(psi * d2r) * std::cos(the * d2r), std::sin(the * d2r), -std::cos(psi * d2r) * std::cos(the * d2r)};
	const double r[3] = {std::cos(psi * d2r), 0.0, std::sin(psi * d2r)};
	const double u[3] = {r[1] * f[2] - r[2] * f[1], r[2] * f[0] - r[0] * f[2], r[0] * f[1] - r[1] * f[0]};
	const double df = d[0] * f[0] + d[1] * f[1] + d[2] * f[2];
	const double scale = (w / 2.0) / 0.5;
	*x = (d[0] * r[0] + d[1] * r[1] + d[2] * r[2]) / df * scale;
	*y = (d[0] * u[0] + d[1] * u[1] + d[2] * u[2]) / df * scale;
}

// The day of 2026 (from 1 January, 0) whose midnight phase is nearest the one wanted.
int day_of_phase(double phase)
{
	int best = 0;
	double err = 1.0;
	for (int d = 0; d < 365; d++) {
		double e = std::fabs(moon_phase(julian_day_utc(2026, d, 0.0)) - phase);
		e = std::min(e, 1.0 - e);
		if (e < err) { err = e; best = d; }
	}
	return best;
}

// An hour of that day when the moon stands high and the sun is well down.
int moon_up_minutes(int day)
{
	for (int m = 0; m < 1440; m += 20) {
		update_sun_moon(2026, day, (float)(m * 60), 34.0, -117.0);
		if (lgt[1].the > 25.0f && lgt[1].the < 60.0f && lgt[0].the < -15.0f) return m;
	}
	return -1;
}

std::string date_of(int day)
{
	static const int len[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
	int m = 0;
	while (day >= len[m]) day -= len[m++];
	char s[32];
	std::snprintf(s, sizeof s, "2026-%02d-%02d", m + 1, day + 1);
	return s;
}

}  // namespace

TEST_F(Sky, TheSunStandsWhereTheSolarEquationsPutItAndMovesAsTheProjectionSays)
{
	const int minutes = 15 * 60;   // a morning sun, low in the east
	update_sun_moon(2026, day_of_year(2026, 6, 21), minutes * 60.0f, 34.0, -117.0);
	const double az = lgt[0].psi, el = lgt[0].the;
	ASSERT_GT(el, 10.0);
	ASSERT_TRUE(shoot(place(az, el, "2026-06-21", minutes)));
	double cx = 0, cy = 0;
	ASSERT_GT(bright(245, &cx, &cy, 100000, 2), 10);   // the sun's face, white to yellow
	EXPECT_NEAR(cx, 0.0, 3.0);
	EXPECT_NEAR(cy, 0.0, 3.0);
	ASSERT_TRUE(shoot(place(az + 10.0, el - 4.0, "2026-06-21", minutes)));
	double ex, ey;
	project(az, el, az + 10.0, el - 4.0, W, &ex, &ey);
	ASSERT_GT(bright(245, &cx, &cy, 100000, 2), 10);   // the sun's face, white to yellow
	EXPECT_NEAR(cx, ex, 4.0);
	EXPECT_NEAR(cy, ey, 4.0);
}

TEST_F(Sky, TheFullMoonIsARoundDiscAndTheQuarterHalfLit)
{
	int lit[2] = {0, 0};
	const double phases[2] = {0.5, 0.25};
	for (int k = 0; k < 2; k++) {
		const int day = day_of_phase(phases[k]), m = moon_up_minutes(day);
		ASSERT_GE(m, 0) << phases[k];
		update_sun_moon(2026, day, m * 60.0f, 34.0, -117.0);
		ASSERT_TRUE(shoot(place(lgt[1].psi, lgt[1].the, date_of(day).c_str(), m), "800x600"));
		double cx = 0, cy = 0;
		lit[k] = bright(60, &cx, &cy, 40);
		EXPECT_LT(std::hypot(cx, cy), k == 0 ? 2.0 : 12.0) << phases[k];
	}
	// The moon's quad is 0.04 of its distance across, the disc 0.94 of the quad: at full
	// its area in pixels, as a circle.
	const double r = 0.02 * 0.94 * 400.0 / 0.5;
	EXPECT_NEAR(lit[0], M_PI * r * r, 0.25 * M_PI * r * r);
	EXPECT_NEAR((double)lit[1] / lit[0], 0.5, 0.15);
}

TEST_F(Sky, OnAMoonlessNightTheStarsStandWhereTheyAreAndByDayThereAreNone)
{
	const int day = day_of_phase(0.0);
	int m = -1;
	for (int t = 0; t < 1440 && m < 0; t += 20) {
		update_sun_moon(2026, day, t * 60.0f, 34.0, -117.0);
		if (lgt[0].the < -20.0f && lgt[1].the < -5.0f) m = t;
	}
	ASSERT_GE(m, 0);
	// Polaris, near the latitude's height in the north, and Vega, each where its hour angle
	// and declination put it.
	update_sun_moon(2026, day, m * 60.0f, 34.0, -117.0);
	const double lat = 34.0 * d2r;
	int level = 0;
	for (const auto& [ra, dec_deg, least] : {std::tuple{2.5302, 89.2642, 3 * 80}, {18.6156, 38.7836, 3 * 120}}) {
		const double H = (side_time_hrs - ra) * 15.0 * d2r, dec = dec_deg * d2r;
		const double alt = std::asin(std::sin(lat) * std::sin(dec) + std::cos(lat) * std::cos(dec) * std::cos(H));
		const double az = std::atan2(-std::cos(dec) * std::sin(H), std::sin(dec) * std::cos(lat) - std::cos(dec) * std::sin(lat) * std::cos(H)) / d2r;
		if (alt < 15.0 * d2r) continue;
		ASSERT_TRUE(shoot(place(az, alt / d2r, date_of(day).c_str(), m), "800x600"));
		EXPECT_LT(brightest_off_centre(30, &level), 8.0) << ra;   // within half a degree
		EXPECT_GT(level, least) << ra;   // a star, well over the night sky
	}
	// By day the same sky is empty of points.
	ASSERT_TRUE(shoot(place(0.0, 34.0, date_of(day).c_str(), (m + 720) % 1440), "800x600"));
	int specks = 0;
	for (int y = 1; y < H - 1; y++)
		for (int x = 1; x < W - 1; x++) {
			const int c = at(x, y)[1];
			specks += c > at(x - 1, y)[1] + 30 && c > at(x + 1, y)[1] + 30 && c > at(x, y - 1)[1] + 30 && c > at(x, y + 1)[1] + 30;
		}
	EXPECT_EQ(specks, 0);
}

TEST_F(Sky, SunglassesDarkenTheDayByAFifthAndNightVisionTurnsItGreen)
{
	const std::string day = "--lat 34 --lon -117 --alt-ft 3000 --heading 0 --pitch 5 --date 2026-06-21 --time-utc 19:00";
	ASSERT_TRUE(shoot(day));
	const double plain[3] = {mean(0), mean(1), mean(2)};
	ASSERT_TRUE(shoot(day + " --sunglasses"));
	for (int c = 0; c < 3; c++) EXPECT_NEAR(mean(c) / plain[c], 0.8, 0.02) << c;
	ASSERT_TRUE(shoot(day + " --night-vision"));
	EXPECT_GT(mean(1), 2.0 * mean(0));
	EXPECT_GT(mean(1), 2.0 * mean(2));
	EXPECT_EQ(holes(), 0);
}
