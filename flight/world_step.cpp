// The world step that runs once a pass before the aircraft move: clocks, fuel and
// hydraulics; the other slow systems (icing, vacuum, pressurisation, limits) are a later step.
#include "flight/HL_FLIGHT.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include <cmath>

void WORLD_math_in_flight()
{
	const float dt = mnw.prd_FM;
	mnw.miss_time += dt;
	mnw.totl_time += dt;
	mnw.zulu_time = fltwrap(mnw.zulu_time + dt, 0.0f, 86400.0f);
	float zone_h = std::round((float)flt[0].dob_lon / 15.0f);
	mnw.locl_time = fltwrap(mnw.zulu_time + zone_h * 3600.0f - mnw.sys_offset_hours * 3600.0f, 0.0f, 86400.0f);
	if (mnw.timer_running) mnw.timr_time = fltwrap(mnw.timr_time + dt, 0.0f, 3600.0f);
	mnw.hobs_time += dt;
	update_fuel_system();
	update_hydraulics();
}
