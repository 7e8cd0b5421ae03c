#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "world/HL_WORLD.h"
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

struct Airports : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir + "Resources/Earth nav data");
		zero_all_records();
		init_con();
		set_planet_specs(0);
		app_path = dir;
		ean_path = dir + "Resources:Earth nav data:";
		cus_path = dir + "Custom Scenery:";
		vec_apt.clear();
		apt_hash.clear();
	}
	std::string put(const std::string& rel, const std::string& text)
	{
		std::filesystem::create_directories(std::filesystem::path(dir + rel).parent_path());
		std::ofstream(dir + rel, std::ios::binary) << text;
		return dir + rel;
	}
	// Reads a file; the alert's first line when it stops, else "".
	std::string read(int mode, const std::string& path)
	{
		try {
			IO_apt(mode, path);
		} catch (const XFatalAlert& x) {
			return x.c1_;
		}
		return "";
	}
};

const char* head715 = "I\n715 Test data\n";

}  // namespace

TEST_F(Airports, RunwayRowsOfEachVersion)
{
	// The same runway in three versions: surface packed in the code below 702, its own column above.
	put("v600.dat", "I\n600 old\n1 1000 1 0 KAAA Old Field\n10 34.0 -117.0 09 90.0 5000 0.0 0.0 100 3030030\n99\n");
	put("v701.dat", "I\n701 mid\n1 1000 1 0 KBBB Mid Field\n10 34.0 -117.0 09 90.0 5000 0.0 0.0 100 3030030 2\n99\n");
	put("v715.dat", std::string(head715) + "1 1000 1 0 KCCC New Field\n10 34.0 -117.0 09x 90.0 5000 250.0300 0.0 100 30030 3 1 2 0.25 1\n"
	                "10 34.0 -117.0 xAB 45.0 900 0.0 0.0 40 0 1 0 0 0.1 0\n99\n");
	ASSERT_EQ(read(2, dir + "v600.dat"), "");
	ASSERT_EQ(read(2, dir + "v701.dat"), "");
	ASSERT_EQ(read(2, dir + "v715.dat"), "");
	ASSERT_EQ(vec_apt.size(), 3u);
	const vec_rwy_struct &a = vec_apt[0].rwy[0], &b = vec_apt[1].rwy[0], &c = vec_apt[2].rwy[0];
	EXPECT_EQ(a.surf_tex, 164);   // index 3
	EXPECT_EQ(a.code, 30030);
	EXPECT_EQ(a.shoulder, 0);
	EXPECT_EQ(a.markings, 0);     // not paved
	EXPECT_FLOAT_EQ(a.roughness, 0.5f);
	EXPECT_EQ(a.dis_left, 1);
	EXPECT_EQ(b.shoulder, 2);
	EXPECT_EQ(c.surf_tex, 164);
	EXPECT_EQ(c.shoulder, 1);
	EXPECT_EQ(c.markings, 2);
	EXPECT_FLOAT_EQ(c.roughness, 0.25f);
	EXPECT_STREQ(c.num_str, "09x");
	EXPECT_NEAR(c.len, 5000 * 0.3048f, 0.01f);
	EXPECT_NEAR(c.width, 100 * 0.3048f, 0.01f);
	EXPECT_NEAR(c.disp, 250.03f, 1e-3f);
	EXPECT_NEAR(vec_apt[2].h, 1000 * 0.3048f, 0.01f);
	EXPECT_EQ(vec_apt[2].rwy.size(), 2u);   // the taxiway stands beside the runway
}

