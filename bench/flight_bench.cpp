// The flight model's cost: one pass (two sub-steps) for each aircraft of the fleet in
// cruise, and a whole simulated minute of the trainer at 50 passes a second.
#include "aircraft/load_plane.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <benchmark/benchmark.h>
#include <cstdio>
#include <string>

static const char* fleet[] = {"General Aviation:Wren 180:Wren 180.acf", "Gliders:Kestrel 15:Kestrel 15.acf",
                              "Helicopters:Hornet 250:Hornet 250.acf", "Heavy Metal:Meridian 320:Meridian 320.acf"};
static const float cruise_kts[] = {110.0f, 70.0f, 100.0f, 250.0f};

static void cruise(int which)
{
	const std::string tree = NIMBARA_DATA_TREE "/";
	zero_all_records();
	init_con();
	init_tables();
	set_planet_specs(0);
	init_weather_defaults();
	app_path = tree;
	afl_path = tree + "Airfoils:";
	acf_path = tree + "Aircraft:";
	init_flt_0(608, 601);
	std::snprintf(veh[0].path, 500, "%s", (acf_path + fleet[which]).c_str());
	load_plane(0);
	flt_struct& f = flt[0];
	f.dob_y = f.dob_ele = 2000.0;
	init_quaternion(0, 0, 0, f.q);
	mnw.prd_FM = 0.02f;
	WORLD_math_all_cases();
	f.vz = -cruise_kts[which] * con.ktstomsc;
	update_derived_flt(0);
}

static void BM_flight_pass(benchmark::State& state)
{
	cruise((int)state.range(0));
	for (auto _ : state) {
		PLANE_math_in_flight(0);
		if (flt[0].dob_y < 500.0) { flt[0].dob_y = 2000.0; }   // keep it in the air
	}
	state.SetLabel(fleet[state.range(0)]);
}
BENCHMARK(BM_flight_pass)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

static void BM_simulated_minute(benchmark::State& state)
{
	for (auto _ : state) {
		cruise(0);
		for (int n = 0; n < 3000; n++) {
			WORLD_math_all_cases();
			WORLD_math_in_flight();
			PLANE_math_in_flight(0);
		}
	}
	state.SetLabel("trainer, 3000 passes of 0.02 s");
}
BENCHMARK(BM_simulated_minute)->Unit(benchmark::kMillisecond);
