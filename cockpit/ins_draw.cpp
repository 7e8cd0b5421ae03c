// Drawing inside an instrument: quads of the slot's layers and coloured bands, placed at the
// slot's centre and scaled by its size.
#include "cockpit/ins_draw.h"
#include "cockpit/panel.h"
#include "core/HL_TYPES.h"
#include "render/ogl.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

int ins_layer_tex(int layer) { return 7942 + (std::clamp(layer, 1, 4) - 1) * ins_slot_max + std::clamp(ins_index, 0, ins_slot_max - 1); }

bool ins_layer_ok(int layer)
{
	const int id = ins_layer_tex(layer);
	return ren.tex_vram[id] && ren.tex_dx_tot[id] > 0 && ren.tex_dy_tot[id] > 0;
}

float ins_layer_dx(int layer) { return ins_layer_ok(layer) ? (float)ren.tex_dx_vis[ins_layer_tex(layer)] : 0.0f; }
float ins_layer_dy(int layer) { return ins_layer_ok(layer) ? (float)ren.tex_dy_vis[ins_layer_tex(layer)] : 0.0f; }

bool ins_bind(int layer, int lit)
{
	if (!ins_layer_ok(layer)) return false;
	OGL_setstate(st_fog_off, 1, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_bind(ins_layer_tex(layer), 0);
	OGL_setcolorINDEX(lit ? 42 : 0, 1.0f);
	return true;
}

void ins_emit_quad(int layer, float cx, float cy, float ang, float hw, float hh, float s1, float t1, float s2, float t2)
{
	const int id = ins_layer_tex(layer);
	const float sx = 1.0f / std::max(ren.tex_dx_tot[id], 1), sy = 1.0f / std::max(ren.tex_dy_tot[id], 1);
	const float a = ang * (float)M_PI / 180.0f, c = std::cos(a), s = std::sin(a);
	auto vertex = [&](float u, float v, float dx, float dy) {   // clockwise turn: x' = x c + y s, y' = -x s + y c
		glTexCoord2f(u * sx, v * sy);
		glVertex2f(mnw.win_x + (cx + dx * c + dy * s) * ins_size, mnw.win_y + (cy - dx * s + dy * c) * ins_size);
	};
	vertex(s1, t1, -hw, -hh);   // clockwise, the face the culling keeps
	vertex(s1, t2, -hw, hh);
	vertex(s2, t2, hw, hh);
	vertex(s2, t1, hw, -hh);
}

void ins_arc(float xc, float yc, float r1, float r2, float a1, float a2, int color, float alpha)
{
	if (a2 < a1) std::swap(a1, a2);
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(color, alpha);
	const int steps = std::clamp((int)std::ceil((a2 - a1) / 3.0f), 1, 120);   // a few degrees a step
	glBegin(GL_QUAD_STRIP);
	for (int k = 0; k <= steps; k++) {
		const float a = (a1 + (a2 - a1) * k / steps) * (float)M_PI / 180.0f, s = std::sin(a), c = std::cos(a);
		// Inner before outer: with the angle growing clockwise the strip's quads wind clockwise.
		glVertex2f(mnw.win_x + (xc + r1 * s) * ins_size, mnw.win_y + (yc + r1 * c) * ins_size);
		glVertex2f(mnw.win_x + (xc + r2 * s) * ins_size, mnw.win_y + (yc + r2 * c) * ins_size);
	}
	glEnd();
}

void ins_clip(float hw, float hh) { OGL_scissors(-hw * ins_size, -hh * ins_size, 2.0f * hw * ins_size, 2.0f * hh * ins_size); }
