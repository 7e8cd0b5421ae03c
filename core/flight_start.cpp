// Starting a flight: the second aircraft a special start needs, the place, and every
// switch, engine, light and mode as that start wants them, running or cold and dark.
#include "core/HL_CORE.h"
#include "core/start_places.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "aircraft/load_plane.h"
#include "flight/HL_FLIGHT.h"
#include "net/HL_NET.h"
#include "plugin/HL_PLUGIN.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <cmath>
#include <cstring>

void set_engines_for_start(int start_running, int on_ground)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const int run = start_running != 0;
	stg.ecam_warning = 0;
	stg.auto_brake_lvl = stg.feather_mode = 1;
	stg.yaw_damper_on = stg.HUD_on = run;
	stg.art_stab_on = 1;
	stg.jato_on = stg.arrest_gear = stg.chute_on = stg.prop_sync_on = stg.pre_rotating = stg.pre_rotate_level = 0;
	stg.ice_all = stg.ice_pitot_heat = stg.ice_auto_ignite = stg.ice_inert_sep = stg.ice_inlet_heat = 0;
	stg.ice_prop_heat = stg.ice_surf_heat = stg.ice_surf_boot = stg.ice_window_heat = 0;
	stg.fuel_tank_sel = 4;
	stg.fuel_tank_xfr = 0;
	stg.puffers_on = 1;
	stg.dumping_fuel = 0;
	stg.cabin_vvi_set_fpm = 500.0f;
	stg.cabin_vvi_act_fpm = 0.0f;
	stg.cabin_alt_set_ft = stg.cabin_alt_act_ft = 2000.0f;
	stg.bleed_air_on = 1;
	stg.ah_bar = 0;
	stg.HSI_is_arc = 1;
	stg.gun_armed = stg.roc_armed = stg.mis_armed = stg.bom_armed = 0;
	stg.master_warning_working = stg.master_caution_working = stg.master_accept__working = 1;
	stg.tran_mode = run;
	stg.inverter[0] = stg.inverter[1] = run || !stg.inverter_EQ;
	stg.battery = run || !stg.battery_EQ;
	stg.avionics = run || !stg.avionics_EQ;
	stg.clutch_trq_engag = (run || !v.prop_clutch_EQ[0] || !v.has_clutchswitch) ? 1.0f : 0.0f;
	const float thro = f.V_msc > 1.0f ? 0.75f : 0.0f;
	for (int en = 0; en < engn_max; en++) {
		stg.igniter[en] = run || !v.has_igniter;
		stg.idle_speed[en] = 1;
		stg.fadec_on[en] = eng_has_fadec(0, en);
		stg.generator[en] = run || !stg.generator_EQ;
		stg.fuel_pump[en] = run || !stg.fuelpump_EQ;
		stg.clutch_rat[en] = stg.clutch_trq_engag > 0.5f ? 1.0f : 0.0f;
		f.CONT_thro_ref[en] = f.CONT_thro_use[en] = thro;
		f.CONT_prop_rsc[en] = v.RSC_redline_PROP;
		f.CONT_mixt[en] = (run || !v.has_mixture) ? 1.0f : 0.0f;
		f.CONT_ignition[en] = run ? 3 : 0;
		f.CONT_prop_mode[en] = 1;
		f.CONT_cowl[en] = 0.5f;
		f.ENGN_burning_fuel[en] = run;
		f.ENGN_burning_rat[en] = run ? 1.0f : 0.0f;
		f.ENGN_OILQ[en] = 1.0f;
		f.ENGN_OILT[en] = run ? 0.5f * v.max_OILT : 0.0f;
		f.ENGN_OILP[en] = run ? 0.5f * v.max_OILP : 0.0f;
		f.ENGN_CHT[en] = run ? 0.5f * v.max_CHT : 0.0f;
		f.ENGN_bat_volt[en] = f.ENGN_sigma[en] = f.ENGN_oil_lube_rat[en] = 1.0f;
		f.ENGN_N1_[en] = f.ENGN_N2_[en] = run * (50.0f * thro + 50.0f);
		const float s = std::sqrt(thro);
		f.ENGN_tacrad[en] = run * interp(0.0f, v.RSC_idlespeed_ENGN, 1.0f, v.RSC_redline_ENGN, s, 0);
		f.POINT_tac_rad[en] = run * interp(0.0f, v.RSC_idlespeed_PROP, 1.0f, v.RSC_redline_PROP, s, 0);
		if (run && v.props_linked) {
			const float g0 = v.prop_gear_rat[0] != 0.0f ? v.prop_gear_rat[0] : 1.0f;
			const float ge = v.prop_gear_rat[en] != 0.0f ? v.prop_gear_rat[en] : 1.0f;
			f.ENGN_tacrad[en] = v.RSC_redline_ENGN;
			f.POINT_tac_rad[en] = v.RSC_redline_PROP * g0 / ge;
		}
		if (run && (v.prop_type[en] == 7 || v.prop_type[en] == 6)) f.POINT_tac_rad[en] = 0.0f;   // a tip-rocket rotor and a lift fan wait
		f.POINT_pitch_deg_ref[en] = on_ground ? v.min_pitch[en] : 0.5f * (v.min_pitch[en] + v.max_pitch[en]);
	}
	f.jato_left = v.jato_dur;
}

