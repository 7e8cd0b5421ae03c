#include "render/visibility.h"
#include "core/HL_TYPES.h"
#include "plugin/HL_PLUGIN.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr float buffer_m = 182.88f;   // the depth of the cross-fade at cloud tops and bases

float ramp(float v, float lo, float hi) { return hi > lo ? std::clamp((v - lo) / (hi - lo), 0.0f, 1.0f) : (v >= hi ? 1.0f : 0.0f); }

// Through an overcast deck the eye sees 100 m; below and above it the visibility returns
// over the buffers.
float through_deck(float vis, float h, float base, float tops)
{
	if (h >= base && h <= tops) return 100.0f;
	if (h < base && h > base - buffer_m) return vis + (100.0f - vis) * ramp(h, base - buffer_m, base);
	if (h > tops && h < tops + buffer_m) return 100.0f + (vis - 100.0f) * ramp(h, tops, tops + buffer_m);
	return vis;
}

}  // namespace

view_distances update_visibility()
{
	view_distances d{};
	const float max_vis = env.planet == 1 ? 111120.0f : 46300.0f;
	const float t1 = max_vis * 0.3f, t2 = max_vis * 3.0f;
	const float h = ren.view_ele;
	const float above_ground = ren.view_xyz[1] - ren.local_y_vp;
	d.dis_from_ground = above_ground + (h - above_ground) * ramp(h, t1, t2);
	const float frmult = atm.vis_frmult > 0.0f ? atm.vis_frmult : 1.0f;
	const float rep = atm.vis_rep > 0.0f ? atm.vis_rep : max_vis;
	const int p = atm.prim_layer & 1;
	atm.vis_ground = rep * frmult;
	const float sky_lo = atm.base_h_MSL[p] - buffer_m, sky_hi = atm.tops_h_MSL[p] + buffer_m;
	atm.vis_sky = frmult * (rep + (max_vis - rep) * (atm.cld_type[p] > 0 ? ramp(h, sky_lo, sky_hi) : 1.0f));
	ren.stars_are_vis = 1;
	for (int l = 0; l < 2; l++) {
		if (atm.cld_type[l] != 5 || atm.tops_h_MSL[l] <= atm.base_h_MSL[l]) continue;
		atm.vis_ground = through_deck(atm.vis_ground, h, atm.base_h_MSL[l], atm.tops_h_MSL[l]);
		atm.vis_sky = through_deck(atm.vis_sky, h, atm.base_h_MSL[l], atm.tops_h_MSL[l]);
		if (h < atm.tops_h_MSL[l]) ren.stars_are_vis = 0;
	}
	ren.ground_is_vis = d.dis_from_ground < atm.vis_ground;
	const float R = con.planet_rad > 0.0f ? con.planet_rad : 6371008.8f;
	const float dfg = std::max(d.dis_from_ground, 0.0f);
	const float dis_to_limb = std::sqrt((R + dfg) * (R + dfg) - R * R);
	const float orbit = ramp(dfg, t1, t2) * ramp(dfg, t1, t2);
	d.ogl_fog_dis = (atm.vis_ground + (dis_to_limb - atm.vis_ground) * orbit) * std::cos(ren.off_lat_rat * 0.25f);
	d.far_dis = std::max({atm.vis_ground, atm.vis_sky, d.ogl_fog_dis});
	ren.planet_is_vis = d.dis_from_ground > t1;
	d.near_dis = dfg * 0.25f;
	if (ren.view_is_external) {   // never clip the aircraft watched from outside
		const int handled = std::clamp(NBPGetNumberPlanesToHandle(stg.numacf, 0), 1, acf_max);
		for (int p = 0; p < handled; p++) {
			const float dx = (float)flt[p].dob_x - ren.view_xyz[0], dy = (float)flt[p].dob_y - ren.view_xyz[1], dz = (float)flt[p].dob_z - ren.view_xyz[2];
			d.near_dis = std::min(d.near_dis, std::sqrt(dx * dx + dy * dy + dz * dz) - veh[0].size_tot * 1.25f);
		}
	}
	d.near_dis = std::clamp(d.near_dis, 1.0f, 50.0f + 450.0f * ramp(dfg, t1, t2));
	return d;
}
