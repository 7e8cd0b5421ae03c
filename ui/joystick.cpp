// Joysticks turned into controls: raw axes widen their ranges as they are seen and drive
// their functions only when they move, through a response curve with a null zone; raw
// buttons fire their functions on the press, while held, on the release and while not
// held.
#include "ui/HL_UI.h"
#include "ui/joystick.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "cockpit/HL_COCKPIT.h"
#include "render/HL_GRAPH.h"
#include <cmath>

namespace {

bool fire_now, fire_was;
float last_flap = 0.0f;   // the rotor's flapping, for its rate

// The levers of every engine, moved at a rate while a button is held.
void move_levers(float thro, float prop, float mixt)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const float dt = mnw.prd_UI > 0.0f ? mnw.prd_UI : mnw.prd_FM;
	for (int e = 0; e < engn_max; e++) {
		if (thro != 0.0f) set_thro(e, fltlim(f.CONT_thro_ref[e] + thro * 0.25f * dt, 0.0f, v.throt_max_FWD));
		if (prop != 0.0f) set_prop(e, fltlim(f.CONT_prop_rsc[e] + prop * (v.RSC_redline_PROP - v.RSC_mingreen_PROP) * 0.25f * dt, v.RSC_mingreen_PROP, v.RSC_redline_PROP));
		if (mixt != 0.0f) set_mixt(e, fltlim(f.CONT_mixt[e] + mixt * 0.25f * dt, 0.0f, 1.0f));
	}
}

}  // namespace

float JOY_curve(float input, int axis)
{
	const int a = intlim(axis, 0, 2);
	if (!(mnw.top_win == 14 && stg.joyW_tab == 1) && (mnw.has_joy || mnw.eq_pfc_yoke)) {   // the calibration page sees true positions
		const float n = mnw.joy_null_rat[a];
		input = input > 0.0f ? fltmax2(input - n, 0.0f) : fltmin2(input + n, 0.0f);
	}
	const float power = fltlim(1.5f + 3.0f * (1.0f - mnw.joy_power_rat[a]), 1.5f, 4.5f);
	return (input < 0.0f ? -1.0f : 1.0f) * std::pow(std::fabs(input), power);
}

void JOY_axes_to_functions(const float* old_raw)
{
	for (int k = 0; k < joy_axis_max; k++) {
		const float raw = mnw.joy_raw_dat[k];
		mnw.lo_raw_dat[k] = fltmin2(mnw.lo_raw_dat[k], raw);   // calibration as it is seen
		mnw.hi_raw_dat[k] = fltmax2(mnw.hi_raw_dat[k], raw);
		const int use = mnw.joy_AXIS_use[k];
		if (use <= 0 || use >= axis_max || raw == old_raw[k]) continue;   // a resting stick leaves its function alone
		mnw.assigned[use] = 1;
		mnw.has_joy = 1;
		const float lo = mnw.lo_raw_dat[k], hi = mnw.hi_raw_dat[k];
		float scale = hi > lo ? fltlim((raw - lo) / (hi - lo), 0.0f, 1.0f) : 0.5f;
		if (mnw.joy_rev_axis[k]) scale = 1.0f - scale;
		mnw.axis[use] = use <= 3 ? JOY_curve(2.0f * scale - 1.0f, use - 1) : scale;
	}
}

void JOY_learn_null_zones()
{
	for (int a = 0; a < 3; a++) {
		mnw.joy_null_rat[a] *= 1.0f - mnw.prd_UI;
		const float rest = std::fabs(mnw.axis[a + 1]);
		if (rest > mnw.joy_null_rat[a]) mnw.joy_null_rat[a] = fltmin2(rest, 0.2f);
	}
}

void JOY_buttons()
{
	for (int k = 0; k < joy_button_max; k++)   // rising edges
		if (mnw.n_button_pressed[k] && !mnw.o_button_pressed[k]) JOY_press_one(mnw.joy_BUTN_use[k]);
	for (int k = 0; k < joy_button_max; k++)   // falling edges
		if (!mnw.n_button_pressed[k] && mnw.o_button_pressed[k]) JOY_release_one(mnw.joy_BUTN_use[k]);
	for (int k = 0; k < joy_button_max; k++)
		if (mnw.n_button_pressed[k]) JOY_press_always(mnw.joy_BUTN_use[k]);
	for (int k = 0; k < joy_button_max; k++)
		if (!mnw.n_button_pressed[k]) JOY_release_always(mnw.joy_BUTN_use[k]);
}

