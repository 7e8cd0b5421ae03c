// The flight and engine gauges, the radios' heads, the navigation displays and the glass
// panels: the routines the panel's pass runs by instrument code.
#pragma once

// Flight and engine gauges.
void TEXT_plot_string(float x, float y, const char* s, int color, int lit);
void plot_solid_0_10_vert(float x, float y, float val, int num_dig, int mask_num, int num_masks, int lit);
void update_eng_asi(int en, int second);
void update_num_eng(int en);
void update_sqr_eng(int en);
void update_econs(int en);
void update_annunciator(int en);
void update_VOR(int i);
void update_RMI_ADF();
void update_otto();
void update_art_horiz();
void update_DG();
void update_HSI();
void update_altitude();
void update_VVI();
void update_Gmeter();
void update_totenergy();
void update_AOA();
void update_flaps();
void update_cabin_press();
void update_turn();
void update_needle();
void update_slip();
void update_compass();
void update_stormscope();
void update_radalt();
void update_suction();
void update_stall();
void update_clock();
void update_HM_chrono();
void update_timer();
void update_fuel(int* counter);
void update_thermo();
void update_water_quan();
void update_baro_pressdig();
void update_dme_dig_disp();
void update_engine_sync();
// Radios.
void update_NAV_COM_ADF(int w, int is_nav, int is_com, int is_adf, int is_dme, int is_ff);
void update_XPNDR(int manual);
void update_audiopanel();
void update_markers();
// GPS and FMS heads.
void update_GPS(int i);
void update_FMS();
// EFIS, ECAM and moving map.
void update_EFIS_element();
void update_EFIS_map();
void update_EFIS_mode();
void update_ECAM_display();
void update_ECAM_mode();
void update_HITS();
// Glass panels and the shuttle's displays.
void update_orb_prim();
void update_orb_horz();
void update_orb_vert();
void update_integrated_PFD();
void update_integrated_MFD();
