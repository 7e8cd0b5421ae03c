// Everything with drag but no airfoil: fuselage, nacelles, fairings and other bodies by
// their projected areas below Mach 1 and by their drawn panels above it; the gear's
// struts, tyres and doors; the fuselage speedbrake; the drag chute.
#include "flight/HL_FLIGHT.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

void get_body_coeffs(float s_frn, float s_sid, float s_top, float cd_0, float v_msc, float alph_rad, float* sublift, float beta_rad,
                     float* subside, float angl_rad, float* subdrag)
{
	const float mach = v_msc / fltmax2(con.lcl_a, 1.0f);
	const float m = fltlim(mach, 0.0f, 0.8f);
	float fac = 1.0f / std::sqrt(1.0f - m * m);   // compressibility, rising steeply past Mach 0.8
	if (mach > 0.8f) fac += 2.5f * sqr(mach - 0.8f);
	const float k = 0.27f * fac;
	const float cl_vert = k * std::sin(alph_rad), cl_side = k * std::sin(beta_rad);
	const float sa = std::fabs(std::sin(angl_rad));
	const float cd = k * sa + cd_0;
	const float broad = 0.5f * (s_sid + s_top);   // end-on it shows its front, broadside its side and top
	const float s_drag = fltlim(s_frn + (broad - s_frn) * sa, fltmin2(s_frn, broad), fltmax2(s_frn, broad));
	const float q = 0.5f * con.lcl_r_met * v_msc * v_msc;
	*sublift = cl_vert * s_top * q;
	*subside = cl_side * s_sid * q;
	*subdrag = cd * s_drag * q;
}

