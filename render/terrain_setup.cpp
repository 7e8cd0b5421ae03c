// The block's ground set up for drawing: the vertex normals, relief exaggerated four
// times in the lighting; each cell's texture; and the land textures the block needs,
// loaded from the region folder that holds the aircraft, once.
#include "render/HL_GRAPH.h"
#include "render/terrain.h"
#include "render/textures.h"
#include "world/scenery.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>

float planenrml[regn_dim_i][regn_dim_j][3];
uint16_t PLOT_planetex[regn_dim_i][regn_dim_j];
char ter_inrange[regn_dim_i][regn_dim_j];

namespace {

constexpr char placeholder[] = "-90+90 -180+180";
std::string tex_path_INRAM[land_tex_max];   // what each land texture slot holds
int res_INRAM[land_tex_max];

// "+32+35 -121-114": south, north, west, east; false unless exactly that form.
bool region_bounds(const std::string& s, int b[4])
{
	if (s.size() < 15 || s[6] != ' ') return false;
	const int at[4] = {0, 3, 7, 11}, len[4] = {3, 3, 4, 4};
	for (int k = 0; k < 4; k++) {
		const std::string f = s.substr((size_t)at[k], (size_t)len[k]);
		if (f[0] != '+' && f[0] != '-') return false;
		for (size_t c = 1; c < f.size(); c++)
			if (f[c] < '0' || f[c] > '9') return false;
		b[k] = std::atoi(f.c_str());
	}
	return true;
}

}  // namespace

std::string border_get_tex_paths(int t, double lat, double lon)
{
	const std::string path = stl.tex_path[std::clamp(t, 0, land_tex_max - 1)];
	const size_t p = path.find(placeholder);
	if (p == std::string::npos) return bmp_path + path + ".bmp";
	const size_t colon = path.rfind(':', p);
	const std::string parent = path.substr(0, colon + 1), stem = path.substr(colon + 1, p - colon - 1), rest = path.substr(p + 15);
	std::error_code ec;
	std::string best;
	long best_area = 998001;
	for (const auto& e : std::filesystem::directory_iterator(ret_host_path(bmp_path + parent), ec)) {
		const std::string name = e.path().filename().string();
		int b[4];
		if (name.size() != stem.size() + 15 || name.compare(0, stem.size(), stem) != 0 || !region_bounds(name.substr(stem.size()), b)) continue;
		if (lat < b[0] || lat > b[1] || lon < b[2] || lon > b[3]) continue;
		const long area = (long)(b[1] - b[0]) * (b[3] - b[2]);
		if (area < best_area) {
			best_area = area;
			best = name;
		}
	}
	return best.empty() ? std::string() : bmp_path + parent + best + rest + ".bmp";
}

void set_up_terrain_textures()
{
	const int p = env.planet == 1 ? 1 : 0;
	bool needed[land_tex_max] = {};
	for (int i = 0; i <= regn_imax[p]; i++)
		for (int j = 0; j <= regn_jmax[p]; j++) {
			const int t = landuse_to_tex(landuse[i][j]);
			PLOT_planetex[i][j] = (uint16_t)t;
			if (t < land_tex_max) needed[t] = true;
		}
	for (int t = 0; t < ren.num_land_texes; t++) {
		if (!needed[t]) continue;
		const std::string path = border_get_tex_paths(t, flt[0].dob_lat, flt[0].dob_lon);
		if (path == tex_path_INRAM[t] && ren.tex_vram[t] && res_INRAM[t] == mnw.tex_res) continue;   // a shift inside the region
		tex_path_INRAM[t] = path;
		res_INRAM[t] = mnw.tex_res;
		if (path.empty() || !OGL_texbmp(tex_load, t, filt_rgb_mip, path)) {
			NB_ALERT("Could not open land-use texture!", "Check to see that it exists!", stl.tex_path[t], path, alert_notice);
			continue;
		}
		ren.tex_tiles[t] = ren.tex_is_water[t] ? 1 : std::max(ren.tex_dx_tot[t] / std::max(ren.tex_dy_tot[t], 1), 1);
		if (load_border_masks(t, path) < 4) NB_ALERT("Could not open land-use texture!", "Check to see that it exists!", stl.tex_path[t], border_sheet_path(path, 1), alert_notice);
	}
	// The cells whose corners differ blend their land types through the masks.
	for (int i = 0; i < regn_imax[p]; i++)
		for (int j = 0; j < regn_jmax[p]; j++) cell_border_layers(i, j);
}

void set_terrain_normals()
{
	const int p = env.planet == 1 ? 1 : 0;
	for (int i = 0; i <= regn_imax[p]; i++)
		for (int j = 0; j <= regn_jmax[p]; j++) {
			// The last row and column take the differences that end there.
			const int i0 = i < regn_imax[p] ? i : i - 1, j0 = j < regn_jmax[p] ? j : j - 1;
			const float* o = planexyz[i0][j0];
			const float* e = planexyz[i0 + 1][j0];
			const float* n = planexyz[i0][j0 + 1];
			const float v1[3] = {e[0] - o[0], 4.0f * (e[1] - o[1]), e[2] - o[2]};
			const float v2[3] = {n[0] - o[0], 4.0f * (n[1] - o[1]), n[2] - o[2]};
			float c[3] = {v1[1] * v2[2] - v1[2] * v2[1], v1[2] * v2[0] - v1[0] * v2[2], v1[0] * v2[1] - v1[1] * v2[0]};
			const float len = std::sqrt(c[0] * c[0] + c[1] * c[1] + c[2] * c[2]);
			if (len > 0.0f) for (float& k : c) k /= len;
			else { c[0] = c[2] = 0.0f; c[1] = 1.0f; }
			for (int k = 0; k < 3; k++) planenrml[i][j][k] = c[k];
		}
}
