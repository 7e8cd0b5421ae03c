// The surface under the user's aircraft, once a pass before the flight model: open ground
// by default, or the runway it stands on, each runway the rectangle of its record with its
// blast pads. The runway is a flat deck at its airport's elevation, with its own surface
// and roughness.
#include "world/scenery.h"
#include "world/nav_data.h"
#include "world/HL_WORLD.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>

void set_surface_under_aircraft()
{
	env.over_obs = 0;
	env.surf_tex = 49;   // no surface: open ground
	env.roughness = 0.0f;
	env.rwy_wrl_over = -1;
	if (net.getting_terrain) return;
	const flt_struct& f = flt[0];
	for (int l = 0; l <= apt_lcl_max; l++) {
		const vec_apt_struct& a = vec_apt[apt_lcl_to_wrl[l]];
		if (a.apt_type == 16) continue;   // a seaplane base's runway is water
		for (const vec_rwy_struct& r : a.rwy) {
			if (r.num_str[0] == 'x' || !on_runway(r, f.dob_lat, f.dob_lon)) continue;
			double x, y, z;
			xdob_xyz_with_latlonel(x, y, z, f.dob_lat, f.dob_lon, a.h);
			env.over_obs = 1;
			env.obj_y_top = (float)y;
			env.obj_x = (float)x;
			env.obj_z = (float)z;
			env.surf_tex = r.surf_tex;
			env.roughness = r.roughness;
			env.rwy_wrl_over = r.geo_ind;
			return;
		}
	}
}
