#include "world/nav_data.h"
#include <cmath>
#include <gtest/gtest.h>

TEST(MagVar, TheTableHoldsTheDesignsValuesAndRepeatsItsFirstColumn)
{
	EXPECT_FLOAT_EQ(raw_mag_var[0][0], -152.3f);
	EXPECT_FLOAT_EQ(raw_mag_var[0][36], 27.7f);
	EXPECT_FLOAT_EQ(raw_mag_var[18][12], -9.3f);
	EXPECT_FLOAT_EQ(raw_mag_var[18][36], 7.5f);
	EXPECT_FLOAT_EQ(raw_mag_var[18][60], -1.1f);
	EXPECT_FLOAT_EQ(raw_mag_var[27][12], -17.6f);
	EXPECT_FLOAT_EQ(raw_mag_var[27][36], 2.4f);
	EXPECT_FLOAT_EQ(raw_mag_var[27][60], 8.1f);
	EXPECT_FLOAT_EQ(raw_mag_var[36][36], 28.0f);
	for (int r = 1; r < 36; r++) EXPECT_FLOAT_EQ(raw_mag_var[r][72], raw_mag_var[r][0]) << r;
	EXPECT_NEAR(ret_mag_var(0.0f, 0.0f), 7.5f, 1e-4f);    // a cell's own value
	EXPECT_NEAR(ret_mag_var(45.0f, -120.0f), -17.6f, 1e-4f);
}

TEST(MagVar, LookupsAgreeWithPublishedDeclinationsOfAbout2000)
{
	// Declinations east of about 2000, from published charts; the table adds their negative.
	const struct { float lat, lon, decl; const char* place; } known[] = {
		{51.5f, -0.1f, -2.4f, "London"}, {34.0f, -118.2f, 13.4f, "Los Angeles"}, {40.7f, -74.0f, -13.3f, "New York"},
		{35.7f, 139.8f, -6.9f, "Tokyo"}, {-33.9f, 151.2f, 12.4f, "Sydney"}, {-33.9f, 18.4f, -24.0f, "Cape Town"},
		{55.8f, 37.6f, 9.5f, "Moscow"}, {-22.9f, -43.2f, -21.5f, "Rio de Janeiro"}};
	for (const auto& k : known) EXPECT_NEAR(ret_mag_var(k.lat, k.lon), -k.decl, 3.0f) << k.place;
}

TEST(MagVar, LookupIsContinuousEverywhere)
{
	// No jump across the antimeridian, across cell edges, or near the poles' turning values.
	for (float lat = -89.5f; lat <= 89.5f; lat += 0.5f)
		for (float lon = -180.0f; lon < 180.0f; lon += 0.5f) {
			const float a = ret_mag_var(lat, lon), b = ret_mag_var(lat, lon + 0.01f);
			ASSERT_TRUE(std::isfinite(a));
			ASSERT_LT(std::fabs(std::remainder(a - b, 360.0f)), std::fabs(lat) > 80 ? 10.0f : 1.0f) << lat << " " << lon;
		}
	EXPECT_NEAR(ret_mag_var(10.0f, 180.0f), ret_mag_var(10.0f, -180.0f), 1e-3f);
}
