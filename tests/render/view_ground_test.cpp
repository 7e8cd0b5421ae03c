// The view menu's actions and a visual station's forced view; the carrier's island as the
// tower; and the ground the view can see: its culling quadrilateral, the grid range, and
// the camera held over a hillside by the ground found under it.
#include "render/view.h"
#include "render/visibility.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include "world/scenery.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr float deg = 3.14159265f / 180.0f;

struct View : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		init_con();
		set_planet_specs(0);
		vec_apt.clear();
		mnw.prd_FM = 0.02f;
		mnw.x_res_now = 1024;
		mnw.y_res_now = 768;
		mnw.y2_pix = 768.0f;
		ren.FOV = 45.0f;
		ren.wpn_to_track = -1;
		veh[0].size_tot = 10.0f;
		flt[0].cos_the = flt[0].cos_psi = flt[0].cos_phi = 1.0f;
	}
	void frames(int n)
	{
		for (int k = 0; k < n; k++) WORLD_view_per_frame();
	}
	void pick(int code)
	{
		view_menu_pick(code);
		WORLD_view_per_frame();
	}
};

// The sea block from 34 to 36 north, 119 to 116 west, the aircraft over its middle.
struct Ground : View {
	void SetUp() override
	{
		View::SetUp();
		env.lat_sou = 34;
		env.lon_wes = -119;
		load_region(1);
		atm.vis_ground = atm.vis_sky = 10000.0f;
		flt_struct& f = flt[0];
		f.dob_lat = 35.0;
		f.dob_lon = -117.5;
		f.dob_ele = 1000.0;
		xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, 35.0, -117.5, 1000.0);
	}
	// Inside the clockwise quadrilateral, seen from above with north up.
	static bool inside(float x, float z)
	{
		const float cx[4] = {ren.x0_cone_ground, ren.x1_cone_ground, ren.x2_cone_ground, ren.x3_cone_ground};
		const float cz[4] = {ren.z0_cone_ground, ren.z1_cone_ground, ren.z2_cone_ground, ren.z3_cone_ground};
		for (int k = 0; k < 4; k++) {
			const int n = (k + 1) % 4;
			// With north (-z) up and east (+x) right, clockwise keeps the inside to the right.
			if ((cx[n] - cx[k]) * (z - cz[k]) - (cz[n] - cz[k]) * (x - cx[k]) < 0.0f) return false;
		}
		return true;
	}
	static void cell_of(float x, float z, int* i, int* j)
	{
		float vx, vy, vz;
		*i = *j = 0;
		find_local_y(x, z, &vx, &vy, &vz, i, j, 0);
	}
};

}  // namespace

TEST_F(View, MenuActionsToggleAndStepAndTheLookDownEasesInTheCockpitOnly)
{
	pick(1530);
	EXPECT_EQ(ren.trans_panel, 1);
	pick(1530);
	EXPECT_EQ(ren.trans_panel, 0);
	pick(1531);
	pick(1532);
	pick(1533);
	EXPECT_EQ(flt[0].smoking, 1);
	EXPECT_EQ(ren.sunglasses_on, 1);
	EXPECT_EQ(ren.night_vision_on, 1);
	for (int n = 1; n <= 8; n++) {
		pick(1535);
		EXPECT_EQ(ren.show_path, n % 8);
	}
	pick(1527);
	EXPECT_FLOAT_EQ(ren.zoom_req, 1.1f);
	pick(1528);
	EXPECT_FLOAT_EQ(ren.zoom_req, 1.0f);
	pick(1528);
	EXPECT_FLOAT_EQ(ren.zoom_req, 1.0f);   // never below one
	EXPECT_EQ(ren.view_menu_ACTION, 0);

	pick(1525);
	pick(1501);
	frames(200);
	EXPECT_NEAR(ren.final_the, -10.0f, 0.01f);   // the eye tipped down ten degrees
	pick(1501);
	frames(200);
	EXPECT_NEAR(ren.final_the, 0.0f, 0.01f);
	pick(1519);
	pick(1501);   // outside the look-down means nothing
	EXPECT_FLOAT_EQ(mnw.look_down_deg_req, 0.0f);
	EXPECT_EQ(ren.view_type_act, 1519);
}

