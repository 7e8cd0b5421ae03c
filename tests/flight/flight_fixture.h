// A bare aircraft for flight-step tests: a mass and inertias and nothing else, so
// that gravity and the forces a test adds are the only ones.
#pragma once
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <gtest/gtest.h>

struct BareAircraft : ::testing::Test {
	void SetUp() override { start(0); }
	void start(int planet)
	{
		zero_all_records();
		init_con();
		init_tables();
		set_planet_specs(planet);
		env.lat_sou = 33; env.lon_wes = -118;
		veh[0].m_empty = 1000.0f;
		veh[0].Jxx_unitmass = veh[0].Jyy_unitmass = veh[0].Jzz_unitmass = 2.0f;
		init_quaternion(0.0f, 0.0f, 0.0f, flt[0].q);
		flt[0].dob_y = 1000.0;
		WORLD_math_all_cases();
		mnw.prd_FM = 0.02f;
		update_derived_flt(0);
	}
	// One pass of the pilot's aircraft: two sub-steps of prd_FM / 2.
	void pass() { update_with_fullsim2(0); }
};