void JOY_press_one(int use)
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	static const int views[12] = {1525, 1524, 1515, 1516, 1518, 1519, 1520, 1521, 1533, 1530, 1527, 1528};
	static const int keys[10] = {9, 10, 13, 14, 15, 16, 11, 12, 18, 20};
	static const int dash[4] = {459, 11, 12, 473};
	if (use >= 45 && use <= 56) { APPLICATION_handlemenu(1500, views[use - 45]); return; }
	if (use >= 74 && use <= 83) { do_key_command(keys[use - 74]); return; }
	if (use >= 96 && use <= 99) { update_dashbool(dash[use - 96], 0); return; }
	switch (use) {
	case 1: for (int& ig : f.CONT_ignition) ig = intmin2(ig + 1, 3); break;
	case 11: for (int e = 0; e < engn_max; e++) update_dashbool(411, e); break;
	case 12: for (int e = 0; e < engn_max; e++) set_thro(e, v.throt_max_FWD); break;
	case 19: for (float& h : f.CONT_heat) h = 1.0f; break;
	case 20: for (float& h : f.CONT_heat) h = 0.0f; break;
	case 21: for (float& h : f.CONT_heat) h = h > 0.5f ? 0.0f : 1.0f; break;
	case 22: do_key_command(1); break;
	case 23: for (int e = 0; e < engn_max; e++) set_mixt(e, 0.0f); break;
	case 25: f.elev_trim = fltlim(v.takeoff_trim, -v.max_trim_elev, v.max_trim_elev); break;
	case 30: f.rudd_trim = 0.0f; break;
	case 33: f.ailn_trim = 0.0f; break;
	case 36: mnw.YK_hdng = 0.0f; break;
	case 38: APPLICATION_handlemenu(1500, 1500); break;
	case 39: APPLICATION_handlemenu(1500, 1507); break;
	case 40: APPLICATION_handlemenu(1500, 1508); break;
	case 41: do_key_command(76); break;   // outside the circling views
	case 42: do_key_command(77); break;
	case 43: APPLICATION_handlemenu(1500, 1502); APPLICATION_handlekey(1, 32256); break;
	case 44: APPLICATION_handlemenu(1500, 1503); APPLICATION_handlekey(1, 32000); break;
	case 57: do_key_command(62); break;
	case 58: do_key_command(63); break;
	case 59: f.sbrk_rqst = 0.0f; break;
	case 60: f.sbrk_rqst = 1.0f; break;
	case 61: f.sbrk_rqst = f.sbrk_rqst > 0.5f ? 0.0f : 1.0f; break;
	case 66: if (!f.gear_handle) do_key_command(5); break;
	case 67: if (f.gear_handle) do_key_command(5); break;
	case 68: do_key_command(5); break;
	case 69: f.parkbrake = 0.5f; break;
	case 70: f.parkbrake = 1.0f; break;
	case 71: do_key_command(4); break;
	case 72: f.l_brake_add = 0.5f; break;
	case 73: f.r_brake_add = 0.5f; break;
	case 84: nav.mode_alt_ = 9; break;
	case 85: f.lan_lite = !f.lan_lite; f.tax_lite = !f.lan_lite; break;
	case 100: start_fire(); mnw.fire_key_is_down = 1; break;
	case 101: update_dashbool(14, 0); break;
	case 102: mnw.timer_running = 1; break;
	case 103: mnw.timr_time = 0.0f; break;
	case 104: case 105:
		if (stg.ecam_warning) stg.warning_suppress_timeout = mnw.totl_time + 30.0f;
		else nav.mode_ecam = (nav.mode_ecam + (use == 104 ? 1 : 4)) % 5;
		break;
	case 106: for (int e = 0; e < engn_max; e++) update_dashbool(9, e); break;
	case 107: update_dashbool(7, 0); break;
	case 108: update_dashbool(389, 0); break;
	case 109: APPLICATION_handlemenu(1500, 1531); break;
	case 110: update_dashbool(10, 0); break;
	case 111: update_dashbool(13, 0); break;
	case 112: update_dashbool(15, 0); stg.pre_rotate_level = (float)stg.pre_rotating; break;
	case 113: stg.pre_rotate_level = 0.0f; stg.pre_rotating = 0; f.parkbrake = 0.0f; break;
	case 115: do_key_command(0); break;
	case 116: rel.fail_key_hit = 1; break;
	case 117: APPLICATION_handlekey(2, 13); break;
	case 118: APPLICATION_handlekey(3, 96); break;
	default: break;
	}
}

void JOY_release_one(int use)
{
	flt_struct& f = flt[0];
	switch (use) {
	case 100: stop_fire(); fire_now = false; mnw.fire_key_is_down = 0; break;
	case 39: case 40: APPLICATION_handlemenu(1500, 1500); break;
	case 69: case 70: f.parkbrake = 0.0f; break;
	case 72: f.l_brake_add = 0.0f; break;
	case 73: f.r_brake_add = 0.0f; break;
	case 84: nav.mode_alt_ = 17; break;
	default: break;
	}
}

