// Rolling digit drums and moving tapes: the counters of altimeters, speed windows and
// autopilot displays, and the vertical tapes of the linear gauges. A drum strip holds 14
// cells, 9 0 1 ... 9 0 1 2 from the bottom, so a wheel rolls on past 9 into the next 0.
#include "cockpit/gauges.h"
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "core/HL_MAIN.h"
#include "core/files.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

void drum_wheels(float val, float fdig[6])
{
	double v = std::isfinite(val) ? std::fabs((double)val) : 0.0;
	v = std::min(v, 999999.999);
	const long long whole = (long long)std::floor(v);
	long long rest = whole;
	for (int i = 5; i >= 0; i--) {
		fdig[i] = (float)(rest % 10);
		rest /= 10;
	}
	fdig[5] += (float)(v - (double)whole);
	for (int i = 5; i > 0; i--)   // a wheel past 9 turns the next one along with it
		if (fdig[i] > 9.0f) fdig[i - 1] += fdig[i] - 9.0f;
	for (int i = 1; i < 6; i++)   // the strip has 0 at both ends: a carried 0 reads the top one
		if (fdig[i] == 0.0f && fdig[i - 1] > 0.0f) fdig[i] = 10.0f;
}

namespace {

int scroll_of(int code)
{
	for (int s = 0; s < scroll_max; s++)
		if (scroll_ins[s] == code) return s;
	return -1;
}

}  // namespace

void plot_solid_0_10_vert(float x, float y, float val, int num_dig, int mask_num, int num_masks, int lit)
{
	const int layer = ins_type == 335 ? 4 : 1;
	num_dig = std::clamp(num_dig, 1, 6);
	if (!ins_layer_ok(layer)) return;
	float fdig[6];
	drum_wheels(val, fdig);
	const int s = scroll_of(ins_type);
	const bool altimeter_family = s >= 0 && s <= 5;
	// The altimeters' rows come in three groups by where the drum sits on the dial.
	const int group = !altimeter_family || y > 5.0f || ins_type == 100 ? 0 : x < -5.0f ? 1 : 2;
	const float art_dx = ins_layer_dx(layer), art_dy = ins_layer_dy(layer);
	float lft[6], rgt[6], bot[6], top[6], width = 0.0f;
	for (int k = 0; k < num_dig; k++) {
		const int row = std::min(group * 4 + k, scroll_row_max - 1);
		if (s >= 0 && s_rgt_scroll[row][s] > s_lft_scroll[row][s]) {
			lft[k] = s_lft_scroll[row][s], rgt[k] = s_rgt_scroll[row][s], bot[k] = t_bot_scroll[row][s], top[k] = t_top_scroll[row][s];
		} else {   // no spec: equal columns, each a whole strip
			lft[k] = art_dx * k / num_dig, rgt[k] = art_dx * (k + 1) / num_dig, bot[k] = 0.0f, top[k] = art_dy;
		}
		width += rgt[k] - lft[k];
	}
	// The window shows one cell: half the mask's height less a pixel each way of the centre.
	const float dy3 = ins_layer_dy(3);
	ins_bind(layer, lit);
	glBegin(GL_QUADS);
	float pen = x - width * 0.5f;
	for (int k = 0; k < num_dig; k++) {
		const float cell = (top[k] - bot[k]) / 14.0f, hh = dy3 > 2.0f ? dy3 * 0.5f - 1.0f : cell * 0.5f;
		const float t_ctr = bot[k] + cell * (fdig[6 - num_dig + k] + 1.5f), w = rgt[k] - lft[k];
		ins_emit_quad(layer, pen + w * 0.5f, y, 0.0f, w * 0.5f, hh, lft[k], t_ctr - hh, rgt[k], t_ctr + hh);
		pen += w;
	}
	glEnd();
	if (num_masks > 0 && ins_layer_ok(3)) plot_ins_overlay(x, y, 0.0f, mask_num, num_masks, lit, 0, 3);
}

void plot_solid_tape_vert(float x, float y, float val, int mask_num, int num_masks)
{
	static const int codes[7] = {89, 87, 330, 88, 335, 130, 94};
	const int* at = std::find(codes, codes + 7, ins_type);
	if (at == codes + 7) {
		NB_ALERT("Bad plot_solid_tape_vert type!", "instrument path:", ins_layer_path(ins_type, 0), "", alert_notice);
		return;
	}
	const int t = (int)(at - codes), m = t == 6 ? std::clamp(mask_num, 0, 1) : 0;
	if (!ins_layer_ok(1)) return;
	const float t_bot = t_bot_tape[m][t], t_top = t_top_tape[m][t], v_bot = v_bot_tape[m][t], v_top = v_top_tape[m][t];
	const float r = v_top != v_bot ? std::clamp((val - v_bot) / (v_top - v_bot), 0.0f, 1.0f) : 0.0f;
	const float row = std::isfinite(r) ? t_bot + (t_top - t_bot) * r : t_bot;
	const float dx = ins_layer_dx(1), dy = ins_layer_dy(1), cols = t == 6 ? 2.0f : 1.0f;
	const float s1 = dx * m / cols, s2 = dx * (m + 1) / cols;
	ins_bind(1, 0);
	glBegin(GL_QUADS);
	ins_emit_quad(1, x, y, 0.0f, (s2 - s1) * 0.5f, dy * 0.25f, s1, row - dy * 0.25f, s2, row + dy * 0.25f);
	glEnd();
	if (num_masks > 0) plot_ins_overlay(x, y, 0.0f, mask_num, num_masks, 0, 0, 3);
}
