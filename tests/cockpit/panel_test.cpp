// The panel's framework without a display: gauge angles against values worked by hand, the
// engines dealt to gauges, the instruments' text files, and a panel composed from files of
// our own: its heights when taller than the window, and a plate where its slot says.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "render/ogl.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "support/images.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace test_images;

namespace {

struct Panel : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir + "Plane/cockpit/-PANELS-");
		zero_all_records();
		app_path = dir;
		bmp_path = dir + "Resources/bitmaps/";
		std::snprintf(veh[0].path, sizeof veh[0].path, "%sPlane/Plane.acf", dir.c_str());
		for (int& t : veh[0].ins_type) t = -1;
		mnw.y_res_now = 768;
		mnw.x_res_now = 1024;
		mnw.xy_scale = 1.0f;
	}
	// A file beside the aircraft, below its cockpit folder.
	std::string own(const std::string& sub) const
	{
		std::string p = dir + "Plane/" + sub;
		for (char& c : p)
			if (c == ':') c = '/';
		std::filesystem::create_directories(std::filesystem::path(p).parent_path());
		return p;
	}
	static picture solid(int w, int h, rgba c)
	{
		picture p{w, h, std::vector<rgba>((size_t)w * h, c)};
		return p;
	}
	const unsigned char* panel_px(int view, int x, int y_from_bottom) const { return &cockpit_array[view][((size_t)y_from_bottom * 1024 + x) * 4]; }
};

}  // namespace

TEST_F(Panel, GaugeAnglesAreClampedLinearOrTwiceAsFineInTheMiddle)
{
	EXPECT_FLOAT_EQ(val_to_ang(-1, 0, -135, 200, 135, 0, 100), 0.0f);
	EXPECT_FLOAT_EQ(val_to_ang(-1, 0, -135, 200, 135, 0, 250), 135.0f);   // past the top: clamped
	EXPECT_FLOAT_EQ(val_to_ang(-1, 0, -135, 200, 135, 0, -9), -135.0f);
	EXPECT_FLOAT_EQ(val_to_ang(-1, 50, 10, 50, 30, 0, 7), 20.0f);   // equal ends: the middle of the angles
	// A vertical-speed face of -2000..2000 ft/min over -90..90 degrees, the middle +-1000 at
	// twice the resolution: 0.06 degrees a foot a minute inside, 0.03 outside.
	veh_struct& v = veh[0];
	v.cus_rnd_use[3] = v.cus_non_lin[3] = 1;
	v.cus_rnd_lo_val[3] = -2000;
	v.cus_rnd_hi_val[3] = 2000;
	v.cus_doub_val[3] = 1000;
	const float worked[][2] = {{0, 0}, {500, 30}, {1000, 60}, {1500, 75}, {2000, 90}, {3000, 90}, {-1500, -75}, {-1000, -60}};
	for (const auto& w : worked) EXPECT_NEAR(val_to_ang(3, -2000, -90, 2000, 90, 0, w[0]), w[1], 1e-3) << w[0];
	// Twin gauges point at each other: the odd engine's is mirrored.
	v.cus_rnd_mirror[3] = 1;
	EXPECT_NEAR(val_to_ang(3, -2000, -90, 2000, 90, 1, 500), -30.0f, 1e-3);
	EXPECT_NEAR(val_to_ang(3, -2000, -90, 2000, 90, 2, 500), 30.0f, 1e-3);
}

