// nimbara-fly nav: loads the navigation world as start-up does and shows what it holds
// for identifiers, each found by the simulator's own lookup.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "tools/tool_main.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "platform/plat_headless.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

int type_of(const char* s)
{
	static const struct { const char* name; int type; } names[] = {
		{"apt", nav_type_apt}, {"ndb", nav_ndb}, {"vor", nav_vor}, {"ils", nav_ils}, {"loc", nav_loc}, {"gs", nav_gs},
		{"om", nav_om}, {"mm", nav_mm}, {"im", nav_im}, {"fix", nav_type_fix}, {"dme", nav_dme}};
	for (const auto& n : names)
		if (!std::strcmp(s, n.name)) return n.type;
	char* end;
	const long v = std::strtol(s, &end, 10);
	return *s && !*end && v >= 1 && v <= 13 ? (int)v : 0;
}

void show_airport(const vec_apt_struct& a)
{
	std::printf("apt %s %d %.0f %s\n", a.apt_id, a.apt_type, a.h / con.fttomtrs, a.apt_name.c_str());
	for (const vec_rwy_struct& r : a.rwy)
		std::printf("rwy %s %.6f %.6f %.3f %.0f %.0f %d\n", r.num_str, r.lat, r.lon, r.psi_true, r.len / con.fttomtrs,
		            r.width / con.fttomtrs, r.surf_tex);
	for (int k = 0; k < 7; k++)
		if (ret_apt_frq(a, k) > 0) std::printf("frq %d %.2f %s\n", 50 + k, ret_apt_frq(a, k) / 100.0, ret_apt_frq_label(a, k).c_str());
	for (const vec_sta_struct& t : a.sta) std::printf("sta %.6f %.6f %.2f %s\n", t.lat, t.lon, t.psi, t.sta_name.c_str());
}

}  // namespace

std::string fly_tree_arg(const char* val)
{
	std::string t = val;
	while (t.size() > 1 && t.back() == '/') t.pop_back();
	return t + "/";
}

std::string fly_default_tree()
{
	const std::string exe = plat_exe_folder();
	for (const char* rel : {"Nimbasys", "../Nimbasys"})
		if (std::filesystem::is_directory(exe + rel + "/Resources")) return std::filesystem::canonical(exe + rel).string() + "/";
	return "";
}

