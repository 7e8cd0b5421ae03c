// The graphics layer: start-up of the world renderer, the frame, the buffer swap.
#pragma once
#include <string>

void init_world_rendering(int stage);
int view_panel_index(int view_type);   // which of the nine panels a view shows
bool view_shows_panel(int view_type);  // the panel views, whose eye centre is the HUD centre
void set_up_runway_geo(int apt_wrl, int rwy_wrl);   // fills the runway's vec_rwy_geo entry
void set_up_runway_lit(int apt_wrl, int rwy_wrl);
void WORLD_scene_all_cases();
void WORLD_scene_per_dome();
void WORLD_scene_2d_overlay();
void APPLICATION_cover_terrain();
void APPLICATION_fill_sky();
void APPLICATION_fill_screen();
void OGL_plot_background();
void OGL_sbuf();
int build_a_carr();
int build_a_frig();
int build_a_opla();
int build_a_orig();
void OGL_report_situation();   // the OpenGL report at the head of Error.out
void OGL_init_state();         // the fixed OpenGL state set once at start
void load_plane_geo(int build, int a, int b, int p);   // the aircraft's drawing geometry
void build_obs(float x, float z, float psi, float dh, const std::string& path, int typ, int mode);   // one scenery object into the block
extern float planenrml[451][401][3];   // the block's vertex normals, relief exaggerated for lighting
void spawn_puff(float x, float y, float z, float vx, float vy, float vz, float size, int color, int miny);   // a puff of smoke, dust or spray
void move_landing_light(float dpsi, float dthe);   // degrees this frame
