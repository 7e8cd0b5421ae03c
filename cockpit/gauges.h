// The flight and engine gauges, the radios' heads, the navigation displays and the glass
// panels: the routines the panel's pass runs by instrument code.
#pragma once

// Flight and engine gauges.
void TEXT_plot_string(float x, float y, const char* s, int color, int lit);
// The drum counter: num_dig wheels of the slot's strip centred at (x, y), then the mask.
void plot_solid_0_10_vert(float x, float y, float val, int num_dig, int mask_num, int num_masks, int lit);
// The six wheels of a drum reading |val|, hundred-thousands first, the units with their
// fraction; a wheel past 9 carries its excess into the next, a carried 0 reads 10.
void drum_wheels(float val, float fdig[6]);
void plot_solid_tape_vert(float x, float y, float val, int mask_num, int num_masks);
// The preset airspeed faces' fixed curve: the needle's angle in degrees clockwise from up.
float asi_to_ang(int code, float v);
// A scale's spacing for the span it shows: the tick step, the numbered step, and what a
// printed number is divided by.
struct scale_steps {
	float step, modnum, units;
};
scale_steps ret_scale_steps(float range);
// A whole number in the slot's digit sheet (layer 4), centred on (x, y).
void plot_sheet_number(float x, float y, float val, int lit);
void update_eng_asi(int en, int second);
void update_num_eng(int en);
void update_sqr_eng(int en);
void update_econs(int en);
// A lever's handle between its travel's ends (panel pixels of the instrument) for settings
// between top_sett and bot_sett, dragged by the mouse within semi_width of x, or with its group.
void plot_eng_slider(float x, float top_sett, float bot_sett, float top_trav, float bot_trav, float semi_width, int grab_all, float* val,
                     int han, int num_hans);
void update_annunciator(int en);
void update_VOR(int i);
void update_RMI_ADF();
void update_otto();
void update_art_horiz();
float ret_pitch_pix_per_deg(int code);   // the horizon ball's scale, from its tape file
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
