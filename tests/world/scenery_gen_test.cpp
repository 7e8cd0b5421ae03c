// The generated terrain: the build's region against the coastline and the airport
// database it came from, its relief against real land's, and the generator elsewhere.
#include "world/quadrant_file.h"
#include "world/quadrant_lines.h"
#include "world/scenery.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace {

const std::string earth_nav = std::string(NIMBARA_DATA_TREE) + "/Resources/Earth nav data/";
constexpr int south = 31, north = 37, west = -121, east = -113;

std::string square_path(const std::string& folder, int lat, int lon)
{
	std::string rel = return_latlon_str_ENV(lat, lon);
	std::replace(rel.begin(), rel.end(), '\\', '/');
	return folder + rel;
}

// Every square of the build's region, read once.
const std::map<std::pair<int, int>, quadrant_data>& region()
{
	static std::map<std::pair<int, int>, quadrant_data> squares;
	if (squares.empty())
		for (int lat = south; lat < north; lat++)
			for (int lon = west; lon < east; lon++) {
				std::string why;
				quadrant_data q;
				if (read_quadrant(square_path(earth_nav, lat, lon), &q, &why)) squares[{lat, lon}] = std::move(q);
			}
	return squares;
}

const quad_vertex& vertex_at(const quadrant_data& q, int ii, int jj) { return q.vertices[(size_t)jj * (q.imax + 1) + ii]; }

// The vertex nearest a place in the build's region.
const quad_vertex& nearest(double lat, double lon)
{
	const int la = (int)std::floor(lat), lo = (int)std::floor(lon);
	const quadrant_data& q = region().at({la, lo});
	return vertex_at(q, (int)std::lround((lon - lo) * q.imax), (int)std::lround((lat - la) * q.jmax));
}

int use_of(const quad_vertex& v) { return split_land_code(v.land_code).use; }

int run_world(const std::string& args)
{
	const std::string cmd = std::string("'") + NIMBARA_WORLD_EXE + "' " + args + " > /dev/null 2>&1";
	const int r = std::system(cmd.c_str());
	return WIFEXITED(r) ? WEXITSTATUS(r) : -1;
}

// The ground the flight model meets, with the block loaded round the place.
double ground_at(double lat, double lon, int* wet)
{
	double x, z;
	xz_on_ground(lat, lon, &x, &z);
	int i = 0, j = 0;
	float vx, vy, vz;
	const float g = find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 0);
	*wet = poly_is_wet(i, j);
	double la, lo, ele;
	xdob_latlonel_with_xyz(la, lo, ele, x, g, z);
	return ele;
}

void start_world(const std::string& nav_folder)
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	ren.ground_is_vis = 1;
	ean_path = nav_folder;
	cus_path = nav_folder + "no custom scenery:";
	vec_apt.clear(); vec_nav.clear(); vec_fix.clear(); vec_awy.clear();
}

}  // namespace

