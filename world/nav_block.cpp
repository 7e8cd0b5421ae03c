// The loaded block's part of the navigation world: which records lie in it, the short
// lists of its airports, VORs, NDBs and fixes, the menu items they give, and the
// radio's traffic density from the airports and runways there.
#include "world/nav_data.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "render/HL_GRAPH.h"
#include <cstdio>
#include <cstdlib>
#include <cstring>

nav_menu_lists nav_menus;

// The two ends' names of a runway: its stored number, and the reciprocal (18 on, left and right swapped).
void ret_rwy_end_names(const vec_rwy_struct& r, std::string* near_end, std::string* far_end)
{
	*near_end = r.num_str;
	const int num = std::atoi(r.num_str);
	if (num < 1 || num > 36) { *far_end = *near_end; return; }
	const char* suffix = r.num_str + (num >= 10 ? 2 : r.num_str[0] == '0' ? 2 : 1);
	char s = *suffix == 'L' ? 'R' : *suffix == 'R' ? 'L' : *suffix;
	char buf[8];
	std::snprintf(buf, sizeof buf, "%02d%c", (num + 17) % 36 + 1, s);
	if (!s) buf[2] = 0;
	*far_end = buf;
}

void MP_make_airports_and_menus(int)
{
	const int p = env.planet == 1 ? 1 : 0;
	const float s = (float)env.lat_sou, n = s + lat_secs[p], w = (float)env.lon_wes, e = w + lon_secs[p];
	auto inside = [&](float lat, float lon) { return lat >= s && lat <= n && lon >= w && lon <= e; };
	for (vec_awy_struct& a : vec_awy) a.inreg = inside(a.lat[0], a.lon[0]) || inside(a.lat[1], a.lon[1]);
	for (vec_fix_struct& f : vec_fix) f.inreg = inside(f.lat, f.lon);
	for (vec_apt_struct& a : vec_apt) a.inreg = !a.rwy.empty() && inside(a.rwy[0].lat, a.rwy[0].lon);
	for (vec_nav_struct& v : vec_nav) v.inreg = inside(v.lat, v.lon);

	nav_menus = {};
	apt_lcl_max = vor_lcl_max = ndb_lcl_max = fix_lcl_max = -1;
	vec_rwy_geo.clear();
	msc.radio_busy_fac = 0.0f;
	for (size_t k = 0; k < vec_apt.size(); k++) {
		vec_apt_struct& a = vec_apt[k];
		if (!a.inreg || apt_lcl_max >= apt_lcl_dim - 1) continue;
		msc.radio_busy_fac += 1.0f;
		apt_lcl_to_wrl[++apt_lcl_max] = (int)k;
		for (size_t r = 0; r < a.rwy.size(); r++) {
			a.rwy[r].geo_ind = (int)vec_rwy_geo.size();
			vec_rwy_geo.emplace_back();
			set_up_runway_geo((int)k, (int)r);
		}
		for (size_t r = 0; r < a.rwy.size(); r++) set_up_runway_lit((int)k, (int)r);
		nav_menus.apt.push_back(a.apt_name.substr(0, 25));
	}
	for (int l = 0; l <= apt_lcl_max; l++) {
		const vec_apt_struct& a = vec_apt[apt_lcl_to_wrl[l]];
		std::vector<std::string> starts, ends;
		for (const vec_sta_struct& t : a.sta) starts.push_back(t.sta_name);
		for (const vec_rwy_struct& r : a.rwy) {
			if (r.num_str[0] == 'x') continue;
			std::string e1, e2;
			ret_rwy_end_names(r, &e1, &e2);
			ends.push_back(e1);
			ends.push_back(e2);
			msc.radio_busy_fac += r.len;
		}
		nav_menus.sta.push_back(starts);
		nav_menus.rwy.push_back(ends);
	}
	msc.radio_busy_fac = fltlim(msc.radio_busy_fac / 200000.0f, 0.0f, 1.0f);
	for (size_t k = 0; k < vec_nav.size(); k++) {
		const vec_nav_struct& v = vec_nav[k];
		if (!v.inreg) continue;
		if (v.type == nav_vor && vor_lcl_max < vor_lcl_dim - 1) { vor_lcl_to_wrl[++vor_lcl_max] = (int)k; nav_menus.vor.push_back(v.nav_name); }
		if (v.type == nav_ndb && ndb_lcl_max < ndb_lcl_dim - 1) { ndb_lcl_to_wrl[++ndb_lcl_max] = (int)k; nav_menus.ndb.push_back(v.nav_name); }
	}
	for (size_t k = 0; k < vec_fix.size(); k++)
		if (vec_fix[k].inreg && fix_lcl_max < fix_lcl_dim - 1) fix_lcl_to_wrl[++fix_lcl_max] = (int)k;
}
