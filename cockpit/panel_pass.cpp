// The panel's pass each frame: every used slot in order, its centre the origin of all it
// draws, its routine chosen by code. Engines are dealt to gauges by counters: the first
// gauge of a kind on the panel reads engine 0, the next engine 1, and so on.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "render/ogl.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

int ins_type = -1, ins_index = 0;
panel_counters pcount;

namespace {

// The engine kinds a gauge can read: shaft speeds and torque need a reciprocating or turbine
// engine that turns a shaft; manifold pressure and cylinder heads, a piston.
bool suits(int code, int engn_type)
{
	static const int shaft[] = {294, 301, 308, 196, 573, 315, 404, 461, 462, 463, 197, 574, 464, 465, 298, 305, 312, 202, 579, 319, 408};
	static const int piston[] = {296, 303, 200, 577, 317, 406, 310, 542, 597, 600, 608};
	if (std::find(std::begin(shaft), std::end(shaft), code) != std::end(shaft))
		return engn_type == 0 || engn_type == 1 || engn_type == 2 || engn_type == 3 || engn_type == 8;
	if (std::find(std::begin(piston), std::end(piston), code) != std::end(piston)) return engn_type == 0 || engn_type == 1;
	return true;
}

}  // namespace

int get_next_eng(int* current)
{
	const veh_struct& v = veh[0];
	const int n = std::clamp(v.num_engines, 1, engn_max);
	for (int tries = 0; tries < 8; tries++) {
		*current = (*current + 1) % n;
		if (*current < 0) *current = 0;
		if (suits(ins_type, v.engn_type[*current])) return *current;
	}
	*current = 0;
	return 0;
}

float val_to_ang(int cus_sel, float lo_val_ned, float lo_ang_ned, float hi_val_ned, float hi_ang_ned, int en, float val)
{
	const veh_struct& v = veh[0];
	const bool custom = cus_sel >= 0 && cus_sel < 50;
	float ang;
	if (custom && v.cus_rnd_use[cus_sel] && v.cus_non_lin[cus_sel]) {
		// The middle of the scale at twice the resolution of its ends.
		const float hi = v.cus_rnd_hi_val[cus_sel], lo = v.cus_rnd_lo_val[cus_sel];
		const float dob_hi = std::min(v.cus_doub_val[cus_sel], hi), dob_lo = std::max(-v.cus_doub_val[cus_sel], lo);
		const float delval_1 = dob_hi - dob_lo, delval_2 = hi - lo - delval_1;
		const float span = delval_2 * 0.5f + delval_1;
		const float scale_1 = span != 0.0f ? (hi_ang_ned - lo_ang_ned) / span : 0.0f, scale_2 = scale_1 * 0.5f;
		const float dob_hi_ang = hi_ang_ned - (hi - dob_hi) * scale_2, dob_lo_ang = lo_ang_ned + (dob_lo - lo) * scale_2;
		auto lerp = [](float x0, float a0, float x1, float a1, float x) {
			if (x1 == x0) return 0.5f * (a0 + a1);
			return a0 + (a1 - a0) * std::clamp((x - x0) / (x1 - x0), 0.0f, 1.0f);
		};
		if (val < dob_lo) ang = lerp(lo, lo_ang_ned, dob_lo, dob_lo_ang, val);
		else if (val < dob_hi) ang = lerp(dob_lo, dob_lo_ang, dob_hi, dob_hi_ang, val);
		else ang = lerp(dob_hi, dob_hi_ang, hi, hi_ang_ned, val);
	} else if (hi_val_ned == lo_val_ned) {
		ang = 0.5f * (lo_ang_ned + hi_ang_ned);
	} else {
		const float r = std::clamp((val - lo_val_ned) / (hi_val_ned - lo_val_ned), 0.0f, 1.0f);
		ang = lo_ang_ned + (hi_ang_ned - lo_ang_ned) * r;
	}
	if (custom && v.cus_rnd_mirror[cus_sel] && (en & 1)) ang = -ang;   // twin gauges point at each other
	return std::isfinite(ang) ? ang : lo_ang_ned;
}

