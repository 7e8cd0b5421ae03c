// The synthetic aids of the built data tree, against the runways they were laid out from.
#include "support/great_circle.h"
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

using namespace great_circle;

double angle_diff(double a, double b) { return std::fabs(std::remainder(a - b, 360.0)); }

// Along-track and cross-track distances of a point from a line through c on course psi.
void track(double c_lat, double c_lon, double psi, double lat, double lon, double* along, double* cross)
{
	const double d = dist_m(c_lat, c_lon, lat, lon), b = bearing(c_lat, c_lon, lat, lon);
	*along = d * std::cos((b - psi) * D);
	*cross = d * std::sin((b - psi) * D);
}

float range_nm(const vec_nav_struct& n) { return 40.0f * std::sqrt(n.sqr_range_deg / 1.5f); }

struct SyntheticAids : ::testing::Test {
	static void SetUpTestSuite()
	{
		zero_all_records();
		init_con();
		set_planet_specs(0);
		ean_path = std::string(NIMBARA_DATA_TREE) + "/Resources/Earth nav data/";
		ASSERT_EQ(IO_apt(0, ""), 1);
		ASSERT_EQ(IO_nav(0), 1);
		ASSERT_EQ(IO_fix(0), 1);
		ASSERT_EQ(IO_awy(0), 1);
	}
	// The airport and runway an ILS name "KSBD 06 ..." points to, with the end's threshold.
	static const vec_rwy_struct* runway_of(const std::string& name, int* apt, bool* reciprocal)
	{
		const std::string id = name.substr(0, name.find(' '));
		const std::string end = name.substr(id.size() + 1, name.find(' ', id.size() + 1) - id.size() - 1);
		const auto it = apt_hash.find(apt_hash_key(id.c_str()));   // our ids are unique
		if (it == apt_hash.end()) return nullptr;
		*apt = it->second;
		for (const vec_rwy_struct& r : vec_apt[*apt].rwy) {
			std::string a, b;
			ret_rwy_end_names(r, &a, &b);
			if (end.substr(0, 3) == a) { *reciprocal = false; return &r; }
			if (end.substr(0, 3) == b) { *reciprocal = true; return &r; }
		}
		return nullptr;
	}
};

}  // namespace

TEST_F(SyntheticAids, EachLocalizerStandsOnItsRunwaysExtendedCentrelineWithItsCourse)
{
	std::map<std::string, const vec_nav_struct*> loc_of;
	int checked = 0;
	// Past the carriers' aids; runways at the poles have no course to speak of.
	auto polar = [](const vec_nav_struct& n) { return std::fabs(n.lat) > 85.0f; };
	for (size_t k = 6; k < vec_nav.size(); k++) {
		const vec_nav_struct& n = vec_nav[k];
		if (n.type != nav_ils || polar(n)) continue;
		int apt;
		bool recip;
		const vec_rwy_struct* r = runway_of(n.nav_name, &apt, &recip);
		ASSERT_TRUE(r) << n.nav_name;
		const double course = recip ? r->psi_true + 180.0 : r->psi_true;
		double along, cross;
		track(r->lat, r->lon, course, n.lat, n.lon, &along, &cross);
		EXPECT_LT(std::fabs(cross), 5.0) << n.nav_name;
		// 1,000 ft past the far end, which stands where the database's ends put it: within a
		// quarter of the stated length of it.
		EXPECT_NEAR(along, 0.5 * r->len + 1000 * 0.3048, 0.125 * r->len + 10.0) << n.nav_name;
		EXPECT_LT(angle_diff(n.psi_true, course), 0.5) << n.nav_name;
		EXPECT_GE(r->len, 6000 * 0.3048 - 1);
		loc_of[n.nav_name.substr(0, n.nav_name.size() - 4)] = &n;
		checked++;
	}
	EXPECT_GT(checked, 2000);
	// Glide slopes beside the touchdown zone, 3 degrees on the localizer's course and frequency;
	// markers and the final fix out on the approach.
	for (size_t k = 6; k < vec_nav.size(); k++) {
		const vec_nav_struct& n = vec_nav[k];
		if ((n.type != nav_gs && n.type != nav_om && n.type != nav_mm) || polar(n)) continue;
		const std::string key = n.nav_name.substr(0, n.nav_name.rfind(' '));
		ASSERT_TRUE(loc_of.count(key)) << n.nav_name;
		const vec_nav_struct& loc = *loc_of[key];
		int apt;
		bool recip;
		const vec_rwy_struct* r = runway_of(n.nav_name, &apt, &recip);
		const double course = recip ? r->psi_true + 180.0 : r->psi_true;
		double along, cross;
		track(r->lat, r->lon, course, n.lat, n.lon, &along, &cross);
		const double threshold = -0.5 * r->len;
		if (n.type == nav_gs) {
			const int N = (int)std::lround(n.psi_true);
			EXPECT_EQ(N / 1000, 300) << n.nav_name;
			EXPECT_LE(angle_diff(N % 1000, loc.psi_true), 1.0) << n.nav_name;   // the packed course is in whole degrees
			EXPECT_EQ(n.frq, loc.frq);
			EXPECT_NEAR(along - threshold, 1000 * 0.3048, 0.125 * r->len + 10.0) << n.nav_name;
			EXPECT_NEAR(std::fabs(cross), 400 * 0.3048, 10.0) << n.nav_name;
		} else {
			EXPECT_NEAR(threshold - along, n.type == nav_om ? 4.5 * NM : 3500 * 0.3048, 0.125 * r->len + 20.0) << n.nav_name;
			EXPECT_LT(std::fabs(cross), 20.0) << n.nav_name;   // a great circle, not a line of constant course
			EXPECT_EQ(n.frq, 0);
		}
	}
	EXPECT_GE(vec_fix.size(), (size_t)checked);
}

