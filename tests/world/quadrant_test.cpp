// Quadrant files: the format round trip, a block loaded from files we make here, the
// ground under runways, and damaged files.
#include "support/quadrant_tree.h"
#include "world/quadrant_file.h"
#include "world/scenery.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>


TEST(QuadrantFile, NamesAndCodesRoundTrip)
{
	EXPECT_EQ(return_latlon_str_ENV(37, -122), "+30-130\\+37-122.env");
	EXPECT_EQ(return_latlon_str_ENV(-1, -1), "-10-010\\-01-001.env");
	EXPECT_EQ(return_latlon_str_ENV(0, 0), "+00+000\\+00+000.env");
	EXPECT_EQ(return_latlon_str_ENV(37, -122).size(), 19u);
	std::mt19937 rng(7);
	std::uniform_real_distribution<double> u(0.0, 1.0);
	for (int n = 0; n < 2000; n++) {
		const double lat = 35 + u(rng), lon = -118 + u(rng);
		const int code = lat_lon_to_code(lat, lon, 35, -118);
		double la, lo;
		code_to_lat_lon(code, 35, -118, &la, &lo);
		EXPECT_NEAR(la, lat, 0.5 / 9999 + 1e-12);
		EXPECT_NEAR(lo, lon, 0.5 / 9999 + 1e-12);
		double la2, lo2;
		code_to_lat_lon(-code, 35, -118, &la2, &lo2);   // a chain's last point
		EXPECT_EQ(la2, la);
		EXPECT_EQ(lo2, lo);
	}
	for (land_code_parts p : {land_code_parts{0, 0, 0, 0, 15}, {1, 2, 3, 4, 1017}, {9, 9, 9, 4, 99999}, {3, 0, 7, 1, 84}}) {
		const land_code_parts q = split_land_code(make_land_code(p));
		EXPECT_EQ(q.I, p.I); EXPECT_EQ(q.J, p.J); EXPECT_EQ(q.T, p.T); EXPECT_EQ(q.R, p.R); EXPECT_EQ(q.use, p.use);
	}
}

TEST_F(Quadrants, EveryVersionWritesAndReadsBackWithItsOwnListCount)
{
	for (int version : {61, 631, 650}) {
		quadrant_data q = plane_square(35, -118, version);
		q.objects = {{2, 35.5f, -117.5f, 120.0f, ""}, {8, 35.25f, -117.25f, 45.0f, "hangars/big"}, {3, 35.1f, -117.9f, 400.0f, ""}};
		for (int l = 0; l < quad_num_lists(version); l++)
			if (l == quad_taxis) q.lists[l] = {{0, 35.5f, -117.5f, 'p'}, {0, 35.501f, -117.5f, 'e'}};
			else q.lists[l] = {{lat_lon_to_code(35.2, -117.2, 35, -118), 0, 0, 'p'}, {-lat_lon_to_code(35.3, -117.1, 35, -118), 0, 0, 'e'}};
		q.textures = {"untitled", "fields/patchwork"};
		const std::string p = put(q, 35, -118);
		quadrant_data r;
		std::string why;
		ASSERT_EQ(read_quadrant(p, &r, &why), 1) << why;
		EXPECT_EQ(r.version, version);
		ASSERT_EQ(r.vertices.size(), q.vertices.size());
		for (size_t k = 0; k < q.vertices.size(); k += 97) {
			EXPECT_EQ(r.vertices[k].pos_code, q.vertices[k].pos_code);
			EXPECT_EQ(r.vertices[k].elev_m, q.vertices[k].elev_m);
			EXPECT_EQ(r.vertices[k].land_code, q.vertices[k].land_code);
		}
		ASSERT_EQ(r.objects.size(), 3u);
		EXPECT_EQ(r.objects[1].name, "hangars/big");
		EXPECT_FLOAT_EQ(r.objects[2].psi_dy, 400.0f);
		for (int l = 0; l < 6; l++) EXPECT_EQ(r.lists[l].size(), l < quad_num_lists(version) ? 2u : 0u) << version << " list " << l;
		EXPECT_EQ(r.lists[quad_power][1].tag, 'e');
		EXPECT_EQ(r.textures, q.textures) << version;   // after the last list the file has
	}
	// The elevation is big-endian whatever the file's order: 200 m is 10200, bytes 0x27 0xd8.
	std::ifstream in(file_of(dir + "Resources/Earth nav data/", 35, -118), std::ios::binary);
	char head[15];
	in.read(head, 15);
	EXPECT_EQ(head[0], 'i');
	const int e = (unsigned char)head[9] << 8 | (unsigned char)head[10];
	EXPECT_EQ(e - 10000, (int)std::lround(plane_ele(35.0, -118.0)));
}

