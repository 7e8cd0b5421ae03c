// The world renderer's start-up in phases: 0 the view's defaults, 1 the star catalogue, 2
// the fixed textures drawn so far, 3 the planet's sky and light tables, 4 the loaded
// block's ground and the land textures it needs.
#include "render/HL_GRAPH.h"
#include "render/sky_colours.h"
#include "render/stars.h"
#include "render/terrain.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <cstdio>
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
	ren.act_puf_rad = 300.0f;
	ren.draw_shadows = 1;
	ren.ground_is_vis = 1;   // until the first frame finds otherwise: the first block sets up its ground
	mnw.look_down_deg_req = mnw.look_down_deg_act = 0.0f;
}

// The sky's and the lamps' own textures: the sun's sheet, its disc and glitter, the landing
// light's pool, night-vision static, aurora and the moon's phases.
void load_sky_textures()
{
	struct named { int id; const char* name; };
	static const named fixed[] = {{223, "static"}, {224, "lanlite"}, {225, "lights"}, {226, "sunglow"}, {227, "sunreflect"},
	                              {212, "aurora1"}, {213, "aurora2"}, {214, "aurora3"}, {215, "aurora4"}};
	// The light laid on the ground spans kilometres past its pool or path: without mipmaps the
	// clamped edge stays dark out there instead of taking the whole picture's mean.
	for (const named& t : fixed)
		OGL_texbmp(tex_load, t.id, t.id == 224 || t.id == 227 ? filt_alpha_mean : filt_alpha_mean_mip, bmp_path + "world:" + t.name + ".png");
	for (int k = 0; k <= 22; k++) {
		char name[32];
		std::snprintf(name, sizeof name, "world:moon%02d.png", k);
		OGL_texbmp(tex_load, 228 + k, filt_alpha_mean_mip, bmp_path + name);
	}
}

// The fixed textures are loaded again only when the texture resolution or the planet changed,
// or the context no longer holds them: this is asked every flight pass while the world shows.
int sky_loaded_res = -1, sky_loaded_planet = -1;
bool sky_held = false;   // the first of them was in the context after the load

bool sky_textures_stale()
{
	return sky_loaded_res != mnw.tex_res || sky_loaded_planet != env.planet || (sky_held && !glIsTexture(223));
}

void load_stars()
{
	const std::string path = (env.planet == 1 ? man_path : ean_path) + "astro.dat";
	read_star_catalogue(ret_host_path(path).c_str());
	build_star_lists();
}

}  // namespace

void init_world_rendering(int init_type)
{
	if (init_type == 0) view_defaults();
	if (init_type == 1) load_stars();
	if (init_type == 2 && plat_has_gl() && sky_textures_stale()) {
		load_sky_textures();
		sky_loaded_res = mnw.tex_res;
		sky_loaded_planet = env.planet;
		sky_held = glIsTexture(223);
	}
	if (init_type == 0 || init_type == 3) load_sky_colours(env.planet);   // the planet's sky and light tables
	if (init_type == 0 && read_land_use()) check_land_textures();
	if (init_type == 4) {
		set_terrain_normals();
		if (plat_has_gl()) set_up_terrain_textures();
	}
}
