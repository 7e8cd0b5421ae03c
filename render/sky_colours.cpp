#include "render/sky_colours.h"
#include "render/sun_moon.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <algorithm>
#include <string>

namespace {

// What fraction of the light is the sun's: all of it down to 10 degrees below the horizon,
// none from 15 below.
float sun_use_rat(float sun_the) { return std::clamp((sun_the + 15.0f) / 5.0f, 0.0f, 1.0f); }

void time_index(float index, int* i1, int* i2, float* r1, float* r2)
{
	*i1 = (int)index;
	*i2 = *i1 + 1;
	*r2 = index - (float)*i1;
	*r1 = 1.0f - *r2;
}

}  // namespace

int load_sky_colours(int planet)
{
	static const char* earth[5] = {"earth_clean", "earth_misty", "earth_foggy", "earth_hialt", "earth_ocast"};
	static const char* mars[5] = {"mars_clean", "mars_clean", "mars_clean", "mars_hialt", "mars_clean"};
	float(*strips[7])[512][3] = {ren.raw_sun_amb, ren.raw_sun_dir, ren.raw_sun_rgb, ren.raw_mon_rgb, ren.raw_wat_rgb, ren.raw_cld_drk,
	                             ren.raw_cld_lgt};
	int all = 1;
	for (int s = 0; s < 5; s++) {
		const std::string sky = bmp_path + (planet == 1 ? "skycolors:Mars:sky_colors_" : "skycolors:Earth:sky_colors_") +
		                        (planet == 1 ? mars[s] : earth[s]) + ".bmp";
		if (!OGL_texbmp(tex_panel_base, 481, filt_key_magenta, sky) || ren.tex_dy_vis[481] < 256 || ren.tex_dx_vis[481] < 64) {
			all = 0;
		} else {
			for (int f = 0; f < 16; f++)   // row f * 16 + j from the bottom, column i
				for (int j = 0; j < 16; j++)
					for (int i = 0; i < 64; i++)
						for (int c = 0; c < 3; c++) ren.raw_sky_256[s][f][i][j][c] = scratch_array[((size_t)(f * 16 + j) * 1024 + i) * 4 + c];
		}
		const std::string path = bmp_path + (planet == 1 ? "skycolors:Mars:light_colors_" : "skycolors:Earth:light_colors_") +
		                         (planet == 1 ? mars[s] : earth[s]) + ".bmp";
		if (!OGL_texbmp(tex_panel_base, 481, filt_key_magenta, path) || ren.tex_dy_vis[481] < 512 || ren.tex_dx_vis[481] < 39) {
			all = 0;
			continue;
		}
		for (int t = 0; t < 512; t++)   // a row a time pixel, from the bottom
			for (int k = 0; k < 7; k++)
				for (int c = 0; c < 3; c++) strips[k][s][t][c] = scratch_array[((size_t)t * 1024 + 3 + 5 * k) * 4 + c] / 255.0f;
	}
	return all;
}

void get_time_pixels(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon)
{
	const float morning = std::clamp((the + 10.0f) * 15.9993753f, 0.0f, 255.99f);
	const float afternoon = std::clamp((the - 6.0f) * -15.9993744f + 255.0f, 255.0f, 510.99f);
	time_index(before_noon ? std::min(morning, 255.5f) : std::max(afternoon, 255.5f), i1, i2, r1, r2);
}

void get_time_frames(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon)
{
	const float morning = std::clamp((the + 10.0f) * 0.499374986f, 0.0f, 7.99f);
	const float afternoon = std::clamp((the - 6.0f) * -0.499374986f + 7.0f, 7.0f, 14.99f);
	time_index(before_noon ? std::min(morning, 7.5f) : std::max(afternoon, 7.5f), i1, i2, r1, r2);
}

void blend_light(const float weights[5], float sun_the, bool before_noon, float amb[3], float dir[3])
{
	int i1, i2;
	float r1, r2;
	get_time_pixels(&i1, &i2, &r1, &r2, sun_the, before_noon);
	i2 = std::min(i2, 511);
	const float sun_use = sun_use_rat(sun_the), moon_use = 1.0f - sun_use;
	for (int c = 0; c < 3; c++) {
		float a = 0.0f, d = 0.0f;
		for (int s = 0; s < 5; s++) {
			const float sa = r1 * ren.raw_sun_amb[s][i1][c] + r2 * ren.raw_sun_amb[s][i2][c];
			const float sd = r1 * ren.raw_sun_dir[s][i1][c] + r2 * ren.raw_sun_dir[s][i2][c];
			a += weights[s] * sa * (moon_use * moon_brt + sun_use);
			d += weights[s] * (sa * moon_use * moon_brt + sd * sun_use);
		}
		amb[c] = std::clamp(a, 0.0f, 1.0f);
		dir[c] = std::clamp(d, 0.0f, 1.0f);
	}
}

