// Which routine an instrument code runs, tested in the catalogue's order with the first
// match taken; and which engine it reads, by the counters of its family.
#include "cockpit/gauges.h"
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

bool in(int v, int lo, int hi) { return v >= lo && v <= hi; }
bool any(int v, std::initializer_list<int> l) { return std::find(l.begin(), l.end(), v) != l.end(); }

int engines() { return std::clamp(veh[0].num_engines, 1, engn_max); }

// A counter by hand: this use's engine, then on to the next, wrapping.
int next_by_hand(int* counter)
{
	const int en = *counter % engines();
	*counter = (en + 1) % engines();
	return en;
}

// The gauge kinds of the round, tape and number families, each with a counter of its own.
int round_kind(int c)
{
	if (any(c, {294, 301, 308, 196, 573})) return 0;   // propeller speed
	if (in(c, 461, 463) || any(c, {197, 574})) return 1;   // engine speed
	if (any(c, {295, 302, 309, 198, 575})) return 2;   // N1
	if (any(c, {539, 541, 543, 199, 576})) return 3;   // N2
	if (any(c, {296, 303, 200, 577})) return 4;   // manifold pressure
	if (any(c, {297, 304, 311, 201, 578})) return 5;   // EPR
	if (any(c, {298, 305, 312, 202, 579})) return 6;   // torque
	if (any(c, {299, 306, 313, 203, 580})) return 7;   // fuel flow
	if (any(c, {300, 307, 314, 204, 581})) return 8;   // ITT
	if (any(c, {538, 540, 205, 582})) return 9;   // EGT
	if (any(c, {310, 542})) return 10;   // CHT
	if (c == 598) return 11;   // oil pressure
	if (c == 599) return 12;   // oil temperature
	return -1;
}

int number_kind(int c)
{
	static const int pairs[11][2] = {{404, 315}, {465, 464}, {405, 316}, {535, 537}, {406, 317}, {407, 318},
	                                 {408, 319}, {409, 320}, {410, 321}, {534, 536}, {600, 597}};
	for (int k = 0; k < 11; k++)
		if (c == pairs[k][0] || c == pairs[k][1]) return k;
	return -1;
}

int next_of(int family, int kind) { return get_next_eng(&pcount.next_eng[family][kind]); }

bool dashbool_panel(int c)
{
	return any(c, {450, 436, 438, 439, 403, 369, 370, 414, 416, 417, 455, 492, 493, 456, 457, 459, 446, 37, 38, 398, 486, 377, 379, 488,
	               415, 533, 476, 140}) ||
	       in(c, 422, 433) || in(c, 466, 473) || in(c, 393, 396) || in(c, 1, 8) || in(c, 10, 21) || in(c, 24, 30) || in(c, 387, 389);
}

}  // namespace

