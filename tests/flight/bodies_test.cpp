// Bodies and gear drag against closed forms: the subsonic coefficients and their
// compressibility factor, the supersonic panel sum on a plain cylinder, whose wash
// reaches a body, and when a gear leg drags.
#include "support/fleet.h"
#include "core/failures.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr float pi = 3.14159265f;

struct Bodies : ::testing::Test {
	void SetUp() override { ASSERT_EQ(start_fleet_aircraft("General Aviation:Wren 180:Wren 180.acf", 1000.0f), 1); }
	// The air on the aircraft and the sub-step's accumulators, then the drag section alone.
	void drag_with_air(float vx, float vy, float vz)
	{
		flt_struct& f = flt[0];
		f.vx_air_on_acf = vx; f.vy_air_on_acf = vy; f.vz_air_on_acf = vz;
		f.AV_msc = pythag(vx, vy, vz);
		f.alpha = std::atan2(vy, vz) * con.radtodeg;
		f.beta = std::atan2(vx, std::fabs(vz)) * con.radtodeg;
		f.sin_alph = std::sin(f.alpha * con.degtorad); f.cos_alph = std::cos(f.alpha * con.degtorad);
		f.sin_beta = std::sin(f.beta * con.degtorad); f.cos_beta = std::cos(f.beta * con.degtorad);
		f.fside_aero_acf = f.fnrml_aero_acf = f.faxil_aero_acf = f.L = f.M = f.N = 0.0f;
		do_bodies_and_drag();
	}
	// Only the fuselage left alive.
	void fuselage_only()
	{
		for (int en = 0; en < part_max; en++)
			if (en != en_fuse) veh[0].part_eq[en] = 0;
	}
	// The fuselage made a plain cylinder of radius R along its length.
	void cylinder(float R)
	{
		veh_struct& v = veh[0];
		int ns = 0, np = 0;
		ret_body_grid(0, en_fuse, 0, &ns, &np);
		for (int s = 0; s < ns; s++)
			for (int r = 0; r < np; r++) {
				const int q = r < np / 2 ? r : np - 1 - r;
				const float th = q * pi / (np / 2 - 1);
				v.body_X[en_fuse][s][r] = (r < np / 2 ? 1.0f : -1.0f) * R * std::sin(th);
				v.body_Y[en_fuse][s][r] = R * std::cos(th);
				v.body_Z[en_fuse][s][r] = 0.5f * s;
			}
	}
};

TEST(BodyCoefficients, EndOnBroadsideAndTheCompressibilityFactor)
{
	fresh_records_in_tree();
	con.lcl_a = 340.0f;
	con.lcl_r_met = 1.2f;
	const float sf = 1.0f, ss = 8.0f, st = 6.0f, cd0 = 0.1f;
	float lift, side, drag;
	const float v = 34.0f, q = 0.5f * 1.2f * v * v;   // Mach 0.1: f = 1 / sqrt(0.99)
	const float f01 = 1.0f / std::sqrt(0.99f);
	get_body_coeffs(sf, ss, st, cd0, v, 0.0f, &lift, 0.0f, &side, 0.0f, &drag);
	EXPECT_NEAR(drag, cd0 * sf * q, 1e-3f * drag);   // end-on: its front and cd_0 alone
	EXPECT_NEAR(lift, 0.0f, 1e-3f);
	get_body_coeffs(sf, ss, st, cd0, v, pi / 2, &lift, 0.0f, &side, pi / 2, &drag);
	EXPECT_NEAR(drag, (0.27f * f01 + cd0) * 0.5f * (ss + st) * q, 1e-3f * drag);   // broadside: the mean of side and top
	EXPECT_NEAR(lift, 0.27f * f01 * st * q, 1e-3f * lift);
	get_body_coeffs(sf, ss, st, cd0, v, 0.0f, &lift, -pi / 6, &side, pi / 6, &drag);
	EXPECT_NEAR(side, -0.27f * f01 * 0.5f * ss * q, 1e-3f * std::fabs(side));   // pushed back toward the flow
	EXPECT_NEAR(drag, (0.27f * f01 * 0.5f + cd0) * (sf + (0.5f * (ss + st) - sf) * 0.5f) * q, 1e-3f * drag);
	// The factor: Prandtl-Glauert to Mach 0.8, then a steep rise.
	const float v6 = 0.6f * 340.0f, q6 = 0.5f * 1.2f * v6 * v6;
	get_body_coeffs(sf, ss, st, cd0, v6, pi / 2, &lift, 0.0f, &side, 0.0f, &drag);
	EXPECT_NEAR(lift, 0.27f * 1.25f * st * q6, 1e-3f * lift);
	const float v9 = 0.9f * 340.0f, q9 = 0.5f * 1.2f * v9 * v9;
	get_body_coeffs(sf, ss, st, cd0, v9, pi / 2, &lift, 0.0f, &side, 0.0f, &drag);
	EXPECT_NEAR(lift, 0.27f * (1.0f / 0.6f + 2.5f * 0.01f) * st * q9, 1e-3f * lift);
}

