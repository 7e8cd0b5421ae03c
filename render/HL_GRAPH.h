// The graphics layer: start-up of the world renderer, the frame, the buffer swap.
#pragma once
#include <string>

void init_world_rendering(int stage);
void set_terrain_normals();   // the block's vertex normals
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
void terrain_grid_2d_3d(float (*xyz)[401][3], int dimensions, int draw_all, int do_borders);
// What the frame calls into, each drawn by its own step.
void cloud_plot();
void plot_puffs();
void OGL_rain();
void OGL_windshield_effects(float hail, float ice);
void plot_vectors1();
void plot_vectors2();
void plot_airports();
void plot_cus_spec();
void plot_explosions();
void plot_fires();
void manage_ships();
void plot_cars();
void plot_balloons();
void plot_planes_ext();
void plot_plane_3D(int p, int mode);
void plot_weapons();
void plot_stowed_weapons();   // the first aircraft's weapons still on it, over the cockpit
void plot_chute();
void plot_fence();
void plot_vis_wash();
void plot_flight_path_3d();
void plot_sky_lines();
void plot_text_and_checklist();   // the text sheet or the checklist over the picture
