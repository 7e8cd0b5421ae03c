// Traffic round the user: each other aircraft starts on a ring ahead, flying at us, low
// on an approach or at the height its engines suit.
#include "core/HL_CORE.h"
#include "core/start_places.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstdlib>

void init_flt_p_other_ai(int p)
{
	if (p <= 0 || p >= acf_max) return;
	const flt_struct& u = flt[0];
	flt_struct& f = flt[p];
	const veh_struct& v = veh[p];
	if (f.dob_x > 9e9) return;   // an empty slot stays far from all
	const float max_dis_traff = 46300.0f;
	const int brng = std::rand() % 360;
	const float dist = max_dis_traff * (0.5f + 0.5f * ran01());
	const float b = brng * con.degtorad;
	float x = (float)u.dob_x + 0.5f * dist * u.sin_psi + dist * std::sin(b);
	float z = (float)u.dob_z - 0.5f * dist * u.cos_psi - dist * std::cos(b);
	x = fltlim(x, 0.9f * env.lo_x, 0.9f * env.hi_x);
	z = fltlim(z, 0.9f * env.lo_z, 0.9f * env.hi_z);
	int i = 0, j = 0;
	float svx, svy, svz;
	float y = find_local_y(x, z, &svx, &svy, &svz, &i, &j, 0);
	int mode = 0;
	float lo = 1000.0f, hi = 3000.0f;
	if (p % 3 == 0 || p % 3 == 1) { mode = 1; lo = 400.0f; hi = 1200.0f; }   // on an approach
	else if (v.num_engines > 0) {
		const int t = v.engn_type[0];
		if (t == 2 || t == 8) { lo = 3000.0f; hi = 6000.0f; }
		if (t == 4 || t == 5 || t == 6 || t == 3) { lo = 9000.0f; hi = 12000.0f; }
	}
	y += lo + (hi - lo) * ran01();
	if (std::fabs(y - (float)u.dob_y) < 2000.0f) y = (float)u.dob_y - 500.0f + 1000.0f * ran01();
	const float sigma = fltmax2(find_standard_rho(0, y) / 1.225f, 0.1f);
	const float heading = fltwrap(brng + 180.0f - 10.0f + 20.0f * ran01(), 0.0f, 360.0f);
	init_flt_p(p, 0.0f, heading, 0.0f, x, y, z, 1.5f * v.V_ref_ms / std::sqrt(sigma), mode);
}
