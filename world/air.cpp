// The air at the aircraft, and the air that a point of the aircraft meets.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "flight/HL_FLIGHT.h"
#include <cmath>

// Gravity, temperature, density, pressure and speed of sound at the pilot's aircraft.
void update_local_air()
{
	const flt_struct& f = flt[0];
	const double r = (double)con.planet_rad + f.dob_y;
	con.lcl_g = r > 1.0 ? (float)(con.planet_mu / (r * r)) : con.g;
	const float h = (float)f.dob_ele;
	con.lcl_T_cel = find_temp_cel(h);
	const float T = fltmax2(con.lcl_T_cel + 273.15f, 1.0f);
	con.lcl_r_met = find_standard_rho(env.planet, h) * find_current_rho_rat();
	con.lcl_P_pas = con.lcl_r_met * con.R * T;
	con.lcl_sig = con.lcl_r_met / 1.225f;   // the ratio to Earth's sea level, on either planet
	con.lcl_a = std::sqrt(1.4f * con.R * T);
	con.lcl_T_cel_total = (1.0f + 0.2f * sqr(f.AV_msc / con.lcl_a)) * T - 273.15f;
}

// Air relative to a point of aircraft 0 from the translation only, in aircraft axes:
// the wind there less the aircraft's own velocity. The rotation is the caller's (inc_v).
void ret_wind_spds_acf(float x, float y, float z, float* vx, float* vy, float* vz, int init_cycle)
{
	const flt_struct& f = flt[0];
	float X, Y, Z;
	any_to_wrl(x, y, z, &X, &Y, &Z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	float wx, wy, wz;
	ret_wind_spds_wrl((float)f.dob_x + X, (float)f.dob_y + Y, (float)f.dob_z + Z, &wx, &wy, &wz, init_cycle);
	wrl_to_any(wx - f.vx, wy - f.vy, wz - f.vz, vx, vy, vz, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
}
