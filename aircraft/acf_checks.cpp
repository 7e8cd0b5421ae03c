// What stands between the raw read and the load: ACF_autoset fills what older files
// lack and works out the flags, lists, element areas and chords that follow from the
// rest; ACF_check refuses an aircraft the flight model could not fly. Both work in the
// file's units.
#include "aircraft/acf_io.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "core/files.h"
#include <cmath>
#include <cstring>
#include <string>

namespace {

// The nine surfaces whose first and last elements the load lists.
struct surface { int (*on)[el_max]; float* elR; float* elT; };

void surfaces(veh_struct& v, surface out[9])
{
	out[0] = {v.ail1, v.ail1_elR, v.ail1_elT};
	out[1] = {v.ail2, v.ail2_elR, v.ail2_elT};
	out[2] = {v.elev, v.elev_elR, v.elev_elT};
	out[3] = {v.rudd, v.rudd_elR, v.rudd_elT};
	out[4] = {v.spo1, v.spo1_elR, v.spo1_elT};
	out[5] = {v.spo2, v.spo2_elR, v.spo2_elT};
	out[6] = {v.yawb, v.yawb_elR, v.yawb_elT};
	out[7] = {v.sbrk, v.sbrk_elR, v.sbrk_elT};
	out[8] = {v.flap, v.flap_elR, v.flap_elT};
}

}  // namespace

void panel_equipment(veh_struct& v)
{
	v.has_mixture = v.has_radalt = v.has_hsi = v.has_hdg_set = v.has_radar = v.has_SC_fd = v.has_DC_fd = 0;
	v.has_stallwarn = v.has_clutchswitch = v.has_prerotate = v.has_idlespeed = v.has_FADECswitch = 0;
	v.has_asi_set = v.has_alt_set = v.has_vvi_set = v.beaconEQ = v.has_knots_mach = v.has_press_controls = 0;
	v.has_igniter = 0;
	stg.auto_fea_EQ = stg.battery_EQ = stg.avionics_EQ = stg.generator_EQ = stg.inverter_EQ = stg.fuelpump_EQ = 0;
	float* ctr[5] = {&stg.thro_x_ctr, &stg.prop_x_ctr, &stg.mixt_x_ctr, &stg.heat_x_ctr, &stg.cowl_x_ctr};
	float sum[5] = {};
	int cnt[5] = {};
	for (int i = 0; i < 300; i++) {
		const int t = v.ins_type[i];
		int group = -1;
		if (t == 47 || t == 48) group = 0;
		else if (t == 49 || t == 50) group = 1;
		else if (t == 51 || t == 52) { group = 2; v.has_mixture = 1; }
		else if (t == 53 || t == 54) group = 3;
		else if (t == 55) group = 4;
		if (group >= 0) { sum[group] += v.ins_x[i]; cnt[group]++; }
		switch (t) {
		case 6: stg.auto_fea_EQ = 1; break;
		case 29: stg.battery_EQ = 1; break;
		case 30: stg.avionics_EQ = 1; break;
		case 31: stg.generator_EQ = 1; break;
		case 32: stg.inverter_EQ = 1; break;
		case 33: stg.fuelpump_EQ = 1; break;
		case 334: case 335: case 336: v.has_radalt = 1; break;
		case 167: case 168: case 169: case 557: case 558: case 583: v.has_hsi = 1; break;
		case 185: case 186: case 187: case 191: case 333: case 371: case 372: case 373: v.has_radar = 1; break;
		case 37: v.has_SC_fd = 1; break;
		case 403: v.has_DC_fd = 1; break;
		case 339: v.has_stallwarn = 1; break;
		case 446: v.has_clutchswitch = 1; break;
		case 15: v.has_prerotate = 1; break;
		case 411: v.has_idlespeed = 1; break;
		case 9: v.has_FADECswitch = 1; break;
		case 282: case 290: case 494: v.has_asi_set = 1; break;
		case 283: case 291: case 495: v.has_hdg_set = 1; break;
		case 284: case 292: case 496: v.has_alt_set = 1; break;
		case 293: v.has_vvi_set = 1; break;
		case 213: case 214: v.beaconEQ = 1; break;
		case 476: v.has_knots_mach = 1; break;
		case 447: v.has_igniter = 1; break;
		default: break;
		}
		if (t >= 110 && t <= 121) v.has_hsi = v.has_hdg_set = 1;
		if (t >= 416 && t <= 421) v.has_press_controls = 1;
		if (t == 188) {   // a combined instrument brings three more with it
			const float x = v.ins_x[i], y = v.ins_y[i];
			v.ins_type[299] = 166; v.ins_x[299] = x;         v.ins_y[299] = y + 70; v.ins_size[299] = 1;
			v.ins_type[298] = 169; v.ins_x[298] = x;         v.ins_y[298] = y - 70; v.ins_size[298] = 1;
			v.ins_type[297] = 180; v.ins_x[297] = x - 60;    v.ins_y[297] = y - 10; v.ins_size[297] = 1;
			v.has_hsi = 1;
		}
	}
	for (int g = 0; g < 5; g++) *ctr[g] = cnt[g] ? sum[g] / cnt[g] : 0.0f;
}

