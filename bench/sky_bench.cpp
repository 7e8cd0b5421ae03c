// The per-frame sky work: the sun and moon, the sky table, the light with its lamps and
// glare; and loading a texture from PNG into the scratch buffer.
#include "render/light.h"
#include "render/sky_colours.h"
#include "render/sun_moon.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <benchmark/benchmark.h>
#include <string>

namespace {

void setup()
{
	static bool done = false;
	if (done) return;
	zero_all_records();
	init_con();
	bmp_path = std::string(NIMBARA_DATA_TREE) + "/Resources/bitmaps/";
	load_sky_colours(0);
	done = true;
}

}  // namespace

static void BM_sun_and_moon(benchmark::State& state)
{
	float t = 0.0f;
	for (auto _ : state) {
		update_sun_moon(2026, 172, t, 34.0, -117.0);
		t = t > 86000.0f ? 0.0f : t + 60.0f;
		benchmark::DoNotOptimize(lgt[0].the);
	}
}
BENCHMARK(BM_sun_and_moon);

static void BM_sky_table_and_light(benchmark::State& state)
{
	setup();
	const float w[5] = {0.6f, 0.1f, 0.1f, 0.1f, 0.1f};
	float the = -20.0f, amb[3], dir[3];
	for (auto _ : state) {
		compute_sky_256(w, the, true, 30000.0f, 1.0f, 1.0f, 45.0f);
		blend_light(w, the, true, amb, dir);
		blend_world_colours(w, the, true);
		the = the > 60.0f ? -20.0f : the + 0.5f;
		benchmark::DoNotOptimize(ren.sky_256[3][3][0]);
	}
}
BENCHMARK(BM_sky_table_and_light);

// The light after the tables: lamps, glare, shadows and the ground's second texture;
// and a frame's try at lightning.
static void BM_light_of_the_frame(benchmark::State& state)
{
	setup();
	atm.vis_sky = 40000.0f;
	ren.draw_shadows = 1;
	float the = -20.0f;
	for (auto _ : state) {
		lgt[0].the = lgt[2].the = the;
		for (int c = 0; c < 3; c++) ren.lgt_amb[c] = ren.lgt_dir[c] = 0.3f;
		update_light({1.0f, 1.0f, sun_use_ratio(the, 1.0f), 0.0f});
		the = the > 60.0f ? -20.0f : the + 0.5f;
		benchmark::DoNotOptimize(ren.glare_rat);
	}
}
BENCHMARK(BM_light_of_the_frame);

static void BM_load_interface_png(benchmark::State& state)
{
	setup();
	for (auto _ : state) benchmark::DoNotOptimize(OGL_texbmp(tex_scratch_only, 468, filt_key_magenta, bmp_path + "interface.png"));
}
BENCHMARK(BM_load_interface_png);
