// The ground each frame: the cells inside the view's ground cone, then one pass of
// triangle strips per land texture, water first and moving with the waves, then the cells
// that carry a texture of their own, then the blended borders between land types. A second
// texture unit lays cloud shadow, the landing light or the sun's glitter over it all. The
// map draws the same grid flat.
#include "render/terrain.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "render/textures.h"
#include "world/scenery.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

float water_phase = 0.0f;
bool map_drawing_2d = false;   // the map window's flat grid: water in its map colour
int sea_state_loaded = -1;
float wat_rgb_use[3];
int second_tex = 0;   // the extra unit's texture this frame: shadow, lamp or glitter; 0 none

// The sea's sixteen frames of one state, loaded when the sea first reaches that state.
void load_sea_state(int state)
{
	static const char* names[7] = {"1 Calm", "2 Smooth", "3 Slight", "4 Moderate", "5 Rough", "6 Very Rough", "7 High"};
	char path[160];
	for (int f = 0; f < 16; f++) {
		std::snprintf(path, sizeof path, "terrain:water -90+90 -180+180:%s:sea%02d.bmp", names[state], f + 1);
		OGL_texbmp(tex_load, 251 + state * 16 + f, filt_key_magenta_mip, bmp_path + path);
	}
	sea_state_loaded = state;
}

void water_st(const float* p, float* s, float* t)
{
	const float dx = p[0] - ren.wave_osx_units, dz = p[2] - ren.wave_osz_units;
	*s = dx * ren.cos_wave_psi_tpu - dz * ren.sin_wave_psi_tpu;
	*t = dx * ren.sin_wave_psi_tpu + dz * ren.cos_wave_psi_tpu;
}

// One side of a strip: (i, j) then (i, j + 1), so that the strip faces up.
void strip_pair(float (*xyz)[401][3], int i, int j, bool wet, float s)
{
	for (int k = 0; k <= 1; k++) {
		const float* p = xyz[i][j + k];
		glNormal3fv(planenrml[i][j + k]);
		if (wet) {
			float ws, wt;
			water_st(p, &ws, &wt);
			glTexCoord2f(ws, wt);
		} else {
			glTexCoord2f(s, (float)k);
		}
		if (second_tex) terrain_second_st(1, p);
		glVertex3fv(p);
	}
}

bool in_cone(float (*xyz)[401][3], int i, int j)
{
	const float* v = xyz[i][j + 1];
	const float b = ren.cone_buffer_ground;
	if (v[0] < ren.xyz_lo_cone_ground[0] - b || v[0] > ren.xyz_hi_cone_ground[0] + b || v[2] < ren.xyz_lo_cone_ground[2] - b ||
	    v[2] > ren.xyz_hi_cone_ground[2] + b)
		return false;
	const float cx[4] = {ren.x0_cone_ground, ren.x1_cone_ground, ren.x2_cone_ground, ren.x3_cone_ground};
	const float cz[4] = {ren.z0_cone_ground, ren.z1_cone_ground, ren.z2_cone_ground, ren.z3_cone_ground};
	if (!inside_cw_reg(cx[0], cz[0], cx[1], cz[1], v[0], v[2], b) || !inside_cw_reg(cx[2], cz[2], cx[3], cz[3], v[0], v[2], b)) return false;
	if (ren.dis_fog_avail) {
		const float dx = v[0] - ren.view_xyz[0], dz = v[2] - ren.view_xyz[2];
		return dx * dx + dz * dz <= ren.cone_dissqr_ground;
	}
	return inside_cw_reg(cx[1], cz[1], cx[2], cz[2], v[0], v[2], b) && inside_cw_reg(cx[3], cz[3], cx[0], cz[0], v[0], v[2], b);
}

}  // namespace

