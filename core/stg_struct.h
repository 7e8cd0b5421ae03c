// Cockpit switches and simulation settings that survive a flight restart: `stg`.
// Saved in the preference file.
#pragma once
#include "core/HL_LIMITS.h"

struct stg_struct {
	int datW_tab, joyW_tab, wxrW_tab, wgtW_tab, relW_tab, mapW_tab, insW_tab;
	char def_pln_path[500], def_pln_file[500], def_apt_idst[500];
	char acf_path_shuttle[500], acf_path_tow[500], acf_path_ref_airforce[500], acf_path_ref_navy[500], acf_path_carry[500];
	float ref_v_ktas, ref_alt_ft, ref_psi_true, car_v_ktas, car_alt_ft, car_psi_true;

	int igniter[engn_max], idle_speed[engn_max], fadec_on[engn_max], generator[engn_max], fuel_pump[engn_max];
	float start_time[engn_max], clutch_rat[engn_max], amm_is_volt_timeout[engn_max];

	int generator_EQ, inverter[2], inverter_EQ, fuelpump_EQ, battery, battery_EQ, avionics, avionics_EQ;
	int ice_all, ice_pitot_heat, ice_auto_ignite, ice_inert_sep, ice_inlet_heat, ice_prop_heat;
	int ice_surf_heat, ice_surf_boot, ice_window_heat;
	int HUD_on, auto_brake_lvl, feather_mode, auto_fea_EQ, yaw_damper_on, art_stab_on;
	int pre_rotating;
	float pre_rotate_level, clutch_trq_engag;

	float chute_vector_wrl[3], chute_deploy_rat;
	int chute_on, jato_on, prop_sync_on, arrest_gear, puffers_on, water_scoop, dumping_fuel, tot_ener_audio;

	int HSI_is_arc, ecam_warning;
	float warning_suppress_timeout, annunciator_test_timeout, master_caution_timeout, master_warning_timeout;
	float master_accept__timeout;
	int master_caution_working, master_warning_working, master_accept__working;
	int ann_code[18];

	int BB_pullup, BB_sinkrate, BB_gear;
	int numacf, drawtexlites, draw_g_load, drawtlines, drawfires, drawboats, drawobjects, drawvectors, drawcars, draw_apt_acf;
	int start_ramp, start_running;
	int warn_oV, warn_oG, warn_oVfe, warn_oVle, reset_on_crash, warn_text, warn_frame, text_out, warn_bb;
	int fuel_tank_sel, fuel_tank_xfr;
	int gun_armed, roc_armed, mis_armed, bom_armed, fire_mode, fire_rate, p_targ;
	int cus_acf_to_place;
	float cus_lat, cus_lon, cus_alt, cus_psi, cus_v;
	int ah_bar, wired, tran_ID, tran_mode;
	float tran_wink_time_left, tran_alpha;
	float thro_x_ctr, prop_x_ctr, mixt_x_ctr, heat_x_ctr, cowl_x_ctr;
	int bleed_air_on;
	float cabin_alt_set_ft, cabin_vvi_set_fpm, cabin_alt_act_ft, cabin_vvi_act_fpm, press_test_timeout, max_allowable_alt_ft;
	float trap_accel;
	int cat_waiting, cat_inprog, tow_waiting, tow_inprog, win_waiting, win_inprog, car_inprog;
	float winxyz[3], win_len, cat_start_time;
	int auto_coord_helos;
};
