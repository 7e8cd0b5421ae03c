// The panel through nimbara-fly view --panel: the panel holds still over the lower picture
// while the world moves behind the windscreen, the horizon at zero pitch stands at the
// aircraft's head-up centre and rises as the projection says when the nose goes down; and
// each instrument's centre is reported where its slot puts it.
#include "support/view_shot.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace {

struct PanelView : ViewShot {
	// Far out over the Pacific at 100 ft, looking south-west with the air clear.
	bool panel_at(double pitch, const std::string& more = "")
	{
		char args[200];
		std::snprintf(args, sizeof args, "--panel --lat 32.5 --lon -120 --heading 225 --vis-nm 200 --alt-ft 100 --time-utc 19:00 --pitch %g", pitch);
		return shoot(args + more, "1024x768");
	}
	// The dark sea meets the pale sky: in column x, from row y0 up, the first row brighter
	// than halfway between the sea there and the brightest above it.
	int horizon(int x, int y0) const
	{
		auto lum = [&](int y) { const unsigned char* p = at(x, y); return p[0] + p[1] + p[2]; };
		int top = 0;
		for (int y = y0; y < H; y++) top = std::max(top, lum(y));
		const int mid = (lum(y0) + top) / 2;
		for (int y = y0; y < H; y++)
			if (lum(y) > mid) return y;
		return -1;
	}
};

// The trainer's head-up centre and the top of its glare shield, panel pixels from the bottom.
constexpr double hud_y = 520.0, shield_top = 430.0;

// The horizon's height over the head-up centre at this pitch: the picture's half width spans
// FOV / 90 of the near distance (45 degrees here), less the dip at 100 ft.
double rise(double pitch)
{
	const double h = 100 * 0.3048, R = 6371008.8, dip = std::acos(R / (R + h)) * 180.0 / M_PI;
	return std::tan((-dip - pitch) * M_PI / 180.0) * 512.0 / 0.5;
}

}  // namespace

TEST_F(PanelView, ThePanelHoldsStillWhileTheHorizonMovesWithPitch)
{
	ASSERT_TRUE(panel_at(0));
	EXPECT_EQ(holes(), 0);
	const std::vector<unsigned char> level = px;
	EXPECT_NEAR(horizon(512, 470), hud_y + rise(0), 2.0);
	ASSERT_TRUE(panel_at(-10));
	EXPECT_NEAR(horizon(512, 470), hud_y + rise(-10), 2.0);
	// Below the glare shield nothing changed; above it the world did.
	double below = 0.0, above = 0.0;
	int n_below = 0, n_above = 0;
	for (int y = 0; y < H; y++)
		for (int x = 0; x < W; x++) {
			const size_t k = ((size_t)(H - 1 - y) * W + x) * 4;
			const double d = std::abs(level[k] - px[k]) + std::abs(level[k + 1] - px[k + 1]) + std::abs(level[k + 2] - px[k + 2]);
			const bool attitude = std::abs(x - 380) <= 50 && std::abs(y - 330) <= 50;   // the one instrument that shows pitch
			if (y < shield_top - 40 && !attitude) below += d, n_below++;
			else if (y > 560 && y < 700 && x > 100 && x < 924) above += d, n_above++;
		}
	EXPECT_LT(below / n_below, 0.5);
	EXPECT_GT(above / n_above, 20.0);
}