void terrain_mark_range(float (*xyz)[401][3], int draw_all)
{
	const int p = env.planet == 1 ? 1 : 0;
	const float* a = xyz[0][0];
	const float* c = xyz[std::min(1, regn_imax[p])][std::min(1, regn_jmax[p])];
	ren.cone_buffer_ground = std::sqrt((c[0] - a[0]) * (c[0] - a[0]) + (c[2] - a[2]) * (c[2] - a[2]));
	const float reach = atm.vis_ground + ren.cone_buffer_ground;
	ren.cone_dissqr_ground = reach * reach;
	for (int i = ren.i1_plot; i <= ren.i2_plot; i++)
		for (int j = ren.j1_plot; j <= ren.j2_plot; j++) ter_inrange[i][j] = draw_all || in_cone(xyz, i, j);
}

int inside_cw_reg(float x1, float z1, float x2, float z2, float x, float z, float buffer)
{
	const float dx = x2 - x1, dz = z2 - z1;
	if (dx == 0.0f && dz == 0.0f) return 0;
	if (std::fabs(dx) >= std::fabs(dz)) {   // the edge's z at the point's x
		const float ze = z1 + (x - x1) * dz / dx;
		return dx > 0.0f ? z >= ze - buffer : z <= ze + buffer;
	}
	const float xe = x1 + (z - z1) * dx / dz;   // the edge's x at the point's z
	return dz > 0.0f ? x <= xe + buffer : x >= xe - buffer;
}

int water_tex()
{
	water_phase += mnw.prd_FM * 0.5f;   // a two-second loop
	water_phase -= std::floor(water_phase);
	const float sea = (atm.set_wind_spd_kts[0] * 0.1f + atm.wave_height * 1.5f) * 3.0f;
	const int state = (int)std::lround(std::clamp(sea, 0.0f, 6.0f));
	const int frame = (int)std::lround(std::clamp(water_phase * 15.0f, 0.0f, 15.0f));
	if (state != sea_state_loaded && plat_has_gl()) load_sea_state(state);
	return state * 16 + 251 + frame;
}

void set_water_land_color_state(int is_water, int is_clear, int tex, int fog, int deR, int deW)
{
	OGL_setstate(fog, second_tex ? 2 : 1, is_water ? st_unlit : st_lit, is_clear ? st_blend : st_opaque, deR, deW);
	OGL_bind(tex, 0);
	if (second_tex) terrain_second_env(1, second_tex);
	if (is_water && map_drawing_2d) OGL_setcolorRGBA(0.176470593f, 0.254901975f, 0.294117659f, 1.0f, 1);
	else if (is_water) OGL_setcolorRGBA(wat_rgb_use[0], wat_rgb_use[1], wat_rgb_use[2], 1.0f, 1);
	else OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 0);
}

