// The scenery's costs: a whole block loaded from the generated files round Los Angeles
// (six quadrants and the airports' ground), a one-degree step of the block, and the
// ground height under a point, from the last cell and after a long walk; and the ground's
// culling for a frame.
#include "world/scenery.h"
#include "render/terrain.h"
#include "render/view.h"
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include <benchmark/benchmark.h>
#include <cmath>
#include <string>

static void setup()
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	ren.ground_is_vis = 1;
	ean_path = NIMBARA_DATA_TREE "/Resources/Earth nav data/";
	cus_path = NIMBARA_DATA_TREE "/Custom Scenery/";
	static bool airports = IO_apt(0, "");
	(void)airports;
	env.lat_sou = 33;
	env.lon_wes = -119;
}

static void BM_load_block(benchmark::State& state)
{
	setup();
	for (auto _ : state) load_region(1);
	state.SetLabel(std::to_string(apt_lcl_max + 1) + " airports in the block");
}
BENCHMARK(BM_load_block)->Unit(benchmark::kMillisecond);

static void BM_step_block_east_and_back(benchmark::State& state)
{
	setup();
	load_region(1);
	for (auto _ : state) {
		env.lon_wes++;
		load_region(3);
		env.lon_wes--;
		load_region(2);
	}
}
BENCHMARK(BM_step_block_east_and_back)->Unit(benchmark::kMillisecond);

static void BM_ground_from_last_cell(benchmark::State& state)
{
	setup();
	load_region(1);
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, 34.05, -118.25, 0.0);
	int i = 0, j = 0;
	float vx, vy, vz;
	find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 1);
	for (auto _ : state) benchmark::DoNotOptimize(find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 1));
}
BENCHMARK(BM_ground_from_last_cell);

static void BM_ground_after_a_walk_across_the_block(benchmark::State& state)
{
	setup();
	load_region(1);
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, 34.05, -118.25, 0.0);
	float vx, vy, vz;
	for (auto _ : state) {
		int i = 449, j = 1;
		benchmark::DoNotOptimize(find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 1));
	}
}
BENCHMARK(BM_ground_after_a_walk_across_the_block);

// The ground's culling each frame: the view's cone and the cells it keeps, looking level
// over the block with 25 nm of visibility, the heading turning.
static void BM_ground_cone_and_cells_in_range(benchmark::State& state)
{
	setup();
	load_region(1);
	flt_struct& f = flt[0];
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, 34.0, -117.5, 1500.0);
	f.dob_ele = 1500.0;
	f.cos_the = f.cos_phi = 1.0f;
	mnw.x_res_now = 1024;
	mnw.y_res_now = 768;
	atm.vis_ground = atm.vis_sky = 46300.0f;
	float psi = 0.0f;
	int cells = 0;
	for (auto _ : state) {
		f.psi = psi;
		f.sin_psi = std::sin(psi * 0.0174533f);
		f.cos_psi = std::cos(psi * 0.0174533f);
		WORLD_view_per_frame();
		update_ground_cone(1500.0f);
		terrain_mark_range(planexyz, 0);
		cells = (ren.i2_plot - ren.i1_plot + 1) * (ren.j2_plot - ren.j1_plot + 1);
		psi = psi > 350.0f ? 0.0f : psi + 7.0f;
	}
	state.SetLabel(std::to_string(cells) + " cells in the last range");
}
BENCHMARK(BM_ground_cone_and_cells_in_range);

// The block's cells set up for drawing after a load: each cell's texture and the layers of
// every cell whose corners differ (the textures themselves read once, before timing).
static void BM_block_cells_and_borders(benchmark::State& state)
{
	setup();
	bmp_path = NIMBARA_DATA_TREE "/Resources/bitmaps/";
	read_land_use();
	load_region(1);
	set_up_terrain_textures();
	for (auto _ : state) set_up_terrain_textures();
	int bordered = 0;
	for (int i = 0; i < 450; i++)
		for (int j = 0; j < 400; j++) bordered += PLOT_planetex[i][j] == 7000;
	state.SetLabel(std::to_string(bordered) + " bordered cells");
}
BENCHMARK(BM_block_cells_and_borders);
