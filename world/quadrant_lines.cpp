// Linear features of a quadrant into the block's cells: each chain is cut where it
// crosses a cell's edges and diagonal, so that every piece lies on one triangle pair of
// the ground; power lines become towers linked to the next; a tidy pass then gives each
// record its two edge points, heading, length and normal.
#include "world/quadrant_lines.h"
#include "world/scenery.h"
#include "world/HL_WORLD.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// Half widths, metres, by list.
const float swi_of[6] = {18.0f, 4.0f, 3.0f, 0.0f, 0.2f, 50.0f};

std::vector<vec_lin_struct>& list_of(buc_struct& b, int kind)
{
	switch (kind) {
	case quad_roads: return b.vec_roads;
	case quad_trails: return b.vec_trail;
	case quad_rails: return b.vec_rails;
	case quad_power: return b.vec_power;
	case quad_taxis: return b.vec_taxis;
	default: return b.vec_river;
	}
}

bool is_road_kind(int kind) { return kind == quad_roads || kind == quad_trails || kind == quad_rails; }

using quad_cells = decltype(line_reader::cells);   // the quadrant's cells, inclusive

struct point_xz { double x, z; };

float heading_deg(double dx, double dz) { return (float)(std::atan2(dx, -dz) * 180.0 / M_PI); }   // from north, clockwise; -z is north

// The ground under a point and its cell, kept inside the quadrant.
float ground(double x, double z, int* i, int* j, const quad_cells& q)
{
	float vx, vy, vz;
	const float y = find_local_y((float)x, (float)z, &vx, &vy, &vz, i, j, 0);
	*i = intlim(*i, q.i_lo, q.i_hi);
	*j = intlim(*j, q.j_lo, q.j_hi);
	return y;
}

// A record of a point; roads, trails and rails over water stand 15 m up, on a bridge or
// causeway, and are marked wet until the tidy pass (in data[11]).
void add_record(int kind, int i, int j, double x, float y, double z, float code, bool wet)
{
	vec_lin_struct r{};
	int c = (int)code;
	wet = wet && is_road_kind(kind);
	if (wet) {
		y += 15.0f;
		if (c == 1) c = 2;
	}
	r.data[11] = wet ? 1.0f : 0.0f;
	r.data[0] = r.data[3] = (float)x;
	r.data[1] = r.data[4] = y;
	r.data[2] = r.data[5] = (float)z;
	r.data[8] = (float)c;
	list_of(buc[i][j], kind).push_back(r);
}

// Signed distance of a point from the line p-q, metres, positive to the left.
double side_of(double x, double z, const float* p, const float* q)
{
	const double ex = q[0] - p[0], ez = q[2] - p[2], len = std::sqrt(ex * ex + ez * ez);
	return len > 0.0 ? (ex * (z - p[2]) - ez * (x - p[0])) / len : 0.0;
}

// Where segment a-b meets edge p-q, as the parameter along a-b; -1 when it does not. A
// segment running along the edge (both ends within half a metre of its line) does not
// cross it.
double cross_t(const point_xz& a, const point_xz& b, const float* p, const float* q)
{
	if (std::fabs(side_of(a.x, a.z, p, q)) < 0.5 && std::fabs(side_of(b.x, b.z, p, q)) < 0.5) return -1.0;
	const double rx = b.x - a.x, rz = b.z - a.z, sx = q[0] - p[0], sz = q[2] - p[2];
	const double den = rx * sz - rz * sx;
	if (std::fabs(den) < 1e-9) return -1.0;
	const double t = ((p[0] - a.x) * sz - (p[2] - a.z) * sx) / den;
	const double u = ((p[0] - a.x) * rz - (p[2] - a.z) * rx) / den;
	return t > 1e-9 && t < 1.0 - 1e-9 && u >= 0.0 && u <= 1.0 ? t : -1.0;
}

// How far inside cell (i, j) a point lies, metres: the deeper of its two triangles, by
// the nearest edge; negative outside.
double depth_in_cell(int i, int j, double x, double z)
{
	auto tri = [&](const float* a, const float* b, const float* c) {
		const double sgn = side_of(c[0], c[2], a, b) >= 0.0 ? 1.0 : -1.0;
		return std::min({sgn * side_of(x, z, a, b), sgn * side_of(x, z, b, c), sgn * side_of(x, z, c, a)});
	};
	return std::max(tri(planexyz[i][j], planexyz[i][j + 1], planexyz[i + 1][j]), tri(planexyz[i + 1][j + 1], planexyz[i][j + 1], planexyz[i + 1][j]));
}

}  // namespace

