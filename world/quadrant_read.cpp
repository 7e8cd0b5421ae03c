// Reading one quadrant file into the block: the vertices with their land codes and
// texture corners, the fold-over repair, the city pattern, the ground under the runways,
// and the objects, linear features and texture names checked on the way through.
#include "world/scenery.h"
#include "world/quadrant_file.h"
#include "world/quadrant_lines.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <strings.h>

namespace {

int planet() { return env.planet == 1 ? 1 : 0; }

void scenery_alert(const char* what, const std::string& path)
{
	NB_ALERT(what, "The file is", ret_host_path(path), "", alert_fatal);
}

// The file that serves this square: a custom package's at version 650 first, else ours.
int open_quadrant(XMappedFile& file, quad_cursor& c, const std::string& name, std::string* path)
{
	const char* nav_folder = planet() ? "Mars nav data:" : "Earth nav data:";
	for (const std::string& pkg : plat_list_folders(ret_host_path(cus_path).c_str())) {
		const std::string p = cus_path + pkg + ":" + nav_folder + name;
		if (file.retry(p.c_str()) && MAP_check_file(quad_file_type, &file, file.mBegin, &c.c_use, &c.c_max, "650")) {
			str_to_buf(stl.custom_scene_path, cus_path + pkg + ":");
			c.add = file.mBegin;
			*path = p;
			return 650;
		}
	}
	const std::string p = (planet() ? man_path : ean_path) + name;
	if (!file.retry(p.c_str())) return 0;
	for (const char* v : {"650", "631", "61"})
		if (MAP_check_file(quad_file_type, &file, file.mBegin, &c.c_use, &c.c_max, v)) {
			c.add = file.mBegin;
			*path = p;
			return std::atoi(v);
		}
	return 0;
}

void set_tex_corners(int i, int j, const land_code_parts& p)
{
	if (p.R < 1 || p.R > 4) return;
	const float n = (float)(p.T + 1);
	float s1, t1;
	switch (p.R) {
	case 4: s1 = p.I / n; t1 = p.J / n; break;
	case 3: s1 = (p.T - p.J) / n; t1 = p.I / n; break;
	case 2: s1 = (p.T - p.I) / n; t1 = (p.T - p.J) / n; break;
	default: s1 = p.J / n; t1 = (p.T - p.I) / n; break;
	}
	const float s2 = s1 + 1.0f / n, t2 = t1 + 1.0f / n;
	const float corners[5][4][2] = {
		{},
		{{s1, t2}, {s2, t2}, {s2, t1}, {s1, t1}},
		{{s2, t2}, {s2, t1}, {s1, t1}, {s1, t2}},
		{{s2, t1}, {s1, t1}, {s1, t2}, {s2, t2}},
		{{s1, t1}, {s1, t2}, {s2, t2}, {s2, t1}},
	};
	std::memcpy(planest[i][j], corners[p.R], sizeof planest[i][j]);
}

// Whether vertex p lies more than 10 m past the line a-b on the side away from 'good',
// a point known to be on the right side: the coordinate on the line is taken along the
// axis the line spreads over most.
bool past_line(const float* p, const float* a, const float* b, const float* good)
{
	const float dx = b[0] - a[0], dz = b[2] - a[2];
	if (std::fabs(dx) >= std::fabs(dz)) {
		const float zl = a[2] + (p[0] - a[0]) * dz / dx;
		const float gz = a[2] + (good[0] - a[0]) * dz / dx;
		return good[2] < gz ? p[2] > zl + 10.0f : p[2] < zl - 10.0f;
	}
	const float xl = a[0] + (p[2] - a[2]) * dx / dz;
	const float gx = a[0] + (good[2] - a[2]) * dx / dz;
	return good[0] > gx ? p[0] < xl - 10.0f : p[0] > xl + 10.0f;
}

// The sphere's projection can fold a cell over: a vertex that crossed the line through
// its south and west neighbours goes back north-east, one past its north and east
// neighbours goes back south-west, in steps of 10 m.
void untwist(int i_from, int j_from, int imax, int jmax)
{
	for (int j = j_from + 1; j < j_from + jmax - 1; j++)
		for (int i = i_from + 1; i < i_from + imax - 1; i++) {
			float* v = planexyz[i][j];
			const float* s = planexyz[i][j - 1];
			const float* w = planexyz[i - 1][j];
			const float* ne = planexyz[i + 1][j - 1];   // the cell's far corner: on the proper side
			for (int k = 0; k < 100000 && past_line(v, s, w, ne) && v[0] < s[0] && v[2] > w[2]; k++) { v[0] += 10.0f; v[2] -= 10.0f; }
			const float* n = planexyz[i][j + 1];
			const float* e = planexyz[i + 1][j];
			const float* sw = planexyz[i - 1][j + 1];
			for (int k = 0; k < 100000 && past_line(v, n, e, sw) && v[0] > n[0] && v[2] < e[2]; k++) { v[0] -= 10.0f; v[2] += 10.0f; }
		}
}

void city_pattern(int i_from, int j_from, int imax, int jmax)
{
	const int p = planet();
	for (int i = i_from; i <= i_from + imax; i++)
		for (int j = j_from; j <= j_from + jmax; j++)
			if (landuse[i][j] == 1) landuse[i][j] = 80;
	for (int i = i_from; i <= i_from + imax; i++)
		for (int j = j_from; j <= j_from + jmax; j++) {
			if (landuse[i][j] != 80) continue;
			bool dense = true;
			for (int di = -2; di <= 2 && dense; di += 2)
				for (int dj = -2; dj <= 2 && dense; dj += 2)
					dense = landuse[intlim(i + di, 0, regn_imax[p])][intlim(j + dj, 0, regn_jmax[p])] >= 80;
			if (!dense) continue;
			landuse[i][j] = 81;
			if (i % 10 > 3 || j % 10 > 3) continue;
			landuse[i][j] = 82;
			if (i % 8 <= 1 && j % 8 <= 1) landuse[i][j] = 83;
		}
}

void set_vertex_ele(int i, int j, double ele)
{
	double lat, lon, old, x, y, z;
	xdob_latlonel_with_xyz(lat, lon, old, planexyz[i][j][0], planexyz[i][j][1], planexyz[i][j][2]);
	xdob_xyz_with_latlonel(x, y, z, lat, lon, ele);
	planexyz[i][j][0] = (float)x; planexyz[i][j][1] = (float)y; planexyz[i][j][2] = (float)z;
}

double vertex_ele(int i, int j)
{
	double lat, lon, ele;
	xdob_latlonel_with_xyz(lat, lon, ele, planexyz[i][j][0], planexyz[i][j][1], planexyz[i][j][2]);
	return ele;
}

// The ground under each runway of the square is made flat at its airport's height.
void flatten_runways(int lat_file, int lon_file, int i_from, int j_from, int imax, int jmax)
{
	const double lat_lo = lat_file - (j_from > 0 ? 0.05 : 0.0), lon_lo = lon_file - (i_from > 0 ? 0.05 : 0.0);
	for (int l = 0; l <= apt_lcl_max; l++) {
		const int apt_wrl = apt_lcl_to_wrl[l];
		vec_apt_struct& a = vec_apt[apt_wrl];
		for (size_t r = 0; r < a.rwy.size(); r++) {
			const vec_rwy_struct& w = a.rwy[r];
			if (!(w.lat > lat_lo && w.lat < lat_file + 1 && w.lon > lon_lo && w.lon < lon_file + 1)) continue;
			double cx, cy, cz;
			xdob_xyz_with_latlonel(cx, cy, cz, w.lat, w.lon, a.h);
			int apt_i = 0, apt_j = 0;
			float vx, vy, vz;
			const float ground = find_local_y((float)cx, (float)cz, &vx, &vy, &vz, &apt_i, &apt_j, 0);
			if ((a.apt_type == 17 || a.apt_type == 20) && cy - ground > 25.0) {
				a.apt_type = 20;   // a pad on a roof or a platform: given its height, the ground stays
				MPSP_manage_obs_lis((float)cx, (float)cz, 0.0f, (float)(cy - ground), "HELIPAD SO GIVE EXACT HEIGHT!", 105, 1);
				continue;
			}
			float c_lat[4], c_lon[4], c_ele[4];
			plot_build_rwy(apt_wrl, (int)r, c_lat, c_lon, c_ele, 0);
			double x1, y1, z1, x2, y2, z2;
			xdob_xyz_with_latlonel(x1, y1, z1, 0.5 * (c_lat[0] + c_lat[1]), 0.5 * (c_lon[0] + c_lon[1]), a.h);
			xdob_xyz_with_latlonel(x2, y2, z2, 0.5 * (c_lat[2] + c_lat[3]), 0.5 * (c_lon[2] + c_lon[3]), a.h);
			auto away_from_0 = [](double d) { return std::fabs(d) < 1.0 ? (d < 0.0 ? -1.0 : 1.0) : d; };
			const double dx = away_from_0(x2 - x1), dz = away_from_0(z2 - z1), half_w = 0.5 * w.width;
			const int k = std::max(1, (int)(w.len / 400.0f));
			int i_lo = std::max(apt_i - k, i_from), j_lo = std::max(apt_j - k, j_from);
			if (i_lo > 0) i_lo--;
			if (j_lo > 0) j_lo--;
			const int i_hi = std::min(apt_i + k, i_from + imax - 1), j_hi = std::min(apt_j + k, j_from + jmax - 1);
			for (int i = i_lo; i <= i_hi; i++)
				for (int j = j_lo; j <= j_hi; j++) {
					const double sa = (std::min(planexyz[i][j][0], planexyz[i][j + 1][0]) - half_w - x1) / dx;
					const double sb = (std::max(planexyz[i + 1][j][0], planexyz[i + 1][j + 1][0]) + half_w - x1) / dx;
					if (std::min(sa, sb) >= 1.0 || std::max(sa, sb) <= 0.0) continue;
					const double ta = (std::min(planexyz[i][j + 1][2], planexyz[i + 1][j + 1][2]) - half_w - z1) / dz;
					const double tb = (std::max(planexyz[i][j][2], planexyz[i + 1][j][2]) + half_w - z1) / dz;
					if (std::min(ta, tb) >= 1.0 || std::max(ta, tb) <= 0.0) continue;
					if (std::max(std::min(sa, sb), std::min(ta, tb)) >= std::min(std::max(sa, sb), std::max(ta, tb))) continue;
					const int ci[4] = {i, i, i + 1, i + 1}, cj[4] = {j, j + 1, j + 1, j};
					for (int c = 0; c < 4; c++)
						set_vertex_ele(ci[c], cj[c], is_apt[i][j] ? std::min((double)a.h, vertex_ele(ci[c], cj[c])) : (double)a.h);
					if (a.apt_type != 1 && a.apt_type != 17) continue;
					is_apt[i][j] = 1;
					for (int c = 0; c < 4; c++)
						if (landuse[ci[c]][cj[c]] >= 80 && landuse[ci[c]][cj[c]] <= 83) landuse[ci[c]][cj[c]] = 84;
				}
		}
	}
}

bool inside_square(double lat, double lon, int lat_file, int lon_file)
{
	return lat >= lat_file && lat <= lat_file + 1 && lon >= lon_file && lon <= lon_file + 1;
}

// An object of the file into the block's queue, heights in metres.
void queue_object(const quad_object& o)
{
	if (o.type == 1 || o.type == 4) return;   // reserved
	double x, z;
	xz_on_ground(o.lat, o.lon, &x, &z);
	const float dh = o.psi_dy * con.fttomtrs;
	switch (o.type) {
	case 2: MPSP_manage_obs_lis((float)x, (float)z, 0.0f, dh, "block", o.psi_dy < 300.0f ? 2 : 90 + std::rand() % 4, 1); break;
	case 3: MPSP_manage_obs_lis((float)x, (float)z, 0.0f, dh, "radio tower", 3, 1); break;
	case 5: MPSP_manage_obs_lis((float)x, (float)z, 0.0f, dh, "cooling tower", 5, 1); break;
	case 6: MPSP_manage_obs_lis((float)x, (float)z, 0.0f, dh, "stacks", 6, 1); break;
	default: MPSP_manage_obs_lis((float)x, (float)z, o.psi_dy, 0.0f, rel_abs_custom_file_path(5, o.name), 8, 1); break;
	}
}

// Objects into the queue, linear features into the cells.
void read_objects_and_lists(quad_cursor& c, int version, int lat_file, int lon_file, int i_from, int j_from, const std::string& path)
{
	quad_object o;
	int r;
	while ((r = quad_read_object(c, &o)) == 1) {
		if (!inside_square(o.lat, o.lon, lat_file, lon_file)) {
			NB_ALERT("Found an object outside of the ENV file!", "This is not acceptable!", "The file is", ret_host_path(path), alert_fatal);
			return;
		}
		if (o.type < 1 || o.type > 8 || o.type == 7) { scenery_alert("Bad object type!", path); return; }
		queue_object(o);
	}
	if (r < 0) { scenery_alert("Scenery file ended inside its objects!", path); return; }
	const int p_ = planet();
	for (int l = 0; l < quad_num_lists(version); l++) {
		line_reader lines;
		lines.start(l, i_from, j_from, file_imax[p_], file_jmax[p_]);
		quad_point p;
		while ((r = quad_read_point(c, l == quad_taxis, &p)) == 1) {
			double lat = p.lat, lon = p.lon;
			if (l != quad_taxis) code_to_lat_lon(p.code, lat_file, lon_file, &lat, &lon);
			if (!inside_square(lat, lon, lat_file, lon_file)) { scenery_alert("Lat lon out of range for linear segment!", path); return; }
			lines.point(lat, lon, p.tag == 'e');
		}
		if (r < 0) { scenery_alert("Scenery file ended inside its linear features!", path); return; }
		lines.finish();
	}
}

// Texture names: each custom texture takes a slot of the block's table, shared with any
// other square that names the same file.
void read_textures(quad_cursor& c, int i_from, int j_from, int imax, int jmax)
{
	char name[quad_name_len + 1];
	for (int n = 0; n < quad_max_textures && quad_read_texture(c, name) == 1; n++) {
		if (!name[0] || strcasecmp(name, "untitled") == 0) continue;
		const std::string path = rel_abs_custom_file_path(18, name);
		int slot = -1;
		for (int t = 0; t < cus_tex_dim && slot < 0; t++)
			if (cus_tex_path[t] == path) slot = t;
		for (int t = 0; t < cus_tex_dim && slot < 0; t++)
			if (cus_tex_path[t].empty()) slot = t;
		if (slot < 0) continue;
		cus_tex_path[slot] = path;
		for (int i = i_from; i <= i_from + imax; i++)
			for (int j = j_from; j <= j_from + jmax; j++)
				if (!tex_use_is_other_quadrant[i][j] && landuse[i][j] == 1000 + n) {
					landuse[i][j] = (uint16_t)(1000 + slot);
					tex_use_is_other_quadrant[i][j] = 1;
				}
	}
}

}  // namespace

