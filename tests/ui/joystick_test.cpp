// Joystick axes and buttons to controls: the response curve's ends and null zone, the
// range learnt as it is seen, a resting stick that takes nothing, a reversed throttle,
// and buttons on their edges.
#include "ui/joystick.h"
#include "ui/HL_UI.h"
#include "platform/plat.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Joystick : ::testing::Test {
	float old_raw[joy_axis_max] = {};
	void SetUp() override
	{
		zero_all_records();
		init_con();
		JOY_defaults();
		mnw.prd_FM = mnw.prd_UI = 0.02f;
	}
	// One frame of the raw axes: the last frame's values kept, the new ones set.
	void frame(int k, float raw)
	{
		for (int a = 0; a < joy_axis_max; a++) old_raw[a] = mnw.joy_raw_dat[a];
		for (int& a : mnw.assigned) a = 0;
		mnw.joy_raw_dat[k] = raw;
		JOY_axes_to_functions(old_raw);
	}
};

TEST_F(Joystick, TheCurvesPowerRunsFromOneAndAHalfToFourAndAHalfAfterTheNullZone)
{
	mnw.joy_power_rat[1] = 1.0f;
	EXPECT_NEAR(JOY_curve(0.5f, 1), std::pow(0.5f, 1.5f), 1e-6f);
	EXPECT_NEAR(JOY_curve(-0.5f, 1), -std::pow(0.5f, 1.5f), 1e-6f);
	mnw.joy_power_rat[1] = 0.0f;
	EXPECT_NEAR(JOY_curve(0.5f, 1), std::pow(0.5f, 4.5f), 1e-6f);
	EXPECT_EQ(JOY_curve(1.0f, 1), 1.0f);
	EXPECT_EQ(JOY_curve(-1.0f, 1), -1.0f);
	// The null zone counts once a stick has moved, and only outside the calibration page.
	mnw.joy_power_rat[1] = 1.0f;
	mnw.joy_null_rat[1] = 0.1f;
	EXPECT_NEAR(JOY_curve(0.05f, 1), std::pow(0.05f, 1.5f), 1e-6f);
	mnw.has_joy = 1;
	EXPECT_EQ(JOY_curve(0.05f, 1), 0.0f);
	EXPECT_EQ(JOY_curve(-0.08f, 1), 0.0f);
	EXPECT_NEAR(JOY_curve(0.6f, 1), std::pow(0.5f, 1.5f), 1e-6f);
	mnw.top_win = 14;
	stg.joyW_tab = 1;
	EXPECT_NEAR(JOY_curve(0.05f, 1), std::pow(0.05f, 1.5f), 1e-6f);
}

TEST_F(Joystick, ARestingStickTakesNothingAndASweptOneRollsBothWaysAlike)
{
	frame(0, 0.0f);   // attached at rest: nothing moves, nothing is taken
	frame(0, 0.0f);
	EXPECT_EQ(mnw.assigned[2], 0);
	EXPECT_EQ(mnw.has_joy, 0);
	JOY_reset_ranges();
	frame(0, 3.0f);   // the first value seen is the whole range yet: the centre
	EXPECT_EQ(mnw.assigned[2], 1);
	EXPECT_EQ(mnw.axis[2], 0.0f);
	frame(0, -100.0f);   // swept through its range
	frame(0, 100.0f);
	EXPECT_EQ(mnw.axis[2], 1.0f);
	frame(0, 0.0f);
	EXPECT_NEAR(mnw.axis[2], 0.0f, 1e-6f);
	frame(0, 50.0f);
	const float half_right = mnw.axis[2];
	EXPECT_GT(half_right, 0.0f);
	EXPECT_LT(half_right, 0.5f);
	frame(0, -50.0f);
	EXPECT_NEAR(mnw.axis[2], -half_right, 1e-6f);
	frame(0, -100.0f);
	EXPECT_EQ(mnw.axis[2], -1.0f);
	frame(0, -100.0f);   // held still: no longer taken
	EXPECT_EQ(mnw.assigned[2], 0);
}

