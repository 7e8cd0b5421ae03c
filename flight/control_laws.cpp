// The control laws between the commands (stick, autopilot) and the surfaces and engines:
// artificial stability, trim, the final mix, touchdown actions, linkages, propeller mode,
// burner, engine control and the propeller governors.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

namespace {

int old_onground_any, old_atidle;

int is_jet(int t) { return t == 4 || t == 5; }

void artificial_stability(const veh_struct& v, flt_struct& f)
{
	if (net.getting_astab) return;
	const float c_p = mnw.YK_ptch + nav.AP_ptch + f.elev_trim;
	const float c_h = mnw.YK_hdng + nav.AP_hdng + f.rudd_trim;
	const float c_r = mnw.YK_roll + nav.AP_roll + f.ailn_trim;
	const float vk = f.v_ind_kts, hs = fltlim(vk * 0.2f, 0.0f, 1.0f);
	auto lo = [vk](float a, float b) { return interp(a, 1.0f, b, 0.0f, vk, 0); };
	const float lo_p = lo(v.ASlo_the_V, v.AShi_the_V), hi_p = (1.0f - lo_p) * hs;
	const float lo_h = lo(v.ASlo_psi_V, v.AShi_psi_V), hi_h = (1.0f - lo_h) * hs;
	const float lo_r = lo(v.ASlo_phi_V, v.AShi_phi_V), hi_r = (1.0f - lo_r) * hs;
	// Low speed: rate command, and attitude command on top where the design asks.
	float p_lo = (c_p * v.ASlo_max_thedot - f.Q) * v.ASlo_thedot_k;
	float h_lo = (c_h * v.ASlo_max_psidot - f.R) * v.ASlo_psidot_k;
	float r_lo = (c_r * v.ASlo_max_phidot - f.P) * v.ASlo_phidot_k;
	if (v.lo_speed_is_position) {
		p_lo += v.ASlo_the_k * fltwrap(c_p * v.ASlo_max_the - f.the, -180.0f, 180.0f);
		r_lo += v.ASlo_phi_k * fltwrap(c_r * v.ASlo_max_phi - f.phi, -180.0f, 180.0f);
	}
	// High speed: load, alpha and sideslip command.
	const float p_hi = (c_p * v.AShi_max_G - f.g_nrml) * v.AShi_G_k - nav.Glo_dot * v.AShi_Gdot_k +
	                   (c_p * v.AShi_max_alpha - nav.alph_use) * v.AShi_alpha_k - nav.alp_dot * v.AShi_alphadot_k;
	const float h_hi = (c_h * v.AShi_max_beta - nav.beta_use) * v.AShi_beta_k - f.R * v.AShi_betadot_k;
	const float r_hi = (c_r * v.AShi_max_phidot - f.P) * v.AShi_phidot_k;
	if (!stg.yaw_damper_on) h_lo = 0.0f;
	if (!stg.art_stab_on) p_lo = h_lo = r_lo = 0.0f;
	const int failed = f.fail_stat[rel_stbaug] == fail_inop;
	mnw.AS_ptch = failed ? 0.0f : (p_hi * hi_p + p_lo * lo_p) * nav.c_rat_artstab;
	mnw.AS_hdng = failed || f.onground_all ? 0.0f : (h_hi * hi_h + h_lo * lo_h) * nav.c_rat_artstab;
	mnw.AS_roll = failed ? 0.0f : (r_hi * hi_r + r_lo * lo_r) * nav.c_rat_artstab;
}

void final_controls(const veh_struct& v, flt_struct& f)
{
	const float dt = mnw.prd_FM;
	if (v.auto_trim_EQ) f.elev_trim += 0.1f * mnw.YK_ptch * dt;
	f.elev_trim = fltlim(f.elev_trim, -v.min_trim_elev, v.max_trim_elev);
	f.ailn_trim = fltlim(f.ailn_trim, -v.min_trim_ailn, v.max_trim_ailn);
	f.rudd_trim = fltlim(f.rudd_trim, -v.min_trim_rudd, v.max_trim_rudd);
	if (f.fail_stat[rel_trim_elv] == fail_inop) f.elev_trim = 0.0f;
	if (f.fail_stat[rel_trim_ail] == fail_inop) f.ailn_trim = 0.0f;
	if (f.fail_stat[rel_trim_rud] == fail_inop) f.rudd_trim = 0.0f;
	if (net.getting_flightcons) return;
	// Without hydraulics the pilot's authority drops to the manual reversion share.
	const float tot_auth = fltmax2(fltlim(1.5f * rel.hyd_rat, 0.0f, 1.0f), v.manual_reversion_rat);
	f.FC_ptch = (mnw.YK_ptch + nav.AP_ptch + mnw.AS_ptch) * tot_auth + v.elev_tab;
	f.FC_hdng = (mnw.YK_hdng + nav.AP_hdng + mnw.AS_hdng) * tot_auth + v.rudd_tab;
	f.FC_roll = (mnw.YK_roll + nav.AP_roll + mnw.AS_roll) * tot_auth + v.ailn_tab;
	if (std::fabs(v.rudd_with_ailn_rat) > 0.01f) f.FC_hdng += f.FC_roll * v.rudd_with_ailn_rat;
	if (std::fabs(v.elev_with_flap_rat) > 0.01f) f.FC_ptch += f.flap_rat * v.elev_with_flap_rat;
	if (!v.is_flying_stab) f.FC_ptch += f.elev_trim;
	f.FC_hdng += f.rudd_trim;
	f.FC_roll += f.ailn_trim;
	f.FC_ptch = fltlim(f.FC_ptch, -1.0f, 1.0f);
	f.FC_hdng = fltlim(f.FC_hdng, -1.0f, 1.0f);
	f.FC_roll = fltlim(f.FC_roll, -1.0f, 1.0f);
	if (f.fail_stat[rel_fc_ail_L] == fail_inop) f.FC_roll = fltlim(f.FC_roll, 0.0f, 1.0f);
	if (f.fail_stat[rel_fc_ail_R] == fail_inop) f.FC_roll = fltlim(f.FC_roll, -1.0f, 0.0f);
	if (f.fail_stat[rel_fc_elv_U] == fail_inop) f.FC_ptch = fltlim(f.FC_ptch, -1.0f, 0.0f);
	if (f.fail_stat[rel_fc_elv_D] == fail_inop) f.FC_ptch = fltlim(f.FC_ptch, 0.0f, 1.0f);
	if (f.fail_stat[rel_fc_rud_L] == fail_inop) f.FC_hdng = fltlim(f.FC_hdng, 0.0f, 1.0f);
	if (f.fail_stat[rel_fc_rud_R] == fail_inop) f.FC_hdng = fltlim(f.FC_hdng, -1.0f, 0.0f);
}

void touchdown_and_brakes(const veh_struct& v, flt_struct& f)
{
	if (f.onground_any && !old_onground_any && f.V_msc > 1.0f) {
		if (v.sbrk_on_td_EQ && f.sbrk_rqst < 0.0f) f.sbrk_rqst = 1.0f;   // armed
		if (v.fbrk_on_td_EQ && stg.auto_brake_lvl >= 2 && stg.auto_brake_lvl <= 5) f.parkbrake = 1.0f;
		touchdown_keys(v.revt_on_td_EQ);
	}
	old_onground_any = f.onground_any;
	float lo_thro = 1e9f;
	for (int en = 0; en < v.num_engines && en < engn_max; en++) lo_thro = fltmin2(lo_thro, f.CONT_thro_ref[en]);
	const int atidle = v.num_engines > 0 && lo_thro < 0.1f;
	if (atidle && !old_atidle && stg.auto_brake_lvl == 0) f.parkbrake = 1.0f;   // a rejected take-off
	old_atidle = atidle;
	const int steer = intlim(v.steer_gear, 0, part_max - 1);
	if (v.nw_steerdeg1 < 0.01f && !mnw.eq_ped_wibrk && std::fabs(f.tire_omega[steer]) < v.nw_cutoff_omega) {
		const float c = mnw.eq_ped_nobrk ? mnw.YK_hdng : mnw.YK_roll;   // a castoring nosewheel steers by the brakes
		f.l_brake_add = fltlim(-c, 0.0f, 1.0f);
		f.r_brake_add = fltlim(c, 0.0f, 1.0f);
	}
	if (f.l_brake_add > 0.9f || f.r_brake_add > 0.9f) f.parkbrake = 0.0f;
}

void linkages(const veh_struct& v, flt_struct& f, int p)
{
	if (v.flaps_with_gear_EQ) f.flap_rqst = (float)f.gear_handle;
	if (v.flaps_with_vec_EQ) f.flap_rqst = f.vect_rat * f.vect_rat;
	if (v.sweep_with_vect_EQ) f.swdi_rqst = 1.0f - f.vect_rat;
	if (v.sweep_with_flaps_EQ) f.swdi_rqst = 1.0f - std::sqrt(fltmax2(f.flap_rat, 0.0f));
	f.slat_rqst = f.flap_rqst > 0.01f ? 1.0f : 0.0f;
	if (v.slatEQ && f.fail_stat[rel_fc_slt] != fail_inop && v.slat_with_stall_EQ && f.v_ind_kts > 0.25f * v.Vs_kts)
		for (int en = en_wing1L; en <= en_mwing_hi; en++)
			if (ret_part_alive(p, en) && std::fabs(v.dihednow[en]) < 45.0f && f.alpha_el[en][0][0] > v.alpha_max[en] - 5.0f) f.slat_rqst = 1.0f;
}

void engine_modes(const veh_struct& v, flt_struct& f)
{
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		const int t = v.engn_type[en];
		if (f.fail_stat[rel_revlok0 + en] == fail_inop) f.CONT_prop_mode[en] = 3;
		if (v.prop_type[en] == 1 && f.CONT_prop_mode[en] == 3 && f.CONT_prop_rsc[en] < 0.75f * v.RSC_redline_PROP) {
			f.CONT_prop_mode[en] = 1;
			f.CONT_thro_ref[en] = 0.0f;
		}
		if (!v.has_idlespeed && (t == 2 || t == 8)) stg.idle_speed[en] = f.CONT_mixt[en] > 0.25f;
		f.ENGN_burner_on[en] = is_jet(t) && v.burner_inc > 1.0f && f.ENGN_burning_fuel[en] && f.CONT_thro_use[en] > 0.99f &&
		                       f.ENGN_N1_[en] > 95.0f && f.CONT_prop_mode[en] != 3 && nav.mode_thro != 10 &&
		                       !(f.vect_rat > 0.01f && v.lift_fan_rat > 0.01f);
	}
}

