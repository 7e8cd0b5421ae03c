// Logbook and miscellany (`msc`), where the world is (`env`), reliability (`rel`).
#pragma once
#include "core/HL_LIMITS.h"

constexpr int log_max = 5000;   // logbook entries

struct msc_struct {
	// Logbook, filled by the logbook reader.
	int log_index[log_max];
	char log_pilot[log_max][32];
	char log_date[log_max][12];
	char log_tail[log_max][12];
	char log_acft[log_max][32];
	char log_depa[log_max][8];
	char log_dest[log_max][8];
	int log_numb_land[log_max];
	float log_flit_time[log_max], log_nigt_time[log_max], log_inst_time[log_max], log_xcnt_time[log_max];

	char apt_id_str[5];
	int loc_apt_wrl, loc_apt_lcl, plt_apt_wrl;
	int lcl_rwy_ram;
	int backwards;
	int ai_apt_wrl_use, ai_rwy_wrl_use, ai_directn_use;
	int stab_ptch_test, stab_hdng_test;
	int show_hotspots;
	int ai_flys, ai_views;
	float radio_busy_fac;
	float crash_damp_timeout;
	int checklist_now, checklist_max;
};

struct env_struct {
	int planet;                     // 0 Earth, 1 Mars
	int lat_sou, lon_wes;           // south-west corner of the loaded region (whole degrees)
	float obj_y_top;
	float obj_x, obj_z;             // where the roof under the aircraft was found: it is level there
	float lo_x, hi_x, lo_z, hi_z;   // terrain grid limits, local frame (m)
	float mag_var;
	float terrain_ctr[3], terrain_nrm[3];
	int surf_tex;
	float roughness;
	int rwy_wrl_over;
	int over_carr, over_frig, over_obs;
	float boat_x[boat_max], boat_y[boat_max], boat_z[boat_max];
	float boat_the[boat_max], boat_psi[boat_max], boat_phi[boat_max];
	float boat_vthe[boat_max], boat_vpsi[boat_max], boat_vphi[boat_max];
	float jet_vel[3];
	float jet_line[2][3], tow_line[2][3];
	float tow_line_alph, tow_line_beta;
};

struct rel_struct {
	float hyd_rat;
	float real_MTBF_hours;          // default 1000
	int fail_key_hit;
	int RAT_on;
};
