// The instrument panel.
#pragma once

void load_panel_for_plane();   // panel bitmaps and instrument layers of the pilot's aircraft
