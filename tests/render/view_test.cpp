// The camera without drawing: the chase view's blend from body to path with speed, the
// camera held over the ground, an attitude over the top folded back, and the picture's
// final angles for the cockpit views' offsets.
#include "render/view.h"
#include "render/visibility.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include <cstdio>
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Camera : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		init_con();
		mnw.prd_FM = 0.02f;
		mnw.y2_pix = 768.0f;
		ren.FOV = 45.0f;
		veh[0].size_tot = 10.0f;
		flt[0].dob_y = 1000.0;
	}
	void settle(int view)
	{
		ren.view_menu_TYPE = view;
		for (int n = 0; n < 400; n++) WORLD_view_per_frame();
	}
};

}  // namespace

TEST_F(Camera, TheChaseViewFollowsTheBodySlowAndThePathFast)
{
	flt_struct& f = flt[0];
	f.psi = 0.0f;
	f.h_path = 40.0f;
	for (const auto& [speed, want] : {std::pair{8.0f, 0.0f}, {10.0f, 0.0f}, {15.0f, 20.0f}, {20.0f, 40.0f}, {60.0f, 40.0f}}) {
		f.V_msc = speed;
		settle(1518);
		EXPECT_NEAR(ren.basic_psi, want, 0.05f) << speed;
		EXPECT_NEAR(ren.final_psi, want, 0.05f) << speed;
		const float dx = (float)f.dob_x - ren.view_xyz[0], dz = (float)f.dob_z - ren.view_xyz[2];
		EXPECT_NEAR(std::sqrt(dx * dx + dz * dz), 15.0f, 0.1f);   // one and a half times the aircraft's size behind
	}
}

TEST_F(Camera, TheCameraStaysOverTheGroundAndLooksAtTheAircraft)
{
	ren.circ_the_rad = -0.5f;   // an orbit that would dip under a hillside
	ren.local_y_vp = 1000.0f;
	settle(1519);
	EXPECT_NEAR(ren.view_xyz[1], 1001.7f, 1e-3f);
	const float dy = (float)flt[0].dob_y - ren.view_xyz[1];
	EXPECT_LT(dy, 0.0f);
	EXPECT_LT(ren.basic_the, 0.0f);   // looking down at it
}

TEST_F(Camera, AnAttitudeOverTheTopFoldsBack)
{
	flt_struct& f = flt[0];
	f.the = 100.0f;
	f.psi = 30.0f;
	f.phi = 10.0f;
	settle(1525);
	EXPECT_NEAR(ren.basic_the, 80.0f, 1e-4f);
	EXPECT_NEAR(ren.basic_psi, 210.0f, 1e-4f);
	EXPECT_NEAR(ren.basic_phi, 170.0f, 1e-4f);
}

TEST_F(Camera, CockpitViewsTurnTheEyeAndTheFrustumIsLinearInTheFieldOfView)
{
	flt_struct& f = flt[0];
	f.psi = 10.0f;
	f.cos_the = f.cos_psi = f.cos_phi = 1.0f;
	struct { int view; float psi, the; } views[] = {{1525, 10, 0}, {1508, 100, 0}, {1511, 190, 0}, {1505, 325, 0}, {1513, 55, 30}};
	for (const auto& v : views) {
		settle(v.view);
		EXPECT_NEAR(ren.final_psi, v.psi, 1e-3f) << v.view;
		EXPECT_NEAR(ren.final_the, v.the, 1e-3f) << v.view;
	}
	atm.vis_sky = 10000.0f;   // looking north: the sky box reaches 10 km north and 7 km each side
	f.psi = 0.0f;
	settle(1525);
	EXPECT_NEAR(ren.xyz_lo_cone_sky[2], (float)f.dob_z - 10000.0f, 1.0f);
	EXPECT_NEAR(ren.xyz_hi_cone_sky[2], (float)f.dob_z, 1.0f);
	EXPECT_NEAR(ren.xyz_hi_cone_sky[0] - ren.xyz_lo_cone_sky[0], 2.0f * 10000.0f * std::sin(22.5f * 3.14159265f / 180.0f), 1.0f);
	ren.FOV = 90.0f;
	settle(1525);
	EXPECT_FLOAT_EQ(mnw.x2_rat, 1.0f);   // 90 degrees gives exactly one
	EXPECT_FLOAT_EQ(mnw.x1_rat, -1.0f);
	EXPECT_FLOAT_EQ(mnw.y2_rat, 1.0f);
}

