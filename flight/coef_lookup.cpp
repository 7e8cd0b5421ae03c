// The coefficient lookup of an element: airfoil tables at the local angle, blended
// between Reynolds numbers and from root to tip, with compressibility, the finite-span
// corrections, induced drag, drag rise and ice; a double wedge above Mach 1.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <cstring>

void subsonic_co_lookup(float alpha, float* cl, float* cd, float* cm, int en, int r, int t, int el, int bld)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const airfoil_struct& a = v.afl[en];
	const float fs = v.slat[en][el] ? 1.0f + (v.slat_effect[en] - 1.0f) * f.slat_rat : 1.0f;
	// Finite span and extended slats stretch the table in alpha, keeping zero lift in place.
	const float a0 = a.clM[r][t] != 0.0f ? -a.clB[r][t] / a.clM[r][t] : 0.0f;
	const float a_s = (alpha - a0) * v.al_D_al0[en] * f.Q_centroid_MULT[en][bld] / fs + a0;
	const float use = interp(20.0f, a_s, 90.0f, alpha, std::fabs(alpha), 0);   // the stretch fades out at large angles
	afl_table_lookup(&a, r, t, use, cl, cd, cm);
	if (v.slat[en][el]) *cl *= fs;
	f.stalled[en] = use > v.alpha_max[en] * fs;
}

static void re_blend_end(const airfoil_struct& a, int r, float re, const float l[2], const float d[2], const float m[2],
                         float* cl, float* cd, float* cm)
{
	const float r0 = a.re_num[r][0], r1 = a.re_num[r][1];
	const float use = fltlim(re, fltmin2(r0, r1), fltmax2(r0, r1));
	*cl = interp(r0, l[0], r1, l[1], use, 0);   // the mean when the two numbers are equal
	*cd = interp(r0, d[0], r1, d[1], use, 0);
	*cm = interp(r0, m[0], r1, m[1], use, 0);
}

void Fco_subsonic(float trat, float drag_div, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd,
                  float* cm, int en, int el, int bld)
{
	(void)trat;
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const airfoil_struct& a = v.afl[en];
	Mach = fltlim(Mach, 0.0f, 0.85f);   // the transonic band is treated as 0.85
	const float alpha = f.alpha_el[en][el][bld];
	float l[2][2], d[2][2], m[2][2];   // [root, tip][Re]
	subsonic_co_lookup(alpha, &l[0][0], &d[0][0], &m[0][0], en, 0, 0, el, bld);
	// Most parts use one airfoil: equal names share one lookup.
	if (!std::strcmp(v.Rafl1[en], v.Rafl0[en])) { l[0][1] = l[0][0]; d[0][1] = d[0][0]; m[0][1] = m[0][0]; }
	else subsonic_co_lookup(alpha, &l[0][1], &d[0][1], &m[0][1], en, 0, 1, el, bld);
	if (!std::strcmp(v.Tafl0[en], v.Rafl0[en])) { l[1][0] = l[0][0]; d[1][0] = d[0][0]; m[1][0] = m[0][0]; }
	else subsonic_co_lookup(alpha, &l[1][0], &d[1][0], &m[1][0], en, 1, 0, el, bld);
	if (!std::strcmp(v.Tafl1[en], v.Tafl0[en])) { l[1][1] = l[1][0]; d[1][1] = d[1][0]; m[1][1] = m[1][0]; }
	else subsonic_co_lookup(alpha, &l[1][1], &d[1][1], &m[1][1], en, 1, 1, el, bld);
	const float re = con.lcl_r_met * f.v_el[en][el][bld] * v.mac[en][el] / con.planet_mu_air / 1.0e6f;
	float cl_r, cd_r, cm_r, cl_t, cd_t, cm_t;
	re_blend_end(a, 0, re, l[0], d[0], m[0], &cl_r, &cd_r, &cm_r);
	re_blend_end(a, 1, re, l[1], d[1], m[1], &cl_t, &cd_t, &cm_t);
	const int els = v.els[en];
	const float u = els > 0 ? (el + 0.5f) / els : 0.5f;
	*cl = cl_r + (cl_t - cl_r) * u + modcl;
	*cd = fltmax2(cd_r + (cd_t - cd_r) * u + modcd, 0.0f);
	*cm = cm_r + (cm_t - cm_r) * u + modcm;
	if (*cl > 0.0f) *cl *= f.CL_grndeffect[en];
	const float pg = 1.0f / std::sqrt(1.0f - Mach * Mach);   // Prandtl-Glauert
	*cl *= pg;
	*cm *= pg;
	float AR = v.AR[en];
	if (en >= en_wing1L && en <= en_pylb_hi && AR > 0.0f) {
		// A wing flying sideways behaves as if its span and chord had changed places.
		const float c = std::fabs(std::cos(f.beta * std::cos(v.dihednow[en] * con.degtorad) * con.degtorad));
		AR = fltlim(AR + (1.0f / AR - AR) * (1.0f - c), fltmin2(AR, 1.0f / AR), fltmax2(AR, 1.0f / AR));
	}
	const float qm = fltlim(f.Q_centroid_MULT[en][bld], 0.5f, 2.0f);
	const float den = con.pi * v.e[en] * AR * qm;
	if (den > 0.0f) *cd += *cl * *cl / den * f.CD_grndeffect[en];   // induced drag, from the lift before the span factor
	*cl *= v.cl_D_cl0[en] * f.Q_centroid_MULT[en][bld];
	*cm *= v.cm_D_cm0[en] * f.Q_centroid_MULT[en][bld];
	const float Mdd = drag_div - std::fabs(*cl) * 0.2f;
	if (Mach > Mdd) *cd += 2.5f * sqr(Mach - Mdd);
	*cm -= *cl * v.delta_fac[en] * 0.25f;
	const float ice = en <= en_engn_hi ? f.prop_ice : f.frame_ice;
	if (ice > 0.0f) { *cl /= 1.0f + ice * 0.5f; *cd *= 1.0f + ice * 4.0f; }
	*cd = fltmax2(*cd, 0.0f);
}

