// Airfoil files and tables: reading every file version, writing the newest, the
// curves made from shape parameters, and the table lookup with its Reynolds blend.
#include "aircraft/airfoil.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

float afl_alpha_of_index(int i)
{
	int x = i - 360;
	if (x <= -201) return (float)(x + 180);
	if (x >= 201) return (float)(x - 180);
	return 0.1f * x;
}

float afl_index_of_alpha(float a)
{
	if (!(a == a)) return 360.0f;
	if (a < -20.0f) return fltlim(a + 180.0f, 0.0f, 160.0f);
	if (a < 20.0f) return fltlim((a + 20.0f) * 10.0f + 160.0f, 160.0f, 560.0f);
	return fltlim(a - 20.0f + 560.0f, 560.0f, 719.0f);   // 719 so that i + 1 stays in the table
}

void afl_table_lookup(const airfoil_struct* afl, int RT, int Re, float alpha, float* cl, float* cd, float* cm)
{
	float fi = afl_index_of_alpha(alpha);
	int i = (int)fi;
	if (i > afl_tab - 2) i = afl_tab - 2;
	float f = fi - (float)i;
	const float* tl = afl->cl[RT][Re];
	const float* td = afl->cd[RT][Re];
	const float* tm = afl->cm[RT][Re];
	*cl = tl[i] + (tl[i + 1] - tl[i]) * f;
	*cd = fltmax2(td[i] + (td[i + 1] - td[i]) * f, 0.0f);
	*cm = tm[i] + (tm[i + 1] - tm[i]) * f;
}

void afl_re_blend(const airfoil_struct* afl, int RT, float re_mil, float alpha, float* cl, float* cd, float* cm)
{
	float l0, d0, m0, l1, d1, m1;
	afl_table_lookup(afl, RT, 0, alpha, &l0, &d0, &m0);
	afl_table_lookup(afl, RT, 1, alpha, &l1, &d1, &m1);
	float r0 = afl->re_num[RT][0], r1 = afl->re_num[RT][1];
	float re = fltlim(re_mil, fltmin2(r0, r1), fltmax2(r0, r1));
	// interp gives the mean of the two when the Reynolds numbers are equal.
	*cl = interp(r0, l0, r1, l1, re, 0);
	*cd = interp(r0, d0, r1, d1, re, 0);
	*cm = interp(r0, m0, r1, m1, re, 0);
}

float ret_cl(float al, const airfoil_struct* a, int RT, int Re)
{
	const float clM = a->clM[RT][Re], clB = a->clB[RT][Re], almin = a->almin[RT][Re], almax = a->almax[RT][Re];
	const float linlolift = clB - clM * a->Llinrange;
	const float linhilift = clB + clM * a->Llinrange;
	const float Llintostall = a->Lstall - linhilift;
	if (al >= -20.0f && al <= almin)
		return 2.0f * clB - a->Lstall + a->Ldrop1 + a->Ldrop2 * std::pow((almin - al) / (almin + 20.0f), a->Lpowstl);
	if (al >= almin && al <= -a->Llinrange)
		return linlolift + (std::pow((almin - al) / (almin + a->Llinrange), a->Lpow) - 1.0f) * Llintostall;
	if (al >= a->Llinrange && al <= almax)
		return linhilift - (std::pow((almax - al) / (almax - a->Llinrange), a->Lpow) - 1.0f) * Llintostall;
	if (al >= almax && al <= 20.0f)
		return a->Lstall - a->Ldrop1 - a->Ldrop2 * std::pow((almax - al) / (almax - 20.0f), a->Lpowstl);
	if (al >= -a->Llinrange && al <= a->Llinrange) return clM * al + clB;
	return 0.0f;
}