TEST_F(Joystick, TheDefaultThrottleIsReversedAndANewFunctionForgetsTheRange)
{
	frame(3, -100.0f);
	frame(3, 100.0f);
	frame(3, -100.0f);   // the lever at its low end
	EXPECT_EQ(mnw.axis[4], 1.0f);
	frame(3, 100.0f);
	EXPECT_EQ(mnw.axis[4], 0.0f);
	JOY_set_axis_use(3, 9, 0);   // now the mixture: its range starts afresh
	frame(3, 20.0f);
	EXPECT_EQ(mnw.axis[9], 0.5f);
	JOY_set_axis_use(5, 3, 0);
	EXPECT_EQ(mnw.eq_ped_nobrk, 1);
	JOY_set_axis_use(6, 6, 0);   // toe brakes: pedals with brakes
	EXPECT_EQ(mnw.eq_ped_wibrk, 1);
	EXPECT_EQ(mnw.eq_ped_nobrk, 0);
}

TEST_F(Joystick, ButtonsActOnTheirEdgesWhileHeldAndWhileNot)
{
	mnw.joy_BUTN_use[5] = 70;   // parking brake
	mnw.joy_BUTN_use[6] = 13;   // throttle up while held
	mnw.n_button_pressed[5] = 1;
	JOY_buttons();
	EXPECT_EQ(flt[0].parkbrake, 1.0f);
	for (int k = 0; k < 10; k++) {   // held: stays on
		for (int b = 0; b < joy_button_max; b++) mnw.o_button_pressed[b] = mnw.n_button_pressed[b];
		flt[0].parkbrake = 0.7f;   // something else moved it; the press does not repeat
		JOY_buttons();
		EXPECT_EQ(flt[0].parkbrake, 0.7f);
	}
	for (int b = 0; b < joy_button_max; b++) mnw.o_button_pressed[b] = mnw.n_button_pressed[b];
	mnw.n_button_pressed[5] = 0;
	JOY_buttons();
	EXPECT_EQ(flt[0].parkbrake, 0.0f);   // off on the release
	veh[0].throt_max_FWD = 1.0f;
	veh[0].num_engines = 1;
	mnw.n_button_pressed[6] = 1;
	for (int k = 0; k < 50; k++) JOY_buttons();   // a second held at 0.25 a second
	EXPECT_NEAR(flt[0].CONT_thro_ref[0], 0.25f, 0.01f);
	mnw.joy_BUTN_use[7] = 113;   // not held: the rotor brake holds the brake on
	flt[0].parkbrake = 0.0f;
	JOY_buttons();
	EXPECT_EQ(flt[0].parkbrake, 1.0f);
}

}  // namespace