namespace {

// The second aircraft a special start brings, and what it tells the pilot.
void load_second_aircraft(int t1)
{
	const bool shuttle = t1 >= 4807 && t1 <= 4810;
	if (has_multiplayer() && !shuttle) return;
	const char* path = nullptr;
	int p = 1;
	const char* a[4] = {nullptr, nullptr, nullptr, nullptr};
	static const char* refuel[4] = {
	    "You will now try to fly the refueling probe of your airplane to within a few feet of the probe on the refueler craft and hold it there.",
	    "You will recieve fuel as you do this.", "You should probably try this in a fighter like the F-4 Phantom.",
	    "You can try this in any plane with a refueling probe, including ones you design in Framewright."};
	switch (t1) {
	case 4807: case 4808: case 4809: case 4810: p = 0; path = stg.acf_path_shuttle; break;
	case 4206:
		path = stg.acf_path_tow;
		a[0] = "You will now be towed aloft by another plane.";
		a[1] = "Your goal is to hold formation behind the towplane, not pulling to either side.";
		a[2] = "Drop the cable when you are ready to glide on your own.";
		a[3] = "You may try this with any glider, including ones you design in Framewright.";
		break;
	case 4501: path = stg.acf_path_ref_airforce; for (int k = 0; k < 4; k++) a[k] = refuel[k]; break;
	case 4502: path = stg.acf_path_ref_navy; for (int k = 0; k < 4; k++) a[k] = refuel[k]; break;
	case 4503:
		path = stg.acf_path_carry;
		a[0] = "You will now be dropped from the wing of another airplane. (The B-52 in cruise configuration is the default).";
		a[1] = "If you are in the X-15, you can then proceed to fly at full throttle to the edge of space.";
		a[2] = "This will burn the paint off the aircraft in only one flight.";
		a[3] = "X-15's sometimes blew up or crashed. Presumably your life insurance is up to date.";
		break;
	case 4500: path = veh[0].path; break;
	default: return;
	}
	if (a[0]) NB_ALERT(a[0], a[1], a[2], a[3], alert_notice);
	char copy[500];
	std::snprintf(copy, sizeof copy, "%s", path);   // the formation's path is aircraft 0's own
	const std::string full = std::strchr(copy, ':') || copy[0] == '/' ? copy : app_path + copy;
	str_to_buf(veh[p].path, full);
	load_plane(p);
	stg.numacf = intmax2(stg.numacf, p + 1);
}

// 4200 to 4203: the nearest runway of that surface, no taxiway.
void nearest_runway_of_surface(int t1)
{
	const flt_struct& f = flt[0];
	float best = 9.9e9f;
	for (size_t a = 0; a < vec_apt.size(); a++)
		for (size_t r = 0; r < vec_apt[a].rwy.size(); r++) {
			const vec_rwy_struct& w = vec_apt[a].rwy[r];
			const int s = w.surf_tex;
			const bool match = t1 == 4200 ? s == 164 : t1 == 4201 ? s == 165 : t1 == 4202 ? s == 166 : (s == 168 || s == 169 || s == 170 || s == 171);
			if (!match || w.num_str[0] == 'x') continue;
			const float d = pythag((float)(w.lat - f.dob_lat), (float)(w.lon - f.dob_lon));
			if (d < best) { best = d; msc.loc_apt_wrl = (int)a; msc.lcl_rwy_ram = (int)r; }
		}
	if (best < 9.9e9f) {
		const vec_rwy_struct& w = vec_apt[msc.loc_apt_wrl].rwy[msc.lcl_rwy_ram];
		check_for_shift(w.lat, w.lon);
	}
}

// Aircraft 1 for a formation, a carried drop or a tanker.
void place_second_aircraft(int t1)
{
	if (has_multiplayer()) return;
	const flt_struct& f = flt[0];
	const veh_struct& v1 = veh[1];
	if (t1 == 4500) {
		float lo = 2000.0f, hi = 4000.0f;   // by the leader's kind of engine
		if (v1.num_engines > 0) {
			const int t = v1.engn_type[0];
			if (t == 2 || t == 8) { lo = 4000.0f; hi = 8000.0f; }
			if (t == 4 || t == 5 || t == 6 || t == 3) { lo = 8000.0f; hi = 12000.0f; }
		}
		const float y = f.terrain_y_cg + lo + (hi - lo) * ran01();
		const float sigma = find_standard_rho(0, y) / 1.225f;
		init_flt_p(1, 0.0f, 360.0f * ran01(), 0.0f, (float)f.dob_x, y, (float)f.dob_z, 2.0f * v1.V_ref_ms / std::sqrt(fltmax2(sigma, 0.01f)), 0);
	} else if (stg.car_inprog) {
		init_flt_p(1, 0.0f, stg.car_psi_true, 0.0f, (float)f.dob_x, stg.car_alt_ft * con.fttomtrs, (float)f.dob_z, stg.car_v_ktas * con.ktstomsc, 0);
	} else if (t1 == 4501 || t1 == 4502) {
		init_flt_p(1, 0.0f, stg.ref_psi_true, 0.0f, (float)f.dob_x, stg.ref_alt_ft * con.fttomtrs, (float)f.dob_z, stg.ref_v_ktas * con.ktstomsc, 0);
	}
}

void reset_nav_for_start()
{
	nav.mode_fdir = nav.mode_thro = 9;   // the hardware switch would set the director; none yet
	nav.mode_hdng = nav.mode_alt_ = nav.mode_vvi = nav.mode_app = nav.mode_gls = nav.mode_bc = 9;
	nav.loc_is_back = 0;
	nav.hdg_hold_mag = nav.alt_hold_ft_use = nav.vvi_hold_fpm = nav.asi_hold_kts_mac = nav.syn_hold_deg = 0.0f;
	nav.hdg_roll_mode = 6;
	nav.DME_01 = 0;
	nav.DME_mode = 2;
	nav.EFIS_1_sel = nav.EFIS_2_sel = 2;
	nav.RMI_L_adf = 1;
	nav.RMI_R_adf = 0;
	for (int& p : nav.power) p = 1;
	nav.auto_test_timeout = nav.auto_disc_timeout = -9999.0f;
	nav.avi_lft_hil = nav.avi_rgt_hil = 0;
	nav.avi_src[0] = 1; nav.avi_src[1] = nav.avi_src[2] = 0;
	nav.avi_hsi_mode = 0;
	nav.avi_map_range_sel = 2;
	nav.arg_mode = 8;
	nav.map_mode = 2;
	nav.map_mode_is_HSI = 0;
	nav.map_range_sel = 2;
	nav.EFIS_wxr = nav.EFIS_tcas = nav.EFIS_apt = nav.EFIS_fix = nav.EFIS_vor = nav.EFIS_ndb = 1;
	nav.marker_audio_working = nav.gear_audio_working = 1;
	nav.audio_sel = 10;
}

}  // namespace

