#include "flight_fixture.h"
#include <cmath>

namespace {

struct Moments { float L, M, N; };

// The moment of force F (x, y, z components) at point r in the system's sign
// conventions, from the cross product r x F: roll about -z, pitch about +x, yaw about -y.
Moments cross(float rx, float ry, float rz, float Fx, float Fy, float Fz)
{
	return {ry * Fx - rx * Fy, ry * Fz - rz * Fy, rx * Fz - rz * Fx};
}

}  // namespace

TEST_F(BareAircraft, PropAndGearForcesOffTheCentreGiveTheCrossProductMoment)
{
	const float pt[3] = {1.5f, -0.7f, 3.2f};
	const float F = 1000.0f;
	addFaprop(0, F, pt[1], pt[0]);   // axial: arms (y, x)
	Moments m = cross(pt[0], pt[1], pt[2], 0, 0, F);
	EXPECT_FLOAT_EQ(flt[0].faxil_prop_acf, F);
	EXPECT_NEAR(flt[0].L, m.L, 1e-3f); EXPECT_NEAR(flt[0].M, m.M, 1e-3f); EXPECT_NEAR(flt[0].N, m.N, 1e-3f);

	flt[0].L = flt[0].M = flt[0].N = 0.0f;
	addFsgear(0, F, pt[1], pt[2]);   // side: arms (y, z)
	m = cross(pt[0], pt[1], pt[2], F, 0, 0);
	EXPECT_FLOAT_EQ(flt[0].fside_gear_acf, F);
	EXPECT_NEAR(flt[0].L, m.L, 1e-3f); EXPECT_NEAR(flt[0].M, m.M, 1e-3f); EXPECT_NEAR(flt[0].N, m.N, 1e-3f);

	flt[0].L = flt[0].M = flt[0].N = 0.0f;
	addFngear(0, F, pt[0], pt[2]);   // normal: arms (x, z)
	m = cross(pt[0], pt[1], pt[2], 0, F, 0);
	EXPECT_FLOAT_EQ(flt[0].fnrml_gear_acf, F);
	EXPECT_NEAR(flt[0].L, m.L, 1e-3f); EXPECT_NEAR(flt[0].M, m.M, 1e-3f); EXPECT_NEAR(flt[0].N, m.N, 1e-3f);

	// The moment-only forms reach the same totals without the force.
	float L = 0, M = 0, N = 0;
	addFaprop_MOMENT_ONLY(F, pt[1], pt[0], &M, &N);
	addFsprop_MOMENT_ONLY(F, pt[1], pt[2], &L, &N);
	addFnprop_MOMENT_ONLY(F, pt[0], pt[2], &L, &M);
	Moments all = cross(pt[0], pt[1], pt[2], F, F, F);
	EXPECT_NEAR(L, all.L, 1e-3f); EXPECT_NEAR(M, all.M, 1e-3f); EXPECT_NEAR(N, all.N, 1e-3f);
}

TEST_F(BareAircraft, AeroForceTurnsThroughAlphaAndBetaAndKeepsItsSize)
{
	const float alph = 12.0f, bet = -7.0f, k = (float)(M_PI / 180.0);
	flt[0].sin_alph = std::sin(alph * k); flt[0].cos_alph = std::cos(alph * k);
	flt[0].sin_beta = std::sin(bet * k); flt[0].cos_beta = std::cos(bet * k);
	const float D = 300.0f, S = -120.0f, Lf = 5000.0f, x = -4.0f, y = 0.3f, z = 1.1f;
	addFaero(D, S, Lf, x, y, z, 9, 3);
	const flt_struct& f = flt[0];
	EXPECT_NEAR(pythag(f.fside_aero_acf, f.fnrml_aero_acf, f.faxil_aero_acf), pythag(D, S, Lf), 0.05f);
	EXPECT_GT(f.fnrml_aero_acf, 0.0f);    // lift points up at a small angle of attack
	EXPECT_LT(f.faxil_aero_acf, D);       // and its tilt forward takes some of the drag
	Moments m = cross(x, y, z, f.fside_aero_acf, f.fnrml_aero_acf, f.faxil_aero_acf);
	EXPECT_NEAR(f.L, m.L, 0.05f); EXPECT_NEAR(f.M, m.M, 0.05f); EXPECT_NEAR(f.N, m.N, 0.05f);
	EXPECT_EQ(f.force_XYZ[9][3][0], S);
	EXPECT_EQ(f.force_XYZ[9][3][1], Lf);
	EXPECT_EQ(f.force_XYZ[9][3][2], D);
	// At zero angles lift is normal force and drag is axial force.
	start(0);
	addFaero(D, 0.0f, Lf, 0.0f, 0.0f, 0.0f, -1, -1);
	EXPECT_FLOAT_EQ(flt[0].fnrml_aero_acf, Lf);
	EXPECT_FLOAT_EQ(flt[0].faxil_aero_acf, D);
}