TEST_F(View, AVisualStationHoldsItsViewAndAPlugInCameraIsNotAsked)
{
	net.use_ip[14] = 1;
	pick(1519);
	EXPECT_EQ(ren.view_type_act, 1525);
	net.use_ip[14] = 0;
	net.use_ip[15] = 1;
	WORLD_view_per_frame();
	EXPECT_EQ(ren.view_type_act, 1500);
	net.use_ip[15] = 0;
	// A camera placed from outside stays where it was put.
	net.getting_camera = 1;
	ren.view_xyz[0] = 123.0f;
	ren.basic_psi = 77.0f;
	pick(1519);
	frames(10);
	EXPECT_FLOAT_EQ(ren.view_xyz[0], 123.0f);
	EXPECT_NEAR(ren.final_psi, 77.0f, 1e-3f);
}

TEST_F(View, TheTowerViewStandsOnTheCarriersIslandWhenTheShipIsNearer)
{
	env.boat_x[0] = 500.0f;
	env.boat_y[0] = 0.0f;
	env.boat_z[0] = -300.0f;
	env.boat_psi[0] = 90.0f;   // steaming east
	flt[0].dob_x = 450.0;
	flt[0].dob_y = 30.0;
	flt[0].dob_z = -300.0;
	pick(1515);
	const float dx = ren.view_xyz[0] - 500.0f, dy = ren.view_xyz[1], dz = ren.view_xyz[2] + 300.0f;
	EXPECT_NEAR(dy, 11.0f, 1e-3f);   // the island's bridge, 11 m over the deck
	EXPECT_NEAR(std::sqrt(dx * dx + dz * dz), std::sqrt(28.0f * 28.0f + 35.0f * 35.0f), 1e-2f);
	env.boat_psi[0] = 0.0f;
	WORLD_view_per_frame();
	EXPECT_NEAR(ren.view_xyz[0], 528.0f, 1e-3f);   // heading north, the island to starboard, aft
	EXPECT_NEAR(ren.view_xyz[2], -265.0f, 1e-3f);
	// An airport's tower nearer than the ship takes over, eased.
	vec_apt.emplace_back();
	vec_apt[0].twr_lat = 0.02f;
	vec_apt[0].twr_lon = 0.02f;
	vec_apt[0].twr_hgt = 30.0f;
	env.boat_x[0] = env.boat_z[0] = -9.9e9f;
	ren.local_y_vp = -1e5f;   // no ground drawn: the tower's eye below the frame's level is not lifted
	frames(1500);
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, 0.02, 0.02, 30.0);
	EXPECT_NEAR(ren.view_xyz[0], x, 0.5);
	EXPECT_NEAR(ren.view_xyz[1], y, 0.5);
	EXPECT_NEAR(ren.view_xyz[2], z, 0.5);
	vec_apt.clear();
}

TEST_F(View, AnAircraftSeenFromCloseOutsideIsNeverClipped)
{
	veh[0].size_tot = 30.0f;
	ren.view_is_external = 1;
	ren.view_ele = ren.view_xyz[1] = 800.0f;
	flt[0].dob_y = 820.0;   // 20 m away: 20 - 37.5 is below the limit of 1
	EXPECT_FLOAT_EQ(update_visibility().near_dis, 1.0f);
	ren.view_is_external = 0;
	EXPECT_FLOAT_EQ(update_visibility().near_dis, 50.0f);   // a quarter of the height, up to the ceiling
}

