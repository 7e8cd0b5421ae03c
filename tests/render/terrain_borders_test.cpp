// Borders between land types: the mask index of every pattern of corners, and the layers
// a cell gets: water beneath, land on top, a diagonal split unless land bridges it.
#include "render/terrain.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/scenery.h"
#include <gtest/gtest.h>
#include <filesystem>
#include <string>

namespace {

struct Borders : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		set_planet_specs(0);
		// Texture 0 water (codes 14, 15), then grass 1, forest 2, desert 3, town 4 by code.
		ren.num_land_texes = 5;
		ren.tex_is_water[0] = 1;
		for (int c = 0; c < 97; c++) ren.tex_of_use[c] = c == 14 || c == 15 ? 0 : c < 5 ? c : 1;
	}
	// Corners c0 (i, j), c1 (i, j+1), c2 (i+1, j+1), c3 (i+1, j) of cell (10, 10).
	void corners(int c0, int c1, int c2, int c3, int body = 0)
	{
		landuse[10][10] = (uint16_t)c0;
		landuse[10][11] = (uint16_t)c1;
		landuse[11][11] = (uint16_t)c2;
		landuse[11][10] = (uint16_t)c3;
		ter_body_id[10][10] = (char)body;
		PLOT_planetex[10][10] = 1;
		cell_border_layers(10, 10);
	}
	const uint16_t* tex() const { return BORD_planetex[10][10]; }
	const uint16_t* mask() const { return BORD_alphatex[10][10]; }
};

}  // namespace

TEST_F(Borders, EveryPatternOfCornersHasItsIndex)
{
	const int want[16] = {0, 6, 5, 4, 8, 13, 3, 11, 7, 1, 14, 12, 2, 9, 10, 0};
	for (int bits = 0; bits < 16; bits++) {
		const int c[4] = {bits >> 3 & 1, bits >> 2 & 1, bits >> 1 & 1, bits & 1};
		EXPECT_EQ(border_which_index(c[0], c[1], c[2], c[3], 1), want[bits]) << bits;
	}
}

TEST_F(Borders, GrassOnOneSideOfWaterIsOneLayerOverTheSea)
{
	corners(1, 1, 15, 15);   // grass to the west, sea to the east: pattern 1 1 0 0
	EXPECT_EQ(PLOT_planetex[10][10], 7000);
	EXPECT_EQ(tex()[0], 0);
	EXPECT_EQ(tex()[1], 1);
	EXPECT_EQ(mask()[1], 1 * 14 + 6999 + 2);
	EXPECT_EQ(tex()[2], 9999);
	corners(15, 1, 1, 15);   // grass to the north: 0 1 1 0
	EXPECT_EQ(mask()[1], 1 * 14 + 6999 + 3);
}

TEST_F(Borders, FourLandTypesMakeThreeLayersAndEqualCornersNone)
{
	corners(1, 2, 3, 4);
	EXPECT_EQ(tex()[0], 1);
	EXPECT_EQ(tex()[1], 2);
	EXPECT_EQ(tex()[2], 3);
	EXPECT_EQ(tex()[3], 4);
	EXPECT_EQ(mask()[1], 2 * 14 + 6999 + 8);   // forest at c1 only
	EXPECT_EQ(mask()[3], 4 * 14 + 6999 + 6);   // town at c3 only
	corners(2, 2, 2, 2);
	EXPECT_EQ(PLOT_planetex[10][10], 1);   // untouched: no border
	corners(7, 1, 1, 1);   // two codes, one texture: no border either
	EXPECT_EQ(PLOT_planetex[10][10], 1);
}

TEST_F(Borders, ADiagonalWithoutABridgeBecomesTwoCornersAndWaterNeverLiesOnTop)
{
	// Land at c1 and c3 across water at c0 and c2, with land all round: no bridge, two
	// corner masks over the water.
	for (int a = 8; a <= 13; a++)
		for (int b = 8; b <= 13; b++) landuse[a][b] = 3;
	corners(15, 2, 15, 2);
	EXPECT_EQ(tex()[0], 0);
	EXPECT_EQ(tex()[1], 2);
	EXPECT_EQ(tex()[2], 2);
	EXPECT_EQ(mask()[1], 2 * 14 + 6999 + 8);
	EXPECT_EQ(mask()[2], 2 * 14 + 6999 + 6);
	// Out at sea the land bridges the diagonal: one mask over both corners.
	for (int a = 8; a <= 13; a++)
		for (int b = 8; b <= 13; b++) landuse[a][b] = 15;
	corners(15, 2, 15, 2);
	EXPECT_EQ(mask()[1], 2 * 14 + 6999 + 13);
	EXPECT_EQ(tex()[2], 9999);
	// Water is always the base, the land over it, whichever diagonal each holds.
	corners(2, 15, 2, 15);
	EXPECT_EQ(tex()[0], 0);
	EXPECT_EQ(tex()[1], 2);
	// Codes of 97 and up are textures of their own: no border.
	PLOT_planetex[10][10] = 1;
	landuse[10][10] = 1500;
	cell_border_layers(10, 10);
	EXPECT_EQ(PLOT_planetex[10][10], 1);
}

