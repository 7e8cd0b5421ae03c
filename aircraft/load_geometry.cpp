// Geometry helpers of the load: positions along a part, the Oswald efficiency of a
// wing, and the areas, centroid and inertia sums of a body.
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <string>

#include "aircraft/oswald_table.inc"

void get_el_base_xyz(int p, int en, float fltel, float* x, float* y, float* z)
{
	const veh_struct& v = veh[p];
	const flt_struct& f = flt[p];
	const float t = fltel * v.element_len[en];
	*x = v.Xarm[en] + t * f.cos_act_sweep[en] * f.cos_act_dihed[en] * v.lat_sign[en];
	*y = v.Yarm[en] + t * f.cos_act_sweep[en] * f.sin_act_dihed[en];
	*z = v.Zarm[en] + t * f.sin_act_sweep[en];
}

float get_el_base_loc(int p, int en, float fltel, const char& axis)
{
	const veh_struct& v = veh[p];
	const float len = v.element_len[en];
	if (en > en_engn_hi) {
		float x, y, z;
		get_el_base_xyz(p, en, fltel, &x, &y, &z);
		return axis == 'X' ? x : axis == 'Y' ? y : z;
	}
	// A blade: each element has its own sweep; relative to the hub.
	if (axis == 'Y') return 0.0f;
	const int last = intlim(v.els[en], 1, el_max) - 1;
	const int upto = intlim((int)std::floor(fltmax2(fltel, 0.0f)), 0, last);
	float sum = 0.0f;
	for (int i = 0; i <= upto; i++) {
		const float sw = v.bladesweep[en][i] * con.degtorad;
		sum += fltlim(fltel - i, 0.0f, 1.0f) * len * (axis == 'X' ? std::cos(sw) : std::sin(sw));
	}
	return sum;
}

// The pair of table points around x: the first index from 1 whose value is at or above it.
template <size_t N> static int pair_index(const float (&axis)[N], float x)
{
	for (size_t i = 1; i < N; i++)
		if (axis[i] >= x) return (int)i;
	return (int)N - 1;
}

float ret_e(float aspec, float washo, float sweep, float taper)
{
	static const float ar_ax[5] = {1, 5, 10, 25, 60};
	static const float wa_ax[3] = {0, 2, 5};
	static const float sw_ax[6] = {-40, -25, 0, 25, 40, 70};
	static const float tp_ax[8] = {0, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.7f, 1.0f};
	const int ia = pair_index(ar_ax, aspec), iw = pair_index(wa_ax, washo);
	const int is = pair_index(sw_ax, sweep), it = pair_index(tp_ax, taper);
	float by_wash[2];
	for (int a = 0; a < 2; a++) {
		float by_sweep[2];
		for (int w = 0; w < 2; w++) {
			float by_taper[2];
			for (int s = 0; s < 2; s++) {
				const float* row = oswald_e[ia - 1 + a][iw - 1 + w][is - 1 + s];
				by_taper[s] = interp(tp_ax[it - 1], row[it - 1], tp_ax[it], row[it], taper, 0);
			}
			by_sweep[w] = interp(sw_ax[is - 1], by_taper[0], sw_ax[is], by_taper[1], sweep, 0);
		}
		by_wash[a] = interp(wa_ax[iw - 1], by_sweep[0], wa_ax[iw], by_sweep[1], washo, 0);
	}
	return interp(ar_ax[ia - 1], by_wash[0], ar_ax[ia], by_wash[1], aspec, 0);
}

void ret_body_grid(int p, int en, int is_wpn, int* stations, int* points)
{
	*stations = *points = 0;
	if (is_wpn) { *stations = body_sta; *points = body_pts; return; }
	if (en >= 0 && en <= en_pylb_hi) { *stations = 2 * intlim(veh[p].els[en], 0, el_max); *points = wing_pts; }
	else if (en == en_fuse) { *stations = fuse_sta; *points = fuse_pts; }
	else if (en >= en_mbody_lo && en <= en_nace_hi) { *stations = body_sta; *points = body_pts; }
	else if (en >= en_fair_lo && en <= en_fair_hi) { *stations = fair_sta; *points = fair_pts; }
}

