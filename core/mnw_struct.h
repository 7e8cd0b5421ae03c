// Window, input, clock and mode state: `mnw`. The menu tables and the raw mouse and
// joystick fields belong to the window and joystick code; these are what others read.
#pragma once
#include "core/HL_LIMITS.h"

struct mnw_struct {
	// Window and screen geometry; drawing works in a 1024 x 768 virtual screen.
	int window, top_win, menu_up;
	int win_x, win_y, win_dx, win_dy, x_res_now, y_res_now;
	float x_off, y_off, xy_scale;
	float x1_pix, y1_pix, x2_pix, y2_pix;   // the whole window in panel space
	float x1_rat, y1_rat, x2_rat, y2_rat;   // the 3-D view's near-plane ratios
	float look_up;   // the panel's scroll, panel pixels
	float look_down_deg_req, look_down_deg_act;   // the cockpit eye tipped down, degrees (0 or -10), and where it is
	int look_up_mode;   // 0 up, 1 centre, 2 down
	float look_up_UP[9], look_up_CTR[9], look_up_DN[9];   // scroll targets by panel index

	// Input of this pass.
	int mx, my;
	int mouse_clicked, mouse_double_clicked, mouse_lifted, now_dragging, delay_dragging;
	int mouse_wheel, key_hit, key_pressed;
	float m_move_time, m_down_time;
	int any_key_is_down, fire_key_is_down;

	float YK_ptch, YK_roll, YK_hdng;   // pilot's yoke, -1..1
	float AS_ptch, AS_roll, AS_hdng;   // artificial-stability output
	float axis[axis_max];
	int assigned[axis_max];
	float damp_rat[3];
	int eq_ped_wibrk, eq_ped_nobrk;   // pedals with toe brakes; pedals without brakes
	// Joysticks: the raw axes and buttons pooled from every device, their ranges as seen,
	// and what each is assigned to.
	float joy_raw_dat[joy_axis_max], lo_raw_dat[joy_axis_max], hi_raw_dat[joy_axis_max];
	int joy_AXIS_use[joy_axis_max], joy_rev_axis[joy_axis_max];
	int n_button_pressed[joy_button_max], o_button_pressed[joy_button_max], joy_BUTN_use[joy_button_max];
	float joy_null_rat[3], joy_power_rat[3];
	int has_joy, mouse_is_joy, eq_pfc_yoke, eq_FLcollec;

	// Modes.
	int paused, replay_mode, framerateOK, cyc_out, track_cpu, track_net;
	float prd_FM, prd_UI, rt_rat_FM, rt_rat_UI, prd_max;

	// Clocks (s).
	float real_time;        // since the first pass, never stops
	float totl_time;        // simulated, stops when not flying
	float miss_time;        // simulated, since this flight began
	float zulu_time, locl_time;
	float timr_time;
	int timer_running;
	float hobs_time;
	int first_miss_cycle;
	int use_sys_time;
	float sys_offset_hours;
	int locl_date_jan1;
	int locl_year;   // the calendar year of that date
	float pulse_alpha;

	// Timer flags: set for the one pass in which their period comes round.
	int puff01, puff02, puff05, puff1, puff2, puff5, puff10, puff20, puff40;

	float dis_travelled;

	// Start-up requests and interface state.
	int x_res_req, y_res_req, col_res_req, set_res_req, tex_res, lang, keylist_up;
	char key[97];                  // key map, one character a command
	int start_qfl, eq_FLradios, radio_chatter_on;
	int cursor_type, entry_field;
	char typed[64];                // characters typed this pass
	// The map: its rectangle in the window, world x and z of its left and top edge, its scale.
	float map_x1_pix, map_y1_pix, map_x2_pix, map_y2_pix, map_os_x, map_os_z, map_pix_per_meter, map_zoom;
};
