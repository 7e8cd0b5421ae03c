// The air at the aircraft and the air seen by a point of it. Until the weather model
// exists the air is the planet's standard sea-level air and there is no wind.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "flight/HL_FLIGHT.h"
#include <cmath>

void WORLD_math_all_cases()
{
	// Ratio of specific heats times the gas constant: air on Earth, carbon dioxide on Mars.
	const float gamma_R = env.planet == 1 ? 1.29f * 188.92f : 1.4f * con.R;
	con.lcl_T_cel = con.sl_T_cel;
	con.lcl_T_cel_total = con.sl_T_cel;
	con.lcl_P_pas = con.sl_P_pas;
	con.lcl_r_met = con.sl_r_met;
	con.lcl_sig = 1.0f;
	con.lcl_a = std::sqrt(gamma_R * (con.sl_T_cel + 273.15f));
	// Gravity falls off with the square of the distance from the planet's centre.
	double r = (double)con.planet_rad + fltmax2((float)flt[0].dob_ele, -0.5f * con.planet_rad);
	con.lcl_g = r > 0.0 ? (float)(con.planet_mu / (r * r)) : con.g;
}

void ret_wind_spds_acf(float x, float y, float z, float* vx, float* vy, float* vz, int init_cycle)
{
	const flt_struct& f = flt[0];
	float wx, wy, wz;   // air over the ground less the aircraft's own motion, into aircraft axes
	wrl_to_any(atm.wind_x_msc - f.vx, atm.wind_y_msc - f.vy, atm.wind_z_msc - f.vz, &wx, &wy, &wz,
	           f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	*vx = wx; *vy = wy; *vz = wz;
	inc_v(vx, vy, vz, x, y, z);
}
