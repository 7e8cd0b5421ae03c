// apt.dat: airports with their runways, start points, tower, beacon, windsocks and
// frequencies, read straight from the mapped file (versions 715 down to 600) and
// written back in the newest column form for tools.
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <cstdio>
#include <cstring>

std::vector<vec_nav_struct> vec_nav;
std::vector<vec_fix_struct> vec_fix;
std::vector<vec_awy_struct> vec_awy;
std::vector<vec_apt_struct> vec_apt;
std::vector<vec_rwy_geo_struct> vec_rwy_geo;
std::unordered_multimap<long, int> nav_hash;
std::map<uint32_t, int> apt_hash;
int apt_lcl_to_wrl[apt_lcl_dim], vor_lcl_to_wrl[vor_lcl_dim], ndb_lcl_to_wrl[ndb_lcl_dim], fix_lcl_to_wrl[fix_lcl_dim];
int apt_lcl_max = -1, vor_lcl_max = -1, ndb_lcl_max = -1, fix_lcl_max = -1;

namespace {

// Surface index of the file (1..13) to surface texture.
const int surf_tex_of_index[14] = {162, 162, 163, 164, 165, 166, 168, 169, 170, 171, 154, 155, 167, 177};

int clamp_i(int v, int lo, int hi) { return v < lo ? lo : v > hi ? hi : v; }
float clamp_f(float v, float lo, float hi) { return v < lo ? lo : v > hi ? hi : v; }

// Past whatever is left of a row: the scanners eat one terminator, so a row whose last
// number ended the line is already done.
void end_row(const unsigned char* add, int* c, int c_max)
{
	if (*c > 0 && *c <= c_max && (add[*c - 1] == 10 || add[*c - 1] == 13)) {
		TXT_MAP_finish_line(add, c, c_max);
		return;
	}
	char junk[500];
	TXT_MAP_str_scan(add, c, c_max, junk, sizeof junk);
}

void data_alert(const std::string& a, const std::string& b, const std::string& c, const std::string& d)
{
	NB_ALERT(a, b, c, d, alert_fatal);
}

// The checks a new airport makes of the one it follows, and the start point it may lack.
void close_airport(std::vector<vec_apt_struct>& v, size_t first_new)
{
	if (v.size() <= first_new) return;
	if (v.back().rwy.empty()) data_alert("Airport found with no runways!", "Intolerable!", "It is:", v.back().apt_name);
	finish_apt();
}

}  // namespace

int ret_surf_tex(int surface_index) { return surf_tex_of_index[clamp_i(surface_index, 1, 13)]; }

int ret_surf_index(int surf_tex)
{
	for (int k = 1; k <= 13; k++)
		if (surf_tex_of_index[k] == surf_tex) return k;
	return 1;
}

int& ret_apt_frq(vec_apt_struct& a, int k)
{
	int* f[7] = {&a.int_AWOS, &a.int_unicom, &a.int_clearance, &a.int_ground, &a.int_tower, &a.int_approach, &a.int_departure};
	return *f[clamp_i(k, 0, 6)];
}

std::string& ret_apt_frq_label(vec_apt_struct& a, int k)
{
	std::string* s[7] = {&a.str_AWOS, &a.str_unicom, &a.str_clearance, &a.str_ground, &a.str_tower, &a.str_approach, &a.str_departure};
	return *s[clamp_i(k, 0, 6)];
}

uint32_t apt_hash_key(const char* apt_id)
{
	unsigned char b[4] = {};
	for (int k = 0; k < 4 && apt_id[k]; k++) b[k] = (unsigned char)apt_id[k];
	return (uint32_t)b[0] | (uint32_t)b[1] << 8 | (uint32_t)b[2] << 16 | (uint32_t)b[3] << 24;
}

std::string ret_nav_folder() { return env.planet == 1 ? man_path : ean_path; }

void finish_apt()
{
	if (vec_apt.empty()) return;
	vec_apt_struct& a = vec_apt.back();
	if (a.sta.empty() && !a.rwy.empty()) a.sta.push_back({a.rwy[0].lat, a.rwy[0].lon, 0.0f, "Default"});
}