TEST_F(Quadrants, ATiltedPlaneReadsBackAtItsHeightsAndMissingSquaresAreSea)
{
	quadrant_data q = plane_square(35, -118, 650, 2);
	// A custom texture tile on one vertex, a 20 by 20 patch of city ground round another.
	q.vertices[(size_t)50 * 151 + 60].land_code = make_land_code({1, 2, 3, 4, 7});
	for (int jj = 100; jj < 120; jj++)
		for (int ii = 40; ii < 60; ii++) q.vertices[(size_t)jj * 151 + ii].land_code = make_land_code({0, 0, 0, 0, 1});
	put(q, 35, -118);
	load_region(1);
	std::mt19937 rng(3);
	std::uniform_real_distribution<double> u(0.001, 0.999);
	for (int n = 0; n < 300; n++) {
		const double lat = 35 + u(rng), lon = -118 + u(rng);
		EXPECT_NEAR(ground_at(lat, lon), plane_ele(lat, lon), 0.6) << lat << " " << lon;
	}
	EXPECT_NEAR(ground_at(34.5, -117.5), 0.0, 0.5);   // no file there: sea at sea level
	EXPECT_EQ(landuse[225][100], 15);
	// Square (35, -118) stands at i 150.., j 200..
	EXPECT_EQ(landuse[150 + 10][200 + 10], 2);
	EXPECT_EQ(ter_body_id[150 + 60][200 + 50], (char)123);
	EXPECT_FLOAT_EQ(planest[150 + 60][200 + 50][0][0], 1.0f / 4);   // R 4: (I, J) / (T + 1) at the first corner
	EXPECT_FLOAT_EQ(planest[150 + 60][200 + 50][2][1], 3.0f / 4);
	EXPECT_EQ(landuse[150 + 40][200 + 100], 80);                  // the patch's edge stays plain city
	EXPECT_EQ(landuse[150 + 55][200 + 115], 81);                  // dense inside, off the street grid
	EXPECT_EQ(landuse[150 + 50][200 + 110], 82);                  // i and j mod 10 in 0..3
	EXPECT_EQ(landuse[150 + 50][200 + 112], 83);                  // and mod 8 in 0..1
	EXPECT_EQ(poly_is_wet(150 + 10, 200 + 10), 0);
	EXPECT_EQ(poly_is_wet(149, 200 + 10), 1);   // a corner on the sea square's edge
}

TEST_F(Quadrants, RunwaysLieFlatAcrossASquaresEdgeAndATallPadGetsAnObjectInstead)
{
	put(plane_square(35, -118), 35, -118);
	put(plane_square(35, -117), 35, -117);
	// 3000 m east-west, centred 1 km west of the squares' shared edge at -117.
	add_airport("KEDG", 1, 321.0f, 35.5f, -117.011f, 90.0f, 3000.0f, 45.0f);
	const float pad_ground = (float)plane_ele(35.2, -117.6);
	add_airport("HTOP", 17, pad_ground + 30.0f, 35.2f, -117.6f, 0.0f, 15.0f, 15.0f);
	const float low_ground = (float)plane_ele(35.8, -117.6);
	add_airport("HLOW", 17, low_ground + 2.0f, 35.8f, -117.6f, 0.0f, 15.0f, 15.0f);
	load_region(1);
	const double m_per_deg_lon = con.planet_rad * M_PI / 180.0 * std::cos(35.5 * M_PI / 180.0);
	for (double along = -1400.0; along <= 1400.0; along += 100.0) {
		int i, j;
		const double lon = -117.011 + along / m_per_deg_lon;
		EXPECT_NEAR(ground_at(35.5, lon, &i, &j), 321.0, 0.05) << along;
		EXPECT_EQ(is_apt[i][j], 1) << along;
	}
	EXPECT_NEAR(ground_at(35.5, -117.011 + 3000.0 / m_per_deg_lon), plane_ele(35.5, -117.011 + 3000.0 / m_per_deg_lon), 1.0);   // past the end
	EXPECT_EQ(vec_apt[1].apt_type, 20);
	ASSERT_EQ(obs_lis.size(), 1u);
	EXPECT_EQ(obs_lis[0].basic_path, "HELIPAD SO GIVE EXACT HEIGHT!");
	EXPECT_EQ(obs_lis[0].typ, 105);
	EXPECT_NEAR(obs_lis[0].dh, 30.0f, 0.6f);
	EXPECT_NEAR(ground_at(35.2, -117.6), pad_ground, 0.6);   // the tall pad's ground is left alone
	EXPECT_NEAR(ground_at(35.8, -117.6), low_ground + 2.0, 0.05);   // the low one flattens it
	EXPECT_EQ(vec_apt[2].apt_type, 17);
}