namespace {

void older_file_defaults(veh_struct& v)
{
	if (v.snd_kias < 1.0f) v.snd_kias = v.Vne_kts;
	if (v.snd_n1 < 1.0f) v.snd_n1 = 100.0f;
	if (v.snd_rpm_prp < 1.0f && v.num_thrustpoints > 0) {
		int t = v.prop_type[intlim(v.num_thrustpoints - 1, 0, 7)];
		v.snd_rpm_prp = (t == 3 || t == 7) ? 400.0f : t == 6 ? 100.0f : 2500.0f;
	}
	if (v.snd_rpm_eng < 1.0f && v.num_engines > 0) {
		int t = v.engn_type[intlim(v.num_engines - 1, 0, 7)];
		if (t == 0 || t == 1 || t == 3) v.snd_rpm_eng = 2500.0f;
		else if (t == 2 || t == 8) v.snd_rpm_eng = 1900.0f;
	}
	float* trims[6] = {&v.min_trim_elev, &v.max_trim_elev, &v.min_trim_ailn, &v.max_trim_ailn, &v.min_trim_rudd, &v.max_trim_rudd};
	int all_small = 1;
	for (float* t : trims) all_small &= *t < 0.005f;
	if (all_small) {
		v.min_trim_elev = v.max_trim_elev = 0.5f;
		v.min_trim_ailn = v.max_trim_ailn = v.min_trim_rudd = v.max_trim_rudd = 0.25f;
	}
	for (float* t : trims) *t = fltmax2(*t, 0.001f);
	for (float* f : {&v.elev_trim_speedrat, &v.ailn_trim_speedrat, &v.rudd_trim_speedrat, &v.throt_time_prop,
	                 &v.throt_time_jet, &v.inertia_rat_prop, &v.spool_time_jet, &v.exhaust_rat})
		if (*f == 0.0f) *f = 1.0f;
	if (v.fuel_intro_time_prop == 0.0f) v.fuel_intro_time_prop = 5.0f;
	if (v.fuel_intro_time_jet == 0.0f) v.fuel_intro_time_jet = 10.0f;
	for (float* f : {&v.ail1_vmax, &v.ail2_vmax, &v.spo1_vmax, &v.spo2_vmax})
		if (*f < 0.01f) *f = 9999.0f;
	if (v.vect_min_nace == 0.0f && v.vect_max_nace == 0.0f) { v.vect_min_nace = v.vect_min_disc; v.vect_max_nace = v.vect_max_disc; }
	if (v.max_ITT == 0.0f) v.max_ITT = 680.0f;
	if (v.max_EGT == 0.0f) v.max_EGT = 1450.0f;
	if (v.max_CHT == 0.0f) v.max_CHT = 500.0f;
	if (v.max_OILT == 0.0f) v.max_OILT = 245.0f;
	if (v.max_OILP == 0.0f) v.max_OILP = 115.0f;
	if (v.flap_deftime < 0.1f) v.flap_deftime = 1.0f;
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (v.gear_cyctim[en] < 0.1f) v.gear_cyctim[en] = 1.0f;
	if (!v.custom_autopilot) {
		v.ott_asi_ratio = 0.04f; v.ott_asi_sec_into_future = 20.0f; v.ott_asi_kts_off_for_full_def = 10.0f;
		v.ott_phi_ratio = 1.0f; v.ott_phi_sec_into_future = 1.0f; v.ott_phi_deg_off_for_full_def = 60.0f;
		v.ott_phi_sec_to_tune = 20.0f; v.ott_def_sec_into_future = 60.0f; v.ott_def_dot_off_for_full_def = 4.0f;
		v.ott_def_sec_to_tune = 20.0f; v.ott_the_ratio = v.has_collective ? 0.25f : 1.0f;
		v.ott_the_sec_into_future = 5.0f; v.ott_the_deg_off_for_full_def = 30.0f; v.ott_the_sec_to_tune = 10.0f;
		v.ott_the_deg_per_kt = 0.5f; v.ott_vvi_sec_into_future = 5.0f;
	}
}

}  // namespace

