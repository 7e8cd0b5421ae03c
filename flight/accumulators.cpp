// The force accumulators: every force of the flight model enters here, with the
// moment it makes about the centre of gravity. Aircraft axes: x right, y up, z aft;
// L roll (about z, right wing down +), M pitch (about x, nose up +), N yaw (about y, nose right +).
#include "flight/HL_FLIGHT.h"
#include "core/HL_TYPES.h"
#include "core/HL_MAIN.h"

void addFaero_BOMB(float drag, float side, float lift, float x, float y, float z,
                   float sin_alph, float cos_alph, float sin_beta, float cos_beta,
                   float* fside, float* fnrml, float* faxil, float* L, float* M, float* N)
{
	// Path axes to aircraft axes: through alpha, then beta.
	float a = drag * cos_alph - lift * sin_alph;
	float n = drag * sin_alph + lift * cos_alph;
	float axial = a * cos_beta - side * sin_beta;
	float sd = a * sin_beta + side * cos_beta;
	*fside += sd;
	*fnrml += n;
	*faxil += axial;
	*L += sd * y - n * x;
	*M += axial * y - n * z;
	*N += axial * x - sd * z;
}

void addFaero(float drag, float side, float lift, float x, float y, float z, int en, int el)
{
	flt_struct& f = flt[0];
	addFaero_BOMB(drag, side, lift, x, y, z, f.sin_alph, f.cos_alph, f.sin_beta, f.cos_beta,
	              &f.fside_aero_acf, &f.fnrml_aero_acf, &f.faxil_aero_acf, &f.L, &f.M, &f.N);
	if (en >= 0 && el >= 0 && en < part_max && el < el_max) {
		f.force_XYZ[en][el][0] = side;
		f.force_XYZ[en][el][1] = lift;
		f.force_XYZ[en][el][2] = drag;
	}
}

// Axial F at (y, x): M += F y, N += F x.
static void axial(flt_struct& f, float& acc, float F, float y, float x) { acc += F; f.M += F * y; f.N += F * x; }
// Side F at (y, z): L += F y, N -= F z.
static void sidef(flt_struct& f, float& acc, float F, float y, float z) { acc += F; f.L += F * y; f.N -= F * z; }
// Normal F at (x, z): L -= F x, M -= F z.
static void nrml(flt_struct& f, float& acc, float F, float x, float z) { acc += F; f.L -= F * x; f.M -= F * z; }

void addFaprop(int p, float F, float arm1, float arm2) { axial(flt[p], flt[p].faxil_prop_acf, F, arm1, arm2); }
void addFsprop(int p, float F, float arm1, float arm2) { sidef(flt[p], flt[p].fside_prop_acf, F, arm1, arm2); }
void addFnprop(int p, float F, float arm1, float arm2) { nrml(flt[p], flt[p].fnrml_prop_acf, F, arm1, arm2); }
void addFagear(int p, float F, float arm1, float arm2) { axial(flt[p], flt[p].faxil_gear_acf, F, arm1, arm2); }
void addFsgear(int p, float F, float arm1, float arm2) { sidef(flt[p], flt[p].fside_gear_acf, F, arm1, arm2); }
void addFngear(int p, float F, float arm1, float arm2) { nrml(flt[p], flt[p].fnrml_gear_acf, F, arm1, arm2); }

void addFaprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2) { *mom1 += F * arm1; *mom2 += F * arm2; }
void addFsprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2) { *mom1 += F * arm1; *mom2 -= F * arm2; }
void addFnprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2) { *mom1 -= F * arm1; *mom2 -= F * arm2; }

// The air's velocity at a point from the rotation: the opposite of the point's own motion.
void inc_v(float* vx, float* vy, float* vz, float x, float y, float z)
{
	const flt_struct& f = flt[0];
	*vx += f.Rrad * z - f.Prad * y;
	*vy += f.Prad * x + f.Qrad * z;
	*vz -= f.Qrad * y + f.Rrad * x;
}

// The force totals act at the empty aircraft's centre of gravity, so a carried mass
// adds its inertia and the moment of its own inertial load. m may be negative.
void inc_mass_mi(float x, float y, float z, float m, const char* comment)
{
	flt_struct& f = flt[0];
	f.m_total += m;
	f.Jxx_total += (y * y + z * z) * m;
	f.Jyy_total += (x * x + z * z) * m;
	f.Jzz_total += (x * x + y * y) * m;
	float a = f.g_axil * con.g, s = f.g_side * con.g, n = f.g_nrml * con.g;
	f.M -= a * y * m;
	f.N -= a * x * m;
	f.L -= s * y * m;
	f.N += s * z * m;
	f.L += n * x * m;
	f.M += n * z * m;
	if (mnw.cyc_out && comment) cyc << "mass " << comment << ": " << m << " kg at " << x << " " << y << " " << z << "\n";
}
