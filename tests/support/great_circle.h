// Distances and bearings on the sphere, worked out here independently of the code under
// test, for checking where the navigation data puts things.
#pragma once
#include <cmath>

namespace great_circle {

constexpr double R = 6371008.8, D = M_PI / 180.0, NM = 1852.0;

inline double dist_m(double a1, double o1, double a2, double o2)
{
	const double a = std::sin((a2 - a1) * D / 2), b = std::sin((o2 - o1) * D / 2);
	return 2 * R * std::asin(std::sqrt(a * a + std::cos(a1 * D) * std::cos(a2 * D) * b * b));
}

inline double bearing(double a1, double o1, double a2, double o2)
{
	const double y = std::sin((o2 - o1) * D) * std::cos(a2 * D);
	const double x = std::cos(a1 * D) * std::sin(a2 * D) - std::sin(a1 * D) * std::cos(a2 * D) * std::cos((o2 - o1) * D);
	return std::fmod(std::atan2(y, x) / D + 360.0, 360.0);
}

}  // namespace great_circle
