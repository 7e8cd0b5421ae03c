// The world: atmosphere and wind, the loaded region, navigation data, worker threads.
#pragma once

void WORLD_math_all_cases();
float find_standard_rho(int planet, float h);   // kg/m^3 at h metres on the standard day
float find_temp_cel(float h);                    // standard temperature at h, moved with today's sea level
float find_current_rho_rat();                    // today's density over the standard day's
void ret_wind_spds_acf(float x, float y, float z, float* vx, float* vy, float* vz, int init_cycle);
float find_local_y(float x, float z, float* vx, float* vy, float* vz, int* i, int* j, int fullcheck);
void check_for_shift(double lat, double lon);
void load_region(int full);
void read_planet_nav();
void cloud_update_vars();
void THREAD_Init();
void THREAD_Cleanup();
