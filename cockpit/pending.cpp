// Panel pieces that later steps build; until then each does nothing.
#include "cockpit/HL_COCKPIT.h"

void load_panel_for_plane() {}   // panel: later step
void update_dashbool(int, int) {}   // panel switches: later step
