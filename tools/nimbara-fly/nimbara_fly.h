// nimbara-fly's commands.
#pragma once

int fly_run(int argc, char** argv);   // argv[0] is "run"
int fly_nav(int argc, char** argv);   // argv[0] is "nav"
int fly_terrain(int argc, char** argv);   // argv[0] is "terrain"
int fly_block(int argc, char** argv);     // argv[0] is "block"
int fly_tex(int argc, char** argv);       // argv[0] is "tex"
int fly_draw(int argc, char** argv);      // argv[0] is "draw"
int fly_sky(int argc, char** argv);       // argv[0] is "sky"
int fly_view(int argc, char** argv);      // argv[0] is "view"
// RGBA rows as a PNG; bottom_up: the first row is the picture's lowest. 1 when written.
int fly_write_png(const char* path, const unsigned char* rgba, int w, int h, bool bottom_up);
#include <string>
std::string fly_default_tree();   // the tree beside the executable, with a trailing '/'; empty when none
std::string fly_tree_arg(const char* val);   // a --tree given, with one trailing '/'
void fly_calm_air();   // no wind, shear, turbulence or thermals
bool fly_parse(const char* s, double lo, double hi, double* v);   // a whole finite number within lo..hi
