// The clock: monotonic wall time in seconds since the first call, so that a float
// keeps millisecond resolution however long the machine has been up.
#include "core/HL_MATH_FUN.h"
#include <time.h>

static double mono_now()
{
	timespec ts;
	clock_gettime(CLOCK_MONOTONIC, &ts);
	return (double)ts.tv_sec + 1e-9 * (double)ts.tv_nsec;
}

float time_sec()
{
	static const double t0 = mono_now();
	return (float)(mono_now() - t0);
}
