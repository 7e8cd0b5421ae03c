// The navigation world's loading cost: each of Earth's files read whole, the lookup of
// an airport by id, and the block lists around KSBD.
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <benchmark/benchmark.h>

static void setup()
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	ean_path = NIMBARA_DATA_TREE "/Resources/Earth nav data/";
}

static void BM_read_airports(benchmark::State& state)
{
	setup();
	for (auto _ : state) benchmark::DoNotOptimize(IO_apt(0, ""));
	state.SetLabel(std::to_string(vec_apt.size()) + " airports");
}
BENCHMARK(BM_read_airports)->Unit(benchmark::kMillisecond);

static void BM_read_aids_fixes_airways(benchmark::State& state)
{
	setup();
	for (auto _ : state) benchmark::DoNotOptimize(IO_nav(0) + IO_fix(0) + IO_awy(0));
	state.SetLabel(std::to_string(vec_nav.size()) + " aids");
}
BENCHMARK(BM_read_aids_fixes_airways)->Unit(benchmark::kMillisecond);

static void BM_find_airport(benchmark::State& state)
{
	setup();
	IO_apt(0, "");
	int k = 0;
	for (auto _ : state) benchmark::DoNotOptimize(get_index_from_id("KSBD", nav_type_apt, &k, 34.0f, -117.0f));
}
BENCHMARK(BM_find_airport)->Unit(benchmark::kMicrosecond);

static void BM_block_lists(benchmark::State& state)
{
	setup();
	IO_apt(0, "");
	IO_nav(0);
	IO_fix(0);
	IO_awy(0);
	env.lat_sou = 33;
	env.lon_wes = -119;
	for (auto _ : state) MP_make_airports_and_menus(0);
}
BENCHMARK(BM_block_lists)->Unit(benchmark::kMillisecond);