void ACF_autoset(int p)
{
	if (p < 0 || p >= acf_max) return;
	veh_struct& v = veh[p];
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++) {
		// A jet has no propeller part, so alive here means still attached.
		const int attached = flt[p].fail_stat[rel_engsep0 + en] != fail_inop;
		if (en < v.num_engines && en_is_jet(p, en) && attached) v.prop_type[en] = 8;
		else v.prop_type[en] = intlim(v.prop_type[en], 0, 7);
	}
	v.has_gear = 0;
	for (int en = en_gear_lo; en <= en_gear_hi; en++) v.has_gear |= ret_part_alive(p, en);
	v.has_collective = v.collective_en = 0;
	for (int en = 0; en < engn_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		if (v.prop_type[en] == 5) v.has_tailrotor = 1;
		if (v.prop_type[en] == 3) { v.has_collective = 1; v.collective_en = en; }
	}
	if (v.auto_rpm_EQ) {
		v.auto_omega_open = fltmax2(v.auto_omega_open, v.auto_omega_idle + 1.0f);
		v.auto_omega_fire = fltmax2(v.auto_omega_fire, v.auto_omega_open + 1.0f);
	}
	v.tailnum[6] = 0;
	v.author[112] = 0;
	v.descrip[112] = 0;
	v.ICAO[39] = 0;
	v.flapEQ = v.slatEQ = v.vardihedEQ = v.varsweepEQ = v.varincEQ = 0;
	v.sbrkEQ = v.brake_area > 0.0f;
	if (v.ASlo_the_V == 0 && v.ASlo_psi_V == 0 && v.ASlo_phi_V == 0 && v.AShi_the_V == 0 && v.AShi_psi_V == 0 && v.AShi_phi_V == 0) {
		v.ASlo_the_V = v.ASlo_psi_V = v.ASlo_phi_V = v.ASloV_old_all;
		v.AShi_the_V = v.AShi_psi_V = v.AShi_phi_V = v.AShiV_old_all;
	}
	for (int en = 0; en < part_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		if (en <= 7 || (en >= 28 && en <= 43)) v.is_left[en] = v.Xarm[en] < -0.01f;
		else if (en <= 17) v.is_left[en] = en % 2 == 0;
		else if (en <= 19 || en >= 44) v.is_left[en] = 0;
		v.lat_sign[en] = v.is_left[en] ? -1.0f : 1.0f;
	}
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		for (int el = 0; el < el_max; el++) {
			if (v.flap[en][el] || (v.ail1[en][el] && v.ail1_flaps > 0.01f) || (v.ail2[en][el] && v.ail2_flaps > 0.01f)) v.flapEQ = 1;
			if (v.slat[en][el]) v.slatEQ = 1;
			if (v.sbrk[en][el]) v.sbrkEQ = 1;
		}
		if (v.vardihed[en]) v.vardihedEQ = 1;
		if (v.varsweep[en]) v.varsweepEQ = 1;
		if (v.varinc[en]) v.varincEQ = 1;
	}
	surface sf[9];
	surfaces(v, sf);
	for (int en = 0; en < part_max; en++)
		for (surface& s : sf) { s.elR[en] = 10.0f; s.elT[en] = 0.0f; }
	for (int en = 0; en < part_max; en++) {
		if (!ret_part_alive(p, en)) continue;
		const int els = intlim(v.els[en], 0, el_max);
		v.element_len[en] = els ? v.semilen_SEG[en] / els : 0.0f;
		for (int el = 0; el < els; el++) {
			for (surface& s : sf)
				if (s.on[en][el]) { s.elR[en] = fltmin2(s.elR[en], (float)el); s.elT[en] = fltmax2(s.elT[en], (float)(el + 1)); }
			const float c1 = interp(0.0f, v.Croot[en], (float)els, v.Ctip[en], (float)el, 0);
			const float c2 = interp(0.0f, v.Croot[en], (float)els, v.Ctip[en], (float)(el + 1), 0);
			v.s[en][el] = std::cos(v.sweep1[en] * con.degtorad) * v.semilen_SEG[en] * (c1 + c2) * 0.5f / els;
			v.mac[en][el] = c1 + c2 > 0.0f ? 2.0f / 3.0f * (c1 + c2 - c1 * c2 / (c1 + c2)) : 0.0f;
		}
	}
	if (p == 0) panel_equipment(v);
	older_file_defaults(v);
	for (int s = 12; s < 20; s++)   // the fuselage's tail stations must run aft
		for (int pt = 0; pt < fuse_pts; pt++)
			if (!(v.body_Z[en_fuse][s][pt] > v.body_Z[en_fuse][s - 1][pt])) {
				v.body_X[en_fuse][s][pt] = v.body_X[en_fuse][s - 1][pt];
				v.body_Y[en_fuse][s][pt] = v.body_Y[en_fuse][s - 1][pt];
				v.body_Z[en_fuse][s][pt] = v.body_Z[en_fuse][s - 1][pt] + 0.001f;
			}
	if (v.HUD_ctr_y_OLD != 0.0f && v.HUD_ctr_y[0] == 0.0f) {
		v.HUD_ctr_y[0] = v.HUD_ctr_y_OLD;
		v.HUD_ctr_y_OLD = 0.0f;
		for (int k = 1; k <= 7; k++) v.HUD_ctr_y[k] = 555.0f;
	}
	v.HUD_ctr_y[8] = v.HUD_ctr_y[0];
	v.is_flying_stab = 0;
	for (int el = 0; el < el_max; el++) v.is_flying_stab |= v.inc_trim[en_hstbL][el] != 0;
	for (int en = en_wing1L; en <= en_mwing_hi; en++)
		v.rev_con[en] = v.cgZ > (v.delta_fac[en] * 0.25f + 0.25f) * v.Croot[en] + v.Zarm[en];
}

