// The general gauge: every round airspeed, Mach, vertical-speed and engine dial and the
// linear engine bars. The family gives the value and the scale's ends; the aircraft may
// override them; the program draws the scale where the art leaves it blank.
#include "cockpit/gauges.h"
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "flight/HL_FLIGHT.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace {

bool any(int c, std::initializer_list<int> l) { return std::find(l.begin(), l.end(), c) != l.end(); }
bool in(int c, int a, int b) { return c >= a && c <= b; }
float round_to(float v, float m) { return m > 0.0f ? std::round(v / m) * m : v; }

// The gauge families by their custom scale slot.
enum {
	fam_asi = 0, fam_mach = 1, fam_vvi = 2, fam_rpm = 4, fam_n1 = 5, fam_n2 = 6, fam_mp = 7, fam_epr = 8, fam_trq = 9, fam_ff = 10,
	fam_itt = 11, fam_egt = 12, fam_cht = 13, fam_oilp = 14, fam_oilt = 15
};

struct gauge {
	int cus_sel = -1;
	bool engine_rpm = false;   // the RPM family reads the engine, not the propeller
	float lo = 0.0f, hi = 1.0f, lo_ang = -135.0f, hi_ang = 135.0f, val = 0.0f;
	int dig_use = 3, dec_use = 0;
};

float ret_kts_to_display(float kts) { return veh[0].asi_is_kts ? kts : kts * 1.150779f; }   // faces in miles an hour

// The barber pole's speed on the face: the lesser of Vne and the Mach limit at this height.
float ret_barber_pole()
{
	const veh_struct& v = veh[0];
	const float mmo_kts = v.Mmo * con.lcl_a * std::sqrt(std::max(con.lcl_sig, 0.0f)) * con.msctokts;
	return ret_kts_to_display(std::min(mmo_kts, v.Vne_kts));
}

// Fuel flow at full power in pounds an hour, from the specific consumption and the rating.
float ret_ff_max_lbh(int en)
{
	const veh_struct& v = veh[0];
	const int t = v.engn_type[en];
	const float base = t == 6 ? v.rock_max_opt : t == 4 || t == 5 ? v.thrust_max + v.burner_inc : v.power_max;
	const float kgs = v.SFC[en] * base;
	return (kgs > 0.0f ? kgs : 0.001f) * con.kgstolbs * 3600.0f;
}

