// The aircraft as designed: `veh[p]`, loaded from the aircraft file and converted to
// SI right after reading (m, kg, m/s). Holds the fields the core and the flight step
// read so far; the aircraft file step gives this record its full file layout.
#pragma once
#include "core/HL_LIMITS.h"
#include "aircraft/airfoil.h"

struct veh_struct {
	char path[500];                // the aircraft file, ':' separated
	char name[500];                // its file name
	airfoil_struct afl[afl_part_max];   // airfoils of parts 0..43
	float Vs_kts;                  // stall speed clean
	float stall_warn_aoa;          // deg

	int num_engines;
	int num_thrustpoints;          // at least num_engines
	float throt_max_FWD, throt_max_REV;
	float RSC_redline_PROP, RSC_mingreen_PROP;   // rad/s
	int engn_type[engn_max];       // 0,1 recip; 2,8 turboprop; 3 electric; 4,5 jet; 6 rocket; 7 tip rocket
	int prop_type[engn_max];
	float engn_mass[engn_max];
	float min_pitch[engn_max], max_pitch[engn_max];   // deg

	int part_eq[part_max];         // part present
	float Xarm[part_max], Yarm[part_max], Zarm[part_max];   // root position, aircraft axes
	float Croot[part_max], Ctip[part_max], semilen_SEG[part_max];
	float dihednow[part_max], sweepnow[part_max];         // deg, moved in flight
	int sbrkEQ;
	float blown_flap_min_engag;

	float m_empty, m_fuel_tot, m_jettison, m_max, m_displaced;
	float Jxx_unitmass, Jyy_unitmass, Jzz_unitmass;   // squared radii of gyration (m^2)
	int num_tanks;
	float tank_rat[tank_max];
	float tank_X[tank_max], tank_Y[tank_max], tank_Z[tank_max];
	float jett_xyz[3];
	float mass_shift, mass_shift_dx, mass_shift_dz;
	float jato_thrust, jato_sfc;
	float m_displaced_y;
	float h_eqlbm;                 // height of the centre of gravity on the gear (m)
	int has_collective, collective_en;
	int hide_prop_at_90_vect;
	int auto_rpm_EQ;
};