float ret_cd(float al, const airfoil_struct* a, int RT, int Re)
{
	const float clM = a->clM[RT][Re], clB = a->clB[RT][Re];
	const float alDmin = (a->DminCL - clB) / clM;
	float drag = (a->Dal10 - a->Dmin) * std::pow(std::fabs((al - alDmin) / (10.0f - alDmin)), a->Dpow) + a->Dmin;
	if (a->Bwidth > 0.0f && a->Bdepth > 0.0f && a->Bpower > 0.0f) {   // the laminar bucket
		const float Bwidth1 = a->Bwidth * 0.5f / clM, Bwidth2 = a->Bwidth / clM;
		const float Blocalpha = (a->Bloc - clB) / clM;
		const float dist = std::fabs(al - Blocalpha);
		if (dist >= Bwidth1 && dist <= Bwidth2)
			drag -= a->Bdepth * 0.5f * std::pow((Bwidth2 - dist) / Bwidth1, a->Bpower);
		else if (dist < Bwidth1)
			drag -= a->Bdepth * 0.5f * std::pow((Bwidth1 - dist) / Bwidth1, 1.0f / a->Bpower) + a->Bdepth * 0.5f;
	}
	return drag;
}

float ret_cm(float al, const airfoil_struct* a)
{
	const float xs[4] = {-20.0f, a->cmal2, a->cmal3, 20.0f};
	const float ys[4] = {a->cm1, a->cm2, a->cm3, a->cm4};
	for (int k = 0; k < 3; k++)
		if (al >= xs[k] && al <= xs[k + 1]) return interp(xs[k], ys[k], xs[k + 1], ys[k + 1], al, 1);
	return 0.0f;
}

void gen_cl_cd_cm(airfoil_struct* afl, int RT, int Re)
{
	float* cl = afl->cl[RT][Re];
	float* cd = afl->cd[RT][Re];
	float* cm = afl->cm[RT][Re];
	const float d = (float)(M_PI / 180.0);
	const float cl_p20 = ret_cl(20.0f, afl, RT, Re), cl_m20 = ret_cl(-20.0f, afl, RT, Re);
	const float cd_p20 = ret_cd(20.0f, afl, RT, Re), cd_m20 = ret_cd(-20.0f, afl, RT, Re);
	const float cm_p20 = ret_cm(20.0f, afl), cm_m20 = ret_cm(-20.0f, afl);
	int bad = 0;
	for (int i = 0; i < afl_tab; i++) {
		const float alpha = afl_alpha_of_index(i);
		float l = 0.0f, dr = 0.0f, m = 0.0f;
		if (alpha >= -20.0f && alpha <= 20.0f) {
			l = ret_cl(alpha, afl, RT, Re);
			dr = ret_cd(alpha, afl, RT, Re);
			m = ret_cm(alpha, afl);
		} else {
			// Lift round the rest of the circle: toward a flat plate's 1.17 at 45 degrees.
			if (alpha <= -160.0f) l = cl_rat * ret_cl(alpha + 180.0f, afl, RT, Re);
			else if (alpha <= -135.0f) l = std::sin(d * (alpha + 160.0f) * 90.0f / 25.0f) * (1.17f - cl_rat * cl_p20) + cl_rat * cl_p20;
			else if (alpha <= -45.0f) l = std::sin(d * alpha * 2.0f) * 1.17f;
			else if (alpha <= -20.0f) l = std::sin(d * (alpha + 20.0f) * 90.0f / 25.0f) * (cl_m20 + 1.17f) + cl_m20;
			else if (alpha <= 45.0f) l = std::sin(d * (alpha - 20.0f) * 90.0f / 25.0f) * (1.17f - cl_p20) + cl_p20;
			else if (alpha <= 135.0f) l = std::sin(d * alpha * 2.0f) * 1.17f;
			else if (alpha <= 160.0f) l = std::sin(d * (alpha - 160.0f) * 90.0f / 25.0f) * (cl_rat * cl_m20 + 1.17f) + cl_rat * cl_m20;
			else l = cl_rat * ret_cl(alpha - 180.0f, afl, RT, Re);

			// Drag: from the section's own at 20 degrees to a flat plate's 1.28 at 90.
			const float cd_rat_use = std::fabs(alpha) > 90.0f ? cd_rat : 1.0f;
			float alpha_use = alpha;
			if (alpha > 90.0f) alpha_use = 180.0f - alpha;
			if (alpha < -90.0f) alpha_use = -180.0f - alpha;
			const float d_sincurve = 1.28f * std::sin(d * std::fabs(alpha_use));
			float d_parabola = 0.0f;
			if (alpha_use < 0.0f) {
				const float a = cd_m20 * cd_rat_use;
				d_parabola = a + (1.28f - a) * sqr((alpha_use + 20.0f) / 70.0f);
			} else if (alpha_use > 0.0f) {
				const float a = cd_p20 * cd_rat_use;
				d_parabola = a + (1.28f - a) * sqr((alpha_use - 20.0f) / 70.0f);
			}
			if (std::fabs(alpha) >= 160.0f) dr = ret_cd(alpha_use, afl, RT, Re) * cd_rat_use;
			else dr = d_parabola + (d_sincurve - d_parabola) / 70.0f * (std::fabs(alpha_use) - 20.0f);

			// Moment: to a flat plate's at 45 degrees, and on it beyond.
			const float cm_flatplate = dr * std::sin(-alpha * d) * 0.25f;
			const float cmX = alpha < 0.0f ? cm_m20 : cm_p20;
			m = fltlim(cmX + (cm_flatplate - cmX) / 25.0f * (std::fabs(alpha) - 20.0f),
			           fltmin2(cmX, cm_flatplate), fltmax2(cmX, cm_flatplate));
		}
		cl[i] = l;
		cd[i] = dr;
		cm[i] = m;
		bad |= check_nan(l) | check_nan(dr) | check_nan(m);
	}
	if (bad)
		NB_ALERT("I have generated a NAN value for this aifoil:", "You have entered some parameter that has caused a div by zero!", "", "",
		         alert_fatal);
}