namespace {

// Real devices through the same path, as virtual sticks: pooled in attach order, hats as
// eight buttons, unplugged and plugged in again.
struct Devices : Joystick {
	void SetUp() override
	{
		Joystick::SetUp();
		JOY_init();
		if (plat_joy_count() != 0) GTEST_SKIP() << "a real joystick is attached";
		mnw.first_miss_cycle = 0;
	}
	void TearDown() override
	{
		while (plat_joy_count() > 0) plat_joy_detach_virtual(0);
		JOY_close();
	}
};

TEST_F(Devices, TwoSticksPoolInOrderAndADiagonalHatPressesOneButton)
{
	const int a = plat_joy_attach_virtual(2, 1, 3), b = plat_joy_attach_virtual(3, 0, 2);
	ASSERT_EQ(a, 0);
	ASSERT_EQ(b, 1);
	plat_joy_set(0, 'a', 1, 50);
	plat_joy_set(1, 'a', 0, -100);
	plat_joy_set(1, 'a', 2, 100);
	plat_joy_set(0, 'h', 0, 13500);   // down and right
	plat_joy_set(1, 'b', 1, 1);
	JOY_get();
	EXPECT_NEAR(mnw.joy_raw_dat[1], 50.0f, 0.01f);    // the first stick's second axis
	EXPECT_NEAR(mnw.joy_raw_dat[2], -100.0f, 0.01f);  // then the second stick's axes
	EXPECT_NEAR(mnw.joy_raw_dat[4], 100.0f, 0.01f);
	int pressed = 0;
	for (int k = 0; k < 8; k++) pressed += mnw.n_button_pressed[k];
	EXPECT_EQ(pressed, 1);
	EXPECT_EQ(mnw.n_button_pressed[3], 1);   // 13500 is the hat's fourth position
	EXPECT_EQ(mnw.n_button_pressed[8 + 3 + 1], 1);   // past the first stick's hat and three buttons
}

TEST_F(Devices, AGameControllersSticksTriggersAndPadFallInTheirSlots)
{
	ASSERT_EQ(plat_joy_attach_virtual_pad(), 0);
	plat_joy_set(0, 'a', 0, 100);    // left stick right
	plat_joy_set(0, 'a', 1, -50);    // left stick half up
	plat_joy_set(0, 'a', 2, 40);     // right stick
	plat_joy_set(0, 'a', 3, -100);
	plat_joy_set(0, 'a', 4, 100);    // left trigger fully in
	plat_joy_set(0, 'a', 5, -100);   // right trigger out
	plat_joy_set(0, 'b', 0, 1);      // the first face button
	plat_joy_set(0, 'b', 11, 1);     // d-pad up
	plat_joy_set(0, 'b', 14, 1);     // and right: one diagonal
	JOY_get();
	const float* raw = mnw.joy_raw_dat;
	EXPECT_NEAR(raw[0], 100.0f, 0.01f);
	EXPECT_NEAR(raw[1], -50.0f, 0.01f);
	EXPECT_NEAR(raw[2], 100.0f, 0.01f);   // left trigger as Z
	EXPECT_NEAR(raw[3], 40.0f, 0.01f);
	EXPECT_NEAR(raw[4], -100.0f, 0.01f);
	EXPECT_NEAR(raw[5], -100.0f, 0.01f);  // right trigger as Rz, at rest at its low end
	int pressed = 0;
	for (int k = 0; k < 8; k++) pressed += mnw.n_button_pressed[k];
	EXPECT_EQ(pressed, 1);
	EXPECT_EQ(mnw.n_button_pressed[1], 1);   // the hat's up-right
	EXPECT_EQ(mnw.n_button_pressed[8], 1);   // then the face button, the d-pad not counted twice
	for (int k = 9; k < 9 + 16; k++) EXPECT_EQ(mnw.n_button_pressed[k], 0) << k;
}

TEST_F(Devices, UnpluggedAndPluggedInAgainItFliesAfterASweep)
{
	ASSERT_EQ(plat_joy_attach_virtual(4, 0, 4), 0);
	for (int v : {0, -100, 100, 0}) {
		plat_joy_set(0, 'a', 0, v);
		JOY_get();
	}
	EXPECT_NEAR(mnw.axis[2], 0.0f, 1e-3f);
	plat_joy_set(0, 'a', 0, 100);
	JOY_get();
	EXPECT_EQ(mnw.axis[2], 1.0f);
	ASSERT_EQ(plat_joy_detach_virtual(0), 1);
	JOY_get();   // gone: nothing is taken, then or after
	EXPECT_EQ(mnw.assigned[2], 0);
	JOY_get();
	EXPECT_EQ(mnw.assigned[2], 0);
	ASSERT_EQ(plat_joy_attach_virtual(4, 0, 4), 0);
	for (int v : {0, -100, 100}) {   // its slot starts a fresh range
		plat_joy_set(0, 'a', 0, v);
		JOY_get();
	}
	plat_joy_set(0, 'a', 0, -100);
	JOY_get();
	EXPECT_EQ(mnw.axis[2], -1.0f);
	EXPECT_EQ(mnw.assigned[2], 1);
	mnw.joy_BUTN_use[2] = 70;   // a button on the parking brake: on while pressed
	plat_joy_set(0, 'b', 2, 1);
	JOY_get();
	EXPECT_EQ(flt[0].parkbrake, 1.0f);
	plat_joy_set(0, 'b', 2, 0);
	JOY_get();
	EXPECT_EQ(flt[0].parkbrake, 0.0f);
}

}  // namespace

namespace {

TEST_F(Joystick, ButtonFunctionsReachTheirControls)
{
	flt_struct& f = flt[0];
	veh_struct& v = veh[0];
	JOY_press_one(61);
	EXPECT_EQ(f.sbrk_rqst, 1.0f);
	JOY_press_one(61);
	EXPECT_EQ(f.sbrk_rqst, 0.0f);
	v.takeoff_trim = 0.3f;
	v.max_trim_elev = 0.2f;
	JOY_press_one(25);   // take-off trim, within the trim's reach
	EXPECT_EQ(f.elev_trim, 0.2f);
	JOY_press_one(21);
	EXPECT_EQ(f.CONT_heat[0], 1.0f);
	JOY_press_one(20);
	EXPECT_EQ(f.CONT_heat[0], 0.0f);
	nav.mode_ecam = 4;
	JOY_press_one(104);   // the pages wrap
	EXPECT_EQ(nav.mode_ecam, 0);
	JOY_press_one(105);
	EXPECT_EQ(nav.mode_ecam, 4);
	// Function 114 not held: the autogyro's rotor pitch moves at 6 degrees a second toward
	// its pre-rotation pitch.
	v.min_pitch[1] = 0.0f;
	v.max_pitch[1] = 12.0f;
	f.POINT_pitch_deg_ref[1] = 0.0f;
	f.POINT_tac_rad[0] = 300.0f / 9.5493f;   // 300 rpm: 7 + 0.05 * 40, held to 7
	for (int k = 0; k < 25; k++) JOY_release_always(114);
	EXPECT_NEAR(f.POINT_pitch_deg_ref[1], 3.0f, 1e-3f);
	for (int k = 0; k < 100; k++) JOY_release_always(114);
	EXPECT_NEAR(f.POINT_pitch_deg_ref[1], 7.0f, 1e-3f);
}

}  // namespace

