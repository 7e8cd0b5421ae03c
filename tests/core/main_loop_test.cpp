#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "platform/plat_headless.h"
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <vector>
#include <sstream>
#include <string>

namespace {

struct Headless : ::testing::Test {
	std::string tree = std::string(NIMBARA_TEST_TREE) + "/" +
	                   ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	// A tree of the test's own, with the built data tree's resources.
	void make_tree()
	{
		std::filesystem::create_directories(tree);
		for (const char* folder : {"Resources", "Aircraft", "Airfoils"})
			std::filesystem::copy(std::string(NIMBARA_DATA_TREE) + "/" + folder, tree + folder,
			                      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
	}
	void boot(double frame_sec, int hold_paint)
	{
		make_tree();
		HEADLESS_setup(frame_sec, hold_paint, tree.c_str());
		init_sim();
	}
	void passes(int n) { for (int k = 0; k < n; k++) MACIBM_event_proc(); }
	std::string read(const char* name)
	{
		std::ifstream in(tree + name);
		std::stringstream ss;
		ss << in.rdbuf();
		return ss.str();
	}
};

}  // namespace

TEST_F(Headless, StartUpShowsItsStagesInOrderAndOpensTheLogs)
{
	boot(0.02, 0);
	const char* want[] = {"Will init gen.", "Will init graphics world.", "Will init graphics world.",
	                      "Will init graphics world.", "Will init hardware out.", "Will read logbook.",
	                      "Will load your plane.", "Will read nav data.", "Will init flight 0."};
	std::vector<std::string> stages;   // the stages, between them the bitmaps loading
	for (int n = 0; n < HEADLESS_num_showinit(); n++)
		if (std::string(HEADLESS_showinit_line(n)).rfind("Loading bitmap ", 0) != 0) stages.emplace_back(HEADLESS_showinit_line(n));
	ASSERT_EQ(stages.size(), 9u);
	for (int n = 0; n < 9; n++) EXPECT_EQ(stages[n], want[n]);
	for (const char* f : {"Error.out", "Data.out", "Nimbara.out"})
		EXPECT_TRUE(std::filesystem::exists(tree + f)) << f;
	EXPECT_FLOAT_EQ(con.g, 9.7982788f);
	EXPECT_EQ(mnw.first_miss_cycle, 1);
	MACIBM_finishup(1);
}

TEST_F(Headless, PassesBeforeTheFirstPaintRunNoMath)
{
	boot(0.02, 1);
	flt[0].dob_y = 1000.0;
	passes(20);
	EXPECT_EQ(HEADLESS_num_swaps(), 0);
	EXPECT_EQ(mnw.totl_time, 0.0f);
	EXPECT_EQ(flt[0].dob_y, 1000.0);
	EXPECT_EQ(mnw.top_win, 0);   // the pass still leaves the start-up state
	HEADLESS_deliver_first_paint();
	passes(20);
	EXPECT_EQ(HEADLESS_num_swaps(), 20);
	EXPECT_NEAR(mnw.totl_time, 20 * 0.02f, 0.01f);   // the period has begun to adapt
	EXPECT_EQ(mnw.first_miss_cycle, 0);
	MACIBM_finishup(1);
}

TEST_F(Headless, TheFlightModelPeriodSettlesOnTheFrameTime)
{
	boot(0.02, 0);
	passes(1000);
	EXPECT_NEAR(mnw.prd_FM, 0.02f, 0.0005f);
	MACIBM_finishup(1);
}

TEST_F(Headless, SlowFramesHoldThePeriodAtItsCeilingAndSlowSimulatedTime)
{
	boot(0.2, 0);
	passes(200);
	EXPECT_FLOAT_EQ(mnw.rt_rat_FM, 1.5f);
	EXPECT_FLOAT_EQ(mnw.prd_FM, 0.08f);
	const float t0 = mnw.totl_time, r0 = mnw.real_time;
	passes(100);
	EXPECT_NEAR((mnw.totl_time - t0) / (mnw.real_time - r0), 0.4f, 1e-3f);   // 0.08 of every 0.2 s
	MACIBM_finishup(1);
}

TEST_F(Headless, ASettingsWindowKeepsThePeriodFromJumpingOnReturn)
{
	boot(0.02, 0);
	passes(100);
	mnw.top_win = 7;
	const float t0 = mnw.totl_time;
	passes(500);
	EXPECT_NEAR(last_time_FM, mnw.real_time, 1e-5f);
	EXPECT_EQ(t0, mnw.totl_time);   // no flight while the window is up
	mnw.top_win = 0;
	passes(30);
	EXPECT_NEAR(mnw.prd_FM, 0.02f, 0.002f);
	MACIBM_finishup(1);
}

TEST_F(Headless, TimerFlagsFireAtTheirPeriods)
{
	boot(0.02, 0);
	int count[9] = {};
	const int n = 3000;   // 60 s of 0.02 s frames
	for (int k = 0; k < n; k++) {
		MACIBM_event_proc();
		const int flags[9] = {mnw.puff01, mnw.puff02, mnw.puff05, mnw.puff1, mnw.puff2,
		                      mnw.puff5, mnw.puff10, mnw.puff20, mnw.puff40};
		for (int f = 0; f < 9; f++) count[f] += flags[f];
	}
	// A flag fires on the first pass more than its period after the last firing: its
	// period is a lower bound, and the frame rounds it up by at most one frame.
	const float period[9] = {10, 5, 2, 1, 0.5f, 0.2f, 0.1f, 0.05f, 0.025f};
	for (int f = 0; f < 9; f++) {
		EXPECT_LE(count[f], 60.0f / period[f] + 1.0f) << "flag " << f;
		EXPECT_GE(count[f], 60.0f / (period[f] + 0.02f) - 1.0f) << "flag " << f;
	}
	MACIBM_finishup(1);

	boot(0.05, 0);   // at 20 frames a second puff40 fires on every pass
	int fired = 0;
	for (int k = 0; k < 400; k++) { MACIBM_event_proc(); fired += mnw.puff40; }
	EXPECT_EQ(fired, 398);   // every pass once the clock runs: the flags read the previous pass's time
	MACIBM_finishup(1);
}

TEST_F(Headless, AMissingInterfaceSheetIsFatalAndReported)
{
	make_tree();
	std::filesystem::remove(tree + "Resources/bitmaps/interface.png");
	HEADLESS_setup(0.02, 0, tree.c_str());
	EXPECT_EQ(WinMain(), 1);
	EXPECT_EQ(HEADLESS_num_swaps(), 0);
	std::string err = read("Error.out");
	EXPECT_NE(err.find("I cannot open the graphics interface file!"), std::string::npos);
	EXPECT_NE(err.find("Abnormal exit."), std::string::npos);
}

TEST_F(Headless, ALongRunStaysFinite)
{
	boot(0.05, 0);
	veh[0].m_empty = 1000.0f;
	veh[0].Jxx_unitmass = veh[0].Jyy_unitmass = veh[0].Jzz_unitmass = 2.0f;
	flt[0].P = 3.0f; flt[0].Q = -2.0f; flt[0].R = 1.0f;
	flt[0].vx = 10.0f;
	passes(5000);
	const float vals[] = {flt[0].vx, flt[0].vy, flt[0].vz, flt[0].phi, flt[0].the, flt[0].psi,
	                      flt[0].alpha, flt[0].beta, mnw.prd_FM, mnw.totl_time};
	for (float v : vals) EXPECT_TRUE(std::isfinite(v));
	EXPECT_TRUE(std::isfinite(flt[0].dob_lat) && std::isfinite(flt[0].dob_lon));
	MACIBM_finishup(1);
}

namespace {
void terminate_at_pass_50(int pump)
{
	if (pump == 50) std::raise(SIGTERM);
}
}

TEST_F(Headless, SigtermEndsTheLoopThroughTheNormalFinish)
{
	make_tree();
	HEADLESS_setup(0.02, 0, tree.c_str());
	HEADLESS_on_message_pump(terminate_at_pass_50);
	EXPECT_EQ(WinMain(), 0);
	EXPECT_EQ(g_done, 1);
	EXPECT_EQ(HEADLESS_num_swaps(), 51);   // the pass that takes the signal still completes
	EXPECT_NE(read("Error.out").find("Normal exit."), std::string::npos);
	EXPECT_FALSE(xer.is_open());
}
