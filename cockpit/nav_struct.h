// Radios, autopilot modes and targets: `nav`. The radio and autopilot steps fill it.
#pragma once

struct nav_struct {
	float baro_setting_HG;   // altimeter setting, inches of mercury
	int mode_fdir;           // flight director: 0 off
	int mode_thro;           // 10: autothrottle holds speed
	// What the autopilot hands the control laws: its commands, the authority scales and
	// the filtered inputs.
	float AP_ptch, AP_hdng, AP_roll;
	float c_rat_antitrq, c_rat_hdng, c_rat_ptch, c_rat_artstab;
	float alph_use, beta_use, alp_dot, Glo_dot;
	// The GPS page's choices: an index into each kind's container, and the kind in use (1, 2, 3, 11).
	int gps_apt_index, gps_vor_index, gps_ndb_index, gps_fix_index, gps_use_index, gps_type;
	// Autopilot modes and holds, as a new flight finds them.
	int mode_hdng, mode_alt_, mode_vvi, mode_app, mode_gls, mode_bc;
	int loc_is_back, hdg_roll_mode;
	float hdg_hold_mag, alt_hold_ft_use, vvi_hold_fpm, asi_hold_kts_mac, syn_hold_deg;
	// Radios and displays.
	int HSIsel, DME_01, DME_mode, EFIS_1_sel, EFIS_2_sel, RMI_L_adf, RMI_R_adf, power[6];
	float auto_test_timeout, auto_disc_timeout;
	int avi_lft_hil, avi_rgt_hil, avi_src[3], avi_hsi_mode, avi_map_range_sel, arg_mode;
	int map_mode, map_mode_is_HSI, map_range_sel;
	int EFIS_wxr, EFIS_tcas, EFIS_apt, EFIS_fix, EFIS_vor, EFIS_ndb;
	int marker_audio_working, gear_audio_working, audio_sel;
	int mode_ecam;   // the ECAM page on show, 0..4
	// The panel's selectors and knobs: the RMI's needle source, speed in Mach, the course of
	// each receiver (4 the GPS), the ADF cards (2, 3), the radio altimeter's bug, the attitude
	// indicator's little aeroplane (degrees).
	int RMIsel, km_is_mach;
	float OBS_mag[6], CARD_mag[4], radalt_bug_ft, ah_adjust;
	float fd_roll, fd_ptch;   // the flight director's commanded bank and pitch, degrees
};
