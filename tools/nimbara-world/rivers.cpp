// Rivers and radio towers. A river starts on high ground and takes, vertex by vertex, the
// steepest way down, until it meets the sea or a lake or comes to a hollow; one that is
// still running after 60 km is dropped. Every vertex has one way down, so rivers that
// meet run on together and the set of river edges does not depend on the order they are
// traced in.
#include "tools/nimbara-world/scenery_gen.h"
#include "tools/nimbara-world/relief.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr double river_max_m = 60000.0;
constexpr int source_step = 12;      // grid steps between candidate sources
constexpr int source_min_elev = 600;

bool is_water(int use) { return use == 14 || use == 15; }

double step_m(const planet_grid& g, vertex_id v, int di, int dj)
{
	const double dx = g.m_per_deg * std::cos(g.lat(v.second) * M_PI / 180.0) / g.nlon, dz = g.m_per_deg / g.nlat;
	return std::hypot(di * dx, dj * dz);
}

// The steepest lower neighbour; false in a hollow.
bool next_down(terrain_maker& t, vertex_id v, vertex_id* out)
{
	const int e = t.elev(v);
	double best = 0.0;
	for (int dj = -1; dj <= 1; dj++)
		for (int di = -1; di <= 1; di++) {
			if (!di && !dj) continue;
			const vertex_id w{v.first + di, v.second + dj};
			const int drop = e - t.elev(w);
			if (drop <= 0) continue;
			const double s = drop / step_m(t.grid(), v, di, dj);
			if (s > best) { best = s; *out = w; }
		}
	return best > 0.0;
}

}  // namespace

river_set trace_rivers(terrain_maker& t, int south, int west, int north, int east)
{
	river_set r;
	const planet_grid& g = t.grid();
	if (!g.earth) return r;
	// Sources within a river's reach of the region; a river never runs past twice that.
	const double c = std::max(std::cos((std::max(std::fabs(south), std::fabs(north)) + 1.0) * M_PI / 180.0), 0.05);
	const int m_lat = (int)std::ceil(river_max_m / g.m_per_deg), m_lon = (int)std::ceil(river_max_m / (g.m_per_deg * c));
	const long gj0 = (long)(std::max(south - m_lat, -89) + 90) * g.nlat, gj1 = (long)(std::min(north + m_lat, 89) + 90) * g.nlat;
	const long gi0 = (long)(std::max(west - m_lon, -180) + 180) * g.nlon, gi1 = (long)(std::min(east + m_lon, 180) + 180) * g.nlon;
	for (long gj = (gj0 + source_step - 1) / source_step * source_step; gj < gj1; gj += source_step)
		for (long gi = (gi0 + source_step - 1) / source_step * source_step; gi < gi1; gi += source_step) {
			if (place_hash(gi, gj, t.seed()) % 100 >= 35) continue;
			const vertex_id src{gi, gj};
			if (t.elev(src) < source_min_elev || is_water(t.use(src))) continue;
			std::vector<std::pair<vertex_id, vertex_id>> edges;
			vertex_id cur = src, next;
			double run = 0.0;
			bool ends = false;
			while (run < river_max_m) {
				if (!next_down(t, cur, &next)) { ends = true; break; }   // a hollow
				edges.push_back({cur, next});
				run += step_m(g, cur, (int)(next.first - cur.first), (int)(next.second - cur.second));
				if (is_water(t.use(next))) { ends = true; break; }   // the sea or a lake
				cur = next;
			}
			if (ends && edges.size() >= 6)
				for (const auto& e : edges) r.down[e.first] = e.second;
		}
	return r;
}

std::vector<std::vector<vertex_id>> river_chains(const river_set& r, const planet_grid& g, int lat_file, int lon_file)
{
	const long gi_lo = (long)(lon_file + 180) * g.nlon, gj_lo = (long)(lat_file + 90) * g.nlat;
	auto inside = [&](vertex_id v) { return v.first >= gi_lo && v.first <= gi_lo + g.nlon && v.second >= gj_lo && v.second <= gj_lo + g.nlat; };
	std::map<vertex_id, int> in_deg;
	std::vector<vertex_id> from;
	for (auto it = r.down.lower_bound({gi_lo - 1, 0}); it != r.down.end() && it->first.first <= gi_lo + g.nlon; ++it)
		if (inside(it->first) && inside(it->second)) {
			from.push_back(it->first);
			in_deg[it->second]++;
		}
	std::vector<std::vector<vertex_id>> chains;
	for (const vertex_id& a : from) {
		if (in_deg.count(a) && in_deg[a] == 1) continue;   // reached from upstream
		std::vector<vertex_id> chain{a};
		vertex_id cur = a;
		for (;;) {
			const auto it = r.down.find(cur);
			if (it == r.down.end() || !inside(it->second) || !inside(cur)) break;
			chain.push_back(it->second);
			cur = it->second;
			if (in_deg[cur] != 1) break;   // a confluence starts a chain of its own
		}
		if (chain.size() >= 2) chains.push_back(std::move(chain));
	}
	return chains;
}

std::vector<vertex_id> summit_towers(terrain_maker& t, int lat_file, int lon_file)
{
	const planet_grid& g = t.grid();
	const square_field& f = t.square(lat_file, lon_file);
	const long gi_lo = (long)(lon_file + 180) * g.nlon, gj_lo = (long)(lat_file + 90) * g.nlat;
	std::vector<std::pair<int, vertex_id>> peaks;
	const int w = g.nlon + 1;
	for (int jj = 1; jj < g.nlat; jj++)
		for (int ii = 1; ii < g.nlon; ii++) {
			const int e = f.elev[(size_t)jj * w + ii];
			if (e < 300 || is_water(f.use[(size_t)jj * w + ii])) continue;
			bool top = true;
			for (int dj = -1; dj <= 1 && top; dj++)
				for (int di = -1; di <= 1 && top; di++)
					if ((di || dj) && f.elev[(size_t)(jj + dj) * w + ii + di] >= e) top = false;
			if (top) peaks.push_back({e, {gi_lo + ii, gj_lo + jj}});
		}
	std::sort(peaks.begin(), peaks.end(), [](const auto& a, const auto& b) { return a.first != b.first ? a.first > b.first : a.second < b.second; });
	std::vector<vertex_id> towers;
	for (const auto& p : peaks) {
		bool apart = true;
		for (const vertex_id& o : towers)
			if (std::abs(o.first - p.second.first) < g.nlon / 10 && std::abs(o.second - p.second.second) < g.nlat / 10) apart = false;
		if (apart) towers.push_back(p.second);
		if (towers.size() == 3) break;
	}
	return towers;
}
