// Blended borders between land types: a cell whose corners differ draws its lowest texture
// whole and up to three more over it, each through a mask covering the corners that
// texture holds. Water, first in the table, always lies underneath.
#include "render/terrain.h"
#include "render/textures.h"
#include "world/scenery.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <algorithm>
#include <cstring>

uint16_t BORD_planetex[451][401][4];
uint16_t BORD_alphatex[451][401][4];

int border_which_index(int c0, int c1, int c2, int c3, int t)
{
	// The corners holding t as four bits, c0 first: 1 0 0 1 reads 0b1001.
	const int bits = (c0 == t) << 3 | (c1 == t) << 2 | (c2 == t) << 1 | (c3 == t);
	static const int index_of[16] = {0, 6, 5, 4, 8, 13, 3, 11, 7, 1, 14, 12, 2, 9, 10, 0};
	return index_of[bits];
}

int border_is_land_bridge(int i, int j, int which_border)
{
	if (which_border != 13 && which_border != 14) return 0;
	const int body = ter_body_id[i][j];
	if (which_border == 13 && (body == 2 || body == 6)) return 1;
	if (which_border == 14 && (body == 1 || body == 5)) return 1;
	if (body != 0 && body != 4) return 0;
	// No body to say: land bridges where water is all round.
	const int p = env.planet == 1 ? 1 : 0;
	int wet = 0, all = 0;
	for (int a = std::max(i - 1, 0); a <= std::min(i + 1, regn_imax[p]); a++)
		for (int b = std::max(j - 1, 0); b <= std::min(j + 1, regn_jmax[p]); b++) {
			all++;
			wet += landuse[a][b] == 14 || landuse[a][b] == 15;
		}
	return wet * 2 > all;
}

void cell_border_layers(int i, int j)
{
	const int code[4] = {landuse[i][j], landuse[i][j + 1], landuse[i + 1][j + 1], landuse[i + 1][j]};
	for (int c : code)
		if (c >= 97) return;   // a texture of its own has no border
	const int c0 = landuse_to_tex(code[0]), c1 = landuse_to_tex(code[1]), c2 = landuse_to_tex(code[2]), c3 = landuse_to_tex(code[3]);
	if (c0 == c1 && c1 == c2 && c2 == c3) return;
	// The distinct textures in rising order: water, numbered first, at the bottom.
	int t[4] = {9999, 9999, 9999, 9999}, n = 0;
	int sorted[4] = {c0, c1, c2, c3};
	std::sort(sorted, sorted + 4);
	for (int k = 0; k < 4; k++)
		if (k == 0 || sorted[k] != sorted[k - 1]) t[n++] = sorted[k];
	int idx[4] = {0, 0, 0, 0};
	for (int l = 1; l < 4; l++) idx[l] = t[l] == 9999 ? 0 : border_which_index(c0, c1, c2, c3, t[l]);
	// A diagonal with no land bridge: two separate corners, the second in the next layer up.
	for (int l = 1; l <= 2; l++) {
		if (idx[l] <= 12 || border_is_land_bridge(i, j, idx[l])) continue;
		const bool d13 = idx[l] == 13;
		if (l == 1) {
			t[3] = t[2];
			idx[3] = idx[2];
		}
		t[l + 1] = t[l];
		idx[l + 1] = d13 ? 6 : 5;
		idx[l] = d13 ? 8 : 7;
		break;   // the layer above now holds a single corner
	}
	// The base across a diagonal: its body decides which way the cell joins.
	const int body = ter_body_id[i][j];
	if (c0 == t[0] && c2 == t[0] && c1 != t[0] && c3 != t[0] && body != 0 && body != 1 && body != 5) idx[1] = 13;
	if (c1 == t[0] && c3 == t[0] && c0 != t[0] && c2 != t[0] && body != 0 && body != 2 && body != 6) idx[1] = 14;
	uint16_t* tex = BORD_planetex[i][j];
	uint16_t* mask = BORD_alphatex[i][j];
	tex[0] = mask[0] = (uint16_t)t[0];
	int layers = 1;
	for (int l = 1; l < 4; l++) {
		if (t[l] == 9999 || idx[l] == 0 || (t[l] < land_tex_max && ren.tex_is_water[t[l]])) continue;   // water never lies on top
		tex[layers] = (uint16_t)t[l];
		mask[layers] = (uint16_t)(t[l] * 14 + 6999 + idx[l]);
		layers++;
	}
	for (int l = layers; l < 4; l++) tex[l] = mask[l] = 9999;
	PLOT_planetex[i][j] = layers > 1 ? 7000 : (uint16_t)t[0];
	static const float corner_st[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
	for (int k = 0; k < 4; k++) {
		planest[i][j][k][0] = corner_st[k][0];
		planest[i][j][k][1] = corner_st[k][1];
	}
}

namespace {

unsigned char mask_block[1024 * 1024];   // one mask's alpha on its way to the driver

}  // namespace

void border_make_texture(int tex, int full_dx, int semi_dx, int semi_dy, int i_os, int j_os, const std::string& path)
{
	if (semi_dx < 1 || semi_dy < 1 || semi_dx * semi_dy > (int)sizeof mask_block) return;
	for (int j = 0; j < semi_dy; j++)
		for (int i = 0; i < semi_dx; i++) mask_block[(size_t)j * semi_dx + i] = scratch_array[((size_t)(j_os + j) * full_dx + i_os + i) * 4 + 3];
	ren.tex_dx_tot[tex] = ren.tex_dx_vis[tex] = semi_dx;
	ren.tex_dy_tot[tex] = ren.tex_dy_vis[tex] = semi_dy;
	OGL_load_tex(path, tex, 0, filt_key_magenta_mip, GL_ALPHA, mask_block);
	OGL_mini_me(path, tex, filt_key_magenta_mip, GL_ALPHA, mask_block);
}

std::string border_sheet_path(const std::string& land_path, int sheet)
{
	const std::string stem = land_path.size() > 4 ? land_path.substr(0, land_path.size() - 4) : land_path;
	return stem + "_C" + std::to_string(sheet) + ".bmp";
}

int load_border_masks(int t, const std::string& land_path)
{
	// _C3 holds masks 1 to 4, _C2 5 to 8, _C1 9 to 12, each a quarter; _C4 13 and 14, each a half.
	static const int sheet_of[4] = {3, 2, 1, 4};
	static const int quad[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
	int loaded = 0;
	for (int k = 0; k < 4; k++) {
		const int first = t * 14 + 7000 + k * 4;
		const std::string path = border_sheet_path(land_path, sheet_of[k]);
		if (!OGL_texbmp(tex_scratch_only, first, filt_alpha_mean, path)) continue;
		const int full = ren.tex_dx_tot[first], dx = ren.tex_dx_vis[first], dy = ren.tex_dy_vis[first];
		if (sheet_of[k] == 4) {
			for (int h = 0; h < 2; h++) border_make_texture(first + h, full, dx / 2, dy, h * (dx / 2), 0, path);
		} else {
			for (int q = 0; q < 4; q++) border_make_texture(first + q, full, dx / 2, dy / 2, quad[q][0] * (dx / 2), quad[q][1] * (dy / 2), path);
		}
		loaded++;
	}
	return loaded;
}
