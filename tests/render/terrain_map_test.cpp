// The ground drawn flat as the map draws it: every cell of the block, no fog and no depth,
// the sea in the map's own water colour.
#include "render/HL_GRAPH.h"
#include "render/terrain.h"
#include "render/ogl.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include "platform/plat_headless.h"
#include "world/HL_WORLD.h"
#include "world/scenery.h"
#include <GL/gl.h>
#include <gtest/gtest.h>
#include <vector>

namespace {

float map_xyz[451][401][3];

}  // namespace

TEST(TerrainMap, TheFlatGridDrawsEveryCellUnfoggedWithTheMapsWater)
{
	const int W = 450, H = 400;
	ASSERT_TRUE(plat_offscreen_open(W, H)) << plat_offscreen_error();
	HEADLESS_setup(0.02, 0, NIMBARA_DATA_TREE "/");
	init_sim();
	OGL_set_panel_space(W, H);
	flt[0].dob_lat = 34.0;
	flt[0].dob_lon = -118.5;
	ren.ground_is_vis = 1;
	env.lat_sou = 33;
	env.lon_wes = -120;   // the coast of the Bight runs through the block
	load_region(1);
	// One pixel a cell, north up: x east, the map's z downward on the screen turned to y up.
	for (int i = 0; i <= 450; i++)
		for (int j = 0; j <= 400; j++) {
			map_xyz[i][j][0] = (float)i;
			map_xyz[i][j][1] = 0.0f;
			map_xyz[i][j][2] = -(float)j;
		}
	ren.i1_plot = ren.j1_plot = 0;
	ren.i2_plot = 449;
	ren.j2_plot = 399;
	mnw.map_pix_per_meter = 0.001f;
	glViewport(0, 0, W, H);
	glMatrixMode(GL_PROJECTION);
	glLoadIdentity();
	glOrtho(0, W, 0, H, -10, 10);
	glMatrixMode(GL_MODELVIEW);
	const GLfloat turn[16] = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, -5, 1};   // (x, y, z) to (x, -z, y - 5): deep in any fog
	glLoadMatrixf(turn);
	// A thick red fog and a near depth already written: the map must ignore both.
	const GLfloat red[4] = {1, 0, 0, 1};
	glFogi(GL_FOG_MODE, GL_EXP);
	glFogf(GL_FOG_DENSITY, 10.0f);
	glFogfv(GL_FOG_COLOR, red);
	glEnable(GL_FOG);
	glClearColor(1, 0, 1, 1);
	glClearDepth(0.0);
	glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
	glClearDepth(1.0);
	terrain_grid_2d_3d(map_xyz, 2, 1, 1);
	glFinish();
	std::vector<unsigned char> px((size_t)W * H * 4);
	glPixelStorei(GL_PACK_ALIGNMENT, 1);
	glReadPixels(0, 0, W, H, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	int holes = 0, sea = 0, land = 0;
	double sea_rgb[3] = {0, 0, 0};
	for (int y = 0; y < H; y++)
		for (int x = 0; x < W; x++) {
			const unsigned char* p = &px[((size_t)y * W + x) * 4];
			if (p[0] == 255 && p[1] == 0 && p[2] == 255) {
				holes++;
				continue;
			}
			bool all_wet = true;   // the cell's four corners at sea
			for (int a = 0; a <= 1; a++)
				for (int b = 0; b <= 1; b++) all_wet = all_wet && (landuse[x + a][y + b] == 14 || landuse[x + a][y + b] == 15);
			if (!all_wet) {
				land++;
				continue;
			}
			sea++;
			for (int c = 0; c < 3; c++) sea_rgb[c] += p[c];
		}
	EXPECT_EQ(holes, 0);
	ASSERT_GT(sea, W * H / 10);
	EXPECT_GT(land, W * H / 10);
	// The map's water, (0.176, 0.255, 0.294) times the sea's texture: blue over green over red,
	// and no fog's red in it.
	for (double& c : sea_rgb) c /= sea;
	EXPECT_NEAR(sea_rgb[0] / sea_rgb[2], 0.176 / 0.294, 0.08);
	EXPECT_NEAR(sea_rgb[1] / sea_rgb[2], 0.255 / 0.294, 0.08);
	EXPECT_GT(sea_rgb[2], 30.0);
	glDisable(GL_FOG);
	MACIBM_finishup(1);
	plat_offscreen_close();
}
