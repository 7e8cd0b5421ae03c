// The colour table: panel colours darkened by the manual lighting, everything faded by the
// global alpha and turned green under night vision, here so that every caller gets it.
#include "render/ogl.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>

float col_rgb[94][3];
float r_manual_lighting = 1.0f, g_manual_lighting = 1.0f, b_manual_lighting = 1.0f;
float ins_size = 1.0f;

namespace {

void issue(float r, float g, float b, float a)
{
	a *= ren.current_alpha;
	if (ren.night_vision_on) {
		g = std::clamp(r + g + b, 0.0f, 1.0f);
		r = b = 0.0f;
	}
	if (a > 0.99f) glColor3f(r, g, b);
	else glColor4f(r, g, b, a);
}

}  // namespace

void OGL_assigncolor(int index, float r, float g, float b)
{
	if (index < 0 || index >= 94) return;
	col_rgb[index][0] = r;
	col_rgb[index][1] = g;
	col_rgb[index][2] = b;
}

void OGL_setcolorINDEX(int color, float alpha)
{
	if (color < 0 || color >= 94) color = 0;
	const float* c = col_rgb[color];
	if (color <= 38) issue(c[0] * r_manual_lighting, c[1] * g_manual_lighting, c[2] * b_manual_lighting, alpha);
	else issue(c[0], c[1], c[2], alpha);
}

void OGL_setcolorRGBA(float r, float g, float b, float a, int unlit)
{
	if (!unlit) issue(r * r_manual_lighting, g * g_manual_lighting, b * b_manual_lighting, a);
	else issue(r, g, b, a);
}

void OGL_spectrum_rgb(float rat)
{
	static const float stops[7][3] = {{0, 0, 0}, {1, 0, 0}, {1, 0.32f, 0.08f}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {0.8f, 0, 0.8f}};
	const float f = std::clamp(rat, 0.0f, 1.0f) * 6.0f;
	const int k = std::min((int)f, 5);
	const float u = f - k;
	issue(stops[k][0] + (stops[k + 1][0] - stops[k][0]) * u, stops[k][1] + (stops[k + 1][1] - stops[k][1]) * u,
	      stops[k][2] + (stops[k + 1][2] - stops[k][2]) * u, 1.0f);
}

void set_lit_ins(int mode)
{
	switch (mode) {
	case 0:
		OGL_assigncolor(42, std::min(ren.ins_brt, r_manual_lighting), std::min(ren.ins_brt, g_manual_lighting),
		                std::min(ren.ins_brt, b_manual_lighting));
		break;
	case 1: OGL_assigncolor(42, ren.ins_brt, ren.ins_brt, ren.ins_brt); break;
	case 2: OGL_assigncolor(42, ren.hud_brt, ren.hud_brt, ren.hud_brt); break;
	default: NB_ALERT("bad col_type!", "", "", "", alert_notice);
	}
}

void OGL_assign_start_colours()
{
	static const struct { int id; float r, g, b; } table[] = {
		{0, 1, 1, 1}, {1, 0.8f, 0, 0}, {2, 1, 1, 0.2f}, {3, 0.9f, 0.9f, 0.9f}, {4, 0.7f, 0.7f, 0.7f}, {5, 0.4f, 0, 0}, {6, 1, 1, 0},
		{7, 0.9f, 0.9f, 1}, {8, 0.3f, 0.3f, 0.3f}, {9, 0.2f, 0, 0}, {10, 1, 0.8f, 0.2f}, {11, 0.9f, 0.9f, 0.9f}, {12, 0.1f, 0.1f, 0.1f},
		{13, 0, 0.8f, 0}, {14, 0.1f, 0.1f, 0.1f}, {15, 0, 0, 0}, {16, 0.4f, 0.4f, 1}, {17, 0, 0, 0.6f}, {18, 0, 0, 0}, {19, 0, 0, 0},
		{23, 0, 0, 0}, {24, 0, 0, 0}, {20, 1, 1, 1}, {21, 1, 1, 1}, {22, 1, 1, 1}, {25, 1, 1, 1}, {26, 1, 1, 1}, {27, 1, 1, 1},
		{43, 1, 1, 1}, {44, 0.1f, 1, 0.1f}, {45, 1, 0.4f, 0.4f}, {46, 1, 1, 0.6f}, {47, 0.6f, 0.6f, 1}, {48, 1, 0.5f, 0},
		{49, 0.8f, 0.8f, 0.8f}, {50, 0, 0.8f, 0}, {51, 1, 0.2f, 0.2f}, {52, 1, 1, 0.2f}, {53, 0.4f, 0.4f, 1}, {54, 0.5f, 0.3f, 0},
		{55, 0.5f, 0.5f, 0.5f}, {56, 0, 0.6f, 0}, {57, 0.6f, 0.2f, 0}, {58, 1, 1, 0}, {59, 0.2f, 0.2f, 0.8f}, {60, 0.8f, 0, 0.8f},
		{61, 0.2f, 0.2f, 0.2f}, {62, 0, 0.2f, 0}, {63, 0.6f, 0.6f, 0}, {64, 0.15f, 0.15f, 0.6f}, {65, 1, 0.2f, 1}, {66, 0, 0, 0},
		{67, 0, 0.1f, 0}, {68, 0.49f, 0.43f, 0.24f}, {73, 1, 1, 1}, {74, 1, 0.2f, 0.2f}, {87, 0.5f, 0.5f, 0.4f}, {89, 0.5f, 0.5f, 0.4f},
		{88, 1, 0.3f, 0}, {90, 0.8f, 0.8f, 0.7f}, {91, 1, 1, 0.9f},
	};
	for (const auto& c : table) OGL_assigncolor(c.id, c.r, c.g, c.b);
	r_manual_lighting = g_manual_lighting = b_manual_lighting = 1.0f;
	ren.current_alpha = 1.0f;
}

// 28 to 32 and 34 to 40 down a column of swatches, 33 between 29 and 32, 41 apart.
void OGL_sample_interface_colours(const unsigned char* sheet, int width, int height)
{
	auto take = [&](int id, int x, int y) {
		if (x < 0 || y < 0 || x >= width || y >= height) return;
		const unsigned char* p = sheet + ((size_t)y * width + x) * 4;
		OGL_assigncolor(id, p[0] / 255.0f, p[1] / 255.0f, p[2] / 255.0f);
	};
	int y = 155;
	for (int id = 28; id <= 40; id++) {
		if (id == 33) continue;
		take(id, 319, y);
		y -= 8;
	}
	take(41, 395, 115);
	for (int c = 0; c < 3; c++) col_rgb[33][c] = 0.5f * (col_rgb[29][c] + col_rgb[32][c]);
}

void OGL_load_interface()
{
	if (!OGL_texbmp(tex_load, 468, filt_key_magenta, bmp_path + "interface.png")) {
		NB_ALERT("I cannot open the graphics interface file!", "It seems that you have moved Nimbara out of the Nimbasys folder!",
		         ret_host_path(bmp_path + "interface.png"), "", alert_notice);
		return;
	}
	// The sheet is still in the scratch buffer, rows from the bottom, as it went to the driver.
	OGL_sample_interface_colours(scratch_array, ren.tex_dx_tot[468], ren.tex_dy_tot[468]);
}
