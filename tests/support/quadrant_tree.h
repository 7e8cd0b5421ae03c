// A data tree of our own quadrant files for the scenery tests: a tilted plane of ground,
// written by the format module, a block of 34..36 north, 119..116 west round it.
#pragma once
#include "world/quadrant_file.h"
#include "world/scenery.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

// A tilted plane: metres above sea level at a latitude and longitude.
double plane_ele(double lat, double lon) { return 200.0 + 400.0 * (lat - 35.0) + 250.0 * (lon + 118.0); }

quadrant_data plane_square(int lat_file, int lon_file, int version = 650, int use = 0)
{
	quadrant_data q;
	q.version = version;
	for (int jj = 0; jj <= q.jmax; jj++)
		for (int ii = 0; ii <= q.imax; ii++) {
			const double lat = lat_file + (double)jj / q.jmax, lon = lon_file + (double)ii / q.imax;
			const int code = lat_lon_to_code(lat, lon, lat_file, lon_file);
			double la, lo;
			code_to_lat_lon(code, lat_file, lon_file, &la, &lo);
			q.vertices.push_back({code, (int)std::lround(plane_ele(la, lo)), make_land_code({0, 0, 0, 0, use})});
		}
	return q;
}

struct Quadrants : ::testing::Test {
	std::string dir;
	void SetUp() override
	{
		dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
		fs::remove_all(dir);
		fs::create_directories(dir + "Resources/Earth nav data");
		fs::create_directories(dir + "Custom Scenery");
		zero_all_records();
		init_con();
		set_planet_specs(0);
		ean_path = dir + "Resources:Earth nav data:";
		cus_path = dir + "Custom Scenery:";
		vec_apt.clear(); vec_nav.clear(); vec_fix.clear(); vec_awy.clear();
		for (std::string& s : cus_tex_path) s.clear();
		env.lat_sou = 34;
		env.lon_wes = -119;   // 34..36 north, 119..116 west
	}
	std::string file_of(const std::string& folder, int lat, int lon)
	{
		std::string rel = return_latlon_str_ENV(lat, lon);
		std::replace(rel.begin(), rel.end(), '\\', '/');
		const std::string p = folder + rel;
		fs::create_directories(fs::path(p).parent_path());
		return p;
	}
	std::string put(const quadrant_data& q, int lat, int lon, const std::string& folder = "")
	{
		const std::string p = file_of(folder.empty() ? dir + "Resources/Earth nav data/" : folder, lat, lon);
		EXPECT_EQ(write_quadrant(p, q), 1);
		return p;
	}
	// The ground's elevation under a point, as the flight model finds it.
	double ground_at(double lat, double lon, int* ci = nullptr, int* cj = nullptr)
	{
		double x, z;
		xz_on_ground(lat, lon, &x, &z);
		int i = 0, j = 0;
		float vx, vy, vz;
		const float g = find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 0);
		if (ci) *ci = i;
		if (cj) *cj = j;
		double la, lo, ele;
		xdob_latlonel_with_xyz(la, lo, ele, x, g, z);
		return ele;
	}
	vec_apt_struct& add_airport(const char* id, int type, float h, float lat, float lon, float psi, float len, float width)
	{
		vec_apt_struct a{};
		a.apt_type = type;
		std::strcpy(a.apt_id, id);
		a.h = h;
		vec_rwy_struct r{};
		r.lat = lat; r.lon = lon; r.psi_true = psi; r.len = len; r.width = width;
		std::strcpy(r.num_str, "09");
		a.rwy.push_back(r);
		vec_apt.push_back(a);
		return vec_apt.back();
	}
};

}  // namespace
