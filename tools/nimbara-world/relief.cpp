// Value noise on a hashed lattice, summed over octaves. Distances run in kilometres on a
// fixed plate (a degree of longitude taken as 90 km everywhere) so that the noise is one
// function of latitude and longitude over the whole planet.
#include "tools/nimbara-world/relief.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr double km_per_deg_lat = 111.2, km_per_deg_lon = 90.0;

double fade(double t) { return t * t * t * (t * (t * 6 - 15) + 10); }

double smoothstep(double a, double b, double x)
{
	const double t = std::clamp((x - a) / (b - a), 0.0, 1.0);
	return t * t * (3 - 2 * t);
}

// Octaves of noise, 0..1 on average 0.5, wavelength in km.
double fbm(double xk, double yk, double wavelength, int octaves, uint32_t seed)
{
	double sum = 0, amp = 1, norm = 0, f = 1.0 / wavelength;
	for (int o = 0; o < octaves; o++) {
		sum += amp * noise01(xk * f, yk * f, seed + 7919u * o);
		norm += amp;
		amp *= 0.5;
		f *= 2.03;
	}
	return sum / norm;
}

// Ridges: sharp crests where the noise crosses its middle, each octave weighted by the last.
double ridged(double xk, double yk, double wavelength, int octaves, uint32_t seed)
{
	double sum = 0, amp = 1, norm = 0, f = 1.0 / wavelength, weight = 1;
	for (int o = 0; o < octaves; o++) {
		double r = 1.0 - std::fabs(2.0 * noise01(xk * f, yk * f, seed + 104729u * o) - 1.0);
		r *= r;
		sum += amp * r * weight;
		norm += amp;
		weight = std::clamp(r * 1.6, 0.0, 1.0);
		amp *= 0.5;
		f *= 2.1;
	}
	return sum / norm;
}

}  // namespace

uint32_t place_hash(int64_t x, int64_t y, uint32_t s)
{
	uint64_t h = (uint64_t)x * 0x9E3779B97F4A7C15ull ^ (uint64_t)y * 0xC2B2AE3D27D4EB4Full ^ (uint64_t)s * 0x165667B19E3779F9ull;
	h ^= h >> 29; h *= 0xBF58476D1CE4E5B9ull; h ^= h >> 32; h *= 0x94D049BB133111EBull; h ^= h >> 31;
	return (uint32_t)h;
}

double noise01(double x, double y, uint32_t seed)
{
	const double fx = std::floor(x), fy = std::floor(y);
	const int64_t ix = (int64_t)fx, iy = (int64_t)fy;
	const double u = fade(x - fx), v = fade(y - fy);
	auto h = [&](int64_t a, int64_t b) { return place_hash(a, b, seed) * (1.0 / 4294967295.0); };
	const double a = h(ix, iy) + (h(ix + 1, iy) - h(ix, iy)) * u;
	const double b = h(ix, iy + 1) + (h(ix + 1, iy + 1) - h(ix, iy + 1)) * u;
	return a + (b - a) * v;
}

double relief_height(double lat, double lon, double coast_km, uint32_t seed, double base_m, double base_share)
{
	const double x = lon * km_per_deg_lon, y = lat * km_per_deg_lat;
	// Where the ranges stand: broad belts, about a third of the land.
	const double belt = smoothstep(0.52, 0.72, fbm(x, y, 260.0, 3, seed + 1));
	const double noise_plains = 80.0 + 1300.0 * smoothstep(0.3, 0.8, fbm(x, y, 180.0, 4, seed + 2));   // low ground to plateaus
	const double plains = noise_plains + (base_m - noise_plains) * std::clamp(base_share, 0.0, 1.0);
	const double rolling = (300.0 + 500.0 * belt) * std::max(0.0, fbm(x, y, 35.0, 4, seed + 6) - 0.35);
	const double hills = (140.0 + 700.0 * belt) * std::fabs(2.0 * fbm(x, y, 9.0, 6, seed + 3) - 1.0);
	const double ranges = 2300.0 * belt * ridged(x, y, 55.0, 7, seed + 4);
	double h = plains + rolling + hills + ranges;
	// Low near the coast: the ground rises over some 15 km, rarely in a cliff.
	const double cliff = fbm(x, y, 40.0, 2, seed + 5) > 0.72 ? 1.0 : 0.0;
	const double ramp = cliff ? 0.8 : 15.0;
	const double rise = smoothstep(0.0, ramp, coast_km);
	h = 2.0 + (h - 2.0) * (cliff ? rise : std::pow(rise, 1.3));
	return std::max(h, 1.0);
}

int relief_land_use(const relief_inputs& in, double height, uint32_t seed)
{
	const double x = in.lon * km_per_deg_lon, y = in.lat * km_per_deg_lat, alat = std::fabs(in.lat);
	const double snowline = 5500.0 - 75.0 * alat;   // about 2900 m at 35 degrees
	if (height > snowline) return 6;
	if (in.slope > 0.55 || height > snowline - 350.0) return 5;
	// Rare lakes in flat low ground.
	if (in.slope < 0.02 && height < 1800.0 && in.coast_km > 3.0 && fbm(x, y, 6.0, 3, seed + 11) > 0.83) return 14;
	// Dry belts in the subtropics, away from the sea and below the mountain forests.
	const double wet = fbm(x, y, 120.0, 3, seed + 12) + 0.25 * std::cos((alat - 28.0) * M_PI / 40.0) * -1.0 +
	                   0.15 * (1.0 - in.coast_km / relief_coast_cap_km);
	const bool subtropic = alat > 15.0 && alat < 40.0;
	if (subtropic && wet < 0.38 && height < 1700.0) return 4;
	if (fbm(x, y, 9.0, 3, seed + 13) > 0.74 && in.slope < 0.08 && height < 1500.0) return 7;   // small towns
	const double tree = fbm(x, y, 7.0, 4, seed + 14);
	if (height > 1300.0 && tree > 0.42) return 3;
	if (tree > 0.6 && wet > 0.5) return 2;
	return 0;
}
