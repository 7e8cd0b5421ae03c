// The ground the picture can show: a quadrilateral round the eye out to the ground's
// visibility, wide enough for the window's corners, and the range of the grid to walk.
// The terrain's culling tests cells against it; the eye's ground height comes with it.
#include "render/view.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include "world/scenery.h"
#include <algorithm>
#include <cmath>

namespace {

struct corner { float x, z; };

corner along(float psi_deg, float dist)
{
	const float a = psi_deg * con.degtorad;
	return {std::sin(a) * dist, -std::cos(a) * dist};   // heading 0 is north, -z
}

float reach(corner c) { return std::sqrt(c.x * c.x + c.z * c.z); }

// A world point kept inside the block, 0.1 degree in from its edges, and its grid cell.
void block_cell(float x, float z, int* i, int* j)
{
	const int p = env.planet == 1 ? 1 : 0;
	double lat, lon, ele;
	xdob_latlonel_with_xyz(lat, lon, ele, x, 0.0, z);
	const double s = env.lat_sou, n = s + (double)regn_jmax[p] / file_jmax[p];
	const double w = env.lon_wes, e = w + (double)regn_imax[p] / file_imax[p];
	lat = std::clamp(lat, s + 0.1, n - 0.1);
	lon = std::clamp(lon, w + 0.1, e - 0.1);
	double X, Y, Z;
	xdob_xyz_with_latlonel(X, Y, Z, lat, lon, 0.0);
	X = std::clamp(X, (double)env.lo_x, (double)env.hi_x);
	Z = std::clamp(Z, (double)env.lo_z, (double)env.hi_z);
	float vx, vy, vz;
	find_local_y((float)X, (float)Z, &vx, &vy, &vz, i, j, 0);
}


}  // namespace

void update_ground_cone(float dis_from_ground)
{
	const float w = (float)std::max(mnw.x_res_now, 1), h = (float)std::max(mnw.y_res_now, 1);
	const float fov_use = std::clamp(ren.FOV * std::sqrt(w * w + h * h) / w, 0.0f, 180.0f);
	const float half = std::min(fov_use * 0.5f, 89.0f);
	const float cos_half = std::cos(half * con.degtorad);
	const float vis = atm.vis_ground > 0.0f ? atm.vis_ground : 46300.0f;
	const float vis_dis_vert = std::max(vis, dis_from_ground + 100.0f);
	const float edge_dis = vis / cos_half;
	const float pitch = std::clamp(ren.final_the, -89.9f, 89.9f);
	const float f = std::sqrt(std::cos(pitch * con.degtorad));
	const float psi = ren.final_psi;
	// Level, a wedge from the eye out along the picture's side edges.
	const corner wedge[4] = {along(psi - half, f), along(psi - half, edge_dis * f), along(psi + half, edge_dis * f), along(psi + half, f)};
	// Looking down, the window's rectangle laid on the ground round the eye.
	const float down = std::sin(std::clamp(-pitch, 0.0f, 89.9f) * con.degtorad);
	const float hw = std::tan(half * con.degtorad) * vis_dis_vert * f * down * down, hh = hw * h / w;
	const float right[2] = {std::cos(psi * con.degtorad), std::sin(psi * con.degtorad)}, fwd[2] = {std::sin(psi * con.degtorad), -std::cos(psi * con.degtorad)};
	const float rect_side[4][2] = {{-hw, -hh}, {-hw, hh}, {hw, hh}, {hw, -hh}};
	const float limit = (ren.dis_fog_avail ? vis : edge_dis) + 1000.0f;
	const float push[4] = {-135.0f, -45.0f, 45.0f, 135.0f};
	corner c[4];
	for (int k = 0; k < 4; k++) {
		const corner r = {rect_side[k][0] * right[0] + rect_side[k][1] * fwd[0], rect_side[k][0] * right[1] + rect_side[k][1] * fwd[1]};
		c[k] = reach(r) > reach(wedge[k]) ? r : wedge[k];
		const corner out = along(psi + push[k], 1000.0f);   // a margin for cells straddling the edges
		c[k].x += out.x;
		c[k].z += out.z;
		const float d = reach(c[k]);
		if (d > limit) {
			c[k].x *= limit / d;
			c[k].z *= limit / d;
		}
		c[k].x += ren.view_xyz[0];
		c[k].z += ren.view_xyz[2];
	}
	float* xs[4] = {&ren.x0_cone_ground, &ren.x1_cone_ground, &ren.x2_cone_ground, &ren.x3_cone_ground};
	float* zs[4] = {&ren.z0_cone_ground, &ren.z1_cone_ground, &ren.z2_cone_ground, &ren.z3_cone_ground};
	float lo[2] = {ren.view_xyz[0], ren.view_xyz[2]}, hi[2] = {lo[0], lo[1]};
	for (int k = 0; k < 4; k++) {
		*xs[k] = c[k].x;
		*zs[k] = c[k].z;
		lo[0] = std::min(lo[0], c[k].x);
		hi[0] = std::max(hi[0], c[k].x);
		lo[1] = std::min(lo[1], c[k].z);
		hi[1] = std::max(hi[1], c[k].z);
	}
	ren.xyz_lo_cone_ground[0] = lo[0];
	ren.xyz_hi_cone_ground[0] = hi[0];
	ren.xyz_lo_cone_ground[1] = -1e9f;   // any height
	ren.xyz_hi_cone_ground[1] = 1e9f;
	ren.xyz_lo_cone_ground[2] = lo[1];
	ren.xyz_hi_cone_ground[2] = hi[1];
	ren.view_oct = (int)(std::fmod(std::fmod(psi, 360.0f) + 360.0f, 360.0f) / 45.0f) % 8 + 1;
	if (env.hi_x <= env.lo_x || env.hi_z <= env.lo_z) return;   // no scenery loaded yet
	// The grid's range: the cells of the box's corners, bracketing the eye's cell. The
	// searches leave the flight model's last ground plane as they found it.
	float ctr[3], nrm[3];
	std::copy(env.terrain_ctr, env.terrain_ctr + 3, ctr);
	std::copy(env.terrain_nrm, env.terrain_nrm + 3, nrm);
	static int ci = 0, cj = 0, ai = 0, aj = 0, bi = 0, bj = 0;   // each search starts from last frame's cell
	block_cell(ren.view_xyz[0], ren.view_xyz[2], &ci, &cj);
	block_cell(lo[0], lo[1], &ai, &aj);
	block_cell(hi[0], hi[1], &bi, &bj);
	const int p = env.planet == 1 ? 1 : 0;
	ren.ic_plot = ci;
	ren.jc_plot = cj;
	ren.i1_plot = std::clamp(std::min({ai, bi, ci}), 0, regn_imax[p] - 1);
	ren.i2_plot = std::clamp(std::max({ai, bi, ci}), 0, regn_imax[p] - 1);
	ren.j1_plot = std::clamp(std::min({aj, bj, cj}), 0, regn_jmax[p] - 1);
	ren.j2_plot = std::clamp(std::max({aj, bj, cj}), 0, regn_jmax[p] - 1);
	float vx, vy, vz;
	int i = ci, j = cj;
	ren.local_y_vp = find_local_y(ren.view_xyz[0], ren.view_xyz[2], &vx, &vy, &vz, &i, &j, 0);
	std::copy(ctr, ctr + 3, env.terrain_ctr);
	std::copy(nrm, nrm + 3, env.terrain_nrm);
	const int v = ren.view_type_act;
	if ((v == 1519 || v == 1520 || v == 1539) && ren.circ_dist > con.planet_rad) ren.local_y_vp = -ren.circ_dist;   // watching the planet from afar
}
