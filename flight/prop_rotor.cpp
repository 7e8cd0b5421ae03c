// Propellers and rotors, blade by blade: each ring of the disc at four blade positions
// meets its own air (the stream, the rotation, its own induced flow and, for rotors,
// cyclic and flapping) and gets lift and drag from the wing lookup. Thrust, drag torque
// and the disc's own dynamics follow.
#include "flight/HL_FLIGHT.h"
#include "aircraft/load_plane.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "world/HL_WORLD.h"
#include <cmath>

namespace {

struct vec3 { float x, y, z; };
vec3 operator+(vec3 a, vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
vec3 operator*(vec3 a, float k) { return {a.x * k, a.y * k, a.z * k}; }
float dot(vec3 a, vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
float sgn(float x) { return x > 0.0f ? 1.0f : x < 0.0f ? -1.0f : 0.0f; }

// Moments of force F at r about the origin: roll about -z, pitch about +x, yaw about -y.
void moment_of(vec3 r, vec3 F, float* L, float* M, float* N)
{
	*L += r.y * F.x - r.x * F.y;
	*M += r.y * F.z - r.z * F.y;
	*N += r.x * F.z - r.z * F.x;
}

// Along the blade, less its sweep: the X and Z arms at a place on it.
void blade_arm(int en, float pos, float* x, float* z)
{
	*x = get_el_base_loc(0, en, pos, 'X');
	*z = get_el_base_loc(0, en, pos, 'Z');
}

}  // namespace

float get_dv_total(float dv_total_now, float thrust, float area, float v_thru_disc)
{
	const float dt = fltlim(mnw.prd_FM, 0.0f, 1.0f);
	float vgeo = v_thru_disc + dv_total_now;
	if (std::fabs(vgeo) < 1.0f) vgeo = vgeo < 0.0f ? -1.0f : 1.0f;
	const float term = area > 0.0f ? thrust / (area * fltmax2(con.lcl_r_met, 0.001f) * std::fabs(vgeo)) : 0.0f;
	return term * dt + (1.0f - dt) * dv_total_now;   // a lag of about a second
}

void do_a_prop(int en)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const int type = v.prop_type[en];
	const int apply_cyclic_def = (type == 3 || type == 7) && (v.cyclic_def_elev > 0.0f || v.cyclic_def_ailn > 0.0f);
	const int apply_disc_tilt = (type == 3 || type == 7) && (v.disc_tilt_elev > 0.0f || v.disc_tilt_ailn > 0.0f);
	const int steer_disc = apply_cyclic_def || apply_disc_tilt;
	f.force_XYZ[en][0][0] = f.force_XYZ[en][0][1] = f.force_XYZ[en][0][2] = 0.0f;
	// Disc axes from the cants: right, up and aft (against the thrust). The side cant turns
	// the disc about its own up axis, so it tilts a rotor sideways as it turns a propeller.
	const float vc = f.vert_disc_cant_cyclic[en] * con.degtorad, sc = f.side_disc_cant_cyclic[en] * con.degtorad;
	const float svc = std::sin(vc), cvc = std::cos(vc), ssc = std::sin(sc), csc = std::cos(sc);
	const vec3 rgt = {csc, -ssc * svc, ssc * cvc};
	const vec3 up = {0.0f, cvc, svc};
	const vec3 aft = {-ssc, -csc * svc, csc * cvc};
	const vec3 hub = {f.POINT_XYZ[en][0], f.POINT_XYZ[en][1], f.POINT_XYZ[en][2]};
	vec3 air = {f.vx_air_on_acf, f.vy_air_on_acf, f.vz_air_on_acf};
	inc_v(&air.x, &air.y, &air.z, hub.x, hub.y, hub.z);
	float a_rgt = dot(air, rgt), a_up = dot(air, up), a_aft = dot(air, aft);
	if (type == 6) { a_rgt = a_up = 0.0f; if (f.vect_rat < 0.01f) a_aft = 0.0f; }
	const float aft_aero = f.POINT_DVinc[en] * 0.5f + a_aft;
	const float clear_v_kts = pythag(a_up, a_rgt, aft_aero) * con.msctokts, side_v_kts = pythag(a_up, a_rgt) * con.msctokts;
	// The wake factor on the induced flow: more in a hover, less in ground effect and in forward flight.
	const float hgt_rat = v.semilen_JND[en] > 0.0f ? ret_ge_hgt_mtrs(en) / (2.0f * v.semilen_JND[en]) : 0.0f;
	const float hgt_fac = hgt_rat > 0.0f ? fltlim(hgt_rat, 0.0f, 1.0f) : 1.0f;
	float dirty;
	if (clear_v_kts <= 20.0f) {
		const float lo = 0.75f + 0.75f * hgt_fac;
		dirty = fltlim(interp(15.0f, lo, 20.0f, 1.25f, clear_v_kts, 0), fltmin2(lo, 1.25f), fltmax2(lo, 1.25f));
	} else dirty = fltlim(1.25f - 0.00714285718f * (clear_v_kts - 20.0f), 1.0f, 1.25f);
	dirty *= fltlim(1.0f - 0.02f * (side_v_kts - 20.0f), 0.3f, 1.0f);
	float air_rand = 0.0f;   // vortex ring: descending into its own wash
	const float descent = -a_aft, dv_below = f.POINT_DVinc[en] * 0.6f;
	if (steer_disc && side_v_kts < 10.0f && descent > 0.0f && dv_below > 0.0f && descent > 0.9f * dv_below && descent < 2.1f * dv_below) {
		const float r = descent / dv_below;
		const float settle = r < 1.1f ? interp(0.9f, 0.0f, 1.1f, 1.0f, r, 0) : r < 1.9f ? 1.0f : interp(1.9f, 1.0f, 2.1f, 0.0f, r, 0);
		dirty *= 1.0f + 2.0f * settle;
		air_rand = 2.0f * settle;
	}
	f.POINT_drag_TRQ[en] = 0.0f;
	f.POINT_thrust[en] = 0.0f;
	const int cw = v.prop_dir[en] > 0.0f;
	const float dir = v.prop_dir[en] >= 0.0f ? 1.0f : -1.0f;
	if (steer_disc) {
		const float rat = v.vect_EQ ? sgn(std::sin(f.vert_disc_cant_vector[en] * con.degtorad)) * std::sqrt(std::fabs(std::sin(f.vert_disc_cant_vector[en] * con.degtorad))) : 1.0f;
		f.cyclic_ailn_command[en] = v.cyclic_def_ailn * f.FC_roll * rat - v.diff_cycl_with_hdng_lat * f.FC_hdng * rat * sgn(v.Zarm[en]);
		f.cyclic_elev_command[en] = v.cyclic_def_elev * f.FC_ptch * rat + v.diff_cycl_with_hdng_lon * f.FC_hdng * rat * sgn(v.Xarm[en]) +
		                            interp(-1.0f, v.rotor_trim_max_fwd, 1.0f, v.rotor_trim_max_aft, f.rotr_trim, 0);
		const float e = (f.cyclic_elev_command[en] - f.cyclic_elev_disc_tilt[en]) * con.degtorad;
		const float a = (f.cyclic_ailn_command[en] - f.cyclic_ailn_disc_tilt[en]) * con.degtorad;
		const float d3 = std::sin(v.delta3 * con.degtorad);
		f.cyclic_elev_blad_alph[en] = e * con.radtodeg - std::atan(std::tan(a) * d3) * con.radtodeg;
		f.cyclic_ailn_blad_alph[en] = a * con.radtodeg + std::atan(std::tan(e) * d3) * con.radtodeg;
	}
	float tip_x, tip_z, mid_x, mid_z;
	blade_arm(en, (float)v.els[en], &tip_x, &tip_z);
	blade_arm(en, 0.5f * v.els[en], &mid_x, &mid_z);
	float Lh = 0, Mh = 0, Nh = 0, Lc = 0, Mc = 0, Nc = 0, Ls = 0, Ms = 0, Ns = 0;   // about the hub; whole force about the cg; shaft force about the cg
	vec3 total = {0, 0, 0};
	const float nb = v.num_blades[en];
	const int els = intlim(v.els[en], 0, el_max);
	for (int el = 0; el < els; el++) {
		float ringthrust = 0.0f;
		const float dv_disc = dirty * f.RING_DVinc[en][el] * 0.5f;
		float xa, za;
		blade_arm(en, el + 0.5f, &xa, &za);
		for (int bld = 0; bld < azi_max; bld++) {
			vec3 c;   // the blade's place in disc axes (right, up)
			static const float plain[4][2] = {{0, 1}, {1, 0}, {0, -1}, {-1, 0}};
			static const float steer_cw[4][2] = {{1, 0}, {0, -1}, {-1, 0}, {0, 1}};
			static const float steer_ccw[4][2] = {{-1, 0}, {0, 1}, {1, 0}, {0, -1}};
			const float(*tab)[2] = !steer_disc ? plain : cw ? steer_cw : steer_ccw;
			c = rgt * (tab[bld][0] * xa) + up * (tab[bld][1] * xa);
			const vec3 pt = hub + c;
			vec3 w;
			ret_wind_spds_acf(pt.x, pt.y, pt.z, &w.x, &w.y, &w.z, 0);
			vec3 iv = {0, 0, 0};
			inc_v(&iv.x, &iv.y, &iv.z, pt.x, pt.y, pt.z);
			const float w_rgt = dot(w, rgt), w_up = dot(w, up), w_aft = dot(w, aft);
			float DVnormal = w_aft + dot(iv, aft) + dv_disc +
			                 air_rand * dv_disc * randrat[(bld + (int)(mnw.totl_time * 2.0f)) % randrat_max];
			float speed = f.POINT_tac_rad[en] * pythag(za, xa);
			const float deg_per_s = std::fabs(f.POINT_tac_rad[en]) * con.radtodeg;
			const float quarter = deg_per_s > 1e-3f ? 90.0f / deg_per_s : 0.0f;   // at rest the flapping speeds vanish
			const float flap_ptch = quarter > 0.0f ? xa * std::sin(f.cyclic_elev_blad_alph[en] * con.degtorad) / quarter : 0.0f;
			const float flap_roll = quarter > 0.0f ? xa * std::sin(f.cyclic_ailn_blad_alph[en] * con.degtorad) / quarter : 0.0f;
			float cyc = 0.0f;
			switch (bld) {
			case 0: speed += cw ? -w_rgt : w_rgt; cyc = -f.cyclic_ailn_blad_alph[en] * dir; if (steer_disc) DVnormal += flap_roll * dir; break;
			case 1: speed += cw ? w_up : -w_up; cyc = f.cyclic_elev_blad_alph[en] * dir; if (steer_disc) DVnormal -= flap_ptch * dir; break;
			case 2: speed += cw ? w_rgt : -w_rgt; cyc = f.cyclic_ailn_blad_alph[en] * dir; if (steer_disc) DVnormal -= flap_roll * dir; break;
			default: speed += cw ? -w_up : w_up; cyc = -f.cyclic_elev_blad_alph[en] * dir; if (steer_disc) DVnormal += flap_ptch * dir; break;
			}
			if (!steer_disc) cyc = 0.0f;
			const float pitch = f.POINT_pitch_deg_use[en] + v.incidence[en][el] + cyc;
			f.del_dir[en][el][bld] = std::atan2(-DVnormal, speed) * con.radtodeg;
			f.v_el[en][el][bld] = pythag(speed, DVnormal);
			f.alpha_el[en][el][bld] = pitch + f.del_dir[en][el][bld];
			float lift, drag, momt;
			F_el_force(0, 0, 0, &lift, &drag, &momt, en, el, bld);
			float anti = drag * nb * 0.25f, faxil = -lift * nb * 0.25f;
			if (type == 7 && el == els - 1) {   // tip rockets
				const float T = get_rocket_thrust(en), p = f.POINT_pitch_deg_use[en] * con.degtorad;
				faxil -= T * nb * 0.25f * std::sin(p);
				anti -= T * nb * 0.25f * std::cos(p);
			}
			float fn = 0.0f, fs = 0.0f;   // the blades' drag pushes round the disc
			if ((cw && bld == 1) || (!cw && bld == 3)) fn = anti;
			if ((cw && bld == 3) || (!cw && bld == 1)) fn = -anti;
			if ((cw && bld == 0) || (!cw && bld == 2)) fs = -anti;
			if ((cw && bld == 2) || (!cw && bld == 0)) fs = anti;
			ringthrust -= faxil;
			f.POINT_thrust[en] -= faxil;
			f.POINT_drag_TRQ[en] += anti * pythag(xa, za);
			const vec3 F = rgt * fs + up * fn + aft * faxil, shaft = aft * faxil;
			total = total + F;
			// About the hub in the disc's own axes (right, up, aft), as a disc facing forward
			// would have them: so its pitch and yaw are the disc's two tilts, however it is canted.
			moment_of({dot(c, rgt), dot(c, up), dot(c, aft)}, {fs, fn, faxil}, &Lh, &Mh, &Nh);
			moment_of(pt, shaft, &Ls, &Ms, &Ns);
			if (el == els - 1) {   // a blade tip in the ground stops the engine
				float X, Y, Z;
				any_to_wrl(pt.x, pt.y, pt.z, &X, &Y, &Z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
				if (!ret_over_water() && f.dob_y + Y < f.terrain_y_cg) {
					f.ENGN_tacrad[en] = f.POINT_tac_rad[en] = 0.0f;
					if (type == 5) f.fail_stat[rel_trotor] = fail_inop;
					f.fail_stat[rel_engfai0 + en] = fail_inop;
				}
			}
		}
		f.RING_DVinc[en][el] = get_dv_total(f.RING_DVinc[en][el], ringthrust, v.ringarea[en][el], a_aft);
	}
	f.POINT_DVinc[en] = get_dv_total(f.POINT_DVinc[en], f.POINT_thrust[en], v.discarea[en], a_aft);
	f.fside_prop_acf += total.x;
	f.fnrml_prop_acf += total.y;
	f.faxil_prop_acf += total.z;
	f.force_XYZ[en][0][0] = total.x; f.force_XYZ[en][0][1] = total.y; f.force_XYZ[en][0][2] = total.z;
	moment_of(hub, total, &Lc, &Mc, &Nc);
	const float mi = v.mi_prop_rpm[en], tac = f.POINT_tac_rad[en];
	if (steer_disc) {
		const float Q_from_acf = f.Qrad * pythag(aft.z, aft.y);
		const float R_from_acf = f.Prad * pythag(aft.y, aft.x) + f.Rrad * pythag(aft.z, aft.x);
		Mh -= (f.Q_rotor_rad[en] + Q_from_acf) * mi * tac;   // the rotor as a gyroscope
		Nh -= (f.R_rotor_rad[en] + R_from_acf) * mi * tac;
		Mh -= v.prop_mass[en] * tip_x * 0.01f * f.cyclic_elev_disc_tilt[en];   // the hub's centring spring
		Nh -= v.prop_mass[en] * tip_x * 0.01f * f.cyclic_ailn_disc_tilt[en];
		const float rat = 1.0f;
		if (apply_cyclic_def && mi > 0.0f) {
			auto limit = [&](float& rate, float mom, float from_acf) {
				const float term = mom / (mi * fltmax2(std::fabs(tac), 1.0f)) - from_acf;
				const float moved = rate + mom / mi * dt;
				rate = term >= 0.0f ? 0.5f * fltmin2(moved, term) + 0.5f * rate : 0.5f * fltmax2(moved, term) + 0.5f * rate;
			};
			limit(f.Q_rotor_rad[en], Mh, Q_from_acf);
			limit(f.R_rotor_rad[en], Nh, R_from_acf);
		}
		if (apply_disc_tilt && dt > 0.0f) {   // a rigidly steered disc
			f.R_rotor_rad[en] = (v.disc_tilt_ailn * f.FC_roll * rat - f.cyclic_ailn_disc_tilt[en]) / dt * con.degtorad;
			f.Q_rotor_rad[en] = (v.disc_tilt_elev * f.FC_ptch * rat - f.cyclic_elev_disc_tilt[en]) / dt * con.degtorad;
		}
		f.cyclic_elev_disc_tilt[en] += f.Q_rotor_rad[en] * con.radtodeg * dt;
		f.cyclic_ailn_disc_tilt[en] += f.R_rotor_rad[en] * con.radtodeg * dt;
		const float lim_e = 2.0f * v.cyclic_def_elev * rat, lim_a = 2.0f * v.cyclic_def_ailn * rat;
		const int bump = apply_disc_tilt || std::fabs(f.cyclic_elev_disc_tilt[en]) > lim_e || std::fabs(f.cyclic_ailn_disc_tilt[en]) > lim_a;
		if (bump) {   // mast bumping: the moment goes to the airframe
			f.M += Mh;
			f.N += Nh * std::cos(vc);
			f.L += Nh * std::sin(vc);
		}
		if (apply_cyclic_def) {
			f.cyclic_elev_disc_tilt[en] = fltlim(f.cyclic_elev_disc_tilt[en], -lim_e, lim_e);
			f.cyclic_ailn_disc_tilt[en] = fltlim(f.cyclic_ailn_disc_tilt[en], -lim_a, lim_a);
			const float fc = tac * tac * tip_x * 0.7071f * v.prop_mass[en];
			f.M += std::sin(f.cyclic_elev_disc_tilt[en] * con.degtorad) * fc * 0.7071f * v.flap_arm;
			f.N += std::sin(f.cyclic_ailn_disc_tilt[en] * con.degtorad) * fc * 0.7071f * v.flap_arm * std::cos(vc);
			f.L += std::sin(f.cyclic_ailn_disc_tilt[en] * con.degtorad) * fc * 0.7071f * v.flap_arm * std::sin(vc);
		}
		f.L += Lc; f.M += Mc; f.N += Nc;
	} else {   // the spinning disc as a gyroscope
		const float at = std::fabs(tac);
		const float Lg = -f.Prad * mi * at * pythag(aft.y, aft.x);
		const float Mg = -f.Qrad * mi * at * pythag(aft.z, aft.y);
		const float Ng = -f.Rrad * mi * at * pythag(aft.z, aft.x);
		f.L += Ls + Lg - Ng * dir * std::sin(sc) + Mg * dir * std::sin(vc);
		f.M += Ms + Mg - Ng * dir * std::cos(sc);
		f.N += Mg * dir * std::cos(vc) + Ns + Ng;
	}
	if (type == 3 || type == 7) {   // coning
		float up_f = f.POINT_thrust[en] - v.prop_mass[en], out_f = tac * tac * mid_x * v.prop_mass[en];
		if (std::fabs(up_f) < 0.01f) up_f = up_f < 0.0f ? -0.01f : 0.01f;
		if (std::fabs(out_f) < 0.01f) out_f = out_f < 0.0f ? -0.01f : 0.01f;
		const float k = fltlim(dt, 0.0f, 1.0f);
		f.POINT_cone_rad[en] = fltlim(k * std::atan(up_f / out_f) + (1.0f - k) * f.POINT_cone_rad[en], -8.0f * con.degtorad, 8.0f * con.degtorad);
	} else f.POINT_cone_rad[en] = 0.0f;
	float pw = en < v.num_engines ? f.ENGN_power[en] : f.POINT_drag_TRQ[en] * tac;
	if (std::fabs(pw) < 0.1f) pw = pw < 0.0f ? -0.1f : 0.1f;
	f.POINT_prop_eff[en] = f.POINT_thrust[en] * f.AV_msc / pw;
	f.POINT_side_wash[en] = fltlim((1.0f - fltlim(f.POINT_prop_eff[en], 0.5f, 1.0f)) * f.POINT_DVinc[en] * 0.25f, 0.0f,
	                               fltmax2(f.POINT_DVinc[en] * 0.5f, 0.0f));
}