TEST_F(Ground, ALevelViewSeesAWedgeAheadAndTheGridRangeHoldsIt)
{
	pick(1525);   // north, level
	update_ground_cone(1000.0f);
	const float x = ren.view_xyz[0], z = ren.view_xyz[2];
	EXPECT_TRUE(inside(x, z - 9000.0f));         // ahead, inside the visibility
	EXPECT_TRUE(inside(x + 2500.0f, z - 9000.0f));   // off to the side, within the window's corner
	EXPECT_FALSE(inside(x, z + 3000.0f));        // behind
	EXPECT_FALSE(inside(x, z - 14000.0f));       // beyond the visibility and its margin
	const float half = 0.5f * 45.0f * 1.25f * deg, limit = 10000.0f / std::cos(half) + 1000.0f;
	const float cx[4] = {ren.x0_cone_ground, ren.x1_cone_ground, ren.x2_cone_ground, ren.x3_cone_ground};
	const float cz[4] = {ren.z0_cone_ground, ren.z1_cone_ground, ren.z2_cone_ground, ren.z3_cone_ground};
	for (int k = 0; k < 4; k++) {
		EXPECT_LE(std::hypot(cx[k] - x, cz[k] - z), limit + 1.0f) << k;
		EXPECT_GE(cx[k], ren.xyz_lo_cone_ground[0]);
		EXPECT_LE(cz[k], ren.xyz_hi_cone_ground[2]);
	}
	EXPECT_EQ(ren.view_oct, 1);
	int ic, jc, ia, ja;
	cell_of(x, z, &ic, &jc);
	cell_of(x, z - 9000.0f, &ia, &ja);
	EXPECT_EQ(ren.ic_plot, ic);
	EXPECT_EQ(ren.jc_plot, jc);
	for (int i : {ic, ia}) {
		EXPECT_GE(i, ren.i1_plot);
		EXPECT_LE(i, ren.i2_plot);
	}
	for (int j : {jc, ja}) {
		EXPECT_GE(j, ren.j1_plot);
		EXPECT_LE(j, ren.j2_plot);
	}
	EXPECT_GT(ren.j2_plot - ren.j1_plot, 9000 / 600);   // north-south cells are 556 m
	EXPECT_NEAR(ren.local_y_vp, (float)flt[0].dob_y - 1000.0f, 1.0f);   // the sea under the eye
}

TEST_F(Ground, LookingStraightDownTheGroundRoundTheEyeIsIn)
{
	flt[0].the = -89.0f;
	flt[0].sin_the = std::sin(-89.0f * deg);
	flt[0].cos_the = std::cos(-89.0f * deg);
	pick(1525);
	update_ground_cone(1000.0f);
	const float x = ren.view_xyz[0], z = ren.view_xyz[2];
	for (const auto& [dx, dz] : {std::pair{0.0f, 0.0f}, {300.0f, 0.0f}, {-300.0f, 0.0f}, {0.0f, 250.0f}, {0.0f, -250.0f}})
		EXPECT_TRUE(inside(x + dx, z + dz)) << dx << " " << dz;
}

// An orbit that would dip into a hillside rising 1 in 10 to the east stays 1.7 m over it.
TEST_F(Ground, TheCameraStaysOverSlopingGround)
{
	const float x0 = (float)flt[0].dob_x;
	for (int i = 0; i <= regn_imax[0]; i++)
		for (int j = 0; j <= regn_jmax[0]; j++) planexyz[i][j][1] += 0.1f * (planexyz[i][j][0] - x0);
	flt[0].dob_y -= 990.0;   // 10 m over the sea's level, the ground beside it higher
	ren.circ_dist = 200.0f;
	ren.circ_psi_rad = -90.0f * deg;   // the eye to the east, uphill
	ren.circ_the_rad = -0.2f;
	pick(1519);
	for (int n = 0; n < 600; n++) {
		WORLD_view_per_frame();
		update_ground_cone(10.0f);
	}
	double lat, lon, ele, sx, sy, sz;
	xdob_latlonel_with_xyz(lat, lon, ele, ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]);
	xdob_xyz_with_latlonel(sx, sy, sz, lat, lon, 0.0);
	const float ground = (float)sy + 0.1f * (ren.view_xyz[0] - x0);
	EXPECT_GT(ren.view_xyz[0], x0 + 150.0f);
	EXPECT_NEAR(ren.view_xyz[1], ground + 1.7f, 0.05f);
}
