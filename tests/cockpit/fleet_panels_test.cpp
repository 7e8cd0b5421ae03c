// The fleet's panels through nimbara-fly view: each carries what the operating rules ask of
// its class, draws with no alert, and its airspeed needle reads the set speed where the
// printed scale puts it.
#include "support/view_shot.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct slot {
	int n, code;
	double x, y, size;   // picture pixels from the top left
};

// Codes that can stand for each thing a panel must show.
const std::map<std::string, std::set<int>> kinds = {
	{"airspeed", {74, 75, 76, 77, 78, 79, 80, 81, 82, 83, 84, 85, 527}},
	{"altimeter", {94, 95, 96, 97, 98, 99, 525, 526}},
	{"compass", {106, 107, 108}},
	{"tachometer", {294, 301, 315, 404, 461, 462, 322, 323}},
	{"N1", {295, 302, 309, 316, 405}},
	{"N2", {539, 541, 543, 537, 535}},
	{"EGT", {538, 540, 536, 534, 608}},
	{"fuel flow", {299, 306, 313, 320, 409}},
	{"torque", {298, 305, 312, 319, 408}},
	{"turbine temperature", {300, 307, 314, 321, 410}},
	{"dual tachometer", {322}},
	{"oil pressure", {598, 607, 326}},
	{"oil temperature", {599, 607, 327}},
	{"fuel quantity", {347, 348, 349, 350}},
	{"attitude", {90, 91, 92, 93, 448, 460, 520, 521, 522, 523, 524}},
	{"heading", {109, 479, 110, 111, 112, 113, 114, 115, 116, 117, 118}},
	{"HSI", {110, 111, 112, 113, 114, 115, 116, 117, 118}},
	{"turn and slip", {101, 102, 103, 104, 105}},
	{"vertical speed", {122, 123, 124, 125, 126, 127, 128, 129, 440}},
	{"variometer", {337, 397}},
	{"clock", {340, 341}},
	{"suction", {338}},
	{"ammeter", {328}},
	{"throttle", {47, 48}},
	{"mixture", {51, 52}},
	{"flap handle", {62, 63, 64}},
	{"flap indicator", {65, 453, 601, 602, 603, 604}},
	{"trim", {66, 67, 68, 69, 70, 71, 72, 73}},
	{"speedbrake", {56, 57}},
	{"gear handle", {20, 21}},
	{"gear light", {22, 23, 487}},
	{"warning light", {355, 356, 357, 358, 359, 360, 361, 362, 363, 364, 365, 366, 367, 138}},
};

struct aircraft {
	const char* file;
	std::vector<std::pair<std::string, int>> needs;   // a kind and how many
	double vso_kts, vne_kts, lo_kts;                  // the airspeed scale's low end as the gauge rounds it
};

const aircraft fleet[] = {
	{"General Aviation/Wren 180/Wren 180.acf",
	 {{"airspeed", 1}, {"altimeter", 1}, {"compass", 1}, {"tachometer", 1}, {"oil pressure", 1}, {"oil temperature", 1}, {"fuel quantity", 1},
	  {"attitude", 1}, {"heading", 1}, {"turn and slip", 1}, {"clock", 1}, {"suction", 1}, {"ammeter", 1}, {"throttle", 1}, {"mixture", 1},
	  {"flap handle", 1}, {"flap indicator", 1}, {"trim", 1}},
	 40, 163, -1},
	{"Gliders/Kestrel 15/Kestrel 15.acf", {{"airspeed", 1}, {"altimeter", 1}, {"variometer", 1}, {"compass", 1}, {"speedbrake", 1}}, 36, 146, 20},
	{"Helicopters/Hornet 250/Hornet 250.acf",
	 {{"airspeed", 1}, {"altimeter", 1}, {"compass", 1}, {"oil pressure", 1}, {"oil temperature", 1}, {"fuel quantity", 1}, {"torque", 1},
	  {"turbine temperature", 1}, {"N1", 1}, {"dual tachometer", 1}, {"attitude", 1}, {"heading", 1}, {"vertical speed", 1}, {"warning light", 2}},
	 0, 130, 0},
	{"Heavy Metal/Meridian 320/Meridian 320.acf",
	 {{"airspeed", 1}, {"altimeter", 1}, {"compass", 1}, {"oil pressure", 2}, {"oil temperature", 2}, {"fuel quantity", 1}, {"attitude", 1},
	  {"HSI", 1}, {"clock", 1}, {"N1", 2}, {"N2", 2}, {"EGT", 2}, {"fuel flow", 2}, {"throttle", 2}, {"gear handle", 1}, {"gear light", 3}, {"flap handle", 1},
	  {"flap indicator", 1}, {"speedbrake", 1}, {"warning light", 2}},
	 105, 350, 100},
};