void init_flt_0(int t1, int t2)
{
	// 1, 2: the airport's choice in range; ships and fires drawn where a start needs them.
	if (!vec_apt.empty()) {
		msc.loc_apt_wrl = intlim(msc.loc_apt_wrl, 0, (int)vec_apt.size() - 1);
		const vec_apt_struct& a = vec_apt[msc.loc_apt_wrl];
		const int n = t2 == 600 ? (int)a.sta.size() : (int)a.rwy.size();
		msc.lcl_rwy_ram = intlim(msc.lcl_rwy_ram, 0, intmax2(n - 1, 0));
	}
	if (t1 == 4803 || t1 == 4804 || t1 == 4204 || t1 == 4801 || t1 == 4802) stg.drawboats = 1;
	if (t1 == 4805) stg.drawfires = 1;
	load_second_aircraft(t1);   // 3
	// 4, 5: no roof under us yet; the launches wait for their start.
	env.obj_y_top = -9999.0f;
	env.over_obs = 0;
	stg.cat_inprog = stg.cat_waiting = stg.tow_inprog = stg.tow_waiting = stg.win_inprog = stg.win_waiting = stg.car_inprog = 0;
	if (t1 == 4206) { stg.tow_waiting = 1; t1 = 608; t2 = 601; }
	if (t1 == 4207) { stg.win_waiting = 1; t1 = 608; t2 = 601; }
	if (t1 == 4503) stg.car_inprog = 1;
	if (t1 >= 4200 && t1 <= 4203) { nearest_runway_of_surface(t1); t1 = 608; t2 = 601; }   // 6
	place_second_aircraft(t1);   // 7
	// 8: a clean record, but the load aboard stays.
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	float fuel[3] = {f.m_fuel[0], f.m_fuel[1], f.m_fuel[2]};
	const float fixed = f.m_fixed, jett = v.jett_is_slung ? 0.0f : f.m_jettison;
	std::memset(&f, 0, sizeof f);
	for (int t = 0; t < 3; t++) f.m_fuel[t] = fuel[t];
	f.m_fixed = fixed;
	f.m_jettison = jett;
	for (auto& slots : f.Q_centroid_MULT)
		for (float& m : slots) m = 1.0f;   // a uniform load until the first step measures it
	place_start(t1, t2);   // 9: may fall back to the runway, with its alert
	// 10: the tow plane, on the runway ahead.
	if (stg.tow_waiting && !has_multiplayer()) {
		const float x = (float)f.dob_x + 55.0f * std::sin(f.psi * con.degtorad);
		const float z = (float)f.dob_z - 55.0f * std::cos(f.psi * con.degtorad);
		init_flt_p(1, veh[1].the_eqlbm, f.psi, 0.0f, x, (float)f.dob_y - v.h_eqlbm + veh[1].h_eqlbm, z, 0.0f, 3);
		flt[1].flap_rat = 0.5f;
	}
	// 11: never under the surface; a runway's deck where the frame would find one.
	xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
	if (!env.over_obs) set_surface_under_aircraft();
	float svx, svy, svz;
	const float gnd_y = find_local_y((float)f.dob_x, (float)f.dob_z, &svx, &svy, &svz, &f.i, &f.j, 1);
	if (f.dob_y < gnd_y + v.h_eqlbm) f.dob_y = gnd_y + v.h_eqlbm;
	f.terrain_y_cg = gnd_y;
	ren.local_y_vp = gnd_y;
	xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
	f.h_ind_ft = (float)(f.dob_ele * con.mtrstoft);
	const float sp = std::sin(f.psi * con.degtorad), cp = std::cos(f.psi * con.degtorad);
	f.vx = f.V_msc * sp;
	f.vz = -f.V_msc * cp;
	// 12: the lines' ends, the winch 2 km ahead.
	for (int e = 0; e < 2; e++) {
		env.jet_line[e][0] = env.tow_line[e][0] = (float)f.dob_x;
		env.jet_line[e][1] = env.tow_line[e][1] = (float)f.dob_y;
		env.jet_line[e][2] = env.tow_line[e][2] = (float)f.dob_z;
	}
	stg.win_len = 2000.0f;
	stg.winxyz[0] = (float)f.dob_x + 2000.0f * sp;
	stg.winxyz[1] = (float)f.dob_y;
	stg.winxyz[2] = (float)f.dob_z - 2000.0f * cp;
	// 13, 14: on the ground, running or not, brake and gear.
	const bool on_ground = (t1 == 4204 || (t1 == 608 && (t2 == 600 || t2 == 601))) ||
	                       (!ret_over_water() && std::fabs(f.dob_y - (gnd_y + v.h_eqlbm)) < 10.0);
	const int start_running = stg.start_running || !on_ground;
	f.parkbrake = on_ground ? 1.0f : 0.0f;
	f.gear_handle = !v.gear_retract ? 1 : (on_ground ? 1 : 0);
	// 15, 16, 19, 23: switches and engines.
	set_engines_for_start(start_running, on_ground);
	// 17: configuration.
	if ((t1 >= 4800 && t1 <= 4804) || (t1 == 608 && (t2 == 602 || t2 == 603))) f.flap_rat = f.flap_rqst = 0.5f;
	f.jett_len = 40.0f * con.fttomtrs;
	f.disp_rat = 0.5f;
	// 18: lights the aircraft has, gyros, vectoring.
	if (start_running) {
		f.nav_lite = f.str_lite = v.has_navlites != 0;
		f.bea_lite = v.has_fuserb1 || v.has_fuserb2;
		f.tax_lite = v.has_taxilite != 0;
		f.lan_lite = v.has_lanlite1 || v.has_lanlite2;
	}
	f.gyro_spin[0] = f.gyro_spin[1] = start_running ? 1.0f : 0.0f;
	if (v.vect_EQ) f.vect_rqst = f.vect_rat = on_ground ? 0.75f : 0.0f;
	reset_nav_for_start();   // 20
	// 21: the view, failures, ATC and the plan.
	ren.mouse_look = 0;
	ren.ground_is_vis = 1;
	std::memset(f.fail_stat, 0, sizeof f.fail_stat);
	scn.cont_inited = 0;
	reset_atc_and_plan(veh[0].name);
	// 22, 23: the controls centred, the clock, the first pass.
	mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
	mnw.miss_time = 0.0f;
	mnw.locl_time = fltwrap(mnw.zulu_time + std::round((float)f.dob_lon / 15.0f) * 3600.0f - mnw.sys_offset_hours * 3600.0f, 0.0f, 86400.0f);
	mnw.first_miss_cycle = 1;
	con.lcl_sig = 1.0f;
	// 24: gear positions by the handle.
	veh_struct& vw = veh[0];
	for (int en = 0; en <= en_gear_hi; en++) {
		vw.gear_deploy[en] = f.gear_handle ? 1.0f : 0.0f;
		vw.gear_latN[en] = f.gear_handle ? vw.gear_latE[en] : vw.gear_latR[en];
		vw.gear_lonN[en] = f.gear_handle ? vw.gear_lonE[en] : vw.gear_lonR[en];
		vw.gear_axiN[en] = f.gear_handle ? vw.gear_axiE[en] : vw.gear_axiR[en];
	}
	// 25, 26: a computer-free aircraft, no ice, a clean record of the flight.
	f.update_type = 0;
	f.last_time_rcvd = -9999.0f;
	net.getting_loc_0 = 0;
	zero_path();
	logbook_entry();
	set_dataoutput_params();
	init_quaternion(f.psi, f.the, f.phi, f.q);
	update_derived_flt(0);
	update_def_angles(0);
	if (v.m_max < 100.0f * con.lbstokgs) APPLICATION_handlemenu(1500, 1516);   // 27: a model's view
	NBPEventHook(4, mnw.real_time, 0, 0, 0);                                   // 28
}