TEST(GeneratedScenery, TheBuildsRegionIsCompleteAndNeighboursAgreeOnEdges)
{
	ASSERT_EQ(region().size(), (size_t)(north - south) * (east - west));
	for (const auto& [at, q] : region()) {
		EXPECT_EQ(q.version, 650);
		for (int l = 0; l < 6; l++) EXPECT_TRUE(l == quad_river || q.lists[l].empty()) << l;
		EXPECT_TRUE(q.textures.empty());
		// Radio towers, a few a square, each on a summit.
		EXPECT_LE(q.objects.size(), 3u);
		for (const quad_object& o : q.objects) {
			EXPECT_EQ(o.type, 3);
			const int ii = (int)std::lround((o.lon - at.second) * q.imax), jj = (int)std::lround((o.lat - at.first) * q.jmax);
			ASSERT_TRUE(ii > 0 && ii < q.imax && jj > 0 && jj < q.jmax);
			for (int dj = -1; dj <= 1; dj++)
				for (int di = -1; di <= 1; di++)
					if (di || dj) {
						EXPECT_GT(vertex_at(q, ii, jj).elev_m, vertex_at(q, ii + di, jj + dj).elev_m);
					}
		}
		for (int jj = 0; jj <= q.jmax; jj += 7)
			for (int ii = 0; ii <= q.imax; ii += 5) {
				double lat, lon;
				code_to_lat_lon(vertex_at(q, ii, jj).pos_code, at.first, at.second, &lat, &lon);
				ASSERT_NEAR(lat, at.first + (double)jj / q.jmax, 0.6 / 9999);
				ASSERT_NEAR(lon, at.second + (double)ii / q.imax, 0.6 / 9999);
			}
		const auto east_n = region().find({at.first, at.second + 1}), north_n = region().find({at.first + 1, at.second});
		for (int jj = 0; east_n != region().end() && jj <= q.jmax; jj++) {
			EXPECT_EQ(vertex_at(q, q.imax, jj).elev_m, vertex_at(east_n->second, 0, jj).elev_m);
			EXPECT_EQ(vertex_at(q, q.imax, jj).land_code, vertex_at(east_n->second, 0, jj).land_code);
		}
		for (int ii = 0; north_n != region().end() && ii <= q.imax; ii++) {
			EXPECT_EQ(vertex_at(q, ii, q.jmax).elev_m, vertex_at(north_n->second, ii, 0).elev_m);
			EXPECT_EQ(vertex_at(q, ii, q.jmax).land_code, vertex_at(north_n->second, ii, 0).land_code);
		}
	}
}

TEST(GeneratedScenery, RiversRunDownhillToTheSeaAnEdgeOrAHollow)
{
	// A vertex of the region from whichever square holds it; off the region, very high.
	auto elev_at = [](long gi, long gj) {
		const int lat = (int)std::floor(gj / 200.0) - 90, lon = (int)std::floor(gi / 150.0) - 180;
		for (int dlat = 0; dlat <= 1; dlat++)
			for (int dlon = 0; dlon <= 1; dlon++) {
				const auto it = region().find({lat - dlat, lon - dlon});
				const long ii = gi - (lon - dlon + 180) * 150L, jj = gj - (lat - dlat + 90) * 200L;
				if (it != region().end() && ii <= 150 && jj <= 200) return vertex_at(it->second, (int)ii, (int)jj).elev_m;
			}
		return 100000;
	};
	int chains = 0, to_sea = 0;
	for (const auto& [at, q] : region()) {
		std::set<std::pair<long, long>> starts;
		std::vector<std::vector<std::pair<long, long>>> all;
		std::vector<std::pair<long, long>> cur;
		for (const quad_point& p : q.lists[quad_river]) {
			double lat, lon;
			code_to_lat_lon(p.code, at.first, at.second, &lat, &lon);
			ASSERT_TRUE(lat >= at.first && lat <= at.first + 1 && lon >= at.second && lon <= at.second + 1);
			cur.push_back({std::lround((lon + 180.0) * 150.0), std::lround((lat + 90.0) * 200.0)});
			if (p.tag == 'e') {
				starts.insert(cur.front());
				all.push_back(cur);
				cur.clear();
			}
		}
		EXPECT_TRUE(cur.empty());
		for (const auto& c : all) {
			chains++;
			ASSERT_GE(c.size(), 2u);
			for (size_t n = 1; n < c.size(); n++) {
				EXPECT_LE(std::abs(c[n].first - c[n - 1].first), 1);   // neighbours on the grid
				EXPECT_LE(std::abs(c[n].second - c[n - 1].second), 1);
				EXPECT_LT(elev_at(c[n].first, c[n].second), elev_at(c[n - 1].first, c[n - 1].second));   // downhill
			}
			const auto end = c.back();
			const long ii = end.first - (at.second + 180) * 150L, jj = end.second - (at.first + 90) * 200L;
			const int use = use_of(vertex_at(q, (int)ii, (int)jj));
			const bool edge = ii == 0 || ii == 150 || jj == 0 || jj == 200, water = use == 14 || use == 15, meets = starts.count(end) > 0;
			bool hollow = true;
			for (int dj = -1; dj <= 1; dj++)
				for (int di = -1; di <= 1; di++)
					if ((di || dj) && elev_at(end.first + di, end.second + dj) < elev_at(end.first, end.second)) hollow = false;
			EXPECT_TRUE(edge || water || meets || hollow) << at.first << " " << at.second << " ends at " << ii << " " << jj;
			to_sea += water;
		}
	}
	EXPECT_GT(chains, 100);
	EXPECT_GT(to_sea, 5);
}