// Reading and writing ------------------------------------------------------------

static airfoil_struct afl_scratch;   // a read fills this, and the caller's record only when it succeeds

static void read_params(airfoil_struct& a, int RT, int Re, int version, const char* what)
{
	auto f = [what]() { return flt_scan(what); };
	if (version == 700 || version == 650 || version == 641) {
		a.re_num[RT][Re] = f();
		a.t_rat[RT] = f();
		a.mach_div[RT] = f();
		if (version == 641) f();   // one further number, dropped
		a.clM[RT][Re] = f();
		a.clB[RT][Re] = f();
		if (version == 700) {
			a.almin[RT][Re] = f();
			a.almax[RT][Re] = f();
			a.Llinrange = f();
		}
		a.Lpow = f(); a.Lstall = f(); a.Ldrop1 = f(); a.Lpowstl = f(); a.Ldrop2 = f();
		a.Dmin = f();
		a.DminCL = f(); a.Dal10 = f(); a.Dpow = f();
		a.DminCL = f(); a.Dal10 = f(); a.Dpow = f();   // written twice; the second stands
		a.Bloc = f(); a.Bwidth = f(); a.Bdepth = f(); a.Bpower = f();
		a.cmal2 = f(); a.cmal3 = f(); a.cm1 = f(); a.cm2 = f(); a.cm3 = f(); a.cm4 = f();
		if (version != 700) {
			a.almin[RT][Re] = f();
			a.almax[RT][Re] = f();
		}
		return;
	}
	char word[500];
	wrd_scan(word, sizeof word, 0);
	a.t_rat[RT] = f(); a.re_num[RT][Re] = f(); a.almin[RT][Re] = f(); a.almax[RT][Re] = f();
	a.clB[RT][Re] = f(); a.clM[RT][Re] = f(); a.Lpow = f(); a.Lstall = f();
	a.Ldrop1 = f(); a.Ldrop2 = f(); a.Lpowstl = f(); a.DminCL = f(); a.Dmin = f(); a.Dal10 = f(); a.Dpow = f();
	a.cmal2 = f(); a.cmal3 = f(); a.cm1 = f(); a.cm2 = f(); a.cm3 = f(); a.cm4 = f();
	a.Bwidth = f(); a.Bdepth = f(); a.Bpower = f(); a.Bloc = f();
	a.mach_div[RT] = version == 613 ? f() : 0.75f;
}