int fly_nav(int argc, char** argv)
{
	int planet = 0, type = 0, k = 1;
	float lat = 0.0f, lon = 0.0f;
	std::string tree = fly_default_tree();
	std::vector<std::string> ids;
	auto is_sub = [](const char* a) { return !std::strcmp(a, "find") || !std::strcmp(a, "near") || !std::strcmp(a, "block") || !std::strcmp(a, "magvar"); };
	for (; k < argc && !is_sub(argv[k]); k++) {
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", argv[k]); return 2; }
		if (!std::strcmp(argv[k], "--planet")) {
			const char* p = argv[++k];
			if (!std::strcmp(p, "earth")) planet = 0;
			else if (!std::strcmp(p, "mars")) planet = 1;
			else { std::fprintf(stderr, "nimbara-fly: --planet is earth or mars\n"); return 2; }
		} else if (!std::strcmp(argv[k], "--tree")) {
			tree = fly_tree_arg(argv[++k]);
		} else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", argv[k]); return 2; }
	}
	if (k >= argc) { std::fprintf(stderr, "nimbara-fly: nav needs find, near, block or magvar\n"); return 2; }
	const std::string sub = argv[k];
	float radius_nm = 30.0f;
	int have_lat = 0, have_lon = 0;
	for (k++; k < argc; k++) {
		if (sub != "find" && k + 1 < argc && (!std::strcmp(argv[k], "--lat") || !std::strcmp(argv[k], "--lon") || !std::strcmp(argv[k], "--radius-nm"))) {
			char* end;
			const float v = std::strtof(argv[k + 1], &end);
			if (!*argv[k + 1] || *end) { std::fprintf(stderr, "nimbara-fly: bad number for %s\n", argv[k]); return 2; }
			if (!std::strcmp(argv[k], "--lat")) { lat = v; have_lat = 1; }
			else if (!std::strcmp(argv[k], "--lon")) { lon = v; have_lon = 1; }
			else radius_nm = v;
			k++;
		} else if (sub != "find") {
			std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", argv[k]);
			return 2;
		} else if (!std::strcmp(argv[k], "--type") && k + 1 < argc) {
			type = type_of(argv[++k]);
			if (!type) { std::fprintf(stderr, "nimbara-fly: unknown type '%s'\n", argv[k]); return 2; }
		} else if (!std::strcmp(argv[k], "--near") && k + 1 < argc) {
			if (std::sscanf(argv[++k], "%f,%f", &lat, &lon) != 2) { std::fprintf(stderr, "nimbara-fly: --near is LAT,LON\n"); return 2; }
		} else ids.push_back(argv[k]);
	}
	if (sub == "find" && (!type || ids.empty())) { std::fprintf(stderr, "nimbara-fly: nav find needs --type T and at least one id\n"); return 2; }
	if (sub != "find" && !(have_lat && have_lon)) { std::fprintf(stderr, "nimbara-fly: nav %s needs --lat and --lon\n", sub.c_str()); return 2; }
	if (sub == "magvar") {   // a table built into the program: nothing to load
		std::printf("%.2f\n", ret_mag_var(lat, lon));
		return 0;
	}
	if (tree.empty() || !std::filesystem::is_directory(tree)) { std::fprintf(stderr, "nimbara-fly: no data tree; give --tree DIR\n"); return 1; }
	try {
		HEADLESS_setup(0.02, 0, tree.c_str());
		init_sim();
		if (planet == 1) {   // a change of planet, as the simulator makes it
			env.planet = 1;
			set_planet_specs(1);
			read_planet_nav();
		}
	} catch (const XFatalAlert&) {
		std::fprintf(stderr, "%s\n", last_alert_text.c_str());
		MACIBM_finishup(0);
		return 1;
	}
	if (sub == "near") {
		const float r_deg = radius_nm / 60.0f;
		for (size_t k = planet == 0 ? 6 : 0; k < vec_nav.size(); k++) {   // past the carriers' own aids
			const vec_nav_struct& n = vec_nav[k];
			const float dlat = n.lat - lat, dlon = (n.lon - lon) * std::cos(lat * 0.0174532925f);
			if (dlat * dlat + dlon * dlon > r_deg * r_deg) continue;
			std::printf("%d %.6f %.6f %.0f %d %.0f %.2f %s %s\n", n.type, n.lat, n.lon, n.h / con.fttomtrs, n.frq,
			            40.0f * std::sqrt(n.sqr_range_deg / 1.5f), n.psi_true, n.nav_id, n.nav_name.c_str());
		}
		MACIBM_finishup(1);
		return 0;
	}
	if (sub == "block") {
		env.lat_sou = (int)std::floor(lat);
		env.lon_wes = (int)std::floor(lon);
		MP_make_airports_and_menus(0);
		std::printf("airports %d vors %d ndbs %d fixes %d busy %.4f\n", apt_lcl_max + 1, vor_lcl_max + 1, ndb_lcl_max + 1, fix_lcl_max + 1,
		            msc.radio_busy_fac);
		for (int l = 0; l <= apt_lcl_max; l++) std::printf("apt %s\n", vec_apt[apt_lcl_to_wrl[l]].apt_id);
		for (int l = 0; l <= vor_lcl_max; l++) std::printf("vor %s\n", vec_nav[vor_lcl_to_wrl[l]].nav_id);
		for (int l = 0; l <= ndb_lcl_max; l++) std::printf("ndb %s\n", vec_nav[ndb_lcl_to_wrl[l]].nav_id);
		for (int l = 0; l <= fix_lcl_max; l++) std::printf("fix %s\n", vec_fix[fix_lcl_to_wrl[l]].fix_name);
		MACIBM_finishup(1);
		return 0;
	}
	int missing = 0;
	for (const std::string& id : ids) {
		int index = 0;
		if (!get_index_from_id(id, type, &index, lat, lon)) {
			std::fprintf(stderr, "nimbara-fly: %s not found\n", id.c_str());
			missing = 1;
			continue;
		}
		if (type == nav_type_apt) show_airport(vec_apt[index]);
		else if (type == nav_type_fix) std::printf("fix %s %.6f %.6f\n", vec_fix[index].fix_name, vec_fix[index].lat, vec_fix[index].lon);
		else {
			const vec_nav_struct& n = vec_nav[index];
			std::printf("nav %d %s %.6f %.6f %.0f %d %s\n", n.type, n.nav_id, n.lat, n.lon, n.h / con.fttomtrs, n.frq, n.nav_name.c_str());
		}
	}
	MACIBM_finishup(1);
	return missing;
}
