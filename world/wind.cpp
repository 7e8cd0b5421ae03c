// The wind at a point: the smoothed wind of the layers, plus turbulence as a frozen
// field of sine waves drifting with the air, thermals under chosen terrain cells, and
// ridge lift where the wind meets a slope.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include <cmath>
#include <cstdlib>

namespace {
float wind_os_x, wind_os_y, wind_os_z;
float term_os_x, term_os_y, term_os_z, crnt_os_x, crnt_os_y, crnt_os_z;
float totl_os_x, totl_os_y, totl_os_z, totl_os_t;
float trb_rat, therm_vy, slope_vy;

float rnd(float lo, float hi) { return lo + (hi - lo) * (float)std::rand() / (float)RAND_MAX; }
}  // namespace

float ret_turb_rat() { return trb_rat; }
float ret_therm_vy() { return therm_vy; }

void ret_wind_spds_wrl(float x_wrl, float y_wrl, float z_wrl, float* rx, float* ry, float* rz, int init_cycle)
{
	const flt_struct& f = flt[0];
	if (init_cycle) {
		const float dt = mnw.prd_FM;
		// The air moves as a body.
		wind_os_x = fltwrap(wind_os_x + atm.wind_X_msc * dt, -1000.0f, 1000.0f);
		wind_os_y = fltwrap(wind_os_y + atm.wind_Y_msc * dt, -1000.0f, 1000.0f);
		wind_os_z = fltwrap(wind_os_z + atm.wind_Z_msc * dt, -1000.0f, 1000.0f);
		if (mnw.puff1) { term_os_x = rnd(-25, 25); term_os_y = rnd(-25, 25); term_os_z = rnd(-25, 25); }
		const float k = fltlim(dt, 0.0f, 1.0f);
		crnt_os_x = term_os_x * k + (1 - k) * crnt_os_x;
		crnt_os_y = term_os_y * k + (1 - k) * crnt_os_y;
		crnt_os_z = term_os_z * k + (1 - k) * crnt_os_z;
		totl_os_x = crnt_os_x + wind_os_x;
		totl_os_y = crnt_os_y + wind_os_y;
		totl_os_z = crnt_os_z + wind_os_z;
		totl_os_t = fltwrap(totl_os_t + dt, 0.0f, 3600.0f);
		// Turbulence halves at the ground, fades above the top layer, and lives in cloud.
		const float alt_smooth = fltmin2(atm.set_wind_alt_mtrs[2], 6000.0f) + 2000.0f;
		const float facXZ = fltlim(f.y_agl_mtr / 20.0f, 0.5f, 1.0f);
		const float facAL = fltlim((alt_smooth - (float)f.dob_ele) / 1000.0f, 0.1f, 1.0f);
		trb_rat = (atm.now_turb_inc * 0.05f + atm.level_rat_amb * 0.5f) * facXZ * facAL;
		therm_vy = 0.0f;
		const unsigned ci = (unsigned)f.i, cj = (unsigned)f.j;   // the terrain cell decides
		if (atm.therm_prt > randrat[(ci * cj) % randrat_max]) {
			const float therm_rat = randrat[(ci + cj) % randrat_max] + 0.5f;
			const float top = atm.therm_alt_ft * con.fttomtrs;
			therm_vy = therm_rat * atm.therm_vvi_fpm * con.fpmtomsc * interp(top - 500.0f, 1.0f, top + 500.0f, 0.0f, f.y_agl_mtr, 0) *
			           fltlim(f.y_agl_mtr * 0.01f, 0.0f, 1.0f);
		}
		slope_vy = (-atm.wind_X_msc * env.terrain_nrm[0] - atm.wind_Z_msc * env.terrain_nrm[2]) *
		           fltlim(1.0f - f.y_agl_mtr * 0.001f, 0.0f, 1.0f);
	}
	const float dx = x_wrl - totl_os_x, dy = y_wrl - totl_os_y, dz = z_wrl - totl_os_z, t = totl_os_t;
	const float L = 60.0f, w = 2.0f * (float)M_PI / L;
	auto ph = [&](float a, float d) { return a * d * w + t; };
	const float g = 10.0f * trb_rat;
	*rx = atm.wind_X_msc + g * (std::sin(ph(1.4f, dx)) - std::cos(ph(0.9f, dy)) + std::sin(ph(0.8f, dz)));
	*ry = atm.wind_Y_msc + g * (std::cos(ph(0.8f, dx)) + std::sin(ph(1.3f, dy)) - std::cos(ph(1.2f, dz))) + slope_vy + therm_vy;
	*rz = atm.wind_Z_msc + g * (std::sin(ph(0.7f, dx)) + std::cos(ph(0.6f, dy)) - std::sin(ph(0.7f, dz)));
}