void line_reader::start(int kind_, int i_from, int j_from, int imax, int jmax)
{
	kind = kind_;
	cells = {i_from, j_from, i_from + imax - 1, j_from + jmax - 1};
	have_old = false;
	prev_i = prev_j = -1;
	tower_pending = false;
}

void line_reader::point(double lat, double lon, bool last)
{
	double x, z;
	xz_on_ground(lat, lon, &x, &z);
	if (have_old) {
		if (kind == quad_power) towers(x, z, last);
		else segment(x, z, last);
	}
	old_x = x;
	old_z = z;
	have_old = !last;
	if (last) tower_pending = false;
}

// A segment from the old point: its ends and every crossing of a cell's edges or
// diagonal, each piece in the cell it lies in, in order from the old point; a piece
// that leaves its cell ends there (-999).
void line_reader::segment(double x, double z, bool last)
{
	const quad_cells& q = cells;
	const point_xz a{old_x, old_z}, b{x, z};
	int ia = 0, ja = 0, ib = 0, jb = 0;
	ground(a.x, a.z, &ia, &ja, q);
	ground(b.x, b.z, &ib, &jb, q);
	const double len = std::hypot(b.x - a.x, b.z - a.z);
	double ts[64];
	int nt = 0;
	const int i_lo = std::max(std::min(ia, ib) - 1, q.i_lo), i_hi = std::min(std::max(ia, ib) + 1, q.i_hi);
	const int j_lo = std::max(std::min(ja, jb) - 1, q.j_lo), j_hi = std::min(std::max(ja, jb) + 1, q.j_hi);
	for (int i = i_lo; i <= i_hi; i++)
		for (int j = j_lo; j <= j_hi; j++) {
			const float* c00 = planexyz[i][j];
			const float* c01 = planexyz[i][j + 1];
			const float* c11 = planexyz[i + 1][j + 1];
			const float* c10 = planexyz[i + 1][j];
			const double t[5] = {cross_t(a, b, c00, c01), cross_t(a, b, c00, c10), cross_t(a, b, c10, c11), cross_t(a, b, c01, c11),
			                     kind == quad_taxis ? -1.0 : cross_t(a, b, c01, c10)};
			for (double v : t)   // a crossing within half a metre of an end is that end
				if (v > 0.0 && v * len > 0.5 && (1.0 - v) * len > 0.5 && nt < 64) ts[nt++] = v;
		}
	std::sort(ts, ts + nt);
	nt = (int)(std::unique(ts, ts + nt, [&](double u, double v) { return (v - u) * len < 0.5; }) - ts);
	// Pieces between successive crossings; each piece in the cell its middle lies deepest
	// in, so that a piece along an edge or through a corner goes to one cell for certain.
	// A chain's pieces go on from the cell the last segment ended in.
	int ci = ia, cj = ja, pi = prev_i, pj = prev_j;
	double t0 = 0.0;
	for (int k = 0; k <= nt; k++) {
		const double t1 = k < nt ? ts[k] : 1.0;
		const double mx = a.x + (b.x - a.x) * 0.5 * (t0 + t1), mz = a.z + (b.z - a.z) * 0.5 * (t0 + t1);
		double best = -1e30;
		for (int i = i_lo; i <= i_hi; i++)
			for (int j = j_lo; j <= j_hi; j++) {
				const double d = depth_in_cell(i, j, mx, mz);
				if (d > best + 1e-6) { best = d; ci = i; cj = j; }
			}
		const double sx = a.x + (b.x - a.x) * t0, sz = a.z + (b.z - a.z) * t0;
		int gi = ci, gj = cj;
		const float sy = ground(sx, sz, &gi, &gj, q);
		const bool moved = pi >= 0 && (ci != pi || cj != pj);
		if (moved) {   // the piece leaves its cell here; a shore crossing counts as wet
			const bool wet = poly_is_wet(pi, pj) || poly_is_wet(ci, cj);
			std::vector<vec_lin_struct>& was = list_of(buc[pi][pj], kind);
			if (k == 0 && !was.empty()) was.back().data[8] = -999.0f;   // the last segment's end is this point
			else add_record(kind, pi, pj, sx, sy, sz, -999.0f, wet);
			add_record(kind, ci, cj, sx, sy, sz, 1.0f, wet);
		} else if (k > 0 || pi < 0)
			add_record(kind, ci, cj, sx, sy, sz, 1.0f, poly_is_wet(ci, cj));   // a chain's first point, or a bend over the diagonal
		pi = ci;
		pj = cj;
		t0 = t1;
	}
	int gi = ci, gj = cj;
	add_record(kind, ci, cj, b.x, ground(b.x, b.z, &gi, &gj, q), b.z, last ? -999.0f : 1.0f, poly_is_wet(ci, cj));
	prev_i = last ? -1 : ci;
	prev_j = last ? -1 : cj;
}

