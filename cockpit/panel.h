// The panel: the instrument catalogue's art paths, the panel composed at aircraft load, the
// instruments' text files, and the pass that walks the slots each frame.
#pragma once
#include <string>

constexpr int ins_code_max = 613;
constexpr int ins_slot_max = 300;
extern const char* const ins_path[ins_code_max];   // "cockpit:FOLDER:NAME.png" by code

// The instrument the pass is drawing (its scale is ins_size, with the drawing layer).
extern int ins_type, ins_index;
extern float os_y_from_PM_coords;   // how far a panel taller than 768 lifts everything on it

// Numbers from the instruments' text files.
extern float cus_dat_1[ins_code_max], cus_dat_2[ins_code_max], cus_dat_3[ins_code_max], cus_dat_4[ins_code_max];
extern float cus_dat_5[ins_code_max], cus_dat_6[ins_code_max], cus_dat_7[ins_code_max], cus_dat_8[ins_code_max];
constexpr int tape_max = 21, scroll_max = 15, scroll_row_max = 13;
extern float t_bot_tape[2][tape_max], t_top_tape[2][tape_max], v_bot_tape[2][tape_max], v_top_tape[2][tape_max], misc1_tape[2][tape_max];
extern float s_lft_scroll[scroll_row_max][scroll_max], s_rgt_scroll[scroll_row_max][scroll_max];
extern float t_bot_scroll[scroll_row_max][scroll_max], t_top_scroll[scroll_row_max][scroll_max];
extern float sma_tic_scroll[scroll_max], scale_scroll[scroll_max];
extern int big_tic_scroll[scroll_max], num_mod_scroll[scroll_max];
extern const int tape_ins[tape_max];     // the instrument whose text file is each tape's
extern const int scroll_ins[scroll_max];   // and each scroll's

// Composition.
void panel_path(int t, int view_sel, std::string* path);   // the background: own bitmap (0), aircraft folder (1), default (2)
std::string ins_layer_path(int code, int layer);   // the art path of a layer (0 the plate), ".png"
std::string aircraft_folder();                      // the aircraft's folder, with its separator
int ins_has_back(int code);                         // 0 for elements drawn with no plate of their own

// Text files.
int open_ins_file(const std::string& sub_path);   // the aircraft folder's copy, else the default; nonzero when open
void init_cus_specs(int code, const std::string& sub_path, int lines);
void init_tapes_specs();

// The mouse, relative to the instrument being drawn and scaled with it; limits included.
bool in_ins_box(float x1, float y1, float x2, float y2);
bool but_mouse_region(float x1, float y1, float x2, float y2, int constant_drag);   // pressed (or dragging) in the box
bool but_bool(float x, float y, float s, int constant_drag);                        // within s of (x, y)
// A two-way control in the box of s round (x, y): -rate1 or +rate1 on a click, rate2 a
// second while held (keep_going), by which side of it the mouse is on; 0 elsewhere.
float but_scroll(int but_typ, float x, float y, float s, float rate1, float rate2, int keep_going);

// The switch family (manual_type -1 from the panel, else a code thrown from outside, not
// drawn) and the knob family at (x, y) of the instrument.
void update_rhe(float x, float y, int type);

// The pass.
int get_next_eng(int* current);
void plot_ins_overlay(float x, float y, float ang, int val, int num_vals, int lit, int rotated, int layer);
float val_to_ang(int cus_sel, float lo_val_ned, float lo_ang_ned, float hi_val_ned, float hi_ang_ned, int en, float val);
// The per-family counters of a pass: by hand, those that wrap after each use; by
// get_next_eng, one a gauge kind, for the round and tape gauges and for the numbers.
struct panel_counters {
	int dashbool, econs, sqr_eng, annunciator, starter, gear, fuel;
	int next_eng[2][16];
};
extern panel_counters pcount;
void panel_reset_counters();   // all of them, at the top of a pass
// Until the catalogue's routines come, a code draws its plate only; 1 when the code exists.
int run_ins_routine(int code);
