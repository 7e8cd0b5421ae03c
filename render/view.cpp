// The camera: inside the cockpit at the pilot's eye, turned by the view's offsets, or
// circling and chasing outside; then the angles the picture's centre looks along and the
// frustum ratios that put the horizon at the panel's HUD centre in any window.
#include "render/view.h"
#include "render/HL_GRAPH.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "cockpit/HL_COCKPIT.h"
#include "flight/HL_FLIGHT.h"
#include "plugin/HL_PLUGIN.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr float ftm = 0.3048f;
float circle_dist = 0.0f, freeview_psi_rad = 0.0f, freeview_the_rad = 0.0f;

bool external(int v) { return v == 1515 || v == 1516 || (v >= 1518 && v <= 1522) || v == 1539; }

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

void turn(float* x, float* y, float* z, float the, float psi, float phi)
{
	const float d = con.degtorad;
	float a, b, c;
	any_to_wrl(*x, *y, *z, &a, &b, &c, std::sin(psi * d), std::cos(psi * d), std::sin(the * d), std::cos(the * d), std::sin(phi * d), std::cos(phi * d));
	*x = a;
	*y = b;
	*z = c;
}

// A direction in the picture turned into the world: by the dome's reference, the eye's
// turn within the cockpit with the off-centre offsets, then the body's or look-at angles.
void to_world(float x, float y, float z, float* X, float* Y, float* Z)
{
	const float half = std::tan(ren.FOV * 0.5f * con.degtorad);
	const float lat = std::atan2(half * ren.off_lat_rat, 1.0f) * con.radtodeg, vrt = std::atan2(half * ren.off_vrt_rat, 1.0f) * con.radtodeg;
	turn(&x, &y, &z, ren.elum_ref_the, ren.elum_ref_psi, ren.elum_ref_phi);
	turn(&x, &y, &z, ren.cock_the + vrt, ren.cock_psi + lat, ren.cock_phi);
	turn(&x, &y, &z, ren.basic_the, ren.basic_psi, ren.basic_phi);
	*X = x;
	*Y = y;
	*Z = z;
}

body_state aircraft_state(const flt_struct& f)
{
	return {f.dob_x, f.dob_y, f.dob_z, f.vx, f.vy, f.vz, f.the, f.psi, f.phi, f.h_path, f.v_path, f.V_msc};
}

// A new view: zoom back to 1, and the spot views' point by the runway or ahead on the path.
void take_view_type(const body_state& r)
{
	const int t = ren.view_menu_TYPE;
	if (!((t >= 1505 && t <= 1525) || t == 1500 || t == 1539)) return;
	ren.zoom_req = ren.zoom_act = 1.0f;
	ren.view_is_external = external(t);
	const float pos[3] = {(float)r.x, (float)r.y, (float)r.z}, vel[3] = {r.vx, r.vy, r.vz};
	const float offset = std::max(veh[0].size_x * 1.5f, r.V * 0.05f);
	if (t == 1516) {
		float spot[3] = {ren.spot_x, ren.spot_y, ren.spot_z};
		nearest_runway_end(pos, spot);
		ren.spot_x = spot[0];
		ren.spot_y = spot[1];
		ren.spot_z = spot[2];
	}
	if (t == 1518) ren.circ_psi_rad = ren.circ_the_rad = 0.0f;
	if (t == 1521 || t == 1522) {   // a point ahead on the path, a little aside
		const float ahead = t == 1521 ? 4.0f : 0.5f;
		float* spot[3] = {&ren.spot_x, &ren.spot_y, &ren.spot_z};
		for (int k = 0; k < 3; k++) *spot[k] = ren.view_xyz[k] = pos[k] + vel[k] * ahead + offset;
		ren.spot_vx = t == 1522 ? r.vx : 0.0f;
		ren.spot_vy = t == 1522 ? r.vy : 0.0f;
		ren.spot_vz = t == 1522 ? r.vz : 0.0f;
	}
	if (t != ren.view_type_act) {
		ren.view_type_act = t;
		MACIBM_update_back_texes();
		mnw.look_up_mode = 1;
	}
}

}  // namespace

