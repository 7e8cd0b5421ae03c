// The lifting parts (8 to 43): each element finds the air it meets (free stream,
// rotation, propwash and swirl, blown flaps, downwash from the wings ahead), looks up its
// coefficients with its controls' increments, and adds its force. Then the downwash it
// casts and the spanwise centroid of dynamic pressure, for the next sub-step.
#include "flight/HL_FLIGHT.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "world/HL_WORLD.h"
#include <cmath>

namespace {

float downwash_from[part_max];

float chord_at(const veh_struct& v, int en, float el)
{
	return interp(0.0f, v.Croot[en], (float)v.els[en], v.Ctip[en], el, 0);
}

}  // namespace

float ret_ge_hgt_mtrs(int en)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	float x, y, z;
	if (en >= en_wing1L && en <= en_pylb_hi) {
		if (std::fabs(v.dihednow[en]) >= 45.0f) return 0.0f;
		get_el_base_xyz(0, en, 0.5f * v.els[en], &x, &y, &z);
	} else if (en <= en_engn_hi) {   // a rotor whose disc faces the ground
		if (!(f.vert_disc_cant_cyclic[en] > 45.0f && std::fabs(f.side_disc_cant_cyclic[en]) < 45.0f)) return 0.0f;
		x = v.Xarm[en]; y = v.Yarm[en]; z = v.Zarm[en];
	} else return 0.0f;
	float X, Y, Z;
	any_to_wrl(x, y, z, &X, &Y, &Z, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	return (float)(Y + f.dob_y - f.terrain_y_cg);
}

void do_ground_effect()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	for (int en = 0; en < part_max; en++) f.CL_grndeffect[en] = f.CD_grndeffect[en] = 1.0f;
	for (int en = 0; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(0, en)) continue;
		const float h = ret_ge_hgt_mtrs(en);
		if (!(h > 0.0f)) continue;
		const float mn = 0.1f * h;
		f.CL_grndeffect[en] = fltlim(2.0f - std::pow(h / fltmax2(v.average_MAC[en], mn), 0.25f), 1.0f, 2.0f);
		f.CD_grndeffect[en] = fltlim(std::pow(h / fltmax2(2.0f * v.semilen_JND[en], mn), 0.25f), 0.0f, 1.0f);
	}
}

float control_crat(int p, int en, float el, int type)
{
	const veh_struct& v = veh[p];
	const float* elR; const float* elT; float cratR, cratT;
	switch (type) {
	case 0: elR = v.ail1_elR; elT = v.ail1_elT; cratR = v.ail1_cratR; cratT = v.ail1_cratT; break;
	case 1: elR = v.ail2_elR; elT = v.ail2_elT; cratR = v.ail2_cratR; cratT = v.ail2_cratT; break;
	case 2: elR = v.spo1_elR; elT = v.spo1_elT; cratR = v.spo1_cratR; cratT = v.spo1_cratT; break;
	case 3: elR = v.spo2_elR; elT = v.spo2_elT; cratR = v.spo2_cratR; cratT = v.spo2_cratT; break;
	case 4: elR = v.yawb_elR; elT = v.yawb_elT; cratR = v.yawb_cratR; cratT = v.yawb_cratT; break;
	case 5: elR = v.elev_elR; elT = v.elev_elT; cratR = v.elev_cratR; cratT = v.elev_cratT; break;
	case 6: elR = v.rudd_elR; elT = v.rudd_elT; cratR = v.rudd_cratR; cratT = v.rudd_cratT; break;
	case 7: elR = v.flap_elR; elT = v.flap_elT; cratR = v.flap_cratR; cratT = v.flap_cratT; break;
	default: elR = v.sbrk_elR; elT = v.sbrk_elT; cratR = v.sbrk_cratR; cratT = v.sbrk_cratT; break;
	}
	const float here = chord_at(v, en, el);
	if (!(here > 0.0f)) return 0.0f;
	const float cR = cratR * chord_at(v, en, elR[en]), cT = cratT * chord_at(v, en, elT[en]);
	const float c = elR[en] == elT[en] ? 0.5f * (cR + cT) : interp(elR[en], cR, elT[en], cT, el, 0);
	return c / here;
}

