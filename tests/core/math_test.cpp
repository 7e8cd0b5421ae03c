#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>

TEST(Wrap, BothEndsOfTheRangeAreInside)
{
	EXPECT_EQ(fltwrap(360.0f, 0.0f, 360.0f), 360.0f);
	EXPECT_EQ(fltwrap(0.0f, 0.0f, 360.0f), 0.0f);
	EXPECT_EQ(fltwrap(-180.0f, -180.0f, 180.0f), -180.0f);
	EXPECT_EQ(fltwrap(180.0f, -180.0f, 180.0f), 180.0f);
	EXPECT_FLOAT_EQ(fltwrap(370.0f, 0.0f, 360.0f), 10.0f);
	EXPECT_FLOAT_EQ(fltwrap(-10.0f, 0.0f, 360.0f), 350.0f);
	EXPECT_FLOAT_EQ(fltwrap(-190.0f, -180.0f, 180.0f), 170.0f);
	EXPECT_FLOAT_EQ(fltwrap(3610.0f, 0.0f, 360.0f), 10.0f);    // many spans at once
	EXPECT_FLOAT_EQ(fltwrap(100.0f, -90.0f, 90.0f), -80.0f);   // latitude range
	EXPECT_EQ(fltwrap(7.0f, 5.0f, 5.0f), 7.0f);                 // zero span: unchanged
	EXPECT_DOUBLE_EQ(dobwrap(-181.0, -180.0, 180.0), 179.0);
	EXPECT_DOUBLE_EQ(dobwrap(1e6 + 0.5, 0.0, 360.0), std::fmod(1e6 + 0.5, 360.0));
}

TEST(Limit, HoldsToTheRange)
{
	EXPECT_EQ(fltlim(5.0f, 0.0f, 1.0f), 1.0f);
	EXPECT_EQ(fltlim(-5.0f, 0.0f, 1.0f), 0.0f);
	EXPECT_EQ(fltlim(0.25f, 0.0f, 1.0f), 0.25f);
	EXPECT_EQ(intlim(-3, 0, 9), 0);
	EXPECT_EQ(intlim(12, 0, 9), 9);
	EXPECT_EQ(intrange(9, 0, 9), 1);
	EXPECT_EQ(intrange(10, 0, 9), 0);
	EXPECT_EQ(fltmax3(1.0f, 3.0f, 2.0f), 3.0f);
	EXPECT_EQ(fltmin4(4.0f, -1.0f, 2.0f, 3.0f), -1.0f);
	EXPECT_EQ(fltmax4(4.0f, -1.0f, 2.0f, 3.0f), 4.0f);
}

TEST(Round, HalvesGoAwayFromZeroAndHugeValuesSaturate)
{
	EXPECT_EQ(intround(2.5f), 3);
	EXPECT_EQ(intround(-2.5f), -3);
	EXPECT_EQ(intround(2.49f), 2);
	EXPECT_EQ(intround(1e20f), INT_MAX);
	EXPECT_EQ(intround(-1e20f), INT_MIN);
	EXPECT_EQ(intround(NAN), 0);
}

TEST(Interp, EqualAbscissaeGiveTheMeanAndHoldingStopsAtTheEnds)
{
	EXPECT_EQ(interp(1.0f, 2.0f, 1.0f, 4.0f, 1.0f, 0), 3.0f);
	EXPECT_EQ(interp(1.0f, 2.0f, 1.0f, 4.0f, 7.0f, 1), 3.0f);
	EXPECT_EQ(interp(0.0f, 0.3f, 1.0f, 0.7f, 5.0f, 0), 0.7f);   // y2 exactly
	EXPECT_EQ(interp(0.0f, 0.3f, 1.0f, 0.7f, -5.0f, 0), 0.3f);
	EXPECT_FLOAT_EQ(interp(0.0f, 0.0f, 1.0f, 10.0f, 2.0f, 1), 20.0f);
	EXPECT_FLOAT_EQ(interp(0.0f, 0.0f, 1.0f, 10.0f, 0.25f, 0), 2.5f);
	EXPECT_EQ(interp(2.0f, 5.0f, 1.0f, 9.0f, 0.0f, 0), 9.0f);     // points given right to left
}

