// Attitude quaternions, w first, rotating aircraft axes into the local frame
// (through north, east, down).
#include "core/HL_MATH_FUN.h"
#include <cmath>

static constexpr float deg2rad = (float)(M_PI / 180.0);

void init_quaternion(float psi, float the, float phi, float q[4])
{
	float sp = std::sin(0.5f * phi * deg2rad), cp = std::cos(0.5f * phi * deg2rad);
	float st = std::sin(0.5f * the * deg2rad), ct = std::cos(0.5f * the * deg2rad);
	float ss = std::sin(0.5f * psi * deg2rad), cs = std::cos(0.5f * psi * deg2rad);
	q[0] = sp * st * ss + cp * ct * cs;
	q[1] = sp * ct * cs - cp * st * ss;
	q[2] = sp * ct * ss + cp * st * cs;
	q[3] = cp * ct * ss - sp * st * cs;
}

void mul_quat(const float a[4], const float b[4], float out[4])
{
	float r0 = a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3];
	float r1 = a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2];
	float r2 = a[0] * b[2] - a[1] * b[3] + a[2] * b[0] + a[3] * b[1];
	float r3 = a[0] * b[3] + a[1] * b[2] - a[2] * b[1] + a[3] * b[0];
	out[0] = r0; out[1] = r1; out[2] = r2; out[3] = r3;   // out may be a or b
}

void quat_to_euler(float q[4], float* psi, float* the, float* phi)
{
	float n2 = q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
	if (!(n2 > 1e-20f) || !std::isfinite(n2)) { q[0] = 1.0f; q[1] = q[2] = q[3] = 0.0f; n2 = 1.0f; }
	float k = 1.0f / std::sqrt(n2);
	for (int n = 0; n < 4; n++) q[n] *= k;
	float q0 = q[0], q1 = q[1], q2 = q[2], q3 = q[3];
	*psi = fltwrap(std::atan2(2.0f * (q0 * q3 + q1 * q2), q0 * q0 + q1 * q1 - q2 * q2 - q3 * q3) / deg2rad, 0.0f, 360.0f);
	*the = fltwrap(-std::asin(fltlim(2.0f * (q1 * q3 - q0 * q2), -1.0f, 1.0f)) / deg2rad, -180.0f, 180.0f);
	*phi = fltwrap(std::atan2(2.0f * (q0 * q1 + q2 * q3), q0 * q0 - q1 * q1 - q2 * q2 + q3 * q3) / deg2rad, -180.0f, 180.0f);
}

void rot_quat(const float q[4], float x, float y, float z, float* x2, float* y2, float* z2)
{
	const float v[4] = {0.0f, -z, x, -y};   // north, east, down
	const float qc[4] = {q[0], -q[1], -q[2], -q[3]};
	float t[4];
	mul_quat(q, v, t);
	mul_quat(t, qc, t);
	*x2 = t[2];
	*y2 = -t[3];
	*z2 = -t[1];
}
