// The ground through nimbara-fly view: straight down over places the coastline puts at sea
// the picture is water, well inland it is land, and no cell under the camera is missing.
#include "support/view_shot.h"
#include <gtest/gtest.h>
#include <string>

namespace {

struct Ground : ViewShot {
	bool down_at(double lat, double lon)
	{
		return shoot("--lat " + std::to_string(lat) + " --lon " + std::to_string(lon) +
		             " --alt-ft 3000 --pitch -89.9 --date 2026-06-21 --time-utc 19:00 --vis-nm 60");
	}
};

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