namespace {

// Above Mach 1: each panel of the drawn grid meets the flow at its own slope.
void body_panel_sum(int en, float v_msc, float alph_rad, float beta_rad, float* sublift, float* subside, float* subdrag)
{
	const veh_struct& v = veh[0];
	int stations = 0, points = 0;
	ret_body_grid(0, en, 0, &stations, &points);
	const float mach = fltlim(v_msc / fltmax2(con.lcl_a, 1.0f), 1.1f, 3.0f);
	const float machfac = 2.0f / std::sqrt(mach * mach - 1.0f);
	float s_wet = 0.0f, cl_vert = 0.0f, cl_side = 0.0f, cd = 0.0f;
	for (int s = 0; s < stations - 1; s++)
		for (int e = 0; e < points - 1; e++) {
			const float width = pythag(v.body_Y[en][s][e + 1] - v.body_Y[en][s][e], v.body_X[en][s][e + 1] - v.body_X[en][s][e]);
			const float dx = 0.5f * (v.body_X[en][s + 1][e] - v.body_X[en][s][e] + v.body_X[en][s + 1][e + 1] - v.body_X[en][s][e + 1]);
			const float dy = 0.5f * (v.body_Y[en][s + 1][e] - v.body_Y[en][s][e] + v.body_Y[en][s + 1][e + 1] - v.body_Y[en][s][e + 1]);
			const float dz = fltlim(0.5f * (v.body_Z[en][s + 1][e] - v.body_Z[en][s][e] + v.body_Z[en][s + 1][e + 1] - v.body_Z[en][s][e + 1]), 0.001f, 9.9e9f);
			const float alpha = alph_rad * 0.5f - std::atan(dy / dz);
			const float beta = beta_rad * 0.5f - std::atan(dx / dz);
			const float angoff = std::sqrt(alpha * alpha + beta * beta);
			const float area = width * dz;
			s_wet += area;
			cl_vert += alpha * machfac * std::cos(alpha) * area * 0.25f;
			cl_side += beta * machfac * std::cos(beta) * area * 0.25f;
			cd += angoff * machfac * std::sin(angoff) * area;
		}
	if (s_wet > 0.0f) { cl_vert /= s_wet; cl_side /= s_wet; cd /= s_wet; }
	cd += 0.0023f;
	const float q = 0.5f * con.lcl_r_met * v_msc * v_msc;
	*subdrag = cd * v.s[en][0] * q;
	*subside = cl_side * v.s[en][1] * q;
	*sublift = cl_vert * v.s[en][2] * q;
}

void body_forces(const veh_struct& v, const flt_struct& f)
{
	for (int en = en_fuse; en <= en_fair_hi; en++) {
		if (!ret_part_alive(0, en)) continue;
		float cd_zero_slip = v.fuse_cd;
		if (en >= en_nace_lo && en <= en_nace_hi) {   // the nacelle of engine i
			const int i = en - en_nace_lo, et = v.engn_type[i];
			if (et == 0 || et == 1) cd_zero_slip *= 2.0f;
			if (et == 4 || et == 5) cd_zero_slip = 0.0f;   // a jet's nacelle is its engine's intake
			if ((et == 0 || et == 1 || et == 2 || et == 8 || et == 3) && v.body_r[en] > v.semilen_SEG[i]) cd_zero_slip = 0.0f;   // bigger than its wash
		}
		float bx = f.vx_air_on_acf, by = f.vy_air_on_acf, bz = f.vz_air_on_acf;
		for (int w = 0; w < v.num_thrustpoints && w < engn_max; w++) {   // a propeller's wash on a body behind its disc
			const int pt = v.prop_type[w];
			if (!ret_part_alive(0, w) || pt == 5 || pt == 3 || pt == 7 || pt == 6) continue;
			const float dx = v.X_body_aero[en] - f.POINT_XYZ[w][0], dy = v.Y_body_aero[en] - f.POINT_XYZ[w][1], dz = v.Z_body_aero[en] - f.POINT_XYZ[w][2];
			if (dz > 0.0f && std::sqrt(dx * dx + dy * dy) < v.semilen_SEG[w]) {
				float wash[3];
				ret_prop_wash(f, w, wash);
				bx += wash[0]; by += wash[1]; bz += wash[2];
			}
		}
		const float body_v_msc = pythag(bx, by, bz);
		float alph = std::atan2(by, bz), beta = std::atan2(bx, bz);
		const float angl = std::atan2(std::sqrt(bx * bx + by * by), std::fabs(bz));
		alph += v.part_the[en] * con.degtorad;
		beta += v.part_psi[en] * con.degtorad;
		float lift = 0.0f, side = 0.0f, drag = 0.0f;
		if (body_v_msc < con.lcl_a)
			get_body_coeffs(v.s[en][0], v.s[en][1], v.s[en][2], cd_zero_slip, body_v_msc, alph, &lift, beta, &side, angl, &drag);
		else
			body_panel_sum(en, body_v_msc, alph, beta, &lift, &side, &drag);
		addFaero(drag, side, lift, v.X_body_aero[en], v.Y_body_aero[en], v.Z_body_aero[en], en, -1);
	}
	if (mnw.cyc_out) cyc << "After body forces:\n";
}

void gear_drag(const veh_struct& v, const flt_struct& f)
{
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		if (!ret_part_alive(0, en) || !(v.gear_deploy[en] > 0.01f)) continue;
		const bool retracts = v.gear_retract != 0;
		const float r = v.tire_radius[en];
		float strut_area = v.gear_leglen[en] * r * 0.5f;
		const float door_area = retracts ? strut_area * 0.25f : 0.0f;
		if (retracts) strut_area *= 1.5f;   // the actuating struts
		float tire_area = r * 2.0f * r * 0.7f;
		if (!retracts && ret_part_alive(0, en_fair_lo + en - en_gear_lo)) tire_area *= 0.1f;   // inside its fairing
		static const float by_type[8] = {1, 1, 1, 2, 1.2f, 2.4f, 2.8f, 4};
		const int gt = v.gear_type[en];
		if (gt >= 0 && gt < 8) tire_area *= by_type[gt];
		const float strut_cd = retracts ? 0.3f : 0.05f, tire_cd = 0.25f, door_cd = retracts ? 0.5f : 0.0f;
		const float q = f.Qstatic * v.gear_deploy[en];
		const float strut = strut_cd * strut_area * q, tires = tire_cd * tire_area * q, doors = door_cd * door_area * q;
		addFaero(strut, 0.0f, 0.0f, v.gear_xnodef[en], v.gear_ynodef[en], v.gear_znodef[en], en, -1);
		addFaero(tires, 0.0f, 0.0f, v.gear_xnodef[en], v.gear_ynodef[en], v.gear_znodef[en], en, -1);
		addFaero(doors, 0.0f, 0.0f, v.gear_xnodef[en], v.gear_ynodef[en], v.gear_znodef[en], en, -1);
		if (mnw.cyc_out)
			cyc << "Landing gear #" << en - en_gear_lo + 1 << "\n"
			    << "   STRUT area exposed (including actuating struts if retract)=" << strut_area << "\n"
			    << "   TIRES area exposed (tire may be largely hidden by fairing)=" << tire_area << "\n"
			    << "   DOORS area exposed (all gear doors, 0 for fixed-gear)     =" << door_area << "\n"
			    << "   STRUT Cd                                                  =" << strut_cd << "\n"
			    << "   TIRES Cd                                                  =" << tire_cd << "\n"
			    << "   DOORS Cd                                                  =" << door_cd << "\n"
			    << "   drag of exposed STRUT                                     =" << strut << "\n"
			    << "   drag of exposed TIRES                                     =" << tires << "\n"
			    << "   drag of exposed DOORS                                     =" << doors << "\n";
	}
	if (mnw.cyc_out) cyc << "After gear forces:\n";
}

