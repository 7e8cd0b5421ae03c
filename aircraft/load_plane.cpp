// load_plane: an aircraft file becomes a flying aircraft in slot p.
#include "aircraft/load_plane.h"
#include "aircraft/acf_io.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "core/files.h"
#include "plugin/HL_PLUGIN.h"
#include "world/HL_WORLD.h"
#include "cockpit/HL_COCKPIT.h"
#include "render/HL_GRAPH.h"
#include "ui/HL_UI.h"
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

template <size_t N> void scale(float (&a)[N], float k) { for (float& x : a) x *= k; }
template <size_t N, size_t M> void scale(float (&a)[N][M], float k) { for (auto& r : a) scale(r, k); }
template <size_t N, size_t M, size_t K> void scale(float (&a)[N][M][K], float k) { for (auto& r : a) scale(r, k); }

void convert_units(veh_struct& v)
{
	v.power_max *= con.hptowatt;
	const float ft = con.fttomtrs;
	for (float* f : {&v.crit_alt_prop, &v.crit_alt_jet, &v.rock_h_opt, &v.jett_len, &v.cgZ_fwd, &v.cgZ_aft, &v.cgY, &v.cgZ,
	                 &v.jato_Y, &v.jato_Z, &v.brake_Y, &v.brake_Z, &v.chute_Y, &v.chute_Z, &v.tow_hook_Y, &v.tow_hook_Z,
	                 &v.win_hook_Y, &v.win_hook_Z, &v.mass_shift_dx, &v.mass_shift_dz, &v.flap_arm, &v.water_rud_longarm,
	                 &v.h_eqlbm, &v.vectarmY, &v.vectarmZ})
		*f *= ft;
	scale(v.pe_xyz, ft); scale(v.lanlite1_xyz, ft); scale(v.lanlite2_xyz, ft); scale(v.lanlite3_xyz, ft);
	scale(v.fuserb1_xyz, ft); scale(v.fuserb2_xyz, ft); scale(v.taillite_xyz, ft); scale(v.refuel_xyz, ft);
	scale(v.tank_X, ft); scale(v.tank_Y, ft); scale(v.tank_Z, ft); scale(v.jett_xyz, ft); scale(v.cockpit_xyz, ft);
	scale(v.exhaust_os_xyz, ft); scale(v.body_r, ft); scale(v.Xarm, ft); scale(v.Yarm, ft); scale(v.Zarm, ft);
	scale(v.Croot, ft); scale(v.Ctip, ft); scale(v.semilen_SEG, ft); scale(v.semilen_JND, ft);
	scale(v.body_X, ft); scale(v.body_Y, ft); scale(v.body_Z, ft); scale(v.gear_leglen, ft); scale(v.strut_comp, ft);
	scale(v.tire_radius, ft); scale(v.tire_swidth, ft); scale(v.gearstatdef, ft); scale(v.gear_door_geo, ft);
	scale(v.gear_door_loc, ft); scale(v.x_wpn_att, ft); scale(v.y_wpn_att, ft); scale(v.z_wpn_att, ft);
	for (int en = 0; en < part_max; en++)
		for (int el = 0; el < intlim(v.els[en], 0, el_max); el++) {   // the elements in use
			v.mac[en][el] *= ft;
			v.s[en][el] *= con.sftosmtr;
		}
	for (float* f : {&v.face_jet, &v.face_rocket, &v.water_rud_area, &v.brake_area, &v.chute_area}) *f *= con.sftosmtr;
	for (float* f : {&v.RSC_idlespeed_ENGN, &v.RSC_redline_ENGN, &v.RSC_mingreen_ENGN, &v.RSC_maxgreen_ENGN,
	                 &v.auto_omega_idle, &v.auto_omega_open, &v.auto_omega_fire})
		*f *= con.rpmtorsc;
	scale(v.des_rpm_prp, con.rpmtorsc);
	for (float* f : {&v.thrust_max, &v.rock_max_sl, &v.rock_max_opt, &v.rock_max_vac, &v.burner_inc, &v.jato_thrust, &v.nw_side_k})
		*f *= con.lbstontn;
	scale(v.puff_xyz, con.lbstontn);
	scale(v.puff_LMN, con.ftlbtonm);
	for (float* f : {&v.m_empty, &v.m_displaced, &v.m_max, &v.m_fuel_tot, &v.m_jettison, &v.mass_shift, &v.tip_weight})
		*f *= con.lbstokgs;
	v.blown_flap_add_speed *= con.ktstomsc;
	scale(v.gearcon, con.lbstokgs * con.g / ft);
	scale(v.geardmp, con.lbstokgs * con.g / ft);
	v.max_press_diff *= con.enptomep * 144.0f;
	const float r_steer = v.tire_radius[intlim(v.steer_gear, 0, part_max - 1)];
	v.nw_cutoff_omega = r_steer > 0.0f ? v.nw_cutoff_omega * con.ktstomsc / r_steer : 0.0f;
	for (int en = 0; en < engn_max; en++) {   // to mass flow per unit of power or thrust per second
		const int t = v.engn_type[en];
		if (t == 4 || t == 5 || t == 6 || t == 7) v.SFC[en] /= con.g;
		else if (t == 0 || t == 1 || t == 2 || t == 3 || t == 8) v.SFC[en] *= con.lbstokgs * con.watttohp;
		v.SFC[en] /= 3600.0f;
	}
	for (int en = 0; en < part_max; en++)
		for (float* a : {&v.sweep1[en], &v.sweep2[en], &v.dihed1[en], &v.dihed2[en]}) *a = fltwrap(*a, -180.0f, 180.0f);
}