TEST(GeneratedScenery, SeaWhereTheCoastlineSaysItAndLandInland)
{
	// Open water, kilometres from any shore: the Pacific, Santa Monica Bay, the Gulf of California.
	for (const auto& [lat, lon] : {std::pair{33.0, -120.0}, {32.5, -118.0}, {33.9, -118.65}, {31.3, -114.3}, {34.0, -120.9}}) {
		EXPECT_EQ(use_of(nearest(lat, lon)), 15) << lat << " " << lon;
		EXPECT_EQ(nearest(lat, lon).elev_m, 0) << lat << " " << lon;
	}
	// Land: the Mojave, Las Vegas, El Cajon, Santa Catalina Island, Baja's mountains.
	for (const auto& [lat, lon] : {std::pair{35.0, -116.5}, {36.17, -115.14}, {32.8, -116.96}, {33.38, -118.42}, {31.5, -115.8}}) {
		EXPECT_NE(use_of(nearest(lat, lon)), 15) << lat << " " << lon;
		EXPECT_GE(nearest(lat, lon).elev_m, 1) << lat << " " << lon;
	}
}

TEST(GeneratedScenery, ReliefAndSlopesLikeRealLand)
{
	std::vector<double> elev, slope, shore;
	std::set<int> uses;
	for (const auto& [at, q] : region()) {
		const double dx = 111195.0 * std::cos((at.first + 0.5) * M_PI / 180.0) / q.imax, dz = 111195.0 / q.jmax;
		for (int jj = 1; jj < q.jmax; jj++)
			for (int ii = 1; ii < q.imax; ii++) {
				const quad_vertex& v = vertex_at(q, ii, jj);
				uses.insert(use_of(v));
				if (use_of(v) == 15) continue;
				elev.push_back(v.elev_m);
				const double sx = (vertex_at(q, ii + 1, jj).elev_m - vertex_at(q, ii - 1, jj).elev_m) / (2 * dx);
				const double sz = (vertex_at(q, ii, jj + 1).elev_m - vertex_at(q, ii, jj - 1).elev_m) / (2 * dz);
				slope.push_back(std::hypot(sx, sz));
				const bool by_sea = use_of(vertex_at(q, ii + 1, jj)) == 15 || use_of(vertex_at(q, ii - 1, jj)) == 15 ||
				                    use_of(vertex_at(q, ii, jj + 1)) == 15 || use_of(vertex_at(q, ii, jj - 1)) == 15;
				if (by_sea) shore.push_back(v.elev_m);
			}
	}
	auto pct = [](std::vector<double>& v, double p) {
		std::nth_element(v.begin(), v.begin() + (long)(p * (v.size() - 1)), v.end());
		return v[(size_t)(p * (v.size() - 1))];
	};
	ASSERT_GT(elev.size(), 100000u);
	// Heights: the land of the south-west runs from the coast to peaks of 3 to 4 km.
	EXPECT_GE(pct(elev, 0.0), -90.0);   // below the sea only at the fields by the Salton Sea and in Death Valley
	EXPECT_GT(pct(elev, 0.95) - pct(elev, 0.05), 1000.0);
	EXPECT_GT(pct(elev, 1.0), 2500.0);
	EXPECT_LT(pct(elev, 1.0), 4500.0);
	// Slopes at half-kilometre spacing: mostly gentle, steep in the ranges, cliffs rare.
	EXPECT_GT(pct(slope, 0.5), 0.005);
	EXPECT_LT(pct(slope, 0.5), 0.15);
	EXPECT_GT(pct(slope, 0.95), 0.1);
	EXPECT_LT(pct(slope, 0.99), 1.0);
	EXPECT_LT(std::count_if(slope.begin(), slope.end(), [](double s) { return s > 1.5; }), (long)(slope.size() / 1000));
	// Low near the coast.
	ASSERT_GT(shore.size(), 1000u);
	EXPECT_LT(pct(shore, 0.5), 40.0);
	EXPECT_LT(pct(shore, 0.9), 300.0);
	// Every land use of the table, water first in it, appears somewhere.
	for (int u : {14, 15, 0, 1, 2, 3, 4, 5, 6, 7}) EXPECT_EQ(uses.count(u), 1u) << u;
}

