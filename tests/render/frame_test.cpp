// The frame through nimbara-fly view: the horizon where pitch, roll, field of view and the
// dip at the eye's height put it, and no pixel left over from before at any attitude.
#include "support/images.h"
#include <png.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct View : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	int W = 0, H = 0;
	std::vector<unsigned char> px;   // RGBA, row 0 at the top
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
	}
	bool shoot(const std::string& args)
	{
		const std::string out = dir + "v.png";
		const std::string cmd = std::string(NIMBARA_FLY) + " view --tree " + NIMBARA_DATA_TREE + " --size 400x300 " + args + " --png " + out +
		                        " > " + dir + "log 2>&1";
		if (std::system(cmd.c_str()) != 0) return false;
		png_image img{};
		img.version = PNG_IMAGE_VERSION;
		if (!png_image_begin_read_from_file(&img, out.c_str())) return false;
		img.format = PNG_FORMAT_RGBA;
		W = (int)img.width;
		H = (int)img.height;
		px.assign(PNG_IMAGE_SIZE(img), 0);
		return png_image_finish_read(&img, nullptr, px.data(), 0, nullptr) != 0;
	}
	const unsigned char* at(int x, int y_from_bottom) const { return &px[((size_t)(H - 1 - y_from_bottom) * W + x) * 4]; }
	// The top of the band of fog colour that fills the picture below the horizon, in column x.
	int horizon(int x) const
	{
		const unsigned char* ground = at(x, 0);
		for (int y = H - 1; y >= 0; y--) {
			const unsigned char* p = at(x, y);
			if (std::abs(p[0] - ground[0]) <= 2 && std::abs(p[1] - ground[1]) <= 2 && std::abs(p[2] - ground[2]) <= 2) return y;
		}
		return -1;
	}
	int holes() const
	{
		int n = 0;
		for (size_t k = 0; k < px.size(); k += 4) n += px[k] == 255 && px[k + 1] == 0 && px[k + 2] == 255;
		return n;
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

}  // namespace

TEST_F(View, TheHorizonStandsWherePitchFieldOfViewAndDipPutIt)
{
	struct { double pitch, fov, alt; } cases[] = {{0, 45, 1000}, {10, 45, 1000}, {-8, 45, 1000}, {10, 90, 1000}, {0, 45, 35000}, {3, 60, 10}};
	for (const auto& c : cases) {
		char args[200];
		std::snprintf(args, sizeof args, "--lat 34 --lon -117 --alt-ft %g --pitch %g --fov %g --time-utc 19:00", c.alt, c.pitch, c.fov);
		SCOPED_TRACE(args);
		ASSERT_TRUE(shoot(args));
		EXPECT_EQ(holes(), 0);
		EXPECT_NEAR(horizon(W / 2), H / 2.0 + expected(c.pitch, c.fov, c.alt, W), 2.0);
	}
}

TEST_F(View, RollTiltsTheHorizonAndNoAttitudeLeavesAHole)
{
	ASSERT_TRUE(shoot("--lat 34 --lon -117 --alt-ft 1000 --roll 20 --time-utc 19:00"));
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