// A copy of the trainer with two instruments, one at half size: the view reports both, centred
// where their slots are in a window the size of the panel.
TEST_F(PanelView, EachInstrumentIsReportedAtItsSlot)
{
	const std::string own = own_trainer("ins_type[40] 101\nins_x[40] 300\nins_y[40] 200\nins_size[40] 1\n"
	                                    "ins_type[41] 94\nins_x[41] 700\nins_y[41] 150\nins_size[41] 0.5\n"
	                                    "ins_type[42] 7000\nins_x[42] 500\nins_y[42] 100\nins_size[42] 1\n");   // no such instrument
	ASSERT_FALSE(own.empty());
	ASSERT_TRUE(panel_at(0, own));
	std::ifstream in(dir + "log");   // the view's output
	std::string word;
	int slot, code, found = 0;
	double x, y, size;
	while (in >> word) {
		if (word != "ins" || !(in >> slot >> code >> x >> y >> size)) continue;
		found++;
		if (slot < 40) continue;   // the trainer's own
		if (slot == 42) {
			EXPECT_EQ(code, 7000);
			continue;
		}
		if (slot == 40) {
			EXPECT_EQ(code, 101);
			EXPECT_NEAR(x, 300.0, 0.01);
			EXPECT_NEAR(y, 768.0 - 200.0, 0.01);
		} else {
			EXPECT_EQ(slot, 41);
			EXPECT_EQ(code, 94);
			EXPECT_NEAR(x, 700.0, 0.01);
			EXPECT_NEAR(y, 768.0 - 150.0, 0.01);
			EXPECT_NEAR(size, 0.5, 1e-6);
		}
	}
	EXPECT_EQ(found, 20 + 11 + 3);   // its instruments and levers, its switches, and three more slots
	// The code outside the catalogue is said in the log, and the rest of the panel drawn.
	std::ifstream err(dir + "tree/Error.out");
	std::stringstream all;
	all << err.rdbuf();
	EXPECT_NE(all.str().find("Bad instrument type!"), std::string::npos);
}

// A click on the landing light's switch turns its lever up and changes nothing else along the
// row of switches; a click just outside its box changes nothing at all.
TEST_F(PanelView, AClickOnASwitchChangesItsPictureAndNothingElse)
{
	ASSERT_TRUE(panel_at(0));
	const std::vector<unsigned char> before = px;
	const int sx = 240, sy = 768 - 60;   // the switch's centre, from the top left
	// The panel below the glare shield: the sea behind the windscreen moves on by itself.
	auto changes = [&](int* inside, int* outside) {
		*inside = *outside = 0;
		for (int y = 768 - 130; y < H; y++)   // the row of switches; the engine's gauges drift on by themselves
			for (int x = 0; x < W; x++) {
				const size_t k = ((size_t)y * W + x) * 4;
				if (px[k] == before[k] && px[k + 1] == before[k + 1] && px[k + 2] == before[k + 2]) continue;
				(std::abs(x - sx) <= 24 && std::abs(y - sy) <= 36 ? *inside : *outside)++;
			}
	};
	int inside, outside;
	ASSERT_TRUE(panel_at(0, " --click " + std::to_string(sx + 13) + "," + std::to_string(sy)));
	changes(&inside, &outside);
	EXPECT_EQ(inside + outside, 0);
	ASSERT_TRUE(panel_at(0, " --click " + std::to_string(sx) + "," + std::to_string(sy)));
	changes(&inside, &outside);
	EXPECT_GT(inside, 50);
	EXPECT_EQ(outside, 0);
}

// The trainer's throttle knob dragged from idle most of the way up stays where the mouse let
// go of it: its knob's middle at the release, the lever's travel being 50 either side of 200.
TEST_F(PanelView, ADragOnTheThrottleLeavesItsKnobWhereTheMouseLetGo)
{
	auto knob = [&]() {   // the rows of the knob's dark face beside the track
		int lo = 9999, hi = -1;
		for (int y = 130; y <= 270; y++) {
			const unsigned char* p = at(640 + 8, y);
			if (p[0] + p[1] + p[2] < 100) lo = std::min(lo, y), hi = std::max(hi, y);
		}
		return (lo + hi + 1) * 0.5;
	};
	ASSERT_TRUE(panel_at(0, " --drag 640,618,640,538"));   // from the foot (panel 150) to panel 230
	EXPECT_NEAR(knob(), 230.0, 1.0);
	ASSERT_TRUE(panel_at(0, " --drag 640,538,640,598"));   // a drag that starts off the knob: panel 230 down to 170
	EXPECT_NEAR(knob(), 170.0, 1.0);
}
