// The world's three stages in their order: what covers the ground, what fills the sky,
// and what stands inside the cockpit over both.
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "core/HL_TYPES.h"
#include "cockpit/HL_COCKPIT.h"
#include "plugin/HL_PLUGIN.h"
#include "world/HL_WORLD.h"
#include <GL/gl.h>

namespace {

constexpr float one_nm_sqr = 1852.0f * 1852.0f;

}  // namespace

void APPLICATION_cover_terrain()
{
	if (!ren.ground_is_vis) return;
	scn.sqr_max_dis_moving = ren.lite_rat_on > 0.3f ? scn.sqr_max_dis_lite : one_nm_sqr;   // lit traffic shows from further
	scn.sqr_max_dis_parked = one_nm_sqr;
	if (stg.drawvectors || stg.drawtlines) plot_vectors1();
	plot_airports();
	plot_vectors2();
	if (NBPDoDrawingHook(8)) {
		const float sea_temp = find_temp_cel(0.0f);
		plot_cus_spec();
		plot_explosions();
		if (scn.fire_avail && sea_temp > 0.0f && atm.rain_rat_amb < 0.01f && stg.drawfires) plot_fires();
		manage_ships();
		plot_cars();
		if (stg.drawobjects && sea_temp >= 15.0f && sea_temp <= 25.0f && ren.lite_rat_on < 0.01f && atm.vis_ground > 5.0f * 1852.0f) plot_balloons();
	}
	NBPDoDrawingHook(9);
}

void APPLICATION_fill_sky()
{
	plot_planes_ext();
	plot_weapons();
	if (ren.ground_is_vis) plot_fence();
	if (scn.vis_math_level == 5) plot_vis_wash();
	if (ren.show_path > 0) plot_flight_path_3d();
	plot_sky_lines();
	plot_chute();
	const int v = ren.view_type_act;
	if ((v == 1500 || v == 1524) && veh[0].has_HOOPS_HUD && stg.HUD_on) HUD_HOOPS_plot();
}

void APPLICATION_fill_screen()
{
	const int v = ren.view_type_act;
	const bool side = v >= 1505 && v <= 1513;
	const bool offset = !ren.view_is_external && (ren.off_lat_deg > 0.01f || ren.off_lat_rat > 0.01f);
	if (!((v == 1500 && veh[0].draw_out_geo_frnt_views) || (side && veh[0].draw_out_geo_side_views) || offset)) return;
	// The cockpit's own geometry in front of everything: its depth starts afresh.
	OGL_setstate(st_fog_on, 0, st_lit, st_opaque, st_depth_read, st_depth_write);
	glClear(GL_DEPTH_BUFFER_BIT);
	OGL_viewport(3, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix, mnw.y2_pix, 0.1f, 200.0f, ren.zoom_act);
	glRotatef(ren.cock_the, -1.0f, 0.0f, 0.0f);
	glRotatef(ren.cock_psi, 0.0f, 1.0f, 0.0f);
	const float ftm = 0.3048f;
	glTranslatef(-veh[0].pe_xyz[0] * ftm, -veh[0].pe_xyz[1] * ftm, -veh[0].pe_xyz[2] * ftm);
	plot_plane_3D(0, 2);
	plot_stowed_weapons();   // turns into the world itself
}
