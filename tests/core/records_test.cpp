#include "core/HL_TYPES.h"
#include "core/flt_fields.h"
#include "core/rec_fields.h"
#include "core/failures.h"
#include <cstring>
#include <gtest/gtest.h>

namespace {

struct PartAlive : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		veh[1].num_engines = 2;
		veh[1].num_thrustpoints = 3;
		veh[1].engn_type[0] = 0;   // reciprocating: drives a propeller
		veh[1].engn_type[1] = 4;   // jet: no propeller part
		for (int en = 8; en < part_max; en++) veh[1].part_eq[en] = 1;
	}
};

}  // namespace

TEST_F(PartAlive, EnginesAndThrustPoints)
{
	EXPECT_EQ(ret_part_alive(1, 0), 1);
	EXPECT_EQ(ret_part_alive(1, 1), 0);   // a jet has no propeller
	EXPECT_EQ(ret_part_alive(1, 2), 1);   // a thrust point beyond the engines
	EXPECT_EQ(ret_part_alive(1, 3), 0);   // beyond the thrust points
	veh[1].engn_type[0] = 7;
	EXPECT_EQ(ret_part_alive(1, 0), 1);
	veh[1].hide_prop_at_90_vect = 1;
	flt[1].vert_disc_cant_vector[0] = 90.0f;
	EXPECT_EQ(ret_part_alive(1, 0), 0);
	flt[1].vert_disc_cant_vector[0] = 89.0f;
	EXPECT_EQ(ret_part_alive(1, 0), 1);
}

TEST_F(PartAlive, SeparationKillsTheEngineAndItsNacelle)
{
	EXPECT_EQ(ret_part_alive(1, 53), 1);
	flt[1].fail_stat[rel_engsep0 + 0] = fail_inop;
	EXPECT_EQ(ret_part_alive(1, 0), 0);
	EXPECT_EQ(ret_part_alive(1, 53), 0);
	EXPECT_EQ(ret_part_alive(1, 54), 1);
	flt[1].fail_stat[rel_engsep0 + 0] = fail_on_key;   // armed but not failed
	EXPECT_EQ(ret_part_alive(1, 0), 1);
	EXPECT_EQ(ret_part_alive(0, 53), 0);               // another aircraft is untouched by it
}

TEST_F(PartAlive, StructuralFailuresAndPresence)
{
	EXPECT_EQ(ret_part_alive(1, 8), 1);
	flt[1].fail_stat[rel_wing1L] = fail_inop;
	EXPECT_EQ(ret_part_alive(1, 8), 0);
	EXPECT_EQ(ret_part_alive(1, 9), 1);
	flt[1].fail_stat[rel_pyl1b + 7] = fail_inop;
	EXPECT_EQ(ret_part_alive(1, 43), 0);
	flt[1].fail_stat[rel_vstb2] = fail_inop;
	EXPECT_EQ(ret_part_alive(1, 19), 0);
	veh[1].part_eq[44] = 0;
	EXPECT_EQ(ret_part_alive(1, 44), 0);
	EXPECT_EQ(ret_part_alive(1, 72), 1);
	EXPECT_EQ(ret_part_alive(1, 73), 0);
	EXPECT_EQ(ret_part_alive(10, 8), 0);
	EXPECT_EQ(ret_part_alive(1, -1), 0);
}

TEST(FailureTable, NamesSitAtTheirIndices)
{
	EXPECT_STREQ(ret_fail_name(0), "rel_vacuum");
	EXPECT_STREQ(ret_fail_name(6), "rel_ss_vvi");
	EXPECT_STREQ(ret_fail_name(31), "rel_fc_thr");
	EXPECT_STREQ(ret_fail_name(36), "rel_lagear5");
	EXPECT_STREQ(ret_fail_name(41), "rel_tire5");
	EXPECT_STREQ(ret_fail_name(53), "rel_static");
	EXPECT_STREQ(ret_fail_name(54), "rel_engfai0");
	EXPECT_STREQ(ret_fail_name(85), "rel_revlok7");
	EXPECT_STREQ(ret_fail_name(90), "");
	EXPECT_STREQ(ret_fail_name(102), "rel_oilpmp0");
	EXPECT_STREQ(ret_fail_name(133), "rel_fadec_7");
	EXPECT_STREQ(ret_fail_name(141), "rel_wing4R");
	EXPECT_STREQ(ret_fail_name(145), "rel_vstb2");
	EXPECT_STREQ(ret_fail_name(153), "rel_mwing8");
	EXPECT_STREQ(ret_fail_name(169), "rel_pyl8b");
	EXPECT_EQ(ret_fail_name(170), nullptr);
	EXPECT_EQ(rel_fadec_0 + en_wing1L, rel_wing1L);   // structural failures are 126 + en
	EXPECT_EQ(rel_fadec_0 + en_pylb_hi, 169);
}

