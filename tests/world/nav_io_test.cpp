#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

struct NavFiles : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
		zero_all_records();
		init_con();
		set_planet_specs(0);
		ean_path = man_path = dir;
		vec_nav.clear();
		vec_fix.clear();
		vec_awy.clear();
		nav_hash.clear();
	}
	void put(const std::string& name, const std::string& text) { std::ofstream(dir + name, std::ios::binary) << text; }
};

const char* aids740 =
	"I\n740 test aids\n"
	"3 34.1 -117.3 1200 11480 130 12.0 PDZ Paradise VORTAC\n"
	"4 34.09 -117.21 1100 10950 18 70.3 ISBD KSBD 06 ILS-cat-I\n"
	"6 34.092 -117.245 1100 10950 10 300070.30 ISBD KSBD 06 GS\n"
	"7 34.05 -117.35 1100 0 0 70.3 ---- KSBD 06 OM\n"
	"8 34.08 -117.26 1100 33 0 -290.0 ---- KSBD 06 MM\n"
	"2 34.0 -117.5 900 338 50 0.0 SB San Bernardino NDB\n"
	"99\n";

}  // namespace

TEST_F(NavFiles, AidsReadWithTheirConversionsAndTheCarriersOnEarth)
{
	put("nav.dat", aids740);
	ASSERT_EQ(IO_nav(0), 1);
	ASSERT_EQ(vec_nav.size(), 12u);   // six carrier entries first
	EXPECT_EQ(vec_nav[0].nav_name, "USS Enterprise");
	EXPECT_EQ(vec_nav[3].frq, 10810);
	const vec_nav_struct &vor = vec_nav[6], &gs = vec_nav[8], &mm = vec_nav[10];
	EXPECT_NEAR(vor.sqr_range_deg, (130.0f / 40) * (130.0f / 40) * 1.5f, 1e-4f);
	EXPECT_NEAR(vor.h, 1200 * 0.3048f, 0.01f);
	EXPECT_STREQ(vor.nav_id, "PDZ");
	EXPECT_EQ(vor.nav_name, "Paradise VORTAC");
	// The packed slope and course survive: 3.00 degrees on 70.
	const int N = (int)std::lround(gs.psi_true);
	EXPECT_EQ(N / 1000, 300);
	EXPECT_EQ(N % 1000, 70);
	EXPECT_EQ(mm.frq, 0);   // markers all under key 0, whatever the file says
	EXPECT_FLOAT_EQ(mm.psi_true, 70.0f);
	EXPECT_EQ(nav_hash.count(0), 2u);
	EXPECT_EQ(nav_hash.count(10950), 2u);
	EXPECT_EQ(nav_hash.count(10800), 3u);
	int k = -1;
	EXPECT_EQ(get_index_from_id("PDZ", nav_vor, &k, 34, -117), 1);
	EXPECT_EQ(k, 6);
	EXPECT_EQ(get_index_from_id("PDZ", nav_ndb, &k, 34, -117), 0);
	env.planet = 1;   // no ships on Mars
	ASSERT_EQ(IO_nav(0), 1);
	EXPECT_EQ(vec_nav.size(), 6u);
}

TEST_F(NavFiles, AVersion600FileHasNoRanges)
{
	put("nav.dat", "I\n600 old\n3 34.1 -117.3 1200 11480 12.0 PDZ Paradise\n2 34 -117.5 900 338 0 SB Beacon\n99\n");
	ASSERT_EQ(IO_nav(0), 1);
	ASSERT_EQ(vec_nav.size(), 8u);
	EXPECT_EQ(vec_nav[6].sqr_range_deg, 0.0f);
	EXPECT_FLOAT_EQ(vec_nav[6].psi_true, 12.0f);
	EXPECT_EQ(vec_nav[7].frq, 338);
}

