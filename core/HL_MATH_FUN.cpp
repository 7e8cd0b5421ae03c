// Constants, arithmetic helpers and the tables filled at start.
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <cstdlib>
#include <climits>
#include <cstdint>

const float lat_secs[2] = {2.0f, 5.0f}, lon_secs[2] = {3.0f, 6.0f};
const float lat_secs_os[2] = {1.0f, 2.5f}, lon_secs_os[2] = {1.5f, 3.0f};

float randrat[randrat_max];
float lookup_sin[361], lookup_cos[361];

void init_con()
{
	con.pi = 3.1415927f;
	con.pim2 = 6.2831855f;
	con.pid2 = 1.5707964f;
	con.R = 287.0f;
	con.c = 299792448.0f;
	con.g = 9.7982788f;   // not 9.80665: every weight and load factor uses this value
	con.lb_per_gallon_gas = 6.25f;
	con.lbstokgs = 0.45359251f;       con.kgstolbs = 1.0f / con.lbstokgs;
	con.fttomtrs = 0.3048f;           con.mtrstoft = 1.0f / con.fttomtrs;
	con.hptowatt = 745.7f;            con.watttohp = 1.0f / con.hptowatt;
	con.radtodeg = 180.0f / con.pi;   con.degtorad = 1.0f / con.radtodeg;
	con.ktstofps = 1.6878098f;        con.fpstokts = 1.0f / con.ktstofps;
	con.ktstomsc = con.ktstofps * con.fttomtrs;   con.msctokts = 1.0f / con.ktstomsc;
	con.rpmtorsc = con.degtorad * 6.0f;           con.rsctorpm = 1.0f / con.rpmtorsc;
	con.fpmtomsc = con.fttomtrs / 60.0f;          con.msctofpm = 1.0f / con.fpmtomsc;
	con.nmtomtrs = con.fttomtrs * 6076.1155f;     con.mtrstonm = 1.0f / con.nmtomtrs;
	con.sftosmtr = con.fttomtrs * con.fttomtrs;   con.smtrtosf = 1.0f / con.sftosmtr;
	con.lbstontn = con.lbstokgs * con.g;          con.ntntolbs = 1.0f / con.lbstontn;
	con.ftlbtonm = con.lbstontn * con.fttomtrs;   con.nmtoftlb = 1.0f / con.ftlbtonm;
	con.endtomed = con.g * con.lbstokgs / (con.sftosmtr * con.sftosmtr);
	con.medtoend = 1.0f / con.endtomed;
	con.enptomep = con.lbstontn / con.sftosmtr;   con.meptoenp = 1.0f / con.enptomep;
	con.enItomtI = con.sftosmtr * con.lbstokgs;   con.mtltoenl = 1.0f / con.enItomtI;
	con.pasto_hg = 0.00029528743f;    con.hg_topas = 1.0f / con.pasto_hg;
	con.milto_hg = 0.029528745f;      con.hg_tomil = 1.0f / con.milto_hg;
	con.nm_to_sm = 1.1507795f;        con.sm_to_nm = 1.0f / con.nm_to_sm;
	con.lbhtokgs = con.lbstokgs / 3600.0f;        con.kgstolbh = 1.0f / con.lbhtokgs;
}

void set_planet_specs(int planet)
{
	planet = intlim(planet, 0, 1);
	env.planet = planet;
	if (planet == 0) {
		con.planet_mu = 3.986012e14f;
		con.planet_rad = 6378145.0f;
		con.sl_T_cel = 15.0f;
		con.sl_P_pas = 101325.0f;
		con.sl_r_met = 1.225f;
		nav.baro_setting_HG = 29.92f;
	} else {
		con.planet_mu = 4.2845e13f;
		con.planet_rad = 3396200.0f;
		con.sl_T_cel = -60.0f;
		con.sl_P_pas = 920.0f;
		con.sl_r_met = 0.01505f;
		nav.baro_setting_HG = 0.3676f;
	}
	con.planet_mu_air = 1.7894e-5f;
	con.planet_rho_water = 1000.0f;
	con.planet_deg_mtrs = con.planet_rad * con.nmtomtrs * 60.0f / 6378145.0f;
}

