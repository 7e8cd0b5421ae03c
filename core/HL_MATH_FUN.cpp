// Maths helpers shared by every subsystem.
#include "core/HL_MATH_FUN.h"
#include <cmath>

float fltlim(float in, float lo, float hi)
{
	if (in < lo) return lo;
	if (in > hi) return hi;
	return in;
}

float fltwrap(float in, float lo, float hi)
{
	float span = hi - lo;
	if (!(span > 0.0f) || !std::isfinite(in)) return lo;
	float r = std::fmod(in - lo, span);
	if (r < 0.0f) r += span;
	return lo + r;
}