static int read_apt(const std::string& path, int alert_on_open)
{
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	int c = 0, c_max = 0, version = 0;
	for (const char* v : {"715", "703", "702", "701", "600"})
		if (MAP_check_file(ft_apt, &file, add, &c, &c_max, v)) { version = std::atoi(v); break; }
	if (!version) {
		if (alert_on_open)
			data_alert("I am unable to access the airport data file!", "The path I am looking at is as follows:", path, "");
		return 0;
	}
	const size_t first_new = vec_apt.size();
	char word[500], text[500];
	for (;;) {
		TXT_MAP_finish_line(add, &c, c_max);
		if (TXT_MAP_is_end(add, c, c_max)) break;
		const int before = c;
		const int code = TXT_MAP_int_scan(add, &c, c_max);
		if (code == 1 || code == 16 || code == 17 || code == 20) {
			close_airport(vec_apt, first_new);
			vec_apt_struct a{};
			a.apt_type = code;
			a.h = TXT_MAP_flt_scan(add, &c, c_max) * con.fttomtrs;
			a.atc_twr = TXT_MAP_int_scan(add, &c, c_max) != 0;
			a.def_bld = TXT_MAP_int_scan(add, &c, c_max) != 0;
			TXT_MAP_wrd_scan(add, &c, c_max, word, sizeof word);
			std::snprintf(a.apt_id, sizeof a.apt_id, "%.4s", word);
			TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
			a.apt_name = text;
			if (!a.apt_name.empty() && a.apt_name[0] == '-') a.apt_name[0] = ' ';
			vec_apt.push_back(std::move(a));
			apt_hash[apt_hash_key(vec_apt.back().apt_id)] = (int)vec_apt.size() - 1;
			continue;
		}
		if (vec_apt.size() <= first_new && code >= 10) {   // rows before any airport have nowhere to go
			end_row(add, &c, c_max);
			continue;
		}
		vec_apt_struct* a = vec_apt.size() > first_new ? &vec_apt.back() : nullptr;
		switch (code) {
		case 10: {
			vec_rwy_struct r{};
			r.lat = TXT_MAP_flt_scan(add, &c, c_max);
			r.lon = TXT_MAP_flt_scan(add, &c, c_max);
			TXT_MAP_wrd_scan(add, &c, c_max, word, sizeof word);
			std::snprintf(r.num_str, sizeof r.num_str, "%.3s", word);
			r.psi_true = TXT_MAP_flt_scan(add, &c, c_max);
			r.len = TXT_MAP_flt_scan(add, &c, c_max);
			r.disp = TXT_MAP_flt_scan(add, &c, c_max);
			r.blast = TXT_MAP_flt_scan(add, &c, c_max);
			r.width = TXT_MAP_flt_scan(add, &c, c_max);
			r.code = TXT_MAP_int_scan(add, &c, c_max);
			const int taxiway = r.num_str[0] == 'x';
			int surface;
			if (version >= 702) {
				surface = TXT_MAP_int_scan(add, &c, c_max);
				r.shoulder = clamp_i(TXT_MAP_int_scan(add, &c, c_max), 0, 2);
				r.markings = clamp_i(TXT_MAP_int_scan(add, &c, c_max), 0, 3);
				r.roughness = clamp_f(TXT_MAP_flt_scan(add, &c, c_max), 0.0f, 1.0f);
				r.dis_left = (char)clamp_i(TXT_MAP_int_scan(add, &c, c_max), 0, 1);
			} else {
				surface = r.code / 1000000;
				r.code %= 1000000;
				if (version == 701) r.shoulder = clamp_i(TXT_MAP_int_scan(add, &c, c_max), 0, 2);
				r.roughness = 0.5f;
				r.dis_left = !taxiway;
			}
			r.surf_tex = ret_surf_tex(surface);
			if (version < 702) r.markings = r.surf_tex <= 163 ? 3 : 0;
			end_row(add, &c, c_max);
			if (!taxiway)
				for (const vec_rwy_struct& o : a->rwy)
					if (o.num_str[0] != 'x' && std::strncmp(o.num_str, r.num_str, 3) == 0)
						data_alert("Oops!", "I found duplicate runways at the following airport:", a->apt_name, "You better delete the dup runways!");
			if (r.width < 1.0f)
				data_alert("The apt data file has a runway width  of less than 1 foot!", "NOT ACCEPTABLE!", "Fix this airport!", a->apt_name);
			if (r.len < 1.0f)
				data_alert("The apt data file has a runway length of less than 1 foot!", "NOT ACCEPTABLE!", "Fix this airport!", a->apt_name);
			r.len *= con.fttomtrs;
			r.width *= con.fttomtrs;
			a->rwy.push_back(r);
			break;
		}
		case 14:
			a->twr_lat = TXT_MAP_flt_scan(add, &c, c_max);
			a->twr_lon = TXT_MAP_flt_scan(add, &c, c_max);
			a->twr_hgt = TXT_MAP_flt_scan(add, &c, c_max) * con.fttomtrs;
			if (version >= 715) a->twr_vis = TXT_MAP_int_scan(add, &c, c_max) != 0;
			end_row(add, &c, c_max);
			break;
		case 15: {
			vec_sta_struct s;
			s.lat = TXT_MAP_flt_scan(add, &c, c_max);
			s.lon = TXT_MAP_flt_scan(add, &c, c_max);
			s.psi = TXT_MAP_flt_scan(add, &c, c_max);
			s.psi = std::fmod(std::fmod(s.psi, 360.0f) + 360.0f, 360.0f);
			TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
			s.sta_name = text;
			a->sta.push_back(std::move(s));
			break;
		}
		case 18:
			a->bcn_lat = TXT_MAP_flt_scan(add, &c, c_max);
			a->bcn_lon = TXT_MAP_flt_scan(add, &c, c_max);
			a->bcn_typ = TXT_MAP_int_scan(add, &c, c_max);
			end_row(add, &c, c_max);
			break;
		case 19: {
			vec_soc_struct s;
			s.lat = TXT_MAP_flt_scan(add, &c, c_max);
			s.lon = TXT_MAP_flt_scan(add, &c, c_max);
			s.lit = TXT_MAP_int_scan(add, &c, c_max) != 0;
			end_row(add, &c, c_max);
			a->soc.push_back(s);
			break;
		}
		case 50: case 51: case 52: case 53: case 54: case 55: case 56: {
			const int frq = TXT_MAP_int_scan(add, &c, c_max);
			TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
			ret_apt_frq(*a, code - 50) = frq;
			ret_apt_frq_label(*a, code - 50) = text;
			break;
		}
		default:
			end_row(add, &c, c_max);
		}
		if (c == before) break;   // never stand still on a strange byte
	}
	close_airport(vec_apt, first_new);
	return 1;
}

