// Core pieces that later steps build.
#include "core/HL_CORE.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include <cstring>

void handle_prefs(int, int, const char*) {}   // preference files: later step
