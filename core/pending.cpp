// Core pieces that later steps build.
#include "core/HL_CORE.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include <cstring>

// Flight start: later step. Until then the pilot's aircraft starts level, at rest, at
// the reference point, with its first pass flagged.
void init_flt_0(int, int)
{
	std::memset(&flt[0], 0, sizeof flt[0]);
	init_quaternion(0.0f, 0.0f, 0.0f, flt[0].q);
	flt[0].cos_the = flt[0].cos_psi = flt[0].cos_phi = flt[0].cos_alph = flt[0].cos_beta = 1.0f;
	for (auto& slots : flt[0].Q_centroid_MULT)
		for (float& m : slots) m = 1.0f;   // a uniform load until the first step measures it
	mnw.first_miss_cycle = 1;
	mnw.miss_time = 0.0f;
}
void init_flt_p_other_ai(int) {}           // other aircraft: later step
void handle_prefs(int, int, const char*) {}   // preference files: later step