void shift_to_cg(veh_struct& v)
{
	const float dy = v.cgY, dz = v.cgZ;
	auto yz = [dy, dz](float* p3) { p3[1] -= dy; p3[2] -= dz; };
	v.m_displaced_y -= dy;   // taken as it stands: the file's unit for it is not settled
	for (int en = 0; en < part_max; en++) { v.Yarm[en] -= dy; v.Zarm[en] -= dz; }
	for (auto& d : v.gear_door_loc) yz(d);
	for (int w = 0; w < wpn_max; w++) { v.y_wpn_att[w] -= dy; v.z_wpn_att[w] -= dz; }
	for (float* p3 : {v.pe_xyz, v.lanlite1_xyz, v.lanlite2_xyz, v.lanlite3_xyz, v.fuserb1_xyz, v.fuserb2_xyz,
	                  v.taillite_xyz, v.refuel_xyz, v.jett_xyz, v.cockpit_xyz})
		yz(p3);
	v.tow_hook_Y -= dy; v.tow_hook_Z -= dz; v.win_hook_Y -= dy; v.win_hook_Z -= dz;
	v.chute_Y -= dy; v.chute_Z -= dz; v.brake_Y -= dy; v.brake_Z -= dz; v.jato_Y -= dy; v.jato_Z -= dz;
	for (int t = 0; t < tank_max; t++) { v.tank_Y[t] -= dy; v.tank_Z[t] -= dz; }
	v.cgZ_fwd -= dz; v.cgZ_aft -= dz;
	v.cgY = v.cgZ = 0.0f;
	v.cgZ_fwd = fltmin2(v.cgZ_fwd, v.cgZ - 0.01f);
	v.cgZ_aft = fltmax2(v.cgZ_aft, v.cgZ + 0.01f);
}

void set_part_trig(int p, int en)
{
	const veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	f.sin_act_dihed[en] = std::sin(v.dihednow[en] * con.degtorad);
	f.cos_act_dihed[en] = std::cos(v.dihednow[en] * con.degtorad);
	f.sin_act_sweep[en] = std::sin(v.sweepnow[en] * con.degtorad);
	f.cos_act_sweep[en] = std::cos(v.sweepnow[en] * con.degtorad);
}

float dist3(const float a[3], const float b[3]) { return pythag(a[0] - b[0], a[1] - b[1], a[2] - b[2]); }

