// Panel pieces that later steps build; until then each does nothing.
#include "cockpit/HL_COCKPIT.h"

#include "cockpit/panel.h"

void update_dashbool(int, int) {}   // panel switches: later step
int run_ins_routine(int code) { return code >= 0 && code < ins_code_max; }   // the catalogue's routines: next step; until then each code shows its plate
void HUD_HOOPS_plot() {}   // head-up display: HUD step
void HUD_reg_plot_all() {}   // head-up display: HUD step
int tuned_ils_nav() { return -1; }   // receivers: radios step
