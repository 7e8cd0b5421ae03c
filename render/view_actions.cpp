// The view menu's picks. A view waits in view_menu_TYPE and an action in
// view_menu_ACTION until the next frame's camera takes them.
#include "render/view.h"
#include "render/HL_GRAPH.h"
#include "core/HL_TYPES.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"

namespace {

bool is_action(int code) { return (code >= 1501 && code <= 1503) || (code >= 1527 && code <= 1537); }

bool is_cockpit_view(int v) { return v == 1500 || (v >= 1505 && v <= 1513) || v == 1524 || v == 1525; }

}  // namespace

void view_menu_pick(int code)
{
	if (is_action(code)) ren.view_menu_ACTION = code;
	else if (code >= 1500 && code <= 1539) ren.view_menu_TYPE = code;
}

void take_view_action()
{
	const int a = ren.view_menu_ACTION;
	ren.view_menu_ACTION = 0;
	switch (a) {
	case 1501:
		if (is_cockpit_view(ren.view_type_act)) mnw.look_down_deg_req = mnw.look_down_deg_req < -5.0f ? 0.0f : -10.0f;
		break;
	case 1527: handle_pan_zoom(31745); break;
	case 1528: handle_pan_zoom(31746); break;
	case 1530: ren.trans_panel = !ren.trans_panel; break;
	case 1531: flt[0].smoking = !flt[0].smoking; break;
	case 1532: ren.sunglasses_on = !ren.sunglasses_on; break;
	case 1533: ren.night_vision_on = !ren.night_vision_on; break;
	case 1534: replay_toggle(); break;
	case 1535: ren.show_path = (ren.show_path + 1) % 8; break;
	default: break;
	}
}

// An outside visual station holds the forward view with or without the panel.
void force_network_view()
{
	if (net.use_ip[14] && ren.view_type_act != 1525 && ren.view_menu_TYPE != 1525) view_menu_pick(1525);
	if (net.use_ip[15] && ren.view_type_act != 1500 && ren.view_menu_TYPE != 1500) view_menu_pick(1500);
}