void finite_wing(int p, int en)
{
	veh_struct& v = veh[p];
	const int els = intlim(v.els[en], 1, el_max);
	float root[3], tip[3];
	for (int k = 0; k < 3; k++) {
		const char ax = "XYZ"[k];
		root[k] = get_el_base_loc(p, en, 0.0f, ax);
		tip[k] = get_el_base_loc(p, en, (float)v.els[en], ax);
	}
	float c_root = v.Croot[en], c_tip = v.Ctip[en];
	float inc_root = v.incidence[en][0], inc_tip = v.incidence[en][els - 1];
	if (en >= en_wing1L && en <= en_mwing_hi) {   // segments that meet tip to root are one wing
		for (int pass = 0; pass < 20; pass++)
			for (int sen = en_wing1L; sen <= en_mwing_hi; sen++) {
				if (sen == en || !ret_part_alive(p, sen)) continue;
				const int sels = intlim(v.els[sen], 1, el_max);
				float sroot[3], stip[3];
				for (int k = 0; k < 3; k++) {
					sroot[k] = get_el_base_loc(p, sen, 0.0f, "XYZ"[k]);
					stip[k] = get_el_base_loc(p, sen, (float)v.els[sen], "XYZ"[k]);
				}
				const float tr = c_root * 0.1f, tt = c_tip * 0.1f;
				if (std::fabs(root[0] - stip[0]) < tr && std::fabs(root[1] - stip[1]) < tr && std::fabs(root[2] - stip[2]) < tr &&
				    (root[0] != sroot[0] || root[1] != sroot[1] || root[2] != sroot[2])) {
					for (int k = 0; k < 3; k++) root[k] = sroot[k];
					c_root = v.Croot[sen];
					inc_root = v.incidence[sen][0];
					if (p == 0 && pass == 0)
						cyc << "   NOTE! I AM JOINING " << ret_part_name(en) << " AND " << ret_part_name(sen)
						    << " TO FORM ONE CONTINUOUS WING!\n";
				}
				if (std::fabs(tip[0] - sroot[0]) < tt && std::fabs(tip[1] - sroot[1]) < tt && std::fabs(tip[2] - sroot[2]) < tt &&
				    (tip[0] != stip[0] || tip[1] != stip[1] || tip[2] != stip[2])) {
					for (int k = 0; k < 3; k++) tip[k] = stip[k];
					c_tip = v.Ctip[sen];
					inc_tip = v.incidence[sen][sels - 1];
				}
			}
	}
	if (std::fabs(v.dihed1[en]) < 45.0f) root[0] = 0.0f;   // a flat wing counts from the centreline
	v.semilen_JND[en] = dist3(root, tip);
	const float r25[3] = {root[0], root[1], root[2] - c_root * 0.25f}, t25[3] = {tip[0], tip[1], tip[2] - c_tip * 0.25f};
	const float span_00_mac = dist3(r25, t25);
	const float sweep_25_mac = v.semilen_JND[en] > 0.0f
		? std::asin(fltlim((tip[2] - root[2]) / v.semilen_JND[en], -1.0f, 1.0f)) * con.radtodeg : 0.0f;
	const float q = span_00_mac > 0.0f ? fltlim(((tip[2] - c_tip * 0.25f) - (root[2] - c_root * 0.25f)) / span_00_mac, -1.0f, 1.0f) : 0.0f;
	const float sweep_00_mac = std::atan2(q, std::sqrt(1.0f - q * q)) * con.radtodeg;
	v.TR[en] = c_root > 0.0f ? c_tip / c_root : 1.0f;
	v.AR[en] = c_root + c_tip > 0.0f ? fltmax2(2.0f * v.semilen_JND[en] / ((c_root + c_tip) * 0.5f), 0.5f) : 0.5f;
	v.delta_fac[en] = interp(0.5f, 1.0f, 10.0f, 0.0f, v.AR[en], 0) * interp(65.0f, 1.0f, 0.0f, 0.0f, sweep_00_mac, 0) *
	                  interp(0.0f, 1.0f, 1.0f, 0.0f, v.TR[en], 0);
	const float washout = en <= en_engn_hi ? 0.0f : inc_root - inc_tip;
	v.e[en] = ret_e(v.AR[en], washout, sweep_25_mac, v.TR[en]);
	if (en >= en_wing1L && en <= en_mwing_hi)   // biplane interference
		for (int sen = en_wing1L; sen <= en_mwing_hi; sen++) {
			if (sen == en || !ret_part_alive(p, sen)) continue;
			const float dx = std::fabs(v.Xarm[en] - v.Xarm[sen]), dy = std::fabs(v.Yarm[en] - v.Yarm[sen]);
			const float dz = std::fabs(v.Zarm[en] - v.Zarm[sen]), dsl = std::fabs(v.semilen_SEG[en] - v.semilen_SEG[sen]);
			const float c1 = v.Ctip[en], c2 = v.Ctip[sen];
			if (std::fabs(v.dihed1[en]) < 45.0f && std::fabs(v.dihed1[sen]) < 45.0f && std::fabs(v.dihed1[en] - v.dihed1[sen]) < 10.0f &&
			    dx < c1 && dx < c2 && dsl < 2 * c1 && dsl < 2 * c2 && dy > 0.1f * c1 && dy > 0.1f * c2 && dy < 2 * c1 &&
			    dy < 2 * c2 && dx < dy && dz < dy) {
				const float avspan = v.semilen_SEG[en] + v.semilen_SEG[sen];
				const float r = avspan > 0.0f ? dy / avspan : 0.0f;
				const float sigma = 0.9962f - 4.896f * r + 17.98f * r * r - 37.8f * r * r * r + 31.0f * r * r * r * r;
				const float mu = fltmin2(v.semilen_SEG[en], v.semilen_SEG[sen]) / fltmax2(fltmax2(v.semilen_SEG[en], v.semilen_SEG[sen]), 1e-6f);
				v.e[en] = fltmax2(2.0f * mu * mu / (1.0f + 2.0f * sigma * mu + mu * mu), 0.5f);
				if (p == 0)
					cyc << "   Applying biplane interference factor to Oswalds Efficiency! between " << ret_part_name(en)
					    << " and " << ret_part_name(sen) << "\n";
			}
		}
	if (en <= en_engn_hi && v.is_ducted[en]) { v.e[en] = 1.0f; v.AR[en] *= 10.0f; }
	const float a0_theo = 18.0f / con.pi;
	const float ls_D_ls0 = 1.0f / (a0_theo / (con.pi * v.e[en] * v.AR[en]) + 1.0f);
	v.cl_D_cl0[en] = (std::sqrt(8.0f * ls_D_ls0 + 1.0f) + 1.0f) / 4.0f;
	v.al_D_al0[en] = ls_D_ls0 / v.cl_D_cl0[en];
	const float cs = std::cos(sweep_25_mac * con.degtorad);
	v.cm_D_cm0[en] = v.AR[en] * cs * cs / (v.AR[en] + 2.0f * cs);
	v.alpha_max[en] /= v.al_D_al0[en];
	if (p == 0)
		cyc << "   " << ret_part_name(en) << ": semilength " << v.semilen_JND[en] << " m, AR " << v.AR[en] << ", taper "
		    << v.TR[en] << ", sweep " << sweep_25_mac << " deg, e " << v.e[en] << ", lift slope ratio "
		    << v.cl_D_cl0[en] * v.al_D_al0[en] << "\n";
}

