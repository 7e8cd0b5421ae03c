// The land-use table: each land-use code to a land texture, codes with one path sharing
// one texture, the water textures numbered first so that water lies under everything.
#include "render/terrain.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

int read_land_use()
{
	for (int& t : ren.tex_of_use) t = 0;
	for (int& w : ren.tex_is_water) w = 0;
	ren.num_land_texes = 0;
	const std::string path = ret_host_path(bmp_path + "terrain:land_use.txt");
	std::ifstream in(path);
	if (!in) {
		NB_ALERT("Could not open the land_use file!", "You should re-install Nimbara!", "Exact path is:", path, alert_notice);
		return 0;
	}
	std::string line;
	for (int k = 0; k < 5 && std::getline(in, line); k++) {}   // the header
	bool land_seen = false;
	for (int n = 0; n < 80 && std::getline(in, line); n++) {
		std::istringstream ss(line);
		int code = -1;
		std::string tex;
		if (!(ss >> code)) {
			if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
			code = -1;
		}
		std::getline(ss >> std::ws, tex);
		while (!tex.empty() && (tex.back() == '\r' || tex.back() == ' ')) tex.pop_back();
		if (code < 0 || code > 96 || tex.empty()) {   // 97 and up name a texture directly, never a table entry
			NB_ALERT("Invalid land-use!", "A 'land_use.txt' file is corrupted!", "Re-install it or revert to backup of it!", path, alert_notice);
			continue;
		}
		const bool water = code == 14 || code == 15;
		if (water && land_seen) {
			NB_ALERT("I found a water land-use type declared AFTER a NON water land-use type in the land-use file!", "This cannot be!",
			         "Water textures must come first, so that water lies under the land.", path, alert_notice);
			continue;
		}
		land_seen |= !water;
		const std::string full = "terrain:" + tex + "0_000";
		int t = 0;
		while (t < ren.num_land_texes && full != stl.tex_path[t]) t++;
		if (t == ren.num_land_texes) {
			if (ren.num_land_texes >= land_tex_max) {
				NB_ALERT("Too many land-use textures!", "Maximum allowable is 50!", "", path, alert_notice);
				continue;
			}
			std::snprintf(stl.tex_path[t], sizeof stl.tex_path[t], "%s", full.c_str());
			ren.tex_is_water[t] = water;
			ren.num_land_texes++;
		}
		ren.tex_of_use[code] = t;
	}
	return 1;
}

int landuse_to_tex(int code) { return code < 97 ? ren.tex_of_use[code < 0 ? 0 : code] : code; }

int check_land_textures()
{
	int missing = 0;
	for (int t = 0; t < ren.num_land_texes; t++) {
		const std::string path = border_get_tex_paths(t, flt[0].dob_lat, flt[0].dob_lon);
		auto there = [](const std::string& p) {
			return !p.empty() && (std::ifstream(ret_host_path(tex_file_path(p, ".png"))) || std::ifstream(ret_host_path(tex_file_path(p, ".bmp"))));
		};
		// The texture, then its four sheets of border masks.
		for (int sheet = 0; sheet <= 4; sheet++) {
			const std::string p = sheet == 0 ? path : path.empty() ? path : border_sheet_path(path, sheet);
			if (there(p)) continue;
			NB_ALERT("Pre-flight texture-check: Could not open land-use texture!", stl.tex_path[t], "Exact path is:", p, alert_notice);
			missing++;
			if (path.empty()) break;
		}
	}
	return missing;
}