void JOY_press_always(int use)
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float dt = mnw.prd_UI > 0.0f ? mnw.prd_UI : mnw.prd_FM;
	switch (use) {
	case 2: for (float& t : stg.start_time) t = mnw.totl_time + 2.0f * dt; break;   // the starters run while held
	case 3: case 4: case 5: case 6: case 7: case 8: case 9: case 10: stg.start_time[use - 3] = mnw.totl_time + 2.0f * dt; break;
	case 13: move_levers(1.0f, 0.0f, 0.0f); break;
	case 14: move_levers(-1.0f, 0.0f, 0.0f); break;
	case 15: move_levers(0.0f, 1.0f, 0.0f); break;
	case 16: move_levers(0.0f, -1.0f, 0.0f); break;
	case 17: move_levers(0.0f, 0.0f, 1.0f); break;
	case 18: move_levers(0.0f, 0.0f, -1.0f); break;
	case 35: mnw.YK_hdng = fltlim(mnw.YK_hdng - 0.3f * dt, -1.0f, 1.0f); break;
	case 37: mnw.YK_hdng = fltlim(mnw.YK_hdng + 0.3f * dt, -1.0f, 1.0f); break;
	case 62: f.vect_rqst = fltlim(f.vect_rqst - v.vect_rate * dt, 0.0f, 1.0f); f.swdi_rqst = fltlim(f.swdi_rqst - 0.5f * dt, 0.0f, 1.0f); break;
	case 63: f.vect_rqst = fltlim(f.vect_rqst + v.vect_rate * dt, 0.0f, 1.0f); f.swdi_rqst = fltlim(f.swdi_rqst + 0.5f * dt, 0.0f, 1.0f); break;
	case 64: f.disp_rat = fltlim(f.disp_rat + 0.05f * dt, 0.0f, 1.0f); break;
	case 65: f.disp_rat = fltlim(f.disp_rat - 0.05f * dt, 0.0f, 1.0f); break;
	case 24: case 26: case 27: case 28: case 29: case 31: case 32: case 34: update_trims(use, 1); break;
	case 86: move_landing_light(-10.0f * dt, 0.0f); break;
	case 87: move_landing_light(10.0f * dt, 0.0f); break;
	case 88: move_landing_light(0.0f, 10.0f * dt); break;
	case 89: move_landing_light(0.0f, -10.0f * dt); break;
	case 90: case 91: case 92: case 93: case 94: case 95: {
		static const int mode[6] = {384, 385, 383, 382, 380, 381};
		update_rocket(0, mode[use - 90], mnw.totl_time + 2.0f * dt);
		break;
	}
	default: break;
	}
}

void JOY_release_always(int use)
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	if (use == 113) f.parkbrake = 1.0f;   // the rotor brake holds unless the button releases it
	if (use != 114 || mnw.paused) return;
	// The rotor's pre-rotation and blade pitch: by rotor speed when slow, by its flapping
	// when flying.
	const float dt = mnw.prd_FM;
	const float flap = f.cyclic_elev_disc_tilt[0], rate = dt > 0.0f ? (flap - last_flap) / dt : 0.0f;
	last_flap = flap;
	float& pitch = f.POINT_pitch_deg_ref[1];
	float want = pitch;
	if (f.v_ind_kts < 50.0f) want = fltlim(7.0f + 0.05f * (f.POINT_tac_rad[0] * 9.5493f - 260.0f), 3.5f, 7.0f);
	else {
		const float flap_des = fltlim(4.5f - 0.01f * f.v_ind_kts, 3.0f, 4.5f);
		want = pitch + fltlim(flap_des - flap - rate, -1.0f, 1.0f) * dt;
	}
	pitch = fltlim(pitch + fltlim(want - pitch, -6.0f * dt, 6.0f * dt), v.min_pitch[1], v.max_pitch[1]);
}

int JOY_function_assigned(int fn)
{
	for (int k = 0; k < joy_axis_max; k++)
		if (mnw.joy_AXIS_use[k] == fn) return 1;
	return 0;
}

void JOY_reset_ranges()
{
	for (int k = 0; k < joy_axis_max; k++) {
		mnw.lo_raw_dat[k] = 9.9e9f;
		mnw.hi_raw_dat[k] = -9.9e9f;
	}
}

void JOY_set_axis_use(int raw, int use, int reversed)
{
	if (raw < 0 || raw >= joy_axis_max) return;
	if (mnw.joy_AXIS_use[raw] != use) {   // a new function starts its range afresh
		mnw.lo_raw_dat[raw] = 9.9e9f;
		mnw.hi_raw_dat[raw] = -9.9e9f;
	}
	mnw.joy_AXIS_use[raw] = use;
	mnw.joy_rev_axis[raw] = reversed;
	mnw.eq_ped_nobrk = JOY_function_assigned(3);
	mnw.eq_ped_wibrk = JOY_function_assigned(6) || JOY_function_assigned(7);
	if (mnw.eq_ped_wibrk) mnw.eq_ped_nobrk = 0;
}

void start_fire() { fire_now = true; }
int in_single_fire() { return fire_now && !fire_was; }
int in_contin_fire() { return fire_now; }
void JOY_end_frame_fire() { fire_was = fire_now; }

void JOY_defaults()
{
	for (int k = 0; k < joy_axis_max; k++) mnw.joy_AXIS_use[k] = mnw.joy_rev_axis[k] = 0;
	mnw.joy_AXIS_use[0] = 2;   // X rolls
	mnw.joy_AXIS_use[1] = 1;   // Y pitches
	mnw.joy_AXIS_use[3] = 4;   // the throttle lever, full at its low end
	mnw.joy_rev_axis[3] = 1;
	JOY_reset_ranges();
	for (int a = 0; a < 3; a++) { mnw.joy_null_rat[a] = 0.0f; mnw.joy_power_rat[a] = 0.5f; }
}
