// The generated apt.dat against the airport database it was made from, and the
// converter on a small database made here.
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <sqlite3.h>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

constexpr double R = 6371008.8, D = M_PI / 180.0;

double dist_m(double a1, double o1, double a2, double o2)
{
	const double a = std::sin((a2 - a1) * D / 2), b = std::sin((o2 - o1) * D / 2);
	return 2 * R * std::asin(std::sqrt(a * a + std::cos(a1 * D) * std::cos(a2 * D) * b * b));
}

double bearing(double a1, double o1, double a2, double o2)
{
	const double y = std::sin((o2 - o1) * D) * std::cos(a2 * D);
	const double x = std::cos(a1 * D) * std::sin(a2 * D) - std::sin(a1 * D) * std::cos(a2 * D) * std::cos((o2 - o1) * D);
	return std::fmod(std::atan2(y, x) / D + 360.0, 360.0);
}

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