TEST_F(NavFiles, EachWriterIsReadBackByItsReader)
{
	put("nav.dat", aids740);
	ASSERT_EQ(IO_nav(0), 1);
	std::vector<vec_nav_struct> aids(vec_nav.begin() + 6, vec_nav.end());
	ASSERT_EQ(IO_nav(1), 1);   // sorted by type and name, ships not written
	ASSERT_EQ(IO_nav(0), 1);
	ASSERT_EQ(vec_nav.size(), 12u);
	for (const vec_nav_struct& a : aids) {
		bool seen = false;
		for (size_t k = 6; k < vec_nav.size(); k++) {
			const vec_nav_struct& b = vec_nav[k];
			if (b.type != a.type || b.nav_name != a.nav_name) continue;
			seen = true;
			EXPECT_EQ(b.frq, a.frq) << a.nav_name;
			EXPECT_NEAR(b.lat, a.lat, 1e-5f);
			EXPECT_NEAR(b.h, a.h, 0.05f);
			EXPECT_NEAR(b.sqr_range_deg, a.sqr_range_deg, 1e-3f);
			EXPECT_NEAR(b.psi_true, a.psi_true, 0.01f);
			EXPECT_STREQ(b.nav_id, a.nav_id);
		}
		EXPECT_TRUE(seen) << a.nav_name;
	}
	for (size_t k = 7; k < vec_nav.size(); k++) EXPECT_GE(vec_nav[k].type, vec_nav[k - 1].type);
	vec_fix = {{34.5f, -117.5f, "ALPHA", 0}, {-12.25f, 130.75f, "BRAVO", 0}};
	vec_awy = {{{34.1f, 35.2f}, {-117.3f, -118.4f}, "V12-V16", 1, 0}, {{-1.0f, 2.0f}, {3.0f, -4.0f}, "J5", 2, 0}};
	const auto fixes = vec_fix;
	const auto airways = vec_awy;
	ASSERT_EQ(IO_fix(1), 1);
	ASSERT_EQ(IO_awy(1), 1);
	vec_fix.clear();
	vec_awy.clear();
	ASSERT_EQ(IO_fix(0), 1);
	ASSERT_EQ(IO_awy(0), 1);
	ASSERT_EQ(vec_fix.size(), 2u);
	ASSERT_EQ(vec_awy.size(), 2u);
	for (size_t k = 0; k < 2; k++) {
		EXPECT_STREQ(vec_fix[k].fix_name, fixes[k].fix_name);
		EXPECT_FLOAT_EQ(vec_fix[k].lat, fixes[k].lat);
		EXPECT_FLOAT_EQ(vec_fix[k].lon, fixes[k].lon);
		EXPECT_EQ(vec_awy[k].awy_name, airways[k].awy_name);
		EXPECT_EQ(vec_awy[k].lohi, airways[k].lohi);
		for (int e = 0; e < 2; e++) {
			EXPECT_FLOAT_EQ(vec_awy[k].lat[e], airways[k].lat[e]);
			EXPECT_FLOAT_EQ(vec_awy[k].lon[e], airways[k].lon[e]);
		}
	}
}

TEST_F(NavFiles, MissingOrCorruptFilesLeaveTheContainersWithoutAnAlert)
{
	vec_fix = {{1.0f, 2.0f, "KEEP", 0}};
	EXPECT_EQ(IO_fix(0), 0);
	EXPECT_EQ(IO_awy(0), 0);
	EXPECT_EQ(IO_nav(0), 0);
	put("fix.dat", "I\n999 wrong version\n1 2 X\n99\n");
	EXPECT_EQ(IO_fix(0), 0);
	ASSERT_EQ(vec_fix.size(), 1u);
	EXPECT_STREQ(vec_fix[0].fix_name, "KEEP");
	const std::string files[3][2] = {{"nav.dat", aids740},
	                                  {"fix.dat", "I\n600 f\n34.5 -117.5 ALPHA\n-12.25 130.75 BRAVO\n99\n"},
	                                  {"awy.dat", "I\n640 a\nAAA 34.1 -117.3 BBB 35.2 -118.4 1 20 45 V12\n99\n"}};
	std::mt19937 rng(11);
	const int alerts = alert_count;
	for (int n = 0; n < 600; n++) {
		std::string s = files[n % 3][1];
		if (n % 5 == 0) s.resize(1 + rng() % (s.size() - 1));
		for (int k = 0; k < 1 + (int)(rng() % 6); k++) s[rng() % s.size()] = (char)(rng() % 256);
		put(files[n % 3][0], s);
		IO_nav(0);
		IO_fix(0);
		IO_awy(0);
	}
	EXPECT_EQ(alert_count, alerts);
}
