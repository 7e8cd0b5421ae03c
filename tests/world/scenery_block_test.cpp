#include "world/scenery.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct BlockMoves : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		init_con();
		set_planet_specs(0);
		vec_apt.clear();
		vec_nav.clear();
		vec_fix.clear();
		vec_awy.clear();
		env.lat_sou = 34;
		env.lon_wes = -119;   // 34..36 north, 119..116 west
	}
	void expect_block(double lat, double lon, int sou, int wes)
	{
		env.lat_sou = 34;
		env.lon_wes = -119;
		check_for_shift(lat, lon);
		EXPECT_EQ(env.lat_sou, sou) << lat << " " << lon;
		EXPECT_EQ(env.lon_wes, wes) << lat << " " << lon;
	}
};

// The horizon's view of the aircraft: where it is, how it moves north, up and east, how it sits.
struct seen { double lat, lon, ele; float v[3], q[4]; };

seen look(const flt_struct& f)
{
	seen s;
	xdob_latlonel_with_xyz(s.lat, s.lon, s.ele, f.dob_x, f.dob_y, f.dob_z);
	float qs[4];
	ret_q_horizon(s.lat, s.lon, ret_lat_ref(), ret_lon_ref(), qs);
	rot_quat(qs, f.vx, f.vy, f.vz, &s.v[0], &s.v[1], &s.v[2]);
	mul_quat(qs, f.q, s.q);
	return s;
}

}  // namespace

TEST_F(BlockMoves, EachMarginMovesTheBlockOneDegreeAndAFarJumpReloadsIt)
{
	expect_block(35.0, -117.5, 34, -119);    // the middle: no move
	expect_block(34.45, -117.5, 33, -119);   // within 0.475 of the south edge
	expect_block(35.55, -117.5, 35, -119);   // of the north edge
	expect_block(35.0, -118.1, 34, -120);    // within 0.95 of the west edge
	expect_block(35.0, -116.9, 34, -118);    // of the east edge
	expect_block(40.0, -117.5, 39, -119);    // far: the block round the aircraft
	expect_block(35.0, 179.9, 34, 178);
	try {
		check_for_shift(95.0, 0.0);
		FAIL() << "a latitude beyond the pole was taken";
	} catch (const XFatalAlert& x) {
		EXPECT_EQ(x.c1_, "Out of range lat/lon call to check_for_shift!");
	}
}

TEST_F(BlockMoves, AMoveKeepsWhereTheAircraftIsAndHowItFliesOverTheGround)
{
	flt_struct& f = flt[0];
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, 35.56, -116.92, 3000.0);
	float qs[4], qh[4];
	ret_q_horizon(35.56, -116.92, ret_lat_ref(), ret_lon_ref(), qs);
	init_quaternion(45.0f, 5.0f, 10.0f, qh);
	const float qi[4] = {qs[0], -qs[1], -qs[2], -qs[3]};
	mul_quat(qi, qh, f.q);
	rot_quat(qi, 30.0f, -2.0f, -50.0f, &f.vx, &f.vy, &f.vz);
	const seen before = look(f);
	double bx, by, bz;
	xdob_xyz_with_latlonel(bx, by, bz, 35.2, -117.3, 0.0);
	env.boat_x[2] = (float)bx; env.boat_y[2] = (float)by; env.boat_z[2] = (float)bz;
	env.boat_x[5] = env.boat_z[5] = -9.9e9f;   // set away
	check_for_shift(35.56, -116.92);   // the north margin first
	double blat, blon, bele;
	xdob_latlonel_with_xyz(blat, blon, bele, env.boat_x[2], env.boat_y[2], env.boat_z[2]);
	EXPECT_NEAR(blat, 35.2, 1e-5);
	EXPECT_NEAR(blon, -117.3, 1e-5);
	EXPECT_NEAR(bele, 0.0, 0.5);
	EXPECT_LT(env.boat_x[5], -9e9f);
	ASSERT_EQ(env.lat_sou, 35);
	ASSERT_EQ(env.lon_wes, -119);
	const seen after = look(f);
	EXPECT_NEAR(after.lat, before.lat, 1e-9);
	EXPECT_NEAR(after.lon, before.lon, 1e-9);
	EXPECT_NEAR(after.ele, before.ele, 1e-3);
	for (int k = 0; k < 3; k++) EXPECT_NEAR(after.v[k], before.v[k], 1e-3f) << k;
	const float dot = std::fabs(after.q[0] * before.q[0] + after.q[1] * before.q[1] + after.q[2] * before.q[2] + after.q[3] * before.q[3]);
	EXPECT_NEAR(dot, 1.0f, 1e-5f);
	// Then east, the other axis of a step.
	check_for_shift(35.56, -116.92);   // still within the east margin
	EXPECT_EQ(env.lon_wes, -118);
}

TEST_F(BlockMoves, ALoadWithoutFilesLeavesSeaAtSeaLevelUnderEveryVertex)
{
	load_region(1);
	for (int i = 0; i <= 450; i += 45)
		for (int j = 0; j <= 400; j += 40) {
			double lat, lon, ele;
			xdob_latlonel_with_xyz(lat, lon, ele, planexyz[i][j][0], planexyz[i][j][1], planexyz[i][j][2]);
			EXPECT_NEAR(lat, 34.0 + j / 200.0, 1e-5);
			EXPECT_NEAR(lon, -119.0 + i / 150.0, 1e-5);
			EXPECT_NEAR(ele, 0.0, 1.0);   // float vertices a few hundred km out
			EXPECT_EQ(landuse[i][j], 15);
		}
	EXPECT_EQ(poly_is_wet(100, 100), 1);
	EXPECT_FLOAT_EQ(planest[10][10][1][1], 1.0f);
	EXPECT_LT(env.lo_x, 0.0f);
	EXPECT_GT(env.hi_z, 0.0f);
}
