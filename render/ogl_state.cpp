// The one state setter and the texture binder: each reads what is live and touches only
// what differs, so callers can ask for a whole state every time.
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include <GL/gl.h>
#include <GL/glext.h>

int num_texes = 0;
int o_tex[4] = {-1, -1, -1, -1};

namespace {

void set_cap(GLenum cap, bool on)
{
	if ((glIsEnabled(cap) == GL_TRUE) == on) return;
	if (on) glEnable(cap);
	else glDisable(cap);
}

}  // namespace

void OGL_setstate(int fog, int tex_units, int lit, int alpha, int depth_read, int depth_write)
{
	set_cap(GL_FOG, fog == st_fog_on);
	int units = tex_units < 0 ? 0 : tex_units > 4 ? 4 : tex_units;
	if (units > ren.num_tex_units) units = ren.num_tex_units > 0 ? ren.num_tex_units : (units > 0 ? 1 : 0);
	if (units != num_texes && (units > 1 || num_texes > 1)) {
		const int have = ren.num_tex_units < 4 ? (ren.num_tex_units > 0 ? ren.num_tex_units : 1) : 4;
		for (int u = 0; u < have; u++) {
			glActiveTexture(GL_TEXTURE0 + u);
			set_cap(GL_TEXTURE_2D, u < units);
		}
		glActiveTexture(GL_TEXTURE0);
	} else {
		set_cap(GL_TEXTURE_2D, units > 0);
	}
	num_texes = units;
	set_cap(GL_LIGHTING, lit == st_lit);
	set_cap(GL_LIGHT0, lit == st_lit);
	set_cap(GL_BLEND, alpha == st_blend || alpha == st_blend_test);
	set_cap(GL_ALPHA_TEST, alpha == st_alpha_test || alpha == st_blend_test);
	set_cap(GL_DEPTH_TEST, depth_read == st_depth_read);
	GLboolean mask = GL_TRUE;
	glGetBooleanv(GL_DEPTH_WRITEMASK, &mask);
	if ((mask == GL_TRUE) != (depth_write == st_depth_write)) glDepthMask(depth_write == st_depth_write ? GL_TRUE : GL_FALSE);
	glColor3fv(col_rgb[43]);
}

void OGL_bind(int tex, int unit)
{
	if (unit < 0 || unit > 3 || o_tex[unit] == tex) return;
	o_tex[unit] = tex;
	if (num_texes <= 1 || unit == 0) {
		glBindTexture(GL_TEXTURE_2D, (GLuint)tex);
		return;
	}
	glActiveTexture(GL_TEXTURE0 + unit);
	glBindTexture(GL_TEXTURE_2D, (GLuint)tex);
	glActiveTexture(GL_TEXTURE0);
}

void OGL_poly_offset(float amount)
{
	if (amount == 0.0f) {
		glDisable(GL_POLYGON_OFFSET_FILL);
		return;
	}
	glEnable(GL_POLYGON_OFFSET_FILL);
	glPolygonOffset(amount * -5.0f, 0.0f);
}

void OGL_scissors(float x, float y, float dx, float dy)
{
	glEnable(GL_SCISSOR_TEST);
	glScissor((GLint)((mnw.x_off + mnw.win_x + x) * mnw.xy_scale), (GLint)((mnw.win_y + y) * mnw.xy_scale), (GLsizei)(dx * mnw.xy_scale),
	          (GLsizei)(dy * mnw.xy_scale));
}

void OGL_scissors_end() { glDisable(GL_SCISSOR_TEST); }

void OGL_setspec(float spec)
{
	const GLfloat s[4] = {spec, spec, spec, 1.0f};
	glLightfv(GL_LIGHT0, GL_SPECULAR, s);
	glMaterialfv(GL_FRONT, GL_SPECULAR, s);
	glMaterialf(GL_FRONT, GL_SHININESS, 128.0f);
}
