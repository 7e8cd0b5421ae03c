#include "aircraft/acf_io.h"
#include "support/fleet.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstring>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace {

const char* fleet[] = {"General Aviation:Wren 180:Wren 180.acf", "Gliders:Kestrel 15:Kestrel 15.acf",
                       "Helicopters:Hornet 250:Hornet 250.acf", "Heavy Metal:Meridian 320:Meridian 320.acf"};
veh_struct base;

struct Load : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" +
	                  ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir + "Aircraft/Test");
		fresh_records_in_tree();
	}
	int load(int p, const std::string& rel)
	{
		std::snprintf(veh[p].path, 500, "%s", (acf_path + rel).c_str());
		return load_plane(p);
	}
	// The trainer's file with one change, written into the test's own tree and loaded.
	void load_changed(const std::function<void(veh_struct&)>& change, int p = 1)
	{
		ASSERT_EQ(acf_read_image((acf_path + fleet[0]).c_str(), base, nullptr), 1);
		change(base);
		app_path = dir;
		ASSERT_EQ(acf_write_image((dir + "Aircraft/Test/Changed.acf").c_str(), base, 0), 1);
		std::snprintf(veh[p].path, 500, "%s", (dir + "Aircraft:Test:Changed.acf").c_str());
		load_plane(p);
	}
	float wing_area_sum(int p, int en)
	{
		float s = 0.0f;
		for (int el = 0; el < veh[p].els[en]; el++) s += veh[p].s[en][el];
		return s;
	}
};

}  // namespace

TEST(Oswald, TableCornersEdgesAndHolds)
{
	init_con();
	EXPECT_FLOAT_EQ(ret_e(5, 0, 0, 0.5f), 0.994f);
	EXPECT_FLOAT_EQ(ret_e(10, 0, 25, 0.4f), 0.988f);
	EXPECT_FLOAT_EQ(ret_e(1, 5, 70, 1.0f), 0.992f);
	EXPECT_FLOAT_EQ(ret_e(5, 0, 0, 1.0f), 0.986f);                     // taper 1 reads the last column
	EXPECT_FLOAT_EQ(ret_e(0.5f, 0, 0, 1.0f), ret_e(1, 0, 0, 1.0f));    // below the table: held
	EXPECT_FLOAT_EQ(ret_e(200, 0, 0, 0.3f), ret_e(60, 0, 0, 0.3f));
	EXPECT_FLOAT_EQ(ret_e(5, -3, 0, 0.5f), ret_e(5, 0, 0, 0.5f));      // a washout of -3 reads as 0
	EXPECT_NEAR(ret_e(7.5f, 0, 0, 0.5f), 0.5f * (0.994f + ret_e(10, 0, 0, 0.5f)), 1e-6f);   // halfway in AR
}

TEST_F(Load, FleetLoadsWithNoFindingAndAllDerivedValuesFinite)
{
	for (const char* rel : fleet) {
		ASSERT_EQ(load(0, rel), 1) << rel;
		const veh_struct& v = veh[0];
		const float* fp = (const float*)&v;
		for (int f = 0; f < veh_field_count; f++) {
			const veh_field_info& fi = veh_fields[f];
			if (fi.offset >= acf_image_size || fi.type != vf_float) continue;
			for (size_t k = 0; k < fi.size / 4; k++) ASSERT_FALSE(check_nan(fp[fi.offset / 4 + k])) << rel << " " << fi.name;
		}
		EXPECT_EQ(v.cgY, 0.0f);
		EXPECT_EQ(v.cgZ, 0.0f);
		EXPECT_GT(v.Jxx_unitmass, 0.0f);
		EXPECT_GT(v.Jyy_unitmass, v.Jzz_unitmass * 0.5f);
	}
}

