// The instrument panel.
#pragma once

void load_panel_for_plane();   // panel bitmaps and instrument layers of the pilot's aircraft
void update_dashbool(int sw, int engine);   // a panel switch, as if clicked
void MACIBM_update_back_texes();   // the panel bitmap of the view shown, into texture 480
void APPLICATION_update_panel();   // the instruments over the panel
void HUD_HOOPS_plot();   // the head-up display's path hoops in the world
void HUD_reg_plot_all();   // every head-up display instrument of the panel
int tuned_ils_nav();   // the localiser the first receiver tuned to one hears, -1 for none