TEST_F(Bodies, ACylinderAboveMachOneHasOnlyFrictionEndOnAndItsSlopesLiftAtAnAngle)
{
	fuselage_only();
	cylinder(0.6f);
	veh_struct& v = veh[0];
	float ns_frn = 0.0f, s_sid = 0.0f, s_top = 0.0f, x, y, z, wet = 0.0f, j1 = 0.0f, j2 = 0.0f, j3 = 0.0f;
	get_MI_S_body(0, en_fuse, 0, 0.0f, 0.0f, 0.0f, &ns_frn, &s_sid, &s_top, &x, &y, &z, &wet, &j1, &j2, &j3);
	v.s[en_fuse][0] = ns_frn; v.s[en_fuse][1] = s_sid; v.s[en_fuse][2] = s_top;
	v.X_body_aero[en_fuse] = 0.0f; v.Y_body_aero[en_fuse] = 0.0f; v.Z_body_aero[en_fuse] = 0.0f;
	const float V = 2.0f * con.lcl_a, q = 0.5f * con.lcl_r_met * V * V;
	drag_with_air(0.0f, 0.0f, V);
	EXPECT_NEAR(flt[0].faxil_aero_acf, 0.0023f * ns_frn * q, 1e-3f * flt[0].faxil_aero_acf);
	EXPECT_NEAR(flt[0].fnrml_aero_acf, 0.0f, 1e-3f * flt[0].faxil_aero_acf);
	// At an angle every panel meets the flow at half of it: cd = (a/2) m sin(a/2) + friction.
	const float a = 4.0f * con.degtorad, m = 2.0f / std::sqrt(2.0f * 2.0f - 1.0f);
	drag_with_air(0.0f, V * std::sin(a), V * std::cos(a));
	const float cd = 0.5f * a * m * std::sin(0.5f * a) + 0.0023f, cl = 0.5f * a * m * std::cos(0.5f * a) * 0.25f;
	const float want_axial = cd * ns_frn * q * std::cos(a) - cl * s_top * q * std::sin(a);
	EXPECT_NEAR(flt[0].faxil_aero_acf, want_axial, 2e-3f * std::fabs(want_axial));
	EXPECT_GT(flt[0].fnrml_aero_acf, 0.0f);   // lifts toward the side the air comes from below
	// Sideslip mirrors: the side force changes sign, the drag does not.
	drag_with_air(V * std::sin(a), 0.0f, V * std::cos(a));
	const float side_r = flt[0].fside_aero_acf, ax_r = flt[0].faxil_aero_acf;
	drag_with_air(-V * std::sin(a), 0.0f, V * std::cos(a));
	EXPECT_NEAR(flt[0].fside_aero_acf, -side_r, 1e-3f * std::fabs(side_r));
	EXPECT_NEAR(flt[0].faxil_aero_acf, ax_r, 1e-3f * std::fabs(ax_r));
}

