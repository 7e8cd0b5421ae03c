// The block of scenery round the aircraft: planet constants, the vertex grids filled from
// the quadrant files, and the calls that move the block as the aircraft flies.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

constexpr int regn_dim_i = 451, regn_dim_j = 401;   // Earth's block; Mars fits inside
extern const float lat_buff[2], lon_buff[2];         // margin at the edge that moves the block, degrees
extern const int file_imax[2], file_jmax[2];         // grid steps a degree, longitude and latitude
extern const int regn_imax[2], regn_jmax[2];         // last grid index of the block
extern const float max_vis_ter_nm[2], max_vis_ter_mtrs[2];

extern float planexyz[regn_dim_i][regn_dim_j][3];     // vertex, local frame, metres
extern float planest[regn_dim_i][regn_dim_j][4][2];   // s, t of the cell's four corners
extern uint16_t landuse[regn_dim_i][regn_dim_j];      // 15 sea; 14 and 15 wet
extern char ter_body_id[regn_dim_i][regn_dim_j];
extern char is_apt[regn_dim_i][regn_dim_j];
extern char tex_use_is_other_quadrant[regn_dim_i][regn_dim_j];

// Per-cell lists of linear features: left edge x y z, right edge x y z, heading and length
// to the next record, code (1 dry, 2 wet, 3 last dry before wet, -999 piece ends, 0 not
// drawn), unit normal.
struct vec_lin_struct { float data[12]; };
struct vec_hwy_car_struct { int r; float s; float dir; };
struct buc_struct {
	std::vector<vec_lin_struct> vec_roads, vec_trail, vec_rails, vec_power, vec_taxis, vec_river;
	std::vector<vec_hwy_car_struct> vec_hwy_car;
	std::vector<int> vec_ins;   // objects standing in the cell, filled by the object builder
};
extern buc_struct buc[regn_dim_i][regn_dim_j];

// Objects queued by a load, built once the block is complete.
struct obs_lis_struct {
	int typ;
	std::string basic_path, scene_path;
	float x_cent, z_cent, psi, dh;
};
extern std::vector<obs_lis_struct> obs_lis;
void MPSP_manage_obs_lis(float x_cent, float z_cent, float psi, float dh, const std::string& basic_path, int typ, int mode);

constexpr int cus_tex_dim = 6000;
extern std::string cus_tex_path[cus_tex_dim];   // the block's custom terrain textures, landuse 1000 + n
extern float planet_xyz[361][181][3];           // the one-degree globe at elevation 0
void SP_finish_planet();
void MP_finish_planet(int typeshift);   // airport buildings and towers, aid objects, fire, boats
int in_runway(double lat, double lon);   // on a runway of the block's airports, overruns included

void MP_shift_and_clear(int typeshift);   // turns what has a position, empties the grids
void read_a_quadrant(int lat_file, int lon_file, int lat_os, int lon_os, int force_read);
int quadrant_file_exists(int lat_file, int lon_file);   // a readable file serves this square
int poly_is_wet(int i, int j);
void xz_on_ground(double lat, double lon, double* x, double* z);   // the local frame's x, z of a place on the block's ground
std::string rel_abs_custom_file_path(int type, const std::string& name);   // 5 objects, 18 terrain textures, in the quadrant's package
void plot_build_rwy(int apt_wrl, int rwy_wrl, float* corner_lat, float* corner_lon, float* corner_ele, int plot_runways);
