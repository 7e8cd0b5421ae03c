// A runway's outline: the strip from one end's overrun to the other's, as four corners
// in latitude, longitude and height. The map draws it; the terrain flattens under it.
#include "world/scenery.h"
#include "world/nav_data.h"
#include "core/HL_TYPES.h"
#include <cmath>

void plot_build_rwy(int apt_wrl, int rwy_wrl, float* corner_lat, float* corner_lon, float* corner_ele, int plot_runways)
{
	const vec_apt_struct& a = vec_apt[apt_wrl];
	const vec_rwy_struct& r = a.rwy[rwy_wrl];
	double over1, over2;
	ret_rwy_overruns(r, &over1, &over2);
	const double psi = r.psi_true * M_PI / 180.0;
	const double along_e = std::sin(psi), along_n = std::cos(psi);   // toward the far end
	const double half_w = 0.5 * r.width, back = 0.5 * r.len + over1, fwd = 0.5 * r.len + over2;
	const double m_per_deg_lat = con.planet_rad * M_PI / 180.0;
	const double m_per_deg_lon = m_per_deg_lat * std::fmax(std::cos(r.lat * M_PI / 180.0), 1e-6);
	const double along[4] = {-back, -back, fwd, fwd}, side[4] = {-half_w, half_w, half_w, -half_w};
	for (int c = 0; c < 4; c++) {
		const double e = along[c] * along_e + side[c] * along_n, n = along[c] * along_n - side[c] * along_e;
		corner_lat[c] = (float)(r.lat + n / m_per_deg_lat);
		corner_lon[c] = (float)(r.lon + e / m_per_deg_lon);
		corner_ele[c] = a.h;
	}
	(void)plot_runways;   // the map's pixels come with the map window
}
