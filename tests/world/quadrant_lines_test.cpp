// Objects and linear features of a quadrant as the block takes them in: the queue of
// objects, chains cut at the cells' edges in order, roads raised over water, power-line
// towers spaced and linked, a river's running texture distance.
#include "support/quadrant_tree.h"
#include "world/quadrant_lines.h"
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

// A point of square (35, -118) by grid steps east and north of its corner.
quad_point pt(double ii, double jj, bool last = false)
{
	return {lat_lon_to_code(35.0 + jj / 200.0, -118.0 + ii / 150.0, 35, -118), 0.0f, 0.0f, last ? 'e' : 'p'};
}

void xz_of(double ii, double jj, double* x, double* z)
{
	double y;
	xdob_xyz_with_latlonel(*x, y, *z, 35.0 + jj / 200.0, -118.0 + ii / 150.0, 0.0);
}

struct rec { int i, j; float cx, cy, cz, code; const float* d; };

// The records of one kind in the block's cells of a range, cell by cell in order.
std::vector<rec> records(std::vector<vec_lin_struct> buc_struct::*kind, int i0, int i1, int j0, int j1)
{
	std::vector<rec> out;
	for (int i = i0; i <= i1; i++)
		for (int j = j0; j <= j1; j++)
			for (const vec_lin_struct& r : buc[i][j].*kind)
				out.push_back({i, j, 0.5f * (r.data[0] + r.data[3]), 0.5f * (r.data[1] + r.data[4]), 0.5f * (r.data[2] + r.data[5]), r.data[8], r.data});
	return out;
}

}  // namespace

TEST_F(Quadrants, ObjectsAreQueuedByTypeWithHeightsInMetres)
{
	quadrant_data q = plane_square(35, -118);
	q.objects = {{2, 35.1f, -117.9f, 100.0f, ""}, {2, 35.2f, -117.9f, 400.0f, ""}, {1, 35.3f, -117.9f, 0.0f, ""},
	             {3, 35.4f, -117.9f, 500.0f, ""}, {5, 35.5f, -117.9f, 300.0f, ""}, {6, 35.6f, -117.9f, 250.0f, ""},
	             {8, 35.7f, -117.9f, 135.0f, "barns/red barn"}};
	put(q, 35, -118);
	load_region(1);
	ASSERT_EQ(obs_lis.size(), 6u);   // the reserved type is passed over
	EXPECT_EQ(obs_lis[0].basic_path, "block");
	EXPECT_EQ(obs_lis[0].typ, 2);
	EXPECT_NEAR(obs_lis[0].dh, 30.48f, 0.01f);
	EXPECT_GE(obs_lis[1].typ, 90);   // a tower block of 300 feet or more
	EXPECT_LE(obs_lis[1].typ, 93);
	EXPECT_EQ(obs_lis[2].basic_path, "radio tower");
	EXPECT_NEAR(obs_lis[2].dh, 152.4f, 0.01f);
	EXPECT_EQ(obs_lis[3].basic_path, "cooling tower");
	EXPECT_EQ(obs_lis[4].typ, 6);
	EXPECT_EQ(obs_lis[5].typ, 8);
	EXPECT_EQ(obs_lis[5].basic_path, ean_path + "custom objects:barns/red barn.obj");
	EXPECT_FLOAT_EQ(obs_lis[5].psi, 135.0f);
	double x, z;
	xz_on_ground(35.4, -117.9, &x, &z);
	EXPECT_NEAR(obs_lis[2].x_cent, x, 0.5);   // the file holds the place as float degrees
	EXPECT_NEAR(obs_lis[2].z_cent, z, 0.5);
}