TEST_F(Panel, EachGaugeOfAKindTakesTheNextEngineThatSuitsIt)
{
	veh_struct& v = veh[0];
	v.num_engines = 3;
	v.engn_type[0] = 0;   // a piston
	v.engn_type[1] = 4;   // a jet: no propeller shaft, no manifold
	v.engn_type[2] = 2;   // a free turbine
	int rpm = -1, mp = -1, n1 = -1;
	ins_type = 294;   // propeller RPM
	EXPECT_EQ(get_next_eng(&rpm), 0);
	EXPECT_EQ(get_next_eng(&rpm), 2);
	EXPECT_EQ(get_next_eng(&rpm), 0);
	ins_type = 296;   // manifold pressure: pistons only
	EXPECT_EQ(get_next_eng(&mp), 0);
	EXPECT_EQ(get_next_eng(&mp), 0);
	ins_type = 295;   // N1: any engine
	EXPECT_EQ(get_next_eng(&n1), 0);
	EXPECT_EQ(get_next_eng(&n1), 1);
	EXPECT_EQ(get_next_eng(&n1), 2);
	v.engn_type[0] = v.engn_type[2] = 5;
	ins_type = 296;
	EXPECT_EQ(get_next_eng(&mp), 0);   // none suits: engine 0
	ins_type = -1;
}

TEST_F(Panel, SpecFilesReadTheirNumbersPastCommentsAndMissingLinesLeaveZeros)
{
	// Propeller RPM, two lines: one with a comment, one of letters.
	std::ofstream(own(std::string(ins_path[294]).replace(std::string(ins_path[294]).size() - 4, 4, ".txt")))
	    << "A\n750\n 500 2700 the green arc, rpm\nred line here\n";
	// The altimeter's tape: two masks of five numbers.
	std::ofstream(own(std::string(ins_path[94]).replace(std::string(ins_path[94]).size() - 4, 4, ".txt")))
	    << "I\n750\n10 246 0 1000 3 first\n12 250 0 10000 4\n";
	// A drum counter of the glass altitude tape: four rows, then its ticks.
	std::ofstream(own(std::string(ins_path[171]).replace(std::string(ins_path[171]).size() - 4, 4, ".txt")))
	    << "A\n750\n1 2 3 4\n5 6 7 8\n9 10 11 12\n13 14 15 16\n20\n5\n2\n0.5\n";
	cus_dat_4[294] = 99.0f;   // left from an earlier aircraft
	init_tapes_specs();
	EXPECT_EQ(cus_dat_1[294], 500.0f);
	EXPECT_EQ(cus_dat_2[294], 2700.0f);
	EXPECT_EQ(cus_dat_3[294], 0.0f);
	EXPECT_EQ(cus_dat_4[294], 0.0f);
	EXPECT_EQ(cus_dat_1[295], 0.0f);   // no file: zeros
	EXPECT_EQ(t_bot_tape[0][6], 10.0f);
	EXPECT_EQ(v_top_tape[1][6], 10000.0f);
	EXPECT_EQ(misc1_tape[1][6], 4.0f);
	EXPECT_EQ(t_top_scroll[3][10], 16.0f);
	EXPECT_EQ(sma_tic_scroll[10], 20.0f);
	EXPECT_EQ(big_tic_scroll[10], 5);
	EXPECT_EQ(num_mod_scroll[10], 2);
	EXPECT_EQ(scale_scroll[10], 0.5f);
	// A file of the wrong version is not read.
	std::ofstream(own(std::string(ins_path[294]).replace(std::string(ins_path[294]).size() - 4, 4, ".txt"))) << "A\n700\n1 2\n";
	init_tapes_specs();
	EXPECT_EQ(cus_dat_1[294], 0.0f);
}