// The family of a code, its value and the scale's defaults; false for a code not a gauge.
bool ret_family(int c, int en, int second, gauge* g)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const float gear = v.prop_type[en] == 5 && v.prop_gear_rat[en] > 0.0f ? 1.0f / v.prop_gear_rat[en] : 1.0f;
	if (in(c, 74, 86) || c == 527) {
		g->cus_sel = c == 86 ? fam_mach : fam_asi;
		if (c == 86) {
			g->hi = round_to(v.Mmo + 0.1f, 0.1f);
			g->val = f.Mach;
		} else {
			const float vso = v.vect_EQ ? v.Vs_kts : v.Vso_kts;
			g->lo = std::max(round_to(ret_kts_to_display(vso) - 20.0f, 10.0f), 0.0f);
			g->hi = std::min(round_to(ret_kts_to_display(v.Vne_kts) + 20.0f, 10.0f), 9999.0f);
			g->lo_ang = 0.0f, g->hi_ang = 330.0f;
			g->val = ret_kts_to_display(f.v_ind_kts);
		}
	} else if (c == 440 || c == 584) {
		g->cus_sel = fam_vvi;
		g->lo = -2000.0f, g->hi = 2000.0f;
		g->lo_ang = c == 440 ? 110.0f : 210.0f, g->hi_ang = c == 440 ? 430.0f : 330.0f;
		g->val = f.vvi_ind_fpm;
	} else if (any(c, {294, 301, 308, 315, 404, 196, 573})) {
		g->cus_sel = fam_rpm, g->dig_use = 4;
		g->hi = 1.2f * v.RSC_redline_PROP * con.rsctorpm * gear;
		g->val = f.POINT_tac_rad[en] * con.rsctorpm;
	} else if (in(c, 461, 465) || any(c, {197, 574})) {
		g->cus_sel = fam_rpm, g->dig_use = 4, g->engine_rpm = true;
		g->hi = 1.2f * v.RSC_redline_ENGN * con.rsctorpm;
		g->val = f.ENGN_tacrad[en] * con.rsctorpm;
	} else if (c == 322 || c == 323) {   // rotor and engine together: the helicopter's, the gyroplane's
		g->cus_sel = fam_rpm, g->dig_use = 4, g->engine_rpm = c == 323;
		// The helicopter's dial reads in rotor speed, the engine's needle geared down to it.
		g->hi = 1.2f * (c == 322 ? v.RSC_redline_PROP : v.RSC_redline_ENGN) * con.rsctorpm;
		g->val = (c == 322 ? f.POINT_tac_rad[en] : f.ENGN_tacrad[en]) * con.rsctorpm;
	} else if (any(c, {295, 302, 309, 316, 405, 198, 575})) {
		g->cus_sel = fam_n1, g->hi = 100.0f, g->val = f.ENGN_N1_[en];
	} else if (any(c, {539, 541, 543, 537, 535, 199, 576})) {
		g->cus_sel = fam_n2, g->hi = 100.0f, g->val = f.ENGN_N2_[en];
	} else if (any(c, {296, 303, 317, 406, 200, 577})) {
		g->cus_sel = fam_mp, g->dec_use = 1;
		g->hi = std::round(v.MP_max + 1.0f), g->val = f.ENGN_MPR[en];
	} else if (any(c, {297, 304, 311, 318, 407, 201, 578})) {
		g->cus_sel = fam_epr, g->dec_use = 2;
		g->lo = 1.0f, g->hi = round_to(v.EPR_max + 0.1f, 0.1f), g->val = f.ENGN_EPR[en];
	} else if (any(c, {298, 305, 312, 319, 408, 202, 579})) {
		g->cus_sel = fam_trq, g->hi = 100.0f;
		g->val = f.ENGN_TRQ_nm[en] / std::max(v.trq_max_eng, 1.0f) * 100.0f;
	} else if (any(c, {299, 306, 313, 320, 409, 203, 580})) {
		g->cus_sel = fam_ff, g->dig_use = 4;
		g->hi = ret_ff_max_lbh(en), g->val = f.ENGN_FF_kgs[en] * con.kgstolbs * 3600.0f;
	} else if (any(c, {300, 307, 314, 321, 410, 204, 581})) {
		g->cus_sel = fam_itt, g->dig_use = 4, g->hi = v.max_ITT, g->val = f.ENGN_ITT[en];
	} else if (any(c, {538, 540, 536, 534, 205, 582}) || (c == 608 && second)) {
		g->cus_sel = fam_egt, g->dig_use = 4, g->hi = v.max_EGT, g->val = f.ENGN_EGT[en];
	} else if (any(c, {310, 542, 597, 600, 608})) {
		g->cus_sel = fam_cht, g->dig_use = c == 608 ? 3 : 4, g->hi = v.max_CHT, g->val = f.ENGN_CHT[en];
	} else if (c == 598 || (c == 607 && second)) {
		g->cus_sel = fam_oilp, g->hi = v.max_OILP, g->val = f.ENGN_OILP[en];
	} else if (c == 599 || c == 607) {
		g->cus_sel = fam_oilt, g->hi = v.max_OILT, g->val = f.ENGN_OILT[en];
	} else {
		return false;
	}
	return true;
}

bool is_round_gauge(int c) { return !(any(c, {87, 88, 463, 308, 309, 543}) || in(c, 311, 314) || in(c, 573, 582)); }
bool is_engine_gauge(int c) { return !(in(c, 74, 86) || c == 527 || c == 440 || c == 584); }

