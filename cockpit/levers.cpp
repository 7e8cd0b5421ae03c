// The panel's levers: throttles, propeller, mixture, carburettor heat and cowl flap levers,
// the speedbrake, the thrust vector, the wing sweep and the rotor pitch. A lever follows the
// mouse while it is dragged along its travel; a drag in the middle of a group of levers of one
// kind moves them all. The travel's ends are the first two numbers of its text file.
#include "cockpit/gauges.h"
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "flight/HL_FLIGHT.h"
#include "render/ogl.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

// The mouse over the instrument, in the art's pixels.
float mouse_x() { return (mnw.mx - mnw.win_x) / std::max(ins_size, 0.01f); }
float mouse_y() { return (mnw.my - mnw.win_y) / std::max(ins_size, 0.01f); }

bool near_travel(float x, float semi_width, float y1, float y2)
{
	if (mnw.menu_up != -1) return false;
	const float lo = std::min(y1, y2) - 10.0f, hi = std::max(y1, y2) + 10.0f, my = mouse_y();
	return std::fabs(mouse_x() - x) <= semi_width && my >= lo && my <= hi;
}

// The governed lever's place from the propeller speed it set: idle, open and fire speeds at
// 0, the throttle's full opening, and 1.
float ret_auto_lever(int en)
{
	const veh_struct& v = veh[0];
	const float idle = v.auto_omega_idle, open = v.auto_omega_open, fire = v.auto_omega_fire;
	const float open_at = (open - idle) / fltmax2(fire - idle, 1.0f);
	const float prop = interp(v.RSC_mingreen_PROP, 0.0f, v.RSC_redline_PROP, 1.0f, flt[0].CONT_prop_rsc[en], 0);
	const float speed = v.RSC_mingreen_ENGN + prop * (v.RSC_redline_PROP - v.RSC_mingreen_ENGN);
	return speed <= open ? interp(idle, 0.0f, open, open_at, speed, 0) : interp(open, open_at, fire, 1.0f, speed, 0);
}

// A throttle: the mouse's ratio up the travel sets the engine's throttle and propeller mode.
float update_throttle(int en, bool graball)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float y1 = cus_dat_1[ins_type], y2 = cus_dat_2[ins_type];
	const bool governed = v.auto_rpm_EQ && v.prop_type[en] == 1;
	// Without beta or reverse the whole travel is forward thrust: the lever's first quarter,
	// where those modes would sit, is left out rather than dead.
	const bool forward_only = !v.beta_prop_EQ && !v.rev_thrust_EQ;
	constexpr float thro3 = 0.25f;
	const bool dragging = mnw.now_dragging && (graball || near_travel(0.0f, 15.0f, y1, y2));
	if (dragging && y2 != y1) {
		mnw.cursor_type = 11;
		const float ratio = fltlim((mouse_y() - y1) / (y2 - y1), 0.0f, 1.0f);
		if (governed) {
			float thro, prop;
			auto_set_thro_prop(ratio, &thro, &prop);
			f.CONT_thro_ref[en] = v.throt_max_FWD * thro;
			f.CONT_prop_rsc[en] = v.RSC_mingreen_PROP + prop * (v.RSC_redline_PROP - v.RSC_mingreen_PROP);
		} else {
			const int mode = f.CONT_prop_mode[en];
			set_thro_prop(forward_only ? thro3 + ratio * (1.0f - thro3) : ratio, en, 1);
			if (f.CONT_prop_mode[en] != mode && !mnw.mouse_clicked) {   // beta and reverse take a fresh pull
				f.CONT_prop_mode[en] = mode;
				f.CONT_thro_ref[en] = 0.0f;
			} else if (f.CONT_prop_mode[en] != mode && mode == 1) {
				f.CONT_thro_ref[en] = 0.0f;
			}
		}
		const int n = std::clamp(v.num_engines, 1, engn_max);
		for (int e = 0; e < n; e++) {
			if (e == en || !(v.vect_EQ || graball)) continue;
			f.CONT_thro_ref[e] = f.CONT_thro_ref[en];
			if (graball) {
				f.CONT_prop_mode[e] = f.CONT_prop_mode[en];
				if (v.auto_rpm_EQ) f.CONT_prop_rsc[e] = f.CONT_prop_rsc[en];
			}
		}
	}
	if (governed) return ret_auto_lever(en);
	const float lever = set_thro_prop(0.0f, en, 0);
	return forward_only ? fltlim((lever - thro3) / (1.0f - thro3), 0.0f, 1.0f) : lever;
}

}  // namespace

