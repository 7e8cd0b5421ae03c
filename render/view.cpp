// The camera: inside the cockpit at the pilot's eye, turned by the view's offsets, or
// circling and chasing outside; then the angles the picture's centre looks along and the
// frustum ratios that put the horizon at the panel's HUD centre in any window.
#include "render/view.h"
#include "render/HL_GRAPH.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/nav_data.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr float ftm = 0.3048f;
float circle_dist = 0.0f, freeview_psi_rad = 0.0f, freeview_the_rad = 0.0f;

float wrapf(float v, float lo, float hi)
{
	const float span = hi - lo;
	v = std::fmod(v - lo, span);
	return (v < 0.0f ? v + span : v) + lo;
}

bool external(int v) { return v == 1515 || v == 1516 || (v >= 1518 && v <= 1522) || v == 1539; }

const vec_apt_struct* local_airport()
{
	return vec_apt.empty() ? nullptr : &vec_apt[(size_t)std::clamp(msc.loc_apt_wrl, 0, (int)vec_apt.size() - 1)];
}

void world_point(double lat, double lon, double ele, float xyz[3])
{
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, lat, lon, ele);
	xyz[0] = (float)x;
	xyz[1] = (float)y;
	xyz[2] = (float)z;
}

// The runway end nearest the aircraft, an eye's height over the airport, as the spot.
void nearest_runway_end(const float ref[3])
{
	const vec_apt_struct* a = local_airport();
	float best = 9.9e9f;
	for (size_t r = 0; a && r < a->rwy.size(); r++) {
		const vec_rwy_struct& w = a->rwy[r];
		if (w.num_str[0] == 'x') continue;   // taxiway segments
		for (int end = 0; end < 2; end++) {
			const double hdg = (w.psi_true + (end ? 180.0 : 0.0)) * M_PI / 180.0, half = 0.5 * (w.len - 10.0);
			double lat, lon;
			latlon_offset(w.lat, w.lon, half * std::sin(hdg), half * std::cos(hdg), &lat, &lon);
			float p[3];
			world_point(lat, lon, a->h + 1.8, p);
			const float d = (p[0] - ref[0]) * (p[0] - ref[0]) + (p[1] - ref[1]) * (p[1] - ref[1]) + (p[2] - ref[2]) * (p[2] - ref[2]);
			if (d < best) {
				best = d;
				ren.spot_x = p[0];
				ren.spot_y = p[1];
				ren.spot_z = p[2];
			}
		}
	}
}

// The tower's eye, the beacon's, or the first start point's.
bool tower_point(float xyz[3])
{
	const vec_apt_struct* a = local_airport();
	if (!a) return false;
	if (std::fabs(a->twr_lat) > 0.01f || std::fabs(a->twr_lon) > 0.01f) world_point(a->twr_lat, a->twr_lon, a->h + a->twr_hgt, xyz);
	else if (std::fabs(a->bcn_lat) > 0.01f || std::fabs(a->bcn_lon) > 0.01f) world_point(a->bcn_lat, a->bcn_lon, a->h + 20.0, xyz);
	else if (!a->sta.empty()) world_point(a->sta[0].lat, a->sta[0].lon, a->h + 1.8, xyz);
	else return false;
	return true;
}

// Each cockpit view's turn of the eye, degrees right and up.
void view_offsets(int v, float* dpsi, float* dthe)
{
	*dpsi = *dthe = 0.0f;
	switch (v) {
	case 1505: *dpsi = -45.0f; break;
	case 1507: *dpsi = -90.0f; break;
	case 1509: *dpsi = -135.0f; break;
	case 1506: *dpsi = 45.0f; break;
	case 1508: *dpsi = 90.0f; break;
	case 1510: *dpsi = 135.0f; break;
	case 1511: *dpsi = 180.0f; break;
	case 1512: *dpsi = -45.0f; *dthe = 30.0f; break;
	case 1513: *dpsi = 45.0f; *dthe = 30.0f; break;
	default: break;
	}
}