void get_MI_S_body(int p, int en, int is_wpn, float x, float y, float z, float* s_frn, float* s_sid, float* s_top,
                   float* x_aero, float* y_aero, float* z_aero, float* swet_tot, float* Jxx_unitmass,
                   float* Jyy_unitmass, float* Jzz_unitmass)
{
	const veh_struct& v = veh[p];
	int ns, np;
	ret_body_grid(p, en, is_wpn, &ns, &np);
	ns = intlim(ns, 0, fuse_sta);
	const int half = intlim(np / 2, 0, fuse_pts);
	auto X = [&](int s, int r) { return v.body_X[en][s][r]; };
	auto Y = [&](int s, int r) { return v.body_Y[en][s][r]; };
	auto Z = [&](int s, int r) { return v.body_Z[en][s][r]; };
	float frn_max = 0.0f;
	for (int s = 1; s < ns; s++) {
		float frn = 0.0f;
		for (int r = 1; r < half; r++) {
			const float dxs1 = X(s - 1, r - 1) - X(s - 1, r), dxs2 = X(s, r - 1) - X(s, r);
			const float dys1 = Y(s - 1, r - 1) - Y(s - 1, r), dys2 = Y(s, r - 1) - Y(s, r);
			const float zs1 = 0.5f * (Z(s - 1, r - 1) + Z(s - 1, r)), zs2 = 0.5f * (Z(s, r - 1) + Z(s, r));
			frn += 0.5f * (X(s, r - 1) + X(s, r)) * dys2 * 2.0f;
			*s_sid += fltmax2((zs2 - zs1) * (dys1 + dys2) * 0.5f, 0.0f);
			*s_top += std::fabs((zs2 - zs1) * (dxs1 + dxs2) * 0.5f);
		}
		frn_max = fltmax2(frn_max, frn);
	}
	*s_frn = fltmax2(*s_frn, frn_max);
	float area_sum = 0.0f, ya = 0.0f, za = 0.0f;
	for (int s = 0; s + 1 < ns; s++)
		for (int r = 0; r + 1 < half; r++)
			for (int t = 0; t < 2; t++) {
				const int c[3][2] = {{s, r}, {t ? s + 1 : s, t ? r : r + 1}, {s + 1, r + 1}};
				float px[3], py[3], pz[3];
				for (int k = 0; k < 3; k++) { px[k] = X(c[k][0], c[k][1]); py[k] = Y(c[k][0], c[k][1]); pz[k] = Z(c[k][0], c[k][1]); }
				const float ax = px[1] - px[0], ay = py[1] - py[0], az = pz[1] - pz[0];
				const float bx = px[2] - px[0], by = py[2] - py[0], bz = pz[2] - pz[0];
				const float area = pythag(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx) * 0.5f * 2.0f;   // and the unstored half
				const float cx = (px[0] + px[1] + px[2]) / 3.0f + x;
				const float cy = (py[0] + py[1] + py[2]) / 3.0f + y;
				const float cz = (pz[0] + pz[1] + pz[2]) / 3.0f + z;
				*swet_tot += area;
				*Jxx_unitmass += (cy * cy + cz * cz) * area;
				*Jyy_unitmass += (cx * cx + cz * cz) * area;
				*Jzz_unitmass += (cx * cx + cy * cy) * area;
				area_sum += area;
				ya += cy * area;
				za += cz * area;
			}
	*x_aero = x;
	*y_aero = area_sum > 0.0f ? ya / area_sum : y;
	*z_aero = area_sum > 0.0f ? za / area_sum : z;
	if (p == 0 && !is_wpn) {
		cyc << "   body " << en << ": frontal " << *s_frn << " m2, side " << *s_sid << " m2, top " << *s_top
		    << " m2, centroid " << *x_aero << " " << *y_aero << " " << *z_aero << "\n";
		if (*s_frn < 0.0001f)
			NB_ALERT("I have found a body with no frontal area!. This is bad news for the math engine!",
			         "This is the body with no frontal area, which you must give some area or remove from the plane in Framewright:",
			         v.name, ret_part_name(en), alert_fatal);
	}
}

const char* ret_part_name(int en)
{
	static char buf[40];
	static const char* wings[] = {"wing 1 left", "wing 1 right", "wing 2 left", "wing 2 right", "wing 3 left",
	                              "wing 3 right", "wing 4 left", "wing 4 right", "horizontal stabiliser left",
	                              "horizontal stabiliser right", "vertical stabiliser 1", "vertical stabiliser 2"};
	if (en >= 0 && en <= en_engn_hi) std::snprintf(buf, sizeof buf, "engine %d", en + 1);
	else if (en >= en_wing1L && en <= en_vstb2) return wings[en - en_wing1L];
	else if (en >= en_mwing_lo && en <= en_mwing_hi) std::snprintf(buf, sizeof buf, "misc wing %d", en - en_mwing_lo + 1);
	else if (en >= en_pyla_lo && en <= en_pyla_hi) std::snprintf(buf, sizeof buf, "pylon %d a", en - en_pyla_lo + 1);
	else if (en >= en_pylb_lo && en <= en_pylb_hi) std::snprintf(buf, sizeof buf, "pylon %d b", en - en_pylb_lo + 1);
	else if (en == en_fuse) return "fuselage";
	else if (en >= en_mbody_lo && en <= en_mbody_hi) std::snprintf(buf, sizeof buf, "misc body %d", en - en_mbody_lo + 1);
	else if (en >= en_nace_lo && en <= en_nace_hi) std::snprintf(buf, sizeof buf, "nacelle %d", en - en_nace_lo + 1);
	else if (en >= en_fair_lo && en <= en_fair_hi) std::snprintf(buf, sizeof buf, "fairing %d", en - en_fair_lo + 1);
	else if (en >= en_gear_lo && en <= en_gear_hi) std::snprintf(buf, sizeof buf, "gear %d", en - en_gear_lo + 1);
	else return "no part";
	return buf;
}
