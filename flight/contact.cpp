// Everything that touches the ground: each wheel, skid, wing tip and body point is a
// spring and damper along the surface normal, with friction from its own tyre model;
// wheels spin, brake, skid and blow. One routine handles every point.
#include "flight/HL_FLIGHT.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "render/HL_GRAPH.h"
#include "ui/HL_UI.h"
#include "world/HL_WORLD.h"
#include "world/scenery.h"
#include <cmath>

namespace {

constexpr int gears = en_gear_hi - en_gear_lo + 1;

// Per gear: the friction curve's gain and the last slides it was tuned on; the rim's angle
// on a blown tyre.
float gain[gears] = {2, 2, 2, 2, 2, 2};
float o_slide_x_vel_tir[gears], o_slide_z_vel_tir[gears];
float blown_angle[gears];
float braking_red;

void steer_gears(const veh_struct& v, flt_struct& f)
{
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		f.tire_steer[en] = 0.0f;
		if (!ret_part_alive(0, en) || !v.gear_steers[en]) continue;
		if (v.nw_steerdeg1 < 0.01f) { f.tire_steer[en] = -f.beta; continue; }   // castoring
		const float cmd = pedals_steer() ? mnw.YK_hdng : mnw.YK_roll;
		const float side = v.gear_znodef[en] > 0.0f ? -1.0f : 1.0f;   // a tail wheel steers the other way
		const int sg = intlim(v.steer_gear, 0, part_max - 1);
		f.tire_steer[en] = cmd * side * (f.tire_omega[sg] < v.nw_cutoff_omega ? v.nw_steerdeg1 : v.nw_steerdeg2);
	}
}

}  // namespace

void point_to_world(const flt_struct& f, float x, float y, float z, float vx, float vy, float vz, float* px, float* py, float* pz,
                    float* wx, float* wy, float* wz)
{
	vx += y * f.Prad - z * f.Rrad;   // the rotation's part
	vy += -x * f.Prad - z * f.Qrad;
	vz += y * f.Qrad + x * f.Rrad;
	rot_quat(f.q, x, y, z, px, py, pz);
	rot_quat(f.q, vx, vy, vz, wx, wy, wz);
}

int pedals_steer()
{
	return mnw.eq_ped_nobrk || mnw.eq_ped_wibrk || net.getting_rawjoy || net.getting_astab || net.getting_flightcons || msc.ai_flys;
}

