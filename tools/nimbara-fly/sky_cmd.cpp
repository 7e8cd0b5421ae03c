// nimbara-fly sky: where the sun and moon stand, and the light they give, at a place and
// times, as the frame works them out; no display needed.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "render/light.h"
#include "render/sky_colours.h"
#include "world/HL_WORLD.h"
#include <algorithm>
#include "render/sun_moon.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

int fly_sky(int argc, char** argv)
{
	double lat = NAN, lon = NAN, alt_ft = 0.0, heading = 0.0;
	int year = 0, month = 0, mday = 0;
	std::vector<int> minutes;
	std::string tree = fly_default_tree();
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		bool ok = true;
		if (o == "--lat") ok = fly_parse(val, -90, 90, &lat);
		else if (o == "--lon") ok = fly_parse(val, -180, 180, &lon);
		else if (o == "--alt-ft") ok = fly_parse(val, -2000, 3e6, &alt_ft);
		else if (o == "--heading") ok = fly_parse(val, -360, 360, &heading);
		else if (o == "--tree") tree = fly_tree_arg(val);
		else if (o == "--date") {
			static const int mdays[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
			ok = std::sscanf(val, "%d-%d-%d", &year, &month, &mday) == 3 && year >= 1 && year <= 9999 && month >= 1 && month <= 12 &&
			     mday >= 1 && mday <= mdays[month - 1];
		} else if (o == "--time-utc") {
			std::stringstream ss(val);
			std::string t;
			while (ok && std::getline(ss, t, ',')) {
				int h = -1, m = -1;
				char extra;
				ok = std::sscanf(t.c_str(), "%d:%d%c", &h, &m, &extra) == 2 && h >= 0 && h <= 23 && m >= 0 && m <= 59;
				minutes.push_back(h * 60 + m);
			}
		} else {
			std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str());
			return 2;
		}
		if (!ok) { std::fprintf(stderr, "nimbara-fly: bad value '%s' for %s\n", val, o.c_str()); return 2; }
	}
	if (std::isnan(lat) || std::isnan(lon) || !year || minutes.empty()) {
		std::fprintf(stderr, "nimbara-fly: sky needs --lat, --lon, --date and --time-utc\n");
		return 2;
	}
	bmp_path = tree + "Resources/bitmaps/";
	const int light_ok = load_sky_colours(0);
	if (!light_ok) std::fprintf(stderr, "nimbara-fly: the light tables are missing under %s\n", bmp_path.c_str());
	static const float clean[5] = {1, 0, 0, 0, 0};   // clear air: the clean set alone
	std::printf("utc sun_elev sun_azi moon_elev moon_azi moon_phase amb_r amb_g amb_b dir_r dir_g dir_b lite_rat_on glare_rat\n");
	const float alt_m = std::isnan(alt_ft) ? 0.0f : (float)(alt_ft * con.fttomtrs);
	const float earth_rat = std::clamp(std::sqrt(find_standard_rho(0, alt_m) / 1.225f), 0.0f, 1.0f);
	atm.vis_sky = atm.vis_ground = 46300.0f;
	ren.view_ele = alt_m;
	ren.final_psi = (float)heading;   // looking level along the heading
	ren.final_the = 0.0f;
	for (int m : minutes) {
		update_sun_moon(year, day_of_year(year, month, mday), (float)(m * 60), lat, lon);
		float amb[3] = {0, 0, 0}, dir[3] = {0, 0, 0};
		if (light_ok) blend_light(clean, lgt[0].the, hours < 12.0f, amb, dir);
		std::copy(amb, amb + 3, ren.lgt_amb);
		std::copy(dir, dir + 3, ren.lgt_dir);
		ren.glare_rat = 0.0f;
		update_light({earth_rat, earth_rat, sun_use_ratio(lgt[0].the, earth_rat), 0.0f});
		std::printf("%02d:%02d %.3f %.3f %.3f %.3f %.4f %.3f %.3f %.3f %.3f %.3f %.3f %.3f %.3f\n", m / 60, m % 60, lgt[0].the, lgt[0].psi, lgt[1].the,
		            lgt[1].psi, PhaseFraction, amb[0], amb[1], amb[2], dir[0], dir[1], dir[2], ren.lite_rat_on + 0.0f, ren.glare_rat + 0.0f);   // no negative zeros
	}
	return light_ok ? 0 : 1;
}