// Power lines: towers about every 500 m, each linked to the next by cell and index.
void line_reader::towers(double x, double z, bool last)
{
	const double dx = x - old_x, dz = z - old_z, len = std::sqrt(dx * dx + dz * dz);
	const int num = std::max(1, (int)std::lround(len / 500.0));
	for (int k = 0; k <= (last ? num : num - 1); k++) {
		const double tx = old_x + dx * k / num, tz = old_z + dz * k / num;
		int i = 0, j = 0;
		const float y = ground(tx, tz, &i, &j, cells);
		std::vector<vec_lin_struct>& v = buc[i][j].vec_power;
		vec_lin_struct r{};
		r.data[0] = r.data[3] = (float)tx;
		r.data[1] = r.data[4] = y;
		r.data[2] = r.data[5] = (float)tz;
		r.data[8] = last && k == num ? -999.0f : 1.0f;
		r.data[9] = -1.0f;   // no next tower yet
		v.push_back(r);
		if (tower_pending) {
			vec_lin_struct& prev = buc[tower_i][tower_j].vec_power[tower_n];
			prev.data[9] = (float)i;
			prev.data[10] = (float)j;
			prev.data[11] = (float)(v.size() - 1);
			prev.data[6] = heading_deg(tx - prev.data[0], tz - prev.data[2]);
		}
		tower_pending = true;
		tower_i = i;
		tower_j = j;
		tower_n = (int)v.size() - 1;
	}
}