void speedbrake_drag(const veh_struct& v, const flt_struct& f)
{
	if (v.brake_area > 0.0f && f.sbrk_rat > 0.0f) {   // a flat plate square to the flow
		float vx = f.vx_air_on_acf, vy = f.vy_air_on_acf, vz = f.vz_air_on_acf;
		inc_v(&vx, &vy, &vz, 0.0f, v.brake_Y, v.brake_Z);
		const float drag = (vx * vx + vy * vy + vz * vz) * f.sbrk_rat * v.brake_area * 1.23f * con.lcl_r_met * 0.5f;
		addFaero(drag, 0.0f, 0.0f, 0.0f, v.brake_Y, v.brake_Z, -1, -1);
		if (mnw.cyc_out) cyc << "   Fuselage-mounted speedbrakes adding " << drag << " N of drag\n";
	}
	if (mnw.cyc_out) cyc << "After speedbrake forces:\n";
}

void chute_drag(const veh_struct& v, const flt_struct& f)
{
	if (!(v.chute_area > 0.0f && stg.chute_on)) {
		stg.chute_deploy_rat = 0.0f;
		return;
	}
	const float dt = mnw.prd_FM;
	float vx = f.vx_air_on_acf, vy = f.vy_air_on_acf, vz = f.vz_air_on_acf;
	inc_v(&vx, &vy, &vz, 0.0f, v.chute_Y, v.chute_Z);
	const float Q = con.lcl_r_met * (vx * vx + vy * vy + vz * vz);
	const float drag = stg.chute_deploy_rat * v.chute_area * 1.2f * Q * 0.5f;
	addFaero(drag, 0.0f, 0.0f, 0.0f, v.chute_Y, v.chute_Z, -1, -1);
	if (mnw.cyc_out) cyc << "  chute adding " << drag << " N of drag\n" << "After chute forces:\n";
	// The drawn line trails along the air past the aircraft, sagging a little.
	float X, Y, Z;
	any_to_wrl(vx, vy, vz, &X, &Y, &Z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	const float len = fltmax2(pythag(vx, vy, vz), 1.0f);
	const float to[3] = {X / len, (Y - 1.0f) / len, Z / len};
	const float k = fltlim(dt * (Q + 1.0f) * 0.05f, 0.0f, 1.0f);
	for (int a = 0; a < 3; a++) stg.chute_vector_wrl[a] += (to[a] - stg.chute_vector_wrl[a]) * k;
	stg.chute_deploy_rat = fltlim(stg.chute_deploy_rat + dt * 0.5f, 0.0f, 1.0f);   // two seconds to open
}

}  // namespace

void do_bodies_and_drag()
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	body_forces(v, f);
	gear_drag(v, f);
	speedbrake_drag(v, f);
	chute_drag(v, f);
}
