// The dynamic state of one aircraft in flight: `flt[p]`. Reset by a flight start,
// moved by the flight step, read by every gauge, the network and the replay.
// Floats are 32-bit, ints 32-bit, dob_* 64-bit; fields stay in this order.
#pragma once
#include "core/HL_LIMITS.h"

struct flt_struct {
	// Identity and control requests.
	int update_type;            // 0 flight model, 1 computer-flown, 2 network, 3 plug-in
	int ip_from_int;
	float last_time_rcvd;
	float FC_ptch, FC_roll, FC_hdng;
	float sbrk_rqst, sbrk_rat;
	float swdi_rqst, swdi_rat;
	float flap_rqst, flap_rat;
	float slat_rqst, slat_rat;
	float vect_rqst, vect_rat;
	int gear_handle;
	float ailn_trim, elev_trim, rudd_trim, rotr_trim;
	float stab_def;
	int i, j;
	float q[4];                 // attitude quaternion, w first

	// Forces and motion, interleaved: the x group, then y, then z.
	float vx_air_on_acf, vx_acf_axis, lift_path_axis, faxil_prop_acf, faxil_aero_acf, faxil_gear_acf;
	float g_nrml, ax, vx, L, Pdot, P, Prad, phi;
	float vy_air_on_acf, vy_acf_axis, drag_path_axis, fnrml_prop_acf, fnrml_aero_acf, fnrml_gear_acf;
	float g_axil, ay, vy, M, Qdot, Q, Qrad, the;
	float vz_air_on_acf, vz_acf_axis, side_path_axis, fside_prop_acf, fside_aero_acf, fside_gear_acf;
	float g_side, az, vz, N, Rdot, R, Rrad, psi;

	// Derived motion.
	float g_total;
	float alpha, beta;
	float h_path, v_path;
	float sin_the, cos_the, sin_psi, cos_psi, sin_phi, cos_phi, sin_alph, cos_alph, sin_beta, cos_beta;
	float V_msc, AV_msc, AV_sig_kts, Qstatic, Mach, Vh_fpm, psi_mag_act;
	float terrain_y_cg, y_agl_mtr;

	// Position.
	double dob_x, dob_y, dob_z;
	double dob_lat, dob_lon, dob_ele;
	float dat_x, dat_y, dat_z, dat_lat, dat_lon, dat_ele;

	// Instrument values.
	float v_ind_kts, h_ind_ft, vvi_ind_fpm;
	float TR_roll_ind_deg, TR_hdng_ind_deg, slip_ind_deg;
	float the_ind[2], phi_ind[2], psi_ind_mag[2];   // [0] vacuum gyros, [1] electric
	float com_ind_mag;
	float gyro_force[2], gyro_spin[2], dg_drift[2];

	// Rotor attitudes, elements and forces.
	float Q_rotor_rad[engn_max], R_rotor_rad[engn_max];
	float v_el[part_max][el_max][azi_max];
	float alpha_el[part_max][el_max][azi_max];
	float del_dir[part_max][el_max][azi_max];
	float downwash_deg[part_max][el_max];
	float CL_grndeffect[part_max], CD_grndeffect[part_max];
	float Q_centroid_loc[part_max][4], Q_centroid_MULT[part_max][4];
	int stalled[part_max];
	float nrml_force_path[part_max], axil_force_path[part_max];
	float force_XYZ[part_max][el_max][3];

	// Tyres and gears (only parts 67..72 used).
	float tire_trq[part_max];
	float tire_vrt_def_veh[part_max], tire_vrt_frc_veh[part_max];
	float tire_skid_rat[part_max], tire_drag_dis[part_max];
	float tire_net_thrust[part_max], tire_net_power[part_max];
	float tire_omega[part_max], tire_rotation[part_max], term_omega[part_max];
	float tire_steer[part_max];
	float gear_psi[part_max], gear_the[part_max], gear_phi[part_max];

