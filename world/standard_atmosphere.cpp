// The standard day of each planet: density and temperature against height, linear
// between the points of the published tables.
#include "world/HL_WORLD.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"

namespace {

// Earth: feet and slugs per cubic foot, as the table is published.
const float earth_rho[][2] = {
	{0, 0.0023769f}, {10000, 0.001756f}, {20000, 0.001267f}, {30000, 0.0008907f}, {40000, 0.0005873f},
	{50000, 0.0003639f}, {60000, 0.0002256f}, {70000, 0.0001399f}, {80000, 8.594e-05f}, {90000, 5.253e-05f},
	{100000, 3.211e-05f}, {110000, 2.001e-05f}, {120000, 1.27e-05f}, {130000, 8.19e-06f}, {140000, 5.364e-06f},
	{150000, 3.564e-06f}, {160000, 2.433e-06f}, {170000, 1.693e-06f}, {180000, 1.2e-06f}, {190000, 8.589e-07f},
	{200000, 6.061e-07f}, {206000, 5e-07f}, {212000, 4e-07f}, {221000, 3e-07f}, {232500, 2e-07f},
	{253000, 1e-07f}, {259000, 8e-08f}, {268000, 6e-08f}, {280000, 4e-08f}, {300000, 2e-08f}, {395000, 0}};
// Mars: metres and kg per cubic metre.
const float mars_rho[][2] = {
	{-25000, 0.074f}, {0, 0.01505f}, {5000, 0.009861f}, {10000, 0.006319f}, {15000, 0.004034f},
	{20000, 0.002588f}, {25000, 0.001603f}, {30000, 0.0009217f}, {35000, 0.0005215f}, {40000, 0.0002699f},
	{45000, 0.0001001f}, {50000, 0.0000402f}, {55000, 0}};
const float earth_temp[][2] = {{0, 15}, {11019, -56.5f}, {25100, -56.5f}, {47350, -2.5f}, {53445, -2.5f}, {80772, -92.5f}};
const float mars_temp[][2] = {{0, -60.15f}, {5000, -60.15f}, {40000, -131.15f}};

// Linear between points; held at the ends unless the first segment is to be continued below.
template <size_t N> float table(const float (&t)[N][2], float x, int extend_below)
{
	if (!(x == x)) x = 0.0f;
	if (x <= t[0][0]) return extend_below ? interp(t[0][0], t[0][1], t[1][0], t[1][1], x, 1) : t[0][1];
	for (size_t k = 1; k < N; k++)
		if (x <= t[k][0]) return interp(t[k - 1][0], t[k - 1][1], t[k][0], t[k][1], x, 0);
	return t[N - 1][1];
}

}  // namespace

float find_standard_rho(int planet, float h)
{
	if (planet == 1) return table(mars_rho, h, 0);
	return table(earth_rho, h * con.mtrstoft, 0) * con.endtomed;
}

float find_temp_cel(float h)
{
	if (env.planet == 1) return table(mars_temp, h, 1) + (con.sl_T_cel - mars_temp[0][1]);
	return table(earth_temp, h, 1) + (con.sl_T_cel - earth_temp[0][1]);
}

float find_current_rho_rat()
{
	float baro_rat, temp_rat;
	if (env.planet == 1) {
		baro_rat = con.sl_P_pas / 920.0f;
		temp_rat = (con.sl_T_cel + 273.15f) / 213.15f;
	} else {
		baro_rat = con.sl_P_pas / 101325.0f;
		temp_rat = (con.sl_T_cel + 273.15f) / 288.15f;
	}
	return temp_rat > 0.0f ? baro_rat / temp_rat : 1.0f;
}