TEST(GeneratedScenery, TheRegionsAirfieldsStandOnDryGroundAtTheirElevation)
{
	start_world(std::string(NIMBARA_DATA_TREE) + "/Resources:Earth nav data:");
	ASSERT_EQ(IO_apt(0, ""), 1);
	// Blocks covering the region, each loaded once; each runway looked at in its block.
	int checked = 0, level = 0, dry = 0;
	for (int sou = south; sou < north; sou += 2)
		for (int wes = west; wes < east; wes += 3) {
			env.lat_sou = sou;
			env.lon_wes = wes;
			load_region(1);
			for (const vec_apt_struct& a : vec_apt) {
				if (a.apt_type != 1) continue;
				for (const vec_rwy_struct& r : a.rwy) {
					if (r.num_str[0] == 'x' || r.lat < sou || r.lat >= sou + 2 || r.lon < wes || r.lon >= std::min(wes + 3, east)) continue;
					int wet;
					const double g = ground_at(r.lat, r.lon, &wet);
					checked++;
					level += std::fabs(g - a.h) < 1.0;
					dry += !wet;
					if (std::fabs(g - a.h) >= 1.0 || wet) std::printf("%s %s: ground %.1f, elevation %.1f, wet %d\n", a.apt_id, r.num_str, g, a.h, wet);
				}
			}
		}
	EXPECT_GT(checked, 200);
	EXPECT_EQ(dry, checked);
	// A runway that a heliport's flat ground also covers takes the lower of the two
	// heights, and a block holds 300 airports: a few may differ.
	EXPECT_GE(level, checked * 98 / 100);
}