// The engine control holds the rotor or engine speed with the throttle, engines matched.
void engine_control(const veh_struct& v, flt_struct& f, int p)
{
	const float dt = mnw.prd_FM;
	float tot = 0.0f;
	int num = 0;
	for (int en = 0; en < v.num_engines && en < engn_max; en++)
		if (eng_has_fadec(p, en) && fadec_is_running(p, en) && f.ENGN_burning_fuel[en]) { tot += f.CONT_thro_ref[en]; num++; }
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		if (!(eng_has_fadec(p, en) && fadec_is_running(p, en) && f.ENGN_burning_fuel[en])) continue;
		const int tip = v.engn_type[en] == 7;
		const float redline = tip ? v.RSC_redline_PROP : v.RSC_redline_ENGN;
		const float tac = tip ? f.POINT_tac_rad[en] : f.ENGN_tacrad[en];
		const float dot = tip ? f.POINT_omega_dot[en] : f.ENGN_omegadot[en];
		float& th = f.CONT_thro_ref[en];
		th = fltlim(th + ((redline - tac) * 0.1f - dot * 0.2f) * dt, 0.0f, v.throt_max_FWD);
		const float k = fltlim(dt, 0.0f, 1.0f);
		th = k * (tot / num) + (1.0f - k) * th;
	}
}

