// Drawing pieces that later steps build; until then each does nothing.
#include "render/HL_GRAPH.h"
#include "platform/plat.h"
#include <GL/gl.h>

int build_a_carr() { return 0; }    // ship display lists: later step
int build_a_frig() { return 0; }
int build_a_opla() { return 0; }
int build_a_orig() { return 0; }
void load_plane_geo(int, int, int, int) {}   // aircraft drawing: later step
void set_up_runway_geo(int, int) {}   // runway polygons: terrain-mesh step
void set_up_runway_lit(int, int) {}   // runway lights: terrain-mesh step
void build_obs(float, float, float, float, const std::string&, int, int) {}   // scenery objects: objects step
void spawn_puff(float, float, float, float, float, float, float, int, int) {}   // smoke and spray: effects step
void move_landing_light(float, float) {}   // steerable landing lights: later step
void cloud_plot() {}            // clouds: clouds step
void plot_puffs() {}            // smoke, dust and spray: effects step
void OGL_rain() {}              // rain and snow streaks: effects step
void OGL_windshield_effects(float, float) {}   // rain, hail and ice on the glass: effects step
void plot_vectors1() {}         // roads, rails and taxi lines: objects step
void plot_vectors2() {}
void plot_airports() {}         // runways and airport lights: airports step
void plot_cus_spec() {}         // custom scenery objects: autogen step
void plot_explosions() {}       // explosions and fires: effects step
void plot_fires() {}
void manage_ships() {}          // ships and cars: traffic step
void plot_cars() {}
void plot_balloons() {}         // balloons: traffic step
void plot_planes_ext() {}       // aircraft: aircraft-drawing step
void plot_plane_3D(int, int) {}
void plot_weapons() {}
void plot_stowed_weapons() {}
void plot_chute() {}
void plot_fence() {}            // the flight path and its displays: replay step
void plot_vis_wash() {}
void plot_flight_path_3d() {}
