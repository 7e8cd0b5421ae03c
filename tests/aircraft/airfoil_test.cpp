#include "aircraft/airfoil.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

const std::string airfoils = std::string(NIMBARA_DATA_TREE) + "/Airfoils/";

struct Airfoils : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" +
	                  ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	static airfoil_struct a, b;
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
		zero_all_records();
		init_con();
		std::memset(&a, 0, sizeof a);
		std::memset(&b, 0, sizeof b);
	}
	// A section of 2 % camber, with round numbers for the closed forms.
	static void params(airfoil_struct& f)
	{
		f.re_num[0][0] = 3.0f; f.t_rat[0] = 0.12f; f.mach_div[0] = 0.72f;
		f.clM[0][0] = 0.1f; f.clB[0][0] = 0.2f; f.almin[0][0] = -14.0f; f.almax[0][0] = 16.0f;
		f.Llinrange = 8.0f; f.Lpow = 1.5f; f.Lstall = 1.6f; f.Ldrop1 = 0.2f; f.Lpowstl = 1.5f; f.Ldrop2 = 0.3f;
		f.Dmin = 0.006f; f.DminCL = 0.2f; f.Dal10 = 0.012f; f.Dpow = 2.0f;
		f.Bloc = 0.2f; f.Bwidth = 0.4f; f.Bdepth = 0.001f; f.Bpower = 1.5f;
		f.cmal2 = -12.0f; f.cmal3 = 12.0f; f.cm1 = -0.02f; f.cm2 = -0.05f; f.cm3 = -0.05f; f.cm4 = -0.1f;
	}
	std::string read_bytes(const std::string& path)
	{
		std::ifstream in(path, std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(in), {});
	}
};
airfoil_struct Airfoils::a, Airfoils::b;

}  // namespace

TEST_F(Airfoils, TheIndexCoversTheCircleFinelyNearZero)
{
	EXPECT_EQ(afl_alpha_of_index(0), -180.0f);
	EXPECT_EQ(afl_alpha_of_index(160), -20.0f);
	EXPECT_EQ(afl_alpha_of_index(360), 0.0f);
	EXPECT_FLOAT_EQ(afl_alpha_of_index(561), 21.0f);
	EXPECT_EQ(afl_alpha_of_index(560), 20.0f);
	EXPECT_EQ(afl_alpha_of_index(720), 180.0f);
	for (int i = 0; i < 719; i++) EXPECT_NEAR(afl_index_of_alpha(afl_alpha_of_index(i)), (float)i, 1e-3f) << i;
	EXPECT_EQ(afl_index_of_alpha(180.0f), 719.0f);
	EXPECT_EQ(afl_index_of_alpha(-1000.0f), 0.0f);
}

TEST_F(Airfoils, LiftCurveMeetsItsParametersAtTheStalls)
{
	params(a);
	EXPECT_FLOAT_EQ(ret_cl(16.0f, &a, 0, 0), 1.6f);                       // at almax: Lstall
	EXPECT_NEAR(ret_cl(16.001f, &a, 0, 0), 1.6f - 0.2f, 1e-3f);          // a hair above: the drop
	EXPECT_FLOAT_EQ(ret_cl(-14.0f, &a, 0, 0), 2 * 0.2f - 1.6f + 0.2f);   // at almin: after the stall
	EXPECT_NEAR(ret_cl(-13.999f, &a, 0, 0), 2 * 0.2f - 1.6f, 1e-3f);
	EXPECT_FLOAT_EQ(ret_cl(20.0f, &a, 0, 0), 1.6f - 0.2f - 0.3f);
	EXPECT_FLOAT_EQ(ret_cl(3.0f, &a, 0, 0), 0.5f);                        // linear range
	EXPECT_NEAR(ret_cl(8.0f, &a, 0, 0), ret_cl(8.001f, &a, 0, 0), 1e-3f); // the ranges meet
	EXPECT_EQ(ret_cl(25.0f, &a, 0, 0), 0.0f);
	EXPECT_FLOAT_EQ(ret_cm(0.0f, &a), -0.05f);
	EXPECT_FLOAT_EQ(ret_cm(-16.0f, &a), -0.035f);
	EXPECT_EQ(ret_cm(30.0f, &a), 0.0f);
	// Least drag at the lift of least drag, less the bucket's depth at its centre.
	EXPECT_NEAR(ret_cd(0.0f, &a, 0, 0), 0.006f - 0.001f, 1e-6f);
	a.Bwidth = 0.0f;
	EXPECT_NEAR(ret_cd(0.0f, &a, 0, 0), 0.006f, 1e-6f);
	EXPECT_NEAR(ret_cd(10.0f, &a, 0, 0), 0.012f, 1e-6f);
}

