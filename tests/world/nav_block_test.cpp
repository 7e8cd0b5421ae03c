#include "world/nav_data.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cstdio>
#include <gtest/gtest.h>

namespace {

vec_apt_struct airport(const char* id, float lat, float lon, float len_m)
{
	vec_apt_struct a{};
	a.apt_type = 1;
	std::snprintf(a.apt_id, sizeof a.apt_id, "%s", id);
	a.apt_name = std::string("Field ") + id;
	vec_rwy_struct r{};
	std::snprintf(r.num_str, sizeof r.num_str, "09L");
	r.lat = lat;
	r.lon = lon;
	r.len = len_m;
	a.rwy.push_back(r);
	vec_rwy_struct t = r;
	std::snprintf(t.num_str, sizeof t.num_str, "xA");   // a taxiway: no menu entry, no traffic
	a.rwy.push_back(t);
	a.sta.push_back({lat, lon, 0.0f, "Ramp"});
	return a;
}

struct Block : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		vec_apt.clear();
		vec_nav.clear();
		vec_fix.clear();
		vec_awy.clear();
		env.planet = 0;
		env.lat_sou = 34;
		env.lon_wes = -118;   // the block runs 34..36 north, -118..-115 east, edges included
	}
};

}  // namespace

TEST_F(Block, ListsHoldTheBlocksRecordsUpToTheirLimits)
{
	for (int k = 0; k < 302; k++) {
		char id[5];
		std::snprintf(id, sizeof id, "A%03d", k);
		vec_apt.push_back(airport(id, 34.0f + 0.005f * k, -117.0f, 1000.0f));
	}
	vec_apt.push_back(airport("OUT", 33.9f, -117.0f, 1000.0f));
	vec_apt.push_back(airport("EDGE", 36.0f, -115.0f, 1000.0f));
	vec_nav.push_back({nav_vor, 35.0f, -116.0f, 0, 11480, 1, 0, "VVV", "In VOR", 0});
	vec_nav.push_back({nav_ndb, 35.0f, -116.0f, 0, 338, 1, 0, "NN", "In NDB", 0});
	vec_nav.push_back({nav_vor, 37.0f, -116.0f, 0, 11490, 1, 0, "OUT", "Out VOR", 0});
	vec_fix.push_back({35.5f, -117.5f, "FIXIN", 0});
	vec_fix.push_back({30.0f, -117.5f, "FIXOT", 0});
	vec_awy.push_back({{33.0f, 35.0f}, {-117.0f, -117.0f}, "V1", 1, 0});   // one end inside
	vec_awy.push_back({{30.0f, 31.0f}, {-117.0f, -117.0f}, "V2", 1, 0});
	MP_make_airports_and_menus(0);
	EXPECT_EQ(apt_lcl_max, 299);   // 300 kept
	EXPECT_EQ(apt_lcl_to_wrl[0], 0);
	EXPECT_EQ(apt_lcl_to_wrl[299], 299);
	EXPECT_EQ(vec_apt[300].inreg, 1);   // the 301st is in the block, but in no list
	EXPECT_EQ(vec_apt[302].inreg, 0);
	EXPECT_EQ(vec_apt[303].inreg, 1);
	EXPECT_EQ(nav_menus.apt.size(), 300u);
	ASSERT_EQ(nav_menus.rwy.size(), 300u);
	EXPECT_EQ(nav_menus.rwy[0], (std::vector<std::string>{"09L", "27R"}));
	EXPECT_EQ(nav_menus.sta[0], std::vector<std::string>{"Ramp"});
	EXPECT_EQ(vec_rwy_geo.size(), 600u);
	EXPECT_EQ(vec_apt[299].rwy[1].geo_ind, 599);
	EXPECT_FLOAT_EQ(msc.radio_busy_fac, 1.0f);   // 300 km of runway: held at 1
	EXPECT_EQ(vor_lcl_max, 0);
	EXPECT_EQ(ndb_lcl_max, 0);
	EXPECT_EQ(nav_menus.vor, std::vector<std::string>{"In VOR"});
	EXPECT_EQ(fix_lcl_max, 0);
	EXPECT_EQ(vec_awy[0].inreg, 1);
	EXPECT_EQ(vec_awy[1].inreg, 0);
}

TEST_F(Block, TheRadiosBusynessGrowsWithTheBlocksAirports)
{
	vec_apt.push_back(airport("ONE", 35.0f, -117.0f, 3000.0f));
	MP_make_airports_and_menus(0);
	EXPECT_NEAR(msc.radio_busy_fac, (1.0f + 3000.0f) / 200000.0f, 1e-6f);   // one per airport, and its runways' metres, over 200 km
}

TEST_F(Block, RunwayEndsAreNamedBothWays)
{
	vec_rwy_struct r{};
	std::string a, b;
	for (auto [n, far] : {std::pair{"09L", "27R"}, {"18", "36"}, {"36C", "18C"}, {"01R", "19L"}, {"H1", "H1"}}) {
		std::snprintf(r.num_str, sizeof r.num_str, "%s", n);
		ret_rwy_end_names(r, &a, &b);
		EXPECT_EQ(a, n);
		EXPECT_EQ(b, far) << n;
	}
}
