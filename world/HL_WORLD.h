// The world: atmosphere and wind, the loaded region, navigation data, worker threads.
#pragma once

void WORLD_math_all_cases();
float find_standard_rho(int planet, float h);   // kg/m^3 at h metres on the standard day
float find_temp_cel(float h);                    // standard temperature at h, moved with today's sea level
float find_current_rho_rat();                    // today's density over the standard day's
void update_local_air();                         // con.lcl_* at the pilot's aircraft
void ret_wind_spds_wrl(float x_wrl, float y_wrl, float z_wrl, float* rx, float* ry, float* rz, int init_cycle);
void get_wind(float h, float* spd_kts, float* dir_mag, float* shr_spd_kts, float* shr_dir_deg, float* turb);
void assign_wind_tbl(float newpart);
float ret_min_layer_thick_mtrs(int layer);
void limit_cloud_typ_rat(int hard_clouds);
float ret_turb_rat();
float ret_therm_vy();
float ret_parcel_rho(int i, int j, int k);   // the cloud map, 0..1
void update_live_weather();
void init_weather_defaults();
void ret_wind_spds_acf(float x, float y, float z, float* vx, float* vy, float* vz, int init_cycle);
float find_local_y(float x, float z, float* vx, float* vy, float* vz, int* i, int* j, int fullcheck);
void check_for_shift(double lat, double lon);
void set_surface_under_aircraft();   // the runway or open ground under the user's aircraft, for ground contact
int ret_over_water();   // 1 when a corner of the aircraft's cell is water and no deck or roof stands over it
float wave_h(float x, float z, float y);   // the water's height at x, z over a calm surface at y, with the waves
void load_region(int full);
void read_planet_nav();
void cloud_update_vars();
float cloud_parcel_rho(float x, float y_msl, float z);   // the cloud's density at a point, 0 clear to 1
void THREAD_Init();       // one worker per processor
void THREAD_Cleanup();    // at exit: the workers stop
int THREAD_RunAsync(int (*inFunc)(int), int inParam, int inDiskIO);   // a call number
int THREAD_IsDone(int call, float inWaitSeconds);   // 1 when done; raises what the call raised
int THREAD_DoneValue(int call);
void THREAD_Cleanup(int call);
int THREAD_IsMainThread();
int THREAD_IsInited();
