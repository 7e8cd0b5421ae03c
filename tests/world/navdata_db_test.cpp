// The generated apt.dat against the airport database it was made from, and the
// converter on a small database made here.
#include "support/great_circle.h"
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <sqlite3.h>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

using namespace great_circle;

std::string text(sqlite3_stmt* st, int k)
{
	const unsigned char* t = sqlite3_column_text(st, k);
	return t ? (const char*)t : "";
}

void read_apt_file(const std::string& path)
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	vec_apt.clear();
	apt_hash.clear();
	ASSERT_EQ(IO_apt(2, path), 1) << path;
}

struct DbRunway { int len, width; std::string surface; double la[2], lo[2]; std::string id[2]; int ends = 0; };
struct DbAirport { std::string name, type; int elev; int frq[7]; std::vector<DbRunway> rwy; };

}  // namespace

TEST(NavData, TheGeneratedAirportsAreThoseOfTheDatabase)
{
	sqlite3* db = nullptr;
	ASSERT_EQ(sqlite3_open_v2(AIRPORT_DB, &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
	std::map<long long, DbAirport> by_id;
	std::multimap<std::string, long long> by_code;
	std::multimap<long long, std::string> codes_of;
	sqlite3_stmt* st;
	sqlite3_prepare_v2(db, "SELECT id, icao, faa, local, name, type, elevation_ft FROM airports", -1, &st, nullptr);
	while (sqlite3_step(st) == SQLITE_ROW) {
		const long long id = sqlite3_column_int64(st, 0);
		by_id[id] = {text(st, 4), text(st, 5), sqlite3_column_int(st, 6), {}, {}};
		for (int k = 1; k <= 3; k++)
			if (!text(st, k).empty()) { by_code.insert({text(st, k), id}); codes_of.insert({id, text(st, k)}); }
	}
	sqlite3_finalize(st);
	sqlite3_prepare_v2(db, "SELECT airport_id, atis, unicom, clearance, ground, tower, approach, departure FROM frequencies", -1, &st, nullptr);
	while (sqlite3_step(st) == SQLITE_ROW)
		for (int k = 0; k < 7; k++) {
			const int f = (int)std::floor(std::atof(text(st, 1 + k).c_str()) * 100.0 + 1e-6);
			by_id[sqlite3_column_int64(st, 0)].frq[k] = f >= 11800 && f <= 13697 ? f : 0;
		}
	sqlite3_finalize(st);
	sqlite3_prepare_v2(db, "SELECT r.airport_id, r.id, r.length_ft, r.width_ft, r.surface, e.ident, e.latitude_deg, e.longitude_deg "
	                       "FROM runways r LEFT JOIN runway_ends e ON e.runway_id = r.id ORDER BY r.id, e.id", -1, &st, nullptr);
	long long last = -1;
	while (sqlite3_step(st) == SQLITE_ROW) {
		std::vector<DbRunway>& v = by_id[sqlite3_column_int64(st, 0)].rwy;
		if (sqlite3_column_int64(st, 1) != last) v.push_back({sqlite3_column_int(st, 2), sqlite3_column_int(st, 3), text(st, 4), {}, {}, {}, 0});
		last = sqlite3_column_int64(st, 1);
		if (sqlite3_column_type(st, 5) != SQLITE_NULL && v.back().ends < 2) {
			const int e = v.back().ends++;
			v.back().id[e] = text(st, 5);
			v.back().la[e] = sqlite3_column_double(st, 6);
			v.back().lo[e] = sqlite3_column_double(st, 7);
		}
	}
	sqlite3_finalize(st);
	sqlite3_close(db);

	read_apt_file(std::string(NIMBARA_DATA_TREE) + "/Resources/Earth nav data/apt.dat");
	ASSERT_GT(vec_apt.size(), 10000u);
	std::map<std::string, int> ours;
	int checked_rwy = 0, centred = 0;
	for (size_t k = 0; k < vec_apt.size(); k++) {
		const vec_apt_struct& a = vec_apt[k];
		ours[a.apt_id] = (int)k;
		// The database repeats a few airports: the one nearest in elevation, with runways.
		const DbAirport* match = nullptr;
		auto score = [&](const DbAirport& c) { return std::fabs(c.elev - a.h / 0.3048f) + (c.rwy.empty() ? 1000.0f : 0.0f); };
		for (auto [it, end] = by_code.equal_range(a.apt_id); it != end; ++it) {
			const DbAirport& c = by_id[it->second];
			if (c.name == a.apt_name && (!match || score(c) < score(*match))) match = &c;
		}
		ASSERT_TRUE(match) << a.apt_id << " " << a.apt_name;
		EXPECT_NEAR(a.h / 0.3048f, match->elev, 0.6f) << a.apt_id << " " << a.apt_name;
		const int f[7] = {a.int_AWOS, a.int_unicom, a.int_clearance, a.int_ground, a.int_tower, a.int_approach, a.int_departure};
		for (int n = 0; n < 7; n++) EXPECT_EQ(f[n], match->frq[n]) << a.apt_id << " frequency row " << 50 + n;
		for (const vec_rwy_struct& r : a.rwy) {
			const DbRunway* m = nullptr;   // of runways sharing a number, the one of this length
			for (const DbRunway& d : match->rwy)
				for (int e = 0; e < d.ends; e++)
					if (d.id[e].substr(0, 3) == r.num_str && (!m || std::fabs(d.len - r.len / 0.3048f) < std::fabs(m->len - r.len / 0.3048f))) m = &d;
			if (!m) { EXPECT_STREQ(r.num_str, "H1") << a.apt_id << " " << a.apt_name; continue; }   // a bare heliport's pad
			checked_rwy++;
			EXPECT_NEAR(r.len / 0.3048f, m->len, 0.6f) << a.apt_id << " " << r.num_str;
			EXPECT_NEAR(r.width / 0.3048f, m->width, 0.6f) << a.apt_id << " " << r.num_str;
			if (m->ends == 2 && m->id[0].substr(0, 3) == r.num_str && !(m->la[0] == 0 && m->lo[0] == 0) && !(m->la[1] == 0 && m->lo[1] == 0)) {
				const double d = dist_m(m->la[0], m->lo[0], m->la[1], m->lo[1]);
				if (std::fabs(d - m->len * 0.3048) > 0.25 * m->len * 0.3048) continue;   // ends that disagree are not used
				centred++;
				EXPECT_NEAR(dist_m(r.lat, r.lon, m->la[0], m->lo[0]), 0.5 * d, 2.0) << a.apt_id << " " << r.num_str;
				EXPECT_NEAR(dist_m(r.lat, r.lon, m->la[1], m->lo[1]), 0.5 * d, 2.0) << a.apt_id << " " << r.num_str;
				double dh = std::fabs(r.psi_true - bearing(m->la[0], m->lo[0], m->la[1], m->lo[1]));
				EXPECT_LT(std::fmin(dh, 360.0 - dh), 0.5) << a.apt_id << " " << r.num_str;
			}
		}
	}
	EXPECT_GT(checked_rwy, 10000);
	EXPECT_GT(centred, 5000);
	// Every large airport with a short code and a land runway placed by its ends is here.
	int large = 0;
	for (const auto& [id, a] : by_id) {
		if (a.type != "large_airport") continue;
		bool placeable = false;
		for (const DbRunway& r : a.rwy) {
			int placed = 0;
			for (int e = 0; e < r.ends; e++) placed += !(r.la[e] == 0 && r.lo[e] == 0);
			const double len = r.len * 0.3048;
			const bool agree = placed == 2 && std::fabs(dist_m(r.la[0], r.lo[0], r.la[1], r.lo[1]) - len) <= 0.25 * len;
			if (r.surface != "water" && r.len >= 1 && r.width >= 1 && (placed == 1 || agree)) placeable = true;
		}
		bool has_code = false, found = false;
		for (auto [it, end] = codes_of.equal_range(id); it != end; ++it)
			if (const std::string& code = it->second; code.size() <= 4) {
				has_code = true;
				if (ours.count(code) && vec_apt[ours[code]].apt_name == a.name) found = true;
			}
		if (!placeable || !has_code) continue;
		large++;
		EXPECT_TRUE(found) << a.name << " " << id;
	}
	EXPECT_GT(large, 500);
}

TEST(NavData, TheConverterPlacesWhatItCanAndLeavesOutWhatItCannot)
{
	const std::string dir = std::string(NIMBARA_TEST_TREE) + "/converter/";
	std::filesystem::remove_all(dir);
	std::filesystem::create_directories(dir);
	sqlite3* db = nullptr;
	ASSERT_EQ(sqlite3_open((dir + "small.sqlite").c_str(), &db), SQLITE_OK);
	const char* sql =
		"CREATE TABLE airports (id INTEGER PRIMARY KEY, icao TEXT, iata TEXT, faa TEXT, local TEXT, name TEXT, type TEXT,"
		" latitude REAL, longitude REAL, elevation_ft INTEGER, has_tower BOOLEAN);"
		"CREATE TABLE runways (id INTEGER PRIMARY KEY, airport_id INTEGER, length_ft INTEGER, width_ft INTEGER, surface TEXT, lighted BOOLEAN);"
		"CREATE TABLE runway_ends (id INTEGER PRIMARY KEY, runway_id INTEGER, ident TEXT, heading_degT REAL, latitude_deg REAL,"
		" longitude_deg REAL, displaced_threshold_ft INTEGER, elevation_ft INTEGER);"
		"CREATE TABLE frequencies (airport_id INTEGER PRIMARY KEY, atis TEXT, tower TEXT, ground TEXT, clearance TEXT, unicom TEXT,"
		" approach TEXT, departure TEXT);"
		// Two ends 3000 m apart on a 9843 ft runway, a one-end runway, a zero-width one and a water one.
		"INSERT INTO airports VALUES (1, 'KONE', NULL, NULL, NULL, 'One Field', 'large_airport', 34.0, -117.0, 1000, 0);"
		"INSERT INTO runways VALUES (10, 1, 9843, 150, 'asphalt', 1), (11, 1, 5000, 100, 'grass', 0), (12, 1, 4000, 0, 'asphalt', 0),"
		" (13, 1, 3000, 100, 'water', 0);"
		"INSERT INTO runway_ends VALUES (100, 10, '09', 90, 34.0, -117.0, 300, 0), (101, 10, '27', 270, 34.0, -116.96747, 0, 0),"
		" (110, 11, '36', 0, 34.01, -117.01, NULL, 0), (120, 12, '04', 40, 34.02, -117.0, NULL, 0), (130, 13, '18', 180, 34.03, -117.0, NULL, 0);"
		"INSERT INTO frequencies VALUES (1, '127.25', '118.7', '121.9', NULL, '140.0', NULL, NULL);"
		// An id too long everywhere, a bare heliport, a closed field, a runway whose ends disagree with its length.
		"INSERT INTO airports VALUES (2, 'XX-0001', NULL, NULL, 'LONGID', 'Long Id Field', 'small_airport', 35.0, -117.0, 100, 0);"
		"INSERT INTO runways VALUES (20, 2, 3000, 60, 'dirt', 0);"
		"INSERT INTO runway_ends VALUES (200, 20, '09', 90, 35.0, -117.0, NULL, 0);"
		"INSERT INTO airports VALUES (3, 'US-12345', NULL, 'H3', NULL, 'Roof Heliport', 'heliport', 36.5, -118.25, 300, 0);"
		"INSERT INTO airports VALUES (4, 'KOLD', NULL, NULL, NULL, 'Gone Field', 'closed', 36.0, -117.0, 100, 0);"
		"INSERT INTO airports VALUES (5, 'KBAD', NULL, NULL, NULL, 'Bad Ends', 'medium_airport', 37.0, -117.0, 100, 0);"
		"INSERT INTO runways VALUES (50, 5, 3000, 75, 'asphalt', 0);"
		"INSERT INTO runway_ends VALUES (500, 50, '09', 90, 37.0, -117.0, NULL, 0), (501, 50, '27', 270, 37.0, -116.9, NULL, 0);";
	ASSERT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
	sqlite3_close(db);
	const std::string cmd = std::string("'") + NIMBARA_WORLD_EXE + "' navdata --db '" + dir + "small.sqlite' --out '" + dir + "out' > '" + dir + "log.txt'";
	ASSERT_EQ(std::system(cmd.c_str()), 0);
	read_apt_file(dir + "out/apt.dat");
	ASSERT_EQ(vec_apt.size(), 2u);
	const vec_apt_struct &one = vec_apt[0], &heli = vec_apt[1];
	EXPECT_STREQ(one.apt_id, "KONE");
	EXPECT_EQ(one.atc_twr, 1);
	EXPECT_EQ(one.def_bld, 1);
	EXPECT_EQ(one.int_AWOS, 12725);
	EXPECT_EQ(one.int_tower, 11870);
	EXPECT_EQ(one.int_ground, 12190);
	EXPECT_EQ(one.int_unicom, 0);   // outside the airband
	ASSERT_EQ(one.rwy.size(), 2u);  // longest first; no zero width, no water
	const vec_rwy_struct &main = one.rwy[0], &grass = one.rwy[1];
	EXPECT_STREQ(main.num_str, "09");
	EXPECT_NEAR(main.lat, 34.0, 1e-5);
	EXPECT_NEAR(main.lon, -116.983735, 2e-5);
	EXPECT_NEAR(main.psi_true, 89.9909, 0.001);   // the great circle leaves a hair poleward of the parallel
	EXPECT_NEAR(main.len / 0.3048f, 9843, 0.5f);
	EXPECT_NEAR(main.disp, 300.0f, 1e-3f);
	EXPECT_EQ(main.code, 30030);
	EXPECT_EQ(main.surf_tex, 162);
	// One end: the centre half the length along its heading, due north here.
	EXPECT_STREQ(grass.num_str, "36");
	EXPECT_NEAR(dist_m(grass.lat, grass.lon, 34.01, -117.01), 0.5 * 5000 * 0.3048, 1.0);
	EXPECT_NEAR(grass.lon, -117.01, 1e-5);
	EXPECT_GT(grass.lat, 34.01);
	EXPECT_EQ(grass.surf_tex, 164);
	EXPECT_STREQ(heli.apt_id, "H3");
	EXPECT_EQ(heli.apt_type, 17);
	ASSERT_EQ(heli.rwy.size(), 1u);
	EXPECT_STREQ(heli.rwy[0].num_str, "H1");
	EXPECT_NEAR(heli.rwy[0].lat, 36.5, 1e-5);
	EXPECT_NEAR(heli.rwy[0].lon, -118.25, 1e-5);
	EXPECT_EQ(heli.rwy[0].surf_tex, 177);
	std::ifstream log(dir + "log.txt");
	const std::string said((std::istreambuf_iterator<char>(log)), {});
	for (const char* why : {"closed", "no free id", "no runway placed", "no length or width", "water", "no end placed"})
		EXPECT_NE(said.find(why), std::string::npos) << why << " in:\n" << said;
	// The same input gives the same bytes.
	const std::string again = std::string("'") + NIMBARA_WORLD_EXE + "' navdata --db '" + dir + "small.sqlite' --out '" + dir + "again' > /dev/null";
	ASSERT_EQ(std::system(again.c_str()), 0);
	for (const char* f : {"apt.dat", "nav.dat", "fix.dat", "awy.dat"}) {
		std::ifstream a(dir + "out/" + f), b(dir + "again/" + f);
		EXPECT_EQ(std::string(std::istreambuf_iterator<char>(a), {}), std::string(std::istreambuf_iterator<char>(b), {})) << f;
	}
	// A database of another shape is refused with a message, not a crash.
	EXPECT_NE(std::system((std::string("'") + NIMBARA_WORLD_EXE + "' navdata --db '" + dir + "log.txt' --out '" + dir + "x' 2> /dev/null").c_str()), 0);
}