int IO_afl(int IO_type, airfoil_struct* afl, int RT, int Re, const char* path)
{
	RT = intlim(RT, 0, 1);
	Re = intlim(Re, 0, 1);
	if (IO_type == 1) {
		if (!ouf_open(path, ft_afl, 700)) return 0;
		const airfoil_struct& a = *afl;
		ouf << "1234 device type code\n";
		const float v[30] = {a.re_num[RT][Re], a.t_rat[RT], a.mach_div[RT], a.clM[RT][Re], a.clB[RT][Re], a.almin[RT][Re],
		                     a.almax[RT][Re], a.Llinrange, a.Lpow, a.Lstall, a.Ldrop1, a.Lpowstl, a.Ldrop2, a.Dmin,
		                     a.DminCL, a.Dal10, a.Dpow, a.DminCL, a.Dal10, a.Dpow, a.Bloc, a.Bwidth, a.Bdepth, a.Bpower,
		                     a.cmal2, a.cmal3, a.cm1, a.cm2, a.cm3, a.cm4};
		for (int k = 0; k < 30; k++) ouf << (k ? " " : "") << v[k];
		ouf << "\nalpha cl cd cm:\n";
		char row[80];
		for (int i = 0; i < afl_tab; i++) {
			std::snprintf(row, sizeof row, "%6.1f %8.5f %8.5f %8.5f\n", afl_alpha_of_index(i), a.cl[RT][Re][i],
			              a.cd[RT][Re][i], a.cm[RT][Re][i]);
			ouf << row;
		}
		ouf.close();
		return ouf.fail() ? 0 : 700;
	}

	static const int versions[5] = {700, 650, 641, 613, 363};
	int version = 0;
	for (int v : versions)
		if (inf_open(path, ft_afl, v, 0)) { version = v; break; }
	if (!version) return 0;
	afl_scratch = *afl;
	airfoil_struct& a = afl_scratch;
	if (int_scan(path) != 1234)
		NB_ALERT("This does not appear to be a valid Airfoil for Foilwright!", path, "", "", alert_fatal);
	lin_scan(path);
	read_params(a, RT, Re, version, path);
	if (version == 700 || version == 650 || version == 641) {
		lin_scan(path);
		lin_scan(path);
		// The rows are read by plain extraction: a short file leaves what the table held.
		std::ifstream& in = inf[inf_use];
		for (int i = 0; i < afl_tab && in.good(); i++) {
			float ang, l, dr, m;
			if (!(in >> ang >> l >> dr >> m)) break;
			a.cl[RT][Re][i] = l;
			a.cd[RT][Re][i] = dr;
			a.cm[RT][Re][i] = m;
		}
	}
	if (version != 700) a.Llinrange = 10.0f;
	if (version == 613 || version == 363) gen_cl_cd_cm(&a, RT, Re);
	inf[inf_use].close();
	*afl = a;
	return version;
}

void load_foil_for_part(const char* foil_name, int p, int en, int RT, int Re)
{
	if (p < 0 || p >= acf_max || en < 0 || en >= afl_part_max) return;
	veh_struct& v = veh[p];
	std::string acf_file = v.path, name = v.name;
	std::string folder = acf_file.size() >= name.size() ? acf_file.substr(0, acf_file.size() - name.size()) : "";
	std::string special = folder + "airfoils:" + foil_name;
	std::string common = afl_path + foil_name;
	RT = intlim(RT, 0, 1);
	Re = intlim(Re, 0, 1);
	static airfoil_struct a;   // checked before it replaces the part's airfoil
	a = v.afl[en];
	// The aircraft's own airfoil shadows the common one of the same name.
	if (!IO_afl(0, &a, RT, Re, special.c_str()) && !IO_afl(0, &a, RT, Re, common.c_str()))
		NB_ALERT("An airfoil file could not be found! The airfoil paths I checked are:", special, common,
		         name + " " + foil_name, alert_fatal);
	for (int i = 0; i < afl_tab; i++) {
		if (check_nan(a.cl[RT][Re][i]) || check_nan(a.cd[RT][Re][i]) || check_nan(a.cm[RT][Re][i]))
			NB_ALERT("I have found a NAN value for this aifoil:", foil_name, "It is corrupt!", "Throw it away or fix it in Foilwright!",
			         alert_fatal);
		if (a.cd[RT][Re][i] < 0.0f)
			NB_ALERT("I have found a NEGATIVE DRAG for this aifoil:", foil_name, "It is corrupt!",
			         "Throw it away or fix it in Foilwright!", alert_fatal);
	}
	v.afl[en] = a;
}
