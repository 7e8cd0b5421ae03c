// The sky's objects, drawn round the eye inside the dome: stars turned by the sidereal
// time, meteors, the sun's face with its disc and glare, the moon in its phase, and aurora
// curtains; all fading into the day by its ambient light.
#include "render/sky_objects.h"
#include "render/light.h"
#include "render/ogl.h"
#include "render/stars.h"
#include "render/sun_moon.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

constexpr float nm = 1852.0f;

float ramp01(float v) { return std::clamp(v, 0.0f, 1.0f); }

// A square facing the eye round a point, with the view's right and up from the modelview.
void facing_quad(const float p[3], float half, float s0, float s1, float t0, float t1)
{
	float m[16];
	glGetFloatv(GL_MODELVIEW_MATRIX, m);
	const float r[3] = {m[0] * half, m[4] * half, m[8] * half}, u[3] = {m[1] * half, m[5] * half, m[9] * half};
	glBegin(GL_QUADS);
	glTexCoord2f(s0, t0);
	glVertex3f(p[0] - r[0] - u[0], p[1] - r[1] - u[1], p[2] - r[2] - u[2]);
	glTexCoord2f(s1, t0);
	glVertex3f(p[0] + r[0] - u[0], p[1] + r[1] - u[1], p[2] + r[2] - u[2]);
	glTexCoord2f(s1, t1);
	glVertex3f(p[0] + r[0] + u[0], p[1] + r[1] + u[1], p[2] + r[2] + u[2]);
	glTexCoord2f(s0, t1);
	glVertex3f(p[0] - r[0] + u[0], p[1] - r[1] + u[1], p[2] - r[2] + u[2]);
	glEnd();
}

void sky_point(const sky_light& l, float out[3])
{
	const float d = con.degtorad;
	out[0] = dis_to_sun * std::sin(l.psi * d) * std::cos(l.the * d);
	out[1] = dis_to_sun * std::sin(l.the * d);
	out[2] = -dis_to_sun * std::cos(l.psi * d) * std::cos(l.the * d);
}

void draw_sun_and_moon(const sky_brightness& b)
{
	const float vis = atm.vis_sky, max_vis = env.planet == 1 ? 111120.0f : 46300.0f;
	for (int k = 0; k < 2; k++) {
		if (b.brat_sm[k] <= 0.01f) continue;
		float p[3];
		sky_point(lgt[k], p);
		const float half = dis_to_sun * (k == 0 ? 0.04f : 0.02f) * sky_magnify(lgt[k].the);
		OGL_setstate(st_fog_off, 1, st_unlit, st_blend, st_depth_read, st_depth_write);
		if (k == 0) {
			OGL_bind(225, 0);
			OGL_setcolorRGBA(ren.sun_rgb[0], ren.sun_rgb[1], ren.sun_rgb[2], b.brat_sm[0], 1);
			facing_quad(p, half, 0.0f, 0.25f, 0.5f, 1.0f);
			// The disc itself: sharp in clear air, lost in haze and at dusk.
			const float night_fade = ramp01((lgt[0].the - 2.0f) / 2.0f);
			const float disc = (vis < 5.0f * nm ? ramp01(vis / (5.0f * nm)) * 0.5f : 0.5f + 0.5f * ramp01(vis / max_vis)) * night_fade;
			if (disc > 0.01f) {
				OGL_bind(226, 0);
				OGL_setcolorRGBA(ren.sun_rgb[0], ren.sun_rgb[1], ren.sun_rgb[2], disc * b.brat_sm[0], 1);
				facing_quad(p, half * 7.0f, 0.0f, 1.0f, 0.0f, 1.0f);
			}
			if (ren.glare_rat > 0.01f) {
				OGL_bind(225, 0);
				OGL_setcolorRGBA(ren.sun_rgb[0], ren.sun_rgb[1], ren.sun_rgb[2], ren.glare_rat, 1);
				facing_quad(p, half * 5.0f, 0.5f, 1.0f, 0.0f, 1.0f);
			}
		} else {
			OGL_bind(moon_tex, 0);
			OGL_setcolorRGBA(ren.mon_rgb[0], ren.mon_rgb[1], ren.mon_rgb[2], b.brat_sm[1], 1);
			facing_quad(p, half, 0.0f, 1.0f, 0.0f, 1.0f);
		}
	}
}