TEST_F(Load, ElementAreasSumToThePlanformOfEachWing)
{
	for (const char* rel : fleet) {
		load(0, rel);
		const veh_struct& v = veh[0];
		for (int en = en_wing1L; en <= en_mwing_hi; en++) {
			if (!v.part_eq[en]) continue;
			const float planform = v.semilen_SEG[en] * (v.Croot[en] + v.Ctip[en]) * 0.5f * std::cos(v.sweep1[en] * con.degtorad);
			EXPECT_NEAR(wing_area_sum(0, en), planform, planform * 1e-5f) << rel << " part " << en;
		}
	}
	// The trainer: 36 ft of span and about 160 square feet of wing.
	load(0, fleet[0]);
	const float area_ft2 = (wing_area_sum(0, 8) + wing_area_sum(0, 9)) / con.sftosmtr;
	EXPECT_NEAR(area_ft2, 160.0f, 5.0f);
	EXPECT_NEAR(2.0f * veh[0].semilen_JND[8] / con.fttomtrs, 36.0f, 0.1f);
}

TEST_F(Load, TotalMassIsEmptyPayloadFuelAndJettison)
{
	for (const char* rel : fleet) {
		load(0, rel);
		const veh_struct& v = veh[0];
		flt_struct& f = flt[0];
		init_quaternion(0, 0, 0, f.q);
		f.dob_y = 3000.0;
		WORLD_math_all_cases();
		mnw.prd_FM = 0.02f;
		update_with_fullsim2(0);
		const float want = v.m_empty + f.m_fixed + f.m_jettison + f.m_fuel[0] + f.m_fuel[1] + f.m_fuel[2];
		EXPECT_NEAR(f.m_total, want, want * 1e-5f) << rel;
		EXPECT_LE(want, v.m_max * 1.0001f) << rel;
		EXPECT_NEAR(v.m_empty, 0.0f + (rel == fleet[0] ? 1690.0f : v.m_empty / con.lbstokgs) * con.lbstokgs, 0.01f);
	}
}

TEST_F(Load, FuelStartsAtHalfAnEqualShare)
{
	load_changed([](veh_struct& v) { v.num_tanks = 1; v.tank_rat[0] = 1.0f; v.tank_rat[1] = 0.0f; });
	EXPECT_NEAR(flt[1].m_fuel[0], 0.5f * 318.0f * con.lbstokgs, 0.01f);
	EXPECT_EQ(flt[1].m_fuel[1], 0.0f);
	load_changed([](veh_struct& v) { v.num_tanks = 2; v.tank_rat[0] = v.tank_rat[1] = 0.5f; });
	EXPECT_NEAR(flt[1].m_fuel[0], 0.25f * 318.0f * con.lbstokgs, 0.01f);
	EXPECT_NEAR(flt[1].m_fuel[1], 0.25f * 318.0f * con.lbstokgs, 0.01f);
}

TEST_F(Load, StoredRadiiOfGyrationOverrideTheShape)
{
	load_changed([](veh_struct& v) { v.manual_rad_gyr = 1; v.Jxx_unitmass = 4.0f; v.Jyy_unitmass = 5.0f; v.Jzz_unitmass = 3.0f; });
	EXPECT_NEAR(veh[1].Jxx_unitmass, sqr(4.0f * 0.3048f), 1e-5f);
	EXPECT_NEAR(veh[1].Jyy_unitmass, sqr(5.0f * 0.3048f), 1e-5f);
	EXPECT_NEAR(veh[1].Jzz_unitmass, sqr(3.0f * 0.3048f), 1e-5f);
}

TEST_F(Load, SegmentsThatMeetTipToRootJoinIntoOneWing)
{
	// Wing 1 right split in two: an inner segment and wing 2 right continuing it.
	load_changed([](veh_struct& v) {
		v.semilen_SEG[9] = 8.0f;
		v.Ctip[9] = 4.9f;
		v.part_eq[11] = 1;
		v.els[11] = 3;
		v.Xarm[11] = v.Xarm[9] + 8.0f * std::cos(v.dihed1[9] * 0.0174533f);
		v.Yarm[11] = v.Yarm[9] + 8.0f * std::sin(v.dihed1[9] * 0.0174533f);
		v.Zarm[11] = v.Zarm[9];
		v.Croot[11] = 4.9f; v.Ctip[11] = 4.3f; v.semilen_SEG[11] = 8.5f; v.dihed1[11] = v.dihed1[9];
		for (auto* s : {v.Rafl0[11], v.Rafl1[11], v.Tafl0[11], v.Tafl1[11]}) std::snprintf(s, 40, "%s", v.Rafl0[9]);
	});
	const float whole = pythag(16.5f + 1.5f, 16.5f * std::sin(1.7f * con.degtorad)) * con.fttomtrs;
	EXPECT_NEAR(veh[1].semilen_JND[9], whole, 0.05f);
	EXPECT_NEAR(veh[1].semilen_JND[11], whole, 0.05f);
	EXPECT_NEAR(veh[1].semilen_SEG[9], 8.0f * con.fttomtrs, 1e-4f);   // the segment keeps its own
	EXPECT_NEAR(veh[1].AR[9], veh[1].AR[11], 0.01f);
}