// Through an overcast deck the eye sees 100 m, returning over 600 ft above and below;
// stars only above it; high up the fog reaches toward the limb.
TEST(Visibility, ADeckBlindsTheEyeInsideItAndTheLimbOpensHighUp)
{
	zero_all_records();
	init_con();
	set_planet_specs(0);
	atm.vis_rep = 16000.0f;
	atm.vis_frmult = 1.0f;
	atm.cld_type[0] = 5;
	atm.base_h_MSL[0] = 2000.0f;
	atm.tops_h_MSL[0] = 3000.0f;
	auto at = [](float h) {
		ren.view_ele = ren.view_xyz[1] = h;
		return update_visibility();
	};
	at(1000.0f);
	EXPECT_FLOAT_EQ(atm.vis_ground, 16000.0f);
	EXPECT_EQ(ren.stars_are_vis, 0);
	EXPECT_EQ(ren.ground_is_vis, 1);
	at(2500.0f);
	EXPECT_FLOAT_EQ(atm.vis_ground, 100.0f);
	EXPECT_FLOAT_EQ(atm.vis_sky, 100.0f);
	at(3000.0f + 91.44f);   // halfway back above the tops
	EXPECT_NEAR(atm.vis_ground, 0.5f * (100.0f + 16000.0f), 1.0f);
	at(2000.0f - 91.44f);   // and below the base
	EXPECT_NEAR(atm.vis_ground, 0.5f * (100.0f + 16000.0f), 1.0f);
	const view_distances high = at(12000.0f);
	EXPECT_EQ(ren.stars_are_vis, 1);
	EXPECT_GT(atm.vis_sky, atm.vis_ground);   // above the deck the sky clears to the planet's limit
	const view_distances orbit = at(400000.0f);
	EXPECT_GT(orbit.ogl_fog_dis, 2.0e6f);   // from orbit, out toward the limb, 2300 km away
	EXPECT_LE(orbit.near_dis, 500.0f);
	EXPECT_GE(high.near_dis, 1.0f);
	EXPECT_EQ(ren.ground_is_vis, 0);   // and far above the ground's visibility
}

TEST_F(Camera, SpotViewsWaitAheadOnThePathAndTheRunwayViewStandsAtTheNearestEnd)
{
	flt_struct& f = flt[0];
	f.vz = -50.0f;   // north at 50 m/s
	f.V_msc = 50.0f;
	veh[0].size_x = 10.0f;
	ren.view_menu_TYPE = 1521;
	WORLD_view_per_frame();
	EXPECT_NEAR(ren.spot_z, (float)f.dob_z - 200.0f + 15.0f, 1e-3f);   // four seconds ahead, and aside
	EXPECT_NEAR(ren.view_xyz[0], 15.0f, 1e-3f);
	EXPECT_NEAR(ren.basic_psi, 180.0f + std::atan2(15.0f, 185.0f) * 57.29578f, 0.5f);   // looking back at the aircraft
	ren.view_menu_TYPE = 1522;
	WORLD_view_per_frame();
	const float z0 = ren.view_xyz[2];
	WORLD_view_per_frame();
	EXPECT_NEAR(ren.view_xyz[2] - z0, -50.0f * 0.02f, 1e-3f);   // drifting with the aircraft's speed
	// One runway, north-south, 2000 m long, centred 3 km north: the south end is nearer.
	vec_apt.clear();
	vec_apt.emplace_back();
	vec_apt[0].h = 0.0f;
	vec_rwy_struct r{};
	r.lat = 0.027f;
	r.lon = 0.0f;
	r.psi_true = 0.0f;
	r.len = 2000.0f;
	std::snprintf(r.num_str, sizeof r.num_str, "36");
	vec_apt[0].rwy.push_back(r);
	msc.loc_apt_wrl = 0;
	set_planet_specs(0);
	ren.local_y_vp = -1e5f;   // the ground under the eye, in this frame far below
	f.dob_lat = f.dob_lon = 0.0;
	f.dob_ele = 1000.0;
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, 0.0, 0.0, 1000.0);
	settle(1516);
	double lat, lon, x, y, z;
	latlon_offset(0.027, 0.0, 0.0, -995.0, &lat, &lon);
	xdob_xyz_with_latlonel(x, y, z, lat, lon, 1.8);
	EXPECT_NEAR(ren.view_xyz[0], x, 1.0);
	EXPECT_NEAR(ren.view_xyz[1], y, 1.0);
	EXPECT_NEAR(ren.view_xyz[2], z, 1.0);
	vec_apt.clear();
}
