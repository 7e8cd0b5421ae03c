// The finished block: the buildings the airports stand with, their towers, the objects
// that mark the radio aids, a fire on some dry hillside, and boats on water near a shore.
#include "world/scenery.h"
#include "world/nav_data.h"
#include "world/HL_WORLD.h"
#include "render/HL_GRAPH.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

constexpr double deg = M_PI / 180.0;



bool strictly_in_block(double lat, double lon)
{
	const int p = env.planet == 1 ? 1 : 0;
	return lat > env.lat_sou && lat < env.lat_sou + lat_secs[p] && lon > env.lon_wes && lon < env.lon_wes + lon_secs[p];
}

void queue_at(double lat, double lon, float psi, float dh, const std::string& name, int typ)
{
	double x, z;
	xz_on_ground(lat, lon, &x, &z);
	MPSP_manage_obs_lis((float)x, (float)z, psi, dh, name, typ, 1);
}

void airport_buildings()
{
	for (int l = 0; l <= apt_lcl_max; l++) {
		const vec_apt_struct& a = vec_apt[apt_lcl_to_wrl[l]];
		if (a.def_bld && !a.rwy.empty()) {
			const vec_rwy_struct& r = a.rwy[0];
			const double s = std::fmax(r.width * 4.2, 80.0), len = r.len * 0.35, psi = r.psi_true * deg;
			const double fe = std::sin(psi), fn = std::cos(psi);   // along the runway
			const double re = std::cos(psi), rn = -std::sin(psi);  // to its right
			for (int k = 1; k <= 4; k++) {
				const double along = len - 45.0 * k;
				double lat, lon;
				latlon_offset(r.lat, r.lon, s * re + along * fe, s * rn + along * fn, &lat, &lon);
				if (ret_latlon_inreg(lat, lon) && !in_runway(lat, lon)) queue_at(lat, lon, r.psi_true, 0.0f, "hangar", 94);
			}
		}
		if (a.twr_vis && (a.twr_lat != 0.0f || a.twr_lon != 0.0f) && ret_latlon_inreg(a.twr_lat, a.twr_lon))
			queue_at(a.twr_lat, a.twr_lon, 0.0f, a.twr_hgt, a.apt_name, 1);
	}
}

void navaid_objects()
{
	for (const vec_nav_struct& n : vec_nav) {
		if (!n.inreg || !strictly_in_block(n.lat, n.lon) || std::strcmp(n.nav_id, "----") == 0) continue;   // the ships carry their own
		switch (n.type) {
		case nav_ndb: queue_at(n.lat, n.lon, 0.0f, 0.0f, "NAVAID: NDB", 9); break;
		case nav_vor: queue_at(n.lat, n.lon, 0.0f, 0.0f, "NAVAID: VOR", 10); break;
		case nav_ils: queue_at(n.lat, n.lon, n.psi_true, 0.0f, "NAVAID: ILS", 11); break;
		case nav_loc: queue_at(n.lat, n.lon, n.psi_true, 0.0f, "NAVAID: LOC", 11); break;
		case nav_gs: queue_at(n.lat, n.lon, 0.0f, 0.0f, "NAVAID: SLO", 12); break;
		case nav_om: case nav_mm: case nav_im: queue_at(n.lat, n.lon, 0.0f, 0.0f, "NAVAID: MAR", 13); break;
		default: break;
		}
	}
}

// A fire keeps burning where it was after a step; else the steepest dry hillside found
// by a random sampling of the block takes it.
void place_fire(int typeshift)
{
	const int p = env.planet == 1 ? 1 : 0;
	scn.fire_avail = 0;
	if (typeshift != 1)
		for (const auto& f : scn.firexyz)
			if (f[0] >= planexyz[20][20][0] && f[0] <= planexyz[regn_imax[p]][regn_jmax[p]][0] && f[2] <= planexyz[20][20][2] &&
			    f[2] >= planexyz[regn_imax[p]][regn_jmax[p]][2])
				scn.fire_avail = 1;
	if (scn.fire_avail) return;
	for (auto& f : scn.firexyz) f[0] = f[1] = f[2] = -9.9e9f;   // none until a hillside takes it
	float best = 0.0f;
	for (int i = 20; i <= regn_imax[p] - 20; i += 10)
		for (int j = 20; j <= regn_jmax[p] - 20; j += 10) {
			if (poly_is_wet(i, j)) continue;
			const float slope = std::hypot(planenrml[i][j][0], planenrml[i][j][2]);
			if (slope > best && ran01() < 0.1f) {
				best = slope;
				scn.fire_avail = 1;
				scn.fire_on = 1;
				for (auto& f : scn.firexyz) { f[0] = planexyz[i][j][0]; f[1] = planexyz[i][j][1]; f[2] = planexyz[i][j][2]; }
			}
		}
}

// Boats out of the block come back on water near a shore, well apart from each other.
void place_boats()
{
	const int p = env.planet == 1 ? 1 : 0;
	for (int b = 0; b < boat_max; b++) {
		if (ret_xz_inreg(env.boat_x[b], env.boat_z[b])) continue;
		for (int i = 50; i <= regn_imax[p] - 50; i += 5)
			for (int j = 50; j <= regn_jmax[p] - 50; j += 5) {
				if (!poly_is_wet(i, j)) continue;
				int dry = 0;
				for (int di = -10; di <= 10; di += 2)
					for (int dj = -10; dj <= 10; dj += 2) dry += !poly_is_wet(i + di, j + dj);
				if (dry < 1 || dry > 20) continue;   // near a shore, not in open sea
				const float cx = 0.5f * (planexyz[i][j][0] + planexyz[i + 1][j + 1][0]), cy = 0.5f * (planexyz[i][j][1] + planexyz[i + 1][j + 1][1]),
				            cz = 0.5f * (planexyz[i][j][2] + planexyz[i + 1][j + 1][2]);
				bool apart = true;
				for (int o : {0, 1, 3, 4})
					if (o != b && std::hypot(env.boat_x[o] - cx, env.boat_z[o] - cz) <= 10000.0f) apart = false;
				double lat, lon, ele;
				xdob_latlonel_with_xyz(lat, lon, ele, cx, cy, cz);
				if (!apart || ele < -0.5) continue;
				env.boat_x[b] = cx;
				env.boat_y[b] = cy;
				env.boat_z[b] = cz;
			}
	}
}

}  // namespace

// Whether a place lies on any runway of the block's airports, overruns included.
int in_runway(double lat, double lon)
{
	for (int l = 0; l <= apt_lcl_max; l++) {
		const vec_apt_struct& a = vec_apt[apt_lcl_to_wrl[l]];
		for (const vec_rwy_struct& r : a.rwy)
			if (r.num_str[0] != 'x' && on_runway(r, lat, lon)) return 1;
	}
	return 0;
}

void MP_finish_planet(int typeshift)
{
	airport_buildings();
	navaid_objects();
	if (env.planet == 0) place_fire(typeshift);
	place_boats();
}