// A panel 1024 high in a 768-high window: everything lifts by 256 and the panel scrolls
// down to show its top. The plate lands centred on its slot, the windscreen stays clear.
TEST_F(Panel, ATallPanelLiftsItsSlotsAndEachPlateLandsOnItsSlot)
{
	picture back = solid(1024, 1024, {40, 60, 80, 255});
	for (int y = 0; y < 200; y++)
		for (int x = 0; x < 1024; x++) back.at(x, y) = {255, 0, 255, 255};   // the windscreen, at the top
	ASSERT_TRUE(write_png(own("cockpit:-PANELS-:panel.png"), back, png_rgb, 0.0));
	ASSERT_TRUE(write_png(own(ins_path[101]), solid(64, 48, {250, 10, 10, 255}), png_rgb, 0.0));   // the turn needle's plate
	veh_struct& v = veh[0];
	v.ins_type[7] = 101;
	v.ins_x[7] = 300;
	v.ins_y[7] = 200;
	v.ins_size[7] = 1.0f;
	v.ins_type[8] = 166;   // a glass element: no plate of its own
	v.ins_x[8] = 600;
	v.ins_y[8] = 200;
	v.ins_size[8] = 1.0f;
	v.HUD_ctr_y[0] = 500;
	v.big_panel_pix_default = 100;
	v.ins_type[9] = 101;   // off the panel, at no size: skipped, never a crash
	v.ins_x[9] = -5000;
	v.ins_y[9] = 90000;
	v.ins_size[9] = -1.0f;
	v.ins_type[10] = 102;   // a plate that is no picture: said, with its path
	v.ins_x[10] = 800;
	v.ins_y[10] = 100;
	v.ins_size[10] = 1.0f;
	std::ofstream(own(ins_path[102]), std::ios::binary) << "\x89PNG\r\n\x1a\n garbage";
	const int alerts = alert_count;
	load_panel_for_plane();
	EXPECT_EQ(alert_count, alerts + 1);
	EXPECT_EQ(ren.view_bmp_avail[0], 0);
	EXPECT_EQ(os_y_from_PM_coords, 256.0f);
	EXPECT_EQ(mnw.look_up_UP[0], 256.0f);
	EXPECT_EQ(mnw.look_up_CTR[0], 156.0f);
	EXPECT_EQ(mnw.look_up_DN[0], 0.0f);
	EXPECT_EQ(v.ins_y[7], 456.0f);
	EXPECT_EQ(v.HUD_ctr_y[0], 756.0f);
	EXPECT_EQ(mnw.look_up, 156.0f);
	// The plate, 64 by 48, centred on (300, 456); the background round it.
	EXPECT_GT(panel_px(0, 300, 456)[0], 240);
	EXPECT_GT(panel_px(0, 269, 433)[0], 240);
	EXPECT_GT(panel_px(0, 330, 478)[0], 240);
	EXPECT_LT(panel_px(0, 300, 485)[0], 100);
	EXPECT_LT(panel_px(0, 260, 456)[0], 100);
	EXPECT_EQ(panel_px(0, 600, 456)[0], panel_px(0, 700, 456)[0]);   // nothing at the glass element's slot
	EXPECT_EQ(panel_px(0, 500, 900)[3], 0);     // the windscreen: see-through
	EXPECT_EQ(panel_px(0, 500, 100)[3], 255);   // the panel: solid
	// Views with no bitmap of their own are empty.
	EXPECT_EQ(panel_px(2, 500, 100)[3], 0);
}

// An aircraft with its own panel bitmap shows it as it is: no plates are laid on it.
TEST_F(Panel, AnOwnPanelBitmapTakesNoPlatesAndBadSlotsAreSkipped)
{
	ASSERT_TRUE(write_png(dir + "Plane/Plane_panel.png", solid(1024, 768, {90, 90, 90, 255}), png_rgb, 0.0));
	ASSERT_TRUE(write_png(own(ins_path[101]), solid(64, 48, {250, 10, 10, 255}), png_rgb, 0.0));
	veh_struct& v = veh[0];
	v.ins_type[0] = 101;
	v.ins_x[0] = 300;
	v.ins_y[0] = 200;
	v.ins_size[0] = 1.0f;
	v.ins_type[1] = 101;   // off the panel, and at no size
	v.ins_x[1] = -5000;
	v.ins_y[1] = 90000;
	v.ins_size[1] = 0.0f;
	v.ins_type[2] = 7000;   // no such code
	load_panel_for_plane();
	EXPECT_EQ(ren.view_bmp_avail[0], 1);
	EXPECT_LT(panel_px(0, 300, 200)[0], 150);
	const int alerts = alert_count;
	APPLICATION_update_panel();   // the pass walks them all, and says once that 7000 is no instrument
	EXPECT_EQ(alert_count, alerts + 1);
	EXPECT_EQ(ins_size, 1.0f);
}
