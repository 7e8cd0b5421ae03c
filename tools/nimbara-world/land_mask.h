// Land and sea from a coastline in TopoJSON (Natural Earth's land polygons as the
// world-atlas package ships them), rasterised onto the scenery's global vertex grid.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

// The global vertex grid: column gi at longitude gi / 150 - 180, row gj at latitude gj / 200 - 90.
constexpr int grid_per_deg_lon = 150, grid_per_deg_lat = 200;
inline double grid_lon(long gi) { return (double)gi / grid_per_deg_lon - 180.0; }
inline double grid_lat(long gj) { return (double)gj / grid_per_deg_lat - 90.0; }

struct coast_segment { double lon0, lat0, lon1, lat1; };

struct land_shapes {
	std::vector<coast_segment> segs;   // every ring's edges; even-odd inside is land
};

int load_land(const std::string& path, land_shapes* land, std::string* why);   // 1, or 0 with why

// mask[(gj - gj0) * ni + (gi - gi0)] = 1 on land, for ni columns from gi0 and nj rows from gj0.
void land_raster(const land_shapes& land, long gi0, long gj0, int ni, int nj, std::vector<uint8_t>* mask);