TEST_F(Airports, WhatIsWrittenReadsBackAndStartPointsAreKeptOrMade)
{
	put("Resources/Earth nav data/apt.dat",
	    std::string(head715) +
	        "1 5000 1 1 KDDD -Dash Field\n10 35.5 -110.25 13L 130.5 8000 0.0 0.0 150 30030 1 0 3 0.10 1\n"
	        "14 35.51 -110.26 60 1 Tower\n15 35.49 -110.24 400.0 Ramp one\n18 35.52 -110.27 1 Beacon\n19 35.5 -110.2 1 Sock\n"
	        "50 12417 ATIS\n54 11800 TWR\n55 0 APP\n"
	        "17 120 0 0 H2 Roof Pad\n10 35.0 -110.0 H1 0.0 50 0.0 0.0 50 0 13 0 0 0.1 0\n99\n");
	ASSERT_EQ(read(0, ""), "");
	ASSERT_EQ(vec_apt.size(), 2u);
	EXPECT_EQ(vec_apt[0].apt_name, " Dash Field");
	ASSERT_EQ(vec_apt[0].sta.size(), 1u);   // its own row, no default beside it
	EXPECT_FLOAT_EQ(vec_apt[0].sta[0].psi, 40.0f);
	ASSERT_EQ(vec_apt[1].sta.size(), 1u);   // the last airport, with none: "Default" at its runway
	EXPECT_EQ(vec_apt[1].sta[0].sta_name, "Default");
	EXPECT_FLOAT_EQ(vec_apt[1].sta[0].lat, 35.0f);
	EXPECT_FLOAT_EQ(vec_apt[1].sta[0].psi, 0.0f);
	const std::vector<vec_apt_struct> first = vec_apt;
	ASSERT_EQ(IO_apt(1, dir + "out.dat"), 1);
	ASSERT_EQ(read(0, dir + "out.dat"), "");
	ASSERT_EQ(vec_apt.size(), first.size());
	for (size_t k = 0; k < first.size(); k++) {
		const vec_apt_struct &x = first[k], &y = vec_apt[k];
		EXPECT_STREQ(x.apt_id, y.apt_id);
		EXPECT_EQ(x.apt_name.substr(x.apt_name.find_first_not_of(' ')), y.apt_name);   // the reader skips leading blanks
		EXPECT_EQ(x.apt_type, y.apt_type);
		EXPECT_NEAR(x.h, y.h, 0.2f);
		EXPECT_EQ(x.int_AWOS, y.int_AWOS);
		EXPECT_EQ(x.int_tower, y.int_tower);
		EXPECT_EQ(x.str_tower, y.str_tower);
		EXPECT_NEAR(x.twr_hgt, y.twr_hgt, 0.2f);
		EXPECT_EQ(x.bcn_typ, y.bcn_typ);
		ASSERT_EQ(x.soc.size(), y.soc.size());
		ASSERT_EQ(x.sta.size(), y.sta.size());
		ASSERT_EQ(x.rwy.size(), y.rwy.size());
		for (size_t r = 0; r < x.rwy.size(); r++) {
			EXPECT_STREQ(x.rwy[r].num_str, y.rwy[r].num_str);
			EXPECT_NEAR(x.rwy[r].lat, y.rwy[r].lat, 1e-5f);
			EXPECT_NEAR(x.rwy[r].lon, y.rwy[r].lon, 1e-5f);
			EXPECT_NEAR(x.rwy[r].psi_true, y.rwy[r].psi_true, 1e-3f);
			EXPECT_NEAR(x.rwy[r].len, y.rwy[r].len, 0.2f);
			EXPECT_EQ(x.rwy[r].surf_tex, y.rwy[r].surf_tex);
			EXPECT_EQ(x.rwy[r].code, y.rwy[r].code);
		}
	}
	// A frequency of 0 stays in memory but is not written back.
	std::ifstream written(dir + "out.dat");
	EXPECT_EQ(std::string(std::istreambuf_iterator<char>(written), {}).find("\n55 "), std::string::npos);
}

TEST_F(Airports, EachDataFaultStopsWithItsAlert)
{
	EXPECT_EQ(read(0, dir + "missing.dat"), "I am unable to access the airport data file!");
	put("bad_version.dat", "I\n999 nope\n99\n");
	EXPECT_EQ(read(0, dir + "bad_version.dat"), "I am unable to access the airport data file!");
	put("norwy.dat", std::string(head715) + "1 0 0 0 KEEE Empty\n1 0 0 0 KFFF Next\n10 1 1 09 90 100 0 0 50 0 1 0 0 0 0\n99\n");
	EXPECT_EQ(read(0, dir + "norwy.dat"), "Airport found with no runways!");
	put("dup.dat", std::string(head715) + "1 0 0 0 KGGG Dup\n10 1 1 09 90 100 0 0 50 0 1 0 0 0 0\n10 1 1 09 270 100 0 0 50 0 1 0 0 0 0\n99\n");
	EXPECT_EQ(read(0, dir + "dup.dat"), "Oops!");
	put("taxi.dat", std::string(head715) + "1 0 0 0 KHHH Taxi\n10 1 1 xxx 90 100 0 0 50 0 1 0 0 0 0\n10 1 1 xxx 270 100 0 0 50 0 1 0 0 0 0\n99\n");
	EXPECT_EQ(read(0, dir + "taxi.dat"), "");   // taxiways are not compared
	put("narrow.dat", std::string(head715) + "1 0 0 0 KIII Narrow\n10 1 1 09 90 100 0 0 0.5 0 1 0 0 0 0\n99\n");
	EXPECT_EQ(read(0, dir + "narrow.dat"), "The apt data file has a runway width  of less than 1 foot!");
	put("short.dat", std::string(head715) + "1 0 0 0 KJJJ Short\n10 1 1 09 90 0 0 0 50 0 1 0 0 0 0\n99\n");
	EXPECT_EQ(read(0, dir + "short.dat"), "The apt data file has a runway length of less than 1 foot!");
	EXPECT_EQ(IO_apt(2, dir + "missing.dat"), 0);   // a package's file that is not there is passed over
}