TEST_F(Airfoils, GeneratedCircleEndsInAFlatPlate)
{
	params(a);
	gen_cl_cd_cm(&a, 0, 0);
	auto at = [&](float al, float* t) { return t[(int)std::lround(afl_index_of_alpha(al))]; };
	EXPECT_FLOAT_EQ(at(90.0f, a.cd[0][0]), 1.28f);
	EXPECT_FLOAT_EQ(at(-90.0f, a.cd[0][0]), 1.28f);
	EXPECT_FLOAT_EQ(at(45.0f, a.cl[0][0]), 1.17f);
	EXPECT_FLOAT_EQ(at(-45.0f, a.cl[0][0]), -1.17f);
	EXPECT_FLOAT_EQ(at(135.0f, a.cl[0][0]), -1.17f);
	EXPECT_FLOAT_EQ(at(-135.0f, a.cl[0][0]), 1.17f);
	EXPECT_FLOAT_EQ(a.cl[0][0][560], ret_cl(20.0f, &a, 0, 0));
	// Reversed flow: half the lift and four times the drag of the section the right way round.
	EXPECT_NEAR(at(175.0f, a.cl[0][0]), 0.5f * ret_cl(-5.0f, &a, 0, 0), 1e-5f);
	EXPECT_NEAR(at(175.0f, a.cd[0][0]), 4.0f * ret_cd(5.0f, &a, 0, 0), 1e-5f);
	// No jumps round the circle but the stall's own drop.
	for (int i = 1; i < afl_tab; i++) {
		const float a0 = afl_alpha_of_index(i - 1), a1 = afl_alpha_of_index(i);
		if (std::fabs(a1 - 16.1f) < 0.01f || std::fabs(a0 + 14.0f) < 0.01f) continue;   // the two stall breaks
		EXPECT_LT(std::fabs(a.cl[0][0][i] - a.cl[0][0][i - 1]), 0.12f) << afl_alpha_of_index(i);
		EXPECT_LT(std::fabs(a.cd[0][0][i] - a.cd[0][0][i - 1]), 0.06f) << afl_alpha_of_index(i);
		EXPECT_GE(a.cd[0][0][i], 0.0f);
	}
	a.clM[0][0] = 0.0f;   // a division by zero in the parameters
	EXPECT_THROW(gen_cl_cd_cm(&a, 0, 0), XFatalAlert);
	EXPECT_NE(last_alert_text.find("I have generated a NAN value"), std::string::npos);
}

TEST_F(Airfoils, ReadWriteReadGivesIdenticalTables)
{
	for (const auto& e : std::filesystem::directory_iterator(airfoils)) {
		std::memset(&a, 0, sizeof a);
		ASSERT_EQ(IO_afl(0, &a, 0, 0, e.path().c_str()), 700) << e.path();
		ASSERT_EQ(IO_afl(1, &a, 0, 0, (dir + "copy.afl").c_str()), 700);
		std::memset(&b, 0, sizeof b);
		ASSERT_EQ(IO_afl(0, &b, 0, 0, (dir + "copy.afl").c_str()), 700);
		EXPECT_EQ(std::memcmp(a.cl, b.cl, sizeof a.cl), 0);
		EXPECT_EQ(std::memcmp(a.cd, b.cd, sizeof a.cd), 0);
		EXPECT_EQ(std::memcmp(a.cm, b.cm, sizeof a.cm), 0);
		EXPECT_EQ(read_bytes(dir + "copy.afl"), read_bytes(e.path()));   // byte for byte
	}
}

