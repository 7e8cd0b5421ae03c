// The main window: its procedure, which turns the platform's messages into input
// state, and the switch of the display mode and context.
#include "ui/HL_UI.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "platform/plat.h"
#include "plugin/HL_PLUGIN.h"
#include "render/ogl.h"

static int have_created_ibm_win = 0;

void IBM_handlewin(int msg, int wparam, int lparam)
{
	switch (msg) {
	case msg_create: have_created_ibm_win = 1; break;
	case msg_destroy: g_done = 1; break;
	case msg_paint:
		if (!mnw.paused) {
			MACIBM_startwind(mnw.top_win, "from update event");
			have_done_first_update = 1;
		}
		break;
	case msg_keydown:
		if (NBPKeyPressHook(wparam, 1)) {
			MACIBM_handlekey(wparam);
			mnw.key_hit = 1;
			mnw.any_key_is_down = 1;
		}
		break;
	case msg_keyup:
		if (NBPKeyPressHook(wparam, 0)) {
			stop_fire();
			mnw.any_key_is_down = 0;
		}
		break;
	case msg_mousemove:
		if (mnw.xy_scale > 0.0f) {
			mnw.mx = (int)(wparam / mnw.xy_scale - mnw.win_x - mnw.x_off);
			mnw.my = (int)((mnw.y_res_now - lparam) / mnw.xy_scale - mnw.win_y);
		}
		break;
	case msg_lbuttondown:
	case msg_rbuttondown:
		if (NBPMouseClickHook(mnw.mx, mnw.my, 1)) {
			mnw.mouse_clicked = 1;
			MACIBM_handleclick(0);
		}
		break;
	case msg_lbuttonup:
	case msg_rbuttonup:
		if (NBPMouseClickHook(mnw.mx, mnw.my, 0)) mnw.mouse_lifted = 1;
		break;
	case msg_mousewheel: mnw.mouse_wheel += wparam / 120; break;
	case msg_size: OGL_set_panel_space(wparam, lparam); break;   // the panel space follows the window
	default: break;
	}
}

int MACIBM_setres(int on)
{
	if (!on) { plat_close_window(); return 1; }
	return plat_open_window(mnw.x_res_req, mnw.y_res_req);
}

int MACIBM_getcontext() { return plat_make_context(); }
