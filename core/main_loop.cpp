// One pass of the main loop: timer flags, messages, network, clocks, the adaptive
// flight-model and interface periods, then the simulation and the frame.
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "core/failures.h"
#include "aircraft/HL_ACF.h"
#include "core/HL_CORE.h"
#include "flight/HL_FLIGHT.h"
#include "net/HL_NET.h"
#include "platform/plat.h"
#include "plugin/HL_PLUGIN.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstring>

int cntr_FM = 0, cntr_UI = 0;
float last_time_FM = 0.0f, last_time_UI = 0.0f;
float prd_FM_fixed = 0.0f;
float ot01, ot02, ot05, ot1, ot2, ot5, ot10, ot20, ot40;

static float first_pass_time = -1.0f;
static float framerate_check_time = 0.0f;

void reset_loop_state()
{
	cntr_FM = cntr_UI = 0;
	last_time_FM = last_time_UI = 0.0f;
	ot01 = ot02 = ot05 = ot1 = ot2 = ot5 = ot10 = ot20 = ot40 = 0.0f;
	first_pass_time = -1.0f;
	framerate_check_time = 0.0f;
}

static void timer_flag(int& flag, float& last, float period)
{
	if (mnw.real_time - last > period) { flag = 1; last = mnw.real_time; }
	else flag = 0;
}

// The period creeps toward the measured one, at most a factor 1.5^0.25 per ten passes.
static void adapt_period(int& cntr, float& last, float& prd, float& rat, float lo, float hi)
{
	if (++cntr >= 10) {
		float rt = (mnw.real_time - last) * 0.1f / prd;
		rat = fltlim(rt, 0.5f, 1.5f);
		prd = fltlim(prd * std::pow(rat, 0.25f), lo, hi);
		last = mnw.real_time;
		cntr = 0;
	}
}

void profile_chart(const char* loc, int is_last)
{
	static float last = 0.0f, start = 0.0f;
	if (mnw.top_win != 0) return;
	float now = time_sec();
	if (std::strcmp(loc, "init") == 0) start = last = now;
	xer << loc << ": " << (now - last) << "\n";
	if (is_last) xer << "TOT: " << (now - start) << "\n";
	last = now;
}

void MACIBM_event_proc()
{
	timer_flag(mnw.puff01, ot01, 10.0f);
	timer_flag(mnw.puff02, ot02, 5.0f);
	timer_flag(mnw.puff05, ot05, 2.0f);
	timer_flag(mnw.puff1, ot1, 1.0f);
	timer_flag(mnw.puff2, ot2, 0.5f);
	timer_flag(mnw.puff5, ot5, 0.2f);
	timer_flag(mnw.puff10, ot10, 0.1f);
	timer_flag(mnw.puff20, ot20, 0.05f);
	timer_flag(mnw.puff40, ot40, 0.025f);
	if (mnw.track_cpu) profile_chart("init", 0);

	mnw.mouse_clicked = mnw.mouse_lifted = mnw.key_hit = 0;
	mnw.typed[0] = 0;
	if (mnw.top_win == -1) mnw.top_win = 0;

	plat_msg m;
	while (plat_next_msg(&m)) IBM_handlewin(m.type, m.a, m.b);
	NET_listen();
	if (mnw.mouse_clicked) SOUND_play(221);
	if (!have_done_first_update) return;
	if (mnw.track_cpu) profile_chart("event", 0);

	float now = time_sec();
	if (first_pass_time < 0.0f) first_pass_time = now;
	mnw.real_time = now - first_pass_time;

	if (prd_FM_fixed > 0.0f) mnw.prd_FM = prd_FM_fixed;
	else if (mnw.top_win == 0) adapt_period(cntr_FM, last_time_FM, mnw.prd_FM, mnw.rt_rat_FM, 0.001f, 0.08f);
	else last_time_FM = mnw.real_time;
	if (mnw.top_win != 0) adapt_period(cntr_UI, last_time_UI, mnw.prd_UI, mnw.rt_rat_UI, 0.0001f, 9999.9f);
	else last_time_UI = mnw.real_time;

	if (mnw.mouse_clicked) {
		mnw.mouse_double_clicked = mnw.real_time - mnw.m_down_time < 0.25f;
		mnw.now_dragging = 1;
		mnw.m_down_time = mnw.m_move_time = mnw.real_time;
		mnw.entry_field = -1;
	}
	if (mnw.mouse_lifted) mnw.now_dragging = mnw.delay_dragging = 0;
	mnw.delay_dragging = mnw.now_dragging && mnw.real_time - mnw.m_down_time > 0.25f;

	mnw.pulse_alpha = 0.7f + 0.3f * std::sin(15.0f * mnw.real_time);

	if (cntr_FM == 5) framerate_check_time = mnw.real_time;
	if (cntr_FM == 6 && mnw.real_time - framerate_check_time < 0.4f) mnw.framerateOK = 1;
	mnw.cursor_type = 0;
	if (mnw.track_cpu) profile_chart("menu", 0);

	if (mnw.top_win < 996 || mnw.top_win > 999) {
		APPLICATION_update();
		mnw.first_miss_cycle = 0;
	}
	if (mnw.track_cpu) profile_chart("fill", 0);
	plat_set_cursor(mnw.cursor_type);   // what the frame's controls asked for under the mouse
	OGL_sbuf();
	MOV_addframe();
	if (mnw.top_win == 4 && !mnw.now_dragging) cloud_update_vars();
	if (mnw.track_cpu) profile_chart("end", 1);
}

// One bit per failure that stands inoperative, 32 to a word, for the network.
static void pack_fail_stat(flt_struct& f)
{
	std::memset(f.comp_fail_stat, 0, sizeof f.comp_fail_stat);
	for (int n = 0; n < fail_max; n++)
		if (f.fail_stat[n] == fail_inop) f.comp_fail_stat[n / 32] |= (int)(1u << (n % 32));
}

void APPLICATION_update()
{
	for (int n = 0; n < fail_max; n++)
		if (flt[0].fail_stat[n] == fail_at_time) flt[0].fail_tm_v[n] -= mnw.prd_FM / 60.0f;
	if (mnw.puff1) {
		update_failures();
		pack_fail_stat(flt[0]);
	}
	if (mnw.puff20) NET_send_periodic();
	int handled = intlim(NBPGetNumberPlanesToHandle(stg.numacf, 1), 0, acf_max);
	for (int p = 1; p < handled; p++)
		if (!veh[p].name[0]) {
			get_random_plane(p);
			init_flt_p_other_ai(p);
		}
	WORLD_math_all_cases();
	if (mnw.track_cpu) profile_chart("math1", 0);

	if (mnw.top_win == 0 && !mnw.paused) {
		if (!mnw.replay_mode) WORLD_math_in_flight();
		if (mnw.track_cpu) profile_chart("world", 0);
		for (int p = intlim(NBPGetNumberPlanesToHandle(stg.numacf, 0), 1, acf_max) - 1; p >= 0; p--) {
			PLANE_math_in_flight(p);
			if (mnw.track_cpu) profile_chart("plane", 0);
		}
	}
	check_for_shift(flt[0].dob_lat, flt[0].dob_lon);
	if (mnw.top_win == 0) {
		WORLD_scene_all_cases();
		return;
	}
	for (int p = 0; p < acf_max; p++)
		if (flt[p].update_type == 2) update_with_net(p);   // peers keep moving behind a settings window
	OGL_viewport(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f);
	OGL_plot_background();
	manage_top_win(mnw.top_win);
}
