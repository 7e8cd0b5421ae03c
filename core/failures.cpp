// Failure names and the part-alive test.
#include "core/failures.h"
#include "core/HL_TYPES.h"
#include <cstdio>

namespace {

char fail_names[fail_max][16];

// Names are built once from the table's groups; the unnamed 86..101 stay empty.
struct fail_name_table {
	fail_name_table()
	{
		static const char* singles[] = {
			"rel_vacuum", "rel_ss_asi", "rel_ss_ahz", "rel_ss_alt", "rel_ss_tsi", "rel_ss_dgy", "rel_ss_vvi",
			"rel_efis_1", "rel_efis_2", "rel_nav1", "rel_nav2", "rel_adf1", "rel_adf2",
			"rel_gps", "rel_dme", "rel_loc", "rel_gls",
			"rel_fc_ail_L", "rel_fc_ail_R", "rel_fc_elv_U", "rel_fc_elv_D", "rel_fc_rud_L", "rel_fc_rud_R",
			"rel_trim_ail", "rel_trim_elv", "rel_trim_rud", "rel_fc_L_flp", "rel_fc_R_flp",
			"rel_L_flp_off", "rel_R_flp_off", "rel_fc_slt", "rel_fc_thr"};
		int n = 0;
		for (const char* s : singles) std::snprintf(fail_names[n++], 16, "%s", s);
		for (int k = 1; k <= 5; k++) std::snprintf(fail_names[n++], 16, "rel_lagear%d", k);
		for (int k = 1; k <= 5; k++) std::snprintf(fail_names[n++], 16, "rel_tire%d", k);
		static const char* more[] = {
			"rel_antice", "rel_clights", "rel_esys", "rel_hydsys", "rel_stbaug", "rel_otto", "rel_trotor",
			"rel_feather", "rel_invert0", "rel_invert1", "rel_pitot", "rel_static"};
		for (const char* s : more) std::snprintf(fail_names[n++], 16, "%s", s);
		static const char* engine_groups[] = {"rel_engfai", "rel_engsep", "rel_pshaft", "rel_revlok"};
		for (const char* g : engine_groups)
			for (int k = 0; k < 8; k++) std::snprintf(fail_names[n++], 16, "%s%d", g, k);
		n += 16;   // 86..101 have no published name
		static const char* engine_groups2[] = {"rel_oilpmp", "rel_fuepmp", "rel_genera", "rel_fadec_"};
		for (const char* g : engine_groups2)
			for (int k = 0; k < 8; k++) std::snprintf(fail_names[n++], 16, "%s%d", g, k);
		static const char* wings[] = {"rel_wing1L", "rel_wing1R", "rel_wing2L", "rel_wing2R", "rel_wing3L",
		                              "rel_wing3R", "rel_wing4L", "rel_wing4R", "rel_hstbL", "rel_hstbR",
		                              "rel_vstb1", "rel_vstb2"};
		for (const char* s : wings) std::snprintf(fail_names[n++], 16, "%s", s);
		for (int k = 1; k <= 8; k++) std::snprintf(fail_names[n++], 16, "rel_mwing%d", k);
		for (int k = 1; k <= 8; k++) std::snprintf(fail_names[n++], 16, "rel_pyl%da", k);
		for (int k = 1; k <= 8; k++) std::snprintf(fail_names[n++], 16, "rel_pyl%db", k);
	}
} fail_name_table_init;

}  // namespace

const char* ret_fail_name(int n)
{
	if (n < 0 || n >= fail_max) return nullptr;
	return fail_names[n];
}

int ret_part_alive(int p, int en)
{
	if (p < 0 || p >= acf_max || en < 0 || en >= part_max) return 0;
	const flt_struct& f = flt[p];
	const veh_struct& v = veh[p];
	if (en <= en_engn_hi && f.fail_stat[rel_engsep0 + en] == fail_inop) return 0;
	// A separated engine takes its nacelle with it: nacelle 53 uses failure 62.
	if (en >= en_nace_lo && en <= en_nace_hi && f.fail_stat[9 + en] == fail_inop) return 0;
	if (en <= en_engn_hi) {
		if (v.hide_prop_at_90_vect && f.vert_disc_cant_vector[en] >= 90.0f) return 0;
		if (en >= v.num_engines) return en < v.num_thrustpoints;
		int t = v.engn_type[en];
		return t == 0 || t == 1 || t == 2 || t == 3 || t == 8 || t == 7;
	}
	if (en <= en_pylb_hi && f.fail_stat[rel_fadec_0 + en] == fail_inop) return 0;
	return v.part_eq[en] != 0;
}
