// The panel's costs: composing the trainer's panel at aircraft load (backgrounds of nine
// views, each slot's plate and four layers looked for in two folders), and the pass over
// its slots each frame. No display: the pictures are read and composed, not uploaded.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <benchmark/benchmark.h>
#include <cstdio>

static void setup(int slots)
{
	zero_all_records();
	app_path = NIMBARA_DATA_TREE "/";
	bmp_path = app_path + "Resources/bitmaps/";
	std::snprintf(veh[0].path, sizeof veh[0].path, "%sAircraft/General Aviation/Wren 180/Wren 180.acf", app_path.c_str());
	veh[0].cockpit_type = 6;
	mnw.y_res_now = 768;
	mnw.xy_scale = 1.0f;
	for (int n = 0; n < 300; n++) {
		veh[0].ins_type[n] = n < slots ? 74 + n % 40 : -1;
		veh[0].ins_x[n] = 100.0f + (n % 10) * 80.0f;
		veh[0].ins_y[n] = 60.0f + (n / 10) * 80.0f;
		veh[0].ins_size[n] = 1.0f;
	}
}

static void BM_panel_composition_at_load(benchmark::State& state)
{
	setup((int)state.range(0));
	for (auto _ : state) load_panel_for_plane();
	state.SetLabel(std::to_string(state.range(0)) + " slots");
}
BENCHMARK(BM_panel_composition_at_load)->Arg(0)->Arg(30)->Unit(benchmark::kMillisecond);

static void BM_panel_pass(benchmark::State& state)
{
	setup(30);
	for (auto _ : state) APPLICATION_update_panel();
}
BENCHMARK(BM_panel_pass);
