// The block of scenery round the aircraft: planet constants, the vertex grids filled from
// the quadrant files, and the calls that move the block as the aircraft flies.
#pragma once
#include <cstdint>

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

void MP_shift_and_clear(int typeshift);   // turns what has a position, empties the grids
void read_a_quadrant(int lat_file, int lon_file, int lat_os, int lon_os, int force_read);
int poly_is_wet(int i, int j);
