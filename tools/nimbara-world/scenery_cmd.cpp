// nimbara-world scenery: a quadrant file for each degree square of a region, its ground
// from the square fields, its rivers and the radio towers on its summits.
#include "tools/nimbara-world/scenery_gen.h"
#include "tools/nimbara-world/relief.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

quadrant_data make_quadrant(terrain_maker& t, const river_set& rivers, int lat_file, int lon_file)
{
	const planet_grid& g = t.grid();
	const square_field& f = t.square(lat_file, lon_file);
	quadrant_data q;
	q.version = 650;
	q.imax = g.nlon;
	q.jmax = g.nlat;
	for (int jj = 0; jj <= q.jmax; jj++)
		for (int ii = 0; ii <= q.imax; ii++) {
			const size_t k = (size_t)jj * (q.imax + 1) + ii;
			const int code = (int)std::lround(jj * 9999.0 / q.jmax) * 10000 + (int)std::lround(ii * 9999.0 / q.imax);
			q.vertices.push_back({code, f.elev[k], make_land_code({0, 0, 0, 0, f.use[k]})});
		}
	// Radio towers of 200 to 1000 feet on the summits.
	for (const vertex_id& v : summit_towers(t, lat_file, lon_file))
		q.objects.push_back({3, (float)g.lat(v.second), (float)g.lon(v.first), (float)(200 + place_hash(v.first, v.second, t.seed()) % 801), ""});
	for (const auto& chain : river_chains(rivers, g, lat_file, lon_file))
		for (size_t n = 0; n < chain.size(); n++)
			q.lists[quad_river].push_back({lat_lon_to_code(g.lat(chain[n].second), g.lon(chain[n].first), lat_file, lon_file), 0.0f, 0.0f,
			                               n + 1 == chain.size() ? 'e' : 'p'});
	return q;
}

int int_arg(const char* s, int* v)
{
	char* end;
	const long x = std::strtol(s, &end, 10);
	*v = (int)x;
	return *s && !*end && x > -1000 && x < 1000;
}

}  // namespace

int world_scenery(int argc, char** argv)
{
	int south = 999, west = 999, north = 999, east = 999, seed = 1;
	std::string apt, land, out, planet = "earth";
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-world: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		int* target = nullptr;
		if (o == "--south") target = &south;
		else if (o == "--west") target = &west;
		else if (o == "--north") target = &north;
		else if (o == "--east") target = &east;
		else if (o == "--seed") target = &seed;
		else if (o == "--apt") apt = val;
		else if (o == "--land") land = val;
		else if (o == "--out") out = val;
		else if (o == "--planet") planet = val;
		else { std::fprintf(stderr, "nimbara-world: unknown option '%s'\n", o.c_str()); return 2; }
		if (target && !int_arg(val, target)) { std::fprintf(stderr, "nimbara-world: %s takes whole degrees, not '%s'\n", o.c_str(), val); return 2; }
	}
	if (planet != "earth" && planet != "mars") { std::fprintf(stderr, "nimbara-world: --planet is earth or mars\n"); return 2; }
	const bool earth = planet == "earth";
	if (south == 999 || west == 999 || north == 999 || east == 999 || out.empty() || (earth && land.empty())) {
		std::fprintf(stderr, "nimbara-world: scenery needs --south, --west, --north, --east and --out, and --land on Earth\n");
		return 2;
	}
	if (south < -89 || north > 89 || west < -180 || east > 180 || south >= north || west >= east) {
		std::fprintf(stderr, "nimbara-world: the region %d..%d N, %d..%d E is not on the planet's blocks (south below north, west below east, within 89 degrees of the equator)\n",
		             south, north, west, east);
		return 1;
	}
	const planet_grid& g = earth ? earth_grid : mars_grid;
	if (apt.empty()) apt = out + "/apt.dat";
	std::string why;
	std::vector<apt_site> apts;
	if (!read_airports(apt, g.m_per_deg, &apts, &why)) { std::fprintf(stderr, "nimbara-world: no airports: %s\n", why.c_str()); return 1; }
	land_shapes shapes;
	if (earth && !load_land(land, &shapes, &why)) { std::fprintf(stderr, "nimbara-world: no land: %s\n", why.c_str()); return 1; }
	terrain_maker maker(g, &shapes, apts, (uint32_t)seed);
	const river_set rivers = trace_rivers(maker, south, west, north, east);
	int files = 0;
	for (int lat = south; lat < north; lat++)
		for (int lon = west; lon < east; lon++) {
			std::string rel = return_latlon_str_ENV(lat, lon);
			std::replace(rel.begin(), rel.end(), '\\', '/');
			const std::filesystem::path p = std::filesystem::path(out) / rel;
			std::error_code ec;
			std::filesystem::create_directories(p.parent_path(), ec);
			if (!write_quadrant(p.string(), make_quadrant(maker, rivers, lat, lon))) { std::fprintf(stderr, "nimbara-world: cannot write %s\n", p.string().c_str()); return 1; }
			files++;
		}
	std::printf("nimbara-world: %d %s quadrant files for %d..%d N, %d..%d E in %s, %zu river edges\n", files, planet.c_str(), south, north, west, east,
	            out.c_str(), rivers.down.size());
	return 0;
}
