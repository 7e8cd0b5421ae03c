#include "core/HL_MATH_FUN.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {
float angle_gap(float a, float b) { return std::fabs(fltwrap(a - b, -180.0f, 180.0f)); }
}

TEST(Quaternion, EulerRoundTripOverTheWholeSphere)
{
	for (float psi = 0.0f; psi < 360.0f; psi += 23.0f)
		for (float the = -85.0f; the <= 85.0f; the += 17.0f)
			for (float phi = -175.0f; phi <= 175.0f; phi += 25.0f) {
				float q[4], p2, t2, f2;
				init_quaternion(psi, the, phi, q);
				EXPECT_NEAR(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3], 1.0f, 1e-5f);
				quat_to_euler(q, &p2, &t2, &f2);
				ASSERT_LT(angle_gap(p2, psi), 0.01f) << psi << " " << the << " " << phi;
				ASSERT_LT(angle_gap(t2, the), 0.01f);
				ASSERT_LT(angle_gap(f2, phi), 0.01f);
			}
}

TEST(Quaternion, NinetyDegreesOfPitchStaysFinite)
{
	for (float the : {90.0f, -90.0f}) {
		float q[4], psi, t2, phi;
		init_quaternion(40.0f, the, 10.0f, q);
		quat_to_euler(q, &psi, &t2, &phi);
		EXPECT_TRUE(std::isfinite(psi) && std::isfinite(t2) && std::isfinite(phi));
		EXPECT_NEAR(t2, the, 0.05f);
	}
	float z[4] = {0.0f, 0.0f, 0.0f, 0.0f}, psi, the, phi;   // a degenerate quaternion
	quat_to_euler(z, &psi, &the, &phi);
	EXPECT_TRUE(std::isfinite(psi) && std::isfinite(the) && std::isfinite(phi));
}

TEST(Quaternion, RotationAgreesWithTheEulerTransform)
{
	const float k = (float)(M_PI / 180.0);
	const float att[][3] = {{0, 0, 0}, {90, 0, 0}, {0, 30, 0}, {0, 0, 30}, {237, -41, 133}, {12, 70, -60}};
	for (auto& a : att) {
		float q[4];
		init_quaternion(a[0], a[1], a[2], q);
		const float v[][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, -1}, {1.5f, -2.0f, 3.25f}};
		for (auto& b : v) {
			float X, Y, Z, X2, Y2, Z2;
			any_to_wrl(b[0], b[1], b[2], &X, &Y, &Z, std::sin(a[0] * k), std::cos(a[0] * k), std::sin(a[1] * k),
			           std::cos(a[1] * k), std::sin(a[2] * k), std::cos(a[2] * k));
			rot_quat(q, b[0], b[1], b[2], &X2, &Y2, &Z2);
			EXPECT_NEAR(X, X2, 1e-5f); EXPECT_NEAR(Y, Y2, 1e-5f); EXPECT_NEAR(Z, Z2, 1e-5f);
		}
	}
}

TEST(Quaternion, ProductComposesRotationsAndMayWriteOverItsInput)
{
	// Yaw 30 then yaw 60 about the same axis is yaw 90.
	float a[4], b[4], c[4], psi, the, phi;
	init_quaternion(30.0f, 0.0f, 0.0f, a);
	init_quaternion(60.0f, 0.0f, 0.0f, b);
	mul_quat(a, b, c);
	quat_to_euler(c, &psi, &the, &phi);
	EXPECT_NEAR(psi, 90.0f, 1e-4f);
	mul_quat(a, b, a);
	for (int n = 0; n < 4; n++) EXPECT_FLOAT_EQ(a[n], c[n]);
}
