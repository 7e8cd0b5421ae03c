// The flat layer over the picture, in its order: head-up displays, sunglasses, the mouse's
// flight box, the replay bar, warnings, text, the night-vision tube's speckle, and the
// veil of red-out, black-out, hypoxia and glare.
#include "render/overlay.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "cockpit/HL_COCKPIT.h"
#include "net/HL_NET.h"
#include "plugin/HL_PLUGIN.h"
#include "ui/HL_UI.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <string>

namespace {

body_effect eye{};

bool replay_bar_shown() { return mnw.replay_mode != 0; }

}  // namespace

body_effect update_body_effects(float dt)
{
	const float g = flt[0].g_nrml;
	eye.redout += (interp(-2.5f, 0.0f, -3.5f, 1.0f, g, 0) - eye.redout) * std::min(dt, 1.0f);
	eye.blackout += (interp(7.0f, 0.0f, 10.0f, 1.0f, g, 0) - eye.blackout) * std::min(dt, 1.0f);
	if (veh[0].max_press_diff > 0.01f) eye.hypoxia += (interp(12500.0f, 0.0f, 15000.0f, 1.0f, stg.cabin_alt_act_ft, 0) - eye.hypoxia) * std::min(dt * 0.1f, 1.0f);
	eye.glare = ren.glare_rat * 0.75f;
	if (!stg.draw_g_load || mnw.first_miss_cycle) eye.redout = eye.blackout = eye.hypoxia = eye.glare = 0.0f;
	eye.alpha = std::min(eye.redout + eye.blackout + eye.hypoxia + eye.glare, 1.0f);
	if (eye.alpha > 0.0f) {
		eye.rgb[0] = std::min(1.0f, (eye.redout + eye.glare) / eye.alpha);
		eye.rgb[1] = eye.rgb[2] = eye.glare / eye.alpha;
	}
	return eye;
}

// With the mouse as the stick: a box round the centre the stick's travel spans, and a
// cross where the stick is when nothing else flies.
void draw_mouse_box()
{
	if (!mnw.mouse_is_joy || mnw.replay_mode) return;
	const int v = ren.view_type_act;
	const bool panel = view_shows_panel(v) && veh[0].HUD_ctr_y[view_panel_index(v)] > 0.0f;
	const float cx = panel ? veh[0].HUD_ctr_x : 512.0f, cy = panel ? veh[0].HUD_ctr_y[view_panel_index(v)] - mnw.look_up : 0.5f * mnw.y2_pix;
	OGL_framerect(0, 0.5f, cx - 100.0f, cy - 100.0f, 200.0f, 200.0f);
	OGL_line(0, 0.5f, cx - 5.0f, cy, cx + 5.0f, cy);
	OGL_line(0, 0.5f, cx, cy - 5.0f, cx, cy + 5.0f);
	const float x = cx + mnw.YK_roll * 100.0f, y = cy - mnw.YK_ptch * 100.0f;
	OGL_line(0, 1.0f, x - 5.0f, y, x + 5.0f, y);
	OGL_line(0, 1.0f, x, y - 5.0f, x, y + 5.0f);
}

// Replay's strip along the top: the clock's scroll and nine buttons that pick the mode.
void draw_replay_bar()
{
	if (!replay_bar_shown()) return;
	const float top = mnw.y2_pix;
	OGL_grayrect(8.0f, top - 20.0f, 1016.0f, top - 4.0f, 0.5f);
	static const float bx[9] = {428, 448, 471, 489, 512, 535, 553, 576, 596};
	for (int k = 0; k < 9; k++) {
		const float x = bx[k], y = top - 35.0f, a = mnw.replay_mode == k + 1 ? 1.0f : 0.5f;
		OGL_framerect(0, a, x - 10.0f, y - 10.0f, 20.0f, 20.0f);
		// Stop, fast rewind, rewind, slow rewind, pause, slow play, play, fast play, stop.
		const int arrows = k == 1 || k == 7 ? 2 : (k == 0 || k == 4 || k == 8) ? 0 : 1;
		const float dir = k < 4 ? -1.0f : 1.0f;
		if (arrows == 0 && k != 4) OGL_framerect(0, a, x - 4.0f, y - 4.0f, 8.0f, 8.0f);
		if (k == 4) {
			OGL_line(0, a, x - 2.0f, y - 5.0f, x - 2.0f, y + 5.0f);
			OGL_line(0, a, x + 2.0f, y - 5.0f, x + 2.0f, y + 5.0f);
		}
		for (int n = 0; n < arrows; n++) {
			const float ox = x + dir * (n * 5.0f - (arrows - 1) * 2.5f);
			OGL_line(0, a, ox - dir * 4.0f, y - 5.0f, ox + dir * 4.0f, y);
			OGL_line(0, a, ox + dir * 4.0f, y, ox - dir * 4.0f, y + 5.0f);
		}
		if (k == 3 || k == 5) OGL_line(0, a, x - 6.0f, y - 7.0f, x + 6.0f, y - 7.0f);   // the slow ones underlined
		if (mnw.mouse_clicked && std::fabs((float)mnw.mx - x) <= 10.0f && std::fabs((float)mnw.my - y) <= 10.0f) mnw.replay_mode = k + 1;
	}
}