TEST(GeneratedScenery, ElsewhereTwoRunsAgreeAndTheSimulatorFindsTheFieldFlat)
{
	const std::string dir = std::string(NIMBARA_TEST_TREE) + "/elsewhere/";
	fs::remove_all(dir);
	fs::create_directories(dir + "a");
	fs::create_directories(dir + "b");
	// A field in the Alpine foothills whose runway crosses the edge between two squares.
	std::ofstream(dir + "apt.dat") << "I\n715 a test field\n\n"
	                                  " 1   1640 0 0 LSXX Edge Field\n"
	                                  "10   46.300000    7.990000  09  90.000  6000    0.0000    0.0000  100        0  1 0 3 0.25 0\n\n99\n";
	const std::string land = std::string(" --land '") + WORLD_ATLAS_LAND + "' --apt '" + dir + "apt.dat'";
	ASSERT_EQ(run_world("scenery --south 46 --west 7 --north 47 --east 8 --seed 5" + land + " --out '" + dir + "a'"), 0);
	ASSERT_EQ(run_world("scenery --south 46 --west 8 --north 47 --east 9 --seed 5" + land + " --out '" + dir + "b'"), 0);
	quadrant_data w, e;
	std::string why;
	ASSERT_EQ(read_quadrant(square_path(dir + "a/", 46, 7), &w, &why), 1) << why;
	ASSERT_EQ(read_quadrant(square_path(dir + "b/", 46, 8), &e, &why), 1) << why;
	int differ = 0;
	for (int jj = 0; jj <= w.jmax; jj++)
		differ += vertex_at(w, w.imax, jj).elev_m != vertex_at(e, 0, jj).elev_m || vertex_at(w, w.imax, jj).land_code != vertex_at(e, 0, jj).land_code;
	EXPECT_EQ(differ, 0);
	// Both squares in one folder, read by the simulator.
	fs::copy_file(square_path(dir + "b/", 46, 8), square_path(dir + "a/", 46, 8));
	start_world(dir + "a/");
	ASSERT_EQ(IO_apt(0, dir + "apt.dat"), 1);
	env.lat_sou = 45;
	env.lon_wes = 6;
	load_region(1);
	const double h = 1640 * 0.3048, m_per_deg_lon = 111195.0 * std::cos(46.3 * M_PI / 180.0);
	for (double along = -850.0; along <= 850.0; along += 50.0) {
		int wet;
		EXPECT_NEAR(ground_at(46.3, 7.99 + along / m_per_deg_lon, &wet), h, 0.05) << along;
		EXPECT_EQ(wet, 0);
	}
	// Asked wrongly: said, and exit status 1.
	EXPECT_EQ(run_world("scenery --south 46 --west 7 --north 47 --east 8 --land '" + std::string(WORLD_ATLAS_LAND) + "' --apt '" + dir + "none.dat' --out '" + dir + "c'"), 1);
	EXPECT_EQ(run_world("scenery --south 46 --west 7 --north 47 --east 8 --land '" + dir + "none.json' --apt '" + dir + "apt.dat' --out '" + dir + "c'"), 1);
	EXPECT_EQ(run_world("scenery --south 46 --west 7 --north 47 --east 8 --land '" + dir + "apt.dat' --apt '" + dir + "apt.dat' --out '" + dir + "c'"), 1);
	EXPECT_EQ(run_world("scenery --south 89 --west 7 --north 95 --east 8" + land + " --out '" + dir + "c'"), 1);
	EXPECT_EQ(run_world("scenery --south 46 --west 170 --north 47 --east 190" + land + " --out '" + dir + "c'"), 1);
	EXPECT_FALSE(fs::exists(dir + "c"));
}