TEST_F(Quadrants, ACustomPackageWinsOnlyAtVersion650)
{
	put(plane_square(35, -118), 35, -118);
	quadrant_data old = plane_square(35, -118, 631);
	for (quad_vertex& v : old.vertices) v.elev_m = 999;
	const std::string pkg = dir + "Custom Scenery/Old Town/Earth nav data/";
	put(old, 35, -118, pkg);
	load_region(1);
	EXPECT_NEAR(ground_at(35.5, -117.5), plane_ele(35.5, -117.5), 0.6);
	EXPECT_EQ(stl.custom_scene_path[0], 0);
	quadrant_data now = plane_square(35, -118, 650);
	for (quad_vertex& v : now.vertices) v.elev_m = 555;
	put(now, 35, -118, pkg);
	load_region(1);
	EXPECT_NEAR(ground_at(35.5, -117.5), 555.0, 0.01);
}

TEST_F(Quadrants, DamagedFilesGiveTheirAlertsAndNeverCrash)
{
	quadrant_data q = plane_square(35, -118);
	q.objects = {{2, 35.5f, -117.5f, 120.0f, ""}};
	q.lists[quad_roads] = {{lat_lon_to_code(35.2, -117.2, 35, -118), 0, 0, 'p'}, {-lat_lon_to_code(35.3, -117.1, 35, -118), 0, 0, 'e'}};
	for (int l = quad_trails; l <= quad_river; l++)   // every other kind: a bent chain and a short one
		if (l == quad_taxis) q.lists[l] = {{0, 35.5f, -117.5f, 'p'}, {0, 35.51f, -117.49f, 'p'}, {0, 35.52f, -117.5f, 'e'}};
		else q.lists[l] = {{lat_lon_to_code(35.6, -117.6, 35, -118), 0, 0, 'p'}, {lat_lon_to_code(35.62, -117.55, 35, -118), 0, 0, 'p'},
		                   {lat_lon_to_code(35.7, -117.56, 35, -118), 0, 0, 'e'}, {lat_lon_to_code(35.1, -117.1, 35, -118), 0, 0, 'p'},
		                   {lat_lon_to_code(35.1, -117.099, 35, -118), 0, 0, 'e'}};
	q.textures = {"fields"};
	const std::string p = put(q, 35, -118);
	std::ifstream in(p, std::ios::binary);
	const std::string good((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
	auto load_with = [&](const std::string& bytes) -> std::string {
		std::ofstream(p, std::ios::binary | std::ios::trunc) << bytes;
		try {
			load_region(1);
		} catch (const XFatalAlert& x) {
			return x.c1_;
		}
		return "";
	};
	EXPECT_EQ(load_with(good), "");
	// Named faults.
	std::string bad = good;
	const int far_code = 10500 * 10000 + 10;   // 1.05 degrees north of the square
	std::memcpy(&bad[5 + 10 * 500], &far_code, 4);
	EXPECT_EQ(load_with(bad), "Terrain lat/lon out of range!");
	const size_t objects_at = 5 + 10 * (size_t)151 * 201;
	bad = good;
	const int seven = 7;
	std::memcpy(&bad[objects_at], &seven, 4);
	EXPECT_EQ(load_with(bad), "Bad object type!");
	bad = good;
	const float far_lat = 36.5f;
	std::memcpy(&bad[objects_at + 4], &far_lat, 4);
	EXPECT_EQ(load_with(bad), "Found an object outside of the ENV file!");
	bad = good;
	std::memcpy(&bad[objects_at + 20], &far_code, 4);
	EXPECT_EQ(load_with(bad), "Lat lon out of range for linear segment!");
	EXPECT_EQ(load_with(good.substr(0, 5 + 10 * 7000)), "Scenery file ended inside its terrain!");
	EXPECT_EQ(load_with(good.substr(0, objects_at + 8)), "Scenery file ended inside its objects!");
	EXPECT_EQ(load_with(good.substr(0, objects_at + 24)), "Scenery file ended inside its linear features!");
	// Any cut or any flipped bytes: an alert or a load, never a crash or a hang.
	std::mt19937 rng(11);
	for (int n = 0; n < 25; n++) {
		bad = good.substr(0, std::uniform_int_distribution<size_t>(0, good.size())(rng));
		load_with(bad);
		bad = good;
		for (int k = 0; k < 20; k++) bad[std::uniform_int_distribution<size_t>(0, good.size() - 1)(rng)] = (char)rng();
		load_with(bad);
	}
	for (int i = 0; i <= 450; i += 50)
		for (int j = 0; j <= 400; j += 50) ASSERT_TRUE(std::isfinite(planexyz[i][j][1]));
}

TEST_F(Quadrants, TheGroundIsFoundFromAnyStartingCellAndOffTheGrid)
{
	put(plane_square(35, -118), 35, -118);
	load_region(1);
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, 35.37, -117.41, 0.0);
	float vx, vy, vz;
	int i0 = 0, j0 = 0;
	const float g0 = find_local_y((float)x, (float)z, &vx, &vy, &vz, &i0, &j0, 0);
	for (const auto& start : {std::pair{449, 399}, std::pair{1, 1}, std::pair{300, 10}, std::pair{5, 390}}) {
		int i = start.first, j = start.second;
		EXPECT_FLOAT_EQ(find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 0), g0);
		EXPECT_EQ(i, i0);
		EXPECT_EQ(j, j0);
	}
	EXPECT_NEAR(env.terrain_nrm[1], 1.0f, 0.01f);
	// Far outside the block: the edge cell's plane, a number all the same.
	int i = 0, j = 0;
	EXPECT_TRUE(std::isfinite(find_local_y(1e7f, -1e7f, &vx, &vy, &vz, &i, &j, 0)));
	EXPECT_EQ(i, 449);
	EXPECT_EQ(j, 399);
}

