// The panel's switches, buttons and selectors. One routine serves them all: on the panel it
// reads the mouse in the instrument's box, changes what the switch works and shows the
// switch's frame; called with a code from outside (a key, a button, the autopilot) it acts
// as if that switch were pressed, and draws nothing.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "aircraft/acf_io.h"
#include "flight/HL_FLIGHT.h"
#include "ui/HL_UI.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <algorithm>
#include <cmath>

namespace {

bool in(int v, int lo, int hi) { return v >= lo && v <= hi; }

// The flag a toggle flips, or nullptr.
int* toggle_flag(int code, int en)
{
	flt_struct& f = flt[0];
	switch (code) {
	case 387: return &f.nav_lite;
	case 388: return &f.bea_lite;
	case 436: return &f.str_lite;
	case 1: return &f.lan_lite;
	case 456: return &f.tax_lite;
	case 2: return &stg.HUD_on;
	case 4: return &stg.ice_all;
	case 3: return &stg.ice_pitot_heat;
	case 466: return &stg.ice_auto_ignite;
	case 467: return &stg.ice_inert_sep;
	case 468: return &stg.ice_inlet_heat;
	case 469: return &stg.ice_prop_heat;
	case 470: return &stg.ice_surf_heat;
	case 471: return &stg.ice_surf_boot;
	case 472: return &stg.ice_window_heat;
	case 7: return &stg.yaw_damper_on;
	case 8: return &stg.prop_sync_on;
	case 9: return &stg.fadec_on[en];
	case 411: return &stg.idle_speed[en];
	case 10: return &stg.arrest_gear;
	case 13: return &stg.chute_on;
	case 15: return &stg.pre_rotating;
	case 29: return &stg.battery;
	case 30: return &stg.avionics;
	case 31: return &stg.generator[en];
	case 32: return &stg.inverter[std::min(en, 1)];
	case 33: return &stg.fuel_pump[en];
	case 447: return &stg.igniter[en];
	case 389: return &stg.art_stab_on;
	case 450: return &stg.puffers_on;
	case 459: return &stg.water_scoop;
	case 533: return &stg.tot_ener_audio;
	case 140: return &stg.HSI_is_arc;
	default: return nullptr;
	}
}

// The value a selector steps and its top.
int* selector(int code, int* val_max)
{
	switch (code) {
	case 5: *val_max = 5; return &stg.auto_brake_lvl;
	case 24: *val_max = 1; return &nav.HSIsel;
	case 25: *val_max = 2; return &nav.HSIsel;
	case 26: *val_max = 1; return &nav.RMIsel;
	case 27: *val_max = 2; return &nav.RMIsel;
	case 37:
	case 403: *val_max = 2; return &nav.mode_fdir;
	case 369: *val_max = 2; return &nav.EFIS_1_sel;
	case 370: *val_max = 2; return &nav.EFIS_2_sel;
	case 438: *val_max = 3; return &stg.fire_mode;
	case 6: *val_max = 2; return &stg.feather_mode;
	case 398: *val_max = 3; return &stg.fuel_tank_xfr;
	case 416: *val_max = 1; return &stg.bleed_air_on;
	case 28: *val_max = 6; return &nav.map_range_sel;
	case 488: *val_max = 4; return &nav.map_mode;
	default: return nullptr;
	}
}

// A momentary's timeout, or nullptr.
float* momentary(int code, int en)
{
	switch (code) {
	case 417: return &stg.press_test_timeout;
	case 455:
	case 492:
	case 493: return &nav.auto_test_timeout;
	case 413: return &stg.amm_is_volt_timeout[en];
	case 36: return &stg.start_time[en];
	case 414: return &flt[0].prop_ospeed_test_timeout;
	default: return nullptr;
	}
}

// Positions of the weapon class selectors, codes 422 to 433: which of gun, rocket, missile
// and bomb each position arms ("a" all four).
const char* const weapon_positions[12][4] = {
	{"a"},           {"g", "r"},      {"g", "m"},      {"g", "b"},      {"r", "m"},      {"r", "b"},
	{"m", "b"},      {"g", "r", "m"}, {"g", "r", "b"}, {"g", "m", "b"}, {"r", "m", "b"}, {"g", "r", "m", "b"},
};

struct press {
	bool outside;
	// A click in the box of s (a toggle, a selector) or, from outside, the call itself.
	bool click(float s) const { return outside || but_bool(0, 0, s, 0); }
	// Held in the box: a momentary.
	bool held(float s) const { return outside || but_bool(0, 0, s, 1); }
	// A selector's step: a click on the lower left half turns it down, on the upper right up.
	int step(float s, bool vertical) const
	{
		if (outside) return 1;
		return (int)but_scroll(vertical ? 1 : 0, 0, 0, s, 1.0f, 0.0f, 0);
	}
};

void gear_light(const press& p, int en, int* val, int* val_max)
{
	const float up_down = veh[0].gear_deploy[std::clamp(en, 0, 72)];
	const bool power = tot_volt_avail() > 0.1f, handle_down = flt[0].gear_handle != 0;
	const bool up = up_down < 0.01f, down = up_down > 0.99f;
	const int code = ins_type;
	if (code == 530 || code == 531) {
		*val_max = 1;
		*val = power && (code == 530 ? !handle_down && up : handle_down && down);
		return;
	}
	*val_max = 2;
	*val = 0;
	if (power) {
		if (handle_down && down) *val = 2;
		else if ((handle_down && !down) || (!handle_down && !up)) *val = 1;
	}
	if (!p.outside && but_bool(0, 0, 6, 1)) *val = 2;   // press to test
}

}  // namespace

