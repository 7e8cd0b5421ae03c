#include "flight_fixture.h"
#include <cmath>
#include <cstring>

TEST_F(BareAircraft, FreeFallMatchesTheSemiImplicitEulerClosedForm)
{
	for (int planet = 0; planet < 2; planet++) {
		start(planet);
		const double g = con.lcl_g, dt = 0.01, y0 = flt[0].dob_y;   // a pass of 0.02 is two steps of 0.01
		ASSERT_NEAR(g, con.planet_mu / std::pow(con.planet_rad + flt[0].dob_y, 2), 1e-4);   // at the height in the local frame
		const int steps = 200;
		for (int n = 0; n < steps / 2; n++) pass();
		// v_n = -g n dt; y_n = y0 - g dt^2 n (n + 1) / 2: position uses the new velocity.
		EXPECT_NEAR(flt[0].vy, -g * steps * dt, 1e-3);
		EXPECT_NEAR(flt[0].dob_y, y0 - g * dt * dt * steps * (steps + 1) / 2.0, 2e-3);
		EXPECT_NEAR(flt[0].vx, 0.0f, 1e-6f);
		EXPECT_NEAR(flt[0].vz, 0.0f, 1e-6f);
		EXPECT_NEAR(flt[0].g_total, 0.0f, 1e-6f);   // weightless in free fall
	}
	// Earth pulls 9.8 m/s^2, Mars about 3.7.
	start(0); EXPECT_NEAR(con.lcl_g, 9.80f, 0.01f);
	start(1); EXPECT_NEAR(con.lcl_g, 3.71f, 0.01f);
}

TEST_F(BareAircraft, GravityPointsToThePlanetsCentreFarFromTheReference)
{
	flt[0].dob_x = 2000000.0;  // 2000 km east of the reference point: the horizon there is tilted ~20 degrees
	flt[0].dob_z = -1000000.0; // and 1000 km north
	flt[0].dob_y = 5000.0;
	pass();
	const double ux = flt[0].dob_x, uy = con.planet_rad + flt[0].dob_y, uz = flt[0].dob_z;
	const double ul = std::sqrt(ux * ux + uy * uy + uz * uz);
	EXPECT_NEAR(flt[0].ax / con.lcl_g, -ux / ul, 1e-5);
	EXPECT_NEAR(flt[0].ay / con.lcl_g, -uy / ul, 1e-5);
	EXPECT_NEAR(flt[0].az / con.lcl_g, -uz / ul, 1e-5);
	// Falling straight to the centre is straight down on the local horizon there.
	EXPECT_NEAR(flt[0].Vh_fpm, -flt[0].V_msc * con.msctofpm, 0.002f * flt[0].V_msc * con.msctofpm);
}

TEST_F(BareAircraft, ConstantRollRateRollsNinetyDegreesInThreeSeconds)
{
	flt[0].P = 30.0f;
	for (int n = 0; n < 150; n++) pass();   // 3 s of 0.02 s passes
	EXPECT_NEAR(flt[0].phi, 90.0f, 0.05f);
	EXPECT_NEAR(flt[0].the, 0.0f, 0.05f);
	EXPECT_NEAR(flt[0].P, 30.0f, 1e-4f);
}

TEST_F(BareAircraft, PositiveYawRateTurnsTheHeadingClockwise)
{
	flt[0].R = 10.0f;
	for (int n = 0; n < 100; n++) pass();   // 2 s
	EXPECT_NEAR(flt[0].psi, 20.0f, 0.05f);
	flt[0].R = -10.0f;
	for (int n = 0; n < 200; n++) pass();   // back through north
	EXPECT_NEAR(flt[0].psi, 340.0f, 0.05f);
	// Nose up at a constant pitch rate.
	start(0);
	flt[0].Q = 15.0f;
	for (int n = 0; n < 100; n++) pass();
	EXPECT_NEAR(flt[0].the, 30.0f, 0.05f);
}

TEST_F(BareAircraft, TheStepIsHalvedForTheSubStepsAndRestored)
{
	mnw.prd_FM = 0.08f;
	flt[0].vx = 10.0f;
	pass();
	EXPECT_EQ(mnw.prd_FM, 0.08f);
	EXPECT_NEAR(flt[0].dob_x, 0.8, 1e-5);   // two steps of 0.04 s at 10 m/s
}

TEST_F(BareAircraft, ReplayMovesNothingButStillConvertsThePosition)
{
	mnw.replay_mode = 1;
	flt[0].vx = 50.0f;
	flt[0].dob_x = 1234.0;
	PLANE_math_in_flight(0);
	EXPECT_EQ(flt[0].vx, 50.0f);
	EXPECT_EQ(flt[0].dob_x, 1234.0);
	double lat, lon, ele;
	xdob_latlonel_with_xyz(lat, lon, ele, 1234.0, flt[0].dob_y, 0.0);
	EXPECT_DOUBLE_EQ(flt[0].dob_lon, lon);
	EXPECT_FLOAT_EQ(flt[0].dat_lon, (float)lon);
}

TEST_F(BareAircraft, FirstPassOfAFlightLiftsTheAircraftOutOfTheGround)
{
	veh[0].h_eqlbm = 1.5f;
	flt[0].dob_y = -20.0;
	mnw.first_miss_cycle = 1;
	pass();
	EXPECT_NEAR(flt[0].dob_y, 1.5, 1e-9);
	EXPECT_NEAR(flt[0].y_agl_mtr, 0.0f, 1e-5f);
}

TEST_F(BareAircraft, AtRestWithNoMassOrBadStepsEverythingStaysFinite)
{
	auto all_finite = []() {
		const flt_struct& f = flt[0];
		const float vals[] = {f.vx, f.vy, f.vz, f.P, f.Q, f.R, f.phi, f.the, f.psi, f.alpha, f.beta,
		                      f.Mach, f.Qstatic, f.AV_msc, f.g_total, f.v_path, f.h_path, f.C_m, f.C_n,
		                      f.cl_overall, f.l_o_d, f.q[0], f.q[1], f.q[2], f.q[3]};
		for (float v : vals) if (!std::isfinite(v)) return false;
		return std::isfinite(f.dob_x) && std::isfinite(f.dob_y) && std::isfinite(f.dob_lat);
	};
	std::memset(&veh[0], 0, sizeof veh[0]);   // nothing loaded: no mass, no inertia
	flt[0].P = 5.0f;
	pass();
	EXPECT_TRUE(all_finite());
	for (float prd : {0.0f, -1.0f, 1e30f, NAN, INFINITY}) {
		mnw.prd_FM = prd;
		pass();
		EXPECT_TRUE(all_finite()) << prd;
	}
	start(0);
	mnw.prd_FM = 0.08f;
	for (int n = 0; n < 20000; n++) pass();   // 1600 s of falling with nothing to stop it
	EXPECT_TRUE(all_finite());
	EXPECT_NEAR(flt[0].q[0] * flt[0].q[0] + flt[0].q[1] * flt[0].q[1] + flt[0].q[2] * flt[0].q[2] + flt[0].q[3] * flt[0].q[3], 1.0f, 1e-5f);
}
