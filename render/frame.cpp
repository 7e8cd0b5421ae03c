// One picture in its fixed order: the camera, the sky round the eye replacing the last
// frame's colour and depth, the light and fog, the world's three stages, then what lies
// flat over it.
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "render/light.h"
#include "render/sky_colours.h"
#include "render/sky_objects.h"
#include "render/sky_dome.h"
#include "render/sun_moon.h"
#include "render/view.h"
#include "render/visibility.h"
#include "core/HL_TYPES.h"
#include "plugin/HL_PLUGIN.h"
#include "cockpit/HL_COCKPIT.h"
#include "net/HL_NET.h"
#include "world/scenery.h"
#include "platform/plat.h"
#include "world/HL_WORLD.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

float sig_rat_top = 1.0f, sig_rat_bot = 1.0f, earth_rat = 1.0f;

// Sun, moon, the weather sets at the eye, the sky of the moment and the light.
void sky_and_light()
{
	update_sun_moon();
	const float rho = find_standard_rho(env.planet, ren.view_ele);
	earth_rat = std::clamp(std::sqrt(std::max(rho, 0.0f) / 1.225f), 0.0f, 1.0f);
	const float planet_rat = con.sl_r_met > 0.0f ? std::clamp(std::sqrt(std::max(rho, 0.0f) / con.sl_r_met), 0.0f, 1.0f) : earth_rat;
	sig_rat_top = std::clamp(planet_rat / 0.35f, 0.0f, 1.0f);
	sig_rat_bot = std::clamp(planet_rat / 0.15f, 0.0f, 1.0f);
	float w[5];
	const float vis_sky = atm.vis_sky > 0.0f ? atm.vis_sky : 46300.0f;
	weather_set_weights(earth_rat, vis_sky, ren.view_ele, w);
	const bool morning = hours < 12.0f;
	compute_sky_256(w, lgt[0].the, morning, vis_sky, sig_rat_top, sig_rat_bot, ren.final_psi - lgt[0].psi);
	blend_light(w, lgt[0].the, morning, ren.lgt_amb, ren.lgt_dir);
	blend_world_colours(w, lgt[0].the, morning);
	update_lightning();
	update_light({earth_rat, planet_rat, sun_use_ratio(lgt[0].the, earth_rat), lightning_ratio(planet_rat)});
}

// The panel plate and its instruments, lit at night by the panel's own bitmap or by a
// red flood light.
void draw_panel(int v)
{
	const bool instruments = v == 1500 || v == 1520;
	const bool background = instruments || (v >= 1505 && v <= 1511);
	if (instruments && ren.cockpit_lite_on) {
		const float b = ren.pan_brt;
		if (ren.view_bmp_avail[8]) {
			r_manual_lighting = std::min(r_manual_lighting, b);
			g_manual_lighting = std::min(g_manual_lighting, b);
			b_manual_lighting = std::min(b_manual_lighting, b);
		} else {
			r_manual_lighting = std::min(r_manual_lighting, b * 0.8f);
			g_manual_lighting = std::min(g_manual_lighting, b * 0.2f);
			b_manual_lighting = std::min(b_manual_lighting, b * 0.2f);
		}
	}
	ren.current_alpha = ren.trans_panel ? 0.4f : 1.0f;
	if (background) {
		if (NBPDoDrawingHook(13)) OGL_plot_background();
		NBPDoDrawingHook(14);
	}
	if (instruments) {
		if (NBPDoDrawingHook(15)) APPLICATION_update_panel();
		NBPDoDrawingHook(16);
	}
	ren.current_alpha = 1.0f;
}

}  // namespace


