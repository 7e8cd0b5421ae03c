// The world renderer's start-up in phases: 0 the view's defaults, 3 the planet's sky and
// light tables, 4 the loaded block's ground. The star catalogue and the fixed textures
// come with the steps that draw them.
#include "render/HL_GRAPH.h"
#include "render/sky_colours.h"
#include "core/HL_TYPES.h"
#include <cmath>

namespace {

void view_defaults()
{
	ren.view_menu_TYPE = -1;
	ren.view_menu_ACTION = 0;
	ren.view_type_act = 1500;
	ren.wpn_to_track = -1;
	ren.FOV = 45.0f;
	ren.zoom_req = ren.zoom_act = 1.0f;
	ren.circ_dist = 4.0f;
	ren.circ_psi_rad = ren.circ_the_rad = 45.0f * (float)M_PI / 180.0f;
	ren.current_alpha = 1.0f;
	ren.pan_brt = 1.0f;
	mnw.look_down_deg_req = mnw.look_down_deg_act = 0.0f;
}

}  // namespace

void init_world_rendering(int init_type)
{
	if (init_type == 0) view_defaults();
	if (init_type == 0 || init_type == 3) load_sky_colours(env.planet);   // the planet's sky and light tables
	if (init_type == 4) set_terrain_normals();
}
