// Control deflections and moving geometry, once a pass: variable sweep, dihedral and
// incidence, the element incidences of flying surfaces, the moving ratios of flaps,
// slats and speedbrake, and every surface's deflection from the flight controls.
// Gear, thrust vectoring, differential throttle and the collective come with their steps.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

static float toward(float v, float target, float step)
{
	if (std::fabs(target - v) < 0.0001f) return target;
	return v < target ? fltmin2(v + step, target) : fltmax2(v - step, target);
}

static float sgn(float x) { return x < 0.0f ? -1.0f : 1.0f; }
static int is_jet(int t) { return t == 4 || t == 5; }

static void gear_and_doors(int p, veh_struct& v, flt_struct& f)
{
	const float dt = mnw.prd_FM;
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		if (!v.gear_retract) { v.gear_deploy[en] = 1.0f; continue; }
		const int stuck = en - en_gear_lo < 5 && f.fail_stat[rel_lagear1 + en - en_gear_lo] == fail_inop;
		if (!ret_part_alive(p, en) || stuck) continue;
		const float rate = randrat[(int)(en + mnw.totl_time) % randrat_max] + 0.5f;   // each leg at its own pace
		const float step = v.gear_cyctim[en] > 0.0f ? dt / v.gear_cyctim[en] * rate : 1.0f;
		v.gear_deploy[en] = fltlim(v.gear_deploy[en] + (f.gear_handle ? step : -step), 0.0f, 1.0f);
	}
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		const float d = v.gear_deploy[en];
		v.gear_latN[en] = v.gear_latR[en] + d * (v.gear_latE[en] - v.gear_latR[en]);
		v.gear_lonN[en] = v.gear_lonR[en] + d * (v.gear_lonE[en] - v.gear_lonR[en]);
		v.gear_axiN[en] = v.gear_axiR[en] + d * (v.gear_axiE[en] - v.gear_axiR[en]);
		const float lat = v.gear_latN[en] * con.degtorad, lon = v.gear_lonN[en] * con.degtorad;
		const float leg = v.gear_leglen[en] - (1.0f - d) * v.strut_comp[en];
		v.gear_xnodef[en] = v.Xarm[en] + std::sin(lat) * leg * std::cos(lon);
		v.gear_ynodef[en] = v.Yarm[en] - std::cos(lat) * leg * std::cos(lon) - v.gearstatdef[en] * d * std::cos(v.the_eqlbm * con.degtorad);
		v.gear_znodef[en] = v.Zarm[en] - std::sin(lon) * leg;
		const float dx = v.gear_xnodef[en] - v.Xarm[en], dy = v.gear_ynodef[en] - v.Yarm[en], dz = v.gear_znodef[en] - v.Zarm[en];
		f.gear_psi[en] = std::atan2(dx, -dz) * con.radtodeg;
		f.gear_the[en] = std::atan2(dy, pythag(dx, dz)) * con.radtodeg;
		f.gear_phi[en] = 0.0f;
	}
	for (int k = 0; k < 10; k++) {   // each door follows the nearest gear
		if (!v.gear_door_typ[k]) continue;
		int best = -1;
		float bd = 1e30f;
		for (int en = en_gear_lo; en <= en_gear_hi; en++) {
			if (!ret_part_alive(p, en)) continue;
			const float dd = sqr(v.Xarm[en] - v.gear_door_loc[k][0]) + sqr(v.Zarm[en] - v.gear_door_loc[k][2]);
			if (dd < bd) { bd = dd; best = en; }
		}
		if (best < 0) continue;
		const float d = v.gear_deploy[best], r = v.gear_door_ret_ang[k], e = v.gear_door_ext_ang[k];
		float open = d;
		if (v.gear_door_typ[k] == 1) open = fltlim(d / 0.2f, 0.0f, 1.0f);
		if (v.gear_door_typ[k] == 3) open = d < 0.8f ? fltlim(d / 0.2f, 0.0f, 1.0f) : fltlim((1.0f - d) / 0.2f, 0.0f, 1.0f);
		v.gear_door_ang_now[k] = r + open * (e - r);
	}
}