float flap_cl_rat(float def)
{
	if (def <= 20.0f) return 0.7f * def / 20.0f;   // not held below: a flap up lifts less
	if (def <= 45.0f) return interp(20.0f, 0.7f, 45.0f, 0.8f, def, 0);
	return interp(45.0f, 0.8f, 90.0f, 1.0f, def, 0);
}

void set_con_eff(int en, int el, int type, float def, float* mod_al, float* mod_cl, float* mod_cd, float* mod_cm,
                 const char* name, int is_end)
{
	if (def == 0.0f) return;
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const float crat = control_crat(0, en, el + 0.5f, type);
	static const float con_mults[4] = {0.7f, 0.85f, 1.0f, 1.5f};
	const float con_mult = con_mults[intlim(v.con_smooth, 0, 3)];
	float al = v.al_D_al0[en];
	if (is_end) al *= al;   // controls near the tip lose effect twice
	const airfoil_struct& a = v.afl[en];
	const float lift_slope = 0.25f * (a.clM[0][0] + a.clM[0][1] + a.clM[1][0] + a.clM[1][1]) * al;
	float al_inc = 0.0f, cl_inc = 0.0f, cd_inc = 0.0f, cm_inc = 0.0f;
	const float sdef = std::sin(std::fabs(def) * con.degtorad);
	if ((type == 8 && (en == en_vstb1 || en == en_vstb2)) || type == 4) {
		cd_inc = sdef * crat * 1.23f * 2.0f;
	} else if (type == 7) {
		const float full = v.flap_dn[intlim(v.flap_detents, 0, 7)];
		const float r = flap_cl_rat(full) != 0.0f ? flap_cl_rat(def) / flap_cl_rat(full) : 0.0f;
		al_inc = def * crat * std::fabs(crat);
		cl_inc = r * v.flap_cl * al - al_inc * lift_slope;
		const float sfull = std::sin(std::fabs(full) * con.degtorad);
		cd_inc = sfull > 0.0f ? v.flap_cd * sdef / sfull : 0.0f;
		cm_inc = v.flap_cm * r * al;
	} else {
		al_inc = -def * std::pow(std::fabs(crat), 0.9f) * (crat < 0.0f ? -1.0f : 1.0f) * con_mult;
		cl_inc = al_inc * lift_slope * 0.9f * al;
		cd_inc = def * def * crat * 1.5e-5f;
		cm_inc = -cl_inc * 0.5f;
		if (type == 2 || type == 3 || type == 8) {   // spoilers and speedbrakes: half the lift, real drag
			al_inc *= 0.5f;
			cl_inc *= 0.5f;
			cd_inc = sdef * crat * 1.23f;
		}
	}
	if (type == 7 && ((v.is_left[en] && f.fail_stat[rel_L_flp_off] == fail_inop) || (!v.is_left[en] && f.fail_stat[rel_R_flp_off] == fail_inop))) {
		al_inc = 0.0f;   // the flap is gone: a hole in the wing's trailing edge
		cl_inc = crat * (-f.alpha_el[en][el][0] * 0.1f) * 2.0f;
		cd_inc = a.t_rat[0];
		cm_inc = (0.75f - crat * 0.5f) * (-cl_inc);
	}
	*mod_al += al_inc;
	*mod_cl += cl_inc;
	*mod_cd += cd_inc;
	*mod_cm += cm_inc;
	if (mnw.cyc_out) cyc << "   " << name << ": al " << al_inc << " cl " << cl_inc << " cd " << cd_inc << " cm " << cm_inc << "\n";
}

void ret_prop_wash(const flt_struct& f, int w, float wash[3])
{
	const float sc = f.side_disc_cant_cyclic[w] * con.degtorad, vc = f.vert_disc_cant_cyclic[w] * con.degtorad;
	const float D = f.POINT_DVinc[w];
	wash[0] = -D * std::sin(sc);
	wash[1] = -D * std::cos(sc) * std::sin(vc);
	wash[2] = D * std::cos(sc) * std::cos(vc);
}