TEST(Fallout, InsideGoesToTheNearerEndAndTheMidpointToHi)
{
	EXPECT_EQ(fallout(5.0f, 0.0f, 10.0f), 10.0f);
	EXPECT_EQ(fallout(4.9f, 0.0f, 10.0f), 0.0f);
	EXPECT_EQ(fallout(9.0f, 0.0f, 10.0f), 10.0f);
	EXPECT_EQ(fallout(-3.0f, 0.0f, 10.0f), -3.0f);
	EXPECT_EQ(fallout(13.0f, 0.0f, 10.0f), 13.0f);
}

TEST(CheckNan, FlagsNonNumbersAndRunawayValues)
{
	EXPECT_EQ(check_nan(NAN), 1);
	EXPECT_EQ(check_nan(INFINITY), 1);
	EXPECT_EQ(check_nan(-INFINITY), 1);
	EXPECT_EQ(check_nan(1e10f), 1);
	EXPECT_EQ(check_nan(-1e10f), 1);
	EXPECT_EQ(check_nan(9.9e9f), 0);
	EXPECT_EQ(check_nan(0.0f), 0);
	EXPECT_FLOAT_EQ(pythag(3.0f, 4.0f), 5.0f);
	EXPECT_FLOAT_EQ(pythag(2.0f, 3.0f, 6.0f), 7.0f);
}

TEST(Constants, UnitFactorsMatchTheirDefinitionsAndReciprocals)
{
	init_con();
	EXPECT_NEAR(con.nmtomtrs, 1852.0f, 0.01f);           // the international nautical mile
	EXPECT_NEAR(con.ktstomsc, 1852.0f / 3600.0f, 1e-5f);
	EXPECT_NEAR(con.rpmtorsc, 2.0f * M_PI / 60.0f, 1e-6f);
	EXPECT_NEAR(29.92f * con.hg_topas, 101320.0f, 10.0f);
	const float pairs[][2] = {
		{con.lbstokgs, con.kgstolbs}, {con.fttomtrs, con.mtrstoft}, {con.radtodeg, con.degtorad},
		{con.ktstomsc, con.msctokts}, {con.fpmtomsc, con.msctofpm}, {con.lbstontn, con.ntntolbs},
		{con.endtomed, con.medtoend}, {con.enItomtI, con.mtltoenl}, {con.lbhtokgs, con.kgstolbh}};
	for (auto& pr : pairs) EXPECT_NEAR(pr[0] * pr[1], 1.0f, 1e-6f);
	set_planet_specs(1);
	EXPECT_EQ(env.planet, 1);
	EXPECT_FLOAT_EQ(nav.baro_setting_HG, 0.3676f);
	EXPECT_NEAR(con.planet_deg_mtrs / 111120.0f, 3396200.0f / 6378145.0f, 1e-5f);
	set_planet_specs(0);
	EXPECT_FLOAT_EQ(nav.baro_setting_HG, 29.92f);
	EXPECT_FLOAT_EQ(con.sl_P_pas, 101325.0f);
}

TEST(Tables, RandratIsRepeatableUniformAndInRange)
{
	init_tables();
	float first[randrat_max];
	for (int n = 0; n < randrat_max; n++) first[n] = randrat[n];
	init_tables();
	double sum = 0.0;
	int low = 0;
	for (int n = 0; n < randrat_max; n++) {
		ASSERT_EQ(randrat[n], first[n]);
		ASSERT_GE(randrat[n], 0.0f);
		ASSERT_LE(randrat[n], 0.9999f);
		sum += randrat[n];
		low += randrat[n] < 0.5f;
	}
	EXPECT_NEAR(sum / randrat_max, 0.5, 0.02);
	EXPECT_NEAR(low, randrat_max / 2, 300);
	EXPECT_NEAR(lookup_sin[30], 0.5f, 1e-6f);
	EXPECT_NEAR(lookup_cos[60], 0.5f, 1e-6f);
	EXPECT_NEAR(lookup_sin[360], 0.0f, 1e-6f);
}
