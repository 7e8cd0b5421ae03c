// On the water: the keel panels of every body float by the water they displace, plane on
// the panels that rise toward the bow and drag by their areas; a water rudder steers, an
// anchor holds under the parking brake; a water bomber scoops and dumps its load.
#include "flight/HL_FLIGHT.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "render/HL_GRAPH.h"
#include "ui/HL_UI.h"
#include "world/HL_WORLD.h"
#include <cmath>

namespace {

float anchor_x, anchor_z;
float time_last_play = -1e9f;

}  // namespace

int handle_float_point(int en, int s, int r, float x_acf, float y_acf, float z_acf)
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float g = con.g;
	float px, py, pz, vx, vy, vz;
	point_to_world(f, x_acf, y_acf, z_acf, 0.0f, 0.0f, 0.0f, &px, &py, &pz, &vx, &vy, &vz);
	const double x_glo = f.dob_x + px, y_glo = f.dob_y + py, z_glo = f.dob_z + pz;
	vx += f.vx; vy += f.vy; vz += f.vz;
	const float depth = (float)(wave_h((float)x_glo, (float)z_glo, f.terrain_y_cg) - y_glo);
	if (!(depth > 0.0f)) return 0;
	const float hpath = fltwrap(std::atan2(vx, -vz) * con.radtodeg, 0.0f, 360.0f);
	const float beta_water = fltwrap(f.psi - hpath, -180.0f, 180.0f) * con.degtorad;
	const float v_glo = pythag(vx, vy, vz);
	// The panel from this keel point back to the next station: its width to the next point
	// toward the keel, so that the panels of a hull drawn alike on both sides lie alike and
	// it floats level; its length turned by the aircraft's pitch, so that a flat bottom
	// trimmed nose-up planes.
	int stations = 0, points = 0;
	ret_body_grid(0, en, 0, &stations, &points);
	const int r0 = intlim(r < points / 2 ? r + 1 : r - 1, 0, points - 1);
	const float dX = 0.5f * (std::fabs(v.body_X[en][s][r] - v.body_X[en][s][r0]) + std::fabs(v.body_X[en][s + 1][r] - v.body_X[en][s + 1][r0]));
	const float dy = v.body_Y[en][s + 1][r] - v.body_Y[en][s][r], dz = v.body_Z[en][s + 1][r] - v.body_Z[en][s][r];
	const float ct = f.cos_the, st = f.sin_the;
	const float dY = dy * ct - dz * st, dZ = dz * ct + dy * st;
	const float dZ_safe = std::fabs(dZ) < 0.01f ? (dZ < 0.0f ? -0.01f : 0.01f) : dZ;
	const float slope = fltlim(dY / dZ_safe, -2.0f, 0.0f);   // only a panel rising toward the bow planes
	const float wet_area = std::fabs(dZ * dX), cap_area = fltmax2(dX * -dY, 0.0f), sid_area = std::fabs(dZ * dY);
	const float rho = con.planet_rho_water;
	const float q = rho * v_glo * v_glo * 0.5f;
	const float buoyancy = depth * wet_area * rho * g;
	const float damping = -vy * wet_area * std::fabs(vy) * rho;
	const float planing = -v_glo * slope * cap_area * std::fabs(v_glo) * rho;
	const float sb = std::sin(beta_water), cb = std::cos(beta_water);
	const float drag = (0.25f * sid_area * std::fabs(sb) + 0.025f * cap_area + 0.0016f * wet_area) * q;
	const float side = 0.1f * sid_area * q * sb * cb;
	// Drag against the path, side force to its right, in the world; none beyond the weight.
	const float sh = std::sin(hpath * con.degtorad), ch = std::cos(hpath * con.degtorad);
	const float lim = f.m_total * g;
	const float Fx = fltlim(-drag * sh + side * ch, -lim, lim);
	const float Fy = fltlim(buoyancy + damping + planing, -lim, lim);
	const float Fz = fltlim(drag * ch + side * sh, -lim, lim);
	const float qi[4] = {f.q[0], -f.q[1], -f.q[2], -f.q[3]};
	float ax, ay, az;
	rot_quat(qi, Fx, Fy, Fz, &ax, &ay, &az);
	addFsgear(0, ax, y_acf, z_acf);
	addFngear(0, ay, x_acf, z_acf);
	addFagear(0, az, y_acf, x_acf);
	if (mnw.puff10) {   // spray off the bow wave
		const float puff_size = 0.5f * pythag(dY, dZ) * std::sqrt(0.006f * v_glo);
		if (puff_size > 0.01f * v.size_tot) spawn_puff((float)x_glo, (float)y_glo, (float)z_glo, 0.0f, 0.0f, 0.0f, puff_size, 22, 1);
	}
	return 1;
}

