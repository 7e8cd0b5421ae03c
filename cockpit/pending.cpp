// Panel pieces that later steps build; until then each does nothing.
#include "cockpit/HL_COCKPIT.h"

void HUD_HOOPS_plot() {}   // head-up display: HUD step
void HUD_reg_plot_all() {}   // head-up display: HUD step
int tuned_ils_nav() { return -1; }   // receivers: radios step
