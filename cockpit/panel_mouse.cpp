// The panel's hit tests: every control asks whether the mouse is in its box, relative to the
// instrument's centre and scaled with it, limits included; none answers with a menu open.
// The controls also set the pointer's shape while the mouse is over them.
#include "cockpit/panel.h"
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include <algorithm>

namespace {

bool lever_code(int code) { return code >= 47 && code <= 64; }

}  // namespace

bool in_ins_box(float x1, float y1, float x2, float y2)
{
	const float s = ins_size;
	if (msc.show_hotspots) OGL_framerect(52, 0.5f, mnw.win_x + x1 * s, mnw.win_y + y1 * s, (x2 - x1) * s, (y2 - y1) * s);
	if (mnw.menu_up != -1) return false;
	const float mx = (float)(mnw.mx - mnw.win_x), my = (float)(mnw.my - mnw.win_y);
	return mx >= x1 * s && mx <= x2 * s && my >= y1 * s && my <= y2 * s;
}

bool but_mouse_region(float x1, float y1, float x2, float y2, int constant_drag)
{
	if (!in_ins_box(x1, y1, x2, y2)) return false;
	mnw.cursor_type = lever_code(ins_type) ? 11 : 10;
	return constant_drag ? mnw.now_dragging != 0 : mnw.mouse_clicked != 0;
}

bool but_bool(float x, float y, float s, int constant_drag) { return but_mouse_region(x - s, y - s, x + s, y + s, constant_drag); }

float but_scroll(int but_typ, float x, float y, float s, float rate1, float rate2, int keep_going)
{
	if (!in_ins_box(x - s, y - s, x + s, y + s)) return 0.0f;
	// The mouse from the box's centre, in the panel's own pixels.
	const float k = ins_size > 0.0f ? ins_size : 1.0f;
	const float dx = (mnw.mx - mnw.win_x) / k - x, dy = (mnw.my - mnw.win_y) / k - y;
	int dir = 0;
	if (but_typ == 0) dir = -dy > dx ? -1 : -dy < dx ? 1 : 0;   // the lower left half turns down
	else if (but_typ == 1) dir = dy < 0.0f ? -1 : dy > 0.0f ? 1 : 0;
	else dir = dx < 0.0f ? -1 : dx > 0.0f ? 1 : 0;
	if (dir != 0) {
		static const int cursor[3][2] = {{2, 3}, {6, 7}, {8, 9}};
		const int t = std::clamp(but_typ, 0, 2);
		mnw.cursor_type = cursor[t][dir > 0] + (t == 0 && s > 10.0f ? 2 : 0);
	}
	float amount = 0.0f;
	if (mnw.mouse_clicked) amount = rate1;
	else if (mnw.delay_dragging && keep_going) amount = rate2 * mnw.prd_FM;
	return dir * amount;
}
