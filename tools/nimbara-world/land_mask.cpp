// Decoding the TopoJSON topology (quantised, delta-coded arcs; rings as lists of arcs,
// a negative index walking an arc backwards) and an even-odd scanline fill. A vertex
// exactly on a row's crossing goes by the half-open rule, so a point gets the same
// answer whatever window it is filled in.
#include "tools/nimbara-world/land_mask.h"
#include <nlohmann/json.hpp>
#include <algorithm>
#include <fstream>

using nlohmann::json;

namespace {

void add_ring(const json& ring, const std::vector<std::vector<std::pair<double, double>>>& arcs, land_shapes* land)
{
	for (const json& a : ring) {
		const long idx = a.get<long>();
		const long k = idx < 0 ? ~idx : idx;
		if (k < 0 || k >= (long)arcs.size()) throw std::runtime_error("an arc index out of range");
		const auto& pts = arcs[k];
		for (size_t n = 1; n < pts.size(); n++)
			land->segs.push_back({pts[n - 1].first, pts[n - 1].second, pts[n].first, pts[n].second});
	}
}

void add_geometry(const json& g, const std::vector<std::vector<std::pair<double, double>>>& arcs, land_shapes* land)
{
	const std::string type = g.at("type").get<std::string>();
	if (type == "GeometryCollection")
		for (const json& sub : g.at("geometries")) add_geometry(sub, arcs, land);
	else if (type == "Polygon")
		for (const json& ring : g.at("arcs")) add_ring(ring, arcs, land);
	else if (type == "MultiPolygon")
		for (const json& poly : g.at("arcs"))
			for (const json& ring : poly) add_ring(ring, arcs, land);
}

}  // namespace

int load_land(const std::string& path, land_shapes* land, std::string* why)
{
	std::ifstream in(path);
	if (!in) { *why = "cannot open " + path; return 0; }
	try {
		const json topo = json::parse(in);
		double sx = 1, sy = 1, tx = 0, ty = 0;
		const bool quantised = topo.contains("transform");
		if (quantised) {
			const json& t = topo.at("transform");
			sx = t.at("scale").at(0).get<double>(); sy = t.at("scale").at(1).get<double>();
			tx = t.at("translate").at(0).get<double>(); ty = t.at("translate").at(1).get<double>();
		}
		std::vector<std::vector<std::pair<double, double>>> arcs;
		for (const json& arc : topo.at("arcs")) {
			std::vector<std::pair<double, double>> pts;
			double x = 0, y = 0;
			for (const json& p : arc) {
				if (quantised) {
					x += p.at(0).get<double>(); y += p.at(1).get<double>();
					pts.push_back({x * sx + tx, y * sy + ty});
				} else
					pts.push_back({p.at(0).get<double>(), p.at(1).get<double>()});
			}
			arcs.push_back(std::move(pts));
		}
		land->segs.clear();
		const json& objects = topo.at("objects");
		if (!objects.contains("land")) { *why = path + " has no 'land' object"; return 0; }
		add_geometry(objects.at("land"), arcs, land);
	} catch (const std::exception& e) {
		*why = path + " is not a land topology: " + e.what();
		return 0;
	}
	if (land->segs.empty()) { *why = path + " holds no land"; return 0; }
	return 1;
}

void land_raster(const land_shapes& land, long gi0, long gj0, int ni, int nj, std::vector<uint8_t>* mask)
{
	mask->assign((size_t)ni * nj, 0);
	const double lat_lo = grid_lat(gj0), lat_hi = grid_lat(gj0 + nj - 1), lon_lo = grid_lon(gi0);
	// Each row's crossings: those west of the window only flip the starting parity.
	std::vector<std::vector<double>> cross(nj);
	std::vector<uint8_t> parity(nj, 0);
	for (const coast_segment& s : land.segs) {
		const double y0 = std::min(s.lat0, s.lat1), y1 = std::max(s.lat0, s.lat1);
		if (y1 < lat_lo || y0 > lat_hi || s.lat0 == s.lat1) continue;
		const long r0 = std::max(0L, (long)((y0 - lat_lo) * grid_per_deg_lat) - 1), r1 = std::min((long)nj - 1, (long)((y1 - lat_lo) * grid_per_deg_lat) + 1);
		for (long r = r0; r <= r1; r++) {
			const double lat = grid_lat(gj0 + r);
			if (!((s.lat0 <= lat && lat < s.lat1) || (s.lat1 <= lat && lat < s.lat0))) continue;
			const double lon = s.lon0 + (lat - s.lat0) / (s.lat1 - s.lat0) * (s.lon1 - s.lon0);
			if (lon < lon_lo) parity[r] ^= 1;
			else cross[r].push_back(lon);
		}
	}
	for (int r = 0; r < nj; r++) {
		std::sort(cross[r].begin(), cross[r].end());
		size_t k = 0;
		uint8_t in = parity[r];
		for (int c = 0; c < ni; c++) {
			const double lon = grid_lon(gi0 + c);
			while (k < cross[r].size() && cross[r][k] < lon) { in ^= 1; k++; }
			(*mask)[(size_t)r * ni + c] = in;
		}
	}
}
