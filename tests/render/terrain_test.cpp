// The ground's set-up and culling without drawing: the half-plane test, the cone keeping
// the cells in view, the sea's texture by wind and waves, the land-use table with each of
// its alerts, and the region folder that holds the place.
#include "render/terrain.h"
#include "render/view.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include "world/scenery.h"
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

std::string test_dir(const char* name)
{
	const std::string d = std::string(NIMBARA_TEST_TREE) + "/" + name + "/";
	std::filesystem::remove_all(d);
	std::filesystem::create_directories(d + "terrain");
	return d;
}

void write_table(const std::string& dir, const std::string& body)
{
	std::ofstream(dir + "terrain/land_use.txt") << "h1\nh2\nh3\nh4\n----\n" << body;
}

}  // namespace

TEST(Terrain, TheHalfPlaneTestKeepsTheRightSideWithItsBufferAndNeverAZeroEdge)
{
	// An edge running north (-z): clockwise, the inside is to the east.
	EXPECT_TRUE(inside_cw_reg(0, 0, 0, -100, 5, -50, 0));
	EXPECT_FALSE(inside_cw_reg(0, 0, 0, -100, -5, -50, 0));
	EXPECT_TRUE(inside_cw_reg(0, 0, 0, -100, -5, -50, 10));   // within the buffer
	// Running east: the inside is to the south (+z); a slanted edge by its value at x.
	EXPECT_TRUE(inside_cw_reg(0, 0, 100, 10, 50, 6, 0));
	EXPECT_FALSE(inside_cw_reg(0, 0, 100, 10, 50, 4, 0));
	// Running west and south, the other ways round.
	EXPECT_TRUE(inside_cw_reg(100, 0, 0, 0, 50, -1, 0));
	EXPECT_TRUE(inside_cw_reg(0, -100, 0, 0, -1, -50, 0));
	EXPECT_FALSE(inside_cw_reg(3, 3, 3, 3, 3, 3, 100));
}

TEST(Terrain, TheSeasTextureFollowsWindAndWavesAndLoopsInTwoSeconds)
{
	zero_all_records();
	mnw.prd_FM = 0.01f;
	int lo = 1 << 30, hi = 0;
	for (int n = 0; n < 200; n++) {   // two seconds of calm
		const int t = water_tex();
		lo = std::min(lo, t);
		hi = std::max(hi, t);
	}
	EXPECT_EQ(lo, 251);
	EXPECT_EQ(hi, 266);
	atm.set_wind_spd_kts[0] = 60.0f;
	atm.wave_height = 5.0f;
	const int t = water_tex();
	EXPECT_GE(t, 251 + 6 * 16);   // a high sea
	EXPECT_LE(t, 362);
	atm.set_wind_spd_kts[0] = 5.0f;
	atm.wave_height = 0.3f;   // (0.5 + 0.45) * 3, to the nearest state: 3
	EXPECT_EQ((water_tex() - 251) / 16, 3);
}

TEST(Terrain, TheLandUseTableSharesTexturesAndEachFaultGivesItsAlert)
{
	zero_all_records();
	const std::string dir = test_dir("table");
	bmp_path = dir;
	write_table(dir, "14 water -90+90 -180+180:water\n15 water -90+90 -180+180:water\n0 scrub\n7 town\n80 town\n");
	ASSERT_EQ(read_land_use(), 1);
	EXPECT_EQ(ren.num_land_texes, 3);
	EXPECT_EQ(ren.tex_of_use[14], 0);
	EXPECT_EQ(ren.tex_of_use[15], 0);
	EXPECT_EQ(ren.tex_is_water[0], 1);
	EXPECT_EQ(ren.tex_of_use[7], ren.tex_of_use[80]);
	EXPECT_STREQ(stl.tex_path[1], "terrain:scrub0_000");
	EXPECT_EQ(landuse_to_tex(1234), 1234);   // a texture of its own
	for (const char* bad : {"99 rock\n0 scrub\n", "0 scrub\n14 water\n", "x\n0 scrub\n", "0\n0 scrub\n"}) {
		write_table(dir, bad);
		EXPECT_EQ(read_land_use(), 1) << bad;
		EXPECT_EQ(ren.num_land_texes, 1) << bad;   // the bad line left out, the rest read
		EXPECT_EQ(ren.tex_is_water[0], 0) << bad;
	}
	std::string many;
	for (int k = 0; k < 60; k++) many += std::to_string(k % 90) + " t" + std::to_string(k) + "\n";
	write_table(dir, many);
	read_land_use();
	EXPECT_EQ(ren.num_land_texes, land_tex_max);
	std::filesystem::remove(dir + "terrain/land_use.txt");
	EXPECT_EQ(read_land_use(), 0);
	EXPECT_EQ(ren.num_land_texes, 0);
}

