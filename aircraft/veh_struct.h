// The aircraft as designed: `veh[p]`, loaded from the aircraft file.
// Holds the fields the core and the flight step read so far; the aircraft file
// step gives this record its full file layout.
#pragma once
#include "core/HL_LIMITS.h"

struct veh_struct {
	int num_engines;
	int num_thrustpoints;          // at least num_engines
	int engn_type[engn_max];       // 0,1 recip; 2,8 turboprop; 3 electric; 4,5 jet; 6 rocket; 7 tip rocket
	int part_eq[part_max];         // part present
	int hide_prop_at_90_vect;
	float h_eqlbm;                 // height of the centre of gravity above the ground at rest (m)
};