TEST_F(Quadrants, CustomTexturesTakeASlotAndGiveItUpWhenNoCellUsesThem)
{
	quadrant_data q = plane_square(35, -118);
	for (int ii = 0; ii < 20; ii++) q.vertices[(size_t)30 * 151 + ii].land_code = make_land_code({1, 0, 3, 4, 1001});
	q.textures = {"Untitled", "fields/patchwork"};
	put(q, 35, -118);
	load_region(1);
	EXPECT_EQ(cus_tex_path[0], ean_path + "custom terrain textures:fields/patchwork.bmp");
	EXPECT_EQ(landuse[150 + 5][200 + 30], 1000);   // renumbered to the slot the block gave it
	EXPECT_EQ(ter_body_id[150 + 5][200 + 30], 0);
	EXPECT_EQ(tex_use_is_other_quadrant[150 + 5][200 + 30], 1);
	EXPECT_TRUE(cus_tex_path[1].empty());
	put(plane_square(35, -118), 35, -118);
	load_region(1);
	EXPECT_TRUE(cus_tex_path[0].empty());
}

TEST_F(Quadrants, ChainPointsThatWouldReadAsAnEndAreMovedAStepEast)
{
	quadrant_data q = plane_square(35, -118);
	q.lists[quad_roads] = {{99, 0, 0, 'p'}, {0, 0, 0, 'e'}, {5, 0, 0, 'p'}, {1234, 0, 0, 'e'}};
	const std::string p = put(q, 35, -118);
	quadrant_data r;
	std::string why;
	ASSERT_EQ(read_quadrant(p, &r, &why), 1) << why;
	ASSERT_EQ(r.lists[quad_roads].size(), 4u);   // the 99 did not end the list
	EXPECT_EQ(r.lists[quad_roads][0].code, 100);
	EXPECT_EQ(r.lists[quad_roads][0].tag, 'p');
	EXPECT_EQ(r.lists[quad_roads][1].code, -1);   // the corner as a chain's end
	EXPECT_EQ(r.lists[quad_roads][1].tag, 'e');
	EXPECT_EQ(r.lists[quad_roads][3].code, -1234);
	EXPECT_EQ(r.lists[quad_roads][3].tag, 'e');
}

