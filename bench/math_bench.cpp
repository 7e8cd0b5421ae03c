#include "core/HL_MATH_FUN.h"
#include <benchmark/benchmark.h>

static void BM_fltwrap(benchmark::State& state)
{
	float x = 0.0f;
	for (auto _ : state) { x = fltwrap(x + 17.3f, 0.0f, 360.0f); benchmark::DoNotOptimize(x); }
}
BENCHMARK(BM_fltwrap);
