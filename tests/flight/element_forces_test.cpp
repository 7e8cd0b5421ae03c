#include "support/fleet.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/HL_CORE.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace {

// An aircraft of the fleet in level flight at the reference point, in still air.
struct Forces : ::testing::Test {
	void fly(const char* rel, float ktas, float alt_m = 1000.0f)
	{
		ASSERT_EQ(start_fleet_aircraft(rel, alt_m), 1);
		set_velocity(0.0f, 0.0f, -ktas * con.ktstomsc);
	}
	void set_velocity(float x, float y, float z)
	{
		flt_struct& f = flt[0];
		f.vx = x; f.vy = y; f.vz = z;
		update_derived_flt(0);
		update_def_angles(0);
	}
	// One evaluation of the lifting parts from cleared accumulators.
	void forces()
	{
		flt_struct& f = flt[0];
		f.fside_aero_acf = f.fnrml_aero_acf = f.faxil_aero_acf = f.L = f.M = f.N = 0.0f;
		do_ground_effect();
		do_lifting_parts();
	}
};

}  // namespace

TEST_F(Forces, ControlsTurnTheAircraftTheWayThePilotAsks)
{
	fly("General Aviation:Wren 180:Wren 180.acf", 100.0f);
	forces();
	const float L0 = flt[0].L, M0 = flt[0].M, N0 = flt[0].N;
	EXPECT_NEAR(L0, 0.0f, 1.0f);
	flt[0].FC_roll = 0.5f; update_def_angles(0); forces();
	EXPECT_GT(flt[0].L - L0, 200.0f);            // right yoke rolls right
	EXPECT_GT(flt[0].ail1_def[9], 0.0f);         // the right aileron goes up
	flt[0].FC_roll = 0.0f; flt[0].FC_ptch = 0.5f; update_def_angles(0); forces();
	EXPECT_GT(flt[0].M - M0, 500.0f);            // pulling raises the nose
	flt[0].FC_ptch = 0.0f; flt[0].FC_hdng = 0.5f; update_def_angles(0); forces();
	EXPECT_GT(flt[0].N - N0, 100.0f);            // right pedal yaws right
	flt[0].FC_hdng = 0.0f; flt[0].flap_rat = 1.0f; update_def_angles(0); forces();
	EXPECT_GT(flt[0].fnrml_aero_acf, 0.0f);
}

TEST_F(Forces, LevelFlightLiftAndDragAreThoseOfAWing)
{
	fly("General Aviation:Wren 180:Wren 180.acf", 100.0f);
	forces();
	const flt_struct& f = flt[0];
	// Lift near half the weight at zero pitch and 100 kt: the wing's incidence alone.
	const float weight = (veh[0].m_empty + f.m_fixed + f.m_fuel_total) * con.g;
	EXPECT_GT(f.fnrml_aero_acf, 0.3f * weight);
	EXPECT_LT(f.fnrml_aero_acf, 1.5f * weight);
	EXPECT_GT(f.faxil_aero_acf, 0.0f);   // drag points aft
	const float LD = f.fnrml_aero_acf / f.faxil_aero_acf;
	EXPECT_GT(LD, 5.0f);
	EXPECT_LT(LD, 40.0f);
}

TEST_F(Forces, SweptWingsRollAwayFromASideslip)
{
	fly("Heavy Metal:Meridian 320:Meridian 320.acf", 250.0f, 3000.0f);
	for (int en = 8; en <= 9; en++) { veh[0].dihed1[en] = 0.0f; }
	update_def_angles(0);
	forces();
	const float L0 = flt[0].L;
	set_velocity(8.0f, 0.0f, -250.0f * con.ktstomsc);   // sliding to the right
	forces();
	EXPECT_LT(flt[0].L - L0, -1000.0f);
	set_velocity(-8.0f, 0.0f, -250.0f * con.ktstomsc);
	forces();
	EXPECT_GT(flt[0].L - L0, 1000.0f);
	// And the fin weathercocks the nose into the slip.
	EXPECT_LT(flt[0].N, 0.0f);
}

