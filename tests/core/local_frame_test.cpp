#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct LocalFrame : ::testing::Test {
	void SetUp() override { zero_all_records(); init_con(); set_planet_specs(0); }
	void region_at(int lat_sou, int lon_wes) { env.lat_sou = lat_sou; env.lon_wes = lon_wes; }
	double R() const { return con.planet_rad; }
};

// Distance in metres between two positions given by lat/lon/ele, by their Cartesian
// points on the sphere: independent of the conversions under test.
double gap_m(double R, double la1, double lo1, double e1, double la2, double lo2, double e2)
{
	auto pt = [R](double la, double lo, double e, double v[3]) {
		double k = M_PI / 180.0, r = R + e;
		v[0] = r * std::cos(la * k) * std::cos(lo * k);
		v[1] = r * std::cos(la * k) * std::sin(lo * k);
		v[2] = r * std::sin(la * k);
	};
	double a[3], b[3];
	pt(la1, lo1, e1, a);
	pt(la2, lo2, e2, b);
	return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
}

}  // namespace

TEST_F(LocalFrame, ReferencePointIsTheOriginAndOneDegreeNorthIsAnArcOfTheSphere)
{
	region_at(33, -118);   // reference point 34N 116.5W
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, 34.0, -116.5, 0.0);
	EXPECT_NEAR(x, 0.0, 1e-6);
	EXPECT_NEAR(y, 0.0, 1e-6);
	EXPECT_NEAR(z, 0.0, 1e-6);
	xdob_xyz_with_latlonel(x, y, z, 35.0, -116.5, 0.0);
	double k = M_PI / 180.0;
	EXPECT_NEAR(x, 0.0, 1e-6);
	EXPECT_NEAR(z, -R() * std::sin(k), 1e-6);          // north is -z
	EXPECT_NEAR(y, R() * (std::cos(k) - 1.0), 1e-6);    // the sphere falls away below the tangent plane
	xdob_xyz_with_latlonel(x, y, z, 34.0, -116.0, 1000.0);
	EXPECT_GT(x, 0.0);                                  // east is +x
	EXPECT_NEAR(std::sqrt(x * x + (y + R()) * (y + R()) + z * z), R() + 1000.0, 1e-6);
}

TEST_F(LocalFrame, DoubleRoundTripWithinAMillimetreAnywhereOnBothPlanets)
{
	for (int planet = 0; planet < 2; planet++) {
		set_planet_specs(planet);
		unsigned s = 12345;
		auto rnd = [&s]() { s = s * 1664525u + 1013904223u; return (s >> 8) / 16777216.0; };
		for (int n = 0; n < 4000; n++) {
			double lat = -90.0 + 180.0 * rnd(), lon = -180.0 + 360.0 * rnd(), ele = -400.0 + 60000.0 * rnd();
			// Half the cases with the region around the point, half with it anywhere else.
			if (n % 2) region_at((int)std::floor(lat) - 1, (int)std::floor(lon) - 1);
			else region_at((int)(-89 + 176 * rnd()), (int)(-180 + 357 * rnd()));
			double x, y, z, la, lo, el;
			xdob_xyz_with_latlonel(x, y, z, lat, lon, ele);
			xdob_latlonel_with_xyz(la, lo, el, x, y, z);
			ASSERT_LT(gap_m(R(), lat, lon, ele, la, lo, el), 1e-3) << lat << " " << lon << " planet " << planet;
			double x2, y2, z2;
			xdob_xyz_with_latlonel(x2, y2, z2, la, lo, el);
			ASSERT_LT(std::hypot(x2 - x, y2 - y, z2 - z), 1e-3);
		}
	}
}

TEST_F(LocalFrame, PolesAndTheDateLine)
{
	region_at(87, 10);   // near the north pole
	double x, y, z, la, lo, el;
	xdob_xyz_with_latlonel(x, y, z, 90.0, 0.0, 500.0);
	xdob_latlonel_with_xyz(la, lo, el, x, y, z);
	EXPECT_NEAR(la, 90.0, 1e-7);
	EXPECT_NEAR(el, 500.0, 1e-6);
	EXPECT_TRUE(std::isfinite(lo));
	xdob_xyz_with_latlonel(x, y, z, -89.99999, 77.0, 0.0);   // the other pole, from far away
	xdob_latlonel_with_xyz(la, lo, el, x, y, z);
	EXPECT_LT(gap_m(R(), -89.99999, 77.0, 0.0, la, lo, el), 1e-3);

	region_at(10, 179);   // reference longitude 180.5: the region straddles the date line
	xdob_xyz_with_latlonel(x, y, z, 11.0, -178.5, 0.0);   // one degree east of the reference
	EXPECT_NEAR(x, R() * std::cos(11.0 * M_PI / 180.0) * std::sin(M_PI / 180.0), 1e-6);
	xdob_latlonel_with_xyz(la, lo, el, x, y, z);
	EXPECT_NEAR(lo, -178.5, 1e-9);
	xdob_xyz_with_latlonel(x, y, z, 11.0, 179.5, 0.0);
	EXPECT_LT(x, 0.0);
	xdob_latlonel_with_xyz(la, lo, el, x, y, z);
	EXPECT_NEAR(lo, 179.5, 1e-9);
}