namespace {

// The mouse, with no stick: a click at the centre flies with it; with a stick attached the
// same click looks around instead; a change of view ends both.
TEST_F(Joystick, ACentreClickFliesTheMouseOrLooksWithItAndANewViewEndsBoth)
{
	JOY_init();
	if (plat_joy_count() != 0) GTEST_SKIP() << "a real joystick is attached";
	mnw.top_win = 0;
	mnw.x_res_now = 1024; mnw.y_res_now = 768; mnw.xy_scale = 1.0f;
	auto click = [](int x, int y) {
		mnw.mx = x; mnw.my = y;
		mnw.mouse_clicked = 1;
		JOY_get();
		mnw.mouse_clicked = 0;
	};
	click(520, 380);
	EXPECT_EQ(mnw.mouse_is_joy, 1);
	mnw.mx = 512 + 50; mnw.my = 384 - 100;   // right and up: half right roll, full pull
	JOY_get();
	EXPECT_NEAR(mnw.axis[2], 0.5f, 1e-6f);
	EXPECT_NEAR(mnw.axis[1], 1.0f, 1e-6f);
	EXPECT_EQ(mnw.assigned[1], 1);
	mnw.y_res_now = 600;   // a new view moves the centre: the mouse stops flying
	JOY_get();
	EXPECT_EQ(mnw.mouse_is_joy, 0);
	mnw.has_joy = 1;   // a stick has moved: the centre click looks around
	click(512, 300);
	EXPECT_EQ(mnw.mouse_is_joy, 0);
	EXPECT_EQ(ren.mouse_look, 1);
	mnw.mx = 512 + 256;
	JOY_get();
	EXPECT_NEAR(ren.mouse_look_os_psi, 90.0f, 1e-3f);
	click(900, 300);   // away from the centre: nothing changes
	EXPECT_EQ(ren.mouse_look, 1);
	JOY_close();
}

// Over a panel the eye's centre is the HUD's, less the panel's scroll; the circling view over
// the panel turns the eye round the aircraft instead of offsetting it.
TEST_F(Joystick, OverAPanelTheCentreIsTheHudsAndTheCirclingViewTurnsTheEye)
{
	JOY_init();
	if (plat_joy_count() != 0) GTEST_SKIP() << "a real joystick is attached";
	mnw.top_win = 0;
	mnw.x_res_now = 1024; mnw.y_res_now = 768; mnw.xy_scale = 1.0f;
	veh[0].HUD_ctr_x = 600.0f;
	veh[0].HUD_ctr_y[0] = 500.0f;
	veh[0].HUD_ctr_y[2] = 300.0f;
	mnw.look_up = 100.0f;
	ren.view_type_act = 1500;
	mnw.has_joy = 1;
	JOY_get();
	mnw.mx = 600; mnw.my = 400;   // the HUD centre, scrolled
	mnw.mouse_clicked = 1;
	JOY_get();
	mnw.mouse_clicked = 0;
	EXPECT_EQ(ren.mouse_look, 1);
	mnw.mx = 600 + 256;
	JOY_get();
	EXPECT_NEAR(ren.mouse_look_os_psi, 90.0f, 1e-3f);
	ren.view_type_act = 1520;   // the same panel's centre: still looking, now circling
	ren.mouse_look_os_psi = 0.0f;
	mnw.mx = 600 - 256;
	JOY_get();
	EXPECT_EQ(ren.mouse_look, 1);
	EXPECT_NEAR(ren.circ_psi_rad, 0.5f * 3.14159265f, 1e-4f);
	EXPECT_EQ(ren.mouse_look_os_psi, 0.0f);
	ren.view_type_act = 1508;   // the right panel's centre is lower: a new view ends the look
	JOY_get();
	EXPECT_EQ(ren.mouse_look, 0);
	JOY_close();
}

}  // namespace
