// The height of the terrain grid under any point of the local frame: the cell found by
// the last call nearly always still holds the point, so the common path is one triangle
// test; a miss walks the grid toward the point.
#include "world/scenery.h"
#include "world/HL_WORLD.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>

namespace {

// The cell's two triangles, split along (i, j+1)-(i+1, j).
void tri_vertices(int i, int j, int t, const float* v[3])
{
	v[0] = t == 0 ? planexyz[i][j] : planexyz[i + 1][j + 1];
	v[1] = planexyz[i][j + 1];
	v[2] = planexyz[i + 1][j];
}

float edge(const float* a, const float* b, float x, float z) { return (b[0] - a[0]) * (z - a[2]) - (b[2] - a[2]) * (x - a[0]); }

bool in_tri(int i, int j, int t, float x, float z)
{
	const float* v[3];
	tri_vertices(i, j, t, v);
	const float e0 = edge(v[0], v[1], x, z), e1 = edge(v[1], v[2], x, z), e2 = edge(v[2], v[0], x, z);
	return (e0 >= 0.0f && e1 >= 0.0f && e2 >= 0.0f) || (e0 <= 0.0f && e1 <= 0.0f && e2 <= 0.0f);
}

int hit(int i, int j, float x, float z)
{
	if (in_tri(i, j, 0, x, z)) return 0;
	if (in_tri(i, j, 1, x, z)) return 1;
	return -1;
}

// A ship's deck: a plane through the deck's centre, tilted with the ship, moving with it.
float ship_deck(int b, float x, float z, float* vx, float* vy, float* vz)
{
	const float speed = b == 0 ? 15.0f : 10.0f, height = b == 0 ? 21.0f : 7.0f;
	const float deg = 0.0174532925f;
	const float psi = env.boat_psi[b] * deg, the = env.boat_the[b] * deg, phi = env.boat_phi[b] * deg;
	const float a = std::sin(phi) * std::cos(the), bb = std::sin(the);
	float* n = env.terrain_nrm;
	n[0] = a * std::cos(psi) - bb * std::sin(psi);
	n[1] = std::cos(the) * std::cos(phi);
	n[2] = bb * std::cos(psi) + a * std::sin(psi);
	env.terrain_ctr[0] = env.boat_x[b] + height * n[0];
	env.terrain_ctr[1] = env.boat_y[b] + height * n[1];
	env.terrain_ctr[2] = env.boat_z[b] + height * n[2];
	// Along the heading, the turn at the point's arm, and the pitch and roll rates at the deck.
	const float fx = std::sin(psi), fz = -std::cos(psi), rx = std::cos(psi), rz = std::sin(psi);
	const float ax = x - env.boat_x[b], az = z - env.boat_z[b], arm_f = ax * fx + az * fz, arm_r = ax * rx + az * rz;
	const float wpsi = env.boat_vpsi[b] * deg, wthe = env.boat_vthe[b] * deg, wphi = env.boat_vphi[b] * deg;
	*vx = speed * fx - wpsi * az - wthe * height * fx + wphi * height * rx;
	*vz = speed * fz + wpsi * ax - wthe * height * fz + wphi * height * rz;
	*vy = wthe * arm_f - wphi * arm_r;
	return env.terrain_ctr[1] - (x - env.terrain_ctr[0]) * n[0] - (z - env.terrain_ctr[2]) * n[2];
}

float sq(float a) { return a * std::fabs(a); }

// Small bumps of the ground by its roughness, and the feel of the surface.
float bumps(float x, float z)
{
	float y = env.roughness * (0.025f * sq(std::cos(0.2f * z)) + 0.025f * sq(std::sin(0.2f * x)) + 0.01f * sq(std::sin(x)) + 0.01f * sq(std::cos(z)) +
	                           0.005f * sq(std::sin(5.0f * x)) + 0.005f * sq(std::cos(5.0f * z)));
	const int t = env.surf_tex;
	if (t <= 49) y += 0.025f * (std::cos(z) + std::sin(x) + std::sin(4.0f * x) + std::cos(4.0f * z));
	else if (t == 164 || t == 170) y += 0.01f * (std::cos(z) + std::sin(x) + std::sin(4.0f * x) + std::cos(4.0f * z));
	else if (t == 165 || t == 171) y += 0.02f * (std::cos(2.0f * z) + std::sin(2.0f * x) + std::sin(4.0f * x) + std::cos(4.0f * z));
	else if (t == 166) y += 0.02f * (std::cos(4.0f * z) + std::sin(4.0f * x));
	else if (t == 167) y += 0.005f * (std::cos(4.0f * z) + std::sin(4.0f * x));
	return y;
}

}  // namespace

