// nimbara-world scenery: a quadrant file for each degree square of a region. Land and
// sea come from a real coastline, the relief from seeded noise, and the ground round each
// airport of apt.dat is made flat at its elevation and dry. Every value is a function of
// the vertex's place, so squares made in different runs agree on their shared edges.
#include "tools/nimbara-world/land_mask.h"
#include "tools/nimbara-world/relief.h"
#include "world/quadrant_file.h"
#include <algorithm>
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

constexpr double m_per_deg_lat = 111195.0;
// The coast distance runs on a fixed plate too, so that it is the same in every window.
constexpr double cell_km_i = 90.0 / grid_per_deg_lon, cell_km_j = 111.2 / grid_per_deg_lat;

struct apt_runway { double lat0, lon0, lat1, lon1, half_w; };
struct apt_site {
	int type;                                // 1 airport, 16 seaplane base, 17 heliport
	double lat, lon, elev_m;
	double lat_lo, lat_hi, lon_lo, lon_hi;   // runway extent
	int city;                                // 0 none, else the radius class: 1 medium, 2 large
	std::vector<apt_runway> rwy;
};

// Flat ground reaches past a runway's edge far enough that the whole grid cell under it is
// flat; beyond, the terrain blends in.
constexpr double flat_margin_m = 900.0, blend_m = 1500.0;
// The land's general height follows its airports' (a weighted mean of those within
// base_radius_m), the noise adding the relief.
constexpr double base_radius_m = 60000.0, base_core_m = 5000.0;

// Airports, heliports and seaplane bases with their runways: type and elevation in feet
// on the header row, then "10" rows; a number starting "x" is a taxiway.
int read_airports(const std::string& path, std::vector<apt_site>* out, std::string* why)
{
	std::ifstream in(path);
	if (!in) { *why = "cannot open " + path; return 0; }
	std::string line;
	apt_site* cur = nullptr;
	double longest = 0.0;
	auto finish = [&]() {
		if (cur && cur->rwy.empty()) out->pop_back();
		else if (cur) cur->city = longest >= 2400.0 ? 2 : longest >= 1500.0 ? 1 : 0;
		cur = nullptr;
		longest = 0.0;
	};
	while (std::getline(in, line)) {
		std::istringstream ls(line);
		int code = 0;
		if (!(ls >> code)) continue;
		if (code == 1 || code == 16 || code == 17) {
			finish();
			double elev_ft = 0;
			ls >> elev_ft;
			out->push_back({});
			cur = &out->back();
			cur->type = code;
			cur->elev_m = elev_ft * 0.3048;
			cur->lat_lo = cur->lon_lo = 1e9;
			cur->lat_hi = cur->lon_hi = -1e9;
		} else if (code == 10 && cur) {
			double lat, lon, psi, len_ft, disp, blast, width_ft;
			std::string num;
			if (!(ls >> lat >> lon >> num >> psi >> len_ft >> disp >> blast >> width_ft) || num[0] == 'x') continue;
			if (!(std::fabs(lat) <= 90 && std::fabs(lon) <= 180 && len_ft >= 0 && len_ft < 100000 && width_ft >= 0 && width_ft < 10000)) continue;
			const double half = 0.5 * len_ft * 0.3048, c = std::max(std::cos(lat * M_PI / 180.0), 0.01);
			const double dn = half * std::cos(psi * M_PI / 180.0) / m_per_deg_lat, de = half * std::sin(psi * M_PI / 180.0) / (m_per_deg_lat * c);
			cur->rwy.push_back({lat - dn, lon - de, lat + dn, lon + de, 0.5 * width_ft * 0.3048});
			cur->lat_lo = std::min({cur->lat_lo, lat - dn, lat + dn}); cur->lat_hi = std::max({cur->lat_hi, lat - dn, lat + dn});
			cur->lon_lo = std::min({cur->lon_lo, lon - de, lon + de}); cur->lon_hi = std::max({cur->lon_hi, lon - de, lon + de});
			cur->lat = 0.5 * (cur->lat_lo + cur->lat_hi);
			cur->lon = 0.5 * (cur->lon_lo + cur->lon_hi);
			longest = std::max(longest, len_ft * 0.3048);
		}
	}
	finish();
	if (out->empty()) { *why = path + " holds no airport with a runway"; return 0; }
	return 1;
}

