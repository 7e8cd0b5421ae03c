// Lightning in a thunderstorm: once a second a strike is tried at a random place within
// 40 nm; where the cloud is dense enough, three jagged channels run from its base to the
// ground, light the world by their nearness for a moment, and are heard when close.
#include "render/sky_objects.h"
#include "render/ogl.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "ui/HL_UI.h"
#include "world/HL_WORLD.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

namespace {

constexpr float nm = 1852.0f;
constexpr int segs = 200;

// A point that far out from the eye, on that bearing.
void strike_point(float distance_nm, float bearing_deg, float* x, float* z)
{
	const float d = con.degtorad;
	*x = ren.view_xyz[0] + std::sin(bearing_deg * d) * distance_nm * nm;
	*z = ren.view_xyz[2] - std::cos(bearing_deg * d) * distance_nm * nm;
}

}  // namespace

int lightning_try_strike(float parcel_rho, float distance_nm, float bearing_deg, float now)
{
	if (parcel_rho <= 0.2f) return 0;   // only a dense cloud discharges
	const int p = atm.prim_layer & 1;
	float x, z;
	strike_point(distance_nm, bearing_deg, &x, &z);
	const float top = atm.base_h_MSL[p] - (float)flt[0].dob_ele + (float)flt[0].dob_y + ren.act_puf_rad;
	float vx, vy, vz;
	int i = 0, j = 0;
	const float bottom = find_local_y(x, z, &vx, &vy, &vz, &i, &j, 0);
	const float step = (top - bottom) / segs;
	for (int s = 0; s < 3; s++) {
		float px = x, pz = z;
		for (int k = 0; k < segs; k++) {
			atm.strike_xyz[s][k][0] = px;
			atm.strike_xyz[s][k][1] = top - step * k;
			atm.strike_xyz[s][k][2] = pz;
			px += step * ran_between(-0.5f, 0.5f);
			pz += step * ran_between(-0.5f, 0.5f);
		}
	}
	atm.strike_distance = distance_nm;
	atm.strike_stop_time = now + ran_between(0.2f, 0.4f);
	if (5.0f / distance_nm > 0.3f) SOUND_play_buffer(29, 1.0f, std::clamp(5.0f / distance_nm, 0.3f, 1.0f));
	return 1;
}

float lightning_ratio(float planet_rat)
{
	atm.strike_alpha = std::clamp((atm.strike_stop_time - mnw.totl_time) / 0.2f, 0.0f, 1.0f);
	if (atm.strike_alpha <= 0.0f) return 0.0f;
	return atm.strike_alpha * planet_rat * std::clamp(1.0f - atm.strike_distance / 40.0f, 0.0f, 1.0f);
}

void update_lightning()
{
	if (!mnw.puff1 || atm.tstm_set <= 0.0f || find_temp_cel(0.0f) <= 0.0f || mnw.totl_time < atm.strike_stop_time) return;
	const float dist = ran_between(0.01f, 40.0f), bearing = ran_between(0.0f, 360.0f);
	const int p = atm.prim_layer & 1;
	float x, z;
	strike_point(dist, bearing, &x, &z);
	lightning_try_strike(cloud_parcel_rho(x, atm.base_h_MSL[p] + ren.act_puf_rad, z), dist, bearing, mnw.totl_time);
}

void draw_lightning()
{
	if (atm.strike_alpha <= 0.0f) return;
	OGL_setstate(st_fog_on, 0, st_unlit, st_blend, st_depth_read, st_no_depth_write);
	OGL_setcolorRGBA(0.9f, 0.9f, 1.0f, atm.strike_alpha, 1);
	for (int s = 0; s < 3; s++) {
		glBegin(GL_LINE_STRIP);
		for (int k = 0; k < segs; k++) glVertex3fv(atm.strike_xyz[s][k]);
		glEnd();
	}
}