// A number of the scale's digit sheet, centred on (x, y): places from the right take rows 0 up.
void emit_scale_number(float x, float y, float val, float hi_val_lab, float units)
{
	const float cell_w = ins_layer_dx(4) / 16.0f, cell_h = ins_layer_dy(4) / 4.0f;
	int cells[8], n = 0;
	if (hi_val_lab < 10.0f) {   // hundredths, with the point
		const int v = (int)std::lround(std::fabs(val) / units * 100.0f);
		cells[n++] = v / 100 % 10;
		cells[n++] = 10;   // NUM_period
		cells[n++] = v / 10 % 10;
		cells[n++] = v % 10;
	} else {
		const int v = std::min((int)std::lround(std::fabs(val) / units), 9999999);
		char buf[12];
		const int len = std::snprintf(buf, sizeof buf, "%d", v);
		for (int k = 0; k < len && n < 8; k++) cells[n++] = buf[k] - '0';
	}
	const float left = x - (n - 1) * cell_w * 0.5f;   // the first digit's centre
	for (int k = 0; k < n; k++) {
		const int row = std::min(n - 1 - k, 3), col = cells[k];
		const float t_top = ins_layer_dy(4) - row * cell_h;
		ins_emit_quad(4, left + k * cell_w, y, 0.0f, cell_w * 0.5f, cell_h * 0.5f, col * cell_w, t_top - cell_h, (col + 1) * cell_w, t_top);
	}
}

// Marking arcs of the airspeed and RPM faces, at the tick radius.
void draw_arcs(const gauge& g, int en, float xc, float yc, float tic)
{
	const veh_struct& v = veh[0];
	auto ang = [&](float val) { return val_to_ang(g.cus_sel, g.lo, g.lo_ang, g.hi, g.hi_ang, en, val); };
	auto band = [&](float a, float b, float r1, float r2, int color) {
		if (a == 0.0f || b == 0.0f) return;
		ins_arc(xc, yc, r1, r2, ang(a), ang(b), color, 0.6f);
	};
	auto mark = [&](float a, float rad, float r1, float r2, int color) {   // a line a little wide, clockwise of the value
		if (a == 0.0f) return;
		const float a0 = ang(a), sweep = rad * 57.29578f * (g.hi_ang >= g.lo_ang ? 1.0f : -1.0f);
		ins_arc(xc, yc, r1, r2, a0, a0 + sweep, color, 0.6f);
	};
	if (g.cus_sel == fam_asi) {
		auto d = ret_kts_to_display;
		band(d(v.Vno_kts), d(v.Vne_kts), tic - 3.0f, tic, 2);
		band(d(v.Vs_kts), d(v.Vno_kts), tic - 3.0f, tic, 13);
		band(d(v.Vso_kts), d(v.Vfe_kts), tic, tic + 3.0f, 0);
		mark(d(v.Vne_kts), 0.06f, tic - 3.0f, tic + 3.0f, 1);
		mark(d(v.Vmca_kts), 0.06f, tic - 3.0f, tic + 3.0f, 1);
		mark(d(v.Vyse_kts), 0.06f, tic - 3.0f, tic + 3.0f, 16);
	} else if (g.cus_sel == fam_rpm) {
		const float k = con.rsctorpm;   // the speeds are kept in radians a second
		band((g.engine_rpm ? v.RSC_mingreen_ENGN : v.RSC_mingreen_PROP) * k, (g.engine_rpm ? v.RSC_maxgreen_ENGN : v.RSC_maxgreen_PROP) * k,
		     tic - 2.0f, tic, 13);
		mark((g.engine_rpm ? v.RSC_redline_ENGN : v.RSC_redline_PROP) * k, 0.1f, tic - 8.0f, tic, 1);
	}
}

}  // namespace

void plot_sheet_number(float x, float y, float val, int lit)
{
	if (!ins_bind(4, lit)) return;
	glBegin(GL_QUADS);
	emit_scale_number(x, y, val, 10.0f, 1.0f);
	glEnd();
}