float horizon_dip_deg(float height_m, float planet_rad)
{
	if (height_m <= 0.0f || planet_rad <= 0.0f) return 0.0f;
	const double r = planet_rad / (planet_rad + (double)height_m);
	return (float)std::clamp(90.0 - std::atan2(r, std::sqrt(1.0 - r * r)) * 180.0 / M_PI, 0.0, 45.0);
}

namespace {

// Fixed and drifting spots, the tower and the carrier: each looks at the reference.
void spot_camera(int v, const float ref[3], float dt)
{
	float target[3] = {ren.spot_x, ren.spot_y, ren.spot_z};
	float rate = std::min(dt * 4.0f * ren.zoom_act, 1.0f - dt);
	if (v == 1515) {
		const int where = tower_point(ref, target);
		if (where == 0)
			for (int k = 0; k < 3; k++) target[k] = ref[k] + 50.0f;
		rate = where == 2 ? 1.0f : std::min(dt, 1.0f);   // on a carrier the eye rides with the ship
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
}

// Circling and chasing: the eye on an orbit round the reference, eased, looking at it.
void orbit_camera(int v, const body_state& r, const float ref[3], float dt)
{
	circle_dist += (ren.circ_dist - circle_dist) * std::min(dt * (circle_dist > 0.0f ? 1.0f : 1e9f), 1.0f);
	freeview_psi_rad += fltwrap(ren.circ_psi_rad - freeview_psi_rad, -(float)M_PI, (float)M_PI) * std::min(dt * 4.0f, 1.0f);
	freeview_the_rad += fltwrap(ren.circ_the_rad - freeview_the_rad, -(float)M_PI, (float)M_PI) * std::min(dt * 4.0f, 1.0f);
	const float d = con.degtorad;
	if (v == 1518) {   // behind the body at low speed, along the path at speed
		const float k = std::clamp((r.V - 10.0f) / 10.0f, 0.0f, 1.0f);
		const float hdg = (r.psi + fltwrap(r.h_path - r.psi, -180.0f, 180.0f) * k) * d;
		const float elev = (r.the + (r.v_path - r.the) * k) * d;
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
	const float phi = ren.view_ele > 50000.0f ? -(float)flt[0].dob_lat : 0.0f;   // in orbit the horizon stays level with the pole
	const float k = std::min(6.0f * dt, 1.0f);
	ren.basic_the += fltwrap(the - ren.basic_the, -180.0f, 180.0f) * k;
	ren.basic_psi += fltwrap(psi - ren.basic_psi, -180.0f, 180.0f) * k;
	ren.basic_phi += fltwrap(phi - ren.basic_phi, -180.0f, 180.0f) * k;
}

}  // namespace

void WORLD_view_per_frame()
{
	flt_struct& f = flt[0];
	body_state r = aircraft_state(f);
	ren.wpn_to_track = ren.view_type_act == 1539 ? weapon_to_track(&r) : -1;
	force_network_view();
	if (ren.view_menu_ACTION > 0) take_view_action();
	if (ren.view_menu_TYPE >= 1500) take_view_type(r);
	ren.view_menu_TYPE = -1;
	if (ren.view_type_act < 1500) ren.view_type_act = 1500;
	if (ren.FOV <= 0.0f) ren.FOV = 45.0f;
	if (ren.circ_dist <= 0.0f) ren.circ_dist = 4.0f;
	if (mnw.first_miss_cycle) ren.zoom_act = ren.zoom_req = 1.0f;
	const int v = ren.view_type_act;
	const float ref[3] = {(float)r.x, (float)r.y, (float)r.z};
	const float dt = mnw.prd_FM > 0.0f ? mnw.prd_FM : 0.02f;
	// Outside equipment or a plug-in may hold the camera; then only the eye's turn follows.
	const bool placed = net.getting_camera ||
	                    !NBPCameraHook(&ren.view_xyz[0], &ren.view_xyz[1], &ren.view_xyz[2], &ren.basic_the, &ren.basic_psi, &ren.basic_phi, &ren.zoom_act);
	if (placed) {
		// the camera stands where it was put
	} else if (v == 1515 || v == 1516 || v == 1521 || v == 1522) {
		spot_camera(v, ref, dt);
	} else if (v == 1518 || v == 1519 || v == 1520 || v == 1539) {
		orbit_camera(v, r, ref, dt);
	} else {   // inside, at the pilot's eye; a tracked weapon has no cockpit
		const float sp = std::sin(r.psi * con.degtorad), cp = std::cos(r.psi * con.degtorad), st = std::sin(r.the * con.degtorad),
		            ct = std::cos(r.the * con.degtorad), sf = std::sin(r.phi * con.degtorad), cf = std::cos(r.phi * con.degtorad);
		float ex = 0.0f, ey = 0.0f, ez = 0.0f;
		if (ren.wpn_to_track < 0) any_to_wrl(veh[0].pe_xyz[0] * ftm, veh[0].pe_xyz[1] * ftm, veh[0].pe_xyz[2] * ftm, &ex, &ey, &ez, sp, cp, st, ct, sf, cf);
		ren.view_xyz[0] = ref[0] + ex;
		ren.view_xyz[1] = ref[1] + ey;
		ren.view_xyz[2] = ref[2] + ez;
		ren.basic_the = r.the;
		ren.basic_psi = r.psi;
		ren.basic_phi = r.phi;
	}
	ren.view_ele = (float)f.dob_ele + (ren.view_xyz[1] - (float)f.dob_y);
	ren.basic_the = fltwrap(ren.basic_the, -180.0f, 180.0f);
	ren.basic_psi = fltwrap(ren.basic_psi, 0.0f, 360.0f);
	ren.basic_phi = fltwrap(ren.basic_phi, -180.0f, 180.0f);
	if (ren.basic_the > 90.0f || ren.basic_the < -90.0f) {   // over the top: the same attitude the other way round
		ren.basic_the = (ren.basic_the > 0.0f ? 180.0f : -180.0f) - ren.basic_the;
		ren.basic_psi = fltwrap(ren.basic_psi + 180.0f, 0.0f, 360.0f);
		ren.basic_phi = fltwrap(180.0f - ren.basic_phi, -180.0f, 180.0f);
	}
	mnw.look_down_deg_act += (mnw.look_down_deg_req - mnw.look_down_deg_act) * std::min(dt * 5.0f, 1.0f);
	float dpsi, dthe;
	view_offsets(v, &dpsi, &dthe);
	ren.cock_psi = ren.off_lat_deg + dpsi;
	ren.cock_the = ren.off_vrt_deg + mnw.look_down_deg_act + dthe;
	ren.cock_phi = ren.off_phi_deg;
	if (ren.mouse_look) {
		ren.cock_psi += ren.mouse_look_os_psi;
		ren.cock_the += ren.mouse_look_os_the;
	}
	ren.zoom_req = std::clamp(ren.zoom_req, 1.0f, 5000.0f);
	ren.zoom_act = std::clamp(ren.zoom_act, 1.0f, 5000.0f);
	const float step = ren.zoom_act * dt * 6.0f;
	ren.zoom_act += std::clamp(ren.zoom_req - ren.zoom_act, -step, step);
	ren.circ_dist = std::max(ren.circ_dist, veh[0].size_tot * 1.5f);
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
	ren.final_psi = fltwrap(std::atan2(x, -z) * con.radtodeg, 0.0f, 360.0f);
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
	if (ren.elum_renders >= 1) {   // a dome's projections are square pictures in a wide window
		const float shift = mnw.x_res_now > 0 ? (float)(mnw.x_res_now - mnw.y_res_now) / (float)mnw.x_res_now * 0.5f : 0.0f;
		mnw.x1_rat += shift;
		mnw.x2_rat += shift;
	}
}