TEST_F(BareAircraft, CarriedMassesAddInertiaByTheParallelAxisRule)
{
	flt[0].m_total = 1000.0f;
	flt[0].Jxx_total = flt[0].Jyy_total = flt[0].Jzz_total = 2000.0f;
	inc_mass_mi(2.0f, 0.0f, 0.0f, 50.0f, "on the right");
	EXPECT_FLOAT_EQ(flt[0].m_total, 1050.0f);
	EXPECT_FLOAT_EQ(flt[0].Jxx_total, 2000.0f);            // on the x axis: no pitch inertia
	EXPECT_FLOAT_EQ(flt[0].Jyy_total, 2000.0f + 50 * 4);
	EXPECT_FLOAT_EQ(flt[0].Jzz_total, 2000.0f + 50 * 4);
	inc_mass_mi(2.0f, 0.0f, 0.0f, -50.0f, "separated");   // taking it off again
	EXPECT_FLOAT_EQ(flt[0].m_total, 1000.0f);
	EXPECT_FLOAT_EQ(flt[0].Jyy_total, 2000.0f);
	// A mass on the right wing at 1 g in level flight rolls the aircraft right.
	flt[0].g_nrml = 1.0f;
	inc_mass_mi(3.0f, 0.0f, 0.0f, 100.0f, nullptr);
	EXPECT_NEAR(flt[0].L, 100.0f * con.g * 3.0f, 0.01f);
}

TEST_F(BareAircraft, FuelAndSeparatedEnginesEnterTheMassTotals)
{
	flt[0].m_fuel[0] = 200.0f;
	veh[0].tank_X[0] = 0.0f; veh[0].tank_Y[0] = 0.0f; veh[0].tank_Z[0] = 1.0f;
	pass();
	EXPECT_FLOAT_EQ(flt[0].m_total, 1200.0f);
	EXPECT_FLOAT_EQ(flt[0].Jxx_total, 2.0f * 1000.0f + 200.0f * 1.0f);
	veh[0].num_engines = veh[0].num_thrustpoints = 1;
	veh[0].engn_mass[0] = 150.0f;
	veh[0].Xarm[0] = 0.0f; veh[0].Yarm[0] = 0.0f; veh[0].Zarm[0] = -2.0f;
	flt[0].fail_stat[62] = 6;   // engine 0 separated
	pass();
	EXPECT_FLOAT_EQ(flt[0].m_total, 1050.0f);
	EXPECT_FLOAT_EQ(flt[0].Jxx_total, 2.0f * 1000.0f + 200.0f - 150.0f * 4.0f);
}

TEST_F(BareAircraft, AnAirshipDisplacingItsOwnWeightFloatsAndRightsItself)
{
	veh[0].m_displaced = 1000.0f;     // displaces its own mass
	veh[0].m_displaced_y = 3.0f;      // lift centre 3 m above the centre of gravity
	flt[0].disp_rat = 1.0f;
	pass();
	EXPECT_NEAR(flt[0].vy, 0.0f, 0.02f * 0.02f * 10.0f);   // only the difference of g and lcl_g is left
	// Pitched nose up, the buoyancy pulls the nose back down: M = -f sin(theta) y.
	init_quaternion(0.0f, 20.0f, 0.0f, flt[0].q);
	quat_to_euler(flt[0].q, &flt[0].psi, &flt[0].the, &flt[0].phi);
	update_derived_flt(0);
	pass();
	const float f = 1000.0f * con.g * con.lcl_sig;
	const float M = -f * std::sin(20.0f * con.degtorad) * 3.0f;
	EXPECT_NEAR(flt[0].Qdot, M / (2.0f * 1000.0f) * con.radtodeg, 0.5f);
	EXPECT_LT(flt[0].Q, 0.0f);
}
