// nav.dat, fix.dat and awy.dat: radio aids, intersections and airway segments, read
// straight from the mapped files and written back in the newest column form. A file
// that does not open or fails its header leaves its container as it stands.
#include "world/nav_data.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

float wrap360(float a) { return std::fmod(std::fmod(a, 360.0f) + 360.0f, 360.0f); }

void add_aid(const vec_nav_struct& n)
{
	vec_nav.push_back(n);
	nav_hash.insert({(long)n.frq, (int)vec_nav.size() - 1});
}

// The carriers' aids: localizer, glide slope and DME of each ship, moved with it.
void add_carrier_aids()
{
	static const int types[3] = {nav_ils, nav_gs, nav_dme};
	for (int ship = 0; ship < 2; ship++)
		for (int t : types) {
			vec_nav_struct n{};
			n.type = t;
			n.frq = ship == 0 ? 10800 : 10810;
			n.sqr_range_deg = 1.0f;
			std::strcpy(n.nav_id, "----");
			n.nav_name = ship == 0 ? "USS Enterprise" : "USS Resolute";
			add_aid(n);
		}
}

}  // namespace

void sort_nav_aids()
{
	std::stable_sort(vec_nav.begin(), vec_nav.end(), [](const vec_nav_struct& a, const vec_nav_struct& b) {
		return a.type != b.type ? a.type < b.type : a.nav_name < b.nav_name;
	});
	nav_hash.clear();
	for (size_t k = 0; k < vec_nav.size(); k++) nav_hash.insert({(long)vec_nav[k].frq, (int)k});
}

int IO_nav(int IO_type)
{
	const std::string path = ret_nav_folder() + "nav.dat";
	if (IO_type == 1) {
		sort_nav_aids();
		if (!ouf_open(path, ft_nav, 740)) return 0;
		char line[800];
		for (const vec_nav_struct& n : vec_nav) {
			if (!((n.type >= 2 && n.type <= 9) || n.type == 12)) continue;
			if (std::strcmp(n.nav_id, "----") == 0 && (n.type == nav_ils || n.type == nav_gs || n.type == nav_dme)) continue;   // the ships' own, added on reading
			const float range_nm = 40.0f * std::sqrt(std::max(n.sqr_range_deg, 0.0f) / 1.5f);
			std::snprintf(line, sizeof line, "%d %11.6f %12.6f %8.1f %8.1f %5.0f %7.2f %4s %s", n.type, n.lat, n.lon,
			              n.h / con.fttomtrs, (double)n.frq, range_nm, n.psi_true, n.nav_id, n.nav_name.c_str());
			ouf << line << "\n";
		}
		return ouf_close_text_data();
	}
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	int c = 0, c_max = 0, version = 0;
	for (const char* v : {"740", "600"})
		if (MAP_check_file(ft_nav, &file, add, &c, &c_max, v)) { version = std::atoi(v); break; }
	if (!version) return 0;
	vec_nav.clear();
	nav_hash.clear();
	if (env.planet == 0) add_carrier_aids();
	char word[500], text[500];
	for (;;) {
		TXT_MAP_finish_line(add, &c, c_max);
		if (TXT_MAP_is_end(add, c, c_max)) break;
		const int before = c;
		vec_nav_struct n{};
		n.type = TXT_MAP_int_scan(add, &c, c_max);
		n.lat = TXT_MAP_flt_scan(add, &c, c_max);
		n.lon = TXT_MAP_flt_scan(add, &c, c_max);
		n.h = TXT_MAP_flt_scan(add, &c, c_max) * con.fttomtrs;
		n.frq = (int)std::lround(TXT_MAP_flt_scan(add, &c, c_max));   // the column form writes it with a decimal
		if (version == 740) {
			const float range_nm = TXT_MAP_flt_scan(add, &c, c_max);
			n.sqr_range_deg = (range_nm / 40.0f) * (range_nm / 40.0f) * 1.5f;
		}
		n.psi_true = TXT_MAP_flt_scan(add, &c, c_max);
		if (n.type != nav_gs) n.psi_true = wrap360(n.psi_true);
		if (n.type == nav_om || n.type == nav_mm || n.type == nav_im) n.frq = 0;
		TXT_MAP_wrd_scan(add, &c, c_max, word, sizeof word);
		std::snprintf(n.nav_id, sizeof n.nav_id, "%.4s", word);
		TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
		n.nav_name = text;
		if (n.type > 0) add_aid(n);
		if (c == before) break;
	}
	return 1;
}

int IO_fix(int IO_type)
{
	const std::string path = ret_nav_folder() + "fix.dat";
	if (IO_type == 1) {
		if (!ouf_open(path, ft_none, 600)) return 0;
		char line[200];
		for (const vec_fix_struct& x : vec_fix) {
			std::snprintf(line, sizeof line, "%11.6f %12.6f %s", x.lat, x.lon, x.fix_name);
			ouf << line << "\n";
		}
		return ouf_close_text_data();
	}
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	int c = 0, c_max = 0;
	if (!MAP_check_file(ft_none, &file, add, &c, &c_max, "600")) return 0;
	vec_fix.clear();
	char text[500];
	for (;;) {
		TXT_MAP_finish_line(add, &c, c_max);
		if (TXT_MAP_is_end(add, c, c_max)) break;
		const int before = c;
		vec_fix_struct x{};
		x.lat = TXT_MAP_flt_scan(add, &c, c_max);
		x.lon = TXT_MAP_flt_scan(add, &c, c_max);
		TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
		std::snprintf(x.fix_name, sizeof x.fix_name, "%.5s", text);
		vec_fix.push_back(x);
		if (c == before) break;
	}
	return 1;
}

int IO_awy(int IO_type)
{
	const std::string path = ret_nav_folder() + "awy.dat";
	if (IO_type == 1) {
		if (!ouf_open(path, ft_none, 640)) return 0;
		char line[800];
		for (const vec_awy_struct& w : vec_awy) {   // the fixes' names are not kept: a dash stands for each
			std::snprintf(line, sizeof line, "- %11.6f %12.6f - %11.6f %12.6f %d 0 0 %s", w.lat[0], w.lon[0], w.lat[1], w.lon[1],
			              (int)w.lohi, w.awy_name.c_str());
			ouf << line << "\n";
		}
		return ouf_close_text_data();
	}
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	int c = 0, c_max = 0;
	if (!MAP_check_file(ft_none, &file, add, &c, &c_max, "640")) return 0;
	vec_awy.clear();
	char word[500], text[500];
	for (;;) {
		TXT_MAP_finish_line(add, &c, c_max);
		if (TXT_MAP_is_end(add, c, c_max)) break;
		const int before = c;
		vec_awy_struct w{};
		TXT_MAP_wrd_scan(add, &c, c_max, word, sizeof word);
		w.lat[0] = TXT_MAP_flt_scan(add, &c, c_max);
		w.lon[0] = TXT_MAP_flt_scan(add, &c, c_max);
		TXT_MAP_wrd_scan(add, &c, c_max, word, sizeof word);
		w.lat[1] = TXT_MAP_flt_scan(add, &c, c_max);
		w.lon[1] = TXT_MAP_flt_scan(add, &c, c_max);
		w.lohi = (char)TXT_MAP_int_scan(add, &c, c_max);
		TXT_MAP_int_scan(add, &c, c_max);
		TXT_MAP_int_scan(add, &c, c_max);
		TXT_MAP_str_scan(add, &c, c_max, text, sizeof text);
		w.awy_name = text;
		vec_awy.push_back(std::move(w));
		if (c == before) break;
	}
	return 1;
}
