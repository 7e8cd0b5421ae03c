// The terrain generator's pieces: the planet's grid, the airports it flattens, each
// square's heights and land use (computed once, from place alone), the rivers traced over
// them and the radio towers on the summits.
#pragma once
#include "tools/nimbara-world/land_mask.h"
#include "world/quadrant_file.h"
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct planet_grid {
	int nlon, nlat;        // grid steps a degree
	double m_per_deg;      // metres a degree of latitude
	int earth;             // sea, coastline, rivers and cover as on Earth
	double lat(long gj) const { return (double)gj / nlat - 90.0; }
	double lon(long gi) const { return (double)gi / nlon - 180.0; }
};
extern const planet_grid earth_grid, mars_grid;

struct apt_runway { double lat0, lon0, lat1, lon1, half_w; };
struct apt_site {
	int type;                                // 1 airport, 16 seaplane base, 17 heliport
	double lat, lon, elev_m;
	double lat_lo, lat_hi, lon_lo, lon_hi;   // runway extent
	int city;                                // 0 none, else the radius class: 1 medium, 2 large
	std::vector<apt_runway> rwy;
};
int read_airports(const std::string& path, double m_per_deg_lat, std::vector<apt_site>* out, std::string* why);

// A square's vertices as they go in its file: rows south to north.
struct square_field {
	std::vector<int> elev, use;
};

using vertex_id = std::pair<long, long>;   // global grid column and row

class terrain_maker {
public:
	terrain_maker(const planet_grid& g, const land_shapes* land, const std::vector<apt_site>& apts, uint32_t seed)
		: g_(g), land_(land), apts_(apts), seed_(seed) {}
	const square_field& square(int lat_file, int lon_file);   // made on first asking
	int elev(vertex_id v);                                       // through the square that holds it
	int use(vertex_id v);
	const planet_grid& grid() const { return g_; }
	uint32_t seed() const { return seed_; }
private:
	square_field make(int lat_file, int lon_file);
	const planet_grid& g_;
	const land_shapes* land_;
	const std::vector<apt_site>& apts_;
	uint32_t seed_;
	std::map<std::pair<int, int>, square_field> squares_;
};

// Rivers: from sources on high ground down the steepest descent to the sea or a basin.
// Each vertex's next is fixed by the ground alone, so the river edges are a set that any
// run covering a source's reach finds the same.
struct river_set {
	std::map<vertex_id, vertex_id> down;   // river edges, each vertex to its next
};
river_set trace_rivers(terrain_maker& t, int south, int west, int north, int east);
// The rivers of one square as chains of points, each point inside the square.
std::vector<std::vector<vertex_id>> river_chains(const river_set& r, const planet_grid& g, int lat_file, int lon_file);
// Radio towers on the square's highest summits: global vertices.
std::vector<vertex_id> summit_towers(terrain_maker& t, int lat_file, int lon_file);