int quadrant_file_exists(int lat_file, int lon_file)
{
	XMappedFile file(nullptr, nullptr);
	quad_cursor c{nullptr, 0, 0};
	std::string path;
	char keep[sizeof stl.custom_scene_path];
	std::memcpy(keep, stl.custom_scene_path, sizeof keep);
	const int version = open_quadrant(file, c, return_latlon_str_ENV(lat_file, lon_file), &path);
	std::memcpy(stl.custom_scene_path, keep, sizeof keep);
	return version != 0;
}

std::string rel_abs_custom_file_path(int type, const std::string& name)
{
	const std::string pkg = stl.custom_scene_path[0] ? std::string(stl.custom_scene_path) : (planet() ? man_path : ean_path);
	if (type == 5) return pkg + "custom objects:" + name + ".obj";
	return pkg + "custom terrain textures:" + name + ".bmp";
}

void read_a_quadrant(int lat_file, int lon_file, int lat_os, int lon_os, int force_read)
{
	const int p = planet();
	const int dlat = lat_file - env.lat_sou, dlon = (int)std::lround(dobwrap(lon_file - env.lon_wes, -180.0, 180.0));
	if (dlat < 0 || dlat >= (int)lat_secs[p] || dlon < 0 || dlon >= (int)lon_secs[p])
		NB_ALERT("Trying to read a lat/lon file that is out of range of the lat_sou/lon_wes region", "", "", "", alert_fatal);
	lat_file = intlim(lat_file, -90, 90);
	lon_file = (int)std::lround(dobwrap(lon_file, -179.0, 181.0));
	if (!ren.ground_is_vis && !force_read) return;
	stl.custom_scene_path[0] = 0;
	XMappedFile file(nullptr, nullptr);
	quad_cursor c{nullptr, 0, 0};
	std::string path;
	const int version = open_quadrant(file, c, return_latlon_str_ENV(lat_file, lon_file), &path);
	if (!version) return;   // no file: the square stays sea at sea level

	const int imax = file_imax[p], jmax = file_jmax[p], i_from = lon_os * imax, j_from = lat_os * jmax;
	if (i_from + imax > regn_imax[p] || j_from + jmax > regn_jmax[p]) return;
	for (int j = j_from; j <= j_from + jmax; j++)
		for (int i = i_from; i <= i_from + imax; i++) {
			quad_vertex v;
			if (quad_read_vertex(c, &v) < 0) { scenery_alert("Scenery file ended inside its terrain!", path); return; }
			double lat, lon, x, y, z;
			code_to_lat_lon(v.pos_code, lat_file, lon_file, &lat, &lon);
			if (lat < lat_file - 0.001 || lat > lat_file + 1.001 || lon < lon_file - 0.001 || lon > lon_file + 1.001) {
				scenery_alert("Terrain lat/lon out of range!", path);
				return;
			}
			xdob_xyz_with_latlonel(x, y, z, lat, lon, v.elev_m);
			planexyz[i][j][0] = (float)x; planexyz[i][j][1] = (float)y; planexyz[i][j][2] = (float)z;
			const land_code_parts lc = split_land_code(v.land_code);
			landuse[i][j] = (uint16_t)std::min(lc.use, 1000 + cus_tex_dim - 1);
			ter_body_id[i][j] = lc.use < 1000 ? (char)(100 * lc.I + 10 * lc.J + lc.T) : 0;
			set_tex_corners(i, j, lc);
		}
	untwist(i_from, j_from, imax, jmax);
	if (p == 0) city_pattern(i_from, j_from, imax, jmax);
	flatten_runways(lat_file, lon_file, i_from, j_from, imax, jmax);
	read_objects_and_lists(c, version, lat_file, lon_file, i_from, j_from, path);
	read_textures(c, i_from, j_from, imax, jmax);
}