void WORLD_scene_per_dome()
{
	WORLD_view_per_frame();
	ren.deg_per_mtr_x = 1.0f / std::max(con.planet_deg_mtrs * std::cos((float)flt[0].dob_lat * con.degtorad), 1.0f);
	ren.deg_per_mtr_z = 1.0f / std::max(con.planet_deg_mtrs, 1.0f);
	const view_distances vd = update_visibility();
	update_ground_cone(vd.dis_from_ground);
	sky_and_light();
	NBPDoDrawingHook(1);
	ren.dome_rad = std::max(1852.0f, vd.far_dis * std::sqrt(3.0f));
	OGL_viewport(3, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix, mnw.y2_pix, vd.near_dis,
	             ren.dome_rad * 1.05f, ren.zoom_act);
	glRotatef(ren.elum_ref_the, -1.0f, 0.0f, 0.0f);
	glRotatef(ren.elum_ref_psi, 0.0f, 1.0f, 0.0f);
	glRotatef(ren.elum_ref_phi, 0.0f, 0.0f, 1.0f);
	glRotatef(ren.cock_the, -1.0f, 0.0f, 0.0f);
	glRotatef(ren.cock_psi, 0.0f, 1.0f, 0.0f);
	glRotatef(ren.cock_phi, 0.0f, 0.0f, 1.0f);
	if (ren.vert1) glRotatef(-90.0f, 0.0f, 0.0f, 1.0f);   // a monitor on its side
	else if (ren.vert2) glRotatef(90.0f, 0.0f, 0.0f, 1.0f);
	glRotatef(ren.basic_phi, 0.0f, 0.0f, 1.0f);
	glRotatef(ren.basic_the, -1.0f, 0.0f, 0.0f);
	glRotatef(ren.basic_psi, 0.0f, 1.0f, 0.0f);
	// The sky takes both colour and depth: the frame needs no clearing.
	glDepthFunc(GL_ALWAYS);
	glDisable(GL_CULL_FACE);   // seen from inside, whichever way the strips wind
	const float the_os = horizon_dip_deg(ren.view_ele, con.planet_rad);   // the sea's horizon, until the ground is drawn
	draw_sky_dome(the_os, lgt[0].psi);
	draw_sky_objects(earth_rat);
	draw_horizon_band(the_os, sig_rat_bot);
	glEnable(GL_CULL_FACE);
	glDepthFunc(GL_LEQUAL);
	const GLfloat amb[4] = {ren.lgt_amb[0], ren.lgt_amb[1], ren.lgt_amb[2], 1.0f}, dif[4] = {ren.lgt_dir[0], ren.lgt_dir[1], ren.lgt_dir[2], 1.0f};
	glPushMatrix();   // the light from the sun's or moon's direction
	glRotatef(lgt[2].lat, 1.0f, 0.0f, 0.0f);
	glRotatef(lgt[2].azi, 0.0f, 0.0f, 1.0f);
	glRotatef(lgt[2].dec, 1.0f, 0.0f, 0.0f);
	const GLfloat up[4] = {0.0f, 1.0f, 0.0f, 0.0f};
	glLightfv(GL_LIGHT0, GL_POSITION, up);
	glPopMatrix();
	glLightfv(GL_LIGHT0, GL_AMBIENT, amb);
	glLightfv(GL_LIGHT0, GL_DIFFUSE, dif);
	glFogfv(GL_FOG_COLOR, ren.fog_rgb);
	glFogf(GL_FOG_START, vd.ogl_fog_dis * 0.1f);
	glFogf(GL_FOG_END, vd.ogl_fog_dis);
	if (ren.dis_fog_avail) glFogi(0x855A, 0x855B);   // fog by distance from the eye, not depth: even at the picture's edges
	glTranslatef(-ren.view_xyz[0], -ren.view_xyz[1], -ren.view_xyz[2]);
	env.roughness = 0.0f;   // the drawing below tells the flight model what it stands on
	env.rwy_wrl_over = -999;
	if (!net.getting_terrain) env.surf_tex = 49;
	env.over_carr = env.over_frig = env.over_obs = 0;
	if (ren.planet_is_vis && ren.DL_planet_real) {
		OGL_setstate(st_fog_on, 1, st_lit, st_opaque, st_depth_read, st_depth_write);
		glCallList((GLuint)ren.DL_planet_real);
	}
	if (NBPDoDrawingHook(2) && ren.ground_is_vis) terrain_grid_2d_3d(planexyz, 3, 0, 1);
	NBPDoDrawingHook(3);
	APPLICATION_cover_terrain();
	cloud_plot();
	plot_OBJ7();
	APPLICATION_fill_sky();
	plot_puffs();
	if (atm.rain_rat_amb > 0.0f || atm.snow_rat_amb > 0.0f) OGL_rain();
	APPLICATION_fill_screen();
	NBPDoDrawingHook(12);
	OGL_viewport(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f);
	const int v = ren.view_type_act;
	if (v == 1500 || v == 1524 || v == 1525) OGL_windshield_effects(atm.hail_rat_amb, flt[0].window_ice);
	if (ren.wpn_to_track < 0) draw_panel(v);
	WORLD_scene_2d_overlay();
}

void WORLD_scene_all_cases()
{
	if (!plat_has_gl()) return;
	const int domes = std::max(ren.elum_renders, 1);
	for (int d = 0; d < domes; d++) WORLD_scene_per_dome();
	r_manual_lighting = std::max(r_manual_lighting, 0.75f);   // windows stay readable at night
	g_manual_lighting = std::max(g_manual_lighting, 0.75f);
	b_manual_lighting = std::max(b_manual_lighting, 0.75f);
}