// (x, y, z) turned by the cockpit angles, then by the basic ones.
void to_world(float x, float y, float z, float* X, float* Y, float* Z)
{
	const float d = con.degtorad;
	float a, b, c;
	any_to_wrl(x, y, z, &a, &b, &c, std::sin(ren.cock_psi * d), std::cos(ren.cock_psi * d), std::sin(ren.cock_the * d),
	           std::cos(ren.cock_the * d), std::sin(ren.cock_phi * d), std::cos(ren.cock_phi * d));
	any_to_wrl(a, b, c, X, Y, Z, std::sin(ren.basic_psi * d), std::cos(ren.basic_psi * d), std::sin(ren.basic_the * d),
	           std::cos(ren.basic_the * d), std::sin(ren.basic_phi * d), std::cos(ren.basic_phi * d));
}

}  // namespace

float horizon_dip_deg(float height_m, float planet_rad)
{
	if (height_m <= 0.0f || planet_rad <= 0.0f) return 0.0f;
	const double r = planet_rad / (planet_rad + (double)height_m);
	return (float)std::clamp(90.0 - std::atan2(r, std::sqrt(1.0 - r * r)) * 180.0 / M_PI, 0.0, 45.0);
}

void WORLD_view_per_frame()
{
	flt_struct& f = flt[0];
	if (ren.view_menu_TYPE >= 1500) {   // a new view
		const int t = ren.view_menu_TYPE;
		ren.zoom_req = ren.zoom_act = 1.0f;
		ren.view_is_external = external(t);
		if (t == 1518) ren.circ_psi_rad = ren.circ_the_rad = 0.0f;
		const float pos[3] = {(float)f.dob_x, (float)f.dob_y, (float)f.dob_z}, vel[3] = {f.vx, f.vy, f.vz};
		const float offset = std::max(veh[0].size_x * 1.5f, f.V_msc * 0.05f);
		if (t == 1516) nearest_runway_end(pos);
		if (t == 1521 || t == 1522) {   // a point ahead on the path, a little aside
			const float ahead = t == 1521 ? 4.0f : 0.5f;
			float* spot[3] = {&ren.spot_x, &ren.spot_y, &ren.spot_z};
			for (int k = 0; k < 3; k++) *spot[k] = ren.view_xyz[k] = pos[k] + vel[k] * ahead + offset;
			ren.spot_vx = t == 1522 ? f.vx : 0.0f;
			ren.spot_vy = t == 1522 ? f.vy : 0.0f;
			ren.spot_vz = t == 1522 ? f.vz : 0.0f;
		}
		ren.view_type_act = t;
		ren.view_menu_TYPE = -1;
	}
	if (ren.view_type_act < 1500) ren.view_type_act = 1500;
	if (ren.FOV <= 0.0f) ren.FOV = 45.0f;
	if (ren.circ_dist <= 0.0f) ren.circ_dist = 4.0f;
	ren.circ_dist = std::max(ren.circ_dist, veh[0].size_tot * 1.5f);
	const int v = ren.view_type_act;
	const float ref[3] = {(float)f.dob_x, (float)f.dob_y, (float)f.dob_z};
	const float dt = mnw.prd_FM > 0.0f ? mnw.prd_FM : 0.02f;
	if (v == 1515 || v == 1516 || v == 1521 || v == 1522) {   // a fixed or drifting point, looking at the aircraft
		float target[3] = {ren.spot_x, ren.spot_y, ren.spot_z};
		float rate = std::min(dt * 4.0f * ren.zoom_act, 1.0f - dt);
		if (v == 1515) {
			if (!tower_point(target))
				for (int k = 0; k < 3; k++) target[k] = ref[k] + 50.0f;
			rate = std::min(dt, 1.0f);
		}
		if (v == 1522) {
			if (!mnw.paused) {
				ren.view_xyz[0] += ren.spot_vx * dt;
				ren.view_xyz[1] += ren.spot_vy * dt;
				ren.view_xyz[2] += ren.spot_vz * dt;
			}
		} else {
			for (int k = 0; k < 3; k++) ren.view_xyz[k] += (target[k] - ren.view_xyz[k]) * rate;
		}
		ren.view_xyz[1] = std::max(ren.view_xyz[1], ren.local_y_vp + 1.7f);
		const float dx = ref[0] - ren.view_xyz[0], dy = ref[1] - ren.view_xyz[1], dz = ref[2] - ren.view_xyz[2];
		ren.basic_the = std::atan2(dy, std::sqrt(dx * dx + dz * dz)) * con.radtodeg;
		ren.basic_psi = std::atan2(dx, -dz) * con.radtodeg;
		ren.basic_phi = 0.0f;
	} else if (v == 1518 || v == 1519 || v == 1520) {   // outside, circling or chasing
		circle_dist += (ren.circ_dist - circle_dist) * std::min(dt * (circle_dist > 0.0f ? 1.0f : 1e9f), 1.0f);
		freeview_psi_rad += wrapf(ren.circ_psi_rad - freeview_psi_rad, -M_PI, M_PI) * std::min(dt * 4.0f, 1.0f);
		freeview_the_rad += wrapf(ren.circ_the_rad - freeview_the_rad, -M_PI, M_PI) * std::min(dt * 4.0f, 1.0f);
		const float d = con.degtorad;
		if (v == 1518) {   // behind the body at low speed, along the path at speed
			const float k = std::clamp((f.V_msc - 10.0f) / 10.0f, 0.0f, 1.0f);
			const float hdg = (f.psi + wrapf(f.h_path - f.psi, -180.0f, 180.0f) * k) * d;
			const float elev = (f.the + (f.v_path - f.the) * k) * d;
			const float psi = hdg + freeview_psi_rad, the = elev - freeview_the_rad;
			ren.view_xyz[0] = ref[0] - circle_dist * std::cos(the) * std::sin(psi);
			ren.view_xyz[1] = ref[1] - circle_dist * std::sin(the);
			ren.view_xyz[2] = ref[2] + circle_dist * std::cos(the) * std::cos(psi);
		} else {
			ren.view_xyz[0] = ref[0] - circle_dist * std::cos(freeview_the_rad) * std::sin(freeview_psi_rad);
			ren.view_xyz[1] = ref[1] + circle_dist * std::sin(freeview_the_rad);
			ren.view_xyz[2] = ref[2] + circle_dist * std::cos(freeview_the_rad) * std::cos(freeview_psi_rad);
		}
		ren.view_xyz[1] = std::max(ren.view_xyz[1], ren.local_y_vp + 1.7f);   // never under the ground
		const float dx = ref[0] - ren.view_xyz[0], dy = ref[1] - ren.view_xyz[1], dz = ref[2] - ren.view_xyz[2];
		const float the = std::atan2(dy, std::sqrt(dx * dx + dz * dz)) * con.radtodeg, psi = std::atan2(dx, -dz) * con.radtodeg;
		const float phi = ren.view_ele > 50000.0f ? -(float)f.dob_lat : 0.0f;   // in orbit the horizon stays level with the pole
		const float k = std::min(6.0f * dt, 1.0f);
		ren.basic_the += wrapf(the - ren.basic_the, -180.0f, 180.0f) * k;
		ren.basic_psi += wrapf(psi - ren.basic_psi, -180.0f, 180.0f) * k;
		ren.basic_phi += wrapf(phi - ren.basic_phi, -180.0f, 180.0f) * k;
	} else {   // inside, at the pilot's eye
		float ex, ey, ez;
		any_to_wrl(veh[0].pe_xyz[0] * ftm, veh[0].pe_xyz[1] * ftm, veh[0].pe_xyz[2] * ftm, &ex, &ey, &ez, f.sin_psi, f.cos_psi, f.sin_the,
		           f.cos_the, f.sin_phi, f.cos_phi);
		ren.view_xyz[0] = ref[0] + ex;
		ren.view_xyz[1] = ref[1] + ey;
		ren.view_xyz[2] = ref[2] + ez;
		ren.basic_the = f.the;
		ren.basic_psi = f.psi;
		ren.basic_phi = f.phi;
	}
	ren.view_ele = (float)f.dob_ele + (ren.view_xyz[1] - ref[1]);
	ren.basic_the = wrapf(ren.basic_the, -180.0f, 180.0f);
	ren.basic_psi = wrapf(ren.basic_psi, 0.0f, 360.0f);
	ren.basic_phi = wrapf(ren.basic_phi, -180.0f, 180.0f);
	if (ren.basic_the > 90.0f || ren.basic_the < -90.0f) {   // over the top: the same attitude the other way round
		ren.basic_the = (ren.basic_the > 0.0f ? 180.0f : -180.0f) - ren.basic_the;
		ren.basic_psi = wrapf(ren.basic_psi + 180.0f, 0.0f, 360.0f);
		ren.basic_phi = wrapf(180.0f - ren.basic_phi, -180.0f, 180.0f);
	}
	float dpsi, dthe;
	view_offsets(v, &dpsi, &dthe);
	ren.cock_psi = ren.off_lat_deg + dpsi;
	ren.cock_the = ren.off_vrt_deg + dthe;
	ren.cock_phi = ren.off_phi_deg;
	if (ren.mouse_look) {
		ren.cock_psi += ren.mouse_look_os_psi;
		ren.cock_the += ren.mouse_look_os_the;
	}
	ren.zoom_req = std::clamp(ren.zoom_req, 1.0f, 5000.0f);
	ren.zoom_act = std::clamp(ren.zoom_act, 1.0f, 5000.0f);
	const float step = ren.zoom_act * dt * 6.0f;
	ren.zoom_act += std::clamp(ren.zoom_req - ren.zoom_act, -step, step);
	// The box round the view's frustum out to the sky's visibility, by the last frame's angles.
	{
		const float reach = atm.vis_sky > 0.0f ? atm.vis_sky : 46300.0f;
		const float hw = std::sin(ren.FOV * 0.5f * con.degtorad) * reach;
		const float hh = hw * (mnw.x_res_now > 0 ? (float)mnw.y_res_now / (float)mnw.x_res_now : 0.75f);
		const float corner[5][3] = {{0, 0, 0}, {-hw, -hh, -reach}, {hw, -hh, -reach}, {hw, hh, -reach}, {-hw, hh, -reach}};
		const float d = con.degtorad;
		for (int k = 0; k < 5; k++) {
			float X, Y, Z;
			any_to_wrl(corner[k][0], corner[k][1], corner[k][2], &X, &Y, &Z, std::sin(ren.final_psi * d), std::cos(ren.final_psi * d),
			           std::sin(ren.final_the * d), std::cos(ren.final_the * d), std::sin(ren.final_phi * d), std::cos(ren.final_phi * d));
			const float p[3] = {ren.view_xyz[0] + X, ren.view_xyz[1] + Y, ren.view_xyz[2] + Z};
			for (int c = 0; c < 3; c++) {
				ren.xyz_lo_cone_sky[c] = k == 0 ? p[c] : std::min(ren.xyz_lo_cone_sky[c], p[c]);
				ren.xyz_hi_cone_sky[c] = k == 0 ? p[c] : std::max(ren.xyz_hi_cone_sky[c], p[c]);
			}
		}
	}
	// Final angles: the picture's centre and its up, turned into the world.
	float x, y, z, ux, uy, uz;
	to_world(0.0f, 0.0f, -1.0f, &x, &y, &z);
	to_world(0.0f, 1.0f, 0.0f, &ux, &uy, &uz);
	ren.final_psi = wrapf(std::atan2(x, -z) * con.radtodeg, 0.0f, 360.0f);
	ren.final_the = std::atan2(y, std::sqrt(x * x + z * z)) * con.radtodeg;
	float ax, ay, az;
	wrl_to_any(ux, uy, uz, &ax, &ay, &az, std::sin(ren.final_psi * con.degtorad), std::cos(ren.final_psi * con.degtorad),
	           std::sin(ren.final_the * con.degtorad), std::cos(ren.final_the * con.degtorad), 0.0f, 1.0f);
	ren.final_phi = std::atan2(ax, ay) * con.radtodeg;
	// Frustum ratios, linear in the field of view; the horizon at the HUD centre over a panel.
	mnw.x1_rat = ren.FOV * (ren.off_lat_rat - 1.0f) / 90.0f;
	mnw.x2_rat = ren.FOV * (ren.off_lat_rat + 1.0f) / 90.0f;
	const float yc = view_shows_panel(v) && veh[0].HUD_ctr_y[view_panel_index(v)] > 0.0f
	                     ? veh[0].HUD_ctr_y[view_panel_index(v)] - mnw.look_up
	                     : (mnw.y1_pix + mnw.y2_pix) * 0.5f;
	const float span = std::max(mnw.y2_pix - mnw.y1_pix, 1.0f);
	mnw.y1_rat = (((mnw.y1_pix - yc) / span) * 2.0f + ren.off_vrt_rat) * ren.FOV / 90.0f;
	mnw.y2_rat = (((mnw.y2_pix - yc) / span) * 2.0f + ren.off_vrt_rat) * ren.FOV / 90.0f;
}
