// Three-dimensional helpers: quads with their normals inside the caller's glBegin, a
// textured box and a wheel.
#include "render/ogl.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <cmath>

namespace {

void normal_of(const float p1[3], const float p2[3], const float p3[3])
{
	const float a[3] = {p3[0] - p2[0], p3[1] - p2[1], p3[2] - p2[2]}, b[3] = {p2[0] - p1[0], p2[1] - p1[1], p2[2] - p1[2]};
	float n[3] = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
	const float len = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
	if (len > 0.0f) glNormal3f(n[0] / len, n[1] / len, n[2] / len);
	else glNormal3f(0.0f, 1.0f, 0.0f);
}

void coord(float s, float t)   // every unit in use takes the coordinate
{
	if (num_texes <= 1) {
		glTexCoord2f(s, t);
		return;
	}
	for (int u = 0; u < num_texes; u++) glMultiTexCoord2f(GL_TEXTURE0 + u, s, t);
}

}  // namespace

void OGL_3dline(const float a[3], const float b[3])
{
	glVertex3fv(a);
	glVertex3fv(b);
}

void OGL_3dquad(const float p1[3], const float p2[3], const float p3[3], const float p4[3])
{
	normal_of(p1, p2, p3);
	glTexCoord2f(1, 1); glVertex3fv(p1);
	glTexCoord2f(1, 0); glVertex3fv(p2);
	glTexCoord2f(0, 0); glVertex3fv(p3);
	glTexCoord2f(0, 1); glVertex3fv(p4);
}

void OGL_3dquad_st(const float p1[3], const float p2[3], const float p3[3], const float p4[3], float s1, float s2, float t1, float t2)
{
	normal_of(p1, p2, p3);
	glTexCoord2f(s1, t1); glVertex3fv(p1);
	glTexCoord2f(s1, t2); glVertex3fv(p2);
	glTexCoord2f(s2, t2); glVertex3fv(p3);
	glTexCoord2f(s2, t1); glVertex3fv(p4);
}

void OGL_3dquad_range(const float p1[3], const float p2[3], const float p3[3], const float p4[3], float xmin, float zmin, float xrange,
                      float zrange, float s1, float s2, float t1, float t2)
{
	normal_of(p1, p2, p3);
	const float* p[4] = {p1, p2, p3, p4};
	for (const float* v : p) {
		const float fs = xrange != 0.0f ? (v[0] - xmin) / xrange : 0.0f, ft = zrange != 0.0f ? (v[2] - zmin) / zrange : 0.0f;
		glTexCoord2f(s1 + (s2 - s1) * fs, t1 + (t2 - t1) * ft);
		glVertex3fv(v);
	}
}

void OGL_cube(float x, float y, float z, float dx, float dy, float dz, float s1, float s2, float t1, float t2, float the)
{
	glPushMatrix();
	glTranslatef(x, y, z);
	glRotatef(-the, 0.0f, 0.0f, 1.0f);
	const float hx = dx * 0.5f, hz = dz * 0.5f;
	static const float wall_n[4][3] = {{0, 0, 1}, {1, 0, 0}, {0, 0, -1}, {-1, 0, 0}};
	const float corner[5][2] = {{-hx, hz}, {hx, hz}, {hx, -hz}, {-hx, -hz}, {-hx, hz}};
	glBegin(GL_QUADS);   // the four walls, each with its own normal
	for (int w = 0; w < 4; w++) {
		glNormal3fv(wall_n[w]);
		glTexCoord2f(s1, t1); glVertex3f(corner[w][0], 0.0f, corner[w][1]);
		glTexCoord2f(s1, t2); glVertex3f(corner[w][0], dy, corner[w][1]);
		glTexCoord2f(s2, t2); glVertex3f(corner[w + 1][0], dy, corner[w + 1][1]);
		glTexCoord2f(s2, t1); glVertex3f(corner[w + 1][0], 0.0f, corner[w + 1][1]);
	}
	glNormal3f(0, 1, 0);   // top
	glTexCoord2f(s1, t1); glVertex3f(-hx, dy, hz);
	glTexCoord2f(s1, t2); glVertex3f(-hx, dy, -hz);
	glTexCoord2f(s2, t2); glVertex3f(hx, dy, -hz);
	glTexCoord2f(s2, t1); glVertex3f(hx, dy, hz);
	glNormal3f(0, -1, 0);   // bottom
	glTexCoord2f(s1, t1); glVertex3f(-hx, 0.0f, hz);
	glTexCoord2f(s2, t1); glVertex3f(hx, 0.0f, hz);
	glTexCoord2f(s2, t2); glVertex3f(hx, 0.0f, -hz);
	glTexCoord2f(s1, t2); glVertex3f(-hx, 0.0f, -hz);
	glEnd();
	glPopMatrix();
}

void OGL_disc(float xc, float yc, float zc, float xh, float xt, float rh, float rt, float steer, float rotation)
{
	glPushMatrix();
	glTranslatef(xc, yc, zc);
	glRotatef(steer, 0.0f, -1.0f, 0.0f);
	glRotatef(rotation, -1.0f, 0.0f, 0.0f);
	auto s_at = [](int deg) { return deg % 60 == 0 ? 0.0f : 0.0129032256f; };
	// Two hubs, their centres and rims on fixed rows of the sheet.
	const float hub_x[2] = {-xh, xh}, hub_t[2][2] = {{0.0f, 0.029296875f}, {0.126953125f, 0.09765625f}};
	for (int side = 0; side < 2; side++) {
		glBegin(GL_TRIANGLE_FAN);
		glNormal3f(side ? 1.0f : -1.0f, 0.0f, 0.0f);
		coord(0.0f, hub_t[side][0]);
		glVertex3f(hub_x[side], 0.0f, 0.0f);
		for (int k = 0; k <= 12; k++) {
			const int deg = side ? k * 30 : 360 - k * 30;
			coord(s_at(deg), hub_t[side][1]);
			glVertex3f(hub_x[side], rh * lookup_cos[deg], rh * lookup_sin[deg]);
		}
		glEnd();
	}
	// Three bands: the left shoulder, the tread, the right shoulder.
	const struct { float x1, x2, r1, r2, t1, t2, lean; } band[3] = {
		{-xh, -xt, rh, rt, 0.029296875f, 0.048828125f, -0.85f},
		{-xt, xt, rt, rt, 0.048828125f, 0.078125f, 0.0f},
		{xt, xh, rt, rh, 0.078125f, 0.09765625f, 0.85f},
	};
	for (const auto& b : band) {
		glBegin(GL_QUAD_STRIP);
		for (int k = 0; k <= 12; k++) {
			const int deg = k * 30;
			const float c = lookup_cos[deg], s = lookup_sin[deg];
			const float radial = b.lean == 0.0f ? 1.0f : 0.5f;
			glNormal3f(b.lean, radial * c, radial * s);
			coord(s_at(deg), b.t1);
			glVertex3f(b.x1, b.r1 * c, b.r1 * s);
			coord(s_at(deg), b.t2);
			glVertex3f(b.x2, b.r2 * c, b.r2 * s);
		}
		glEnd();
	}
	glPopMatrix();
}