void propeller(int p, int en)
{
	veh_struct& v = veh[p];
	const int els = intlim(v.els[en], 0, el_max);
	for (int el = 0; el < els; el++) {
		const float r0 = get_el_base_loc(p, en, (float)el, 'X'), r1 = get_el_base_loc(p, en, (float)(el + 1), 'X');
		v.ringarea[en][el] = con.pi * (r1 * r1 - r0 * r0);
	}
	const float R = get_el_base_loc(p, en, (float)els, 'X');
	v.discarea[en] = con.pi * R * R;
	const airfoil_struct& a = v.afl[en];
	v.prop_mass[en] = v.semilen_SEG[en] * (v.Ctip[en] + v.Croot[en]) * 0.5f *
	                  (a.t_rat[1] * v.Ctip[en] + a.t_rat[0] * v.Croot[en]) * 0.5f * 0.6f * v.num_blades[en] * v.rotor_mi_rat * 2700.0f;
	v.mi_prop_rpm[en] = v.prop_mass[en] * sqr(v.semilen_SEG[en] * 0.707f);
	if (v.prop_type[en] == 6) v.mi_prop_rpm[en] *= 2.0f;
	if (v.prop_type[en] == 3 || v.prop_type[en] == 7)
		v.mi_prop_rpm[en] += v.tip_weight * v.num_blades[en] * sqr(v.semilen_SEG[en] * 0.85f);
}