namespace {

// The landing light as a point light on the ground's vertices; the water at its noon colour
// under it.
void landing_light_on()
{
	const GLfloat white[4] = {1.0f, 1.0f, 1.0f, 1.0f};
	const GLfloat at[4] = {ren.light_xyz[0], ren.light_xyz[1], ren.light_xyz[2], 1.0f};
	glLightfv(GL_LIGHT1, GL_AMBIENT, white);
	glLightfv(GL_LIGHT1, GL_DIFFUSE, white);
	glLightfv(GL_LIGHT1, GL_POSITION, at);
	glLightf(GL_LIGHT1, GL_CONSTANT_ATTENUATION, 0.0f);
	glLightf(GL_LIGHT1, GL_LINEAR_ATTENUATION, 0.0f);
	glLightf(GL_LIGHT1, GL_QUADRATIC_ATTENUATION, 0.01f / std::clamp(veh[0].lan_lite_power, 0.01f, 10.0f));
	glEnable(GL_LIGHT1);
	std::copy(ren.raw_wat_rgb[0][256], ren.raw_wat_rgb[0][256] + 3, wat_rgb_use);
}

// Pass one for land texture t: strips along i, one a column j.
void strips_of(float (*xyz)[401][3], int t, int sea_tex, int fog, int deR, int deW, int j_per_file)
{
	const bool wet = ren.tex_is_water[t];
	const int tiles = std::max(ren.tex_tiles[t], 1);
	const float s_rep = 1.0f / (float)tiles;
	set_water_land_color_state(wet, 0, wet ? sea_tex : t, fog, deR, deW);
	for (int j = ren.j1_plot; j <= ren.j2_plot; j++) {
		// Each column starts its tiles at its own place, so that the strips don't line up.
		const int i_offset = (int)std::lround((float)ren.ic_plot / tiles) * tiles - (int)((tiles + 1) * randrat[(j % j_per_file) % randrat_max]);
		bool open = false;
		for (int i = ren.i1_plot; i <= ren.i2_plot + 1; i++) {
			bool in = false;
			if (i <= ren.i2_plot && ter_inrange[i][j]) {
				const int c = PLOT_planetex[i][j];
				in = c == t || (c == 7000 && BORD_planetex[i][j][0] == t) || (t == 0 && c >= 1000 && c <= 6999);   // land under a cell's own picture
			}
			if (!in && !open) continue;
			if (!open) {
				glBegin(GL_TRIANGLE_STRIP);
				open = true;
			}
			strip_pair(xyz, i, j, wet, (float)(i + i_offset) * s_rep);
			if (!in) {
				glEnd();
				open = false;
			}
		}
	}
}

// A cell as two triangles facing up, unit 0's corner coordinates given in planest's order
// (0,0), (0,1), (1,1), (1,0); a mask on unit 1 spans the cell the same way.
void cell_triangles(float (*xyz)[401][3], int i, int j, const float (*st)[2], bool mask, int second_unit)
{
	static const int corner[6][2] = {{0, 1}, {1, 0}, {0, 0}, {0, 1}, {1, 1}, {1, 0}};
	static const int st_of[2][2] = {{0, 1}, {3, 2}};
	static const float unit_st[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
	glBegin(GL_TRIANGLES);
	for (const auto& k : corner) {
		const int ii = i + k[0], jj = j + k[1], c = st_of[k[0]][k[1]];
		glNormal3fv(planenrml[ii][jj]);
		glTexCoord2f(st[c][0], st[c][1]);
		if (mask) glMultiTexCoord2f(GL_TEXTURE1, unit_st[c][0], unit_st[c][1]);
		if (second_unit) terrain_second_st(second_unit, xyz[ii][jj]);
		glVertex3fv(xyz[ii][jj]);
	}
	glEnd();
}

// Pass three: each bordered cell's upper layers, a tile of the land texture through its mask.
void border_layers(float (*xyz)[401][3], int fog, int deR, int deW)
{
	const bool third = second_tex && ren.num_tex_units > 2;
	bool started = false;
	for (int i = ren.i1_plot; i <= ren.i2_plot; i++)
		for (int j = ren.j1_plot; j <= ren.j2_plot; j++) {
			if (PLOT_planetex[i][j] < 7000 || !ter_inrange[i][j]) continue;
			if (!started) {
				OGL_setstate(fog, third ? 3 : 2, st_lit, st_blend, deR, st_no_depth_write);
				if (third) terrain_second_env(2, second_tex);
				OGL_poly_offset(1.0f);
				OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 0);
				started = true;
			}
			for (int l = 1; l < 4 && BORD_planetex[i][j][l] != 9999; l++) {
				const int t = BORD_planetex[i][j][l];
				const int mask = BORD_alphatex[i][j][l];
				if (t >= land_tex_max || !ren.tex_vram[t] || mask >= tex_id_max || !ren.tex_vram[mask]) continue;   // a sheet that did not load: the base shows
				const float s = 1.0f / (float)std::max(ren.tex_tiles[t], 1);
				const float tile[4][2] = {{0, 0}, {0, 1}, {s, 1}, {s, 0}};
				OGL_bind(t, 0);
				OGL_bind(mask, 1);
				cell_triangles(xyz, i, j, tile, true, third ? 2 : 0);
			}
		}
	if (started) {
		OGL_poly_offset(0.0f);
		OGL_setstate(fog, 1, st_lit, st_opaque, deR, deW);
	}
}

}  // namespace

