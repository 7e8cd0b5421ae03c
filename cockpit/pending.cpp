// Panel pieces that later steps build; until then each does nothing.
#include "cockpit/HL_COCKPIT.h"

void load_panel_for_plane() {}   // panel: later step
void update_dashbool(int, int) {}   // panel switches: later step
void MACIBM_update_back_texes() {}   // panel bitmaps: panel step
void APPLICATION_update_panel() {}   // instruments: panel step
void HUD_HOOPS_plot() {}   // head-up display: HUD step
void HUD_reg_plot_all() {}   // head-up display: HUD step
int tuned_ils_nav() { return -1; }   // receivers: radios step