TEST_F(Load, BiplaneWingsShareTheirEfficiency)
{
	// A second wing of equal span right above the first, gap / summed span = 0.1.
	load_changed([](veh_struct& v) {
		for (int en : {8, 9}) {
			v.sweep1[en] = 0.0f; v.dihed1[en] = 0.0f;
			v.Croot[en] = v.Ctip[en] = 5.0f;
			v.Xarm[en] = 0.0f;
			const int up = en + 2;
			v.part_eq[up] = 1; v.els[up] = v.els[en]; v.Xarm[up] = 0.0f; v.Zarm[up] = v.Zarm[en];
			v.Yarm[up] = v.Yarm[en] + 0.1f * 2.0f * v.semilen_SEG[en];
			v.Croot[up] = v.Ctip[up] = 5.0f; v.semilen_SEG[up] = v.semilen_SEG[en];
			for (auto* s : {v.Rafl0[up], v.Rafl1[up], v.Tafl0[up], v.Tafl1[up]}) std::snprintf(s, 40, "%s", v.Rafl0[en]);
		}
		for (int en : {8, 9}) v.semilen_SEG[en] = v.semilen_SEG[en + 2] = 16.5f;
		for (int en : {10, 11}) v.Yarm[en] = v.Yarm[8] + 3.3f;
		for (int en : {8, 9, 10, 11}) { v.Croot[en] = v.Ctip[en] = 3.0f; }
	});
	// sigma = 0.6517 at r = 0.1, and e = 2 / (2 + 2 sigma) for wings of equal span.
	EXPECT_NEAR(veh[1].e[8], 2.0f / (2.0f + 2.0f * 0.6517f), 0.002f);
	EXPECT_NEAR(veh[1].e[11], veh[1].e[8], 1e-6f);
}

TEST_F(Load, AMissingAircraftFallsBackToTheDefault)
{
	std::snprintf(stg.def_pln_path, 500, "Aircraft:%s", fleet[1]);
	std::snprintf(stg.def_pln_file, 500, "Kestrel 15.acf");
	EXPECT_EQ(load(2, "Nowhere:Nothing.acf"), 0);
	EXPECT_STREQ(veh[2].name, "Kestrel 15.acf");
	EXPECT_NEAR(veh[2].m_empty, 560.0f * con.lbstokgs, 0.01f);
	std::snprintf(stg.def_pln_path, 500, "Aircraft:Nowhere:Either.acf");
	EXPECT_THROW(load(3, "Nowhere:Nothing.acf"), XFatalAlert);
	EXPECT_NE(last_alert_text.find("I could not find the plane requested"), std::string::npos);
	g_done = 0;
}