float asi_to_ang(int code, float v)
{
	struct curve { float v1, v2, v3, p1, r1, p2, r2, p3, r3; };
	static const curve c74 = {40, 120, 200, 1.2f, 0.75f, 1, 2.2f, 0.85f, 1.425f};
	static const curve c75 = {60, 140, 300, 2, 0.7f, 0.95f, 1.625f, 0.95f, 1.025f};
	static const curve c76 = {60, 200, 400, 1.2f, 0.4333f, 1, 1.1f, 0.86f, 0.75f};
	static const curve c78 = {60, 250, 450, 1.2f, 0.1333f, 1, 1.2842f, 0.86f, 0.45f};
	const curve* k = code == 74 ? &c74 : code == 75 ? &c75 : code == 76 || code == 77 ? &c76 : code == 78 || code == 79 || code == 527 ? &c78 : nullptr;
	if (!k) {
		NB_ALERT("Bad asi_to_ang ins_type!", "instrument path:", ins_layer_path(code, 0), "", alert_notice);
		return 0.0f;
	}
	if (!std::isfinite(v)) v = 0.0f;
	const float t1 = std::clamp(v / k->v1, 0.0f, 1.0f), t2 = std::clamp((v - k->v1) / (k->v2 - k->v1), 0.0f, 1.0f);
	const float t3 = std::max((v - k->v2) / (k->v3 - k->v2), 0.0f);   // not held at the top: the needle goes on round
	return k->v1 * k->r1 * std::pow(t1, k->p1) + (k->v2 - k->v1) * k->r2 * std::pow(t2, k->p2) + (k->v3 - k->v2) * k->r3 * std::pow(t3, k->p3);
}

scale_steps ret_scale_steps(float range)
{
	static const scale_steps table[] = {
		{2000000, 10000000, 100000}, {1000000, 5000000, 100000}, {500000, 2000000, 100000}, {200000, 1000000, 10000},
		{100000, 500000, 10000},     {50000, 200000, 10000},     {20000, 100000, 1000},     {10000, 50000, 1000},
		{5000, 20000, 1000},         {2000, 10000, 1000},        {1000, 5000, 1000},        {500, 2000, 100},
		{200, 1000, 100},            {100, 500, 100},            {50, 200, 100},            {20, 100, 10},
		{10, 50, 10},                {5, 20, 10},                {2, 10, 10},               {1, 5, 1},
		{0.5f, 2, 1},                {0.2f, 1, 1},               {0.1f, 0.5f, 1},           {0.05f, 0.2f, 1}};
	static const float at_least[] = {40000000, 20000000, 8000000, 4000000, 2000000, 800000, 400000, 200000, 80000, 40000, 20000, 8000,
	                                 4000,     2000,     800,     400,     200,     80,     40,     20,     8,     4,     2,     0.8f};
	for (size_t k = 0; k < sizeof at_least / sizeof at_least[0]; k++)
		if (range >= at_least[k]) return table[k];
	return {0.02f, 0.1f, 0.1f};
}

