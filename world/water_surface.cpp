// The water under the aircraft: whether its cell is wet, and the height of the waves
// running over it.
#include "world/scenery.h"
#include "world/HL_WORLD.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>

int ret_over_water()
{
	if (env.over_carr || env.over_frig || env.over_obs || net.getting_terrain) return 0;   // a deck or roof stands over it
	const int pl = env.planet == 1 ? 1 : 0;
	const int i = intlim(flt[0].i, 0, regn_imax[pl] - 1), j = intlim(flt[0].j, 0, regn_jmax[pl] - 1);
	auto wet = [](int a, int b) { return landuse[a][b] == 14 || landuse[a][b] == 15; };
	return wet(i, j) || wet(i, j + 1) || wet(i + 1, j + 1) || wet(i + 1, j);   // any wet corner
}

float wave_h(float x, float z, float y)
{
	if (atm.wave_height * con.mtrstoft <= 0.1f || atm.wave_length <= 0.0f) return y;
	const int dir = (int)fltwrap((float)atm.wave_dir, 0.0f, 360.0f) % 360;
	const float s = lookup_sin[dir], c = lookup_cos[dir];
	const float dis = atm.wave_speed * mnw.totl_time;   // how far the train has run
	const float wave_x = -dis * s, wave_z = dis * c;
	const float cycles_off = ((z - wave_z) * c - (x - wave_x) * s) / atm.wave_length;
	return y + 0.5f * atm.wave_height * std::sin(2.0f * 3.14159265f * cycles_off);
}
