// The instrument panel.
#pragma once

void load_panel_for_plane();   // panel bitmaps and instrument layers of the pilot's aircraft
void update_dashbool(int sw, int engine);   // a panel switch, as if clicked
