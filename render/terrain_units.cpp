// The ground's extra texture unit: a cloud's shadow darkening it, the landing light's pool
// brightening it, or the sun's glitter on the water, each laid by its own coordinates.
#include "render/terrain.h"
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <GL/glext.h>

namespace {

enum { second_none, second_shadow, second_lamp, second_glitter };
int second_kind = second_none;

// The unit's colour from what is below it (argument 1), its texture (argument 2) and a first
// argument of the caller's, by the function given; the alpha is left as it was.
void combine_rgb(GLenum function, GLenum source0)
{
	glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_COMBINE);
	glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_RGB, function);
	const GLenum sources[3] = {source0, GL_PREVIOUS, GL_TEXTURE};
	for (int k = 0; k < 3; k++) {
		glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_RGB + k, sources[k]);
		glTexEnvi(GL_TEXTURE_ENV, GL_OPERAND0_RGB + k, GL_SRC_COLOR);
	}
	glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_ALPHA, GL_REPLACE);
	glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_ALPHA, GL_PREVIOUS);
	glTexEnvi(GL_TEXTURE_ENV, GL_OPERAND0_ALPHA, GL_SRC_ALPHA);
}

}  // namespace

void ret_shadow_st(const float* p, float* s, float* t)
{
	// The shadow map lies at the cloud's height: slid along the light by the drop to the ground.
	const float drop = ren.shad_yc - p[1];
	*s = (p[0] - ren.shad_x1 + drop * ren.lgt_dx_by_dy) * ren.shad_dspm;
	*t = (p[2] - ren.shad_z1 + drop * ren.lgt_dz_by_dy) * ren.shad_dtpm;
}

void ret_lite_st(const float* p, float* s, float* t)
{
	const float dx = p[0] - ren.light_x_cen, dz = p[2] - ren.light_z_cen;
	*s = 0.5f + dx * ren.light_ds_dx + dz * ren.light_ds_dz;
	*t = 0.5f + dx * ren.light_dt_dx + dz * ren.light_dt_dz;
}

void ret_reflect_st(const float* p, float* s, float* t)
{
	const float dx = p[0] - ren.view_xyz[0], dz = p[2] - ren.view_xyz[2];
	*s = 0.5f + dx * ren.reflect_ds_dx + dz * ren.reflect_ds_dz;
	*t = 0.5f + dx * ren.reflect_dt_dx + dz * ren.reflect_dt_dz;
}

int terrain_second_tex()
{
	if (!ren.sha_or_lit_or_sun) {
		second_kind = second_none;
		return 0;
	}
	if (ren.shadow_alpha > 0.0f) {
		second_kind = second_shadow;
		return ren.shadow_final_tex;
	}
	second_kind = ren.plot_sun_reflect ? second_glitter : second_lamp;
	return second_kind == second_glitter ? 227 : 224;
}

void terrain_second_env(int unit, int tex)
{
	OGL_bind(tex, unit);
	glActiveTexture(GL_TEXTURE0 + unit);
	if (second_kind == second_glitter) {
		// Toward the sun's own colour as far as the glitter reaches.
		const GLfloat sun[4] = {ren.sun_rgb[0], ren.sun_rgb[1], ren.sun_rgb[2], 1.0f};
		glTexEnvfv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_COLOR, sun);
		combine_rgb(GL_INTERPOLATE, GL_CONSTANT);
	} else if (second_kind == second_lamp && ren.mod_add_avail) {
		combine_rgb(GL_MODULATE_ADD_ATI, GL_TEXTURE0);   // the lamp lights the land's own colour: below plus land times pool
	} else {
		// Without that the pool is light added; a cloud's shadow darkens.
		glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, second_kind == second_lamp ? GL_ADD : GL_MODULATE);
	}
	glActiveTexture(GL_TEXTURE0);
}

void terrain_units_reset(int units)
{
	for (int u = 1; u < units; u++) {
		glActiveTexture(GL_TEXTURE0 + u);
		glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
	}
	glActiveTexture(GL_TEXTURE0);
}

void terrain_second_st(int unit, const float* p)
{
	float s = 0.0f, t = 0.0f;
	if (second_kind == second_shadow) ret_shadow_st(p, &s, &t);
	else if (second_kind == second_lamp) ret_lite_st(p, &s, &t);
	else if (second_kind == second_glitter) ret_reflect_st(p, &s, &t);
	else return;
	glMultiTexCoord2f(GL_TEXTURE0 + unit, s, t);
}