void init_tables()
{
	// A fixed-seed generator, so the same index gives the same ratio on every run.
	uint32_t s = 0x9E3779B9u;
	for (int n = 0; n < randrat_max; n++) {
		s ^= s << 13; s ^= s >> 17; s ^= s << 5;
		randrat[n] = (float)(s % 10000u) / 10000.0f;
	}
	for (int d = 0; d <= 360; d++) {
		lookup_sin[d] = (float)std::sin(d * M_PI / 180.0);
		lookup_cos[d] = (float)std::cos(d * M_PI / 180.0);
	}
}

float fltlim(float x, float lo, float hi)
{
	if (x < lo) return lo;
	if (x > hi) return hi;
	return x;
}

int intlim(int i, int lo, int hi)
{
	if (i < lo) return lo;
	if (i > hi) return hi;
	return i;
}

float fltmin2(float a, float b) { return a < b ? a : b; }
float fltmax2(float a, float b) { return a > b ? a : b; }
float fltmax3(float a, float b, float c) { return fltmax2(fltmax2(a, b), c); }
float fltmin4(float a, float b, float c, float d) { return fltmin2(fltmin2(a, b), fltmin2(c, d)); }
float fltmax4(float a, float b, float c, float d) { return fltmax2(fltmax2(a, b), fltmax2(c, d)); }
float flt_abs(float x) { return x < 0.0f ? -x : x; }
float sqr(float x) { return x * x; }
int intrange(int i, int lo, int hi) { return i >= lo && i <= hi; }

int intround(float x)
{
	if (!(x == x)) return 0;
	if (x >= (float)INT_MAX) return INT_MAX;
	if (x <= (float)INT_MIN) return INT_MIN;
	return (int)std::lround(x);   // halves away from zero
}

float pythag(float a, float b) { return std::sqrt(a * a + b * b); }
float pythag(float a, float b, float c) { return std::sqrt(a * a + b * b + c * c); }

float interp(float x1, float y1, float x2, float y2, float x, int extrapolate)
{
	if (x1 == x2) return 0.5f * (y1 + y2);
	float y = y1 + (y2 - y1) * (x - x1) / (x2 - x1);
	if (!extrapolate) {
		if (x >= fltmax2(x1, x2)) return x2 > x1 ? y2 : y1;
		if (x <= fltmin2(x1, x2)) return x2 > x1 ? y1 : y2;
		y = fltlim(y, fltmin2(y1, y2), fltmax2(y1, y2));
	}
	return y;
}

// Whole spans only, and both ends of the range count as inside it.
template <class T> static T wrap(T x, T lo, T hi)
{
	T span = hi - lo;
	if (!(span > 0) || !std::isfinite(x)) return x;
	if (x > hi) x -= span * std::ceil((x - hi) / span);
	if (x < lo) x += span * std::ceil((lo - x) / span);
	return x;
}

float fltwrap(float x, float lo, float hi) { return wrap(x, lo, hi); }
double dobwrap(double x, double lo, double hi) { return wrap(x, lo, hi); }

float fallout(float x, float lo, float hi)
{
	if (x < lo || x > hi) return x;
	return (x - lo < hi - x) ? lo : hi;   // the midpoint goes to hi
}

float pulse(float offset) { return 0.5f + 0.5f * std::sin(4.0f * (mnw.totl_time + offset)); }

int check_nan(float x)
{
	if (std::isnan(x) || std::isinf(x)) return 1;
	return x <= -1e10f || x >= 1e10f;
}

int dec_needed(float x)
{
	float a = flt_abs(x);
	if (a >= 100.0f) return 0;
	if (a >= 10.0f) return 1;
	if (a >= 1.0f) return 2;
	return 3;
}

float ran01() { return (float)std::rand() / (float)RAND_MAX; }
float ran_between(float lo, float hi) { return lo + (hi - lo) * ran01(); }
