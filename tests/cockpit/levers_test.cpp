// The panel's levers driven by the mouse, without a display: levers bound to engines, a drag
// over the middle of a group moving every engine's lever, the travel's ends holding, the
// speedbrake's detents, and a governed throttle setting the propeller too.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/gauges.h"
#include "cockpit/panel.h"
#include "aircraft/acf_io.h"
#include "render/ogl.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Levers : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		veh_struct& v = veh[0];
		for (int& t : v.ins_type) t = -1;
		v.num_engines = 2;
		v.engn_type[0] = v.engn_type[1] = 0;
		v.throt_max_FWD = 1.0f;
		mnw.menu_up = -1;
		mnw.win_x = mnw.win_y = 0;
		ins_size = 1.0f;
	}
	void TearDown() override
	{
		mnw.now_dragging = mnw.mouse_clicked = 0;
		ins_type = -1;
	}
	// A lever of this code at (x, y) in slot n, its travel 50 either side of its middle.
	void lever(int n, int code, float x, float y)
	{
		veh[0].ins_type[n] = code, veh[0].ins_x[n] = x, veh[0].ins_y[n] = y, veh[0].ins_size[n] = 1.0f;
		cus_dat_1[code] = -50.0f, cus_dat_2[code] = 50.0f;
	}
	// The mouse held down at (x, y) through one pass of the panel.
	void drag_at(int x, int y, bool first = false)
	{
		mnw.mx = x, mnw.my = y;
		mnw.now_dragging = 1;
		mnw.mouse_clicked = first;
		APPLICATION_update_panel();
	}
};

}  // namespace

TEST_F(Levers, TwoThrottlesOfOneEngineBothWorkIt)
{
	veh[0].num_engines = 1;
	lever(0, 47, 300, 200);
	lever(1, 47, 400, 200);
	panel_equipment(veh[0]);
	drag_at(400, 250, true);   // the top of the second lever's travel
	EXPECT_FLOAT_EQ(flt[0].CONT_thro_ref[0], 1.0f);
	EXPECT_FLOAT_EQ(flt[0].CONT_thro_ref[1], 0.0f);
}

TEST_F(Levers, ADragOverTheMiddleOfAGroupMovesEveryEngine)
{
	lever(0, 47, 300, 200);
	lever(1, 47, 340, 200);
	panel_equipment(veh[0]);
	EXPECT_FLOAT_EQ(stg.thro_x_ctr, 320.0f);
	drag_at(320, 225, true);   // three quarters up, between the two
	EXPECT_GT(flt[0].CONT_thro_ref[0], 0.5f);
	EXPECT_FLOAT_EQ(flt[0].CONT_thro_ref[0], flt[0].CONT_thro_ref[1]);
	// On one lever alone only its engine moves.
	drag_at(300, 160);
	EXPECT_LT(flt[0].CONT_thro_ref[0], 0.5f);
	EXPECT_GT(flt[0].CONT_thro_ref[1], 0.5f);
	// The mixture group the same way, round its own middle.
	lever(2, 51, 500, 200);
	lever(3, 51, 540, 200);
	panel_equipment(veh[0]);
	drag_at(520, 200, true);
	EXPECT_NEAR(flt[0].CONT_mixt[0], 0.5f, 1e-5f);
	EXPECT_NEAR(flt[0].CONT_mixt[1], 0.5f, 1e-5f);
}

TEST_F(Levers, ADragPastTheTravelHoldsAtItsEnd)
{
	lever(0, 51, 300, 200);
	drag_at(300, 258, true);   // 8 past the top
	EXPECT_FLOAT_EQ(flt[0].CONT_mixt[0], 1.0f);
	drag_at(300, 142);   // 8 below the foot
	EXPECT_FLOAT_EQ(flt[0].CONT_mixt[0], 0.0f);
	drag_at(300, 230);
	flt[0].CONT_mixt[0] = 0.3f;
	drag_at(300, 300);   // well away from the lever: it stays
	EXPECT_FLOAT_EQ(flt[0].CONT_mixt[0], 0.3f);
	drag_at(360, 230);
	EXPECT_FLOAT_EQ(flt[0].CONT_mixt[0], 0.3f);
}

TEST_F(Levers, TheSpeedbrakeStopsAtHalves)
{
	lever(0, 56, 300, 200);
	drag_at(300, 180, true);   // 0.55 of the way from armed (top) to full (foot)
	EXPECT_FLOAT_EQ(flt[0].sbrk_rqst, 0.5f);
	drag_at(300, 205);
	EXPECT_FLOAT_EQ(flt[0].sbrk_rqst, 0.0f);
	drag_at(300, 250);   // armed only where the aircraft can arm it
	EXPECT_FLOAT_EQ(flt[0].sbrk_rqst, 0.0f);
	veh[0].sbrk_on_td_EQ = 1;
	drag_at(300, 250);
	EXPECT_FLOAT_EQ(flt[0].sbrk_rqst, -0.5f);
	drag_at(300, 150);
	EXPECT_FLOAT_EQ(flt[0].sbrk_rqst, 1.0f);
}

TEST_F(Levers, AGovernedThrottleSetsThePropellerToo)
{
	veh_struct& v = veh[0];
	v.num_engines = 1;
	v.auto_rpm_EQ = 1;
	v.prop_type[0] = 1;
	v.auto_omega_idle = 1000.0f, v.auto_omega_open = 2000.0f, v.auto_omega_fire = 2700.0f;
	v.RSC_mingreen_ENGN = 1000.0f, v.RSC_mingreen_PROP = 1000.0f, v.RSC_redline_PROP = 2700.0f;
	lever(0, 47, 300, 200);
	// Half way to the throttle's full opening: throttle half, propeller at the middle of idle to open.
	const float open_at = 1000.0f / 1700.0f;
	drag_at(300, (int)std::lround(150 + 100 * open_at * 0.5f), true);
	EXPECT_NEAR(flt[0].CONT_thro_ref[0], 0.5f, 0.02f);
	EXPECT_NEAR(flt[0].CONT_prop_rsc[0], 1500.0f, 20.0f);
	drag_at(300, 250);   // full: throttle open, propeller at fire speed
	EXPECT_FLOAT_EQ(flt[0].CONT_thro_ref[0], 1.0f);
	EXPECT_NEAR(flt[0].CONT_prop_rsc[0], 2700.0f, 1.0f);
}