	// Control deflections and geometry now (deg).
	float ail1_def[part_max], ail2_def[part_max], spo1_def[part_max], spo2_def[part_max];
	float yawb_def[part_max], elev_def[part_max], rudd_def[part_max], flap_def[part_max];
	float foil_swe_inc[part_max], foil_dih_inc[part_max];
	float elem_inc_inc[part_max][el_max];
	float sin_act_dihed[part_max], cos_act_dihed[part_max], sin_act_sweep[part_max], cos_act_sweep[part_max];

	// Thrust points and engine state.
	float vert_nace_cant_vector[engn_max], vert_disc_cant_vector[engn_max];
	float vert_disc_cant_cyclic[engn_max], side_disc_cant_cyclic[engn_max];
	float cyclic_elev_command[engn_max], cyclic_ailn_command[engn_max];
	float cyclic_elev_blad_alph[engn_max], cyclic_ailn_blad_alph[engn_max];
	float cyclic_elev_disc_tilt[engn_max], cyclic_ailn_disc_tilt[engn_max];
	float CONT_thro_ref[engn_max], CONT_thro_use[engn_max];
	float CONT_prop_rsc[engn_max];
	float CONT_mixt[engn_max], CONT_heat[engn_max], CONT_cowl[engn_max];
	int CONT_ignition[engn_max];
	int CONT_prop_mode[engn_max];          // 3 is reverse
	int ENGN_burning_fuel[engn_max], ENGN_burner_on[engn_max];
	float ENGN_burning_rat[engn_max], ENGN_burner_rat[engn_max];
	float ENGN_N1_[engn_max], ENGN_N2_[engn_max], ENGN_MPR[engn_max], ENGN_EPR[engn_max];
	float ENGN_TRQ_nm[engn_max], ENGN_FF_kgs[engn_max], ENGN_ITT[engn_max], ENGN_EGT[engn_max];
	float ENGN_CHT[engn_max], ENGN_OILP[engn_max], ENGN_OILT[engn_max], ENGN_OILQ[engn_max];
	float ENGN_gen_amp[engn_max], ENGN_bat_amp[engn_max], ENGN_bat_volt[engn_max];
	float ENGN_sigma[engn_max];
	float ENGN_carb_ice[engn_max], ENGN_oil_lube_rat[engn_max];
	float ENGN_power[engn_max], ENGN_tacrad[engn_max], ENGN_omegadot[engn_max];
	float POINT_drag_TRQ[engn_max], POINT_omega_dot[engn_max], POINT_tac_rad[engn_max];
	float POINT_thrust[engn_max], POINT_prop_eff[engn_max];
	float POINT_pitch_deg_ref[engn_max], POINT_pitch_deg_use[engn_max];
	float POINT_cone_rad[engn_max], POINT_side_wash[engn_max];
	float POINT_XYZ[engn_max][3];
	float POINT_DVinc[engn_max], RING_DVinc[engn_max][el_max];

	// Mass (kg) and inertia (kg m^2): Jxx about x (pitch), Jyy about y (yaw), Jzz about z (roll).
	float m_fixed, m_fuel[tank_max], m_fuel_total, m_jettison, m_total;
	float Jxx_total, Jyy_total, Jzz_total;
	float cgz_ref_to_default;
	float jett_size, jett_len;

	// Failures, ice and status.
	char fail_stat[fail_max];
	float fail_tm_v[fail_max];
	int comp_fail_stat[engn_max];
	float C_m, C_n, cl_overall, cd_overall, l_o_d;
	float pitot_ice, prop_ice, inlet_ice, window_ice, frame_ice;
	int over_g, over_vne, over_vfe, over_vle;
	int nav_lite, bea_lite, str_lite, lan_lite, tax_lite, lite_map;
	float bea_alpha;
	int stall_warning, lo_rotor_warning, str_inflash, smoking;
	int onground_any, onground_all;
	float parkbrake, l_brake_add, r_brake_add;
	float jato_left;
	float disp_rat;
	float vacuum;
	int ai_app_mode;
	int rocket_mode;
	float rocket_timeout;
	int is_dumping_water;
	float prop_ospeed_test_timeout;
	float blown_flap_engage_rat, lift_fan_total_power, pre_rot_total_power;
};