void update_dashbool(int manual_type, int en)
{
	const press p{manual_type != -1};
	const int saved_type = ins_type;
	if (p.outside) ins_type = manual_type;
	const int code = ins_type;
	const bool gear_part = code == 22 || code == 23 || code == 487 || code == 530 || code == 531;
	if (!gear_part) en = std::clamp(en, 0, engn_max - 1);
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float timeout = mnw.totl_time + mnw.prd_FM * 2.0f;
	int val = -1, val_max = -1, sel_max = 0;
	if (float* t = momentary(code, en)) {
		const bool down = p.held(code == 36 || code == 414 ? 10.0f : 12.0f);
		if (down) *t = timeout;
		val = down;
		val_max = 1;
	} else if (code == 377 || code == 379 || code == 17 || code == 18) {
		const bool down = p.held(12);
		if (down) {
			if (code == 377) nav.marker_audio_working = 0;
			if (code == 379) nav.gear_audio_working = 0;
			if (code == 17) f.rudd_trim = 0.0f;
			if (code == 18) f.ailn_trim = 0.0f;
		}
		val = down;
		val_max = 1;
	} else if (int* flag = toggle_flag(code, en)) {
		if (p.click(12)) *flag = !*flag;
		val = *flag != 0;
		val_max = 1;
	} else if (code == 16 || code == 446) {   // toggles kept as ratios
		float& r = code == 16 ? stg.pre_rotate_level : stg.clutch_trq_engag;
		if (p.click(12)) r = r > 0.5f ? 0.0f : 1.0f;
		val = r > 0.5f;
		val_max = 1;
	} else if (int* s = selector(code, &sel_max)) {
		const int d = p.step(12, code == 369 || code == 370);
		if (d) *s = p.outside ? (*s + 1) % (sel_max + 1) : std::clamp(*s + d, 0, sel_max);
		val = std::clamp(*s, 0, sel_max);
		val_max = sel_max;
		if (code == 398 && v.num_tanks == 2 && val == 2) val = 3;   // two tanks: the third position shows as the last
	} else if (code == 12) {   // fuel dump
		if (p.click(12)) stg.dumping_fuel = !stg.dumping_fuel;
		val = stg.dumping_fuel ? 2 : 0;
		val_max = 2;
	} else if (code == 14) {   // rockets for take-off: a press lights them while any are left
		if (p.click(12)) stg.jato_on = f.jato_left > 0.01f;
		val = f.jato_left < v.jato_dur ? 2 : 0;
		val_max = 2;
	} else if (code == 415) {   // map mode: the inner rocker steps the mode, the outer turns the HSI page
		int d = 0;
		if (p.outside) d = 1;
		else {
			d = (int)but_scroll(0, 0, 0, 5, 2, 2, 0);
			if (!d) d = (int)but_scroll(0, 0, 0, 15, 1, 1, 0);
			if (mnw.cursor_type == 2 || mnw.cursor_type == 3) mnw.cursor_type += 2;
		}
		if (d == 1 || d == -1) {
			int m = nav.map_mode + d;
			if (m == 3) m = d > 0 ? 4 : 2;   // 3 is left out
			nav.map_mode = (m + 5) % 5;
		} else if (d == 2 || d == -2) {
			nav.map_mode_is_HSI = !nav.map_mode_is_HSI;
		}
		val = std::min(nav.map_mode, 3);
		val_max = 3;
	} else if (code == 473) {   // the drop tank
		const int station = wpn_drop_tank_station();
		if (station >= 0 && p.click(12)) wpn_release_station(station);
		val = station >= 0 ? 0 : 1;
		val_max = 1;
	} else if (code == 457) {   // the clutch light: no control, shown only with its switch
		if (!v.has_clutchswitch) {
			ins_type = saved_type;
			return;
		}
		bool lit = false;
		for (int e = 0; e < engn_max; e++)
			lit = lit || (v.prop_clutch_EQ[e] && (v.engn_type[e] == 0 || v.engn_type[e] == 1) && stg.clutch_rat[e] >= 0.01f && stg.clutch_rat[e] <= 0.99f);
		val = lit;
		val_max = 1;
	} else if (code == 19) {   // brakes
		const bool hit = p.outside || in_ins_box(-24, -8, 24, 8);
		if (hit && !p.outside) mnw.cursor_type = 10;
		if (hit && (p.outside || mnw.mouse_clicked)) f.parkbrake = f.parkbrake >= 0.1f ? 0.0f : 1.0f;
		val = f.parkbrake > 0.01f || f.l_brake_add > 0.5f || f.r_brake_add > 0.5f;
		val_max = 1;
	} else if (code == 11) {   // jettison: water for a water bomber, else the load
		if (v.jett_is_water) {
			if (p.click(12)) f.is_dumping_water = !f.is_dumping_water;
			val = f.is_dumping_water ? 2 : 0;
			val_max = 2;
		} else {
			if (p.click(12)) f.m_jettison = 0.0f;
			val = 0;
			val_max = 2;
		}
	} else if (code == 20 || code == 486 || code == 21) {   // gear handles
		if (!v.gear_retract) {
			ins_type = saved_type;
			return;
		}
		const float w = code == 20 ? 15 : code == 486 ? 10 : 20, h = code == 20 ? 30 : code == 486 ? 20 : 70;
		if (p.outside || but_mouse_region(-w, -h, w, h, 0)) {
			f.gear_handle = !f.gear_handle;
			SOUND_play(39);
		}
		val = f.gear_handle != 0;
		val_max = code == 21 ? 2 : 1;
	} else if (gear_part) {
		gear_light(p, en, &val, &val_max);
	} else if (code == 34 || code == 35) {   // starter key
		int& ign = f.CONT_ignition[en];
		const bool turbine = v.engn_type[en] != 0 && v.engn_type[en] != 1;
		if (!mnw.delay_dragging) {
			const int d = p.step(12, false);
			if (d) {
				ign = std::clamp(ign + d, 0, 3);
				if (turbine && ign == 1) ign = 3;   // no magnetos to choose: past them
				else if (turbine && ign == 2) ign = 0;
			}
		}
		const bool starting = !p.outside && but_mouse_region(-12, -12, 12, 12, 1) && mnw.delay_dragging;
		if (starting) stg.start_time[en] = timeout;
		val = std::clamp(ign, 0, 3) + (starting ? 1 : 0);
		val_max = 4;
	} else if (code == 38 || in(code, 393, 396)) {   // fuel selectors: tanks 0 to 3, 4 all
		int& sel = stg.fuel_tank_sel;
		if (code == 38) {
			if (p.click(12)) sel = sel == 4 ? 0 : 4;
			val = sel == 4;
			val_max = 1;
		} else if (code == 394) {   // 0, 1, all, 2 in turn
			static const int walk[4] = {0, 1, 4, 2};
			int at = (int)(std::find(walk, walk + 4, sel) - walk);
			if (at > 3) at = 0;
			const int d = p.step(12, false);
			if (d) at = p.outside ? (at + 1) % 4 : std::clamp(at + d, 0, 3);
			sel = walk[at];
			val = at;
			val_max = 3;
		} else {
			const int top = code == 393 ? 2 : code == 395 ? 3 : 4;
			const int d = p.step(12, false);
			if (d) sel = p.outside ? (sel + 1) % (top + 1) : std::clamp(sel + d, 0, top);
			val = std::clamp(sel, 0, top);
			val_max = top;
		}
	} else if (in(code, 422, 433)) {   // weapon class: a position arms its classes
		static int sel = 0;
		const int top = code == 422 ? 1 : code <= 428 ? 2 : code <= 432 ? 3 : 4;
		const int d = p.step(12, false);
		if (d) sel = p.outside ? (sel + 1) % (top + 1) : std::clamp(sel + d, 0, top);
		sel = std::clamp(sel, 0, top);
		stg.gun_armed = stg.roc_armed = stg.mis_armed = stg.bom_armed = 0;
		if (sel > 0) {
			const char* armed = weapon_positions[code - 422][code == 422 ? 0 : sel - 1];
			const bool all = armed[0] == 'a';
			stg.gun_armed = all || armed[0] == 'g';
			stg.roc_armed = all || armed[0] == 'r';
			stg.mis_armed = all || armed[0] == 'm';
			stg.bom_armed = all || armed[0] == 'b';
		}
		val = sel;
		val_max = top;
	} else if (code == 439) {   // fire rate: 1, 2, 5 or 10 a second
		static const int rates[4] = {1, 2, 5, 10};
		int at = (int)(std::find(rates, rates + 4, stg.fire_rate) - rates);
		if (at > 3) at = 0;
		const int d = p.step(12, false);
		if (d) at = p.outside ? (at + 1) % 4 : std::clamp(at + d, 0, 3);
		stg.fire_rate = rates[at];
		val = at;
		val_max = 3;
	} else if (code == 476) {   // knots or Mach: the held speed converted
		const bool hit = p.click(10);
		if (hit) {
			const float root = std::clamp(std::sqrt(std::max(con.lcl_sig, 0.0f)), 0.01f, 1.0f);
			const float k = con.lcl_a * con.msctokts * root;
			nav.km_is_mach = !nav.km_is_mach;
			if (k > 0.0f) nav.asi_hold_kts_mac = nav.km_is_mach ? nav.asi_hold_kts_mac / k : nav.asi_hold_kts_mac * k;
		}
		val = hit && !p.outside;
		val_max = 1;
	} else {
		NB_ALERT("Bad update_dashbool type!", "instrument path:", ins_layer_path(code, 0), "", alert_notice);
	}
	if (!p.outside && val >= 0 && val_max >= 0) plot_ins_overlay(0, 0, 0, val, val_max + 1, 0, 0, 1);
	ins_type = saved_type;
}