float find_local_y(float x, float z, float* vx, float* vy, float* vz, int* i_io, int* j_io, int fullcheck)
{
	const int p = env.planet == 1 ? 1 : 0;
	const int i_max = regn_imax[p] - 1, j_max = regn_jmax[p] - 1;
	int i = *i_io, j = *j_io;
	if (i == 0 && j == 0 && env.hi_x > env.lo_x && env.lo_z < env.hi_z) {
		i = (int)interp(env.lo_x, 0.0f, env.hi_x, (float)regn_imax[p], x, 0);
		j = (int)interp(env.hi_z, 0.0f, env.lo_z, (float)regn_jmax[p], z, 0);
	}
	i = intlim(i, 0, i_max);
	j = intlim(j, 0, j_max);
	int t = hit(i, j, x, z);
	if (t < 0) {
		// Walk toward the point until the cell stops moving or swings back and forth.
		int pi = -1, pj = -1;
		for (int pass = 0; pass < regn_dim_i + regn_dim_j; pass++) {
			const int oi = i, oj = j;
			const float* v = planexyz[i][j];
			if (v[0] < x && i < i_max) i++;
			else if (v[0] > x && i > 0) i--;
			if (v[2] > z && j < j_max) j++;
			else if (v[2] < z && j > 0) j--;
			if ((i == oi && j == oj) || (i == pi && j == pj)) break;
			pi = oi; pj = oj;
		}
		const int ci = i, cj = j;
		for (int di = -1; di <= 1 && t < 0; di++)
			for (int dj = -1; dj <= 1 && t < 0; dj++) {
				const int ti = ci + di, tj = cj + dj;
				if (ti < 0 || tj < 0 || ti > i_max || tj > j_max) continue;
				t = hit(ti, tj, x, z);
				if (t >= 0) { i = ti; j = tj; }
			}
		if (t < 0) t = 0;   // off the grid: the nearest cell's plane carries on
	}
	*i_io = i;
	*j_io = j;
	*vx = *vy = *vz = 0.0f;
	if (fullcheck && net.getting_terrain)   // the ground comes from outside
		return env.terrain_ctr[1] - (x - env.terrain_ctr[0]) * env.terrain_nrm[0] - (z - env.terrain_ctr[2]) * env.terrain_nrm[2];
	if (fullcheck && env.over_obs) {   // on a runway's deck or an object's roof, level where it was found
		const double up[3] = {env.obj_x, env.obj_y_top + con.planet_rad, env.obj_z};
		const double len = std::sqrt(up[0] * up[0] + up[1] * up[1] + up[2] * up[2]);
		env.terrain_ctr[0] = env.obj_x; env.terrain_ctr[1] = env.obj_y_top; env.terrain_ctr[2] = env.obj_z;
		for (int k = 0; k < 3; k++) env.terrain_nrm[k] = (float)(up[k] / len);
		return (float)(env.obj_y_top - ((x - env.obj_x) * up[0] + (z - env.obj_z) * up[2]) / up[1]);
	}
	if (fullcheck && (env.over_carr || env.over_frig)) return ship_deck(env.over_carr ? 0 : 1, x, z, vx, vy, vz);
	const float* v[3];
	tri_vertices(i, j, t, v);
	const float dx12 = v[1][0] - v[0][0], dy12 = v[1][1] - v[0][1], dz12 = v[1][2] - v[0][2];
	const float dx13 = v[2][0] - v[0][0], dy13 = v[2][1] - v[0][1], dz13 = v[2][2] - v[0][2];
	const float det = dx13 * dz12 - dx12 * dz13;
	for (int k = 0; k < 3; k++) env.terrain_ctr[k] = v[0][k];
	if (std::fabs(det) < 1.0f) {   // a flat-folded triangle: its corner's height
		env.terrain_nrm[0] = env.terrain_nrm[2] = 0.0f;
		env.terrain_nrm[1] = 1.0f;
		return v[0][1];
	}
	const float nx = -(dy13 * dz12 - dy12 * dz13) / det, nz = -(dy13 * dx12 - dy12 * dx13) / (-det);
	const float ny2 = 1.0f - nx * nx - nz * nz;
	env.terrain_nrm[0] = nx;
	env.terrain_nrm[1] = ny2 >= 0.0f ? std::sqrt(ny2) : -std::sqrt(-ny2);
	env.terrain_nrm[2] = nz;
	float y = env.terrain_ctr[1] - (x - env.terrain_ctr[0]) * nx - (z - env.terrain_ctr[2]) * nz;
	if (fullcheck) y += bumps(x, z);
	return y;
}

// A place's x and z where it stands on the ground: away from the frame's reference the
// local vertical leans, so the point at sea level is a little off the point on a hill.
void xz_on_ground(double lat, double lon, double* x, double* z)
{
	double y;
	xdob_xyz_with_latlonel(*x, y, *z, lat, lon, 0.0);
	for (int pass = 0; pass < 2; pass++) {
		int i = 0, j = 0;
		float vx, vy, vz;
		const float g = find_local_y((float)*x, (float)*z, &vx, &vy, &vz, &i, &j, 0);
		double la, lo, ele;
		xdob_latlonel_with_xyz(la, lo, ele, *x, g, *z);
		xdob_xyz_with_latlonel(*x, y, *z, lat, lon, ele);
	}
}