void weather_set_weights(float view_sig_earth_rat, float vis_sky_m, float view_ele, float weights[5])
{
	const float nm = vis_sky_m / 1852.0f;
	const float h = std::clamp((0.5f - view_sig_earth_rat) / 0.25f, 0.0f, 1.0f);
	const float f = std::clamp((10.0f - nm) / 5.0f, 0.0f, 1.0f);
	float m = 0.0f, o = 0.0f;
	for (int l = 0; l < 2; l++) {
		const float base = atm.base_h_MSL[l], tops = atm.tops_h_MSL[l];
		if (atm.cld_type[l] == 2 && tops > base)   // in or under a misty layer
			m = std::clamp((tops + 100.0f - view_ele) / std::max(tops + 100.0f - (base - 100.0f), 1.0f), 0.0f, 1.0f);
		if (atm.cld_type[l] == 5 && tops > base)   // under a deck, or down from its tops
			o = std::max(o, std::clamp((tops + 182.88f - view_ele) / 182.88f, 0.0f, 1.0f));
	}
	weights[4] = o;
	weights[2] = (1 - o) * f;
	weights[1] = (1 - o) * (1 - f) * m;
	weights[3] = (1 - o) * (1 - f) * (1 - m) * h;
	weights[0] = (1 - o) * (1 - f) * (1 - m) * (1 - h);
}

void compute_sky_256(const float weights[5], float sun_the, bool before_noon, float vis_sky_m, float sig_rat_top, float sig_rat_bot,
                     float del_psi)
{
	int f1, f2;
	float r1, r2;
	get_time_frames(&f1, &f2, &r1, &r2, sun_the, before_noon);
	f2 = std::min(f2, 15);
	// The fog: the horizon row of the two columns round the view.
	const float col = std::fmod(std::fmod(del_psi, 360.0f) / 360.0f + 0.5f + 2.0f, 1.0f) * 64.0f;
	const int c1 = (int)col % 64, c2 = (c1 + 1) % 64;
	const float u = col - std::floor(col);
	for (int c = 0; c < 3; c++) {
		float v = 0.0f;
		for (int s = 0; s < 5; s++)
			v += weights[s] * (r1 * ((1 - u) * ren.raw_sky_256[s][f1][c1][0][c] + u * ren.raw_sky_256[s][f1][c2][0][c]) +
			                   r2 * ((1 - u) * ren.raw_sky_256[s][f2][c1][0][c] + u * ren.raw_sky_256[s][f2][c2][0][c]));
		ren.fog_rgb[c] = std::clamp(v / 255.0f, 0.0f, 1.0f);
	}
	ren.fog_rgb[3] = 1.0f;
	const float socked = std::clamp((5.0f - vis_sky_m / 1852.0f) / 4.0f, 0.0f, 1.0f);   // 0 at 5 nm, 1 at 1 nm
	for (int j = 0; j < 16; j++) {
		const float dark = sig_rat_bot + (sig_rat_top - sig_rat_bot) * j / 15.0f;
		for (int i = 0; i < 64; i++)
			for (int c = 0; c < 3; c++) {
				float v = 0.0f;
				for (int s = 0; s < 5; s++)
					v += weights[s] * (r1 * ren.raw_sky_256[s][f1][i][j][c] + r2 * ren.raw_sky_256[s][f2][i][j][c]);
				v = (v * (1.0f - socked) + ren.fog_rgb[c] * socked * 255.0f) * dark;
				ren.sky_256[j][i][c] = (unsigned char)std::clamp(v, 0.0f, 255.0f);
			}
	}
}

void blend_world_colours(const float weights[5], float sun_the, bool before_noon)
{
	int i1, i2;
	float r1, r2;
	get_time_pixels(&i1, &i2, &r1, &r2, sun_the, before_noon);
	i2 = std::min(i2, 511);
	const float(*raw[5])[512][3] = {ren.raw_sun_rgb, ren.raw_mon_rgb, ren.raw_wat_rgb, ren.raw_cld_drk, ren.raw_cld_lgt};
	float* out[5] = {ren.sun_rgb, ren.mon_rgb, ren.wat_rgb, ren.cld_drk, ren.cld_lgt};
	const float moon_dim = 1.0f + (moon_brt - 1.0f) * (1.0f - sun_use_rat(sun_the));
	for (int k = 0; k < 5; k++)
		for (int c = 0; c < 3; c++) {
			float v = 0.0f;
			for (int s = 0; s < 5; s++) v += weights[s] * (r1 * raw[k][s][i1][c] + r2 * raw[k][s][i2][c]);
			out[k][c] = std::clamp(v * (k >= 2 ? moon_dim : 1.0f), 0.0f, 1.0f);
		}
	for (int c = 0; c < 3; c++) ren.fog_rgb[c] *= moon_dim;
}