void do_water()
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	int floats = 0;
	for (int en = en_fuse; en <= en_fair_hi; en++) {   // the six keel points of each station
		if (!ret_part_alive(0, en)) continue;
		int stations = 0, points = 0;
		ret_body_grid(0, en, 0, &stations, &points);
		for (int s = 0; s + 1 < stations; s++)
			for (int r = intmax2(points / 2 - 3, 0); r <= points / 2 + 2 && r < points; r++) {
				const float x = v.Xarm[en] + 0.5f * (v.body_X[en][s][r] + v.body_X[en][s + 1][r]);
				const float y = v.Yarm[en] + 0.5f * (v.body_Y[en][s][r] + v.body_Y[en][s + 1][r]);
				const float z = v.Zarm[en] + 0.5f * (v.body_Z[en][s][r] + v.body_Z[en][s + 1][r]);
				floats |= handle_float_point(en, s, r, x, y, z);
			}
	}
	if (floats) {
		f.onground_any = f.onground_all = 1;
		// The water rudder: the hull turns toward the command against its slip.
		const float yaw = fltwrap(f.psi - f.h_path, -180.0f, 180.0f);
		const float q = con.planet_rho_water * f.V_msc * f.V_msc * 0.5f;
		const float cmd = pedals_steer() ? mnw.YK_hdng : mnw.YK_roll;
		const float d = v.water_rud_maxdef * cmd - yaw;
		const float side = fltlim(fltlim(0.05f * d, -1.0f, 1.0f) * v.water_rud_area * q, -v.m_empty, v.m_empty);
		addFsgear(0, -side, 0.0f, v.water_rud_longarm);
		if (mnw.totl_time - time_last_play >= 1.5f) {
			time_last_play = mnw.totl_time;
			SOUND_play_buffer(40, fltlim(f.V_msc * 0.05f, 0.0f, 1.0f), fltlim(f.V_msc * 0.02f, 0.0f, 1.0f));
		}
	}
	if (floats && f.parkbrake > 0.5f) {   // moored: pulled back toward the anchor, gently
		addFsgear(0, f.m_total * fltlim(-f.vx_acf_axis - 0.1f * (float)(f.dob_x - anchor_x), -2.0f, 2.0f), 0.0f, 0.0f);
		addFagear(0, f.m_total * fltlim(-f.vz_acf_axis - 0.1f * (float)(f.dob_z - anchor_z), -2.0f, 2.0f), 0.0f, 0.0f);
	} else {
		anchor_x = (float)f.dob_x;
		anchor_z = (float)f.dob_z;
	}
}

void do_water_bomber()
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	if (!v.jett_is_water) return;
	const float dt = mnw.prd_FM;
	if (stg.water_scoop && f.onground_any && ret_over_water() && f.m_jettison < v.m_jettison) {
		const float rate = v.m_jettison / 12.0f;   // kg/s: a full load in twelve seconds
		f.faxil_aero_acf += rate * f.V_msc;        // the scooped water's momentum
		f.m_jettison += rate * dt;
	}
	if (f.is_dumping_water) {
		f.m_jettison -= v.m_jettison / 4.0f * dt;
		if (f.m_jettison <= 0.0f) f.is_dumping_water = 0;
	}
	f.m_jettison = fltlim(f.m_jettison, 0.0f, v.m_jettison);
}