TEST(GeneratedScenery, TheFinishedBlockPutsItsObjectsFireAndBoatsWhereTheyBelong)
{
	start_world(std::string(NIMBARA_DATA_TREE) + "/Resources:Earth nav data:");
	ASSERT_EQ(IO_apt(0, ""), 1);
	ASSERT_EQ(IO_nav(0), 1);
	for (int b = 0; b < boat_max; b++) env.boat_x[b] = env.boat_z[b] = -9.9e9f;
	env.lat_sou = 33;
	env.lon_wes = -120;   // Los Angeles, its bay and the islands
	load_region(1);
	auto place = [](const obs_lis_struct& o, double* lat, double* lon) {
		int i = 0, j = 0;
		float vx, vy, vz;
		const float y = find_local_y(o.x_cent, o.z_cent, &vx, &vy, &vz, &i, &j, 0);
		double ele;
		xdob_latlonel_with_xyz(*lat, *lon, ele, o.x_cent, y, o.z_cent);
	};
	int hangars = 0, aids = 0;
	for (const obs_lis_struct& o : obs_lis) {
		double lat, lon;
		place(o, &lat, &lon);
		if (o.typ == 94) {
			// Beside a runway of the block, off every one.
			hangars++;
			double nearest = 1e9;
			bool on = false;
			for (int l = 0; l <= apt_lcl_max; l++)
				for (const vec_rwy_struct& r : vec_apt[apt_lcl_to_wrl[l]].rwy) {
					if (r.num_str[0] == 'x') continue;
					const double e = (lon - r.lon) * 111195.0 * std::cos(r.lat * M_PI / 180.0), n = (lat - r.lat) * 111195.0;
					const double s = std::sin(r.psi_true * M_PI / 180.0), c = std::cos(r.psi_true * M_PI / 180.0);
					const double along = e * s + n * c, side = e * c - n * s;
					on = on || (std::fabs(side) < 0.5 * r.width && std::fabs(along) < 0.5 * r.len);
					nearest = std::min(nearest, std::hypot(std::fabs(side) - 0.5 * r.width, std::max(0.0, std::fabs(along) - 0.5 * r.len)));
				}
			EXPECT_FALSE(on) << lat << " " << lon;
			EXPECT_LT(nearest, 1500.0) << lat << " " << lon;
		}
		if (o.typ >= 9 && o.typ <= 13) {
			// At an aid of the block, with its heading for a localizer.
			aids++;
			bool found = false;
			for (const vec_nav_struct& n : vec_nav)
				if (std::fabs(n.lat - lat) < 1e-4 && std::fabs(n.lon - lon) < 1e-4 && o.basic_path.rfind("NAVAID: ", 0) == 0)
					found = found || o.typ != 11 || std::fabs(o.psi - n.psi_true) < 1e-3f;
			EXPECT_TRUE(found) << o.basic_path << " " << lat << " " << lon;
		}
	}
	EXPECT_GT(hangars, 10);
	EXPECT_GT(aids, 10);
	// Boats on water near a shore, by the coastline's own sea.
	int boats = 0;
	for (int b = 0; b < boat_max; b++) {
		if (!ret_xz_inreg(env.boat_x[b], env.boat_z[b])) continue;
		boats++;
		int i = 0, j = 0;
		float vx, vy, vz;
		find_local_y(env.boat_x[b], env.boat_z[b], &vx, &vy, &vz, &i, &j, 0);
		EXPECT_EQ(poly_is_wet(i, j), 1) << b;
		int dry = 0;
		for (int di = -10; di <= 10; di += 2)
			for (int dj = -10; dj <= 10; dj += 2) dry += !poly_is_wet(i + di, j + dj);
		EXPECT_GE(dry, 1) << b;
		EXPECT_LE(dry, 20) << b;
	}
	EXPECT_EQ(boats, boat_max);
	// A fire on a dry hillside.
	ASSERT_EQ(scn.fire_avail, 1);
	int i = 0, j = 0;
	float vx, vy, vz;
	find_local_y(scn.firexyz[0][0], scn.firexyz[0][2], &vx, &vy, &vz, &i, &j, 0);
	EXPECT_EQ(poly_is_wet(i, j), 0);
}

TEST(GeneratedScenery, MarsSquaresHaveTheirOwnSizeNoSeaAndTheirFieldsFlat)
{
	const std::string dir = std::string(NIMBARA_TEST_TREE) + "/mars/";
	fs::remove_all(dir);
	fs::create_directories(dir);
	const std::string mars_apt = std::string(NIMBARA_DATA_TREE) + "/Resources/Mars nav data/apt.dat";
	ASSERT_EQ(run_world("scenery --planet mars --south -6 --west 137 --north -4 --east 139 --apt '" + mars_apt + "' --out '" + dir + "'"), 0);
	for (int lat = -6; lat < -4; lat++)
		for (int lon = 137; lon < 139; lon++) {
			quadrant_data q;
			std::string why;
			ASSERT_EQ(read_quadrant(square_path(dir, lat, lon), &q, &why), 1) << why;
			EXPECT_EQ(q.imax, 64);
			EXPECT_EQ(q.vertices.size(), 65u * 65u);
			EXPECT_TRUE(q.lists[quad_river].empty());
			for (const quad_vertex& v : q.vertices) ASSERT_TRUE(use_of(v) != 14 && use_of(v) != 15);
			double la, lo;
			code_to_lat_lon(vertex_at(q, 64, 64).pos_code, lat, lon, &la, &lo);
			EXPECT_DOUBLE_EQ(la, lat + 1.0);
		}
	// The simulator on Mars finds Gale Crater Base's runway flat at its elevation.
	start_world(dir);
	env.planet = 1;
	set_planet_specs(1);
	man_path = dir;
	ASSERT_EQ(IO_apt(0, mars_apt), 1);
	env.lat_sou = -6;
	env.lon_wes = 136;
	load_region(1);
	int wet;
	EXPECT_NEAR(ground_at(-5.4, 137.8, &wet), -8500 * 0.3048, 0.1);
	EXPECT_EQ(wet, 0);
	EXPECT_EQ(run_world("scenery --planet venus --south -6 --west 137 --north -5 --east 138 --out '" + dir + "'"), 2);
}