TEST_F(SyntheticAids, FrequenciesAreInBandAndNeverRepeatWithinRange)
{
	std::map<std::pair<int, int>, std::vector<const vec_nav_struct*>> users;
	for (size_t k = 6; k < vec_nav.size(); k++) {   // past the carriers
		const vec_nav_struct& n = vec_nav[k];
		if (n.type == nav_ils) {
			EXPECT_TRUE(n.frq >= 10810 && n.frq <= 11195 && (n.frq / 10) % 2 == 1) << n.frq;
		} else if (n.type == nav_vor) {
			EXPECT_TRUE(n.frq >= 10800 && n.frq <= 11795 && (n.frq >= 11200 || (n.frq / 10) % 2 == 0)) << n.frq;
		} else if (n.type == nav_ndb) {
			EXPECT_TRUE(n.frq >= 190 && n.frq <= 535) << n.frq;
		} else continue;
		users[{n.type, n.frq}].push_back(&n);
	}
	int pairs = 0;
	for (const auto& [key, list] : users)
		for (size_t i = 0; i < list.size(); i++)
			for (size_t j = i + 1; j < list.size(); j++) {
				const vec_nav_struct &a = *list[i], &b = *list[j];
				if (std::fabs(a.lat - b.lat) > 5) continue;
				pairs++;
				EXPECT_GE(dist_m(a.lat, a.lon, b.lat, b.lon) / NM, range_nm(a) + range_nm(b) - 0.5) << a.nav_name << " and " << b.nav_name;
			}
	EXPECT_GT(pairs, 0);
}

TEST_F(SyntheticAids, AVorStandsAtEachLargeAirportOffItsRunwaysAndAirwaysEndAtVors)
{
	int vors = 0;
	for (const vec_nav_struct& n : vec_nav) {
		if (n.type != nav_vor) continue;
		vors++;
		// Its airport is the nearest one of that name.
		const std::string name = n.nav_name.substr(0, n.nav_name.size() - 8);
		double best = 1e30;
		const vec_apt_struct* a = nullptr;
		for (const vec_apt_struct& x : vec_apt)
			if (x.apt_name == name && !x.rwy.empty()) {
				const double d = dist_m(n.lat, n.lon, x.rwy[0].lat, x.rwy[0].lon);
				if (d < best) { best = d; a = &x; }
			}
		ASSERT_TRUE(a) << n.nav_name;
		EXPECT_LT(best, 3 * NM) << n.nav_name;
		for (const vec_rwy_struct& r : a->rwy) {
			double along, cross;
			track(r.lat, r.lon, r.psi_true, n.lat, n.lon, &along, &cross);
			EXPECT_TRUE(std::fabs(cross) > 0.5 * r.width + 150.0 || std::fabs(along) > 0.5 * r.len + 150.0) << n.nav_name;
		}
	}
	EXPECT_GT(vors, 800);
	for (const vec_awy_struct& w : vec_awy)
		for (int e = 0; e < 2; e++) {
			bool at_vor = false;
			for (const vec_nav_struct& n : vec_nav)
				if (n.type == nav_vor && std::fabs(n.lat - w.lat[e]) < 1e-5f && std::fabs(n.lon - w.lon[e]) < 1e-5f) { at_vor = true; break; }
			EXPECT_TRUE(at_vor) << w.awy_name;
			EXPECT_LE(dist_m(w.lat[0], w.lon[0], w.lat[1], w.lon[1]), 200 * NM + 1);
		}
}