void mass_and_inertia(int p)
{
	veh_struct& v = veh[p];
	float mas_engines = 0.0f, Jxx_e = 0.0f, Jyy_e = 0.0f, Jzz_e = 0.0f;
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		const float hp = con.watttohp * v.power_max, lb = con.ntntolbs * v.thrust_max;
		switch (v.engn_type[en]) {
		case 0: case 1: v.engn_mass[en] = v.MP_max > 0.0f ? std::pow(29.92f / v.MP_max, 1.5f) * hp * 1.75f * con.lbstokgs : 0.0f; break;
		case 3: v.engn_mass[en] = hp * 1.75f * con.lbstokgs; break;
		case 2: case 8: v.engn_mass[en] = hp * 0.5f * con.lbstokgs; break;
		case 4: case 5: v.engn_mass[en] = lb * 0.18f * con.lbstokgs; break;
		default: v.engn_mass[en] = lb * 0.01f * con.lbstokgs; break;
		}
		v.mi_engn_rpm[en] = v.trq_max_eng / fltmax2(v.RSC_redline_ENGN, 1.0f) * 0.4f;
		mas_engines = fltlim(mas_engines + v.engn_mass[en], 0.0f, v.m_empty * 0.5f);
		Jxx_e += (sqr(v.Yarm[en]) + sqr(v.Zarm[en])) * v.engn_mass[en];
		Jyy_e += (sqr(v.Xarm[en]) + sqr(v.Zarm[en])) * v.engn_mass[en];
		Jzz_e += (sqr(v.Xarm[en]) + sqr(v.Yarm[en])) * v.engn_mass[en];
	}
	// The shell: a flying surface weighs half of a body surface of the same area.
	float wet = 0.0f, Jxx_s = 0.0f, Jyy_s = 0.0f, Jzz_s = 0.0f;
	for (int en = en_wing1L; en <= en_pylb_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		for (int el = 0; el < intlim(v.els[en], 0, el_max); el++) {
			const float x = get_el_base_loc(p, en, el + 0.75f, 'X'), y = get_el_base_loc(p, en, el + 0.75f, 'Y');
			const float z = get_el_base_loc(p, en, el + 0.75f, 'Z'), s = v.s[en][el] * 0.5f;
			wet += s;
			Jxx_s += (y * y + z * z) * s;
			Jyy_s += (x * x + z * z) * s;
			Jzz_s += (x * x + y * y) * s;
		}
	}
	for (int en = en_fuse; en <= en_fair_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		v.s[en][0] = v.s[en][1] = v.s[en][2] = 0.0f;
		get_MI_S_body(p, en, 0, v.Xarm[en], v.Yarm[en], v.Zarm[en], &v.s[en][0], &v.s[en][1], &v.s[en][2],
		              &v.X_body_aero[en], &v.Y_body_aero[en], &v.Z_body_aero[en], &wet, &Jxx_s, &Jyy_s, &Jzz_s);
	}
	const float mas_shell = v.m_empty - mas_engines;
	const float k = wet > 0.0f ? mas_shell / wet : 0.0f;
	Jxx_s *= k; Jyy_s *= k; Jzz_s *= k;
	if (v.manual_rad_gyr) {
		v.Jxx_unitmass = sqr(con.fttomtrs * v.Jxx_unitmass);
		v.Jyy_unitmass = sqr(con.fttomtrs * v.Jyy_unitmass);
		v.Jzz_unitmass = sqr(con.fttomtrs * v.Jzz_unitmass);
	} else if (v.m_empty > 0.0f) {
		v.Jxx_unitmass = (Jxx_e + Jxx_s) / v.m_empty;
		v.Jyy_unitmass = (Jyy_e + Jyy_s) / v.m_empty;
		v.Jzz_unitmass = (Jzz_e + Jzz_s) / v.m_empty;
	}
	if (p == 0)
		cyc << "   engines " << mas_engines << " kg, shell " << mas_shell << " kg over " << wet << " m2; radii of gyration "
		    << std::sqrt(v.Jxx_unitmass) << " " << std::sqrt(v.Jyy_unitmass) << " " << std::sqrt(v.Jzz_unitmass) << " m\n";
}