TEST(GeneratedScenery, DumpPrintsAFileReadably)
{
	const std::string dir = std::string(NIMBARA_TEST_TREE) + "/dump/";
	fs::remove_all(dir);
	fs::create_directories(dir);
	quadrant_data q;
	for (int jj = 0; jj <= q.jmax; jj++)
		for (int ii = 0; ii <= q.imax; ii++)
			q.vertices.push_back({lat_lon_to_code(35.0 + jj / 200.0, -118.0 + ii / 150.0, 35, -118), 100, make_land_code({0, 0, 0, 0, 0})});
	q.objects = {{3, 35.5f, -117.5f, 400.0f, ""}, {8, 35.25f, -117.75f, 90.0f, "sheds/long shed"}};
	q.lists[quad_rails] = {{lat_lon_to_code(35.1, -117.9, 35, -118), 0, 0, 'p'}, {lat_lon_to_code(35.2, -117.8, 35, -118), 0, 0, 'e'}};
	q.lists[quad_taxis] = {{0, 35.3f, -117.3f, 'p'}, {0, 35.31f, -117.3f, 'e'}};
	ASSERT_EQ(write_quadrant(dir + "+35-118.env", q), 1);
	const std::string cmd = std::string("'") + NIMBARA_WORLD_EXE + "' dump '" + dir + "+35-118.env' > '" + dir + "out.txt'";
	ASSERT_EQ(std::system(cmd.c_str()), 0);
	std::ifstream in(dir + "out.txt");
	const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
	EXPECT_EQ(text,
	          "version 650\n"
	          "obj 3 35.500000 -117.500000 400.00\n"
	          "obj 8 35.250000 -117.750000 90.00 sheds/long shed\n"
	          "chain rails\npt 35.100010 -117.899990\npt 35.200020 -117.799980\n"
	          "chain taxiways\npt 35.299999 -117.300003\npt 35.310001 -117.300003\n");
	fs::copy_file(dir + "+35-118.env", dir + "misnamed.env");
	EXPECT_EQ(run_world("dump '" + dir + "misnamed.env'"), 1);
	std::ofstream(dir + "+35-117.env") << "not a quadrant";
	EXPECT_EQ(run_world("dump '" + dir + "+35-117.env'"), 1);
}

TEST(GeneratedScenery, RiverRecordsLieInTheCellsTheirChainsCross)
{
	start_world(std::string(NIMBARA_DATA_TREE) + "/Resources:Earth nav data:");
	env.lat_sou = 34;
	env.lon_wes = -119;
	load_region(1);
	int records = 0, valid = 0;
	for (int i = 0; i < 450; i++)
		for (int j = 0; j < 400; j++)
			for (const vec_lin_struct& r : buc[i][j].vec_river) {
				records++;
				const float cx = 0.5f * (r.data[0] + r.data[3]), cz = 0.5f * (r.data[2] + r.data[5]);
				EXPECT_TRUE(inside_cell(i, j, cx, cz)) << i << " " << j;
				valid += r.data[8] != 0.0f;
				EXPECT_NEAR(std::hypot(r.data[3] - r.data[0], r.data[5] - r.data[2]), 100.0f, 100.0f);   // 50 m each side, more at a bend
			}
	EXPECT_GT(records, 200);
	EXPECT_EQ(valid, records);
}
