// The barometric altimeters: three needles for hundreds, thousands and tens of thousands of
// feet, drum windows for the altitude and the setting, and the setting knobs.
#include "cockpit/gauges.h"
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

constexpr float none = -999.0f;   // a knob or drum the art has not got

struct altimeter_art {
	int code, knob;                  // the knob's own code, for its steps
	float adj_lft, adj_rgt, adj_vrt;
	float dig_x, dig_y;              // the altitude drum
	float baro_y, baro_lft, baro_rgt;
};
constexpr altimeter_art arts[] = {
	{94, 41, -50, none, -55, none, none, none, none, none},   // the setting on a tape
	{95, 513, none, 50, -53, none, none, -27, 0, none},
	{96, 514, none, none, none, none, none, none, none, none},
	{97, 41, none, 50, -55, 1, 19, -21, -18, 19},
	{98, 513, -50, 50, -53, 2, 20, -23, -20, 20},
	{99, 514, -50, 48, -56, 1, 18, -25, -20, 19},
	{525, 514, none, none, none, none, none, none, none, none},
	{526, 514, -35, 35, -42, 0, 12, -15, -15, 12},
	{137, 41, -32, none, -38, -1, 19, -6, -26, 26},
};

}  // namespace

void update_altitude()
{
	const int c = ins_type;
	const flt_struct& f = flt[0];
	const float n_alt = std::isfinite(f.h_ind_ft) ? f.h_ind_ft : 0.0f;
	if (c == 100) {
		plot_solid_0_10_vert(0.0f, 0.0f, n_alt * 0.01f, 3, 0, 1, 0);
		return;
	}
	const altimeter_art* a = std::find_if(std::begin(arts), std::end(arts), [c](const altimeter_art& x) { return x.code == c; });
	if (a == std::end(arts)) {
		NB_ALERT("Bad altimeter type!", "instrument path:", ins_layer_path(c, 0), "", alert_notice);
		return;
	}
	if (c == 137) {   // the airspeed in its window beside the altitude
		const float y = std::clamp(f.v_ind_kts * 0.4f + 24.0f, 24.0f, 244.0f), s_lft = s_lft_scroll[12][5], s_rgt = s_rgt_scroll[12][5];
		if (s_rgt > s_lft && ins_bind(1, 0)) {
			const float win = ins_layer_dy(3) * 0.5f;
			glBegin(GL_QUADS);
			ins_emit_quad(1, 0.0f, 0.0f, 0.0f, (s_rgt - s_lft) * 0.5f, win * 0.5f, s_lft, y - win * 0.5f, s_rgt, y + win * 0.5f);
			glEnd();
			plot_ins_overlay(0.0f, 0.0f, 0.0f, 3, 4, 0, 0, 3);
		}
	}
	if (a->dig_x != none) plot_solid_0_10_vert(a->dig_x, a->dig_y, n_alt * 0.01f, 3, 0, 1, 0);
	const float hg = nav.baro_setting_HG;
	if (c == 94) {
		plot_solid_tape_vert(0.0f, 0.0f, con.metric_press ? hg * con.hg_tomil : hg, con.metric_press ? 1 : 0, 0);
	} else if (a->baro_y != none) {
		if (a->baro_rgt == none) plot_solid_0_10_vert(a->baro_lft, a->baro_y, con.metric_press ? hg * con.hg_tomil : hg * 100.0f, 4, 0, 1, 0);
		else {   // millibars at the left, hundredths of an inch at the right
			plot_solid_0_10_vert(a->baro_lft, a->baro_y, hg * con.hg_tomil, 4, 0, 1, 0);
			plot_solid_0_10_vert(a->baro_rgt, a->baro_y, hg * 100.0f, 4, 0, 1, 0);
		}
	}
	// From the slowest up: ten thousands, thousands, hundreds, each a full turn per ten of the next.
	plot_ins_overlay(0.0f, 0.0f, n_alt * 0.0036f, 2, 4, 0, 1, 2);
	plot_ins_overlay(0.0f, 0.0f, n_alt * 0.036f, 1, 4, 0, 1, 2);
	plot_ins_overlay(0.0f, 0.0f, n_alt * 0.36f, 0, 4, 0, 1, 2);
	if (a->adj_lft != none) update_rhe(a->adj_lft, a->adj_vrt, a->knob);
	if (a->adj_rgt != none) update_rhe(a->adj_rgt, a->adj_vrt, a->knob);
}
