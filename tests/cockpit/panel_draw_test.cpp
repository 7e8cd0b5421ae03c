// An instrument's moving layer drawn by the pass's overlay: the frame it asks for out of a
// film strip, centred on the slot, pixel for pixel when upright and turned clockwise when
// rotated, at the slot's scale.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "support/images.h"
#include <GL/gl.h>
#include <filesystem>
#include <gtest/gtest.h>

using namespace test_images;

namespace {

struct Overlay : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	std::vector<unsigned char> px;
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		zero_all_records();
		init_tables();
		ASSERT_TRUE(plat_offscreen_open(1024, 768)) << plat_offscreen_error();
		for (int& t : o_tex) t = -1;
		num_texes = 0;
		OGL_report_situation();
		OGL_init_state();
		OGL_assign_start_colours();
		OGL_set_panel_space(1024, 768);
		r_manual_lighting = g_manual_lighting = b_manual_lighting = 1.0f;
		app_path = dir;
		bmp_path = dir + "Resources/bitmaps/";
		std::snprintf(veh[0].path, sizeof veh[0].path, "%sPlane/Plane.acf", dir.c_str());
		for (int& t : veh[0].ins_type) t = -1;
		// The turn needle's layer 1: a strip of two frames 40 by 20, the first red on its left
		// and blue on its right, the second green.
		picture strip{80, 20, std::vector<rgba>(80 * 20)};
		for (int y = 0; y < 20; y++)
			for (int x = 0; x < 80; x++) strip.at(x, y) = x < 20 ? rgba{255, 0, 0, 255} : x < 40 ? rgba{0, 0, 255, 255} : rgba{0, 255, 0, 255};
		std::string p = dir + "Plane/" + ins_layer_path(101, 1);
		for (char& c : p)
			if (c == ':') c = '/';
		std::filesystem::create_directories(std::filesystem::path(p).parent_path());
		ASSERT_TRUE(write_png(p, strip, png_rgba, 0.0));
		veh[0].ins_type[0] = 101;
		load_panel_for_plane();
		ins_index = 0;
		ins_type = 101;
		mnw.win_x = 300;
		mnw.win_y = 200;
	}
	void TearDown() override
	{
		ins_size = 1.0f;
		plat_offscreen_close();
	}
	void draw(float ang, int val, int rotated)
	{
		glClearColor(0, 0, 0, 1);
		glClear(GL_COLOR_BUFFER_BIT);
		OGL_viewport(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f);
		plot_ins_overlay(0, 0, ang, val, 2, 0, rotated, 1);
		glFinish();
		px.assign((size_t)1024 * 768 * 4, 0);
		glPixelStorei(GL_PACK_ALIGNMENT, 1);
		glReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	}
	// The box of pixels whose channel c is lit.
	void box(int c, int* x1, int* y1, int* x2, int* y2) const
	{
		*x1 = *y1 = 1 << 30;
		*x2 = *y2 = -1;
		for (int y = 0; y < 768; y++)
			for (int x = 0; x < 1024; x++)
				if (px[((size_t)y * 1024 + x) * 4 + c] > 128) {
					*x1 = std::min(*x1, x);
					*y1 = std::min(*y1, y);
					*x2 = std::max(*x2, x);
					*y2 = std::max(*y2, y);
				}
	}
};

}  // namespace

TEST_F(Overlay, AFrameOfTheStripLandsOnItsSlotUprightTurnedOrScaled)
{
	int x1, y1, x2, y2;
	ins_size = 1.0f;
	draw(0, 1, 0);   // the second frame, upright: 40 by 20 about (300, 200), pixel for pixel
	box(1, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x1, 280);
	EXPECT_EQ(x2, 319);
	EXPECT_EQ(y1, 190);
	EXPECT_EQ(y2, 209);
	box(0, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x2, -1);   // none of the first frame
	draw(0, 7, 0);   // a frame past the strip: the last
	box(1, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x2, 319);
	draw(90, 0, 1);   // the first frame turned a quarter clockwise: its left (red) half on top
	box(0, &x1, &y1, &x2, &y2);
	EXPECT_NEAR(x1, 290, 1);
	EXPECT_NEAR(x2, 309, 1);
	EXPECT_NEAR(y1, 200, 1);
	EXPECT_NEAR(y2, 219, 1);
	box(2, &x1, &y1, &x2, &y2);
	EXPECT_NEAR(y1, 180, 1);
	EXPECT_NEAR(y2, 199, 1);
	ins_size = 0.5f;   // a slot at half size: half the frame, about the same centre
	draw(0, 1, 0);
	box(1, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x2 - x1 + 1, 20);
	EXPECT_EQ(y2 - y1 + 1, 10);
	EXPECT_NEAR((x1 + x2) * 0.5, 299.5, 1.0);
	// A switch thrown from outside draws nothing, where the panel's own call shows its frame.
	ins_size = 1.0f;
	glClear(GL_COLOR_BUFFER_BIT);
	update_dashbool(29, 0);
	glFinish();
	glReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	box(0, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x2, -1);
	box(1, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x2, -1);
	mnw.menu_up = -1;
	ins_type = 29;   // the battery switch on this slot: on, so its second frame
	update_dashbool(-1, 0);
	glFinish();
	glReadPixels(0, 0, 1024, 768, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	box(1, &x1, &y1, &x2, &y2);
	EXPECT_EQ(x1, 280);
	EXPECT_EQ(stg.battery, 1);
	const int alerts = alert_count;
	plot_ins_overlay(0, 0, 0, 0, 1, 0, 0, 5);   // no layer 5
	EXPECT_EQ(alert_count, alerts + 1);
}