// A meteor: a streak across the window for two seconds, brightest halfway.
struct meteor_state { int on; float sx, sy, dx, dy, burn_time; } meteor{};

void draw_meteor(float brat_star)
{
	const float period = (float)meteor_period(atm.meteorite_code);
	if (!meteor.on && mnw.puff01 && ran_between(0.0f, period) < 10.0f) {
		meteor = {1, ran_between(0.0f, (float)mnw.x_res_now), ran_between(0.5f, 1.0f) * (float)mnw.y_res_now, ran_between(-16.0f, 16.0f), ran_between(-16.0f, -4.0f), 0.0f};
	}
	if (!meteor.on) return;
	meteor.sx += meteor.dx;
	meteor.sy += meteor.dy;
	meteor.burn_time += mnw.prd_FM;
	if (meteor.burn_time >= 2.0f) { meteor.on = 0; return; }
	const float a = (1.0f - std::fabs(meteor.burn_time - 1.0f)) * brat_star;
	if (a <= 0.01f) return;
	glMatrixMode(GL_PROJECTION);
	glPushMatrix();
	glLoadIdentity();
	glOrtho(0.0, std::max(mnw.x_res_now, 1), 0.0, std::max(mnw.y_res_now, 1), -1.0, 1.0);
	glMatrixMode(GL_MODELVIEW);
	glPushMatrix();
	glLoadIdentity();
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_depth_read, st_depth_write);
	OGL_setcolorRGBA(1.0f, 1.0f, 0.9f, a, 1);
	glBegin(GL_LINES);
	glVertex2f(meteor.sx, meteor.sy);
	glVertex2f(meteor.sx + meteor.dx, meteor.sy + meteor.dy);
	glEnd();
	glPopMatrix();
	glMatrixMode(GL_PROJECTION);
	glPopMatrix();
	glMatrixMode(GL_MODELVIEW);
}

// Four curtains low in the north, each wandering in width, height, shape and brightness.
struct curtain { float v[4], vel[4]; } curtains[4];
bool curtains_set = false;