void do_lifting_parts()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	for (float& d : downwash_from) d = 0.0f;
	for (int en = en_wing1L; en <= en_pylb_hi; en++) {
		if (!ret_part_alive(0, en)) continue;
		const int els = intlim(v.els[en], 0, el_max);
		const float ls = v.lat_sign[en], cdih = f.cos_act_dihed[en], sdih = f.sin_act_dihed[en];
		for (int el = 0; el < els; el++) {
			float x, y, z;
			get_el_base_xyz(0, en, el + 0.5f, &x, &y, &z);
			float wx, wy, wz;
			ret_wind_spds_acf(x, y, z, &wx, &wy, &wz, 0);
			const float a = std::atan2(wy, wz) * con.radtodeg;
			const float b = std::atan2(wx, std::fabs(wz)) * con.radtodeg;
			// A sideslip adds to the sweep of one wing and takes from the other.
			const float s = (v.is_left[en] ? -b : b) * cdih + v.sweepnow[en];
			const float c = std::cos(s * con.degtorad);
			const float Vp = pythag(wx, wy, wz) * fltlim(c + (1.0f - c) * v.delta_fac[en], fltmin2(c, 1.0f), 1.0f);
			const float g = a * cdih + v.incidence[en][el] + v.incnow[en] - b * sdih * ls;
			float& del_dir = f.del_dir[en][el][0];
			del_dir = -g;
			float ix = 0.0f, iy = 0.0f, iz = 0.0f;
			inc_v(&ix, &iy, &iz, x, y, z);
			const float gr = g * con.degtorad;
			float a_v = Vp * std::cos(gr) + iz;
			float n_v = Vp * std::sin(gr) + iy * cdih - ix * sdih * ls;
			for (int w = 0; w < v.num_thrustpoints && w < engn_max; w++) {   // propwash and its swirl
				if (!ret_part_alive(0, w) || v.prop_type[w] == 5 || v.prop_type[w] == 6 || std::fabs(f.POINT_DVinc[w]) <= 0.01f) continue;
				float wash[3];
				ret_prop_wash(f, w, wash);
				const float geo[3] = {x - f.POINT_XYZ[w][0], y - f.POINT_XYZ[w][1], z - f.POINT_XYZ[w][2]};
				const float was[3] = {f.vx_air_on_acf + wash[0], f.vy_air_on_acf + wash[1], f.vz_air_on_acf + wash[2]};
				const float nrm[3] = {geo[1] * was[2] - geo[2] * was[1], geo[2] * was[0] - geo[0] * was[2], geo[0] * was[1] - geo[1] * was[0]};
				const int behind = std::fabs(geo[2]) > std::fabs(geo[1]) ? (geo[2] > 0) == (was[2] > 0) : (geo[1] > 0) == (was[1] > 0);
				const float was_len = pythag(was[0], was[1], was[2]), geo_len = pythag(geo[0], geo[1], geo[2]);
				if (!behind || was_len <= 0.0f || geo_len <= 0.0f) continue;
				const float side_dis = pythag(nrm[0], nrm[1], nrm[2]) / was_len, wash_rad = v.semilen_SEG[w];
				if (!(side_dis < wash_rad)) continue;
				const float r = side_dis / wash_rad;
				const float prop_wash_rat = fltlim(1.0f - 2.0f * (r - 0.75f), 0.0f, 1.0f);
				float spir = v.prop_dir[w] < 0.0f ? -r : r;
				const float along = geo_len * std::cos(std::asin(fltlim(side_dis / geo_len, -1.0f, 1.0f))) / was_len;
				const float rel[3] = {geo[0] - was[0] * along, geo[1] - was[1] * along, geo[2] - was[2] * along};
				const float dn = std::fabs(v.dihednow[en]);
				if (dn < 45.0f || dn > 135.0f) { if (rel[0] * cdih > 0.0f) spir = -spir; }
				else if (rel[1] * sdih > 0.0f) spir = -spir;
				a_v += prop_wash_rat * wash[2];
				n_v += spir * f.POINT_side_wash[w];
			}
			const int has_blown = v.flap[en][el] || (v.blow_all_controls && (v.ail1[en][el] || v.ail2[en][el] || v.elev[en][el] || v.rudd[en][el]));
			if (v.blown_flap_add_speed > 0.0f && f.blown_flap_engage_rat > 0.0f && has_blown && f.CONT_prop_mode[0] != 3)
				a_v += v.blown_flap_add_speed * f.blown_flap_engage_rat * f.CONT_thro_use[0];
			f.v_el[en][el][0] = pythag(n_v, a_v);
			float& alpha_el = f.alpha_el[en][el][0];
			alpha_el = std::atan2(n_v, a_v) * con.radtodeg + f.downwash_deg[en][el];
			del_dir += alpha_el;
			alpha_el += f.elem_inc_inc[en][el];   // a surface that turns bodily does not tilt its own force
			float mod_al = 0.0f, mod_cl = 0.0f, mod_cd = 0.0f, mod_cm = 0.0f;
			if (v.spo1[en][el]) set_con_eff(en, el, 2, f.spo1_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "SPOILER #1", 0);
			if (v.spo2[en][el]) set_con_eff(en, el, 3, f.spo2_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "SPOILER #2", 0);
			if (v.sbrk[en][el]) set_con_eff(en, el, 8, f.sbrk_rat * v.sbrk_up, &mod_al, &mod_cl, &mod_cd, &mod_cm, "SPEEDBRAKE", 0);
			if (v.yawb[en][el]) set_con_eff(en, el, 4, f.yawb_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "DRAG-RUDDER", 1);
			if (v.ail1[en][el]) set_con_eff(en, el, 0, f.ail1_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "AILERON #1", 1);
			if (v.ail2[en][el]) set_con_eff(en, el, 1, f.ail2_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "AILERON #2", 1);
			if (v.elev[en][el]) set_con_eff(en, el, 5, f.elev_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "ELEVATOR", 0);
			if (v.rudd[en][el]) set_con_eff(en, el, 6, f.rudd_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "RUDDER", 0);
			if (v.flap[en][el]) set_con_eff(en, el, 7, f.flap_def[en], &mod_al, &mod_cl, &mod_cd, &mod_cm, "FLAPS", 0);
			alpha_el += mod_al;
			float lift, drag, momt;
			const float subcl = F_el_force(mod_cl, mod_cd, mod_cm, &lift, &drag, &momt, en, el, 0);
			f.nrml_force_path[en] += lift;
			f.axil_force_path[en] += drag;
			addFaero(drag, -lift * sdih * ls, lift * cdih, x, y, z, en, el);
			f.M += momt * cdih;
			f.N -= momt * sdih * ls;
			float cast = subcl * v.spec_wash[en] / fltmax2((float)els, 1.0f);
			if (f.stalled[en]) cast *= std::fabs(std::sin(10.0f * mnw.totl_time));   // a stalled wake pulses on the tail
			downwash_from[en] += cast;
		}
	}
	// Downwash for the next sub-step: only wings and tails cast or receive it, and not above Mach 1.
	for (int a = en_wing1L; a <= en_mwing_hi; a++)
		for (int el = 0; el < el_max; el++) {
			float d = 0.0f;
			if (f.Mach < 1.0f)
				for (int b = en_wing1L; b <= en_mwing_hi; b++)
					if (v.in_downwash[a][b][el]) d -= downwash_from[b] * std::cos((v.dihednow[b] - v.dihednow[a]) * con.degtorad);
			f.downwash_deg[a][el] = d;
		}
	// The spanwise centroid of dynamic pressure thins the lift of parts loaded toward the tip.
	for (int en = 0; en < part_max; en++) {
		if (!ret_part_alive(0, en)) continue;
		const int els = intlim(v.els[en], 0, el_max);
		for (int slot = 0; slot < (en <= en_engn_hi ? azi_max : 1); slot++) {
			float sq = 0.0f, sqx = 0.0f;
			for (int el = 0; el < els; el++) {
				const float q = v.s[en][el] * sqr(f.v_el[en][el][slot] + 0.001f);
				sq += q;
				sqx += q * (el + 0.5f);
			}
			const float loc = els && sq > 0.0f ? fltlim(sqx / (els * sq), 0.0f, 1.0f) : 0.5f;
			f.Q_centroid_loc[en][slot] = loc;
			f.Q_centroid_MULT[en][slot] = std::sqrt(fltlim(1.0f - 2.0f * (loc - 0.5f), 0.0f, 1.0f));
		}
	}
}