void governors(const veh_struct& v, flt_struct& f, int p)
{
	if (net.getting_prop) return;
	const float dt = mnw.prd_FM;
	float tot_pitch = 0.0f;
	int num_pitch = 0;
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
		if (ret_part_alive(p, en)) { tot_pitch += f.POINT_pitch_deg_ref[en]; num_pitch++; }
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		const int t = v.prop_type[en];
		int& mode = f.CONT_prop_mode[en];
		if (t == 4 && mode != 3 && v.semilen_SEG[en] > 0.0f) {   // a tip-speed law
			const float mach = fltlim(interp(0.5f * v.power_max, v.tip_mach_des_50, v.power_max, v.tip_mach_des_100, f.ENGN_power[en], 0),
			                          fltmin2(v.tip_mach_des_50, v.tip_mach_des_100), fltmax2(v.tip_mach_des_50, v.tip_mach_des_100));
			const float total = mach * con.lcl_a;
			const float rot = std::sqrt(fltmax2(total * total - f.AV_msc * f.AV_msc, 0.0f));
			const float des = fltlim(rot / v.semilen_SEG[en], 1.05f * v.RSC_mingreen_PROP, fltmax2(v.RSC_redline_PROP, 1.05f * v.RSC_mingreen_PROP));
			const float k = fltlim(0.1f * dt, 0.0f, 1.0f);
			f.CONT_prop_rsc[en] = k * des + (1.0f - k) * f.CONT_prop_rsc[en];
		}
		if (v.auto_rpm_with_tvec) f.CONT_prop_rsc[en] = v.RSC_mingreen_PROP + f.vect_rat * (v.RSC_redline_PROP - v.RSC_mingreen_PROP);
		if (t == 0) { mode = 1; set_ptch(en, 0.0f); }
		if (t == 2) {
			mode = 1;
			set_ptch(en, interp(v.RSC_redline_PROP, v.min_pitch[en], v.RSC_mingreen_PROP, v.max_pitch[en], f.CONT_prop_rsc[en], 0));
		}
		if (t == 1 || t == 7 || t == 4) {   // the constant-speed governor
			float target = f.CONT_prop_rsc[en];
			if (stg.prop_sync_on && en > 0) target = f.POINT_tac_rad[0];
			if (f.prop_ospeed_test_timeout > mnw.totl_time) target *= 0.875f;
			const int manual_feather = v.feather_with_prop_EQ && v.RSC_maxgreen_PROP > 0.0f &&
			                           std::fabs(f.CONT_prop_rsc[en] - v.RSC_mingreen_PROP) / v.RSC_maxgreen_PROP < 0.025f;
			const int auto_feather = !f.ENGN_burning_fuel[en] && v.auto_feather_EQ && stg.feather_mode == 1 &&
			                         f.fail_stat[rel_feather] != fail_inop && mnw.totl_time > stg.start_time[en];
			if (manual_feather || auto_feather) mode = 0;
			else if (mode == 0 && f.POINT_tac_rad[en] * con.rsctorpm > 120.0f) mode = 1;
			if (mode == 2 && f.CONT_thro_ref[en] > 0.0f) mode = 1;
			if (mode == 0) set_ptch(en, v.feathered_pitch);
			else if (mode == 1) {
				const float advance = (v.engn_type[en] == 2 || v.engn_type[en] == 8) ? 2.0f : 1.5f;
				const float predict = f.POINT_tac_rad[en] + f.POINT_omega_dot[en] * advance;
				const float rate = fltlim(100.0f * (predict - target) / fltmax2(v.RSC_redline_PROP, 1.0f), -30.0f, 30.0f);
				set_ptch(en, f.POINT_pitch_deg_ref[en] + rate * dt);
			} else if (mode == 2) set_ptch(en, 0.0f);
			else set_ptch(en, v.throt_max_REV > 0.0f ? v.reversed_pitch * f.CONT_thro_ref[en] / v.throt_max_REV : 0.0f);
			if (v.props_linked && num_pitch > 0) {
				const float k = fltlim(0.1f * dt, 0.0f, 1.0f);
				set_ptch(en, k * (tot_pitch / num_pitch) + (1.0f - k) * f.POINT_pitch_deg_ref[en]);
			}
		}
	}
	if (f.fail_stat[rel_fc_thr] == fail_inop)
		for (int en = 0; en < engn_max; en++) f.CONT_thro_ref[en] = 0.0f;
}

}  // namespace

void update_control_laws(int p)
{
	const veh_struct& v = veh[p];
	flt_struct& f = flt[p];
	artificial_stability(v, f);
	final_controls(v, f);
	touchdown_and_brakes(v, f);
	linkages(v, f, p);
	engine_modes(v, f);
	engine_control(v, f, p);
	governors(v, f, p);
}
