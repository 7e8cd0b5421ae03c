// The clock: monotonic wall time in seconds since the first call, so that a float
// keeps millisecond resolution however long the machine has been up. A backend may
// drive it by hand for repeatable timing.
#include "core/HL_MATH_FUN.h"
#include "platform/plat.h"
#include <time.h>

static int clock_is_manual = 0;
static double manual_now = 0.0;

static double mono_now()
{
	timespec ts;
	clock_gettime(CLOCK_MONOTONIC, &ts);
	return (double)ts.tv_sec + 1e-9 * (double)ts.tv_nsec;
}

float time_sec()
{
	static const double t0 = mono_now();
	if (clock_is_manual) return (float)manual_now;
	return (float)(mono_now() - t0);
}

void plat_clock_manual(double t) { clock_is_manual = 1; manual_now = t; }
void plat_clock_advance(double dt) { manual_now += dt; }
void plat_clock_auto() { clock_is_manual = 0; }
