// The 1024 x 768 panel space inside any window: scaled by the smaller ratio but never
// shrunk, centred across, its margin above; and the 2-D and 3-D projections.
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <algorithm>

void OGL_set_panel_space(int x_res, int y_res)
{
	mnw.x_res_now = std::max(x_res, 1);
	mnw.y_res_now = std::max(y_res, 1);
	mnw.xy_scale = std::max(1.0f, std::min(mnw.x_res_now / 1024.0f, mnw.y_res_now / 768.0f));
	mnw.x_off = (mnw.x_res_now / mnw.xy_scale - 1024.0f) * 0.5f;
	mnw.y_off = mnw.y_res_now / mnw.xy_scale - 768.0f;
	mnw.x1_pix = -mnw.x_off;
	mnw.y1_pix = 0.0f;
	mnw.x2_pix = mnw.x_off + 1024.0f;
	mnw.y2_pix = mnw.y_off + 768.0f;
}

void OGL_viewport(int mode, float rat_x1, float rat_y1, float rat_x2, float rat_y2, float pix_x1, float pix_y1, float pix_x2,
                  float pix_y2, float near_clip, float far_clip, float zoom)
{
	if (!plat_has_gl()) return;
	if (zoom <= 0.0f) zoom = 1.0f;
	glMatrixMode(GL_PROJECTION);
	glLoadIdentity();
	if (mode == 2) {   // logical panel space over the whole window
		glViewport(0, 0, mnw.x_res_now, mnw.y_res_now);
		glOrtho(mnw.x1_pix / zoom, mnw.x2_pix / zoom, mnw.y1_pix / zoom, mnw.y2_pix / zoom, -1.0, 1.0);
	} else {   // 3-D through a rectangle of the panel; one ratio set serves any aspect
		const float px1 = (pix_x1 + mnw.x_off) * mnw.xy_scale, px2 = (pix_x2 + mnw.x_off) * mnw.xy_scale;
		const float py1 = pix_y1 * mnw.xy_scale, py2 = pix_y2 * mnw.xy_scale;
		glViewport((GLint)px1, (GLint)py1, (GLsizei)std::max(px2 - px1, 1.0f), (GLsizei)std::max(py2 - py1, 1.0f));
		const float aspect = (pix_y2 - pix_y1) / std::max(pix_x2 - pix_x1, 1e-3f);
		glFrustum(rat_x1 * near_clip / zoom, rat_x2 * near_clip / zoom, rat_y1 * near_clip * aspect / zoom,
		          rat_y2 * near_clip * aspect / zoom, near_clip, far_clip);
	}
	glMatrixMode(GL_MODELVIEW);
	glLoadIdentity();
}
