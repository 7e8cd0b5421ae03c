// Where the fixed outside views stand: the runway end nearest the aircraft, the tower's
// or beacon's eye, or the carrier's island.
#include "render/view.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/nav_data.h"
#include <algorithm>
#include <cmath>

namespace {

const vec_apt_struct* local_airport()
{
	return vec_apt.empty() ? nullptr : &vec_apt[(size_t)std::clamp(msc.loc_apt_wrl, 0, (int)vec_apt.size() - 1)];
}

float dist2(const float a[3], const float b[3])
{
	return (a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]);
}

}  // namespace

void nearest_runway_end(const float ref[3], float spot[3])
{
	const vec_apt_struct* a = local_airport();
	float best = 9.9e9f;
	for (size_t r = 0; a && r < a->rwy.size(); r++) {
		const vec_rwy_struct& w = a->rwy[r];
		if (w.num_str[0] == 'x') continue;   // taxiway segments
		for (int end = 0; end < 2; end++) {
			const double hdg = (w.psi_true + (end ? 180.0 : 0.0)) * M_PI / 180.0, half = 0.5 * (w.len - 10.0);
			double lat, lon;
			latlon_offset(w.lat, w.lon, half * std::sin(hdg), half * std::cos(hdg), &lat, &lon);
			float p[3];
			xdob_xyz_with_latlonel(p, lat, lon, a->h + 1.8);
			const float d = dist2(p, ref);
			if (d < best) {
				best = d;
				std::copy(p, p + 3, spot);
			}
		}
	}
}

int tower_point(const float ref[3], float xyz[3])
{
	const vec_apt_struct* a = local_airport();
	float tower[3];
	bool have = true;
	if (a && (std::fabs(a->twr_lat) > 0.01f || std::fabs(a->twr_lon) > 0.01f)) xdob_xyz_with_latlonel(tower, a->twr_lat, a->twr_lon, a->h + a->twr_hgt);
	else if (a && (std::fabs(a->bcn_lat) > 0.01f || std::fabs(a->bcn_lon) > 0.01f)) xdob_xyz_with_latlonel(tower, a->bcn_lat, a->bcn_lon, a->h + 20.0);
	else if (a && !a->sta.empty()) xdob_xyz_with_latlonel(tower, a->sta[0].lat, a->sta[0].lon, a->h + 1.8);
	else have = false;
	const float carrier[3] = {env.boat_x[0], env.boat_y[0], env.boat_z[0]};
	const float dc = (ref[0] - carrier[0]) * (ref[0] - carrier[0]) + (ref[2] - carrier[2]) * (ref[2] - carrier[2]);
	const float dt = have ? (ref[0] - tower[0]) * (ref[0] - tower[0]) + (ref[2] - tower[2]) * (ref[2] - tower[2]) : 9.9e30f;
	if (have && dt <= dc) {
		std::copy(tower, tower + 3, xyz);
		return 1;
	}
	if (carrier[0] < -9e8f) return 0;   // no carrier in the block either
	// The island: 28 m to starboard, 11 m up, 35 m aft of the deck's centre.
	const float d = con.degtorad;
	float X, Y, Z;
	any_to_wrl(28.0f, 11.0f, 35.0f, &X, &Y, &Z, std::sin(env.boat_psi[0] * d), std::cos(env.boat_psi[0] * d), std::sin(env.boat_the[0] * d),
	           std::cos(env.boat_the[0] * d), std::sin(env.boat_phi[0] * d), std::cos(env.boat_phi[0] * d));
	xyz[0] = carrier[0] + X;
	xyz[1] = carrier[1] + Y;
	xyz[2] = carrier[2] + Z;
	return 2;
}
