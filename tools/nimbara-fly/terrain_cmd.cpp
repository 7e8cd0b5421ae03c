// nimbara-fly terrain and block: the scenery block as a start loads it, the ground the
// flight model meets at points, and what the block holds besides.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "tools/tool_main.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat_headless.h"
#include "world/HL_WORLD.h"
#include "world/scenery.h"
#include "world/nav_data.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// --tree, --lat, --lon and, where taken, --points; 0, or 2 with the reason said.
int place_args(int argc, char** argv, std::string* tree, double* lat, double* lon, std::string* points_file)
{
	*tree = fly_default_tree();
	*lat = *lon = NAN;
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		char* end = nullptr;
		if (o == "--tree") *tree = fly_tree_arg(val);
		else if (o == "--points" && points_file) *points_file = val;
		else if (o == "--lat") *lat = std::strtod(val, &end);
		else if (o == "--lon") *lon = std::strtod(val, &end);
		else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str()); return 2; }
		if (end && (*end || end == val)) { std::fprintf(stderr, "nimbara-fly: bad number for %s: '%s'\n", o.c_str(), val); return 2; }
	}
	return 0;
}

// A place of the local frame, on the ground, as latitude and longitude.
void place_of(float x, float z, double* lat, double* lon, float* ground)
{
	int i = 0, j = 0;
	float vx, vy, vz;
	*ground = find_local_y(x, z, &vx, &vy, &vz, &i, &j, 0);
	double ele;
	xdob_latlonel_with_xyz(*lat, *lon, ele, x, *ground, z);
}

}  // namespace

int fly_terrain(int argc, char** argv)
{
	std::string tree, points_file;
	double lat, lon;
	if (place_args(argc, argv, &tree, &lat, &lon, &points_file)) return 2;
	std::vector<std::pair<double, double>> pts;
	if (!points_file.empty()) {
		std::ifstream in(points_file);
		if (!in) { std::fprintf(stderr, "nimbara-fly: cannot read %s\n", points_file.c_str()); return 1; }
		std::string line;
		for (int n = 1; std::getline(in, line); n++) {
			std::istringstream ls(line);
			double a, b;
			if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
			if (!(ls >> a >> b)) { std::fprintf(stderr, "nimbara-fly: %s line %d is not 'lat lon'\n", points_file.c_str(), n); return 2; }
			pts.push_back({a, b});
		}
	} else if (!std::isnan(lat) && !std::isnan(lon))
		pts.push_back({lat, lon});
	else { std::fprintf(stderr, "nimbara-fly: terrain needs --lat and --lon, or --points FILE\n"); return 2; }
	for (const auto& p : pts)
		if (!(std::fabs(p.first) <= 89.0 && std::fabs(p.second) <= 180.0)) {
			std::fprintf(stderr, "nimbara-fly: %.6f %.6f is off the planet's blocks\n", p.first, p.second);
			return 2;
		}
	if (tree.empty() || !std::filesystem::is_directory(tree)) { std::fprintf(stderr, "nimbara-fly: no data tree; give --tree DIR\n"); return 1; }
	try {
		HEADLESS_setup(0.02, 0, tree.c_str());
		init_sim();
		ren.ground_is_vis = 1;
		for (const auto& p : pts) {
			// A reload only when the point leaves the block's middle; a step a call, as frames make them.
			for (int step = 0; step < 8; step++) {
				const int sou = env.lat_sou, wes = env.lon_wes;
				check_for_shift(p.first, p.second);
				if (step > 0 && sou == env.lat_sou && wes == env.lon_wes) break;
			}
			double x, z;
			xz_on_ground(p.first, p.second, &x, &z);
			int i = 0, j = 0;
			float vx, vy, vz;
			const float ground = find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 0);
			double la, lo, ele;
			xdob_latlonel_with_xyz(la, lo, ele, x, ground, z);
			// The land use of the cell's corner nearest the point.
			int bi = i, bj = j;
			double best = 1e30;
			for (int di = 0; di <= 1; di++)
				for (int dj = 0; dj <= 1; dj++) {
					const double d = std::hypot(planexyz[i + di][j + dj][0] - x, planexyz[i + di][j + dj][2] - z);
					if (d < best) { best = d; bi = i + di; bj = j + dj; }
				}
			std::printf("%.6f %.6f %.1f %d %d %d\n", p.first, p.second, ele, landuse[bi][bj], poly_is_wet(i, j), is_apt[i][j]);
		}
	} catch (const XFatalAlert&) {
		std::fprintf(stderr, "%s\n", last_alert_text.c_str());
		MACIBM_finishup(0);
		return 1;
	}
	MACIBM_finishup(1);
	return 0;
}


int fly_block(int argc, char** argv)
{
	std::string tree;
	double lat, lon;
	if (place_args(argc, argv, &tree, &lat, &lon, nullptr)) return 2;
	if (!(std::fabs(lat) <= 89.0 && std::fabs(lon) <= 180.0)) { std::fprintf(stderr, "nimbara-fly: block needs --lat and --lon on the planet's blocks\n"); return 2; }
	if (tree.empty() || !std::filesystem::is_directory(tree)) { std::fprintf(stderr, "nimbara-fly: no data tree; give --tree DIR\n"); return 1; }
	try {
		HEADLESS_setup(0.02, 0, tree.c_str());
		init_sim();
		ren.ground_is_vis = 1;
		env.lat_sou = (int)std::lround(lat - lat_secs_os[0]);
		env.lon_wes = (int)std::lround(lon - lon_secs_os[0]);
		load_region(1);
	} catch (const XFatalAlert&) {
		std::fprintf(stderr, "%s\n", last_alert_text.c_str());
		MACIBM_finishup(0);
		return 1;
	}
	double la, lo;
	float y;
	for (const obs_lis_struct& o : obs_lis) {
		place_of(o.x_cent, o.z_cent, &la, &lo, &y);
		std::printf("obj %d %.6f %.6f %.2f %.1f %s\n", o.typ, la, lo, o.psi, o.dh, o.basic_path.c_str());
	}
	static const char* kinds[6] = {"roads", "trails", "rails", "power", "taxiways", "rivers"};
	for (int i = 0; i < regn_dim_i; i++)
		for (int j = 0; j < regn_dim_j; j++) {
			const buc_struct& b = buc[i][j];
			const std::vector<vec_lin_struct>* lists[6] = {&b.vec_roads, &b.vec_trail, &b.vec_rails, &b.vec_power, &b.vec_taxis, &b.vec_river};
			for (int k = 0; k < 6; k++)
				for (const vec_lin_struct& r : *lists[k]) {
					const float x = 0.5f * (r.data[0] + r.data[3]), ry = 0.5f * (r.data[1] + r.data[4]), z = 0.5f * (r.data[2] + r.data[5]);
					double ele;
					xdob_latlonel_with_xyz(la, lo, ele, x, ry, z);
					std::printf("rec %s %d %d %.6f %.6f %.1f %.0f\n", kinds[k], i, j, la, lo, ry, r.data[8]);
				}
		}
	if (scn.fire_avail) {
		place_of(scn.firexyz[0][0], scn.firexyz[0][2], &la, &lo, &y);
		std::printf("fire %.6f %.6f\n", la, lo);
	}
	for (int b = 0; b < boat_max; b++)
		if (ret_xz_inreg(env.boat_x[b], env.boat_z[b])) {
			place_of(env.boat_x[b], env.boat_z[b], &la, &lo, &y);
			std::printf("boat %d %.6f %.6f\n", b, la, lo);
		}
	MACIBM_finishup(1);
	return 0;
}
