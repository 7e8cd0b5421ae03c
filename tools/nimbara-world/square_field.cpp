// Each square's heights and land use. Land and sea come from the coastline, the general
// height from the airfields round about, the relief from seeded noise; the ground round
// each airport is flat at its elevation and dry. Every value is a function of the
// vertex's place alone, so squares made in different runs agree on their shared edges.
#include "tools/nimbara-world/scenery_gen.h"
#include "tools/nimbara-world/relief.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

const planet_grid earth_grid{150, 200, 111195.0, 1};
const planet_grid mars_grid{64, 64, 59157.0, 0};

namespace {

// The coast distance runs on a fixed plate, so that it is the same in every window.
constexpr double cell_km_i = 90.0 / 150.0, cell_km_j = 111.2 / 200.0;

// Flat ground reaches past a runway's edge far enough that the whole grid cell under it is
// flat; beyond, the terrain blends in.
constexpr double flat_margin_m = 900.0, blend_m = 1500.0;
// The land's general height follows its airports' (a weighted mean of those within
// base_radius_m), the noise adding the relief.
constexpr double base_radius_m = 60000.0, base_core_m = 5000.0;

}  // namespace

// Airports, heliports and seaplane bases with their runways: type and elevation in feet
// on the header row, then "10" rows; a number starting "x" is a taxiway.
int read_airports(const std::string& path, double m_per_deg_lat, std::vector<apt_site>* out, std::string* why)
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

namespace {

// Metres from a point to a runway's centre line.
double dist_to_runway(double lat, double lon, const apt_runway& r, double m_per_deg_lat)
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

// Kilometres to the nearest sea vertex, by a two-pass chamfer on the fixed plate, capped.
std::vector<float> coast_distance(const std::vector<uint8_t>& mask, int ni, int nj)
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

// Weights of the airfields' general height at a place; share is how much it stands for the noise's plains.
void airfield_base(const std::vector<const apt_site*>& region, double lat, double lon, double m_deg, double* base, double* share)
{
	double w_base = 0.0, we_base = 0.0;
	const double c = std::cos(lat * M_PI / 180.0);
	for (const apt_site* a : region) {
		if (a->type != 1) continue;   // a heliport's height may be a roof's
		const double dn = (a->lat - lat) * m_deg, de = (a->lon - lon) * c * m_deg, d2 = dn * dn + de * de;
		if (d2 >= base_radius_m * base_radius_m) continue;
		const double w = 1.0 / (d2 + base_core_m * base_core_m) - 1.0 / (base_radius_m * base_radius_m + base_core_m * base_core_m);
		w_base += w;
		we_base += w * a->elev_m;
	}
	*share = w_base / (w_base + 2.0 / (base_radius_m * base_radius_m));
	*base = w_base > 0.0 ? we_base / w_base : 0.0;
}

}  // namespace

const square_field& terrain_maker::square(int lat_file, int lon_file)
{
	auto it = squares_.find({lat_file, lon_file});
	if (it != squares_.end()) return it->second;
	return squares_[{lat_file, lon_file}] = make(lat_file, lon_file);
}

int terrain_maker::elev(vertex_id v)
{
	const int lat_file = (int)std::floor((double)v.second / g_.nlat) - 90, lon_file = (int)std::floor((double)v.first / g_.nlon) - 180;
	const long jj = v.second - (long)(lat_file + 90) * g_.nlat, ii = v.first - (long)(lon_file + 180) * g_.nlon;
	return square(lat_file, lon_file).elev[(size_t)jj * (g_.nlon + 1) + ii];
}

int terrain_maker::use(vertex_id v)
{
	const int lat_file = (int)std::floor((double)v.second / g_.nlat) - 90, lon_file = (int)std::floor((double)v.first / g_.nlon) - 180;
	const long jj = v.second - (long)(lat_file + 90) * g_.nlat, ii = v.first - (long)(lon_file + 180) * g_.nlon;
	return square(lat_file, lon_file).use[(size_t)jj * (g_.nlon + 1) + ii];
}

