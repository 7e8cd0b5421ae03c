// Maths helpers shared by every subsystem: limits, wraps and interpolation.
#pragma once

float fltlim(float in, float lo, float hi);
float fltwrap(float in, float lo, float hi);