// Metres from a point to a runway's centre line.
double dist_to_runway(double lat, double lon, const apt_runway& r)
{
	const double c = std::cos(lat * M_PI / 180.0);
	const double px = (lon - r.lon0) * c * m_per_deg_lat, pz = (lat - r.lat0) * m_per_deg_lat;
	const double dx = (r.lon1 - r.lon0) * c * m_per_deg_lat, dz = (r.lat1 - r.lat0) * m_per_deg_lat;
	const double l2 = dx * dx + dz * dz;
	const double t = l2 > 0 ? std::clamp((px * dx + pz * dz) / l2, 0.0, 1.0) : 0.0;
	return std::hypot(px - t * dx, pz - t * dz);
}

double smooth01(double t)
{
	t = std::clamp(t, 0.0, 1.0);
	return t * t * (3 - 2 * t);
}

struct vertex_out { double h; int use; int sea; };

struct square_maker {
	const land_shapes& land;
	const std::vector<apt_site>& apts;
	uint32_t seed;

	// One square: vertices from one past each edge, so that slopes can be taken.
	quadrant_data make(int lat_file, int lon_file)
	{
		const int ni_core = grid_per_deg_lon + 1, nj_core = grid_per_deg_lat + 1;
		const int mi = (int)std::ceil(relief_coast_cap_km / cell_km_i) + 3, mj = (int)std::ceil(relief_coast_cap_km / cell_km_j) + 3;
		const long gi_core = (long)(lon_file + 180) * grid_per_deg_lon, gj_core = (long)(lat_file + 90) * grid_per_deg_lat;
		const long gi0 = gi_core - mi, gj0 = gj_core - mj;
		const int ni = ni_core + 2 * mi, nj = nj_core + 2 * mj;
		std::vector<uint8_t> mask;
		land_raster(land, gi0, gj0, ni, nj, &mask);
		const std::vector<float> coast = coast_distance(mask, ni, nj);

		std::vector<const apt_site*> near, region;
		const double lon_reach = 0.8 / std::max(std::cos((std::fabs(lat_file + 0.5) + 1.0) * M_PI / 180.0), 0.05);
		const double near_lon = 0.1 / std::max(std::cos((std::fabs(lat_file + 0.5) + 1.0) * M_PI / 180.0), 0.05);   // city ground reaches 7.5 km
		for (const apt_site& a : apts) {
			if (a.lat_hi > lat_file - 0.1 && a.lat_lo < lat_file + 1.1 && a.lon_hi > lon_file - near_lon && a.lon_lo < lon_file + 1 + near_lon) near.push_back(&a);
			if (a.lat > lat_file - 0.7 && a.lat < lat_file + 1.7 && a.lon > lon_file - lon_reach && a.lon < lon_file + 1 + lon_reach) region.push_back(&a);
		}

		// Heights and the sea with a border of one vertex.
		const int bi = ni_core + 2, bj = nj_core + 2;
		std::vector<vertex_out> v((size_t)bi * bj);
		std::vector<double> apt_w((size_t)bi * bj, 0.0), apt_d((size_t)bi * bj, 1e9);
		std::vector<int> city((size_t)bi * bj, 0);
		for (int j = 0; j < bj; j++)
			for (int i = 0; i < bi; i++) {
				const long gi = gi_core - 1 + i, gj = gj_core - 1 + j;
				const double lat = grid_lat(gj), lon = grid_lon(gi);
				const size_t m = (size_t)(gj - gj0) * ni + (gi - gi0);
				vertex_out& o = v[(size_t)j * bi + i];
				o.sea = !mask[m];
				o.h = 0.0;
				if (!o.sea) {
					// The airports' weighted mean height; where none is near, the noise's own plains.
					double w_base = 0.0, we_base = 0.0;
					const double c = std::cos(lat * M_PI / 180.0);
					for (const apt_site* a : region) {
						if (a->type != 1) continue;   // a heliport's height may be a roof's
						const double dn = (a->lat - lat) * m_per_deg_lat, de = (a->lon - lon) * c * m_per_deg_lat, d2 = dn * dn + de * de;
						if (d2 >= base_radius_m * base_radius_m) continue;
						const double w = 1.0 / (d2 + base_core_m * base_core_m) - 1.0 / (base_radius_m * base_radius_m + base_core_m * base_core_m);
						w_base += w;
						we_base += w * a->elev_m;
					}
					const double share = w_base / (w_base + 2.0 / (base_radius_m * base_radius_m));
					o.h = relief_height(lat, lon, coast[m], seed, share > 0.0 ? we_base / w_base : 0.0, share);
				}
				// Airports: flat at the nearest one's elevation inside its ground, blended by
				// weight outside, whatever order the airports come in.
				// An airfield's ground goes before a heliport's where the two meet.
				double nearest = 1e9, nearest_elev = 0.0, w_max = 0.0, w_sum = 0.0, we_sum = 0.0;
				int nearest_heli = 1;
				for (const apt_site* a : near) {
					double d = 1e9;
					for (const apt_runway& r : a->rwy) d = std::min(d, dist_to_runway(lat, lon, r) - r.half_w);
					const int heli = a->type == 17;
					const bool first = d <= flat_margin_m && (nearest > flat_margin_m || heli < nearest_heli);
					if (first || (d < nearest && (heli == nearest_heli || nearest > flat_margin_m))) { nearest = d; nearest_elev = a->elev_m; nearest_heli = heli; }
					const double w = 1.0 - smooth01((d - flat_margin_m) / blend_m);
					w_max = std::max(w_max, w);
					w_sum += w;
					we_sum += w * a->elev_m;
					const double radius = a->city == 2 ? 6000.0 : a->city == 1 ? 2800.0 : 0.0;
					if (radius > 0.0 && d < radius * (0.75 + 0.5 * noise01(lon * 40.0, lat * 40.0, seed + 21))) city[(size_t)j * bi + i] = 1;
				}
				apt_d[(size_t)j * bi + i] = nearest;
				if (nearest < flat_margin_m + 300.0) o.sea = 0;   // the airport's ground is dry
				if (o.sea) o.h = 0.0;
				else if (nearest <= flat_margin_m) o.h = nearest_elev;
				else if (w_sum > 0.0) o.h = o.h * (1.0 - w_max) + we_sum / w_sum * w_max;
			}

		quadrant_data q;
		q.version = 650;
		q.imax = grid_per_deg_lon;
		q.jmax = grid_per_deg_lat;
		q.vertices.reserve((size_t)ni_core * nj_core);
		for (int jj = 0; jj < nj_core; jj++)
			for (int ii = 0; ii < ni_core; ii++) {
				const int i = ii + 1, j = jj + 1;
				const vertex_out& o = v[(size_t)j * bi + i];
				const long gi = gi_core + ii, gj = gj_core + jj;
				const double lat = grid_lat(gj), lon = grid_lon(gi);
				int use = 15;
				if (!o.sea) {
					const double dx = 2.0 * m_per_deg_lat * std::cos(lat * M_PI / 180.0) / grid_per_deg_lon, dz = 2.0 * m_per_deg_lat / grid_per_deg_lat;
					const double sx = (v[(size_t)j * bi + i + 1].h - v[(size_t)j * bi + i - 1].h) / dx;
					const double sz = (v[(size_t)(j + 1) * bi + i].h - v[(size_t)(j - 1) * bi + i].h) / dz;
					const size_t m = (size_t)(gj - gj0) * ni + (gi - gi0);
					use = relief_land_use({lat, lon, coast[m], std::hypot(sx, sz)}, o.h, seed);
					if (city[(size_t)j * bi + i] && use != 5 && use != 6) use = 1;
					if (apt_d[(size_t)j * bi + i] < flat_margin_m + blend_m && (use == 14 || use == 5 || use == 6)) use = 0;
				}
				q.vertices.push_back({0, (int)std::lround(o.h), make_land_code({0, 0, 0, 0, use})});
			}
		fix_codes(&q);
		return q;
	}

