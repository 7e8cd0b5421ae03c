// The flight start on its own: the load aboard survives a restart, each start that
// cannot be reached says why in its own words and lands on the runway, an empty traffic
// slot stays out of the way, and no aircraft to be found for traffic is said so.
#include "support/fleet.h"
#include "aircraft/HL_ACF.h"
#include "core/files.h"
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

struct FlightStart : ::testing::Test {
	void SetUp() override
	{
		ASSERT_EQ(start_fleet_aircraft("General Aviation:Wren 180:Wren 180.acf", 0.0f), 1);
		one_runway_airport("09", 90.0f, 2000.0f, 45.0f, 300.0f);   // a 2 km runway heading east
		msc.loc_apt_wrl = msc.lcl_rwy_ram = msc.backwards = 0;
		for (int b = 0; b < boat_max; b++) env.boat_x[b] = env.boat_z[b] = -9.9e9f;
		env.lo_x = env.lo_z = -100000.0f;
		env.hi_x = env.hi_z = 100000.0f;
	}
	// On the runway, ten metres past its western threshold, at rest.
	void expect_on_runway() const
	{
		const flt_struct& f = flt[0];
		EXPECT_NEAR(f.dob_x, -990.0, 2.0);
		EXPECT_NEAR(f.dob_z, 0.0, 2.0);
		EXPECT_NEAR(f.psi, 90.0f, 0.5f);
		EXPECT_EQ(f.V_msc, 0.0f);
		EXPECT_EQ(f.parkbrake, 1.0f);
	}
};

TEST_F(FlightStart, TheLoadAboardSurvivesARestartAndASlungLoadIsLeftBehind)
{
	flt_struct& f = flt[0];
	f.m_fuel[0] = 12.5f; f.m_fuel[1] = 3.0f; f.m_fixed = 90.0f; f.m_jettison = 40.0f;
	f.V_msc = 80.0f; f.P = 5.0f;
	init_flt_0(608, 601);
	EXPECT_EQ(f.m_fuel[0], 12.5f);   // burnt fuel stays burnt
	EXPECT_EQ(f.m_fuel[1], 3.0f);
	EXPECT_EQ(f.m_fixed, 90.0f);
	EXPECT_EQ(f.m_jettison, 40.0f);
	EXPECT_EQ(f.P, 0.0f);   // the rest is new
	expect_on_runway();
	veh[0].jett_is_slung = 1;
	init_flt_0(608, 601);
	EXPECT_EQ(f.m_jettison, 0.0f);
}

TEST_F(FlightStart, ColdAndDarkOnTheRunwayRunningInTheAir)
{
	stg.start_running = 0;
	stg.battery_EQ = 1;
	init_flt_0(608, 601);
	const flt_struct& f = flt[0];
	EXPECT_EQ(f.ENGN_burning_fuel[0], 0);
	EXPECT_EQ(f.ENGN_tacrad[0], 0.0f);
	EXPECT_EQ(stg.battery, 0);
	EXPECT_EQ(f.nav_lite, 0);
	EXPECT_EQ(f.parkbrake, 1.0f);
	stg.cus_lat = (float)f.dob_lat; stg.cus_lon = (float)f.dob_lon; stg.cus_alt = 2000.0f; stg.cus_psi = 180.0f; stg.cus_v = 60.0f;
	init_flt_0(1200, 0);
	EXPECT_EQ(f.ENGN_burning_fuel[0], 1);   // more than 10 m up: running whatever the setting
	EXPECT_EQ(stg.battery, 1);
	EXPECT_EQ(f.parkbrake, 0.0f);
	EXPECT_NEAR(f.vz, 60.0f, 0.5f);   // heading south, along +z
	EXPECT_NEAR(f.dob_ele, 2000.0, 1.0);
}

TEST_F(FlightStart, EachUnreachableStartSaysWhyAndStartsOnTheRunway)
{
	const struct { int code; const char* first_line; } starts[] = {
	    {4204, "I can't find one in the area!"},
	    {4801, "I can't find one in the area!"},
	    {4205, "I can't find any signifigant amount of coastline in this area!"},
	    {4805, "I can't find any forest fires in the area!"},
	    {4800, "I can't find any buildings with helipads in the area!"},
	};
	for (const auto& s : starts) {
		last_alert_text.clear();
		init_flt_0(s.code, 0);
		EXPECT_EQ(last_alert_text.substr(0, last_alert_text.find('\n')), s.first_line) << s.code;
		expect_on_runway();
	}
}

TEST_F(FlightStart, AnEmptyTrafficSlotStaysAwayAndNoAircraftToFindIsSaid)
{
	flt[3].dob_x = flt[3].dob_z = 9.9e9;
	init_flt_p_other_ai(3);
	EXPECT_EQ(flt[3].dob_x, 9.9e9);
	// Traffic from the fleet, the small aircraft in the first slots, flies at us from the
	// ring ahead.
	get_random_plane(2);
	EXPECT_GT(veh[2].m_max, 0.0f);
	EXPECT_NE(std::string(veh[2].path).find("General Aviation"), std::string::npos);
	init_flt_p_other_ai(2);
	const flt_struct& t = flt[2];
	EXPECT_EQ(t.update_type, 1);
	EXPECT_GT(pythag((float)(t.dob_x - flt[0].dob_x), (float)(t.dob_z - flt[0].dob_z)), 1000.0f);
	EXPECT_GT(t.V_msc, 0.0f);
	// No aircraft anywhere: the alert, and the slot far away.
	const std::string empty = std::string(NIMBARA_TEST_TREE) + "/empty/";
	std::filesystem::create_directories(empty + "Aircraft/Nothing");
	app_path = empty;
	last_alert_text.clear();
	get_random_plane(4);
	EXPECT_EQ(last_alert_text.substr(0, last_alert_text.find('\n')), "I Could not find planes to put in the sky with you!");
	EXPECT_EQ(flt[4].dob_x, 9.9e9);
	app_path = fleet_tree();
}

}  // namespace
