// The panel a view shows: forward, the eight around the cockpit, and the lit forward panel.
#include "render/HL_GRAPH.h"
#include "core/HL_TYPES.h"

int view_panel_index(int view_type)
{
	switch (view_type) {
	case 1500:
	case 1520: return ren.cockpit_lite_on && ren.view_bmp_avail[8] ? 8 : 0;
	case 1513:
	case 1506: return 1;
	case 1508: return 2;
	case 1510: return 3;
	case 1511: return 4;
	case 1509: return 5;
	case 1507: return 6;
	case 1505:
	case 1512: return 7;
	default: return 0;
	}
}

bool view_shows_panel(int view_type)
{
	return (view_type >= 1500 && view_type <= 1513) || view_type == 1520;
}
