// Weather settings and the current wind: `atm`. Heights in metres MSL, `[3]` arrays
// the three wind layers low to high, `[2]` the two cloud layers.
#pragma once

struct atm_struct {
	int cld_type[2];                 // 0 clear, 2 misty, 5 overcast; 3..5 can carry precipitation
	float base_h_MSL[2], tops_h_MSL[2];
	float vis_frmult;                // frame-rate multiplier on visibility
	float vis_rep;                   // reported visibility (m)
	float vis_ground, vis_sky;
	float rain_set, tstm_set;        // 0..1
	float wind_tbl;                  // wind variability, 0..1
	float burst_prob;                // microburst probability, 0..1
	float rate_change;               // -1 worsening .. +1 improving
	float dewp_sea_C;
	float set_wind_alt_mtrs[3];
	float set_wind_spd_kts[3];
	float now_wind_spd_kts;
	float set_wind_dir_mag[3];
	float now_wind_dir_mag;
	float set_shear_spd_kts[3];
	float now_shear_spd_kts;
	float set_shear_dir[3];
	float now_shear_dir_deg;
	float set_turb_inc[3];           // 0..9
	float now_turb_inc;
	float wave_height, wave_length, wave_speed, wave_length_to_height;
	int wave_dir;
	float therm_prt;                 // share of the ground under thermals, 0..1
	float therm_vvi_fpm;
	float therm_alt_ft;
	int rway_fric_code, rway_patchy;
	int meteorite_code;
	int plot_aurora;
	char weather_seed;
	void* rwx_download_object;
	int download_rwx, has_rwx, use_rwx;
	float rwx_check_minutes, rwx_next_check_time, rwx_percent_downloaded, rwx_max_vis_nm;
	int prim_layer;
	float wind_X_msc, wind_Y_msc, wind_Z_msc;   // current wind, local frame (m/s)
	float wind_dir_true, wind_spd_msc;
	float level_rat_amb, rain_rat_amb, hail_rat_amb, snow_rat_amb;
	float strike_stop_time, strike_distance, strike_alpha;
	float strike_xyz[3][200][3];
};
