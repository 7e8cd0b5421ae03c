// The sky drawn round the eye before anything else: the dome of the sky table, and the
// horizon band of fog colour from the nadir up to just over the dipped horizon, so that no
// pixel of an earlier frame can show.
#include "render/sky_dome.h"
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

bool sky_tex_ready = false;

// A point at a heading and elevation, degrees, at distance r; lateral offset w to the right.
void dome_vertex(float psi, float elev, float r, float w)
{
	const float d = (float)M_PI / 180.0f;
	const float c = std::cos(elev * d), x = std::sin(psi * d), z = -std::cos(psi * d);
	glVertex3f(r * c * x + w * std::cos(psi * d), r * std::sin(elev * d), r * c * z + w * std::sin(psi * d));
}

// Half the strip's width at distance r: wide enough for the picture's diagonal at any roll.
float half_width(float r)
{
	const float aspect = mnw.x_res_now > 0 ? (float)mnw.y_res_now / (float)mnw.x_res_now : 0.75f;
	const float half = std::tan(std::min(ren.FOV, 170.0f) * 0.5f * (float)M_PI / 180.0f) * std::sqrt(1.0f + aspect * aspect);
	return r * std::max(half * 1.5f, 1.0f);
}

}  // namespace

void draw_sky_dome(float the_os, float sun_psi)
{
	const float r = ren.dome_rad, w = half_width(r);
	const float hw_deg = std::atan2(w, r) * 180.0f / (float)M_PI;
	const float del = std::fmod(ren.final_psi - sun_psi + 540.0f, 360.0f) - 180.0f;   // the view's heading from the sun's
	const float s_lft = (del - hw_deg) / 360.0f + 0.5f, s_rgt = (del + hw_deg) / 360.0f + 0.5f;
	OGL_setstate(st_fog_off, 1, st_unlit, st_opaque, st_depth_read, st_depth_write);
	OGL_bind(481, 0);
	if (!sky_tex_ready) {   // the 64 x 16 table, replaced each frame
		glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 64, 16, 0, GL_RGB, GL_UNSIGNED_BYTE, ren.sky_256);
		glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
		glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
		glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
		glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
		ren.tex_dx_vis[481] = ren.tex_dx_tot[481] = 64;
		ren.tex_dy_vis[481] = ren.tex_dy_tot[481] = 16;
		ren.tex_vram[481] = 64 * 16 * 3;
		sky_tex_ready = true;
	}
	glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
	glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 64, 16, GL_RGB, GL_UNSIGNED_BYTE, ren.sky_256);
	glColor3f(1.0f, 1.0f, 1.0f);
	glBegin(GL_QUAD_STRIP);   // rows every 30 degrees, over the top and down behind
	for (int a = 0; a <= 180; a += 30) {
		const float t = std::clamp(a / 30.0f, 0.0625f, 0.9375f);
		const float elev = a <= 90 ? a - the_os : 180.0f - a;
		const float psi = a <= 90 ? ren.final_psi : ren.final_psi + 180.0f;
		const float side = a <= 90 ? 1.0f : -1.0f;   // behind the zenith left and right change places
		glTexCoord2f(s_lft, t);
		dome_vertex(psi, elev, r, -w * side);
		glTexCoord2f(s_rgt, t);
		dome_vertex(psi, elev, r, w * side);
	}
	glEnd();
}

void draw_horizon_band(float the_os, float sig_rat_bot)
{
	const float r = ren.dome_rad * 0.99f, w = half_width(r);
	OGL_assigncolor(92, ren.fog_rgb[0] * sig_rat_bot, ren.fog_rgb[1] * sig_rat_bot, ren.fog_rgb[2] * sig_rat_bot);
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_depth_read, st_depth_write);
	glBegin(GL_QUAD_STRIP);   // from behind below, through the nadir, up to a degree over the dipped horizon
	for (int a = -180; a <= 1; a += (a < 0 ? 30 : 1)) {
		const float elev = a >= -90 ? a - the_os : -180.0f - a;
		const float psi = a >= -90 ? ren.final_psi : ren.final_psi + 180.0f;
		const float side = a >= -90 ? 1.0f : -1.0f;
		OGL_setcolorINDEX(92, a <= 0 ? 1.0f : 0.0f);
		dome_vertex(psi, elev, r, -w * side);
		dome_vertex(psi, elev, r, w * side);
	}
	glEnd();
}