void plot_ins_overlay(float x, float y, float ang, int val, int num_vals, int lit, int rotated, int layer)
{
	if (layer < 1 || layer > 4) {
		NB_ALERT("Trying to do an illegal overlay!", "instrument path:", ins_layer_path(ins_type, 0), "", alert_notice);
		return;
	}
	const int id = 7942 + (layer - 1) * ins_slot_max + std::clamp(ins_index, 0, ins_slot_max - 1);
	if (!ren.tex_vram[id] || ren.tex_dx_tot[id] <= 0 || ren.tex_dy_tot[id] <= 0) return;   // no art: nothing to show
	num_vals = std::max(num_vals, 1);
	val = std::clamp(val, 0, num_vals - 1);
	OGL_setstate(st_fog_off, 1, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_bind(id, 0);
	OGL_setcolorINDEX(lit ? 42 : 0, 1.0f);
	const float slice = (float)ren.tex_dx_vis[id] / num_vals;
	const float s1 = val * slice / ren.tex_dx_tot[id], s2 = (val + 1) * slice / ren.tex_dx_tot[id];
	const float t2 = (float)ren.tex_dy_vis[id] / ren.tex_dy_tot[id];
	float w = slice * ins_size, h = ren.tex_dy_vis[id] * ins_size;
	float cx = x * ins_size + (float)mnw.win_x, cy = y * ins_size + (float)mnw.win_y;
	if (!rotated) {   // one texel to one pixel, so that the art stays crisp
		cx = std::round(cx);
		cy = std::round(cy);
		w = std::round(w);
		h = std::round(h);
	}
	const float hw = rotated ? w * 0.5f : std::round(w * 0.5f), hh = rotated ? h * 0.5f : std::round(h * 0.5f);
	glPushMatrix();
	glTranslatef(cx, cy, 0.0f);
	if (rotated) glRotatef(-ang, 0.0f, 0.0f, 1.0f);   // clockwise
	glBegin(GL_QUADS);   // clockwise, the front the culling keeps
	glTexCoord2f(s1, 0.0f);
	glVertex2f(-hw, -hh);
	glTexCoord2f(s1, t2);
	glVertex2f(-hw, h - hh);
	glTexCoord2f(s2, t2);
	glVertex2f(w - hw, h - hh);
	glTexCoord2f(s2, 0.0f);
	glVertex2f(w - hw, -hh);
	glEnd();
	glPopMatrix();
}

void panel_reset_counters()
{
	pcount.dashbool = pcount.econs = pcount.sqr_eng = pcount.annunciator = pcount.starter = pcount.fuel = 0;
	pcount.gear = 0;
	for (auto& family : pcount.next_eng)
		for (int& c : family) c = -1;
}

void APPLICATION_update_panel()
{
	panel_reset_counters();
	const int wx = mnw.win_x, wy = mnw.win_y;
	set_lit_ins(0);
	// Aircraft that carry the legacy custom-panel set are drawn as the default panel.
	const veh_struct& v = veh[0];
	bool alerted = false;
	for (int n = 0; n < ins_slot_max; n++) {
		const int code = v.ins_type[n];
		if (code == -1) continue;
		ins_index = n;
		ins_type = code;
		ins_size = v.ins_size[n];
		mnw.win_x = (int)std::lround(wx + v.ins_x[n]);
		mnw.win_y = (int)std::lround(wy + v.ins_y[n] - mnw.look_up);
		if (!run_ins_routine(code) && !alerted) {   // once a frame, and the pass goes on
			alerted = true;
			NB_ALERT("Bad instrument type!", "instrument path:", std::to_string(code), "", alert_notice);
		}
	}
	mnw.win_x = wx;
	mnw.win_y = wy;
	ins_size = 1.0f;
	ins_type = -1;
}
