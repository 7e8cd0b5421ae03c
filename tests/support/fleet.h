// Tests that fly an aircraft of the fleet: fresh records, the built data tree's folders,
// the aircraft loaded and its flight started level at rest at a height.
#pragma once
#include "aircraft/load_plane.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <cstdio>
#include <string>

inline const std::string& fleet_tree()
{
	static const std::string tree = std::string(NIMBARA_DATA_TREE) + "/";
	return tree;
}

inline void fresh_records_in_tree()
{
	zero_all_records();
	init_con();
	init_tables();
	set_planet_specs(0);
	app_path = fleet_tree();
	afl_path = fleet_tree() + "Airfoils:";
	acf_path = fleet_tree() + "Aircraft:";
}

// Returns load_plane's result: 1 when the aircraft asked for was read.
inline int start_fleet_aircraft(const char* rel, float alt_m)
{
	fresh_records_in_tree();
	init_flt_0(608, 601);
	std::snprintf(veh[0].path, 500, "%s", (acf_path + rel).c_str());
	const int got = load_plane(0);
	flt[0].dob_y = flt[0].dob_ele = alt_m;
	flt[0].y_agl_mtr = alt_m;
	init_quaternion(0, 0, 0, flt[0].q);
	mnw.prd_FM = 0.02f;
	WORLD_math_all_cases();
	update_derived_flt(0);
	return got;
}

// The block's only airport, "KTST" at height h: one runway centred at the local frame's
// reference point, where aircraft 0's latitude and longitude are set.
inline void one_runway_airport(const char* num, float psi_true, float len, float width, float h)
{
	xdob_latlonel_with_xyz(flt[0].dob_lat, flt[0].dob_lon, flt[0].dob_ele, 0.0, 0.0, 0.0);
	vec_apt.clear();
	vec_apt_struct a{};
	a.apt_type = 1;
	a.h = h;
	std::snprintf(a.apt_id, sizeof a.apt_id, "KTST");
	vec_rwy_struct r{};
	r.lat = (float)flt[0].dob_lat;
	r.lon = (float)flt[0].dob_lon;
	r.psi_true = psi_true;
	r.len = len;
	r.width = width;
	r.surf_tex = 162;
	std::snprintf(r.num_str, sizeof r.num_str, "%s", num);
	a.rwy.push_back(r);
	vec_apt.push_back(a);
	apt_lcl_to_wrl[0] = 0;
	apt_lcl_max = 0;
}