void slats_downwash_mac(int p)
{
	veh_struct& v = veh[p];
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		int any = 0;
		for (int el = 0; el < el_max; el++) any |= v.slat[en][el] != 0;
		v.slat_effect[en] = any && v.alpha_max[en] != 0.0f ? (v.slat_inc + v.alpha_max[en]) / v.alpha_max[en] : 1.0f;
	}
	for (int washee = en_wing1L; washee <= en_mwing_hi; washee++)
		for (int washer = en_wing1L; washer <= en_mwing_hi; washer++) {
			if (washee == washer || !ret_part_alive(p, washee) || !ret_part_alive(p, washer)) continue;
			if (std::fabs(v.dihed1[washee]) >= 45.0f || std::fabs(v.dihed1[washer]) >= 45.0f) continue;
			if (!(v.Zarm[washer] < v.Zarm[washee])) continue;   // the washer is ahead
			if (std::fabs(v.dihednow[washee] - v.dihednow[washer]) >= 45.0f || v.lat_sign[washee] != v.lat_sign[washer]) continue;
			const float lo = std::fabs(get_el_base_loc(p, washer, 0.0f, 'X'));
			const float hi = std::fabs(get_el_base_loc(p, washer, (float)v.els[washer], 'X'));
			int any = 0;
			for (int el = 0; el < intlim(v.els[washee], 0, el_max); el++) {
				const float x = std::fabs(get_el_base_loc(p, washee, el + 0.5f, 'X'));
				if (x >= fltmin2(lo, hi) && x <= fltmax2(lo, hi)) { v.in_downwash[washee][washer][el] = 1; any = 1; }
			}
			if (!any || v.semilen_JND[washer] <= 0.0f) continue;
			const float yDs = std::fabs(v.Yarm[washee] - v.Yarm[washer]) / v.semilen_JND[washer];
			const float zDs = std::fabs(v.Zarm[washee] - v.Zarm[washer]) / v.semilen_JND[washer];
			v.spec_wash[washer] = interp(0.6f, 5.1f, 1.6f, 4.1f, zDs, 0) + interp(0.0f, 0.0f, 0.6f, -3.2f, yDs, 0) +
			                      interp(6.0f, 2.0f, 12.0f, -2.0f, v.AR[washer], 0) + interp(1.0f, -1.1f, 0.0f, 1.1f, v.TR[washer], 0);
			if (std::fabs(v.Zarm[washee] - v.Zarm[washer]) < std::fabs(v.Croot[washee] + v.Croot[washer])) v.spec_wash[washer] *= 0.5f;
		}
	float mac_sum = 0.0f;
	int mac_n = 0;
	for (int en = 0; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		const int els = intlim(v.els[en], 0, el_max);
		float s = 0.0f;
		for (int el = 0; el < els; el++) s += v.mac[en][el];
		v.average_MAC[en] = els ? s / els : 0.0f;
		if (en >= en_wing1L) { mac_sum += s; mac_n += els; }
	}
	v.average_MAC_acf = mac_n ? mac_sum / mac_n : 0.0f;
}

void fuel_and_payload(int p)
{
	veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	const int nt = intlim(v.num_tanks, 0, tank_max);
	for (int t = 0; t < tank_max; t++)   // at most half of an equal share in each tank
		f.m_fuel[t] = t < nt ? v.m_fuel_tot * fltmin2(v.tank_rat[t], 0.5f / nt) : 0.0f;
	f.m_fuel_total = f.m_fuel[0] + f.m_fuel[1] + f.m_fuel[2];
	f.m_jettison = v.jett_is_slung ? 0.0f : v.m_jettison * 0.5f;
	const float w = 0.0f;   // weapons carried: the weapon step adds them
	if (v.m_displaced > v.m_max * 0.5f) f.m_fixed = fltmax2(v.m_displaced - v.m_fuel_tot - v.m_jettison - v.m_empty - w, 0.0f);
	else f.m_fixed = fltmax2((v.m_max - v.m_fuel_tot - v.m_jettison - v.m_empty - w) * 0.5f, 0.0f);
}

}  // namespace