void update_eng_asi(int en, int second)
{
	const int c = ins_type;
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	en = std::clamp(en, 0, engn_max - 1);
	if (c == 87 || c == 88) {
		plot_solid_tape_vert(0.0f, 0.0f, c == 87 ? ret_kts_to_display(f.v_ind_kts) : f.Mach, 0, 1);
		return;
	}
	const bool is_asi = in(c, 74, 86) || c == 527, is_vvi = c == 440 || c == 584, is_round = is_round_gauge(c);
	const bool lit_all = in(c, 196, 205) || in(c, 573, 582) || c == 584, ecam = lit_all;
	const bool powered = stg.avionics && tot_volt_avail() > 0.1f;
	if (lit_all && !powered) return;
	if (ecam && c != 584 && nav.mode_ecam != 0) return;   // the engine page's
	const int lit_scale = lit_all || ((is_asi || is_vvi) && powered);
	gauge g;
	if (!is_round) g.lo_ang = -50.0f, g.hi_ang = 34.0f;   // linear gauges: pixels up the bar
	if (!ret_family(c, en, second, &g)) return;
	bool draw_scale = (in(c, 80, 86) || is_vvi || is_engine_gauge(c)) && !(ren.view_bmp_avail[0] && !ecam);
	const int s = g.cus_sel;
	if (v.cus_rnd_use[s]) g.lo = v.cus_rnd_lo_val[s], g.hi = v.cus_rnd_hi_val[s], g.lo_ang = v.cus_rnd_lo_ang[s], g.hi_ang = v.cus_rnd_hi_ang[s];
	float dig_offset = 0.0f, dig_scale;
	if (v.cus_dig_use[s]) {
		dig_offset = v.cus_dig_offset[s], dig_scale = v.cus_dig_scale[s], g.dig_use = v.cus_dig_dig[s], g.dec_use = v.cus_dig_dec[s];
	} else {
		dig_scale = std::pow(10.0f, (float)g.dec_use);
		if (s == fam_ff && g.val > 99999.0f) dig_scale *= 0.001f;
		else if (s == fam_ff && g.val > 9999.0f) dig_scale *= 0.01f;
	}
	const float xc = cus_dat_1[c], yc = cus_dat_2[c], tic = cus_dat_3[c], num_rad = cus_dat_4[c];
	if (draw_scale && is_round && (tic < 1.0f || num_rad < 1.0f)) draw_scale = false;

	// The scale: ticks from the low label, numbered every modnum.
	if (draw_scale && g.hi != g.lo) {
		const float lo_val_lab = g.lo;
		const float end_ang = std::fabs(g.hi_ang - g.lo_ang) > 360.0f ? g.lo_ang + std::copysign(360.0f, g.hi_ang - g.lo_ang) : g.hi_ang;
		const float hi_val_lab = g.lo + (g.hi - g.lo) * (end_ang - g.lo_ang) / (g.hi_ang - g.lo_ang);
		float range = hi_val_lab - lo_val_lab;
		if (is_round) range /= std::sqrt(std::max(std::fabs(end_ang - g.lo_ang) / 330.0f * num_rad / 30.0f, 0.01f));
		scale_steps st = ret_scale_steps(range);
		if (is_asi || s == fam_n1 || s == fam_n2 || s == fam_mp || s == fam_epr || s == fam_trq) st.units = 1.0f;
		float lo_lab = lo_val_lab;
		if (!is_vvi) g.lo = lo_lab = round_to(g.lo, st.modnum);
		if (is_round && !(is_asi && s == fam_mach)) draw_arcs(g, en, xc, yc, tic);
		if (ins_bind(4, lit_scale)) {
			const float cell_w = ins_layer_dx(4) / 16.0f, cell_h = ins_layer_dy(4) / 4.0f, t_top = ins_layer_dy(4);
			glBegin(GL_QUADS);
			for (int k = 0; k < 2000; k++) {
				const float val = lo_lab + k * st.step;
				if (val > hi_val_lab + st.step * 0.001f) break;
				const float q = val / st.modnum, whole = std::trunc(q + std::copysign(0.00001f, val));
				const bool big = std::fabs(q - whole) < 0.00002f * std::max(1.0f, std::fabs(q));
				const float a = val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, val);
				const int row = big ? 0 : 1;
				if (is_round) {
					const float r = a * (float)M_PI / 180.0f;
					ins_emit_quad(4, xc + tic * std::sin(r), yc + tic * std::cos(r), a, cell_w * 0.5f, cell_h * 0.5f, 15 * cell_w,
					              t_top - (row + 1) * cell_h, 16 * cell_w, t_top - row * cell_h);
					if (big) emit_scale_number(xc + num_rad * std::sin(r), yc + num_rad * std::cos(r), val, hi_val_lab, st.units);
				} else {
					ins_emit_quad(4, 0.0f, a, 0.0f, cell_w * 0.5f, cell_h * 0.5f, 15 * cell_w, t_top - (row + 1) * cell_h, 16 * cell_w,
					              t_top - row * cell_h);
					if (big) emit_scale_number(23.0f, a, val, hi_val_lab, st.units);
				}
			}
			glEnd();
		}
	}

	// Faces and needles.
	if (any(c, {77, 79, 81, 83, 85})) {
		const float y = c == 77 ? -22.0f : c == 83 ? -23.0f : c == 85 ? -21.0f : -20.0f;
		plot_solid_0_10_vert(0.0f, y, g.val, 3, 0, 1, lit_scale);
	}
	if (in(c, 74, 79) || c == 527) {
		const float ang = asi_to_ang(c, g.val);
		if (v.Mmo > 0.0f) {
			plot_ins_overlay(xc, yc, asi_to_ang(c, ret_barber_pole()), 1, 3, 0, 1, 2);
			plot_ins_overlay(xc, yc, ang, 0, 3, 0, 1, 2);
		} else {
			plot_ins_overlay(xc, yc, ang, 0, 1, 0, 1, 2);
		}
		return;
	}
	const float ang = val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, g.val);
	if (is_asi && v.Mmo > 0.0f && s == fam_asi) {
		plot_ins_overlay(xc, yc, val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, ret_barber_pole()), 1, 3, 0, 1, 2);
		plot_ins_overlay(xc, yc, ang, 0, 3, 0, 1, 2);
		return;
	}
	if (is_vvi) {
		plot_ins_overlay(0.0f, 0.0f, 0.0f, 0, 1, lit_scale, 0, 3);
		plot_ins_overlay(xc, yc, ang, 0, 3, lit_scale, 1, 2);
		plot_ins_overlay(xc, yc, val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, nav.vvi_hold_fpm), 2, 3, lit_scale, 1, 2);
		plot_ins_overlay(xc, yc, -90.0f, 1, 3, lit_scale, 1, 2);
		return;
	}
	if (in(c, 301, 307) || in(c, 540, 542) || in(c, 196, 205))
		plot_solid_0_10_vert(0.0f, -23.0f, g.val * dig_scale + dig_offset, g.dig_use, 0, 1, lit_all);
	if (is_round) {
		if (!(ecam && !powered)) plot_ins_overlay(xc, yc, ang, 0, 1, lit_all, 1, 2);
		if (c == 322) {   // the engines' speeds through their gearing, over the rotor's
			for (int e = 0; e < std::min(v.num_engines, engn_max); e++) {
				const float rpm = f.ENGN_tacrad[e] * con.rsctorpm / (v.prop_gear_rat[e] > 0.0f ? v.prop_gear_rat[e] : 1.0f);
				plot_ins_overlay(xc, yc, val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, rpm), 0, 1, lit_all, 1, 2);
			}
		} else if (c == 323) {   // the rotors that turn free, geared up tenfold to read on the engine's dial
			for (int e = 0; e < std::min(v.num_engines, engn_max); e++) {
				if ((v.prop_type[e] != 3 && v.prop_type[e] != 7) || f.fail_stat[rel_pshaft0 + e] == fail_inop) continue;
				plot_ins_overlay(xc, yc, val_to_ang(s, g.lo, g.lo_ang, g.hi, g.hi_ang, en, 10.0f * f.POINT_tac_rad[1] * con.rsctorpm), 0, 1,
				                 lit_all, 1, 2);
			}
		}
		if (ecam)   // the value in digits above the dial
			plot_solid_0_10_vert(0.0f, 44.0f, g.val * dig_scale + dig_offset, g.dig_use, 0, 0, 1);
	} else if (ins_layer_ok(1)) {   // the bar stretched from the low mark to the value
		const float w = ins_layer_dx(1), h = ins_layer_dy(1);
		const float y1 = g.lo_ang, y2 = std::max(ang, y1);
		ins_bind(1, lit_all);
		glBegin(GL_QUADS);
		ins_emit_quad(1, 0.0f, (y1 + y2) * 0.5f, 0.0f, w * 0.5f, (y2 - y1) * 0.5f, 0.0f, 0.0f, w, h);
		glEnd();
		plot_ins_overlay(0.0f, -8.0f, 0.0f, 0, 1, lit_all, 0, 3);
	}
}
