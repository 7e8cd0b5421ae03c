// The panel plate behind and round the instruments, the buffer swap, and screenshots.
#include "render/ogl.h"
#include "render/HL_GRAPH.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <algorithm>
#include <string>

void OGL_plot_background()
{
	if (!plat_has_gl()) return;
	if ((mnw.x_off > 0.5f || mnw.y_off > 0.5f) && mnw.top_win != 0) {   // the margin round a panel that does not fill the window
		OGL_setstate(st_fog_off, 0, st_unlit, st_opaque, st_no_depth_read, st_no_depth_write);
		OGL_setcolorINDEX(28, 1.0f);
		glBegin(GL_QUADS);
		glVertex2f(mnw.x1_pix, mnw.y1_pix);
		glVertex2f(mnw.x1_pix, mnw.y2_pix);
		glVertex2f(mnw.x2_pix, mnw.y2_pix);
		glVertex2f(mnw.x2_pix, mnw.y1_pix);
		glEnd();
	}
	if (!ren.tex_vram[480]) return;   // no panel composed yet
	float offset = 0.0f;
	if (mnw.top_win == 0) {   // the panel scrolls toward its target
		const int p = view_panel_index(ren.view_type_act);
		const float target = mnw.look_up_mode == 0 ? mnw.look_up_UP[p] : mnw.look_up_mode == 2 ? mnw.look_up_DN[p] : mnw.look_up_CTR[p];
		const float f = std::clamp(mnw.prd_FM * 5.0f, 0.0f, 1.0f);
		mnw.look_up = target * f + (1.0f - f) * mnw.look_up;
		offset = mnw.look_up;
	}
	OGL_setstate(st_fog_off, 1, st_unlit, ren.current_alpha > 0.99f ? st_alpha_test : st_blend, st_no_depth_read, st_no_depth_write);
	OGL_bind(480, 0);
	OGL_setcolorINDEX(0, 1.0f);
	glBegin(GL_QUADS);   // holes in the panel stay see-through
	glTexCoord2f(0, 0); glVertex2f(0.0f, -offset);
	glTexCoord2f(0, 1); glVertex2f(0.0f, 1024.0f - offset);
	glTexCoord2f(1, 1); glVertex2f(1024.0f, 1024.0f - offset);
	glTexCoord2f(1, 0); glVertex2f(1024.0f, -offset);
	glEnd();
}

void OGL_sbuf()
{
	if (plat_has_gl()) glColor3f(1.0f, 1.0f, 1.0f);
	plat_swap_buffers();
}

void OGL_screenshot()
{
	static int count = 0;
	if (!plat_has_gl()) return;
	count++;
	const int dx = std::min(1024, mnw.x_res_now), dy = std::min(mnw.y_res_now, 1024);
	const int x0 = std::max(0, (mnw.x_res_now - dx) / 2), y0 = std::max(0, (mnw.y_res_now - dy) / 2);
	glPixelStorei(GL_PACK_ALIGNMENT, 1);
	glReadPixels(x0, y0, dx, dy, GL_RGB, GL_UNSIGNED_BYTE, scratch_array);
	OGL_make_bmp(app_path + "screenshot_" + std::to_string(count) + ".bmp", dx, dy);
}
