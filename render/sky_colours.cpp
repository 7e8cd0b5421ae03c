#include "render/sky_colours.h"
#include "render/sun_moon.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
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