TEST_F(Airfoils, OldParameterFilesAreReadAndTheirTablesGenerated)
{
	std::ofstream(dir + "old.afl") << "I\n363 version\n1234 device type code\n"
	                                  "OLDFOIL 0.12 3.0 -14 16 0.2 0.1 1.5 1.6 0.2 0.3 1.5 0.2 0.006 0.012 2.0 "
	                                  "-12 12 -0.02 -0.05 -0.05 -0.1 0.4 0.001 1.5 0.2\n";
	ASSERT_EQ(IO_afl(0, &a, 1, 1, (dir + "old.afl").c_str()), 363);
	EXPECT_FLOAT_EQ(a.mach_div[1], 0.75f);
	EXPECT_FLOAT_EQ(a.Llinrange, 10.0f);
	EXPECT_FLOAT_EQ(a.clM[1][1], 0.1f);
	EXPECT_FLOAT_EQ(a.Ldrop2, 0.3f);   // order: Ldrop2 before Lpowstl
	EXPECT_FLOAT_EQ(a.Dmin, 0.006f);   // and DminCL before Dmin
	EXPECT_FLOAT_EQ(a.cd[1][1][(int)afl_index_of_alpha(90.0f)], 1.28f);
	EXPECT_EQ(a.cl[0][0][400], 0.0f);  // other slots untouched
	std::ofstream(dir + "old613.afl") << "I\n613 version\n1234 device type code\n"
	                                     "X 0.12 3.0 -14 16 0.2 0.1 1.5 1.6 0.2 0.3 1.5 0.2 0.006 0.012 2.0 "
	                                     "-12 12 -0.02 -0.05 -0.05 -0.1 0.4 0.001 1.5 0.2\n0.81\n";
	ASSERT_EQ(IO_afl(0, &a, 0, 0, (dir + "old613.afl").c_str()), 613);
	EXPECT_FLOAT_EQ(a.mach_div[0], 0.81f);
}

TEST_F(Airfoils, ReynoldsBlendInterpolatesBetweenTheTwoTables)
{
	params(a);
	gen_cl_cd_cm(&a, 0, 0);
	b = a;
	a.clB[0][1] = 0.4f; a.clM[0][1] = a.clM[0][0]; a.almin[0][1] = a.almin[0][0]; a.almax[0][1] = a.almax[0][0];
	a.re_num[0][1] = 9.0f;
	gen_cl_cd_cm(&a, 0, 1);
	float cl, cd, cm;
	afl_re_blend(&a, 0, 6.0f, 2.0f, &cl, &cd, &cm);   // halfway between 3 and 9 million
	EXPECT_NEAR(cl, 0.5f * (0.4f + 0.6f), 1e-5f);
	afl_re_blend(&a, 0, 100.0f, 2.0f, &cl, &cd, &cm);   // held to the higher table
	EXPECT_NEAR(cl, 0.6f, 1e-5f);
	afl_re_blend(&a, 0, 0.1f, 2.0f, &cl, &cd, &cm);
	EXPECT_NEAR(cl, 0.4f, 1e-5f);
	a.re_num[0][1] = 3.0f;   // equal numbers: the mean, no division by zero
	afl_re_blend(&a, 0, 3.0f, 2.0f, &cl, &cd, &cm);
	EXPECT_NEAR(cl, 0.5f, 1e-5f);
}