int handle_contact_point(int p, int en, double x_glo_ctr, float vx_glo_ctr, float x_veh, float vx_veh, float fco_roll, double y_glo_ctr, float vy_glo_ctr,
                         float y_veh, float vy_veh, float fco_stat, float spr_con, float* tire_steer, double z_glo_ctr, float vz_glo_ctr, float z_veh,
                         float vz_veh, float fco_kine, float spr_dmp)
{
	flt_struct& f = flt[p];
	const veh_struct& v = veh[p];
	const float g = con.g, dt = mnw.prd_FM;
	const bool is_tire = en >= en_gear_lo && en <= en_gear_hi;
	const int k = is_tire ? en - en_gear_lo : 0;
	const bool is_cat = (stg.cat_waiting || stg.cat_inprog) && is_tire && z_veh < 0.0f;
	const bool castors = is_tire && v.gear_steers[en] && v.nw_steerdeg1 < 0.01f;
	float px, py, pz, vx, vy, vz;
	point_to_world(f, x_veh, y_veh, z_veh, vx_veh, vy_veh, vz_veh, &px, &py, &pz, &vx, &vy, &vz);
	const double x_glo = x_glo_ctr + px, y_glo = y_glo_ctr + py, z_glo = z_glo_ctr + pz;
	vx += vx_glo_ctr;
	vy += vy_glo_ctr;
	vz += vz_glo_ctr;
	float vx_srf, vy_srf, vz_srf;
	const float y_grnd = find_local_y((float)x_glo, (float)z_glo, &vx_srf, &vy_srf, &vz_srf, &f.i, &f.j, 1);
	const float def = fltmax2((float)(y_grnd - y_glo), 0.0f);
	vx -= vx_srf;
	vy -= vy_srf;
	vz -= vz_srf;
	const float* n = env.terrain_nrm;
	const float def_dot = def > 0.0f ? -(vx * n[0] + vy * n[1] + vz * n[2]) : 0.0f;
	const float force = fltlim(def_dot * spr_dmp + def * spr_con, 0.0f, 4.0f * g * v.m_max);
	const int touching = force > 0.0f || is_cat;

	// The normal and the velocity in aircraft axes.
	const float qi[4] = {f.q[0], -f.q[1], -f.q[2], -f.q[3]};
	float nx, ny, nz, ax, ay, az;
	rot_quat(qi, n[0], n[1], n[2], &nx, &ny, &nz);
	rot_quat(qi, vx, vy, vz, &ax, &ay, &az);
	const float fx_spring = force * nx, fy_spring = force * ny, fz_spring = force * nz;
	const float v_road = std::sqrt(ax * ax + ay * ay + az * az);
	float beta_road = std::atan2(-ax, -az) * con.radtodeg;
	if (castors) {
		*tire_steer = -beta_road * fltlim(10.0f * std::sqrt(az * az + ax * ax), 0.0f, 1.0f);
		beta_road = 0.0f;
	} else
		beta_road += *tire_steer;

	// Rain, ice and dry patches.
	int slick = 1;
	if (atm.rway_patchy && randrat[(int)(0.5 * std::sqrt(x_glo * x_glo + z_glo * z_glo)) % randrat_max] < 0.5f) slick = 0;
	const bool cold = con.lcl_T_cel <= 0.0f;
	float wx = cold ? 0.8f : 1.0f;
	if (atm.rway_fric_code == 1 && slick) wx = cold ? 0.45f : 0.75f;
	if (atm.rway_fric_code == 2 && slick) wx = cold ? 0.1f : 0.5f;
	fco_kine *= wx;
	fco_stat *= wx;

	// Slip, against a friction curve as steep as the step allows without chatter.
	const float br = beta_road * con.degtorad;
	const float r_tire = is_tire ? fltmax2(v.tire_radius[en], 0.01f) : 0.01f;
	const float total_z_vel = v_road * std::cos(br);
	const float slide_z_vel = total_z_vel - (is_tire ? f.tire_omega[en] * v.tire_radius[en] : 0.0f);
	const float slide_x_vel = v_road * std::sin(br);
	float gn = 2.0f;
	if (is_tire) {
		const bool flip = (slide_x_vel > 0.0f) != (o_slide_x_vel_tir[k] > 0.0f) || (slide_z_vel > 0.0f) != (o_slide_z_vel_tir[k] > 0.0f);
		gain[k] = fltlim(gain[k] * (flip ? 0.9f : 1.1f), 0.2f, 20.0f);
		o_slide_x_vel_tir[k] = slide_x_vel;
		o_slide_z_vel_tir[k] = slide_z_vel;
		gn = gain[k];
	}
	const float total_z_rat = fltlim(total_z_vel * gn, -1.0f, 1.0f);
	const float slide_z_rat = fltlim(slide_z_vel * gn, -1.0f, 1.0f);
	const float slide_x_rat = fltlim(slide_x_vel * gn, -1.0f, 1.0f);
	const float total_skid_vel = pythag(slide_x_vel, slide_z_vel);
	const float total_fric_rat = fltlim(pythag(slide_x_rat, slide_z_rat), 0.0f, 1.0f);
	const float fco_max = total_fric_rat > 0.999f ? fco_kine : fco_stat;
	const float frc_max = force * fco_max;
	const float trq = is_tire ? f.tire_trq[en] : 0.0f;
	const float fx_fric_tir = fltlim(frc_max * slide_x_rat, -frc_max, frc_max);
	const float fz_fric_tir = fltlim(force * fco_roll * total_z_rat - trq / r_tire, -frc_max, frc_max);
	const float st = *tire_steer * con.degtorad;
	float fx_fric = fx_fric_tir * std::cos(st) - fz_fric_tir * std::sin(st);
	const float fz_fric = fz_fric_tir * std::cos(st) + fx_fric_tir * std::sin(st);
	if (is_tire && v.gear_steers[en] && v.nw_side_k > 0.01f) fx_fric = fltlim(fx_fric, -v.nw_side_k * std::fabs(beta_road), v.nw_side_k * std::fabs(beta_road));

	if (touching) {
		// Tyre smoke when skidding, spray on a wet runway, dust off it; a thump by how hard it came down.
		if (mnw.puff20) {
			auto ssqrt = [](float a) { return a < 0.0f ? -std::sqrt(-a) : std::sqrt(a); };
			float puff = 0.3f * ssqrt(total_skid_vel - 0.8f);
			int color = 7;
			if (atm.rway_fric_code > 0) { puff = 0.3f * ssqrt(total_z_vel); color = 22; }
			if (env.surf_tex <= 49) puff = 0.3f * ssqrt(total_z_vel);
			if (puff > 0.01f)
				spawn_puff((float)x_glo, (float)y_glo, (float)z_glo, vx_srf, vy_srf, vz_srf, (is_tire ? v.tire_radius[en] : 0.25f) * puff, color, 1);
		}
		if (p == 0)
			for (int k = 4; k >= 1; k--)
				if (def_dot < -(float)k) SOUND_play_buffer(40 + k, 1.0f, 1.0f);
		addFsgear(p, fx_spring + fx_fric, y_veh + def, z_veh);
		addFngear(p, fy_spring, x_veh, z_veh);
		addFagear(p, fz_spring + fz_fric, y_veh + def, x_veh);
	}
	if (!is_tire) return touching;

	// The tyre, in contact or not: its load, its skid, its spin.
	f.tire_skid_rat[en] = fltlim(sqr(total_skid_vel / 2.0f), 0.0f, 1.0f) * fltlim(5.0f * (total_fric_rat - 0.8f), 0.0f, 1.0f);
	if (f.tire_skid_rat[en] < 0.1f) f.tire_skid_rat[en] = 0.0f;
	f.tire_vrt_frc_veh[en] = force * ny;
	f.tire_vrt_def_veh[en] = def * ny;
	f.tire_net_thrust[en] = -fz_fric;
	f.tire_net_power[en] = total_z_vel * fz_fric;
	if (v.gear_type[en] == 1) {   // a skid does not turn
		f.term_omega[en] = f.tire_omega[en] = 0.0f;
	} else {
		f.term_omega[en] = total_z_vel / r_tire;
		const float mi = fltmax2(v.tire_mi[en], 0.01f), before = f.tire_omega[en];
		const float road = fltlim((f.tire_omega[en] - f.term_omega[en]) * mi / fltmax2(dt, 1e-4f) + trq, -frc_max * r_tire, frc_max * r_tire);
		f.tire_omega[en] += (trq - road) / mi * dt;
		const float over = (f.tire_omega[en] - f.term_omega[en]) * (before - f.term_omega[en]);
		if (over < 0.0f && std::fabs(f.tire_omega[en] - f.term_omega[en]) > 0.01f) f.tire_omega[en] = f.term_omega[en];
		if (f.tire_omega[en] * before < 0.0f) f.tire_omega[en] = 0.0f;   // brakes stop a wheel, they do not turn it back
		f.tire_rotation[en] = fltwrap(f.tire_rotation[en] + f.tire_omega[en] * con.radtodeg * dt, 0.0f, 360.0f);
	}
	if (touching) {
		const float skid = std::fabs(f.term_omega[en] * r_tire - f.tire_omega[en] * r_tire);
		if (std::fabs(f.tire_omega[en] * r_tire) < 0.5f && skid > 0.5f) {   // a locked wheel scrubs its tyre
			f.tire_drag_dis[en] += skid * dt;
			if (f.tire_drag_dis[en] > 100.0f && k < 5) f.fail_stat[rel_tire1 + k] = fail_inop;
		}
	}
	f.tire_drag_dis[en] *= 1.0f - 0.05f * dt;
	return touching;
}