TEST_F(Airports, CorruptFilesNeverCrashOrHang)
{
	const std::string good = std::string(head715) +
	                         "1 5000 1 1 KDDD Field\n10 35.5 -110.25 13L 130.5 8000 0.0 0.0 150 30030 1 0 3 0.10 1\n"
	                         "15 35.49 -110.24 40.0 Ramp\n50 12417 ATIS\n17 120 0 0 H2 Pad\n10 35 -110 H1 0 50 0 0 50 0 13 0 0 0.1 0\n99\n";
	std::mt19937 rng(7);
	for (int n = 0; n < 400; n++) {
		std::string s = good;
		const int cut = n % 4 == 0;
		if (cut) s.resize(1 + rng() % (s.size() - 1));
		for (int k = 0; k < 1 + (int)(rng() % 6); k++) s[rng() % s.size()] = (char)(rng() % 256);
		put("mut.dat", s);
		vec_apt.clear();
		read(2, dir + "mut.dat");   // an alert or a clean read, nothing else
		for (const vec_apt_struct& a : vec_apt)
			for (const vec_rwy_struct& r : a.rwy) EXPECT_GE(r.width, 0.3f);
	}
}

TEST_F(Airports, CustomAirportsReplaceByIdAndOthersAreAppended)
{
	put("Resources/Earth nav data/apt.dat", std::string(head715) + "1 1000 0 0 KSBD Old Name\n10 34 -117 06 70 10000 0 0 200 0 1 0 0 0 0\n"
	                                            "1 100 0 0 KLAX Big\n10 33.9 -118.4 07L 83 12000 0 0 150 0 1 0 0 0 0\n99\n");
	put("Custom Scenery/My Field/Earth nav data/apt.dat",
	    std::string(head715) + "1 1200 1 1 KSBD New Name\n10 34.1 -117.2 05 50 9000 0 0 150 0 2 0 0 0 0\n"
	                           "1 10 0 0 ZZZZ Brand New\n10 10 10 18 180 3000 0 0 75 0 3 0 0 0 0\n99\n");
	put("Custom Scenery/Empty Package/readme.txt", "nothing here\n");
	std::snprintf(msc.apt_id_str, sizeof msc.apt_id_str, "KSBD");
	read_planet_nav();
	ASSERT_EQ(vec_apt.size(), 3u);
	EXPECT_STREQ(vec_apt[0].apt_id, "KSBD");   // in place, the same index
	EXPECT_EQ(vec_apt[0].apt_name, "New Name");
	ASSERT_EQ(vec_apt[0].rwy.size(), 1u);
	EXPECT_STREQ(vec_apt[0].rwy[0].num_str, "05");
	EXPECT_STREQ(vec_apt[2].apt_id, "ZZZZ");
	int k = -1;
	EXPECT_EQ(get_index_from_id("ZZZZ", nav_type_apt, &k, 0, 0), 1);
	EXPECT_EQ(k, 2);
	EXPECT_EQ(apt_hash.at(apt_hash_key("KLAX")), 1);
	// The start airport's place and block.
	EXPECT_EQ(msc.loc_apt_wrl, 0);
	EXPECT_NEAR(flt[0].dob_lat, 34.1, 1e-4);
	EXPECT_NEAR(flt[0].dob_lon, -117.2, 1e-4);
}

TEST_F(Airports, LookupTakesTheNearestOfEqualIdsAndAPaddedId)
{
	put("a.dat", std::string(head715) + "1 0 0 0 AB One\n10 10 10 09 90 100 0 0 50 0 1 0 0 0 0\n"
	                                      "1 0 0 0 AB Two\n10 40 -100 09 90 100 0 0 50 0 1 0 0 0 0\n"
	                                      "1 0 0 0 ABC Three\n10 0 0 09 90 100 0 0 50 0 1 0 0 0 0\n99\n");
	ASSERT_EQ(read(0, dir + "a.dat"), "");
	int k = -1;
	EXPECT_EQ(get_index_from_id("AB", nav_type_apt, &k, 39, -99), 1);
	EXPECT_EQ(k, 1);
	EXPECT_EQ(get_index_from_id("AB ", nav_type_apt, &k, 11, 11), 1);
	EXPECT_EQ(k, 0);
	EXPECT_EQ(get_index_from_id("ABC ", nav_type_apt, &k, 0, 0), 1);
	EXPECT_EQ(k, 2);
	k = 7;
	EXPECT_EQ(get_index_from_id("QQQ", nav_type_apt, &k, 0, 0), 0);
	EXPECT_EQ(k, 7);   // unchanged when nothing is found
	EXPECT_EQ(get_index_from_id("AB", nav_type_direct, &k, 0, 0), 0);
	EXPECT_EQ(k, 0);
}
