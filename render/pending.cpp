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
