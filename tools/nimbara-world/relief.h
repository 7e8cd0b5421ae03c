// The ground's relief and cover, as functions of place alone: a vertex gets the same
// height and land use whichever region it is made in. Seeded fractal noise gives plains,
// hills and ranges; the coast pulls the ground down toward the sea.
#pragma once
#include <cstdint>

struct relief_inputs {
	double lat, lon;      // degrees
	double coast_km;      // distance to the nearest sea, capped (relief_coast_cap_km)
	double slope;         // ground slope, rise over run (for the cover)
};

constexpr double relief_coast_cap_km = 20.0;

// Metres, land at 1 or more; base_m is the land's general height where known, standing in
// for the noise's plains by the share base_share (0..1).
double relief_height(double lat, double lon, double coast_km, uint32_t seed, double base_m, double base_share);
// Land use of a dry vertex: 0 grass, 2 broadleaf forest, 3 conifer forest, 4 desert,
// 5 rock, 6 snow, 7 town; 14 an inland lake. City ground (1) is the caller's, round airports.
int relief_land_use(const relief_inputs& in, double height, uint32_t seed);
double noise01(double x, double y, uint32_t seed);   // smooth value noise, 0..1, lattice step 1
uint32_t place_hash(int64_t x, int64_t y, uint32_t seed);   // the generator's one hash of a grid place