void terrain_grid_2d_3d(float (*xyz)[401][3], int dimensions, int draw_all, int do_borders)
{
	const int p = env.planet == 1 ? 1 : 0;
	if (ren.i2_plot < ren.i1_plot || ren.j2_plot < ren.j1_plot || ren.i2_plot >= regn_imax[p] || ren.j2_plot >= regn_jmax[p]) return;
	map_drawing_2d = dimensions == 2;
	std::copy(ren.wat_rgb, ren.wat_rgb + 3, wat_rgb_use);
	const bool lamp = dimensions == 3 && ren.plot_lan_litemap;
	if (lamp) landing_light_on();
	const int fog = dimensions == 3 ? st_fog_on : st_fog_off, deR = dimensions == 3 ? st_depth_read : st_no_depth_read,
	          deW = dimensions == 3 ? st_depth_write : st_no_depth_write;
	// The sea drifts with its waves; one texture spans 100 m, on the map 100 m of its scale.
	const float d = con.degtorad;
	float units_per_tex = 100.0f;
	if (dimensions == 3) {
		ren.wave_osx_units = std::remainder(ren.wave_osx_units + atm.wave_speed * std::sin(atm.wave_dir * d) * mnw.prd_FM, 2000.0f);
		ren.wave_osz_units = std::remainder(ren.wave_osz_units - atm.wave_speed * std::cos(atm.wave_dir * d) * mnw.prd_FM, 2000.0f);
	} else {
		const float ppm = mnw.map_pix_per_meter > 0.0f ? mnw.map_pix_per_meter : 1.0f;
		units_per_tex *= ppm;
		ren.wave_osx_units = mnw.map_os_x * ppm;
		ren.wave_osz_units = mnw.map_os_z * ppm;
	}
	ren.sin_wave_psi_tpu = std::sin(atm.wave_dir * d) / units_per_tex;
	ren.cos_wave_psi_tpu = std::cos(atm.wave_dir * d) / units_per_tex;
	terrain_mark_range(xyz, draw_all);
	second_tex = dimensions == 3 ? terrain_second_tex() : 0;
	const int units_used = second_tex ? 3 : 2;
	// Pass one: strips of each land texture, water first. The sun glitters on water only.
	const int sea_tex = water_tex();
	for (int t = 0; t < ren.num_land_texes; t++) {
		if (!ren.tex_is_water[t] && !ren.tex_vram[t]) continue;
		if (!ren.tex_is_water[t] && ren.plot_sun_reflect) {
			ren.plot_sun_reflect = ren.sha_or_lit_or_sun = 0;
			second_tex = 0;
		}
		strips_of(xyz, t, sea_tex, fog, deR, deW, file_jmax[p]);
	}
	// Pass two: the cells with pictures of their own, laid over the land beneath.
	bool offset = false;
	for (int i = ren.i1_plot; i <= ren.i2_plot; i++)
		for (int j = ren.j1_plot; j <= ren.j2_plot; j++) {
			const int c = PLOT_planetex[i][j];
			if (c < 1000 || c > 6999 || !ter_inrange[i][j]) continue;
			if (!offset) {
				OGL_setstate(fog, 1, st_lit, st_blend, deR, st_no_depth_write);
				OGL_poly_offset(1.0f);
				OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 0);
				offset = true;
			}
			OGL_bind(c, 0);
			cell_triangles(xyz, i, j, planest[i][j], false, 0);
		}
	if (offset) {
		OGL_poly_offset(0.0f);
		OGL_setstate(fog, 1, st_lit, st_opaque, deR, deW);
	}
	if (do_borders) border_layers(xyz, fog, deR, deW);
	OGL_setstate(fog, 1, st_lit, st_opaque, deR, deW);
	terrain_units_reset(std::min(units_used, std::max(ren.num_tex_units, 1)));
	if (lamp) glDisable(GL_LIGHT1);
	second_tex = 0;
}