void draw_aurora(float brat_ab)
{
	const float lim[4] = {dis_to_sun * 0.008f, dis_to_sun * 0.004f, 0.015f, 0.015f};
	const float rest[4] = {dis_to_sun, dis_to_sun * 0.5f, 0.5f, 0.5f};   // width, height, where the fold is, brightness
	if (!curtains_set) {
		for (curtain& c : curtains)
			for (int k = 0; k < 4; k++) {
				c.v[k] = rest[k] * ran_between(0.8f, 1.2f);
				c.vel[k] = 0.0f;
			}
		curtains_set = true;
	}
	OGL_setstate(st_fog_off, 1, st_unlit, st_blend, st_depth_read, st_depth_write);
	for (int n = 0; n < 4; n++) {
		curtain& c = curtains[n];
		for (int k = 0; k < 4; k++) {
			if (ran_between(0.0f, 1.0f) < mnw.prd_FM) c.vel[k] = std::clamp(c.vel[k] + ran_between(-lim[k], lim[k]), -lim[k], lim[k]);
			c.v[k] += c.vel[k] + (rest[k] - c.v[k]) * 0.01f;
		}
		const float dx = std::max(c.v[0], 1.0f), dy = std::max(c.v[1], 1.0f), cx = std::clamp(c.v[2], 0.0f, 1.0f), al = std::clamp(c.v[3], 0.0f, 1.0f);
		// An odd shape dims: a fold near an end, a curtain too tall for its width or too wide.
		float mult = std::min(std::clamp((cx - 0.0f) / 0.2f, 0.0f, 1.0f), std::clamp((1.0f - cx) / 0.2f, 0.0f, 1.0f));
		mult *= 1.0f - std::clamp((dy / dx - 1.5f) / 1.5f, 0.0f, 1.0f);
		mult *= 1.0f - std::clamp((dx / dy - 2.5f) / 2.5f, 0.0f, 1.0f);
		const float a = mult * al * brat_ab * 0.4f;
		if (a <= 0.01f) continue;
		OGL_bind(212 + n, 0);
		OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, a, 1);
		const float z = -0.7f * dis_to_sun, y0 = dis_to_sun * 0.4f - dy * 0.5f, x0 = -dx * 0.5f + (n - 1.5f) * dx * 0.3f;
		const float fold = x0 + dx * cx, bend = dx * 0.1f;   // two panels meeting at the fold, bent toward the eye
		glBegin(GL_QUADS);
		glTexCoord2f(0.0f, 0.0f); glVertex3f(x0, y0, z);
		glTexCoord2f(0.5f, 0.0f); glVertex3f(fold, y0, z + bend);
		glTexCoord2f(0.5f, 1.0f); glVertex3f(fold, y0 + dy, z + bend);
		glTexCoord2f(0.0f, 1.0f); glVertex3f(x0, y0 + dy, z);
		glTexCoord2f(0.5f, 0.0f); glVertex3f(fold, y0, z + bend);
		glTexCoord2f(1.0f, 0.0f); glVertex3f(x0 + dx, y0, z);
		glTexCoord2f(1.0f, 1.0f); glVertex3f(x0 + dx, y0 + dy, z);
		glTexCoord2f(0.5f, 1.0f); glVertex3f(fold, y0 + dy, z + bend);
		glEnd();
	}
}

}  // namespace

sky_brightness sky_object_brightness(float earth_rat)
{
	sky_brightness b{};
	b.brat_base = ramp01(lgt_amb_clear[0] + lgt_amb_clear[1] + lgt_amb_clear[2]);   // the glare in the eye lights no stars
	const float vis_nm = atm.vis_sky / nm;
	b.brat_star = ramp01(vis_nm / 7.0f) * (1.0f - 2.0f * b.brat_base);
	b.brat_ab = ramp01(vis_nm / 7.0f) * (1.0f - 6.0f * b.brat_base);
	b.brat_sm[0] = ramp01(vis_nm / 5.0f);
	b.brat_sm[1] = env.planet == 1 ? 0.0f : b.brat_sm[0] * (1.0f - 0.4f * b.brat_base);
	if (ren.night_vision_on) b.brat_star = b.brat_sm[1] = 1.0f;
	b.star_boost = std::sqrt(ramp01(1.0f - earth_rat)) * 0.6f;
	return b;
}

int meteor_period(int code)
{
	static const int by_code[5] = {300, 600, 300, 150, 30};
	return by_code[std::clamp(code, 0, 4)];
}

float sky_magnify(float elevation_deg) { return 1.0f + 0.5f * (1.0f - ramp01(elevation_deg / 5.0f)); }

void draw_sky_objects(float earth_rat)
{
	const sky_brightness b = sky_object_brightness(earth_rat);
	const float* amb = lgt_amb_clear;
	const bool dark_enough = amb[0] < b.brat_star || amb[1] < b.brat_star || amb[2] < b.brat_star;
	if (ren.stars_are_vis && dark_enough) {
		float m[16];
		sky_to_local(flt[0].dob_lat, side_time_hrs, m);
		glPushMatrix();
		glMultMatrixf(m);
		draw_stars(b.brat_star, b.star_boost);
		glPopMatrix();
		draw_meteor(b.brat_star);
	}
	draw_sun_and_moon(b);
	if (atm.plot_aurora && (amb[0] < b.brat_ab || amb[1] < b.brat_ab || amb[2] < b.brat_ab)) draw_aurora(b.brat_ab);
}