// Linearised flow over a double wedge.
void Fco_supersonic(float trat, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd, float* cm,
                    int en, int el, int bld)
{
	Mach = fltlim(Mach, 1.1f, 3.0f);
	const float ang = std::atan(trat) * con.radtodeg;
	const float al = flt[0].alpha_el[en][el][bld];
	const float panels[4] = {al - ang, al + ang, al + ang, al - ang};
	const float root = std::sqrt(Mach * Mach - 1.0f);
	*cl = *cd = 0.0f;
	for (float p : panels) {
		const float th = p * con.degtorad, Cp = 2.0f * th / root;
		*cl += Cp * std::cos(th) * 0.5f;
		*cd += Cp * std::sin(th) * 0.5f;
	}
	*cd += 0.0046f;   // skin friction
	*cm = *cl * -0.24f;
	if (en > en_engn_hi) { *cl += modcl; *cd += modcd; *cm += modcm; }
}

float F_el_force(float modcl, float modcd, float modcm, float* lift, float* drag, float* momt, int en, int el, int bld)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const float V = f.v_el[en][el][bld];
	const float Mach = con.lcl_a > 0.0f ? V / con.lcl_a : 0.0f;
	const airfoil_struct& a = v.afl[en];
	const int els = v.els[en];
	const float u = els > 0 ? (el + 0.5f) / els : 0.5f;
	const float trat = a.t_rat[0] + (a.t_rat[1] - a.t_rat[0]) * u;
	const float drag_div = a.mach_div[0] + (a.mach_div[1] - a.mach_div[0]) * u;
	float cl, cd, cm;
	if (Mach < 1.0f) Fco_subsonic(trat, drag_div, Mach, modcl, modcd, modcm, &cl, &cd, &cm, en, el, bld);
	else Fco_supersonic(trat, Mach, modcl, modcd, modcm, &cl, &cd, &cm, en, el, bld);
	// From the local flow, bent by downwash and wash, back to the free stream's axes.
	const float d = f.del_dir[en][el][bld] * con.degtorad;
	const float sd = std::sin(d), cdd = std::cos(d);
	const float new_cl = cd * sd + cl * cdd, new_cd = cd * cdd - cl * sd;
	const float q = v.s[en][el] * V * V * con.lcl_r_met * 0.5f;
	*lift = new_cl * q;
	*drag = new_cd * q;
	*momt = cm * q * v.mac[en][el];
	if (mnw.cyc_out)
		cyc << "   force=coeff*S*V*V*rho/2\n   lift=" << *lift << "\n   drag=" << *drag << "\n   momt=" << *momt << "\n";
	return cl;
}
