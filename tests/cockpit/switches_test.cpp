// The panel's controls without a display: hit boxes relative to the instrument and scaled with
// it, toggles, selectors and their walks, the starter key, knobs that wrap or stop, the two
// halves of a knob's box, and a switch thrown from outside.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "render/ogl.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <gtest/gtest.h>

namespace {

struct Controls : ::testing::Test {
	void SetUp() override
	{
		zero_all_records();
		mnw.menu_up = -1;
		mnw.prd_FM = 0.05f;
		veh[0].num_engines = 1;
		ins_index = 0;
		ins_size = 1.0f;
		mnw.win_x = 300;
		mnw.win_y = 200;
	}
	void TearDown() override
	{
		ins_size = 1.0f;
		ins_type = -1;
	}
	// A click at (dx, dy) from the instrument's centre, then the code's routine.
	void click(int code, int dx, int dy, int en = 0)
	{
		ins_type = code;
		mnw.mx = mnw.win_x + dx;
		mnw.my = mnw.win_y + dy;
		mnw.mouse_clicked = 1;
		if (code == 42 || code == 41 || code == 500) update_rhe(0, 0, code);
		else update_dashbool(-1, en);
		mnw.mouse_clicked = 0;
	}
};

}  // namespace

TEST_F(Controls, AToggleFlipsOnAClickInItsBoxAndNotJustOutside)
{
	click(29, 0, 0);
	EXPECT_EQ(stg.battery, 1);
	EXPECT_EQ(mnw.cursor_type, 10);
	click(29, 12, -12);   // the box's corner: limits count
	EXPECT_EQ(stg.battery, 0);
	click(29, 13, 0);
	click(29, 0, -13);
	EXPECT_EQ(stg.battery, 0);
	ins_size = 0.5f;   // half the switch, half the box
	click(29, 6, 6);
	EXPECT_EQ(stg.battery, 1);
	click(29, 7, 0);
	EXPECT_EQ(stg.battery, 1);
	ins_size = 1.0f;
	mnw.menu_up = 3;   // with a menu open nothing answers
	click(29, 0, 0);
	EXPECT_EQ(stg.battery, 1);
}

TEST_F(Controls, SelectorsStopAtTheirEndsAndTheFuelSelectorWalksItsOrder)
{
	for (int k = 0; k < 3; k++) click(26, 5, 5);   // upper right: up
	EXPECT_EQ(nav.RMIsel, 1);
	for (int k = 0; k < 3; k++) click(26, -5, -5);
	EXPECT_EQ(nav.RMIsel, 0);
	const int walk[5] = {1, 4, 2, 2, 2};
	for (int want : walk) {
		click(394, 5, 5);
		EXPECT_EQ(stg.fuel_tank_sel, want);
	}
	click(394, -5, -5);
	EXPECT_EQ(stg.fuel_tank_sel, 4);
	click(394, -5, -5);
	EXPECT_EQ(stg.fuel_tank_sel, 1);
}

TEST_F(Controls, ATurbinesStarterKeySkipsTheMagnetos)
{
	veh[0].engn_type[0] = 2;
	click(34, 5, 5);
	EXPECT_EQ(flt[0].CONT_ignition[0], 3);
	click(34, -5, -5);
	EXPECT_EQ(flt[0].CONT_ignition[0], 0);
	veh[0].engn_type[0] = 0;   // a piston: off, right, left, both
	click(34, 5, 5);
	EXPECT_EQ(flt[0].CONT_ignition[0], 1);
	click(34, 5, 5);
	EXPECT_EQ(flt[0].CONT_ignition[0], 2);
}

TEST_F(Controls, KnobsWrapAtAFullTurnOrStopAtTheirEnds)
{
	nav.OBS_mag[0] = 359.5f;
	click(42, 5, 5);
	EXPECT_NEAR(nav.OBS_mag[0], 0.5f, 1e-4);
	click(42, -5, -5);
	EXPECT_NEAR(nav.OBS_mag[0], 359.5f, 1e-4);
	nav.baro_setting_HG = 34.995f;
	click(41, 5, 5);
	EXPECT_FLOAT_EQ(nav.baro_setting_HG, 35.0f);
	ren.ins_brt = 0.15f;
	click(500, -5, -5);
	EXPECT_FLOAT_EQ(ren.ins_brt, 0.1f);
	// Held: the rate a second once the press has lasted.
	nav.OBS_mag[0] = 10.0f;
	ins_type = 42;
	mnw.mx = mnw.win_x + 5;
	mnw.my = mnw.win_y + 5;
	mnw.delay_dragging = 1;
	update_rhe(0, 0, 42);
	EXPECT_NEAR(nav.OBS_mag[0], 10.0f + 30.0f * 0.05f, 1e-4);
}

TEST_F(Controls, AKnobsBoxTurnsDownOnItsLowerLeftAndNotOnTheDiagonal)
{
	ins_type = 42;
	mnw.mouse_clicked = 1;
	auto at = [&](int dx, int dy, int type) {
		mnw.mx = mnw.win_x + dx;
		mnw.my = mnw.win_y + dy;
		return but_scroll(type, 0, 0, 10, 1, 0, 0);
	};
	EXPECT_EQ(at(-5, -2, 0), -1.0f);
	EXPECT_EQ(at(4, 1, 0), 1.0f);
	EXPECT_EQ(at(5, -5, 0), 0.0f);   // on the diagonal
	EXPECT_EQ(at(3, -4, 1), -1.0f);   // up-down rocker: below the middle
	EXPECT_EQ(at(3, 4, 1), 1.0f);
	EXPECT_EQ(at(-1, 9, 2), -1.0f);   // left-right rocker
	EXPECT_EQ(at(11, 0, 2), 0.0f);   // outside
	EXPECT_EQ(mnw.cursor_type, 8);   // left as the last inside set it
	ins_size = 2.0f;   // twice the knob: the offsets are the panel's own pixels
	EXPECT_EQ(at(-10, -4, 0), -1.0f);
	EXPECT_EQ(at(20, 2, 2), 1.0f);
	EXPECT_EQ(mnw.cursor_type, 9);
}

TEST_F(Controls, ASwitchThrownFromOutsideActsAndRestoresTheInstrument)
{
	ins_type = 101;
	update_dashbool(1, 0);   // the landing light, as a key throws it
	EXPECT_EQ(flt[0].lan_lite, 1);
	EXPECT_EQ(ins_type, 101);
	update_dashbool(26, 0);   // a selector steps round
	update_dashbool(26, 0);
	EXPECT_EQ(nav.RMIsel, 0);
	const int alerts = alert_count;
	update_dashbool(599, 0);   // no switch
	EXPECT_EQ(alert_count, alerts + 1);
	EXPECT_EQ(ins_type, 101);
	veh[0].gear_retract = 1;
	update_dashbool(20, 0);
	EXPECT_EQ(flt[0].gear_handle, 1);
}