// The tidy pass over the quadrant's cells for one list.
void line_reader::finish()
{
	const float swi = swi_of[kind];
	for (int i = cells.i_lo; i <= cells.i_hi; i++)
		for (int j = cells.j_lo; j <= cells.j_hi; j++) {
			std::vector<vec_lin_struct>& v = list_of(buc[i][j], kind);
			// Records on top of their successor go, but not a piece's end.
			for (size_t n = 0; n + 1 < v.size();) {
				const float* a = v[n].data;
				const float* b = v[n + 1].data;
				if (a[8] != -999.0f && std::hypot(a[0] - b[0], a[2] - b[2]) < 1.414f) {
					if (kind == quad_power) unlink_tower(i, j, (int)n);
					v.erase(v.begin() + (long)n);
				} else
					n++;
			}
			if (is_road_kind(kind))
				for (size_t n = 0; n + 1 < v.size(); n++)
					if (v[n].data[8] == 1.0f && v[n + 1].data[11] == 1.0f) v[n].data[8] = 3.0f;   // the last dry one before water
			if (kind == quad_power) {
				for (vec_lin_struct& r : v) {
					const int ni = (int)r.data[9], nj = (int)r.data[10], nn = (int)r.data[11];
					if (r.data[9] < 0.0f || ni < 0 || nj < 0 || ni >= regn_dim_i || nj >= regn_dim_j || nn < 0 || nn >= (int)buc[ni][nj].vec_power.size()) continue;
					const float* nx = buc[ni][nj].vec_power[nn].data;
					r.data[7] = fltlim(std::hypot(nx[0] - r.data[0], nx[2] - r.data[2]), 1.0f, 99999.9f);
					if (r.data[7] > 750.0f) r.data[8] = -999.0f;   // too far for one span
				}
				continue;
			}
			float run = 0.0f;
			for (size_t n = 0; n < v.size(); n++) {
				float* r = v[n].data;
				const bool has_prev = n > 0 && v[n - 1].data[8] != -999.0f, has_next = n + 1 < v.size() && r[8] != -999.0f;
				const float* p = has_prev ? v[n - 1].data : r;
				const float* x = has_next ? v[n + 1].data : r;
				const float len = std::hypot(x[0] - r[0], x[2] - r[2]);
				float psip1 = heading_deg(x[0] - r[0], x[2] - r[2]), psim1 = heading_deg(r[0] - p[0], r[2] - p[2]);
				if (!has_next) psip1 = psim1;
				if (!has_prev) psim1 = psip1;
				const float half = 0.5f * fltlim(fltwrap(psip1 - psim1, -180.0f, 180.0f), -135.0f, 135.0f) * 0.5f;
				const float mean = psim1 + 2.0f * half, mean_rad = mean * 0.0174532925f, c = std::cos(half * 0.0174532925f);
				const float ox = swi * std::cos(mean_rad) / c, oz = swi * std::sin(mean_rad) / c;
				r[3] = r[0] + ox;
				r[4] = r[1];
				r[5] = r[2] + oz;
				r[6] = psip1;
				r[7] = fltlim(len, 1.0f, 99999.9f);
				float th = 0.0f;
				if (is_road_kind(kind) && has_next && len > 1.0f) th = std::atan((x[1] - r[1]) / len);
				const float pr = psip1 * 0.0174532925f;
				r[9] = -std::sin(th) * std::sin(pr);
				r[10] = std::cos(th);
				r[11] = std::sin(th) * std::cos(pr);
				if (kind == quad_river) {   // the water's texture runs on along the river
					r[7] = run;
					run += len / swi * 0.25f;
					if (!has_next) run = 0.0f;
				}
				static const float car_dir[4] = {-1.1f, -0.9f, 0.9f, 1.1f};
				if (kind == quad_roads && n + 1 < v.size())
					buc[i][j].vec_hwy_car.push_back({(int)n, 0.01f + 0.98f * (std::rand() % 1000) / 999.0f, car_dir[std::rand() % 4]});
			}
			for (vec_lin_struct& rec : v) {
				float* r = rec.data;
				// The two edges either side of the centre line, once every heading is known.
				r[0] = 2.0f * r[0] - r[3];
				r[2] = 2.0f * r[2] - r[5];
				const int code = (int)r[8];
				const bool ok_code = is_road_kind(kind) ? (code == 1 || code == 2 || code == 3 || code == -999) : (code == 1 || code == -999);
				const bool in = inside_cell(i, j, r[0], r[2]) || inside_cell(i, j, r[3], r[5]) || inside_cell(i, j, 0.5f * (r[0] + r[3]), 0.5f * (r[2] + r[5]));
				if (!ok_code || !in) r[8] = 0.0f;
			}
		}
}

// A tower record removed: links to later towers of that cell move down by one.
void line_reader::unlink_tower(int i, int j, int n)
{
	for (int a = cells.i_lo; a <= cells.i_hi; a++)
		for (int b = cells.j_lo; b <= cells.j_hi; b++)
			for (vec_lin_struct& r : buc[a][b].vec_power)
				if (r.data[9] >= 0.0f && (int)r.data[9] == i && (int)r.data[10] == j && (int)r.data[11] > n) r.data[11] -= 1.0f;
	if (tower_pending && tower_i == i && tower_j == j && tower_n > n) tower_n--;
}

bool inside_cell(int i, int j, float x, float z)
{
	// Signed distance from each edge, metres; a point on an edge, within half a metre, is in.
	auto in_tri = [&](const float* a, const float* b, const float* c) {
		auto e = [&](const float* p, const float* q) {
			const double ex = q[0] - p[0], ez = q[2] - p[2], len = std::sqrt(ex * ex + ez * ez);
			return len > 0.0 ? (ex * (z - p[2]) - ez * (x - p[0])) / len : 0.0;
		};
		const double e0 = e(a, b), e1 = e(b, c), e2 = e(c, a);
		return (e0 >= -0.5 && e1 >= -0.5 && e2 >= -0.5) || (e0 <= 0.5 && e1 <= 0.5 && e2 <= 0.5);
	};
	if (i < 0 || j < 0 || i + 1 >= regn_dim_i || j + 1 >= regn_dim_j) return false;
	return in_tri(planexyz[i][j], planexyz[i][j + 1], planexyz[i + 1][j]) || in_tri(planexyz[i + 1][j + 1], planexyz[i][j + 1], planexyz[i + 1][j]);
}