TEST_F(Quadrants, TheGroundsNormalRoofDeckAndBumps)
{
	// A plane rising 2 m a step east and north: 300 m a degree east, 400 m a degree north.
	quadrant_data q = plane_square(35, -118);
	for (int jj = 0; jj <= q.jmax; jj++)
		for (int ii = 0; ii <= q.imax; ii++) q.vertices[(size_t)jj * (q.imax + 1) + ii].elev_m = 200 + 2 * jj + 2 * ii;
	put(q, 35, -118);
	load_region(1);
	// Near the frame's reference the plane's slopes are the ground's (z runs south).
	double x, z;
	xz_on_ground(35.0025, -117.5, &x, &z);   // a cell from the reference, where the frame is level
	int i = 0, j = 0;
	float vx, vy, vz;
	const float g = find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 0);
	const double east = 300.0 / (con.planet_rad * M_PI / 180.0 * std::cos(35.0025 * M_PI / 180.0)), north = 400.0 / (con.planet_rad * M_PI / 180.0);
	EXPECT_NEAR(env.terrain_nrm[0], -east, 2e-4);
	EXPECT_NEAR(env.terrain_nrm[2], north, 2e-4);
	EXPECT_GT(env.terrain_nrm[1], 0.99f);
	// Bumps on open ground, by the surface, only when asked for in full.
	env.surf_tex = 49;
	env.roughness = 0.0f;
	float worst = 0.0f;
	for (int k = 0; k < 50; k++) {
		const float dx = 0.37f * k;
		const float a = find_local_y((float)x + dx, (float)z, &vx, &vy, &vz, &i, &j, 1), b = find_local_y((float)x + dx, (float)z, &vx, &vy, &vz, &i, &j, 0);
		worst = std::max(worst, std::fabs(a - b));
	}
	EXPECT_GT(worst, 0.02f);
	EXPECT_LE(worst, 0.1f);
	// A roof: flat where it was found, whatever the ground below.
	env.over_obs = 1;
	env.obj_x = (float)x;
	env.obj_z = (float)z;
	env.obj_y_top = g + 30.0f;
	EXPECT_NEAR(find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 1), g + 30.0f, 1e-3f);
	EXPECT_NEAR(find_local_y((float)x + 40.0f, (float)z - 40.0f, &vx, &vy, &vz, &i, &j, 1), g + 30.0f, 0.02f);
	env.over_obs = 0;
	// A carrier's deck steaming north at 15 m/s, turning: the deck moves under a point on it.
	env.over_carr = 1;
	env.boat_x[0] = (float)x; env.boat_y[0] = 0.0f; env.boat_z[0] = (float)z;
	env.boat_psi[0] = 0.0f; env.boat_the[0] = env.boat_phi[0] = 0.0f;
	env.boat_vpsi[0] = 1.0f; env.boat_vthe[0] = env.boat_vphi[0] = 0.0f;
	EXPECT_NEAR(find_local_y((float)x, (float)z, &vx, &vy, &vz, &i, &j, 1), 21.0f, 1e-3f);
	EXPECT_NEAR(vx, 0.0f, 1e-4f);
	EXPECT_NEAR(vz, -15.0f, 1e-4f);
	find_local_y((float)x + 100.0f, (float)z, &vx, &vy, &vz, &i, &j, 1);   // 100 m to starboard, turning right at a degree a second
	EXPECT_NEAR(vz, -15.0f + 100.0f * 0.0174533f, 1e-3f);
	env.over_carr = 0;
	// Off the grid, any cell: a finite height.
	i = j = 0;
	EXPECT_TRUE(std::isfinite(find_local_y(-1e8f, 1e8f, &vx, &vy, &vz, &i, &j, 1)));
}
