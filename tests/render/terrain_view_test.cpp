// The ground through nimbara-fly view: straight down over places the coastline puts at sea
// the picture is water, well inland it is land, and no cell under the camera is missing;
// looking level at high ground, its outline stands where nimbara-fly terrain's heights put it.
#include "support/view_shot.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct Ground : ViewShot {
	bool down_at(double lat, double lon)
	{
		return shoot("--lat " + std::to_string(lat) + " --lon " + std::to_string(lon) +
		             " --alt-ft 3000 --pitch -89.9 --date 2026-06-21 --time-utc 19:00 --vis-nm 60");
	}
};

constexpr double d2r = M_PI / 180.0, R = 6371008.8;

struct Probe {
	double ele;
	int use;
};

// The ground at the points, from nimbara-fly terrain: its height and the land use of the
// grid corner nearest each.
std::vector<Probe> probe(const std::string& dir, const std::vector<std::pair<double, double>>& pts)
{
	{
		std::ofstream f(dir + "pts.txt");
		char line[64];
		for (const auto& [la, lo] : pts) {
			std::snprintf(line, sizeof line, "%.7f %.7f\n", la, lo);
			f << line;
		}
	}
	const std::string cmd = std::string(NIMBARA_FLY) + " terrain --tree " + NIMBARA_DATA_TREE + " --points " + dir + "pts.txt > " + dir + "h.txt 2> " + dir + "h.log";
	std::vector<Probe> got;
	if (std::system(cmd.c_str()) != 0) return got;
	std::ifstream in(dir + "h.txt");
	double la, lo, e;
	int use, wet, apt;
	while (in >> la >> lo >> e >> use >> wet >> apt) got.push_back({e, use});
	return got;
}

std::vector<double> heights(const std::string& dir, const std::vector<std::pair<double, double>>& pts)
{
	std::vector<double> h;
	for (const Probe& p : probe(dir, pts)) h.push_back(p.ele);
	return h;
}

bool wet(int use) { return use == 14 || use == 15; }

std::pair<double, double> ahead(double lat, double lon, double az, double d)
{
	return {lat + d * std::cos(az * d2r) / (R * d2r), lon + d * std::sin(az * d2r) / (R * d2r * std::cos(lat * d2r))};
}

// The highest elevation angle of the ground along each azimuth, seen from eye height h.
std::vector<double> outlines(const std::string& dir, double lat, double lon, double h, const std::vector<double>& azimuths)
{
	constexpr int steps = 250;   // every 100 m out to 25 km
	std::vector<std::pair<double, double>> pts;
	for (double az : azimuths)
		for (int k = 1; k <= steps; k++) pts.push_back(ahead(lat, lon, az, 100.0 * k));
	const std::vector<double> g = heights(dir, pts);
	std::vector<double> best(azimuths.size(), -90.0);
	if (g.size() != pts.size()) return best;
	for (size_t a = 0; a < azimuths.size(); a++)
		for (int k = 1; k <= steps; k++) {
			const double d = 100.0 * k;
			best[a] = std::max(best[a], std::atan2(g[a * steps + k - 1] - h - d * d / (2.0 * R), d) / d2r);
		}
	return best;
}

}  // namespace

TEST_F(Ground, StraightDownTheSeaIsWaterAndTheLandInlandIsLand)
{
	for (const auto& [lat, lon] : {std::pair{32.5, -120.0}, {33.2, -118.0}}) {   // the open Pacific, the Catalina channel
		ASSERT_TRUE(down_at(lat, lon));
		EXPECT_EQ(holes(), 0);
		EXPECT_GT(mean(2), mean(0) + 15.0) << lat << " " << lon;   // blue over red: water
		EXPECT_LT(mean(0) + mean(1) + mean(2), 3 * 120.0) << lat << " " << lon;   // and darker than any land
	}
	for (const auto& [lat, lon] : {std::pair{35.0, -116.0}, {36.3, -119.6}}) {   // the Mojave, the Central Valley
		ASSERT_TRUE(down_at(lat, lon));
		EXPECT_EQ(holes(), 0);
		EXPECT_GT(mean(0), mean(2)) << lat << " " << lon;
	}
}