// One square, its vertices from one past each edge so that slopes can be taken.
square_field terrain_maker::make(int lat_file, int lon_file)
{
	const planet_grid& g = g_;
	const int ni_core = g.nlon + 1, nj_core = g.nlat + 1;
	const long gi_core = (long)(lon_file + 180) * g.nlon, gj_core = (long)(lat_file + 90) * g.nlat;
	// Sea and the distance to it, in a window wide enough that the capped distance is exact.
	int mi = 1, mj = 1;
	long gi0 = gi_core - 1, gj0 = gj_core - 1;
	std::vector<uint8_t> mask;
	std::vector<float> coast;
	if (g.earth) {
		mi = (int)std::ceil(relief_coast_cap_km / cell_km_i) + 3;
		mj = (int)std::ceil(relief_coast_cap_km / cell_km_j) + 3;
		gi0 = gi_core - mi;
		gj0 = gj_core - mj;
		land_raster(*land_, gi0, gj0, ni_core + 2 * mi, nj_core + 2 * mj, &mask);
		coast = coast_distance(mask, ni_core + 2 * mi, nj_core + 2 * mj);
	}
	const int ni = ni_core + 2 * mi;

	std::vector<const apt_site*> near, region;
	const double c_far = std::max(std::cos((std::fabs(lat_file + 0.5) + 1.0) * M_PI / 180.0), 0.05);
	const double near_lat = 7500.0 / g.m_per_deg + 0.02, near_lon = near_lat / c_far;   // city ground reaches 7.5 km
	const double reach_lat = base_radius_m / g.m_per_deg + 0.02, reach_lon = reach_lat / c_far;
	for (const apt_site& a : apts_) {
		if (a.lat_hi > lat_file - near_lat && a.lat_lo < lat_file + 1 + near_lat && a.lon_hi > lon_file - near_lon && a.lon_lo < lon_file + 1 + near_lon)
			near.push_back(&a);
		if (a.lat > lat_file - reach_lat && a.lat < lat_file + 1 + reach_lat && a.lon > lon_file - reach_lon && a.lon < lon_file + 1 + reach_lon)
			region.push_back(&a);
	}

	// Heights, sea, city ground and airport distance with a border of one vertex.
	const int bi = ni_core + 2, bj = nj_core + 2;
	std::vector<double> h((size_t)bi * bj, 0.0), apt_d((size_t)bi * bj, 1e9), coast_at((size_t)bi * bj, relief_coast_cap_km);
	std::vector<char> sea((size_t)bi * bj, 0), city((size_t)bi * bj, 0);
	for (int j = 0; j < bj; j++)
		for (int i = 0; i < bi; i++) {
			const long gi = gi_core - 1 + i, gj = gj_core - 1 + j;
			const double lat = g.lat(gj), lon = g.lon(gi);
			const size_t k = (size_t)j * bi + i;
			if (g.earth) {
				const size_t m = (size_t)(gj - gj0) * ni + (gi - gi0);
				sea[k] = !mask[m];
				coast_at[k] = coast[m];
			}
			if (!sea[k]) {
				double base, share;
				airfield_base(region, lat, lon, g.m_per_deg, &base, &share);
				h[k] = relief_height(lat, lon, coast_at[k], seed_, base, share);
			}
			// Airports: flat at the nearest one's elevation inside its ground, blended by
			// weight outside, whatever order the airports come in; an airfield's ground goes
			// before a heliport's where the two meet.
			double nearest = 1e9, nearest_elev = 0.0, w_max = 0.0, w_sum = 0.0, we_sum = 0.0;
			int nearest_heli = 1;
			for (const apt_site* a : near) {
				double d = 1e9;
				for (const apt_runway& r : a->rwy) d = std::min(d, dist_to_runway(lat, lon, r, g.m_per_deg) - r.half_w);
				const int heli = a->type == 17;
				const bool first = d <= flat_margin_m && (nearest > flat_margin_m || heli < nearest_heli);
				if (first || (d < nearest && (heli == nearest_heli || nearest > flat_margin_m))) { nearest = d; nearest_elev = a->elev_m; nearest_heli = heli; }
				const double w = 1.0 - smooth01((d - flat_margin_m) / blend_m);
				w_max = std::max(w_max, w);
				w_sum += w;
				we_sum += w * a->elev_m;
				const double radius = a->city == 2 ? 6000.0 : a->city == 1 ? 2800.0 : 0.0;
				if (g.earth && radius > 0.0 && d < radius * (0.75 + 0.5 * noise01(lon * 40.0, lat * 40.0, seed_ + 21))) city[k] = 1;
			}
			apt_d[k] = nearest;
			if (nearest < flat_margin_m + 300.0) sea[k] = 0;   // the airport's ground is dry
			if (sea[k]) h[k] = 0.0;
			else if (nearest <= flat_margin_m) h[k] = nearest_elev;
			else if (w_sum > 0.0) h[k] = h[k] * (1.0 - w_max) + we_sum / w_sum * w_max;
		}

	square_field f;
	f.elev.reserve((size_t)ni_core * nj_core);
	f.use.reserve((size_t)ni_core * nj_core);
	for (int jj = 0; jj < nj_core; jj++)
		for (int ii = 0; ii < ni_core; ii++) {
			const int i = ii + 1, j = jj + 1;
			const size_t k = (size_t)j * bi + i;
			const double lat = g.lat(gj_core + jj), lon = g.lon(gi_core + ii);
			const double dx = 2.0 * g.m_per_deg * std::cos(lat * M_PI / 180.0) / g.nlon, dz = 2.0 * g.m_per_deg / g.nlat;
			const double slope = std::hypot((h[k + 1] - h[k - 1]) / dx, (h[k + bi] - h[k - bi]) / dz);
			int u = 15;
			if (!g.earth) u = slope > 0.35 ? 5 : 4;   // bare rock on the steep, sand and dust elsewhere
			else if (!sea[k]) {
				u = relief_land_use({lat, lon, coast_at[k], slope}, h[k], seed_);
				if (city[k] && u != 5 && u != 6) u = 1;
				if (apt_d[k] < flat_margin_m + blend_m && (u == 14 || u == 5 || u == 6)) u = 0;
			}
			f.elev.push_back((int)std::lround(h[k]));
			f.use.push_back(u);
		}
	return f;
}
