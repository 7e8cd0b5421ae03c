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

static float sgn(float x) { return x > 0.0f ? 1.0f : x < 0.0f ? -1.0f : 0.0f; }

void update_def_angles(int p)
{
	if (p < 0 || p >= acf_max) return;
	veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	const float dt = mnw.prd_FM;
	// Throttle opens at a limited rate and closes at once.
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		const float T = (v.engn_type[en] == 4 || v.engn_type[en] == 5) ? v.throt_time_jet : v.throt_time_prop;
		const float t = fltlim(f.CONT_thro_ref[en], 0.0f, v.throt_max_FWD);
		f.CONT_thro_use[en] = fltmin2(t, f.CONT_thro_use[en] + (T > 0.0f ? dt / T : 1.0f));
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
		if (v.prop_type[en] == 5) {   // pedals set the tail rotor's pitch, in the sense of its rotation
			const float x = v.prop_dir[en] >= 0.0f ? f.FC_hdng : -f.FC_hdng;
			const float pitch = fltlim(interp(-1.0f, v.min_pitch[en], 1.0f, v.max_pitch[en], x, 0), v.min_pitch[en], v.max_pitch[en]);
			f.POINT_pitch_deg_ref[en] = f.POINT_pitch_deg_use[en] = pitch + coll_rat * v.tail_with_coll;
		} else {
			const float s = std::sin(f.vert_disc_cant_vector[en] * con.degtorad), c = std::cos(f.vert_disc_cant_vector[en] * con.degtorad);
			f.POINT_pitch_deg_use[en] = f.POINT_pitch_deg_ref[en] - v.diff_coll_with_hdng * f.FC_hdng * c * sgn(v.Xarm[en]) -
			                            v.diff_coll_with_roll * f.FC_roll * s * sgn(v.Xarm[en]) - v.diff_coll_with_ptch * f.FC_ptch * s * sgn(v.Zarm[en]);
		}
		// Until thrust vectoring comes, the disc stands at its built-in cants.
		f.vert_disc_cant_cyclic[en] = v.vert_cant_init[en] + f.vert_disc_cant_vector[en] + f.cyclic_elev_disc_tilt[en];
		f.side_disc_cant_cyclic[en] = v.side_cant_init[en] + f.cyclic_ailn_disc_tilt[en];
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
