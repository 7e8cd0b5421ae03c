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
};
