// The scenery's costs: a whole block loaded from the generated files round Los Angeles
// (six quadrants and the airports' ground), a one-degree step of the block, and the
// ground height under a point, from the last cell and after a long walk.
#include "world/scenery.h"
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include <benchmark/benchmark.h>

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
