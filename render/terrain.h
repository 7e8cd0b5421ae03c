// The ground's drawing: the land-use table, the textures each block needs, and the grid
// drawn in strips by texture.
#pragma once
#include <cstdint>
#include <string>

constexpr int land_tex_max = 49;
extern uint16_t PLOT_planetex[451][401];   // what each cell draws: a land texture, or 1000..6999 a texture of its own
extern char ter_inrange[451][401];         // the cell passes this frame's cone
// A bordered cell's layers, lowest first: land textures and their masks, 9999 for none.
extern uint16_t BORD_planetex[451][401][4];
extern uint16_t BORD_alphatex[451][401][4];

int read_land_use();   // the land-use table into tex_of_use, num_land_texes, tex_is_water; 1 when read
int landuse_to_tex(int code);
int check_land_textures();   // each land texture's file there at start; the number missing, each with its alert
// The region folder holding texture t at this place: the texture's file path (".bmp"), or
// empty when no folder holds the place.
std::string border_get_tex_paths(int t, double lat, double lon);
void set_up_terrain_textures();   // phase 4: the cells' textures, and the ones the block needs loaded
int water_tex();                  // the sea's texture this frame: its state and animation frame
void terrain_mark_range(float (*xyz)[401][3], int draw_all);   // ter_inrange over the grid range: the cone, or all
int inside_cw_reg(float x1, float z1, float x2, float z2, float x, float z, float buffer);
void set_water_land_color_state(int is_water, int is_clear, int tex, int fog, int deR, int deW);
// The extra unit's coordinates at a vertex: the cloud shadow's map, the landing light's pool,
// the sun's glitter path (0.5, 0.5 under the eye, t rising toward the sun).
void ret_shadow_st(const float* p, float* s, float* t);
void ret_lite_st(const float* p, float* s, float* t);
void ret_reflect_st(const float* p, float* s, float* t);
int terrain_second_tex();   // the extra unit's texture this frame, 0 for none
void terrain_second_env(int unit, int tex);   // bound on that unit, with the way it mixes in
void terrain_second_st(int unit, const float* p);
void terrain_units_reset(int units);   // units 1 and up back to plain modulation
// The mask index of the corners (c0 south-west, c1 north-west, c2 north-east, c3 south-east)
// holding texture t: 1 to 14, 0 for none or all.
int border_which_index(int c0, int c1, int c2, int c3, int t);
int border_is_land_bridge(int i, int j, int which_border);
void cell_border_layers(int i, int j);   // one cell's layers, or nothing when its corners agree
// One mask of a sheet in the scratch buffer (RGBA rows full_dx wide) into texture tex, its alpha only.
void border_make_texture(int tex, int full_dx, int semi_dx, int semi_dy, int i_os, int j_os, const std::string& path);
std::string border_sheet_path(const std::string& land_path, int sheet);   // sheet 1..4 beside the land texture
int load_border_masks(int t, const std::string& land_path);   // land texture t's four sheets; the number read
