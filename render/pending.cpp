// Drawing pieces that later steps build; until then each does nothing.
#include "render/HL_GRAPH.h"
#include "platform/plat.h"

void init_world_rendering(int) {}   // world renderer: later step
void WORLD_scene_all_cases() {}     // the frame: later step
void OGL_plot_background() {}       // settings-window background: later step
int build_a_carr() { return 0; }    // ship display lists: later step
int build_a_frig() { return 0; }
int build_a_opla() { return 0; }
int build_a_orig() { return 0; }
void OGL_sbuf() { plat_swap_buffers(); }
