// Where a flight starts: each start code's place, speed and attitude for aircraft 0, and
// the placing of another aircraft in flight.
#pragma once

// Sets aircraft 0's position, attitude and V_msc for the start; a start that cannot be
// reached gives its alert and becomes 608, 601, so t1 and t2 may change.
void place_start(int& t1, int& t2);
// Aircraft p in flight: attitude in degrees, local-frame position, speed along psi; mode
// is its computer pilot's approach mode.
void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode);