void plot_eng_slider(float x, float top_sett, float bot_sett, float top_trav, float bot_trav, float semi_width, int grab_all, float* val,
                     int han, int num_hans)
{
	if (near_travel(x, semi_width, top_trav, bot_trav)) {
		mnw.cursor_type = 11;
		if (mnw.now_dragging) *val = interp(bot_trav, bot_sett, top_trav, top_sett, mouse_y(), 0);
	} else if (grab_all && mnw.now_dragging) {
		*val = interp(bot_trav, bot_sett, top_trav, top_sett, mouse_y(), 0);
	}
	if (!std::isfinite(*val)) *val = bot_sett;
	const float y = interp(bot_sett, bot_trav, top_sett, top_trav, *val, 0);
	if (num_hans > 1 && ins_bind(1, 0)) {   // the shaft, from below the handle up to it, out of the art's middle row
		const int frame = std::min(han + (num_hans == 6 ? 3 : 1), num_hans - 1);
		const float w = ins_layer_dx(1) / num_hans, mid_row = ins_layer_dy(1) * 0.5f;
		const float y0 = ((top_trav + bot_trav) * 0.5f + y) * 0.5f;
		glDisable(GL_CULL_FACE);
		glBegin(GL_QUADS);
		ins_emit_quad(1, x, (y0 + y) * 0.5f, 0.0f, w * 0.5f, std::fabs(y - y0) * 0.5f, frame * w, mid_row, (frame + 1) * w, mid_row);
		glEnd();
		glEnable(GL_CULL_FACE);
	}
	plot_ins_overlay(x, y, 0.0f, han, num_hans, 0, 0, 1);
}

void update_econs(int en)
{
	const int c = ins_type;
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	en = std::clamp(en, 0, engn_max - 1);
	const float y1 = cus_dat_1[c], y2 = cus_dat_2[c];
	// Grabbing a whole group: the mouse over the middle of the levers of this kind.
	const float ctr = c == 47 || c == 48 ? stg.thro_x_ctr : c == 49 || c == 50 ? stg.prop_x_ctr : c == 51 || c == 52 ? stg.mixt_x_ctr
	                : c == 53 || c == 54 ? stg.heat_x_ctr : c == 55 ? stg.cowl_x_ctr : 0.0f;
	bool graball = false;
	if (ctr > 0.0f && mnw.menu_up == -1) {
		const float trav_lo = mnw.win_y + std::min(y1, y2) * ins_size - 10.0f, trav_hi = mnw.win_y + std::max(y1, y2) * ins_size + 10.0f;
		if (std::fabs(mnw.mx - ctr) <= 15.0f && mnw.my >= trav_lo && mnw.my <= trav_hi) {
			mnw.cursor_type = 11;
			graball = mnw.now_dragging != 0;
		}
	}
	const int n = std::clamp(v.num_engines, 1, engn_max);
	const int han = c == 48 ? (n > 1 && en == n - 1 ? 2 : en == 0 ? 0 : 1) : 0;
	switch (c) {
	case 47:
	case 48: {
		float ratio = update_throttle(en, graball);
		plot_eng_slider(0.0f, 1.0f, 0.0f, y2, y1, 0.0f, 0, &ratio, han, c == 48 ? 6 : 1);
		break;
	}
	case 49:
	case 50:
		plot_eng_slider(0.0f, v.RSC_redline_PROP, v.RSC_mingreen_PROP, y2, y1, 15.0f, graball, &f.CONT_prop_rsc[en], 0, c == 49 ? 1 : 2);
		break;
	case 51:
	case 52: plot_eng_slider(0.0f, 1.0f, 0.0f, y2, y1, 15.0f, graball, &f.CONT_mixt[en], 0, c == 51 ? 1 : 2); break;
	case 53:
	case 54: plot_eng_slider(0.0f, 0.0f, 1.0f, y2, y1, 15.0f, graball, &f.CONT_heat[en], 0, c == 53 ? 1 : 2); break;
	case 55: plot_eng_slider(0.0f, 0.0f, 1.0f, y2, y1, 15.0f, graball, &f.CONT_cowl[en], 0, 2); break;
	case 56:
	case 57:
		plot_eng_slider(0.0f, -0.5f, 1.0f, y2, y1, 15.0f, 0, &f.sbrk_rqst, 0, 2);
		f.sbrk_rqst = fltlim(std::round(f.sbrk_rqst * 2.0f) * 0.5f, v.sbrk_on_td_EQ ? -0.5f : 0.0f, 1.0f);   // detents every half
		break;
	case 61: plot_eng_slider(0.0f, 1.0f, 0.0f, y2, y1, 15.0f, 0, &f.disp_rat, 0, 2); break;
	case 59:   // the vector's limits over the track, the marker where the nozzles are, the lever where they are asked to go
		plot_sheet_number(-1.0f, cus_dat_4[c], v.vect_min_disc, 0);
		plot_sheet_number(-1.0f, cus_dat_3[c], v.vect_max_disc, 0);
		plot_ins_overlay(-1.0f, interp(0.0f, y1, 1.0f, y2, f.vect_rat, 0), 0.0f, 2, 3, 0, 0, 1);
		plot_eng_slider(-1.0f, 0.0f, 1.0f, y2, y1, 15.0f, 0, &f.vect_rqst, 0, 3);
		break;
	case 58:
	case 458: {
		const float x = c == 58 ? -1.0f : -10.0f;
		plot_ins_overlay(x, interp(0.0f, y1, 1.0f, y2, f.swdi_rat, 0), 0.0f, 2, 3, 0, 0, 1);
		plot_eng_slider(x, 0.0f, 1.0f, y2, y1, 15.0f, 0, &f.swdi_rqst, 0, 3);
		break;
	}
	case 60:   // the collective pitch of every rotor
		for (int e = 0; e < n; e++)
			if (v.prop_type[e] == 3) plot_eng_slider(0.0f, v.min_pitch[e], v.max_pitch[e], y2, y1, 15.0f, 0, &f.POINT_pitch_deg_ref[e], 0, 2);
		break;
	default: break;
	}
}