TEST_F(Forces, ADeltaWingSeesTheWholeStreamAtAnySweep)
{
	fly("Heavy Metal:Meridian 320:Meridian 320.acf", 200.0f, 3000.0f);
	veh[0].delta_fac[9] = 1.0f;
	update_def_angles(0);
	forces();
	const float delta = flt[0].v_el[9][3][0];
	veh[0].delta_fac[9] = 0.0f;
	forces();
	const float plain = flt[0].v_el[9][3][0];
	EXPECT_NEAR(plain / delta, std::cos(veh[0].sweepnow[9] * con.degtorad), 0.01f);
}

TEST_F(Forces, CompressibilityAndTheSupersonicWedge)
{
	fly("General Aviation:Wren 180:Wren 180.acf", 100.0f);
	forces();   // sets the ground-effect factors
	flt_struct& f = flt[0];
	f.alpha_el[9][2][0] = 4.0f;
	f.Q_centroid_MULT[9][0] = 1.0f;
	float cl0, cd0, cm0, cl1, cd1, cm1;
	Fco_subsonic(0.12f, 0.72f, 0.0f, 0, 0, 0, &cl0, &cd0, &cm0, 9, 2, 0);
	Fco_subsonic(0.12f, 0.72f, 0.99f, 0, 0, 0, &cl1, &cd1, &cm1, 9, 2, 0);
	EXPECT_NEAR(cl1 / cl0, 1.0f / std::sqrt(1.0f - 0.85f * 0.85f), 1e-3f);   // 0.85 stands for the transonic band
	EXPECT_GT(cd1, cd0);                                                       // and the drag rises
	// A double wedge at zero incidence: no lift, wave drag 4 t^2 / beta (thin-wedge theory).
	f.alpha_el[9][2][0] = 0.0f;
	float cl, cd, cm;
	Fco_supersonic(0.05f, 2.0f, 0, 0, 0, &cl, &cd, &cm, 9, 2, 0);
	EXPECT_NEAR(cl, 0.0f, 1e-6f);
	const float ang = std::atan(0.05f);
	EXPECT_NEAR(cd - 0.0046f, 4.0f * ang * std::sin(ang) / std::sqrt(3.0f), 1e-5f);
	// Lift slope above Mach 1 is 4 / beta per radian.
	f.alpha_el[9][2][0] = 1.0f;
	Fco_supersonic(0.05f, 2.0f, 0, 0, 0, &cl, &cd, &cm, 9, 2, 0);
	EXPECT_NEAR(cl, 4.0f / std::sqrt(3.0f) * con.degtorad, 2e-4f);
	// Mach 1 exactly takes the supersonic branch at 1.1: finite.
	f.v_el[9][2][0] = con.lcl_a;
	float lift, drag, momt;
	F_el_force(0, 0, 0, &lift, &drag, &momt, 9, 2, 0);
	EXPECT_TRUE(std::isfinite(lift) && std::isfinite(drag) && std::isfinite(momt));
}

TEST_F(Forces, FlapsAddTheirLiftAndSpoilersTakeIt)
{
	fly("Heavy Metal:Meridian 320:Meridian 320.acf", 180.0f, 1000.0f);
	forces();
	const float lift0 = flt[0].fnrml_aero_acf, drag0 = flt[0].faxil_aero_acf;
	flt[0].flap_rat = 1.0f;
	update_def_angles(0);
	forces();
	EXPECT_GT(flt[0].fnrml_aero_acf, lift0 * 1.2f);
	EXPECT_GT(flt[0].faxil_aero_acf, drag0);
	flt[0].flap_rat = 0.0f;
	flt[0].sbrk_rat = 1.0f;
	update_def_angles(0);
	forces();
	EXPECT_LT(flt[0].fnrml_aero_acf, lift0);
	EXPECT_GT(flt[0].faxil_aero_acf, drag0 * 1.2f);
	EXPECT_NEAR(flap_cl_rat(20.0f), 0.7f, 1e-6f);
	EXPECT_NEAR(flap_cl_rat(90.0f), 1.0f, 1e-6f);
	EXPECT_LT(flap_cl_rat(-10.0f), 0.0f);
}