TEST_F(Load, EachCheckFindingFiresWithItsOwnText)
{
	struct finding { const char* line1; std::function<void(veh_struct&)> change; };
	const finding cases[] = {
		{"This plane has no tail number!", [](veh_struct& v) { std::memset(v.tailnum, ' ', 5); }},
		{"This design has a fixed-pitch prop, but you entered different fine and coarse pitches in the props screen!",
		 [](veh_struct& v) { v.max_pitch[0] += 5.0f; }},
		{"This design is either a helicopter or a plane with a variable-pitch prop.", [](veh_struct& v) { v.prop_type[0] = 1; }},
		{"You entered a Vne of zero!", [](veh_struct& v) { v.Vne_kts = 0.0f; }},
		{"You have entered an empty weight of zero!", [](veh_struct& v) { v.m_empty = 0.0f; }},
		{"You have entered a maximum weight of zero!", [](veh_struct& v) { v.m_max = 0.0f; }},
		{"You have selected an empty weight that is greater than the maximum weight for this airplane!",
		 [](veh_struct& v) { v.m_empty = v.m_max + 1.0f; }},
		{"Problem: The max THROTTLE available as decided in Framewright is ZERO PERCENT! OOPS!", [](veh_struct& v) { v.throt_max_FWD = 0.0f; }},
		{"This aircraft has reverse-thrust capability as decided in the ENGINES screen.",
		 [](veh_struct& v) { v.rev_thrust_EQ = 1; v.throt_max_REV = 0.0f; }},
		{"You have entered a maximum manifold pressure in the ENGINES screen of 0!", [](veh_struct& v) { v.MP_max = 0.0f; }},
		{"You have entered zero for some of the engine RPM parameters in the ENGINES screen!", [](veh_struct& v) { v.RSC_mingreen_ENGN = 0.0f; }},
		{"You entered an idle rpm greater then the maximum engine rpm in the ENGINES screen!", [](veh_struct& v) { v.RSC_idlespeed_ENGN = 3000.0f; }},
		{"You requested a reciprocating or turbine engine in the ENGINES screen, but have entered an engine power of zero!",
		 [](veh_struct& v) { v.power_max = 0.0f; }},
		{"Do not enter zero as a compressor area for a jet engine!", [](veh_struct& v) { v.engn_type[0] = 4; v.thrust_max = 100; }},
		{"You requested a jet engine in the ENGINES screen, but have entered an engine thrust of zero!",
		 [](veh_struct& v) { v.engn_type[0] = 5; v.face_jet = 3.0f; }},
		{"You requested a rocket engine in the ENGINES screen, but have entered an engine thrust of zero!",
		 [](veh_struct& v) { v.engn_type[0] = 6; v.rock_max_sl = 0.0f; v.rock_max_opt = v.rock_max_vac = 900.0f; }},
		{"This aircraft has an 'Aileron-1' set of ailerons. This is no problem. BUT you have entered an 'Aileron-1 Cutout Speed' of ZERO!",
		 nullptr},
		{"You have entered both a flap and aileron for the same section of the wing!", [](veh_struct& v) { v.ail1[8][0] = 1; }},
		{"You have entered a maximum flap deflection of zero! This is illegal!", [](veh_struct& v) { v.flap_dn[3] = 0.0f; }},
		{"You have entered some landing gear with tire radii of zero!", [](veh_struct& v) { v.tire_radius[68] = 0.0f; }},
		{"Your landing gear is tucked up too close to the CG.", [](veh_struct& v) { v.h_eqlbm = 0.0f; }},
		{"This aircraft has a zero root chord for a flying surface!", [](veh_struct& v) { v.Croot[16] = 0.0f; }},
		{"You have specified in the Panel screen that you have a HOOPS HUD.", [](veh_struct& v) { v.has_HOOPS_HUD = 1; }},
		{"Look at the WEIGHT AND BALANCE window. Then look at the RATIO of fuel in each fuel tank.",
		 [](veh_struct& v) { v.tank_rat[1] = 0.4f; }},
	};
	for (const finding& c : cases) {
		if (!c.change) continue;   // cut-out speeds below 0.01 are repaired to 9999 before the check sees them
		g_done = 0;
		std::memcpy(&veh[1], &veh[0], sizeof veh[0]);
		try {
			load_changed(c.change);
			ADD_FAILURE() << "no finding for: " << c.line1;
		} catch (const XFatalAlert& x) {
			EXPECT_EQ(x.c1_, c.line1);
			EXPECT_EQ(x.c4_.rfind("Fix this problem in Framewright. The plane in question is: ", 0), 0u);
			EXPECT_NE(x.c4_.find("Changed.acf"), std::string::npos);
		}
	}
	// Tank ratios within half a percent of one pass; an electric engine needs no idle speed.
	g_done = 0;
	load_changed([](veh_struct& v) { v.tank_rat[1] = 0.496f; });
	load_changed([](veh_struct& v) { v.engn_type[0] = 3; v.RSC_idlespeed_ENGN = 0.0f; });
	g_done = 0;
}