int load_plane(int p)
{
	if (p < 0 || p >= acf_max) return 0;
	veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	stg.numacf = intmax2(stg.numacf, p + 1);
	std::memset(f.fail_stat, 0, sizeof f.fail_stat);
	std::string path = v.path;
	size_t cut = path.find_last_of("\\:/");
	str_to_buf(v.name, cut == std::string::npos ? path : path.substr(cut + 1));
	NBPUpdatePlaneNameAndPath(p, v.name, v.path);
	const int got = IO_acf(0, p, 0);
	if (!got) {   // the default aircraft takes its place
		str_to_buf(v.name, stg.def_pln_file);
		str_to_buf(v.path, app_path + stg.def_pln_path);
		if (!IO_acf(0, p, 0))
			NB_ALERT("I could not find the plane requested, and I could also not find the following:", v.path,
			         "Be sure that default plane is in the 'Heavy Metal' folder in the 'Airplanes' folder.",
			         "That (default) airplane is required to start up. Re-Install the 'Planes' folder from the CD if needed.",
			         alert_fatal);
	}
	const std::string rel = std::string(v.path).substr(std::min(acf_path.size(), std::strlen(v.path)));
	v.is_ga = rel.rfind("General Aviation", 0) == 0;
	v.is_hm = rel.rfind("Heavy Metal", 0) == 0;
	if (p == 0) cyc << "\nLoading the aircraft " << v.path << "\n";
	f.over_g = f.over_vne = f.over_vfe = f.over_vle = 0;
	convert_units(v);
	const float gear_rat = v.prop_gear_rat[0] != 0.0f ? v.prop_gear_rat[0] : 1.0f;
	v.RSC_idlespeed_PROP = v.RSC_idlespeed_ENGN / gear_rat;
	v.RSC_redline_PROP = v.RSC_redline_ENGN / gear_rat;
	v.RSC_mingreen_PROP = v.RSC_mingreen_ENGN / gear_rat;
	v.RSC_maxgreen_PROP = v.RSC_maxgreen_ENGN / gear_rat;
	v.trq_max_eng = v.RSC_redline_ENGN > 0.0f ? v.power_max / v.RSC_redline_ENGN : 0.0f;
	for (int en = 0; en < part_max; en++)
		v.tire_mi[en] = 2500.0f * sqr(v.tire_radius[en]) * 2.0f * v.tire_swidth[en] * sqr(v.tire_radius[en]);
	v.V_ref_ms = con.ktstomsc * fltlim(v.Vso_kts * 1.3f, 50.0f, 250.0f);
	const float vect_span = v.vect_max_disc - v.vect_min_disc;
	if (vect_span != 0.0f) v.vect_rate /= vect_span;
	v.EPR_max = v.thrust_max / fltmax2(con.sl_P_pas * v.face_jet, 1.0f) + 1.0f;
	v.idle_rat[0] *= 0.75f;
	shift_to_cg(v);
	v.tire_s_contact = 0.0f;
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(p, en)) v.tire_s_contact += std::sin(4.0f * con.degtorad) * v.tire_radius[en] * v.tire_swidth[en];
	for (int en = 0; en < afl_part_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		v.element_len[en] = v.els[en] > 0 ? v.semilen_SEG[en] / v.els[en] : 0.0f;
		const airfoil_struct& a = v.afl[en];
		v.alpha_max[en] = 0.25f * (a.almax[0][0] + a.almax[0][1] + a.almax[1][0] + a.almax[1][1]);
		v.sweepnow[en] = v.sweep1[en];
		v.dihednow[en] = v.dihed1[en];
		set_part_trig(p, en);
	}
	for (int en = 0; en < afl_part_max; en++)
		if (ret_part_alive(p, en)) finite_wing(p, en);
	v.max_boost_pas_prop = (1.0f - find_standard_rho(0, v.crit_alt_prop) / 1.225f) * 101325.0f;
	v.max_boost_pas_jet = (1.0f - find_standard_rho(0, v.crit_alt_jet) / 1.225f) * 101325.0f;
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
		if (ret_part_alive(p, en) && (en_is_prop(p, en) || v.engn_type[en] == 7)) propeller(p, en);
	mass_and_inertia(p);
	slats_downwash_mac(p);
	for (int w = 0; w < wpn_max; w++)
		if (v.wpn_name[w][0]) IO_wpn(0, p, w, v.wpn_name[w], C_s, 0);
	fuel_and_payload(p);
	if (p == 0) mnw.hobs_time = (float)std::rand() * 1000.0f / 32767.0f * 3600.0f;
	load_plane_geo(1, 0, 0, p);
	if (p == 0) load_panel_for_plane();
	if (v.m_max > 0.0f) scn.vis_scale = v.size_tot * 2.0f / (con.g * v.m_max);
	if (p == 0) {
		SOUND_start_stop(0);
		load_plane_sounds();
		SOUND_start_stop(1);
	}
	NBPEventHook(3, mnw.real_time, 0, p, 0);
	return got;
}