// What the simulator wants the pilot to know, down the right and the middle.
void draw_warnings()
{
	if (!stg.warn_text || replay_bar_shown()) return;
	const float top = mnw.y2_pix;
	float y = top - 30.0f;
	static std::string msg;   // its room kept from frame to frame
	auto right = [&](bool on, const char* s) {
		if (!on) return;
		gray_string(69, 898.0f, y, msg.assign(s));
		y -= 10.0f;
	};
	bool carb_ice = false, failed = false;
	for (float c : flt[0].ENGN_carb_ice) carb_ice |= c > 0.01f;
	for (int k = 0; k < 73; k++) failed |= flt[0].fail_stat[k] == 6;
	right(mnw.track_net != 0, "network tracking");
	right(stg.text_out != 0, "writing data to disk");
	right(carb_ice, "carburettor ice");
	right(failed, "equipment failure");
	right(flt[0].over_g != 0, "over g limit");
	right(flt[0].over_vne != 0, "over Vne");
	right(flt[0].over_vfe != 0, "over Vfe");
	right(flt[0].over_vle != 0, "over Vle");
	y = top - 50.0f;
	auto middle = [&](bool on, const char* s) {
		if (!on) return;
		gray_string(69, 512.0f, y, msg.assign(s));
		y -= 10.0f;
	};
	middle(stg.cat_waiting != 0, "catapult ready: brakes off to launch");
	middle(stg.tow_waiting != 0, "tow plane waiting");
	middle(stg.tow_inprog != 0, "tow in progress");
	middle(stg.win_waiting != 0, "winch ready");
	middle(stg.win_inprog != 0, "winch in progress");
	middle(stg.car_inprog != 0, "carried by the mother ship");
	middle(mnw.paused != 0, "paused");
}

void WORLD_scene_2d_overlay()
{
	const int v = ren.view_type_act;
	if (v == 1500 || v == 1524) {
		set_lit_ins(2);
		HUD_reg_plot_all();
		mnw.win_x = mnw.win_y = 0;
		ins_size = 1.0f;
	}
	if (ren.sunglasses_on) OGL_fillrect(15, 0.2f, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix - mnw.x1_pix, mnw.y2_pix - mnw.y1_pix);
	draw_mouse_box();
	draw_replay_bar();
	draw_warnings();
	plot_text_and_checklist();
	if (!replay_bar_shown()) {
		plot_atc_menu();
		if (NBPDoDrawingHook(17)) plot_data_output();
		NBPDoDrawingHook(18);
	}
	if (ren.night_vision_on) {   // the tube's speckle, never still
		const float s = ran01(), t = ran01(), tiles = 2.0f + 2.0f * ran01();
		const float x1 = mnw.x1_pix, y1 = mnw.y1_pix, x2 = mnw.x2_pix, y2 = mnw.y2_pix;
		OGL_2dquad(223, 44, 0.1f, x1, y1, s, t, x2, y1, s + tiles, t, x2, y2, s + tiles, t + tiles, x1, y2, s, t + tiles, 1, st_blend);
	}
	const body_effect e = update_body_effects(mnw.prd_FM);
	if (e.alpha > 0.01f) {
		OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
		OGL_setcolorRGBA(e.rgb[0], e.rgb[1], e.rgb[2], e.alpha, 1);
		glRectf(mnw.x1_pix, mnw.y1_pix, mnw.x2_pix, mnw.y2_pix);
	}
}