int run_ins_routine(int c)
{
	const veh_struct& v = veh[0];
	if (c == 0) TEXT_plot_string(-18, -7, v.tailnum, 0, 1);
	else if (dashbool_panel(c)) update_dashbool(-1, 0);
	else if (any(c, {34, 35, 36})) update_dashbool(-1, next_by_hand(&pcount.starter));
	else if (any(c, {9, 31, 32, 33, 447, 413, 411})) update_dashbool(-1, next_by_hand(&pcount.dashbool));
	else if (any(c, {22, 23, 487, 530, 531})) update_dashbool(-1, 67 + pcount.gear++ % 6);   // the six gear parts in turn
	else if (in(c, 39, 46) || in(c, 248, 250) || any(c, {274, 375, 478}) || in(c, 500, 519)) update_rhe(0, 0, c);
	else if (const int k = number_kind(c); k >= 0) update_num_eng(next_of(1, k));
	else if (const int k = round_kind(c); k >= 0) update_eng_asi(next_of(0, k), 0);
	else if (c == 607) {   // oil temperature and pressure on one face
		update_eng_asi(next_of(0, 12), 0);
		update_eng_asi(next_of(0, 11), 1);
	} else if (c == 608) {   // cylinder head and exhaust on one face
		update_eng_asi(next_of(0, 10), 0);
		update_eng_asi(next_of(0, 9), 1);
	} else if (any(c, {324, 606, 325, 326, 327, 328, 585, 412})) update_sqr_eng(next_by_hand(&pcount.sqr_eng));
	else if (in(c, 47, 55)) update_econs(next_by_hand(&pcount.econs));
	else if (in(c, 56, 61) || c == 458) update_econs(0);
	else if (in(c, 215, 231) || c == 474) {
		const int k = c - 215, receiver = k / 2, bc = k % 2;   // nav 1, 2, com 1, 2, navcom 1, 2, ADF 1, 2
		if (c == 231 || c == 474) update_NAV_COM_ADF(0, 1, 1, 1, 0, 1);
		else if (c <= 218) update_NAV_COM_ADF(receiver % 2, 1, 0, 0, 0, bc);
		else if (c <= 222) update_NAV_COM_ADF(receiver % 2, 0, 1, 0, 0, bc);
		else if (c <= 226) update_NAV_COM_ADF(receiver % 2, 1, 1, 0, 0, bc);
		else update_NAV_COM_ADF(2 + receiver % 2, 0, 0, 1, 0, bc);
	} else if (c == 236) update_NAV_COM_ADF(5, 0, 0, 0, 1, 1);
	else if (c == 238) update_NAV_COM_ADF(nav.DME_01, 0, 0, 0, 1, 1);
	else if (c == 235) update_NAV_COM_ADF(5, 0, 0, 0, 1, 0);
	else if (c == 237) update_NAV_COM_ADF(nav.DME_01, 0, 0, 0, 1, 0);
	else if (c == 454) update_NAV_COM_ADF(nav.DME_mode ? nav.DME_01 : 5, 0, 0, 0, 1, 0);
	else if (in(c, 355, 359) || any(c, {138, 376, 367, 368, 609, 610})) update_annunciator(0);
	else if (in(c, 360, 366) || c == 386) update_annunciator(next_by_hand(&pcount.annunciator));
	else if (any(c, {480, 131, 482, 544})) update_VOR(0);
	else if (any(c, {481, 132, 483, 545})) update_VOR(1);
	else if (any(c, {133, 136, 139}) || in(c, 142, 156) || in(c, 550, 552)) update_RMI_ADF();
	else if (in(c, 232, 234)) update_GPS(0);
	else if (in(c, 242, 293) || in(c, 399, 402) || in(c, 441, 444) || in(c, 494, 497) || in(c, 592, 595)) update_otto();
	else if (any(c, {520, 521, 522, 90, 460, 448, 91, 92, 93, 523, 524, 477, 532})) update_art_horiz();
	else if (c == 188) update_orb_prim();
	else if (c == 189) update_orb_horz();
	else if (c == 190) update_orb_vert();
	else if (any(c, {109, 479, 528})) update_DG();
	else if (in(c, 110, 121) || c == 583) update_HSI();
	else if (in(c, 94, 100) || any(c, {525, 526, 137})) update_altitude();
	else if (in(c, 122, 130) || c == 529) update_VVI();
	else if (in(c, 239, 241) || c == 475) update_XPNDR(0);
	else if (c == 329 || c == 330) update_Gmeter();
	else if (c == 337 || c == 397) update_totenergy();
	else if (c == 374 || c == 390) update_FMS();
	else if (any(c, {378, 437, 89})) update_AOA();
	else if (in(c, 62, 65) || c == 453 || in(c, 601, 604)) update_flaps();
	else if (in(c, 418, 421) || c == 499) update_cabin_press();
	else if (in(c, 166, 184) || any(c, {451, 452, 484, 445, 586, 587, 588, 590, 591, 596})) update_EFIS_element();
	else if (in(c, 185, 187) || in(c, 371, 373) || c == 331 || c == 333) update_EFIS_map();
	else if (c == 192) update_EFIS_mode();
	else if (in(c, 193, 195)) update_ECAM_display();
	else if (in(c, 206, 210)) update_ECAM_mode();
	else if (any(c, {191, 589, 435})) update_HITS();
	else if (c == 611) update_integrated_PFD();
	else if (c == 612) update_integrated_MFD();
	else if (c == 527 || in(c, 74, 88) || any(c, {322, 323, 440, 584})) update_eng_asi(0, 0);
	else if (in(c, 380, 385)) update_rocket(0, -1, 0.0f);
	else if (in(c, 66, 73)) update_trims(-1, mnw.delay_dragging);
	else if (c == 101) update_turn();
	else if (c == 102) update_needle();
	else if (in(c, 103, 105)) update_slip();
	else if (in(c, 106, 108)) update_compass();
	else if (c == 211 || c == 212) update_audiopanel();
	else if (c == 213 || c == 214) update_markers();
	else if (c == 332) update_stormscope();
	else if (in(c, 334, 336)) update_radalt();
	else if (c == 338) update_suction();
	else if (c == 339) update_stall();
	else if (c == 340 || c == 341) update_clock();
	else if (c == 342) update_HM_chrono();
	else if (in(c, 343, 346)) update_timer();
	else if (in(c, 347, 350)) update_fuel(&pcount.fuel);
	else if (in(c, 351, 353)) update_thermo();
	else if (c == 354) plot_solid_0_10_vert(0, 0, std::round(mnw.hobs_time / 360.0f / 0.1f) * 0.1f, 4, 1, 1, 0);   // hours
	else if (c == 449) update_water_quan();
	else if (c == 485) plot_solid_0_10_vert(0, 0, nav.baro_setting_HG * (con.metric_press ? con.hg_tomil : 100.0f), 4, 0, 1, 0);
	else if (c == 141) update_baro_pressdig();
	else if (in(c, 546, 549)) update_dme_dig_disp();
	else if (c == 134 || c == 135) plot_solid_0_10_vert(0, 0, flt[0].Mach * 100.0f, 3, 0, 1, 0);
	else if (c == 605) update_engine_sync();
	else if (c == 434 || in(c, 157, 165) || c == 391 || c == 392 || in(c, 489, 491) || c == 498 || in(c, 553, 572)) return 1;   // nothing drawn here
	else return 0;
	return 1;
}