TEST_F(Airfoils, TheAircraftsOwnAirfoilShadowsTheCommonOne)
{
	params(a);
	gen_cl_cd_cm(&a, 0, 0);
	afl_path = dir + "Airfoils:";
	std::filesystem::create_directories(dir + "Airfoils");
	std::filesystem::create_directories(dir + "Aircraft/Mine/airfoils");
	IO_afl(1, &a, 0, 0, (dir + "Airfoils:Same.afl").c_str());
	a.clB[0][0] = 0.5f;
	IO_afl(1, &a, 0, 0, (dir + "Aircraft:Mine:airfoils:Same.afl").c_str());
	std::snprintf(veh[0].path, 500, "%s", (dir + "Aircraft:Mine:Mine.acf").c_str());
	std::snprintf(veh[0].name, 500, "Mine.acf");
	load_foil_for_part("Same.afl", 0, 8, 1, 0);
	EXPECT_FLOAT_EQ(veh[0].afl[8].clB[1][0], 0.5f);
	load_foil_for_part("same.AFL", 0, 9, 0, 0);   // names match without regard to case
	EXPECT_FLOAT_EQ(veh[0].afl[9].clB[0][0], 0.5f);
	std::filesystem::remove(dir + "Aircraft/Mine/airfoils/Same.afl");
	load_foil_for_part("Same.afl", 0, 10, 0, 0);
	EXPECT_FLOAT_EQ(veh[0].afl[10].clB[0][0], 0.2f);
	EXPECT_THROW(load_foil_for_part("Nowhere.afl", 0, 11, 0, 0), XFatalAlert);
	EXPECT_NE(last_alert_text.find("Nowhere.afl"), std::string::npos);
}

TEST_F(Airfoils, BadFilesGiveTheAlertAndLeaveTheTablesAlone)
{
	params(a);
	gen_cl_cd_cm(&a, 0, 0);
	b = a;
	std::ofstream(dir + "no1234.afl") << "I\n700 version\n4321 device type code\n";
	EXPECT_THROW(IO_afl(0, &a, 0, 0, (dir + "no1234.afl").c_str()), XFatalAlert);
	EXPECT_NE(last_alert_text.find("This does not appear to be a valid Airfoil"), std::string::npos);
	std::ofstream(dir + "short.afl") << "I\n700 version\n1234 device type code\n3.0 0.12 0.72 0.1";
	EXPECT_THROW(IO_afl(0, &a, 0, 0, (dir + "short.afl").c_str()), XFatalAlert);
	EXPECT_NE(last_alert_text.find("File-scanning error!"), std::string::npos);
	EXPECT_NE(last_alert_text.find("short.afl"), std::string::npos);
	EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0);
	EXPECT_EQ(IO_afl(0, &a, 0, 0, (dir + "missing.afl").c_str()), 0);
	// A table with a negative drag is refused at load.
	a.cd[0][0][300] = -0.5f;
	IO_afl(1, &a, 0, 0, (dir + "Neg.afl").c_str());
	afl_path = dir;
	EXPECT_THROW(load_foil_for_part("Neg.afl", 0, 8, 0, 0), XFatalAlert);
	EXPECT_NE(last_alert_text.find("NEGATIVE DRAG"), std::string::npos);
	EXPECT_EQ(veh[0].afl[8].cd[0][0][300], 0.0f);
}

TEST_F(Airfoils, TruncatedAndFlippedFilesNeverCrashAReader)
{
	std::string good = read_bytes(airfoils + "Cambered 12 (wing).afl");
	ASSERT_GT(good.size(), 1000u);
	std::mt19937 rng(20261123);
	const std::string path = dir + "mutant.afl";
	int alerts = 0, reads = 0;
	for (int n = 0; n < 3000; n++) {
		std::string m = good;
		if (n % 3 == 0) m.resize(rng() % m.size());                      // truncated
		int flips = n % 3 == 0 ? 0 : 1 + (int)(rng() % 8);
		for (int k = 0; k < flips; k++) m[rng() % m.size()] = (char)(rng() & 255);   // corrupted
		if (n % 7 == 0 && m.size() > 40) m[40 + rng() % 20] = (char)("-e.9 \n"[rng() % 6]);   // numbers gone wrong
		std::ofstream(path, std::ios::binary) << m;
		b = a;
		try {
			if (IO_afl(0, &a, 0, 0, path.c_str())) reads++;
			for (int i = 0; i < afl_tab; i++) (void)check_nan(a.cl[0][0][i]);
		} catch (const XFatalAlert&) {
			alerts++;
			ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << "an alert left the tables changed, input " << n;
		}
	}
	EXPECT_GT(alerts, 100);
	EXPECT_GT(reads, 100);
	g_done = 0;
}