void do_contact()
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float dt = mnw.prd_FM;
	steer_gears(v, f);
	f.onground_any = f.onground_all = 0;
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(0, en)) f.tire_vrt_def_veh[en] = f.tire_skid_rat[en] = 0.0f;
	if (ret_over_water()) {   // the hull and floats instead of the wheels
		do_water();
		do_water_bomber();
		return;
	}

	// The surface's rolling, braking and metal friction.
	float mco = 0.4f, rco = v.roll_co, bco = v.brake_co;
	const int t = env.surf_tex;
	if (t <= 49 || t == 165 || t == 171 || t == 166) { rco *= 4.0f; bco *= 0.75f; mco *= 2.0f; }
	else if (t == 164 || t == 170) { rco *= 2.0f; bco *= 0.75f; mco *= 0.5f; }
	else if (t == 167) bco *= 0.75f;
	else if (atm.rway_fric_code == 2 && f.V_msc > 0.0116f * std::sqrt(f.m_total * con.lcl_g / fltmax2(v.tire_s_contact, 1e-4f))) rco = bco = 0.01f;   // aquaplaning

	float steer0 = 0.0f;
	for (int en = en_wing1L; en <= 27; en++) {   // wing tips
		if (!ret_part_alive(0, en)) continue;
		float x, y, z;
		get_el_base_xyz(0, en, (float)v.els[en], &x, &y, &z);
		steer0 = 0.0f;
		handle_contact_point(0, en, f.dob_x, f.vx, x, 0.0f, mco, f.dob_y, f.vy, y, 0.0f, mco, v.gearcon[en], &steer0, f.dob_z, f.vz, z, 0.0f, mco, v.geardmp[en]);
	}
	for (int en = 44; en <= 60; en++) {   // bodies: a keel point and a top point every second station, about the part's place
		if (!ret_part_alive(0, en)) continue;
		int stations = 0, points = 0;
		ret_body_grid(0, en, 0, &stations, &points);
		for (int s = 0; s < stations; s += 2)
			for (int r : {points / 2, 0}) {
				steer0 = 0.0f;
				handle_contact_point(0, en, f.dob_x, f.vx, v.Xarm[en] + v.body_X[en][s][r], 0.0f, mco, f.dob_y, f.vy, v.Yarm[en] + v.body_Y[en][s][r], 0.0f, mco,
				                     0.25f * v.gearcon[en], &steer0, f.dob_z, f.vz, v.Zarm[en] + v.body_Z[en][s][r], 0.0f, mco, 0.25f * v.geardmp[en]);
			}
	}

	int braking = 0;
	for (int en = en_gear_lo; en <= en_gear_hi; en++) braking += ret_part_alive(0, en) && !v.gear_steers[en];
	braking = intmax2(braking, 1);
	int down[part_max] = {};
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		if (!ret_part_alive(0, en)) continue;
		const int k = en - en_gear_lo;
		const float omega_full = 4.0f;
		float part_brake = 0.001f;
		if (!v.gear_steers[en]) {
			part_brake += f.parkbrake;
			if (f.term_omega[en] > 2.0f * omega_full)   // anti-skid
				part_brake *= fltlim(1.0f - 2.0f * (f.term_omega[en] - f.tire_omega[en]) * v.tire_radius[en], 0.25f, 1.0f);
			if (f.parkbrake <= 0.99f && v.fbrk_on_td_EQ) {
				static const float target[6] = {0, 0, 0.125f, 0.155f, 0.225f, 0.4f};
				const int lvl = stg.auto_brake_lvl;
				if (lvl >= 2 && lvl <= 5) {
					braking_red += (20.0f * (f.g_axil - target[lvl]) - braking_red) * fltlim(dt, 0.0f, 1.0f);
					part_brake = fltlim(part_brake - braking_red, 0.0f, 1.0f);
				}
			}
			if (v.gear_xnodef[en] < -0.05f) part_brake += f.l_brake_add;
			if (v.gear_xnodef[en] > 0.05f) part_brake += f.r_brake_add;
		}
		f.tire_trq[en] = -v.m_max * con.g / braking * v.tire_radius[en] * part_brake * fltlim(f.tire_omega[en] / omega_full, -1.0f, 1.0f);
		float blown_fac = 0.0f;
		if (k < 5 && f.fail_stat[rel_tire1 + k] == fail_inop) {
			const int gt = v.gear_type[en];
			blown_fac = gt == 2 || gt == 4 ? 1.0f : gt == 3 ? 0.75f : gt >= 5 && gt <= 7 ? 0.5f : 0.0f;
		}
		float this_rco = rco, this_bco = bco, blown_dy = 0.0f;
		if (v.gear_type[en] == 1) this_rco = this_bco = mco;
		if (blown_fac > 0.0f) {   // on the rim: it bumps and drags
			blown_angle[k] = fltwrap(blown_angle[k] + f.term_omega[en] * con.radtodeg * dt, 0.0f, 360.0f);
			const float r = blown_angle[k] * con.degtorad;
			const float ran = 0.2f * (std::cos(r) + std::sin(r) + std::sin(2.0f * r) + std::cos(2.0f * r)) + 0.45f;
			this_rco += ran * blown_fac;
			this_bco += ran * blown_fac;
			blown_dy = (0.8f - 0.4f * ran) * v.tire_radius[en] * blown_fac;
		}
		down[en] = handle_contact_point(0, en, f.dob_x, f.vx, v.gear_xnodef[en], 0.0f, this_rco, f.dob_y, f.vy, v.gear_ynodef[en] - v.tire_radius[en] + blown_dy, 0.0f,
		                                this_bco, v.gearcon[en], &f.tire_steer[en], f.dob_z, f.vz, v.gear_znodef[en], 0.0f, this_bco * 0.7f, v.geardmp[en]);
	}
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (down[en]) f.onground_any = f.onground_all = 1;
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(0, en) && !down[en] && v.gear_type[en] != 1) f.onground_all = 0;
	if (mnw.cyc_out)
		cyc << "After landing gear: side " << f.fside_gear_acf << " normal " << f.fnrml_gear_acf << " axial " << f.faxil_gear_acf << "\n";
	do_water_bomber();
}