TEST_F(Quadrants, ASegmentThroughCellCornersIsCutIntoEachCellInOrder)
{
	quadrant_data q = plane_square(35, -118);
	q.lists[quad_roads] = {pt(10.3, 10.3), pt(12.7, 12.7, true)};
	put(q, 35, -118);
	load_region(1);
	double ox, oz, ex, ez;
	xz_of(10.3, 10.3, &ox, &oz);
	xz_of(12.7, 12.7, &ex, &ez);
	const std::vector<rec> all = records(&buc_struct::vec_roads, 150, 299, 200, 399);
	// The cells along the diagonal, and at most a corner's clip of their neighbours: on
	// the sphere the segment passes within metres of the corners, to one side or the other.
	std::set<std::pair<int, int>> cells;
	for (const rec& r : all) cells.insert({r.i, r.j});
	for (const auto& c : {std::pair{160, 210}, {161, 211}, {162, 212}}) EXPECT_EQ(cells.count(c), 1u);
	for (const auto& c : cells) EXPECT_LE(std::abs(c.first - 150 - (c.second - 200)), 1) << c.first << " " << c.second;
	for (int c = 0; c < 3; c++) {
		const std::vector<rec> v = records(&buc_struct::vec_roads, 160 + c, 160 + c, 210 + c, 210 + c);
		ASSERT_GE(v.size(), 2u) << c;
		for (size_t n = 1; n < v.size(); n++) EXPECT_GT(std::hypot(v[n].cx - ox, v[n].cz - oz), std::hypot(v[n - 1].cx - ox, v[n - 1].cz - oz));
		EXPECT_EQ(v.back().code, -999.0f) << c;   // the piece leaves the cell, or the chain ends
		for (const rec& r : v) {
			EXPECT_NEAR(std::hypot(r.d[3] - r.d[0], r.d[5] - r.d[2]), 36.0f, 0.5f);   // 18 m each side
			EXPECT_NEAR(r.d[6], std::atan2(ex - ox, -(ez - oz)) * 180.0 / M_PI, 0.5);
			EXPECT_NEAR(r.d[10], 1.0f, 0.01f);
		}
	}
	// The ground under each record is the ground there.
	for (const rec& r : all) {
		int i = r.i, j = r.j;
		float vx, vy, vz;
		EXPECT_NEAR(r.cy, find_local_y(r.cx, r.cz, &vx, &vy, &vz, &i, &j, 0), 0.05f);
	}
}

TEST_F(Quadrants, AChainEndingMidCellEndsThereAndCarsRideItsRoad)
{
	quadrant_data q = plane_square(35, -118);
	q.lists[quad_roads] = {pt(20.2, 20.2), pt(20.5, 20.3, true)};   // short of the cell's diagonal
	q.lists[quad_trails] = {pt(30.2, 30.2), pt(30.5, 30.3, true)};
	put(q, 35, -118);
	load_region(1);
	const std::vector<rec> v = records(&buc_struct::vec_roads, 170, 170, 220, 220);
	ASSERT_EQ(v.size(), 2u);
	EXPECT_EQ(v[0].code, 1.0f);
	EXPECT_EQ(v[1].code, -999.0f);
	EXPECT_EQ(records(&buc_struct::vec_roads, 150, 299, 200, 399).size(), 2u);
	ASSERT_EQ(buc[170][220].vec_hwy_car.size(), 1u);
	EXPECT_EQ(buc[170][220].vec_hwy_car[0].r, 0);
	EXPECT_GE(buc[170][220].vec_hwy_car[0].s, 0.01f);
	EXPECT_LE(buc[170][220].vec_hwy_car[0].s, 0.99f);
	EXPECT_EQ(std::fabs(buc[170][220].vec_hwy_car[0].dir) == 1.1f || std::fabs(buc[170][220].vec_hwy_car[0].dir) == 0.9f, true);
	const std::vector<rec> t = records(&buc_struct::vec_trail, 180, 180, 230, 230);
	ASSERT_EQ(t.size(), 2u);
	EXPECT_NEAR(std::hypot(t[0].d[3] - t[0].d[0], t[0].d[5] - t[0].d[2]), 8.0f, 0.2f);
	EXPECT_TRUE(buc[180][230].vec_hwy_car.empty());   // cars on roads only
}