// Over the frame's own reference point (whole degree of latitude, half of longitude) the
// local level is the picture's level.
TEST_F(Ground, HighGroundStandsAgainstTheSkyWhereItsHeightsPutIt)
{
	const double lat = 34.0, lon = -117.5;
	const std::vector<double> here = heights(dir, {{lat, lon}});
	ASSERT_EQ(here.size(), 1u);
	const double eye = here[0] + 20.0;
	// Face the ridge that stands highest round the eye.
	std::vector<double> round_about;
	for (double az = 0.0; az < 360.0; az += 10.0) round_about.push_back(az);
	const std::vector<double> seen = outlines(dir, lat, lon, eye, round_about);
	const size_t best = (size_t)(std::max_element(seen.begin(), seen.end()) - seen.begin());
	const double heading = round_about[best];
	ASSERT_GT(seen[best], 1.0) << "no high ground round the eye";
	char args[200];
	std::snprintf(args, sizeof args, "--lat %.4f --lon %.4f --alt-ft %.2f --heading %.1f --date 2026-06-21 --time-utc 19:00 --vis-nm 200", lat, lon,
	              eye / 0.3048, heading);
	ASSERT_TRUE(shoot(args));
	const int columns[5] = {40, 120, 200, 280, 360};
	std::vector<double> az;
	for (int x : columns) az.push_back(heading + std::atan((x + 0.5 - W / 2.0) / (W / 2.0) * 0.5) / d2r);
	const std::vector<double> edge = outlines(dir, lat, lon, eye, az);
	for (int c = 0; c < 5; c++) {
		const int x = columns[c];
		const double alpha = az[c] - heading, e = edge[c];
		const double want = H / 2.0 + std::tan(e * d2r) / std::cos(alpha * d2r) * (W / 2.0) / 0.5;
		int got = -1;   // from the top down, the first pixel that is not sky
		for (int y = H - 1; y >= 0 && got < 0; y--) {
			const unsigned char* p = at(x, y);
			if (p[2] < p[0] + 12) got = y;
		}
		EXPECT_NEAR(got, want, 3.0) << "column " << x << ", outline " << e << " degrees";
	}
}