TEST(Records, StartZeroFilledAndSizedByTheLimits)
{
	flt[3].P = 5.0f;
	stg.numacf = 4;
	std::strcpy(stg.def_apt_idst, "ABCD");
	con.g = 1.0f;
	zero_all_records();
	EXPECT_EQ(flt[3].P, 0.0f);
	EXPECT_EQ(stg.numacf, 0);
	EXPECT_EQ(stg.def_apt_idst[0], 0);
	EXPECT_EQ(con.g, 0.0f);
	EXPECT_EQ(sizeof flt[0].v_el / sizeof(float), (size_t)part_max * el_max * azi_max);
	EXPECT_EQ(sizeof flt[0].fail_stat, (size_t)fail_max);
	EXPECT_EQ(sizeof flt[0].force_XYZ / sizeof(float), (size_t)part_max * el_max * 3);
	EXPECT_EQ(sizeof mnw.axis / sizeof(float), (size_t)axis_max);
}

// Each record's field table accounts for the whole record: in order, touching but for
// alignment, so a field added to a record but not to its table shows as a gap.
TEST(Records, FieldTablesCoverTheirRecordsAndResolveByName)
{
	auto align_of = [](int type) -> size_t { return type == ff_double ? 8 : type == ff_char ? 1 : 4; };
	auto covers = [&](const char* rec, const auto* fields, int count, size_t record_size) {
		size_t end = 0;
		for (int k = 0; k < count; k++) {
			EXPECT_GE(fields[k].offset, end) << rec << "." << fields[k].name << " overlaps";
			EXPECT_LT(fields[k].offset - end, align_of(fields[k].type)) << "a field missing before " << rec << "." << fields[k].name;
			end = fields[k].offset + fields[k].size;
		}
		EXPECT_LT(record_size - end, 8u) << "fields missing at the end of " << rec;
	};
	for (int t = 0; t < rec_table_count; t++) covers(rec_tables[t].record, rec_tables[t].fields, rec_tables[t].count, rec_tables[t].record_size);
	covers("flt", flt_fields, flt_field_count, sizeof(flt_struct));
	zero_all_records();
	stg.tow_waiting = 1;
	mnw.axis[2] = 0.25f;
	env.surf_tex = 162;
	flt[1].dob_y = 77.0;
	veh[0].gear_znodef[67] = -2.5f;
	int type = -1;
	EXPECT_EQ(*(const int*)ret_rec_address("stg.tow_waiting", &type), 1);
	EXPECT_EQ(type, ff_int);
	EXPECT_EQ(*(const float*)ret_rec_address("mnw.axis[2]", &type), 0.25f);
	EXPECT_EQ(*(const int*)ret_rec_address("env.surf_tex", &type), 162);
	EXPECT_EQ(*(const double*)ret_rec_address("flt[1].dob_y", &type), 77.0);
	EXPECT_EQ(type, ff_double);
	EXPECT_EQ(*(const float*)ret_rec_address("veh.gear_znodef[67]", &type), -2.5f);
	EXPECT_EQ(ret_rec_address("flt[1].dob_y", &type), ret_rec_address("flt[1].dob_y", &type));
	for (const char* bad : {"stg.nothing", "mnw.axis", "mnw.axis[99]", "flt[10].dob_y", "flt[-1].dob_y", "zzz.a", "veh.gear_znodef[1][2]", "mnw.axis[2", "env.surf_tex[0]"})
		EXPECT_EQ(ret_rec_address(bad, &type), nullptr) << bad;
}
