// The per-frame sky work: the sun and moon, the sky table, the light; and loading a texture
// from PNG into the scratch buffer.
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

static void BM_load_interface_png(benchmark::State& state)
{
	setup();
	for (auto _ : state) benchmark::DoNotOptimize(OGL_texbmp(tex_scratch_only, 468, filt_key_magenta, bmp_path + "interface.png"));
}
BENCHMARK(BM_load_interface_png);
