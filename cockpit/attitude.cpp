// The attitude indicators: a ball of sky and ground moved by the gyro's pitch along the
// rolled vertical and turned by its bank, clipped to the case, with the roll pointer, the
// little aeroplane, the flight director's bars, the warning flag and the bezel over it.
#include "cockpit/gauges.h"
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "flight/HL_FLIGHT.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "core/files.h"
#include "render/ogl.h"
#include <algorithm>
#include <cmath>

namespace {

float phi_fd, the_fd;             // smoothing only: the bars and the flag ease into place
float flag_angle[2] = {45.0f, 45.0f};   // a gyro at rest shows its flag

struct horizon_kind {
	int code, gyro, has_flag, has_knob, glass;
};
constexpr horizon_kind kinds[] = {{520, 0, 0, 0, 0}, {90, 0, 1, 1, 0},  {521, 0, 1, 0, 0}, {460, 0, 1, 1, 0}, {522, 1, 1, 0, 0},
                                  {448, 1, 0, 1, 0}, {91, 1, 0, 0, 1},  {92, 1, 0, 0, 1},  {93, 1, 0, 0, 1},  {523, 1, 0, 0, 0},
                                  {524, 1, 0, 1, 0}, {166, 1, 0, 0, 7}, {484, 1, 0, 0, 7}, {477, 1, 0, 0, 0}, {532, 1, 0, 0, 0}};

int tape_of(int code)
{
	for (int t = 0; t < tape_max; t++)
		if (tape_ins[t] == code) return t;
	return -1;
}

}  // namespace

float ret_pitch_pix_per_deg(int code)
{
	const int t = tape_of(code);
	if (t < 0 || v_top_tape[0][t] == v_bot_tape[0][t]) return 0.0f;
	return (t_top_tape[0][t] - t_bot_tape[0][t]) / (v_top_tape[0][t] - v_bot_tape[0][t]);
}

void update_art_horiz()
{
	const int c = ins_type;
	const horizon_kind* k = std::find_if(std::begin(kinds), std::end(kinds), [c](const horizon_kind& h) { return h.code == c; });
	if (k == std::end(kinds)) {
		NB_ALERT("Bad AH type!", "instrument path:", ins_layer_path(c, 0), "", alert_notice);
		return;
	}
	const flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const int g = k->gyro;
	const float prd = mnw.prd_FM;
	if (k->glass) {
		if (!stg.avionics || tot_volt_avail() <= 0.1f || f.fail_stat[rel_efis_1] == fail_inop) return;
		if (f.fail_stat[rel_ss_ahz] == fail_inop) {
			plot_ins_overlay(0.0f, 0.0f, 0.0f, 5, 6, 1, 0, 2);
			return;
		}
	}
	const float clip_dx = ins_layer_dx(4) * 0.5f, clip_dy = ins_layer_dy(4) * 0.5f;
	const float the = f.the_ind[g], phi = f.phi_ind[g], ppd = ret_pitch_pix_per_deg(c);
	const int lit = k->glass ? 1 : 0;
	if (clip_dx > 0.0f) ins_clip(clip_dx, clip_dy);
	// Nose up lowers the horizon along the case's rolled vertical; right bank turns it anticlockwise.
	const float r = phi * (float)M_PI / 180.0f;
	plot_ins_overlay(the * ppd * std::sin(r), -the * ppd * std::cos(r), -phi, 0, 1, lit, 1, 1);
	plot_ins_overlay(0.0f, 0.0f, -phi, 0, 1, lit, 1, 3);
	// The flight director: commands relative to the attitude, stowed when off.
	const bool fd_on = nav.mode_fdir > 0 && nav.mode_fdir != 9;
	const float roll_cmd = fd_on ? std::clamp(nav.fd_roll - phi, -45.0f, 45.0f) : 0.0f;
	const float ptch_cmd = fd_on ? std::clamp(nav.fd_ptch - the, -20.0f, 20.0f) : v.has_DC_fd ? 0.0f : -30.0f;
	const float ease = std::clamp(prd * 0.5f, 0.0f, 1.0f);
	phi_fd += (roll_cmd - phi_fd) * ease;
	the_fd += (ptch_cmd - the_fd) * ease;
	if (v.has_SC_fd) {
		plot_ins_overlay(0.0f, nav.ah_adjust + the_fd * ppd, -phi_fd, 2, 6, lit, 1, 2);
	} else if (v.has_DC_fd) {
		plot_ins_overlay(phi_fd, nav.ah_adjust, 0.0f, 3, 6, lit, 0, 2);
		plot_ins_overlay(0.0f, nav.ah_adjust + the_fd, 0.0f, 4, 6, lit, 0, 2);
	}
	plot_ins_overlay(0.0f, nav.ah_adjust, 0.0f, v.has_SC_fd ? 1 : 0, 6, lit, 0, 2);
	if (k->has_flag) {   // out while the gyro has too little to hold its attitude
		const float want = f.gyro_force[g] < 0.25f ? 45.0f : -45.0f;
		flag_angle[g] += (want - flag_angle[g]) * std::clamp(prd, 0.0f, 1.0f);
		plot_ins_overlay(0.0f, 0.0f, flag_angle[g], 5, 6, lit, 1, 2);
	}
	OGL_scissors_end();
	plot_ins_overlay(0.0f, 0.0f, 0.0f, 0, 1, lit, 0, 4);
	if (c == 524) update_rhe(clip_dx, -clip_dy * 1.05f, 518);
	else if (k->has_knob) update_rhe(clip_dx * 0.8f, -clip_dy * 0.8f, 517);
}