	// The position codes taken from their exact places, rounded.
	static void fix_codes(quadrant_data* q)
	{
		for (int jj = 0; jj <= q->jmax; jj++)
			for (int ii = 0; ii <= q->imax; ii++)
				q->vertices[(size_t)jj * (q->imax + 1) + ii].pos_code =
					(int)std::lround(jj * 9999.0 / q->jmax) * 10000 + (int)std::lround(ii * 9999.0 / q->imax);
	}

	// Kilometres to the nearest sea vertex, by a two-pass chamfer on the fixed plate, capped.
	static std::vector<float> coast_distance(const std::vector<uint8_t>& mask, int ni, int nj)
	{
		const float a = (float)cell_km_i, b = (float)cell_km_j, c = std::sqrt(a * a + b * b), cap = (float)relief_coast_cap_km;
		std::vector<float> d((size_t)ni * nj);
		for (size_t k = 0; k < d.size(); k++) d[k] = mask[k] ? 1e9f : 0.0f;
		auto at = [&](int i, int j) -> float& { return d[(size_t)j * ni + i]; };
		for (int j = 0; j < nj; j++)
			for (int i = 0; i < ni; i++) {
				float& x = at(i, j);
				if (i > 0) x = std::min(x, at(i - 1, j) + a);
				if (j > 0) {
					x = std::min(x, at(i, j - 1) + b);
					if (i > 0) x = std::min(x, at(i - 1, j - 1) + c);
					if (i + 1 < ni) x = std::min(x, at(i + 1, j - 1) + c);
				}
			}
		for (int j = nj - 1; j >= 0; j--)
			for (int i = ni - 1; i >= 0; i--) {
				float& x = at(i, j);
				if (i + 1 < ni) x = std::min(x, at(i + 1, j) + a);
				if (j + 1 < nj) {
					x = std::min(x, at(i, j + 1) + b);
					if (i + 1 < ni) x = std::min(x, at(i + 1, j + 1) + c);
					if (i > 0) x = std::min(x, at(i - 1, j + 1) + c);
				}
			}
		for (float& x : d) x = std::min(x, cap);
		return d;
	}
};

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
	std::string apt, land, out;
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
		else { std::fprintf(stderr, "nimbara-world: unknown option '%s'\n", o.c_str()); return 2; }
		if (target && !int_arg(val, target)) { std::fprintf(stderr, "nimbara-world: %s takes whole degrees, not '%s'\n", o.c_str(), val); return 2; }
	}
	if (south == 999 || west == 999 || north == 999 || east == 999 || out.empty() || land.empty()) {
		std::fprintf(stderr, "nimbara-world: scenery needs --south, --west, --north, --east, --land and --out\n");
		return 2;
	}
	if (south < -90 || north > 90 || west < -180 || east > 180 || south >= north || west >= east) {
		std::fprintf(stderr, "nimbara-world: the region %d..%d N, %d..%d E is not on the planet (south below north, west below east)\n",
		             south, north, west, east);
		return 1;
	}
	if (apt.empty()) apt = out + "/apt.dat";
	std::string why;
	std::vector<apt_site> apts;
	if (!read_airports(apt, &apts, &why)) { std::fprintf(stderr, "nimbara-world: no airports: %s\n", why.c_str()); return 1; }
	land_shapes shapes;
	if (!load_land(land, &shapes, &why)) { std::fprintf(stderr, "nimbara-world: no land: %s\n", why.c_str()); return 1; }
	square_maker maker{shapes, apts, (uint32_t)seed};
	int files = 0;
	for (int lat = south; lat < north; lat++)
		for (int lon = west; lon < east; lon++) {
			std::string rel = return_latlon_str_ENV(lat, lon);
			std::replace(rel.begin(), rel.end(), '\\', '/');
			const std::filesystem::path p = std::filesystem::path(out) / rel;
			std::error_code ec;
			std::filesystem::create_directories(p.parent_path(), ec);
			if (!write_quadrant(p.string(), maker.make(lat, lon))) { std::fprintf(stderr, "nimbara-world: cannot write %s\n", p.string().c_str()); return 1; }
			files++;
		}
	std::printf("nimbara-world: %d quadrant files for %d..%d N, %d..%d E in %s\n", files, south, north, west, east, out.c_str());
	return 0;
}