static int write_apt(const std::string& path)
{
	if (!ouf_open(path, ft_apt, 715)) return 0;
	char line[1200];
	auto put = [&](const char* s) { ouf << s << "\n"; };
	for (const vec_apt_struct& a : vec_apt) {
		put("");
		std::snprintf(line, sizeof line, "%2d %6.0f %1d %1d %3s %s", a.apt_type, a.h / con.fttomtrs, a.atc_twr ? 1 : 0,
		              a.def_bld ? 1 : 0, a.apt_id, a.apt_name.c_str());
		put(line);
		for (const vec_rwy_struct& r : a.rwy) {
			std::snprintf(line, sizeof line, "10 %11.6f %12.6f %3s %7.3f %5.0f %9.4f %9.4f %4.0f %8d %2d %1d %1d %3.2f %1d", r.lat,
			              r.lon, r.num_str, r.psi_true, r.len / con.fttomtrs, r.disp, r.blast, r.width / con.fttomtrs, r.code,
			              ret_surf_index(r.surf_tex), r.shoulder, r.markings, r.roughness, r.dis_left ? 1 : 0);
			put(line);
		}
		if (std::fabs(a.twr_lat) > 0.01f && std::fabs(a.twr_lon) > 0.01f) {
			std::snprintf(line, sizeof line, "14 %11.6f %12.6f %3.0f %1d Tower Viewpoint", a.twr_lat, a.twr_lon,
			              a.twr_hgt / con.fttomtrs, a.twr_vis ? 1 : 0);
			put(line);
		}
		for (const vec_sta_struct& s : a.sta) {
			std::snprintf(line, sizeof line, "15 %11.6f %12.6f %6.2f %s", s.lat, s.lon, s.psi, s.sta_name.c_str());
			put(line);
		}
		if (std::fabs(a.bcn_lat) > 0.01f && std::fabs(a.bcn_lon) > 0.01f) {
			std::snprintf(line, sizeof line, "18 %11.6f %12.6f %1d Rotating Beacon", a.bcn_lat, a.bcn_lon, a.bcn_typ);
			put(line);
		}
		for (const vec_soc_struct& s : a.soc) {
			std::snprintf(line, sizeof line, "19 %11.6f %12.6f %1d Windsock", s.lat, s.lon, s.lit ? 1 : 0);
			put(line);
		}
		for (int k = 0; k < 7; k++)
			if (ret_apt_frq(a, k) > 0) {
				std::snprintf(line, sizeof line, "%2d %5d %s", 50 + k, ret_apt_frq(a, k), ret_apt_frq_label(a, k).c_str());
				put(line);
			}
	}
	put("");
	return ouf_close_text_data();
}

int IO_apt(int IO_type, const std::string& path)
{
	if (IO_type == 1) return write_apt(path.empty() ? ret_nav_folder() + "apt.dat" : path);
	if (IO_type == 2) return read_apt(path, 0);
	vec_apt.clear();
	apt_hash.clear();
	return read_apt(path.empty() ? ret_nav_folder() + "apt.dat" : path, 1);
}
