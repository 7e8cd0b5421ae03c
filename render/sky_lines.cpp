// Lines drawn in the sky for the pilot: the approach's boxes and the marker beams, the
// air's motion round the aircraft, the tow, winch and sling ropes with the load, the
// tanker's hose with the fuel it passes, and lightning.
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "render/sky_objects.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "cockpit/HL_COCKPIT.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr float ftm = 0.3048f;

// A point of aircraft p's body (feet) in the world.
void body_point(int p, const float xyz_ft[3], float out[3])
{
	const flt_struct& f = flt[p];
	float x, y, z;
	any_to_wrl(xyz_ft[0] * ftm, xyz_ft[1] * ftm, xyz_ft[2] * ftm, &x, &y, &z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	out[0] = (float)f.dob_x + x;
	out[1] = (float)f.dob_y + y;
	out[2] = (float)f.dob_z + z;
}

// A rectangle across the approach course at distance dis back from the localiser, round
// the glide path.
void approach_box(const vec_nav_struct& loc, float course, float slope, float gs_h, float dis)
{
	const float d = con.degtorad, hw = dis * std::tan(3.0f * d), hh = dis * std::tan(0.7f * d);
	double lat, lon;
	latlon_offset(loc.lat, loc.lon, -std::sin(course * d) * dis, -std::cos(course * d) * dis, &lat, &lon);
	float c[3];
	xdob_xyz_with_latlonel(c, lat, lon, gs_h + dis * std::tan(slope * d));
	const float side[2] = {std::cos(course * d), std::sin(course * d)};   // across the course, in x and z
	glBegin(GL_LINE_LOOP);
	glVertex3f(c[0] - side[0] * hw, c[1] - hh, c[2] - side[1] * hw);
	glVertex3f(c[0] + side[0] * hw, c[1] - hh, c[2] + side[1] * hw);
	glVertex3f(c[0] + side[0] * hw, c[1] + hh, c[2] + side[1] * hw);
	glVertex3f(c[0] - side[0] * hw, c[1] + hh, c[2] - side[1] * hw);
	glEnd();
}

// A marker's beam: an upturned pyramid over the beacon, narrow along the course.
void marker_beam(const vec_nav_struct& m, float course, int colour)
{
	const float d = con.degtorad, up = 1000.0f, along = up * std::tan(20.0f * d), across = up * std::tan(40.0f * d);
	float b[3], top[4][3];
	xdob_xyz_with_latlonel(b, m.lat, m.lon, m.h);
	const float ax = std::sin(course * d), az = -std::cos(course * d), cx = std::cos(course * d), cz = std::sin(course * d);
	const float sgn[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
	for (int k = 0; k < 4; k++) {
		top[k][0] = b[0] + sgn[k][0] * along * ax + sgn[k][1] * across * cx;
		top[k][1] = b[1] + up;
		top[k][2] = b[2] + sgn[k][0] * along * az + sgn[k][1] * across * cz;
	}
	OGL_setcolorINDEX(colour, 0.4f);
	glBegin(GL_LINES);
	for (int k = 0; k < 4; k++) {
		glVertex3fv(b);
		glVertex3fv(top[k]);
		glVertex3fv(top[k]);
		glVertex3fv(top[(k + 1) % 4]);
	}
	glEnd();
}

void approach_guides()
{
	const int li = tuned_ils_nav();
	if (li < 0 || li >= (int)vec_nav.size()) return;
	const vec_nav_struct& loc = vec_nav[(size_t)li];
	// The glide slope of the same runway gives the angle and the path's foot.
	float slope = 3.0f, gs_h = loc.h;
	for (const vec_nav_struct& n : vec_nav)
		if (n.type == 6 && n.nav_name.compare(0, 8, loc.nav_name, 0, 8) == 0) {
			const long packed = std::lround(n.psi_true);
			slope = (float)(packed / 1000) * 0.01f;
			gs_h = n.h;
			break;
		}
	if (slope <= 1.0f) return;
	const float course = loc.psi_true;
	OGL_setstate(st_fog_on, 0, st_unlit, st_blend, st_depth_read, st_depth_write);
	OGL_setcolorINDEX(0, 0.5f);
	for (float dis = 500.0f; dis <= 15500.0f; dis += 500.0f) approach_box(loc, course, slope, gs_h, dis);
	glLineWidth(2.0f);
	static const int marker_colour[3] = {53, 58, 43};   // outer, middle, inner
	for (const vec_nav_struct& n : vec_nav)
		if (n.type >= 7 && n.type <= 9 && n.nav_name.compare(0, 8, loc.nav_name, 0, 8) == 0) marker_beam(n, course, marker_colour[n.type - 7]);
	glLineWidth(1.0f);
}

// Green streaks on a lattice round the aircraft, each a tenth of a second of the wind there.
void air_streaks()
{
	const float size = std::max(veh[0].size_tot, 1.0f), step = size * 0.2f;
	const flt_struct& f = flt[0];
	OGL_setstate(st_fog_on, 0, st_unlit, st_blend, st_depth_read, st_depth_write);
	glBegin(GL_LINES);
	for (float dx = -size; dx <= size + 1e-3f; dx += step)
		for (float dy = -0.4f * size; dy <= 0.4f * size + 1e-3f; dy += step)
			for (float dz = -size; dz <= size + 1e-3f; dz += step) {
				const float x = (float)f.dob_x + dx, y = (float)f.dob_y + dy, z = (float)f.dob_z + dz;
				float wx, wy, wz;
				ret_wind_spds_wrl(x, y, z, &wx, &wy, &wz, 0);
				OGL_setcolorRGBA(0.0f, 1.0f, 0.0f, 1.0f, 1);
				glVertex3f(x, y, z);
				OGL_setcolorRGBA(0.0f, 1.0f, 0.0f, 0.0f, 1);
				glVertex3f(x + wx * 0.1f, y + wy * 0.1f, z + wz * 0.1f);
			}
	glEnd();
}

void ropes_and_load()
{
	OGL_setstate(st_fog_on, 0, st_unlit, st_opaque, st_depth_read, st_depth_write);
	OGL_setcolorRGBA(0.0f, 0.0f, 0.0f, 1.0f, 1);
	if (stg.tow_inprog || stg.win_inprog) OGL_3dline(env.tow_line[0], env.tow_line[1]);
	if (flt[0].jett_size > 0.0f) {
		OGL_3dline(env.jet_line[0], env.jet_line[1]);
		const float* c = env.jet_line[1];
		const float h = flt[0].jett_size * 0.5f;
		OGL_setstate(st_fog_on, 1, st_lit, st_opaque, st_depth_read, st_depth_write);
		OGL_bind(193, 0);
		OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 0);
		OGL_cube(c[0], c[1] - h, c[2], h, h, h, 0.0f, 1.0f, 0.0f, 1.0f, 0.0f);
	}
}

// The tanker's hose, and fuel into the first three tanks while the probe is in the basket.
void refuelling()
{
	if (!veh[0].has_refuel || !veh[1].has_refuel || stg.numacf < 2) return;
	float a[3], b[3];
	body_point(0, veh[0].refuel_xyz, a);
	body_point(1, veh[1].refuel_xyz, b);
	const float dist = std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
	if (dist > 250.0f) return;
	OGL_setstate(st_fog_on, 0, st_unlit, st_blend, st_depth_read, st_depth_write);
	OGL_setcolorRGBA(0.0f, 0.0f, 0.0f, 0.25f, 1);
	OGL_3dline(a, b);
	if (dist >= 5.0f) return;
	const int tanks = std::clamp(veh[0].num_tanks, 1, 3);
	const float per_tank = con.lbstokgs * 7370.0f / 60.0f / (float)tanks * mnw.prd_FM;
	for (int t = 0; t < tanks; t++) flt[0].m_fuel[t] = std::min(flt[0].m_fuel[t] + per_tank, veh[0].m_fuel_tot * veh[0].tank_rat[t]);
}

}  // namespace

void plot_sky_lines()
{
	if (ren.show_path > 3) approach_guides();
	if (scn.vis_math_level > 2 && ren.show_path > 3) air_streaks();
	ropes_and_load();
	refuelling();
	draw_lightning();
}
