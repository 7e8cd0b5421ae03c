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

// Heights of the ground at the points, from nimbara-fly terrain.
std::vector<double> heights(const std::string& dir, const std::vector<std::pair<double, double>>& pts)
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
	std::vector<double> h;
	if (std::system(cmd.c_str()) != 0) return h;
	std::ifstream in(dir + "h.txt");
	double la, lo, e;
	int use, wet, apt;
	while (in >> la >> lo >> e >> use >> wet >> apt) h.push_back(e);
	return h;
}

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
