// The autopilot's half of update_autopilot: the authority scales, the inputs it shares
// with the control laws, and the helicopter's automatic anti-torque. Its modes come with
// the autopilot step; then the control laws run.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"

void update_autopilot(int p)
{
	const veh_struct& v = veh[p];
	const flt_struct& f = flt[p];
	const float dt = mnw.prd_FM;
	static float last_alpha = 0.0f, last_g = 0.0f;
	// Control power grows with dynamic pressure, so commands shrink with it.
	const float q_rat = v.has_collective ? 1.0f
	                                     : fltlim(sqr(f.v_ind_kts * con.ktstomsc / fltmax2(1.5f * v.V_ref_ms, 0.1f)), 1.0f, 100.0f);
	nav.c_rat_antitrq = 0.5f + 0.5f / q_rat;
	nav.c_rat_hdng = v.ott_phi_ratio / q_rat;
	nav.c_rat_ptch = v.ott_the_ratio / q_rat;
	nav.c_rat_artstab = 1.0f / q_rat;
	const float k = fltlim(0.1f * f.v_ind_kts, 0.0f, 1.0f);
	nav.alph_use = f.alpha * k;
	nav.beta_use = f.beta * k;
	nav.alp_dot = dt > 0.0f ? (nav.alph_use - last_alpha) / dt : 0.0f;
	nav.Glo_dot = dt > 0.0f ? (f.g_nrml - last_g) / dt : 0.0f;
	last_alpha = nav.alph_use;
	last_g = f.g_nrml;
	nav.AP_ptch = nav.AP_hdng = nav.AP_roll = 0.0f;
	if (v.has_tailrotor && stg.auto_coord_helos) nav.AP_hdng = -(0.05f * f.R + 0.1f * nav.beta_use) * nav.c_rat_antitrq;
	update_control_laws(p);
}
