// Loading an aircraft: the file read, the units converted to SI, positions taken to
// the centre of gravity, and the finite-wing, propeller, mass and downwash quantities
// that the force code reads every step.
#pragma once

int load_plane(int p);
float get_el_base_loc(int p, int en, float fltel, const char& axis);
void get_el_base_xyz(int p, int en, float fltel, float* x, float* y, float* z);   // a wing-like part's point, aircraft axes
float ret_e(float aspec, float washo, float sweep, float taper);
void get_MI_S_body(int p, int en, int is_wpn, float x, float y, float z, float* s_frn, float* s_sid, float* s_top,
                   float* x_aero, float* y_aero, float* z_aero, float* swet_tot, float* Jxx_unitmass,
                   float* Jyy_unitmass, float* Jzz_unitmass);
void ret_body_grid(int p, int en, int is_wpn, int* stations, int* points);   // stations, points round each
const char* ret_part_name(int en);