TEST_F(Quadrants, ARoadOverWaterIsRaisedAndTheLastDryRecordBeforeItMarked)
{
	quadrant_data q = plane_square(35, -118);
	for (int jj = 0; jj <= q.jmax; jj++)
		for (int ii = 45; ii <= 55; ii++) q.vertices[(size_t)jj * 151 + ii].land_code = make_land_code({0, 0, 0, 0, 14});
	q.lists[quad_roads] = {pt(30.5, 50.3), pt(70.5, 50.3, true)};
	put(q, 35, -118);
	load_region(1);
	int wet = 0, marked = 0;
	for (int i = 180; i <= 220; i++) {
		const std::vector<rec> v = records(&buc_struct::vec_roads, i, i, 250, 250);
		for (const rec& r : v) {
			int ci = i, cj = 250;
			float vx, vy, vz;
			const float g = find_local_y(r.cx, r.cz, &vx, &vy, &vz, &ci, &cj, 0);
			if (poly_is_wet(i, 250)) {
				wet++;
				EXPECT_NEAR(r.cy, g + 15.0f, 0.05f) << i;
				EXPECT_TRUE(r.code == 2.0f || r.code == -999.0f) << i << " code " << r.code;
			} else if (r.code == 1.0f) {
				EXPECT_NEAR(r.cy, g, 0.05f) << i;
			}
			marked += r.code == 3.0f;
		}
	}
	EXPECT_GT(wet, 10);
	EXPECT_GE(marked, 1);
	ASSERT_FALSE(buc[193][250].vec_roads.empty());   // the cell before the shore: its last dry record marked
	const std::vector<vec_lin_struct>& shore = buc[193][250].vec_roads;
	EXPECT_EQ(shore[shore.size() - 2].data[8], 3.0f);
}

TEST_F(Quadrants, PowerLineTowersAreSpacedAndLinkedThroughTheTidyPass)
{
	quadrant_data q = plane_square(35, -118);
	const double m_per_step = con.planet_rad * M_PI / 180.0 * std::cos(35.5 * M_PI / 180.0) / 150.0;
	q.lists[quad_power] = {pt(10.2, 100.2), pt(10.2 + 3000.0 / m_per_step, 100.2, true)};
	put(q, 35, -118);
	load_region(1);
	const std::vector<rec> all = records(&buc_struct::vec_power, 150, 299, 200, 399);
	ASSERT_EQ(all.size(), 7u);   // six spans of 500 m
	// Start at the westmost tower and follow the links.
	const rec* at = &all[0];
	for (const rec& r : all)
		if (r.cx < at->cx) at = &r;
	int seen = 1;
	const float* d = at->d;
	while (d[8] != -999.0f && seen < 10) {
		ASSERT_GE(d[9], 0.0f);
		const vec_lin_struct& next = buc[(int)d[9]][(int)d[10]].vec_power.at((size_t)d[11]);
		EXPECT_NEAR(std::hypot(next.data[0] - d[0], next.data[2] - d[2]), 500.0f, 5.0f);
		EXPECT_NEAR(d[7], 500.0f, 5.0f);
		EXPECT_NEAR(d[6], 90.0f, 1.0f);   // east
		d = next.data;
		seen++;
	}
	EXPECT_EQ(seen, 7);
}

TEST_F(Quadrants, ARiversTextureRunsOnAlongItsRecords)
{
	quadrant_data q = plane_square(35, -118);
	q.lists[quad_river] = {pt(60.2, 60.2), pt(60.4, 60.5), pt(60.7, 60.8, true)};
	put(q, 35, -118);
	load_region(1);
	const std::vector<vec_lin_struct>& v = buc[210][260].vec_river;
	ASSERT_GE(v.size(), 3u);
	for (size_t n = 1; n < v.size(); n++) {
		const float* a = v[n - 1].data;
		const float* b = v[n].data;
		const float len = std::hypot(0.5f * (b[0] + b[3] - a[0] - a[3]), 0.5f * (b[2] + b[5] - a[2] - a[5]));
		EXPECT_NEAR(b[7] - a[7], len / 50.0f * 0.25f, 0.01f);
	}
	EXPECT_NEAR(std::hypot(v[0].data[3] - v[0].data[0], v[0].data[5] - v[0].data[2]), 100.0f, 1.0f);
}
