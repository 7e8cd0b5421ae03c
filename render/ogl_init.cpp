// The OpenGL situation report and the fixed state set once at start.
#include "render/HL_GRAPH.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <cstring>
#include <string>

static std::string gl_str(GLenum e)
{
	const GLubyte* s = glGetString(e);
	return s ? (const char*)s : "";
}

void OGL_report_situation()
{
	if (!plat_has_gl()) return;
	std::string vendor = gl_str(GL_VENDOR), renderer = gl_str(GL_RENDERER), version = gl_str(GL_VERSION);
	std::string ext = gl_str(GL_EXTENSIONS);
	auto has = [&ext](const char* e) { return ext.find(e) != std::string::npos; };
	int major = 0, minor = 0;
	std::sscanf(version.c_str(), "%d.%d", &major, &minor);
	ren.tex_clamp_avail = major > 1 || (major == 1 && minor >= 2) || has("GL_EXT_texture_edge_clamp") || has("GL_SGIS_texture_edge_clamp");
	ren.add_env_avail = has("GL_ARB_multitexture") && has("GL_ARB_texture_env_add");
	ren.dis_fog_avail = has("GL_NV_fog_distance");
	ren.tex_comp_avail = has("GL_ARB_texture_compression");
	ren.mod_add_avail = has("GL_ATI_texture_env_combine3") && (major > 1 || (major == 1 && minor >= 4) || has("GL_ARB_texture_env_crossbar"));
	GLint units = 1, maxdim = 0;
	glGetIntegerv(0x84E2 /* GL_MAX_TEXTURE_UNITS_ARB */, &units);
	glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxdim);
	ren.num_tex_units = units;
	ren.maxtexdim = maxdim;
	if (has("GL_EXT_texture_filter_anisotropic")) {
		GLfloat iso = 1.0f;
		glGetFloatv(0x84FF /* GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT */, &iso);
		ren.max_iso = iso;
	}
	xer << "OpenGL Situation:\n" << "vendor: " << vendor << "\nrenderer: " << renderer << "\nversion: " << version
	    << "\ntexture units: " << units << "\nlargest texture: " << maxdim << "\nedge clamp: " << ren.tex_clamp_avail
	    << "\nmultitexture add: " << ren.add_env_avail << "\nfog distance: " << ren.dis_fog_avail
	    << "\ntexture compression: " << ren.tex_comp_avail << "\nmodulate-add: " << ren.mod_add_avail << "\n";
	xer.flush();
	// A renderer that draws in software: said once, and the simulator goes on.
	if (renderer.find("GENERIC") != std::string::npos || renderer.find("llvmpipe") != std::string::npos ||
	    renderer.find("softpipe") != std::string::npos)
		NB_ALERT("I could not find a 3-D accelerator for OpenGL!", "Nimbara will run, but slowly, on the software renderer:", renderer,
		         "Install the OpenGL driver for your graphics card for smooth flight.", alert_notice);
}

void OGL_init_state()
{
	if (!plat_has_gl()) return;
	static const GLfloat ogl_base_amb[4] = {0.2f, 0.2f, 0.2f, 1.0f};   // what light 0 leaves unlit
	glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ogl_base_amb);
	glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
	glPixelStorei(GL_PACK_ALIGNMENT, 1);
	glAlphaFunc(GL_GREATER, 0.0f);
	glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
	glDepthFunc(GL_LEQUAL);
	glFogi(GL_FOG_MODE, GL_LINEAR);
	glHint(GL_FOG_HINT, GL_NICEST);
	glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
	glFrontFace(GL_CW);
	glCullFace(GL_BACK);
	glEnable(GL_CULL_FACE);
	glShadeModel(GL_SMOOTH);
	glEnable(GL_DITHER);
	glEnable(GL_LINE_SMOOTH);
	glDisable(GL_STENCIL_TEST);
	glDisable(GL_COLOR_LOGIC_OP);
	glDisable(GL_SCISSOR_TEST);
	glEnable(GL_COLOR_MATERIAL);
}