// A grid cell on the coast with its two western corners at sea and its two eastern on land,
// between a cell all sea and a cell all land: seen from above, the land lies over the water
// through its mask on the eastern side, over about half the cell.
TEST_F(Ground, ACoastalCellShowsItsLandOnTheSideOfItsLandCorners)
{
	constexpr int n = 60;
	constexpr double lat0 = 33.70, lon0 = -118.60;   // Santa Monica Bay's shore
	std::vector<std::pair<double, double>> pts;
	for (int j = 0; j < n; j++)
		for (int i = 0; i < n; i++) pts.push_back({lat0 + j / 200.0 + 1e-5, lon0 + i / 150.0 + 1e-5});   // the grid's own corners
	const std::vector<Probe> g = probe(dir, pts);
	ASSERT_EQ(g.size(), pts.size());
	auto use = [&](int i, int j) { return g[(size_t)j * n + i].use; };
	int ci = -1, cj = -1;
	for (int j = 0; j + 1 < n && ci < 0; j++)
		for (int i = 1; i + 2 < n && ci < 0; i++) {
			const int land = use(i + 1, j);
			const bool sea_west = wet(use(i - 1, j)) && wet(use(i - 1, j + 1)) && wet(use(i, j)) && wet(use(i, j + 1));
			const bool land_east = !wet(land) && use(i + 1, j + 1) == land && use(i + 2, j) == land && use(i + 2, j + 1) == land;
			if (sea_west && land_east) ci = i, cj = j;
		}
	ASSERT_GE(ci, 0) << "no straight north-south shore in the window";
	const double lat = lat0 + (cj + 0.5) / 200.0, lon = lon0 + (ci + 0.5) / 150.0, h = 1200.0;
	char args[200];
	std::snprintf(args, sizeof args, "--lat %.6f --lon %.6f --alt-ft %.1f --pitch -89.9 --date 2026-06-21 --time-utc 19:00 --vis-nm 60", lat, lon, h / 0.3048);
	ASSERT_TRUE(shoot(args));
	ASSERT_EQ(holes(), 0);
	// Looking down, north up: the cell about the middle, its size by the view's 45-degree ratio.
	const double ppm = W / (2.0 * h * 0.5), hw = 0.5 * ppm * 111320.0 * std::cos(lat * d2r) / 150.0, hh = 0.5 * ppm * 111320.0 / 200.0;
	auto land_share = [&](double x0, double x1) {   // of the columns between, as shares of half a cell
		int land = 0, all = 0;
		for (int y = (int)(H / 2 - 0.7 * hh); y < (int)(H / 2 + 0.7 * hh); y++)
			for (int x = (int)(W / 2 + x0 * hw); x < (int)(W / 2 + x1 * hw); x++, all++) {
				const unsigned char* p = at(x, y);
				land += p[0] + 10 > p[2];   // water is blue over red, the land the other way
			}
		return (double)land / std::max(all, 1);
	};
	EXPECT_LT(land_share(-1.6, -1.15), 0.05) << "the sea cell to the west";
	EXPECT_GT(land_share(1.15, 1.6), 0.95) << "the land cell to the east";
	const double west = land_share(-0.9, -0.1), east = land_share(0.1, 0.9), whole = land_share(-0.95, 0.95);
	EXPECT_LT(west, 0.35);
	EXPECT_GT(east, 0.65);
	EXPECT_NEAR(whole, 0.5, 0.2);
}

// The sun's glitter: with the sun three degrees up, the sea toward it is brighter than the sea
// away from it; with the sun high, the two are the same.
TEST_F(Ground, TheSeaGlittersTowardALowSunAndNotAwayFromIt)
{
	auto brightness = [&](double heading, const char* utc) {
		char args[200];
		std::snprintf(args, sizeof args, "--lat 32.5 --lon -120 --alt-ft 3000 --heading %.0f --pitch -30 --date 2026-06-21 --time-utc %s --vis-nm 60", heading, utc);
		EXPECT_TRUE(shoot(args));
		return mean(0) + mean(1) + mean(2);
	};
	// At 02:50 UTC the sun stands 3 degrees up at azimuth 296 over this sea.
	const double toward = brightness(296, "02:50"), away = brightness(116, "02:50");
	EXPECT_GT(toward, away + 60.0);
	const double high_toward = brightness(296, "19:00"), high_away = brightness(116, "19:00");
	EXPECT_NEAR(high_toward, high_away, 6.0);
}

// At night the landing light lays its pool on the ground ahead and nothing on the ground far
// beyond it.
TEST_F(Ground, TheLandingLightLightsAPoolAheadAndNothingBeyond)
{
	auto region = [&](int y0, int y1) {   // the mean of three channels over rows from the bottom
		double s = 0.0;
		for (int y = y0; y < y1; y++)
			for (int x = 0; x < W; x++) s += at(x, y)[0] + at(x, y)[1] + at(x, y)[2];
		return s / ((y1 - y0) * W);
	};
	const std::string place = "--lat 35 --lon -116 --alt-ft 1100 --pitch -20 --date 2026-06-21 --time-utc 08:00 --vis-nm 20";   // 250 ft over the Mojave at 1 a.m.
	ASSERT_TRUE(shoot(place));
	const double dark_near = region(60, 160), dark_far = region(H - 40, H);
	ASSERT_TRUE(shoot(place + " --landing-light"));
	EXPECT_GT(region(60, 160), dark_near + 150.0);
	EXPECT_NEAR(region(H - 40, H), dark_far, 6.0);
}
