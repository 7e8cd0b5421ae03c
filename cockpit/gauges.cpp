// The flight and engine gauges. Until the gauges step each shows its plate only.
#include "cockpit/gauges.h"

void TEXT_plot_string(float, float, const char*, int, int) {}   // gauges step
void update_num_eng(int) {}   // gauges step
void update_sqr_eng(int) {}   // gauges step
void update_annunciator(int) {}   // gauges step
void update_VOR(int) {}   // gauges step
void update_RMI_ADF() {}   // gauges step
void update_otto() {}   // gauges step
void update_DG() {}   // gauges step
void update_HSI() {}   // gauges step
void update_VVI() {}   // gauges step
void update_Gmeter() {}   // gauges step
void update_totenergy() {}   // gauges step
void update_AOA() {}   // gauges step
void update_flaps() {}   // gauges step
void update_cabin_press() {}   // gauges step
void update_turn() {}   // gauges step
void update_needle() {}   // gauges step
void update_slip() {}   // gauges step
void update_compass() {}   // gauges step
void update_stormscope() {}   // gauges step
void update_radalt() {}   // gauges step
void update_suction() {}   // gauges step
void update_stall() {}   // gauges step
void update_clock() {}   // gauges step
void update_HM_chrono() {}   // gauges step
void update_timer() {}   // gauges step
void update_fuel(int*) {}   // gauges step
void update_thermo() {}   // gauges step
void update_water_quan() {}   // gauges step
void update_baro_pressdig() {}   // gauges step
void update_dme_dig_disp() {}   // gauges step
void update_engine_sync() {}   // gauges step