namespace {

// The mean alpha of a mask over a box of its own (s, t), read from the sheet in the scratch
// buffer as the set-up cuts it: rows from the bottom, quadrants (0,0), (0,1), (1,1), (1,0).
struct Sheet {
	int full, dx, dy;
	double mean(int index, double s0, double t0, double s1, double t1) const
	{
		static const int quad[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
		const bool half = index >= 13;
		const int qw = dx / 2, qh = half ? dy : dy / 2, k = half ? index - 13 : (index - 1) % 4;
		const int x0 = half ? k * qw : quad[k][0] * qw, y0 = half ? 0 : quad[k][1] * qh;
		double sum = 0.0;
		int n = 0;
		for (int y = (int)(t0 * qh); y < (int)(t1 * qh); y++)
			for (int x = (int)(s0 * qw); x < (int)(s1 * qw); x++, n++) sum += scratch_array[((size_t)(y0 + y) * full + x0 + x) * 4 + 3];
		return n ? sum / n / 255.0 : -1.0;
	}
};

}  // namespace

// Every land texture's sheets, read back as the set-up reads them: each mask covers the
// corners its index stands for and leaves the others, and two-corner masks cover about half.
TEST(BorderMasks, EachMaskCoversTheCornersOfItsIndex)
{
	zero_all_records();
	mnw.tex_res = 2;
	const std::string terrain = std::string(NIMBARA_DATA_TREE) + "/Resources/bitmaps/terrain/";
	int sheets = 0;
	for (const auto& dir : std::filesystem::directory_iterator(terrain)) {
		if (!dir.is_directory()) continue;
		const std::string name = dir.path().filename().string(), stem = name.substr(0, name.find(' '));
		const std::string land = dir.path().string() + "/" + stem + "0_000.bmp";
		if (!std::filesystem::exists(dir.path() / (stem + "0_000.png"))) continue;
		for (int sheet = 1; sheet <= 4; sheet++) {
			const int first = sheet == 3 ? 1 : sheet == 2 ? 5 : sheet == 1 ? 9 : 13;
			ASSERT_EQ(OGL_texbmp(tex_scratch_only, 7000, filt_alpha_mean, border_sheet_path(land, sheet)), 1) << name << sheet;
			sheets++;
			const Sheet sh{ren.tex_dx_tot[7000], ren.tex_dx_vis[7000], ren.tex_dy_vis[7000]};
			for (int bits = 0; bits < 16; bits++) {
				const int c[4] = {bits >> 3 & 1, bits >> 2 & 1, bits >> 1 & 1, bits & 1};
				const int index = border_which_index(c[0], c[1], c[2], c[3], 1);
				if (index < first || index >= first + (sheet == 4 ? 2 : 4)) continue;
				// Corners c0 south-west, c1 north-west, c2 north-east, c3 south-east.
				const double box[4][4] = {{0, 0, 0.1, 0.1}, {0, 0.9, 0.1, 1}, {0.9, 0.9, 1, 1}, {0.9, 0, 1, 0.1}};
				for (int k = 0; k < 4; k++) {
					const double a = sh.mean(index, box[k][0], box[k][1], box[k][2], box[k][3]);
					if (c[k]) EXPECT_GT(a, 0.9) << name << " mask " << index << " corner " << k;
					else EXPECT_LT(a, 0.1) << name << " mask " << index << " corner " << k;
				}
				const double whole = sh.mean(index, 0, 0, 1, 1), held = (c[0] + c[1] + c[2] + c[3]) / 4.0;
				if (index >= 13) {   // a diagonal pair bridged across the middle
					EXPECT_GT(sh.mean(index, 0.45, 0.45, 0.55, 0.55), 0.5) << name << " mask " << index;
					EXPECT_NEAR(whole, 0.625, 0.175) << name << " mask " << index;
				} else if (held == 0.5)
					EXPECT_NEAR(whole, 0.5, 0.15) << name << " mask " << index;
				else EXPECT_NEAR(whole, held, 0.3) << name << " mask " << index;
			}
		}
	}
	EXPECT_GE(sheets, 4 * 10);
}
