// Borders between land types: the mask index of every pattern of corners, and the layers
// a cell gets: water beneath, land on top, a diagonal split unless land bridges it.
#include "render/terrain.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/scenery.h"
#include <gtest/gtest.h>

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