TEST_F(LocalFrame, SinglePrecisionRoundTripWithinItsResolution)
{
	for (int planet = 0; planet < 2; planet++) {
		set_planet_specs(planet);
		const float pts[][3] = {{34.2f, -116.9f, 1500.0f}, {-33.9f, 151.2f, 10.0f}, {89.5f, 20.0f, 0.0f},
		                        {0.3f, 179.9f, 12000.0f}, {-60.0f, -1.0f, 35000.0f}};
		for (auto& p : pts) {
			region_at((int)std::floor(p[0]) - 1, (int)std::floor(p[1]) - 1);
			float x, y, z, la, lo, el;
			xyz_with_latlonel(x, y, z, p[0], p[1], p[2]);
			latlonel_with_xyz(la, lo, el, x, y, z);
			// A float degree near 180 resolves about 1.5 m.
			EXPECT_LT(gap_m(R(), p[0], p[1], p[2], la, lo, el), 2.0) << p[0] << " " << p[1];
		}
	}
}

TEST(AircraftAxes, ToWorldAndBackIsExactAndFollowsTheSignConventions)
{
	auto trig = [](float psi, float the, float phi, float t[6]) {
		float k = (float)(M_PI / 180.0);
		t[0] = std::sin(psi * k); t[1] = std::cos(psi * k); t[2] = std::sin(the * k);
		t[3] = std::cos(the * k); t[4] = std::sin(phi * k); t[5] = std::cos(phi * k);
	};
	float t[6], X, Y, Z, x, y, z;
	trig(90.0f, 0.0f, 0.0f, t);   // heading east: the nose (-z) points to +x
	any_to_wrl(0.0f, 0.0f, -1.0f, &X, &Y, &Z, t[0], t[1], t[2], t[3], t[4], t[5]);
	EXPECT_NEAR(X, 1.0f, 1e-6f); EXPECT_NEAR(Y, 0.0f, 1e-6f); EXPECT_NEAR(Z, 0.0f, 1e-6f);
	trig(0.0f, 30.0f, 0.0f, t);   // nose up: the nose climbs
	any_to_wrl(0.0f, 0.0f, -1.0f, &X, &Y, &Z, t[0], t[1], t[2], t[3], t[4], t[5]);
	EXPECT_NEAR(Y, 0.5f, 1e-6f); EXPECT_NEAR(Z, -std::sqrt(0.75f), 1e-6f);
	trig(0.0f, 0.0f, 30.0f, t);   // right wing down
	any_to_wrl(1.0f, 0.0f, 0.0f, &X, &Y, &Z, t[0], t[1], t[2], t[3], t[4], t[5]);
	EXPECT_NEAR(Y, -0.5f, 1e-6f);

	trig(237.0f, -41.0f, 133.0f, t);
	any_to_wrl(1.5f, -2.0f, 3.25f, &X, &Y, &Z, t[0], t[1], t[2], t[3], t[4], t[5]);
	EXPECT_NEAR(pythag(X, Y, Z), pythag(1.5f, -2.0f, 3.25f), 1e-5f);
	wrl_to_any(X, Y, Z, &x, &y, &z, t[0], t[1], t[2], t[3], t[4], t[5]);
	EXPECT_NEAR(x, 1.5f, 1e-5f); EXPECT_NEAR(y, -2.0f, 1e-5f); EXPECT_NEAR(z, 3.25f, 1e-5f);
}

TEST_F(LocalFrame, RegionTestsUseTheLoadedRegion)
{
	region_at(33, -118);
	EXPECT_EQ(ret_latlon_inreg(34.5, -116.0), 1);
	EXPECT_EQ(ret_latlon_inreg(32.9, -116.0), 0);
	EXPECT_EQ(ret_latlon_inreg(34.5, -114.9), 0);
	env.lo_x = -100.0f; env.hi_x = 100.0f; env.lo_z = -50.0f; env.hi_z = 50.0f;
	EXPECT_EQ(ret_xz_inreg(99.0f, -49.0f), 1);
	EXPECT_EQ(ret_xz_inreg(101.0f, 0.0f), 0);
	EXPECT_NEAR(z_north_os(30.0f, -117.5f), 0.5f, 1e-5f);   // (lon_ref - lon) sin lat
}
