// A text file or a checklist over the picture: a gray sheet of wrapped text; the checklist
// shows one line at a time, stepped by its arrows and read aloud.
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include "ui/HL_UI.h"
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

namespace {

std::string sheet;   // reused each frame: its room is kept

bool box_clicked(float x, float y)
{
	return mnw.mouse_clicked && std::fabs((float)mnw.mx - x) <= 8.0f && std::fabs((float)mnw.my - y) <= 8.0f;
}

}  // namespace

void plot_text_and_checklist()
{
	const float top = mnw.y2_pix - 60.0f, left = 62.0f, right = 962.0f;
	if (stl.show_text_disp && stl.num_text_lines > 0) {
		sheet.clear();
		for (int k = 0; k < std::min(stl.num_text_lines, text_line_max); k++) {
			sheet.append(stl.text_disp[k], strnlen(stl.text_disp[k], text_line_len));
			sheet.push_back('\n');
		}
		const float lines = (float)std::min(stl.num_text_lines, 60);
		OGL_grayrect(left - 8.0f, top - lines * 10.0f - 10.0f, right + 8.0f, top + 14.0f, 0.5f);
		OGL_string(0, left, top, sheet, right - left, 101);
	} else if (stl.show_checklist && msc.checklist_max > 0) {
		const int last = std::min(msc.checklist_max, text_line_max) - 1;
		msc.checklist_now = std::clamp(msc.checklist_now, 0, last);
		OGL_grayrect(left - 8.0f, top - 30.0f, right + 8.0f, top + 14.0f, 0.5f);
		const float ya = top - 20.0f, xl = left + 8.0f, xr = right - 8.0f;
		OGL_framerect(0, 1.0f, xl - 8.0f, ya - 8.0f, 16.0f, 16.0f);
		OGL_framerect(0, 1.0f, xr - 8.0f, ya - 8.0f, 16.0f, 16.0f);
		OGL_line(0, 1.0f, xl + 3.0f, ya + 5.0f, xl - 3.0f, ya);
		OGL_line(0, 1.0f, xl - 3.0f, ya, xl + 3.0f, ya - 5.0f);
		OGL_line(0, 1.0f, xr - 3.0f, ya + 5.0f, xr + 3.0f, ya);
		OGL_line(0, 1.0f, xr + 3.0f, ya, xr - 3.0f, ya - 5.0f);
		const int was = msc.checklist_now;
		if (box_clicked(xl, ya)) msc.checklist_now = std::max(was - 1, 0);
		if (box_clicked(xr, ya)) msc.checklist_now = std::min(was + 1, last);
		sheet.assign(stl.checklist[msc.checklist_now], strnlen(stl.checklist[msc.checklist_now], text_line_len));
		if (msc.checklist_now != was) SPEECH_speakstring(sheet.c_str(), 0);
		OGL_string(0, left + 24.0f, top, sheet, right - left - 48.0f, 101);
	}
}
