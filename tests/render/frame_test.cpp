// The frame through nimbara-fly view: over the open sea the horizon where pitch, roll, field
// of view and the dip at the eye's height put it, and no pixel left over from before at any
// attitude.
#include "support/view_shot.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct View : ViewShot {
	// Where the dark sea meets the pale sky in column x: from the bottom up, the first row
	// brighter than halfway between the sea there and the brightest of the column.
	int horizon(int x) const
	{
		auto lum = [&](int y) { const unsigned char* p = at(x, y); return p[0] + p[1] + p[2]; };
		int top = 0;
		for (int y = 0; y < H; y++) top = std::max(top, lum(y));
		const int mid = (lum(0) + top) / 2;
		for (int y = 0; y < H; y++)
			if (lum(y) > mid) return y;
		return -1;
	}
};

// Where the horizon stands, pixels up from the picture's centre: the ratio is linear in the
// field of view, so the half width spans FOV / 90 of the near distance.
double expected(double pitch, double fov, double alt_ft, int w)
{
	const double h = alt_ft * 0.3048, R = 6371008.8;
	const double dip = std::acos(R / (R + h)) * 180.0 / M_PI;
	return std::tan((-dip - pitch) * M_PI / 180.0) * (w / 2.0) / (fov / 90.0);
}

// Far out over the Pacific, looking south-west, the air clear to the horizon.
constexpr const char* open_sea = "--lat 32.5 --lon -120 --heading 225 --vis-nm 200";

}  // namespace

TEST_F(View, TheHorizonStandsWherePitchFieldOfViewAndDipPutIt)
{
	struct { double pitch, fov, alt; } cases[] = {{0, 45, 1000}, {10, 45, 1000}, {-8, 45, 1000}, {10, 90, 1000}, {3, 60, 10}};
	for (const auto& c : cases) {
		char args[200];
		std::snprintf(args, sizeof args, "%s --alt-ft %g --pitch %g --fov %g --time-utc 19:00", open_sea, c.alt, c.pitch, c.fov);
		SCOPED_TRACE(args);
		ASSERT_TRUE(shoot(args));
		EXPECT_EQ(holes(), 0);
		EXPECT_NEAR(horizon(W / 2), H / 2.0 + expected(c.pitch, c.fov, c.alt, W), 2.0);
	}
}

TEST_F(View, RollTiltsTheHorizonAndNoAttitudeLeavesAHole)
{
	ASSERT_TRUE(shoot(std::string(open_sea) + " --alt-ft 1000 --roll 20 --time-utc 19:00"));
	const double slope = (horizon(W / 2 + 100) - horizon(W / 2 - 100)) / 200.0;   // right wing down: the right side rises
	EXPECT_NEAR(slope, std::tan(20.0 * M_PI / 180.0), 0.03);
	struct { double pitch, roll, fov; } cases[] = {{0, 90, 90}, {80, 0, 120}, {-85, 30, 90}, {45, 135, 60}, {0, 180, 45}};
	for (const auto& c : cases) {
		char args[200];
		std::snprintf(args, sizeof args, "--lat 34 --lon -117 --alt-ft 1000 --pitch %g --roll %g --fov %g --time-utc 02:00", c.pitch, c.roll,
		              c.fov);
		SCOPED_TRACE(args);
		ASSERT_TRUE(shoot(args));
		EXPECT_EQ(holes(), 0);
	}
}