int ACF_check(int p, int is_batch)
{
	(void)is_batch;   // every finding is fatal, in a batch or not
	if (p < 0 || p >= acf_max) return 0;
	veh_struct& v = veh[p];
	const std::string fix = std::string("Fix this problem in Framewright. The plane in question is: ") + v.path;
	auto finding = [&](const char* a, const char* b, const char* c) {
		MACIBM_alert(0, a, b, c, fix, alert_fatal, __FILE__, __LINE__);
	};
	int blank = 1;
	for (int k = 0; k < 40 && v.tailnum[k]; k++) blank &= v.tailnum[k] == ' ';
	if (blank) finding("This plane has no tail number!", "You must have a tail number!", "This is needed for ATC, logbooks, etc.");
	int any_prop = 0;
	for (int en = 0; en < v.num_engines && en < engn_max; en++) any_prop |= en_is_prop(p, en);
	if (any_prop) {
		const int t = v.prop_type[0];
		const float range = v.max_pitch[0] - v.min_pitch[0];
		if ((t == 1 || t == 2 || t == 3 || t == 4 || t == 7) && range < 0.01f)
			finding("This design is either a helicopter or a plane with a variable-pitch prop.",
			        "The problem is, you have entered the same coarse and fine pitch!", "This will make prop or rotor control impossible!");
		if (t == 0 && range > 0.01f)
			finding("This design has a fixed-pitch prop, but you entered different fine and coarse pitches in the props screen!", "Duh-OH!", "");
	}
	if (v.Vne_kts == 0.0f)
		finding("You entered a Vne of zero!", "You need to change this or the plane will over-stress just sitting there!", "");
	if (v.m_empty < 0.01f)
		finding("You have entered an empty weight of zero!", "This defies the immutable laws of physics!", "Please do not defy the immutable laws of physics!");
	if (v.m_max < 0.01f)
		finding("You have entered a maximum weight of zero!", "This defies the immutable laws of physics!", "Please do not defy the immutable laws of physics!");
	if (v.m_empty > v.m_max)
		finding("You have selected an empty weight that is greater than the maximum weight for this airplane!",
		        "I know some planes cannot carry much, but this is out of control!", "");
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		const int t = v.engn_type[en];
		if (en_is_jet(p, en) && v.face_jet < 0.001f)
			finding("Do not enter zero as a compressor area for a jet engine!", "You are asking for thrust from zero area!",
			        "I hate it when my users try to break the laws of physics!");
		if (v.rev_thrust_EQ && v.throt_max_REV < 0.005f)
			finding("This aircraft has reverse-thrust capability as decided in the ENGINES screen.",
			        "But there is a problem: The max THROTTLE available for reverse thrust as decided in the ENGINES screen is ZERO PERCENT! OOPS!",
			        "We won't get much reverse thrust when the maximum allowable throttle while in reverse is zero percent!");
		if (v.throt_max_FWD < 0.005f)
			finding("Problem: The max THROTTLE available as decided in Framewright is ZERO PERCENT! OOPS!",
			        "Fix this in the ENGINES screen in Framewright.", "If you are trying to make a glider, enter a number of engines of zero.");
		if (v.rev_thrust_EQ && v.throt_max_REV > v.throt_max_FWD + 0.005f)
			finding("This aircraft has reverse-thrust capability as decided in the ENGINES screen.",
			        "But there is a problem: The max THROTTLE available for reverse thrust as decided in the ENGINES screen is GREATER THAN THE FORWARD THROTTLE! OOPS!",
			        "We can't over-torque the engine like that in reverse! Fix this in the ENGINES screen.");
		if ((t == 0 || t == 1) && v.MP_max < 0.01f)
			finding("You have entered a maximum manifold pressure in the ENGINES screen of 0!",
			        "It is not possible for a reciprocating engine to operate at full power with zero manifold pressure!",
			        "Enter a correct maximum manifold pressure in the ENGINES screen... probably 29.92 for normally-aspirated engines.");
		if (en_is_prop(p, en)) {
			if ((t != 3 && v.RSC_idlespeed_ENGN < 1.0f) || v.RSC_redline_ENGN < 1.0f || v.RSC_mingreen_ENGN < 1.0f || v.RSC_maxgreen_ENGN < 1.0f)
				finding("You have entered zero for some of the engine RPM parameters in the ENGINES screen!",
				        "Do not tell me the props turn at zero rpm in flight!", "");
			if (v.RSC_idlespeed_ENGN > v.RSC_redline_ENGN)
				finding("You entered an idle rpm greater then the maximum engine rpm in the ENGINES screen!", "That is not possible.", "You must fix this.");
			if (v.power_max < 0.01f)
				finding("You requested a reciprocating or turbine engine in the ENGINES screen, but have entered an engine power of zero!",
				        "This is not good. To fly a glider, enter a number of engines of ZERO. To fly a jet, enter that as the engine type.", "");
		}
		if (en_is_jet(p, en) && v.thrust_max < 0.01f)
			finding("You requested a jet engine in the ENGINES screen, but have entered an engine thrust of zero!",
			        "This is not good. To fly a glider, enter a number of engines of ZERO. To fly a prop plane, enter that as the engine type.", "");
		if (en_is_roc(p, en) && (v.rock_max_sl < 0.01f || v.rock_max_opt < 0.01f || v.rock_max_vac < 0.01f))
			finding("You requested a rocket engine in the ENGINES screen, but have entered an engine thrust of zero!",
			        "This is not good. To fly a glider, enter a number of engines of ZERO.", "");
	}
	int has_ail1 = 0, has_ail2 = 0, has_spo1 = 0, has_spo2 = 0, flap_and_ail = 0;
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(p, en)) continue;
		for (int el = 0; el < el_max; el++) {
			has_ail1 |= v.ail1[en][el] != 0;
			has_ail2 |= v.ail2[en][el] != 0;
			has_spo1 |= v.spo1[en][el] != 0;
			has_spo2 |= v.spo2[en][el] != 0;
			flap_and_ail |= v.flap[en][el] && (v.ail1[en][el] || v.ail2[en][el]);
		}
	}
	if (has_ail1 && v.ail1_vmax < 0.01f)
		finding("This aircraft has an 'Aileron-1' set of ailerons. This is no problem. BUT you have entered an 'Aileron-1 Cutout Speed' of ZERO!",
		        "This means that the ailerons will be INACTIVE at any speed above ZERO knots! In other words, aileron-set 1 will NEVER function!",
		        "Enter a reasonable number (SPECIAL CONTROLS screen) for the maximum speed the ailerons will operate, enter 999 if they ALWAYS function.");
	if (has_ail2 && v.ail2_vmax < 0.01f)
		finding("This aircraft has an 'Aileron-2' set of ailerons. This is no problem. BUT you have entered an 'Aileron-2 Cutout Speed' of ZERO!",
		        "This means that the ailerons will be INACTIVE at any speed above ZERO knots! In other words, aileron-set 2 will NEVER function!",
		        "Enter a reasonable number (SPECIAL CONTROLS screen) for the maximum speed the ailerons will operate, enter 999 if they ALWAYS function.");
	if ((has_spo1 && v.spo1_vmax < 0.01f) || (has_spo2 && v.spo2_vmax < 0.01f))
		finding("This aircraft has spoilers. This is no problem. BUT you have entered a Spoiler Cutout Speed of ZERO!",
		        "This means that the spoilers will be INACTIVE at any speed above ZERO knots! In other words, the spoilers will NEVER function!",
		        "Enter a reasonable number (SPECIAL CONTROLS screen) for the maximum speed the spoilers will operate, enter 999 if they ALWAYS function.");
	if (flap_and_ail)
		finding("You have entered both a flap and aileron for the same section of the wing!",
		        "Any given section of the wing may have flaps, or ailerons, but not both!",
		        "Make sure no element of any surface has both flaps and ailerons on it.");
	if (v.flapEQ && v.flap_detents > 0 && v.flap_dn[intlim(v.flap_detents, 0, 7)] == 0.0f)
		finding("You have entered a maximum flap deflection of zero! This is illegal!",
		        "If you have no flaps (which is just fine) then make sure you have no flap DETENTS as well!!",
		        "Fix this in the controls screen of Framewright");
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(p, en) && v.tire_radius[en] < 0.001f)
			finding("You have entered some landing gear with tire radii of zero!", "This does not seem to make sense.",
			        "Enter landing gear of type NONE for the wheels/skids that you are not using.");
	if (v.h_eqlbm < 0.01f)
		finding("Your landing gear is tucked up too close to the CG.", "Or maybe your CG is too low.",
		        "At any rate, the CG of the airplane is underground here.");
	for (int en = en_wing1L; en <= en_pylb_hi; en++)
		if (ret_part_alive(p, en) && v.Croot[en] < 0.01f)
			finding("This aircraft has a zero root chord for a flying surface!", "You cannot have an infinetly thin wing! IMPOSSIBLE!",
			        "If you enter a SPAN for any flying surface then you must also have a root CHORD!");
	if (v.has_HOOPS_HUD && (v.HUD_del_x < 1.0f || v.HUD_del_y < 1.0f))
		finding("You have specified in the Panel screen that you have a HOOPS HUD.",
		        "But you have specified a HUD SIZE of ZERO inthat same screen!", "BAD! BAD!");
	if (v.m_fuel_tot > 0.0f) {
		float sum = 0.0f;
		for (int t = 0; t < v.num_tanks && t < tank_max; t++) sum += v.tank_rat[t];
		if (sum < 0.995f || sum > 1.005f)
			finding("Look at the WEIGHT AND BALANCE window. Then look at the RATIO of fuel in each fuel tank.",
			        "Those numbers indicate the fraction of your total fuel in each tank. Those ratios must all add up to 1.00... right now they do not!",
			        "Your fuel must be 100% distributed across the fuel tanks!");
	}
	return 1;
}