TEST(Terrain, TheSmallestRegionFolderHoldingThePlaceGivesTheTexture)
{
	zero_all_records();
	const std::string dir = test_dir("regions");
	bmp_path = dir;
	for (const char* f : {"scrub -90+90 -180+180", "scrub +30+40 -125-110", "scrub +34+35 -118-117", "scrubby +34+35 -118-117", "scrub +3x+35 -118-117"})
		std::filesystem::create_directories(dir + "terrain/" + f);
	std::snprintf(stl.tex_path[0], sizeof stl.tex_path[0], "terrain:scrub -90+90 -180+180:scrub0_000");
	EXPECT_EQ(border_get_tex_paths(0, 34.5, -117.5), dir + "terrain:scrub +34+35 -118-117:scrub0_000.bmp");
	EXPECT_EQ(border_get_tex_paths(0, 36.0, -117.5), dir + "terrain:scrub +30+40 -125-110:scrub0_000.bmp");
	EXPECT_EQ(border_get_tex_paths(0, -10.0, 20.0), dir + "terrain:scrub -90+90 -180+180:scrub0_000.bmp");
	// At start each texture's file is looked for, as PNG or BMP.
	ren.num_land_texes = 1;
	EXPECT_EQ(check_land_textures(), 5);   // the texture and its four sheets of masks
	std::ofstream(dir + "terrain/scrub -90+90 -180+180/scrub0_000.png") << "x";
	EXPECT_EQ(check_land_textures(), 4);
	for (const char* sheet : {"_C1.png", "_C2.png", "_C3.bmp", "_C4.png"})
		std::ofstream(dir + "terrain/scrub -90+90 -180+180/scrub0_000" + sheet) << "x";
	EXPECT_EQ(check_land_textures(), 0);
}

// The cells under a camera looking straight down, and ahead of one looking level, are in
// range; the cells behind the level one are not.
TEST(Terrain, TheConeKeepsTheCellsInViewAndLeavesTheOnesBehind)
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	env.lat_sou = 34;
	env.lon_wes = -119;
	load_region(1);
	mnw.x_res_now = 1024;
	mnw.y_res_now = 768;
	ren.FOV = 45.0f;
	atm.vis_ground = atm.vis_sky = 20000.0f;
	flt_struct& f = flt[0];
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, 35.0, -117.5, 1000.0);
	f.dob_ele = 1000.0;
	auto cell_of = [](float x, float z, int* i, int* j) {
		float vx, vy, vz;
		*i = *j = 0;
		find_local_y(x, z, &vx, &vy, &vz, i, j, 0);
	};
	auto look = [&](float the) {
		f.the = the;
		f.sin_the = std::sin(the * 3.14159265f / 180.0f);
		f.cos_the = std::cos(the * 3.14159265f / 180.0f);
		f.cos_psi = f.cos_phi = 1.0f;
		ren.view_menu_TYPE = 1525;
		WORLD_view_per_frame();
		update_ground_cone(1000.0f);
		terrain_mark_range(planexyz, 0);
	};
	int i, j;
	look(-89.0f);
	for (const auto& [dx, dz] : {std::pair{0.0f, 0.0f}, {300.0f, 200.0f}, {-300.0f, -200.0f}}) {
		cell_of((float)f.dob_x + dx, (float)f.dob_z + dz, &i, &j);
		EXPECT_EQ(ter_inrange[i][j], 1) << dx << " " << dz;
	}
	look(0.0f);
	cell_of((float)f.dob_x, (float)f.dob_z - 15000.0f, &i, &j);   // 15 km ahead, north
	EXPECT_EQ(ter_inrange[i][j], 1);
	cell_of((float)f.dob_x + 4000.0f, (float)f.dob_z - 15000.0f, &i, &j);
	EXPECT_EQ(ter_inrange[i][j], 1);
	cell_of((float)f.dob_x, (float)f.dob_z + 5000.0f, &i, &j);   // behind
	EXPECT_TRUE(i < ren.i1_plot || i > ren.i2_plot || j < ren.j1_plot || j > ren.j2_plot || !ter_inrange[i][j]);
}