static void thrust_vector(int p, const veh_struct& v, flt_struct& f)
{
	auto between = [](float lo, float hi, float r) { return fltlim(lo + r * (hi - lo), fltmin2(lo, hi), fltmax2(lo, hi)); };
	const float nace_add = between(v.vect_min_nace, v.vect_max_nace, f.vect_rat);
	const float disc_add = between(v.vect_min_disc, v.vect_max_disc, f.vect_rat);
	for (int en = 0; en < engn_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		const int vec = v.inc_vect[en][0] != 0;
		f.vert_nace_cant_vector[en] = v.vert_cant_init[en] + (vec ? nace_add : 0.0f);
		f.vert_disc_cant_vector[en] = v.vert_cant_init[en] + (vec ? disc_add : 0.0f);
		const float n = f.vert_nace_cant_vector[en] * con.degtorad;   // the thrust point swings with the nacelle
		f.POINT_XYZ[en][0] = v.Xarm[en];
		f.POINT_XYZ[en][1] = v.Yarm[en] - v.vectarmZ * std::sin(n) + v.vectarmY * std::cos(n);
		f.POINT_XYZ[en][2] = v.Zarm[en] + v.vectarmZ * std::cos(n) + v.vectarmY * std::sin(n);
		float dv = 0.0f, ds = 0.0f;
		if (v.prop_type[en] != 6) {   // vectoring for control, phased in or out with the disc
			const float s = std::sin(f.vert_disc_cant_vector[en] * con.degtorad), c = std::cos(f.vert_disc_cant_vector[en] * con.degtorad);
			const float x = f.POINT_XYZ[en][0], y = f.POINT_XYZ[en][1], z = f.POINT_XYZ[en][2];
			if (v.phase_ptch_tvect_in_at_00) dv -= v.tvec_ptch * f.FC_ptch * sgn(z) * c;
			if (v.phase_roll_tvect_in_at_00) dv -= v.tvec_roll * f.FC_roll * sgn(x) * c;
			if (v.phase_hdng_tvect_in_at_00) ds -= v.tvec_hdng * f.FC_hdng * sgn(z) * c;
			if (v.phase_ptch_tvect_in_at_90) dv += v.tvec_ptch * f.FC_ptch * sgn(y) * s;
			if (v.phase_roll_tvect_in_at_90) ds += v.tvec_roll * f.FC_roll * sgn(y) * s;
			if (v.phase_hdng_tvect_in_at_90) dv += v.tvec_hdng * f.FC_hdng * sgn(x) * s;
		}
		f.vert_disc_cant_cyclic[en] = dv + f.vert_disc_cant_vector[en] + f.cyclic_elev_disc_tilt[en];
		f.side_disc_cant_cyclic[en] = ds + v.side_cant_init[en] + f.cyclic_ailn_disc_tilt[en];
	}
}