TEST_F(Bodies, EitherSideOfTheSpeedOfSoundBothPathsGiveFiniteDrag)
{
	fuselage_only();
	const float a = con.lcl_a;
	drag_with_air(0.0f, 0.02f * a, 0.999f * a);
	const float below = flt[0].faxil_aero_acf;
	drag_with_air(0.0f, 0.02f * a, a);
	const float at = flt[0].faxil_aero_acf;
	EXPECT_TRUE(std::isfinite(below) && std::isfinite(at));
	EXPECT_GT(below, 0.0f);
	EXPECT_GT(at, 0.0f);
	EXPECT_NE(below, at);   // the two paths meet with a jump
}

TEST_F(Bodies, OnlyATractorPropellersWashReachesABodyBehindItsDisc)
{
	fuselage_only();
	veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	v.part_eq[0] = 1;   // the propeller's thrust point, at rest in still air with its wash blowing
	f.POINT_DVinc[0] = 20.0f;
	f.side_disc_cant_cyclic[0] = f.vert_disc_cant_cyclic[0] = 0.0f;
	ASSERT_LT(f.POINT_XYZ[0][2], v.Z_body_aero[en_fuse]) << "the trainer's fuselage lies behind its propeller";
	drag_with_air(0.0f, 0.0f, 0.0f);
	EXPECT_GT(f.faxil_aero_acf, 1.0f);   // blown back by the wash
	const float z_behind = v.Z_body_aero[en_fuse];
	v.Z_body_aero[en_fuse] = f.POINT_XYZ[0][2] - 1.0f;   // a body ahead of the disc
	drag_with_air(0.0f, 0.0f, 0.0f);
	EXPECT_EQ(f.faxil_aero_acf, 0.0f);
	v.Z_body_aero[en_fuse] = z_behind;
	for (int type : {3, 5, 6, 7}) {   // rotors and lift fans never
		v.prop_type[0] = type;
		drag_with_air(0.0f, 0.0f, 0.0f);
		EXPECT_EQ(f.faxil_aero_acf, 0.0f) << "prop_type " << type;
	}
}

TEST_F(Bodies, AGearLegDragsByItsTableAndNotAtAllWhenStowed)
{
	veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	for (int en = 0; en <= en_fair_hi; en++) v.part_eq[en] = 0;   // the gear alone
	f.Qstatic = 1000.0f;
	drag_with_air(0.0f, 0.0f, 0.0f);
	float want = 0.0f;   // fixed legs: strut 0.05, tyre 0.25
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(0, en)) {
			const float r = v.tire_radius[en];
			want += (0.05f * v.gear_leglen[en] * r * 0.5f + 0.25f * r * 2.0f * r * 0.7f) * f.Qstatic;
		}
	EXPECT_NEAR(f.faxil_aero_acf, want, 1e-3f * want);
	// Retracting, half out: actuating struts, doors, all by the deployed ratio.
	v.gear_retract = 1;
	for (int en = en_gear_lo; en <= en_gear_hi; en++) v.gear_deploy[en] = 0.5f;
	drag_with_air(0.0f, 0.0f, 0.0f);
	want = 0.0f;
	for (int en = en_gear_lo; en <= en_gear_hi; en++)
		if (ret_part_alive(0, en)) {
			const float r = v.tire_radius[en], strut = v.gear_leglen[en] * r * 0.5f;
			want += (0.3f * strut * 1.5f + 0.25f * r * 2.0f * r * 0.7f + 0.5f * strut * 0.25f) * f.Qstatic * 0.5f;
		}
	EXPECT_NEAR(f.faxil_aero_acf, want, 1e-3f * want);
	for (int en = en_gear_lo; en <= en_gear_hi; en++) v.gear_deploy[en] = 0.01f;
	drag_with_air(0.0f, 0.0f, 0.0f);
	EXPECT_EQ(f.faxil_aero_acf, 0.0f);
}

}  // namespace
