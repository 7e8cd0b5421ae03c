// The failure table: indices into flt[p].fail_stat, their published names, and the
// test whether a part of an aircraft is alive (present, attached and working).
#pragma once
#include "core/HL_LIMITS.h"

// States of fail_stat[n]. Any test for a failure is a test for fail_inop.
enum {
	fail_working = 0, fail_random = 1, fail_at_time = 2, fail_above_kts = 3,
	fail_above_ft = 4, fail_on_key = 5, fail_inop = 6
};

enum {
	rel_vacuum = 0,
	rel_ss_asi = 1, rel_ss_ahz, rel_ss_alt, rel_ss_tsi, rel_ss_dgy, rel_ss_vvi,
	rel_efis_1 = 7, rel_efis_2,
	rel_nav1 = 9, rel_nav2,
	rel_adf1 = 11, rel_adf2,
	rel_gps = 13, rel_dme, rel_loc, rel_gls,
	rel_fc_ail_L = 17, rel_fc_ail_R, rel_fc_elv_U, rel_fc_elv_D, rel_fc_rud_L, rel_fc_rud_R,
	rel_trim_ail = 23, rel_trim_elv, rel_trim_rud,
	rel_fc_L_flp = 26, rel_fc_R_flp,
	rel_L_flp_off = 28, rel_R_flp_off,
	rel_fc_slt = 30, rel_fc_thr,
	rel_lagear1 = 32,   // .. rel_lagear5 = 36
	rel_tire1 = 37,     // .. rel_tire5 = 41
	rel_antice = 42, rel_clights, rel_esys, rel_hydsys,
	rel_stbaug = 46, rel_otto, rel_trotor, rel_feather,
	rel_invert0 = 50, rel_invert1,
	rel_pitot = 52, rel_static,
	rel_engfai0 = 54,   // engine-indexed groups of eight: base + en
	rel_engsep0 = 62,
	rel_pshaft0 = 70,
	rel_revlok0 = 78,
	rel_engx0 = 86,     // two further unnamed engine groups, 86..101
	rel_oilpmp0 = 102,
	rel_fuepmp0 = 110,
	rel_genera0 = 118,
	rel_fadec_0 = 126,  // also the base of structural failures: 126 + en for parts 8..43
	rel_wing1L = 134,
	rel_hstbL = 142, rel_hstbR, rel_vstb1, rel_vstb2,
	rel_mwing1 = 146,
	rel_pyl1a = 154,
	rel_pyl1b = 162
};

// Published name of failure n, "" for the unnamed 86..101, nullptr out of range.
const char* ret_fail_name(int n);

// 1 if part en of aircraft p takes part in forces, drawing and contact.
int ret_part_alive(int p, int en);
