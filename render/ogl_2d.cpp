// Two-dimensional primitives in panel space, each offset by the sub-window being drawn.
#include "render/ogl.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>

void OGL_line(int color, float alpha, float x1, float y1, float x2, float y2)
{
	OGL_setstate(st_fog_off, 0, st_unlit, alpha < 0.99f ? st_blend : st_opaque, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(color, alpha);
	const float ox = mnw.win_x + 0.5f, oy = mnw.win_y + 0.5f;   // through the pixel centres
	glBegin(GL_LINES);
	glVertex2f(x1 + ox, y1 + oy);
	glVertex2f(x2 + ox, y2 + oy);
	glEnd();
}

void OGL_fillrect(int color, float alpha, float x, float y, float dx, float dy)
{
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(color, alpha);
	x += mnw.win_x;
	y += mnw.win_y;
	glBegin(GL_QUADS);
	glVertex2f(x, y);
	glVertex2f(x, y + dy);
	glVertex2f(x + dx, y + dy);
	glVertex2f(x + dx, y);
	glEnd();
}

void OGL_framerect(int color, float alpha, float x, float y, float dx, float dy)
{
	OGL_setstate(st_fog_off, 0, st_unlit, alpha < 0.99f ? st_blend : st_opaque, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(color, alpha);
	const float x1 = x + mnw.win_x + 0.5f, y1 = y + mnw.win_y + 0.5f, x2 = x1 + dx - 1.0f, y2 = y1 + dy - 1.0f;
	glBegin(GL_LINE_STRIP);
	glVertex2f(x1, y1);
	glVertex2f(x1, y2);
	glVertex2f(x2, y2);
	glVertex2f(x2, y1);
	glVertex2f(x1, y1);
	glEnd();
}

void OGL_framecircle(int color, float x, float y, float r)
{
	OGL_setstate(st_fog_off, 0, st_unlit, st_opaque, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(color, 1.0f);
	x += mnw.win_x + 0.5f;
	y += mnw.win_y + 0.5f;
	glBegin(GL_LINE_STRIP);
	for (int d = 0; d <= 360; d++) glVertex2f(x + r * lookup_sin[d], y + r * lookup_cos[d]);
	glEnd();
}

void OGL_grayrect(float x1, float y1, float x2, float y2, float rat)
{
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_setcolorINDEX(15, rat);
	const float ox = mnw.win_x, oy = mnw.win_y;
	glBegin(GL_QUADS);
	glVertex2f(x1 + ox, y1 + oy);
	glVertex2f(x1 + ox, y2 + oy);
	glVertex2f(x2 + ox, y2 + oy);
	glVertex2f(x2 + ox, y1 + oy);
	glEnd();
}

void OGL_2dquad(int tex, int col, float alp, float x1, float y1, float s1, float t1, float x2, float y2, float s2, float t2, float x3,
                float y3, float s3, float t3, float x4, float y4, float s4, float t4, int num_tex, int alB)
{
	OGL_setstate(st_fog_off, num_tex, st_unlit, alB, st_no_depth_read, st_no_depth_write);
	if (tex > 0) OGL_bind(tex, 0);
	OGL_setcolorINDEX(col, alp);
	const float ox = mnw.win_x, oy = mnw.win_y;
	glBegin(GL_QUADS);
	glTexCoord2f(s1, t1); glVertex2f(x1 + ox, y1 + oy);
	glTexCoord2f(s2, t2); glVertex2f(x2 + ox, y2 + oy);
	glTexCoord2f(s3, t3); glVertex2f(x3 + ox, y3 + oy);
	glTexCoord2f(s4, t4); glVertex2f(x4 + ox, y4 + oy);
	glEnd();
}

void gray_string(int color, float x, float y, const std::string& s)
{
	const float w = OGL_string_width(s, 100);
	const float x1 = x - w * 0.5f;
	OGL_grayrect(x1 - 2.0f, y - 2.0f, x1 + w + 2.0f, y + 8.0f, 0.5f);
	OGL_string(color, x1, y, s, 9999.0f, 100);
}
