// Each frame's input from the devices: every attached joystick's axes, hats and buttons
// pooled in attach order, the mouse as a yoke or as the pilot's eyes, then the axes and
// buttons turned into controls.
#include "ui/HL_UI.h"
#include "ui/joystick.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "net/HL_NET.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include <cmath>
#include <cstring>

namespace {

bool joy_up = false;
int slot_owner[joy_axis_max];      // which device each pooled axis came from last frame
float last_cx = -1.0f, last_cy = -1.0f;

bool other_source()
{
	bool net_feed = false;
	for (int k = 14; k <= 17; k++) net_feed = net_feed || net.use_ip[k];
	return mnw.has_joy || mnw.eq_pfc_yoke || net_feed || net.getting_rawjoy || net.getting_astab || net.getting_flightcons;
}

void mouse()
{
	const bool panel = view_shows_panel(ren.view_type_act);   // the eye's centre: the HUD's over a panel
	const float cx = panel ? veh[0].HUD_ctr_x : 512.0f;
	const float cy = panel ? veh[0].HUD_ctr_y[view_panel_index(ren.view_type_act)] - mnw.look_up
	                       : mnw.y_res_now * 0.5f / (mnw.xy_scale > 0.0f ? mnw.xy_scale : 1.0f);
	const bool centre_click = mnw.mouse_clicked && std::fabs(mnw.mx - cx) < 100.0f && std::fabs(mnw.my - cy) < 100.0f;
	if (other_source()) {
		mnw.mouse_is_joy = 0;
		if (centre_click) ren.mouse_look = !ren.mouse_look;
	} else if (centre_click)
		mnw.mouse_is_joy = !mnw.mouse_is_joy;
	if (last_cx >= 0.0f && (std::fabs(cx - last_cx) > 1.0f || std::fabs(cy - last_cy) > 1.0f)) mnw.mouse_is_joy = ren.mouse_look = 0;   // a new view
	last_cx = cx;
	last_cy = cy;
	if (mnw.mouse_is_joy) {   // a box a hundred units each way
		mnw.assigned[1] = mnw.assigned[2] = 1;
		mnw.axis[2] = fltlim((mnw.mx - cx) * 0.01f, -1.0f, 1.0f);
		mnw.axis[1] = -fltlim((mnw.my - cy) * 0.01f, -1.0f, 1.0f);
	}
	if (ren.mouse_look) {
		const float psi = fltlim((mnw.mx - cx) * 360.0f / fltmax2((float)mnw.x_res_now, 1.0f), -180.0f, 180.0f);
		const float the = fltlim((mnw.my - cy) * 360.0f / fltmax2((float)mnw.y_res_now, 1.0f), -90.0f, 90.0f);
		if (ren.view_type_act == 1519 || ren.view_type_act == 1520) {   // the circling views turn the eye round the aircraft
			ren.circ_psi_rad = -psi * con.degtorad;
			ren.circ_the_rad = the * con.degtorad;
		} else {
			ren.mouse_look_os_psi = psi;
			ren.mouse_look_os_the = the;
		}
	}
}

// The collective's head: throttle down, up, idle and full.
void collective_head()
{
	int* b = mnw.n_button_pressed;
	const int* o = mnw.o_button_pressed;
	const veh_struct& v = veh[0];
	for (int e = 0; e < engn_max; e++) {
		const float t = flt[0].CONT_thro_ref[e];
		if (b[31] && b[30]) set_thro(e, 0.0f);
		else if (b[31] && b[29]) set_thro(e, v.throt_max_FWD);
		else if (b[30] && !o[30]) set_thro(e, fltmax2(t - 0.1f, 0.0f));
		else if (b[29] && !o[29]) set_thro(e, fltmin2(t + 0.1f, v.throt_max_FWD));
	}
	b[29] = b[30] = b[31] = 0;
}

}  // namespace

void JOY_init()
{
	std::memset(mnw.n_button_pressed, 0, sizeof mnw.n_button_pressed);
	std::memset(mnw.o_button_pressed, 0, sizeof mnw.o_button_pressed);
	for (int& o : slot_owner) o = -1;
	joy_up = plat_joy_init() != 0;   // none: mouse and keyboard still fly
}

void JOY_close()
{
	if (joy_up) plat_joy_close();
	joy_up = false;
}

void JOY_get()
{
	std::memcpy(mnw.o_button_pressed, mnw.n_button_pressed, sizeof mnw.n_button_pressed);
	std::memset(mnw.n_button_pressed, 0, sizeof mnw.n_button_pressed);
	float old_raw[joy_axis_max];
	std::memcpy(old_raw, mnw.joy_raw_dat, sizeof old_raw);
	for (int& a : mnw.assigned) a = 0;
	std::memset(mnw.joy_raw_dat, 0, sizeof mnw.joy_raw_dat);
	if (joy_up) {
		plat_joy_update();
		int ra = 0, rb = 0, filled = 0;
		for (int d = 0; d < plat_joy_count() && d < 4; d++) {
			plat_joy_state s;
			if (!plat_joy_read(d, &s)) return;   // gone mid-read: this frame is lost
			const int id = plat_joy_id(d);
			for (int a = 0; a < 8; a++) {
				if (!s.has_axis[a]) continue;
				if (slot_owner[ra] != id) {   // the slot now holds another device's axis
					mnw.lo_raw_dat[ra] = 9.9e9f;
					mnw.hi_raw_dat[ra] = -9.9e9f;
					old_raw[ra] = s.axis[a];
					slot_owner[ra] = id;
				}
				mnw.joy_raw_dat[ra] = s.axis[a];
				ra = intmin2(ra + 1, joy_axis_max - 1);   // extras overwrite the last
				filled++;
			}
			for (int h = 0; h < s.n_hats; h++)
				for (int p = 0; p < 8; p++) {
					mnw.n_button_pressed[rb] |= s.hat[h] == p * 4500;
					rb = intmin2(rb + 1, joy_button_max - 1);
				}
			for (int b = 0; b < s.n_buttons; b++) {
				mnw.n_button_pressed[rb] |= s.button[b] != 0;
				rb = intmin2(rb + 1, joy_button_max - 1);
			}
		}
		for (int k = filled; k < joy_axis_max; k++) {   // a slot no device fills takes nothing
			mnw.joy_raw_dat[k] = old_raw[k];
			slot_owner[k] = -1;
		}
	}
	if (!mnw.first_miss_cycle) JOY_axes_to_functions(old_raw);
	if (mnw.top_win == 14 && stg.joyW_tab == 1) JOY_learn_null_zones();
	if (mnw.top_win == 0) mouse();
	update_hardware_out();
	if (mnw.has_joy || mnw.eq_pfc_yoke) JOY_buttons();
	if (veh[0].has_collective && mnw.eq_FLcollec) collective_head();
	JOY_end_frame_fire();
}