struct Fleet : ViewShot {
	std::vector<slot> slots;
	std::string errors;
	bool fly(const aircraft& a, double kias)
	{
		const std::string tree = own_tree();
		// The tree's path is as long as the build's folder makes it: no fixed buffer.
		const std::string args = "--panel --lat 32.5 --lon -120 --heading 225 --alt-ft 3000 --kias " + std::to_string(kias) + " --aircraft \"" + tree +
		                         "Aircraft/" + a.file + "\" --tree \"" + tree + "\"";
		if (!shoot(args, "1024x768")) return false;
		slots.clear();
		std::ifstream in(dir + "log");
		std::string word;
		slot s;
		while (in >> word)
			if (word == "ins" && in >> s.n >> s.code >> s.x >> s.y >> s.size) slots.push_back(s);
		std::ifstream err(tree + "Error.out");
		std::stringstream all;
		all << err.rdbuf();
		errors = all.str();
		return true;
	}
};

}  // namespace

TEST_F(Fleet, EachPanelCarriesWhatItsClassNeedsAndDrawsWithoutAlert)
{
	for (const aircraft& a : fleet) {
		ASSERT_TRUE(fly(a, 80)) << a.file;
		// Every alert of the panel names the instrument it came from.
		EXPECT_EQ(errors.find("instrument path:"), std::string::npos) << a.file << "\n" << errors;
		for (const auto& need : a.needs) {
			const std::set<int>& codes = kinds.at(need.first);
			const int have = (int)std::count_if(slots.begin(), slots.end(), [&](const slot& s) { return codes.count(s.code) > 0; });
			EXPECT_GE(have, need.second) << a.file << ": " << need.first;
		}
	}
}

// The adaptive dials run 330 degrees from 20 knots under the stall with flaps, in tens and
// then to the scale's numbered step, to 20 over the never-exceed speed; the trainer's printed
// face follows its fixed curve.
TEST_F(Fleet, EveryAirspeedNeedleReadsTheSetSpeedAcrossItsRange)
{
	for (const aircraft& a : fleet) {
		const double hi = std::round((a.vne_kts + 20.0) / 10.0) * 10.0;
		for (double f : {0.25, 0.6, 0.9}) {
			const double lo_end = a.lo_kts < 0 ? 40.0 : a.lo_kts;
			const double kias = lo_end + (a.vne_kts - lo_end) * f;
			ASSERT_TRUE(fly(a, kias)) << a.file;
			const auto asi = std::find_if(slots.begin(), slots.end(), [](const slot& s) { return kinds.at("airspeed").count(s.code) > 0; });
			ASSERT_NE(asi, slots.end()) << a.file;
			double want;
			if (a.lo_kts < 0) {   // the 200-knot printed face
				const double v = kias, t1 = std::min(v / 40, 1.0), t2 = std::clamp((v - 40) / 80, 0.0, 1.0), t3 = std::max((v - 120) / 80, 0.0);
				want = 30 * std::pow(t1, 1.2) + 80 * 2.2 * t2 + 80 * 1.425 * std::pow(t3, 0.85);
			} else {
				want = (kias - a.lo_kts) / (hi - a.lo_kts) * 330.0;
			}
			const std::vector<spoke> s = spokes(asi->x, H - asi->y, 20.0 * asi->size);
			ASSERT_EQ(s.size(), 1u) << a.file << " at " << kias;
			EXPECT_NEAR(std::remainder(s[0].angle - want, 360.0), 0.0, 2.0 / asi->size) << a.file << " at " << kias;
		}
	}
}