void update_def_angles(int p)
{
	if (p < 0 || p >= acf_max) return;
	veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	const float dt = mnw.prd_FM;
	gear_and_doors(p, v, f);
	thrust_vector(p, v, f);
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		// Differential throttle; then the throttle opens at a limited rate and closes at once.
		float d = 0.0f;
		if (!net.getting_thro) {
			const float s = std::sin(f.vert_disc_cant_vector[en] * con.degtorad), c = std::cos(f.vert_disc_cant_vector[en] * con.degtorad);
			if (std::fabs(v.Zarm[en]) > 0.01f) d -= v.diff_thro_ptch * f.FC_ptch * sgn(v.Zarm[en]) * s;
			if (std::fabs(v.Xarm[en]) > 0.01f) {
				d -= v.diff_thro_roll * f.FC_roll * sgn(v.Xarm[en]) * s;
				d -= v.diff_thro_hdng * f.FC_hdng * sgn(v.Xarm[en]) * c;
			}
		}
		const float T = is_jet(v.engn_type[en]) ? v.throt_time_jet : v.throt_time_prop;
		const float t = fltlim(f.CONT_thro_ref[en] + d, 0.0f, v.throt_max_FWD);
		f.CONT_thro_use[en] = fltmin2(t, f.CONT_thro_use[en] + (T > 0.0f ? dt / T : 1.0f));
		f.ENGN_burner_rat[en] = fltlim(f.ENGN_burner_rat[en] + (f.ENGN_burner_on[en] ? 0.5f : -0.5f) * dt, 0.0f, 1.0f);
	}
	for (int en = en_wing1L; en <= en_pylb_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		v.sweepnow[en] = v.sweep1[en];
		v.dihednow[en] = v.dihed1[en];
		v.incnow[en] = 0.0f;
		if (v.varsweep[en]) v.sweepnow[en] += f.swdi_rat * fltwrap(v.sweep2[en] - v.sweep1[en], -180.0f, 180.0f);
		if (v.vardihed[en]) v.dihednow[en] += f.swdi_rat * fltwrap(v.dihed2[en] - v.dihed1[en], -180.0f, 180.0f);
		if (v.varinc[en]) v.incnow[en] = v.inc2[en] * f.swdi_rat;
		if (en <= en_wing4R) v.dihednow[en] -= v.wing_tilt_roll * f.FC_roll * v.lat_sign[en];
		f.foil_swe_inc[en] = v.sweepnow[en] - v.sweep1[en];
		f.foil_dih_inc[en] = v.dihednow[en] - v.dihed1[en];
	}
	const float stab_delinc = v.stab_delinc_to_Vne * fltlim(v.Vne_kts > 0.0f ? f.v_ind_kts / v.Vne_kts : 0.0f, 0.0f, 1.0f);
	for (int en = 0; en < part_max; en++)
		for (int el = 0; el < el_max; el++) f.elem_inc_inc[en][el] = 0.0f;
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		const int canard = (v.delta_fac[en] * 0.25f + 0.25f) * v.Croot[en] + v.Zarm[en] < 0.0f;
		f.stab_def = 0.0f;
		if (f.elev_trim < 0.0f) f.stab_def = f.elev_trim / v.min_trim_elev * (canard ? v.hstb_trim_up : -v.hstb_trim_dn);
		if (f.elev_trim > 0.0f) f.stab_def = f.elev_trim / v.max_trim_elev * (canard ? v.hstb_trim_dn : -v.hstb_trim_up);
		for (int el = 0; el < el_max; el++) {
			float& inc = f.elem_inc_inc[en][el];
			if (v.wing_tilt_ptch != 0.0f) inc += v.wing_tilt_ptch * f.FC_ptch;
			if (v.inc_ail1[en][el]) inc -= f.ail1_def[en];
			if (v.inc_ail2[en][el]) inc -= f.ail2_def[en];
			if (v.inc_elev[en][el]) inc -= f.elev_def[en];
			if (v.inc_rudd[en][el]) inc -= f.rudd_def[en];
			if (v.inc_trim[en][el]) inc += f.stab_def;
			if (v.varinc[en]) inc += v.incnow[en];
			if (en == en_hstbL || en == en_hstbR) inc += stab_delinc;
		}
	}
	if (tot_volt_avail() > 0.1f) {
		if (v.varsweepEQ || v.vardihedEQ || v.varincEQ) f.swdi_rat = toward(f.swdi_rat, f.swdi_rqst, 0.1f * dt);
		if (v.vect_EQ) f.vect_rat = toward(f.vect_rat, f.vect_rqst, v.vect_rate * dt);
		if (v.flapEQ && v.flap_deftime > 0.0f) f.flap_rat = toward(f.flap_rat, f.flap_rqst, dt / v.flap_deftime);
		if (v.slatEQ && f.fail_stat[rel_fc_slt] != fail_inop && v.flap_deftime > 0.0f)
			f.slat_rat = toward(f.slat_rat, f.slat_rqst, 4.0f * dt / v.flap_deftime);
		const float k = fltlim(3.0f * dt, 0.0f, 1.0f);
		f.sbrk_rat = fltlim(k * f.sbrk_rqst + (1.0f - k) * f.sbrk_rat, 0.0f, 1.0f);
	}
	const float lo1 = -fltmax2(v.ail1_dn, v.ail1_flaps) - std::fabs(v.ail1_pitch), hi1 = fltmax2(v.ail1_up, v.ail1_flaps) + std::fabs(v.ail1_pitch);
	const float lo2 = -fltmax2(v.ail2_dn, v.ail2_flaps) - std::fabs(v.ail2_pitch), hi2 = fltmax2(v.ail2_up, v.ail2_flaps) + std::fabs(v.ail2_pitch);
	const int fd = intlim(v.flap_detents, 0, 7);
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		const float ls = v.lat_sign[en];
		const float r = v.is_left[en] ? -f.FC_roll : f.FC_roll;   // positive: trailing edge up on this side
		f.ail1_def[en] = fltlim((r > 0.0f ? r * v.ail1_up : r * v.ail1_dn) + f.FC_ptch * v.ail1_pitch - f.flap_rat * v.ail1_flaps, lo1, hi1);
		f.ail2_def[en] = fltlim((r > 0.0f ? r * v.ail2_up : r * v.ail2_dn) + f.FC_ptch * v.ail2_pitch - f.flap_rat * v.ail2_flaps, lo2, hi2);
		if (f.v_ind_kts > v.ail1_vmax) f.ail1_def[en] = 0.0f;
		if (f.v_ind_kts > v.ail2_vmax) f.ail2_def[en] = 0.0f;
		f.spo1_def[en] = v.roll_to_eng_spo1 < 1.0f ? fltmax2(0.0f, (r - v.roll_to_eng_spo1) / (1.0f - v.roll_to_eng_spo1) * v.spo1_up) : 0.0f;
		f.spo2_def[en] = v.roll_to_eng_spo2 < 1.0f ? fltmax2(0.0f, (r - v.roll_to_eng_spo2) / (1.0f - v.roll_to_eng_spo2) * v.spo2_up) : 0.0f;
		if (f.v_ind_kts > v.spo1_vmax) f.spo1_def[en] = 0.0f;
		if (f.v_ind_kts > v.spo2_vmax) f.spo2_def[en] = 0.0f;
		f.yawb_def[en] = fltmax2(0.0f, (v.is_left[en] ? -f.FC_hdng : f.FC_hdng) * v.yawb_ud);
		float e = f.FC_ptch > 0.0f ? f.FC_ptch * v.elev_up : f.FC_ptch * v.elev_dn;
		if (v.rev_con[en]) e = -e;
		f.elev_def[en] = e + f.FC_roll * v.stab_roll * ls - f.FC_hdng * v.stab_hdng * ls;
		f.rudd_def[en] = -f.FC_hdng * v.rudd_lr * sgn(v.dihednow[en]) * ls * (v.rev_con[en] ? -1.0f : 1.0f);
		float fl = v.flap_dn[0] + f.flap_rat * (v.flap_dn[fd] - v.flap_dn[0]) - v.flap_roll * f.FC_roll * ls - v.flap_ptch * f.FC_ptch * sgn(v.Zarm[en]);
		fl = fltlim(fl, fltmin2(v.flap_dn[0], v.flap_dn[fd]), fltmax2(v.flap_dn[0], v.flap_dn[fd]));
		if ((v.is_left[en] && f.fail_stat[rel_fc_L_flp] == fail_inop) || (!v.is_left[en] && f.fail_stat[rel_fc_R_flp] == fail_inop)) fl = 0.0f;
		f.flap_def[en] = fl;
	}
	// The collective and the tail rotor's pitch.
	float coll_rat = 0.0f;
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
		if (v.prop_type[en] == 3)
			coll_rat = v.max_pitch[en] != v.min_pitch[en] ? fltlim((f.POINT_pitch_deg_ref[en] - v.min_pitch[en]) / (v.max_pitch[en] - v.min_pitch[en]), 0.0f, 1.0f) : 0.5f;
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++) {
		if (v.prop_type[en] == 5) {   // right pedal unloads the tail rotor against a main rotor turning clockwise
			const float x = v.prop_dir[0] > 0.0f ? -f.FC_hdng : f.FC_hdng;
			const float pitch = fltlim(interp(-1.0f, v.min_pitch[en], 1.0f, v.max_pitch[en], x, 0), v.min_pitch[en], v.max_pitch[en]);
			f.POINT_pitch_deg_ref[en] = f.POINT_pitch_deg_use[en] = pitch + coll_rat * v.tail_with_coll;
		} else {
			const float s = std::sin(f.vert_disc_cant_vector[en] * con.degtorad), c = std::cos(f.vert_disc_cant_vector[en] * con.degtorad);
			f.POINT_pitch_deg_use[en] = f.POINT_pitch_deg_ref[en] - v.diff_coll_with_hdng * f.FC_hdng * c * sgn(v.Xarm[en]) -
			                            v.diff_coll_with_roll * f.FC_roll * s * sgn(v.Xarm[en]) - v.diff_coll_with_ptch * f.FC_ptch * s * sgn(v.Zarm[en]);
		}
	}
	f.sin_the = std::sin(f.the * con.degtorad); f.cos_the = std::cos(f.the * con.degtorad);
	f.sin_psi = std::sin(f.psi * con.degtorad); f.cos_psi = std::cos(f.psi * con.degtorad);
	f.sin_phi = std::sin(f.phi * con.degtorad); f.cos_phi = std::cos(f.phi * con.degtorad);
	for (int en = en_wing1L; en <= en_pylb_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		f.sin_act_dihed[en] = std::sin(v.dihednow[en] * con.degtorad);
		f.cos_act_dihed[en] = std::cos(v.dihednow[en] * con.degtorad);
		f.sin_act_sweep[en] = std::sin(v.sweepnow[en] * con.degtorad);
		f.cos_act_sweep[en] = std::cos(v.sweepnow[en] * con.degtorad);
	}
}
