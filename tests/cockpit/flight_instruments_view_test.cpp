// The trainer's airspeed, attitude and altimeter read off the picture nimbara-fly view draws:
// the needles where the printed scales put the set speed and height, the horizon tilted and
// moved by the set bank and pitch, the setting moving the altimeter 1,000 ft an inch.
#include "support/view_shot.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

// The trainer's three upper instruments, panel pixels from the bottom left.
constexpr int asi_x = 250, ati_x = 380, alt_x = 510, top_row_y = 330;

// The 200-knot face's printed curve: three segments with their powers and rates.
double face_angle(double v)
{
	const double v1 = 40, v2 = 120, v3 = 200;
	const double t1 = std::fmin(std::fmax(v / v1, 0.0), 1.0), t2 = std::fmin(std::fmax((v - v1) / (v2 - v1), 0.0), 1.0);
	const double t3 = std::fmax((v - v2) / (v3 - v2), 0.0);
	return v1 * 0.75 * std::pow(t1, 1.2) + (v2 - v1) * 2.2 * t2 + (v3 - v2) * 1.425 * std::pow(t3, 0.85);
}

double wrap180(double a) { return std::remainder(a, 360.0); }

std::string say(const std::vector<ViewShot::spoke>& s)
{
	std::string out;
	for (const ViewShot::spoke& k : s) out += " " + std::to_string(k.angle) + "/" + std::to_string(k.width_px);
	return out;
}

struct Instruments : ViewShot {
	bool shot(const std::string& more)
	{
		return shoot("--panel --lat 32.5 --lon -120 --heading 225 --vis-nm 200 --time-utc 19:00 " + more, "1024x768");
	}
	// The horizon in the attitude indicator's window: down each column the middle between the
	// last sky and the ground below it, and the line through those middles, as its slope
	// (degrees, anticlockwise) and its height over the centre along its normal.
	bool horizon(double* slope, double* height) const
	{
		double sx = 0, sy = 0, sxx = 0, sxy = 0;
		int n = 0;
		for (int x = -30; x <= 30; x++) {
			int last_sky = 99;
			for (int y = 33; y >= -33; y--) {
				if (x * x + y * y > 33 * 33) continue;
				const unsigned char* p = at(ati_x + x, top_row_y + y);
				if (p[2] > p[0] + 30) last_sky = y;
				else if (p[0] > p[2] + 30 && p[1] < 110 && last_sky != 99) {
					const double mid = (last_sky + y) * 0.5;
					sx += x, sy += mid, sxx += (double)x * x, sxy += x * mid, n++;
					break;
				}
			}
		}
		if (n < 20) return false;
		const double m = (n * sxy - sx * sy) / (n * sxx - sx * sx), b = (sy - m * sx) / n;
		*slope = std::atan(m) * 180.0 / M_PI;
		*height = b * std::cos(std::atan(m));
		return true;
	}
};

}  // namespace

TEST_F(Instruments, TheAirspeedNeedlePointsWhereTheFacePrintsTheSpeed)
{
	for (double kias : {50.0, 90.0, 125.0, 160.0}) {
		ASSERT_TRUE(shot("--alt-ft 3000 --kias " + std::to_string(kias)));
		const std::vector<spoke> s = spokes(asi_x, top_row_y, 22.0);
		ASSERT_EQ(s.size(), 1u) << kias << say(s);
		EXPECT_NEAR(wrap180(s[0].angle - face_angle(kias)), 0.0, 1.5) << kias;
	}
}

TEST_F(Instruments, TheHorizonTiltsWithBankAndDropsWithTheNose)
{
	struct attitude {
		double pitch, roll;
	};
	// The ball's tape file: 2 pixels a degree of pitch.
	for (attitude a : {attitude{0, 0}, attitude{10, 0}, attitude{0, 30}, attitude{-8, -20}}) {
		char args[120];
		std::snprintf(args, sizeof args, "--alt-ft 3000 --kias 100 --pitch %g --roll %g", a.pitch, a.roll);
		ASSERT_TRUE(shot(args));
		double slope = 99, height = 99;
		ASSERT_TRUE(horizon(&slope, &height)) << args;
		EXPECT_NEAR(slope, a.roll, 1.5) << args;   // a right bank turns the horizon anticlockwise
		EXPECT_NEAR(height, -2.0 * a.pitch, 1.5) << args;   // nose up, the horizon below the centre
	}
}

// At 2,700 ft the hundreds needle stands at 7/10 of a turn, the thousands needle at 2.7/10,
// the ten-thousands pointer at 0.27/10; the setting's window below the middle is passed over.
TEST_F(Instruments, TheAltimeterReadsTheHeightAndMovesAThousandFeetAnInch)
{
	auto read = [&](double h_ind) {
		const std::vector<spoke> s = spokes(alt_x, top_row_y, 25.0, 140.0, 220.0);
		ASSERT_EQ(s.size(), 3u) << h_ind << say(s);
		const double want[3] = {std::fmod(h_ind * 0.36, 360.0), std::fmod(h_ind * 0.036, 360.0), std::fmod(h_ind * 0.0036, 360.0)};
		double width[3] = {0, 0, 0};
		for (int n = 0; n < 3; n++) {
			int found = -1;
			for (int k = 0; k < 3; k++)
				if (std::fabs(wrap180(s[k].angle - want[n])) < 2.0) found = k;
			ASSERT_GE(found, 0) << "needle " << n << " at " << h_ind << " ft:" << say(s);
			width[n] = s[found].width_px;
		}
		EXPECT_GT(width[1], width[0]);   // the thousands needle is the broad one
		EXPECT_GT(width[0], width[2]);   // the ten-thousands pointer the thinnest
	};
	ASSERT_TRUE(shot("--alt-ft 2700 --baro-inhg 29.92"));
	read(2700);
	ASSERT_TRUE(shot("--alt-ft 2700 --baro-inhg 30.92"));
	read(3700);
	// Ten clicks on the upper right of the setting knob, 0.01 inch each: 100 ft more.
	std::string clicks;
	for (int n = 0; n < 10; n++) clicks += " --click " + std::to_string(alt_x + 50 + 5) + "," + std::to_string(768 - (top_row_y - 53 + 3));
	ASSERT_TRUE(shot("--alt-ft 2700 --baro-inhg 29.92" + clicks));
	read(2800);
}

// The airspeed's slot moved to another place draws the same pixels there; a second one at
// half size covers a quarter of the area, centred on its slot, its needle still reading true.
TEST_F(Instruments, AMovedSlotMovesItsInstrumentExactlyAndAHalvedOneHalvesIt)
{
	ASSERT_TRUE(shot("--alt-ft 3000 --kias 100"));
	const std::vector<unsigned char> original = px;
	auto at_in = [&](const std::vector<unsigned char>& v, int x, int y) { return &v[((size_t)(H - 1 - y) * W + x) * 4]; };
	std::string clear_right;   // room at the right of the panel: the engine gauges and the flap and trim controls out
	for (int n = 8; n < 20; n++) clear_right += "ins_type[" + std::to_string(n) + "] -1\n";
	const std::string moved = own_trainer(clear_right + "ins_x[0] 880\nins_y[0] 200\n");
	ASSERT_FALSE(moved.empty());
	ASSERT_TRUE(shot("--alt-ft 3000 --kias 100" + moved));
	const std::vector<unsigned char> without_half = px;
	// The plate and the upright layers land texel for texel; the turned needle may round a
	// pixel of its edge otherwise.
	int differ = 0, most = 0;
	for (int y = -50; y <= 50; y++)
		for (int x = -50; x <= 50; x++) {
			if (x * x + y * y > 50 * 50) continue;
			const unsigned char *a = at_in(original, asi_x + x, top_row_y + y), *b = at(880 + x, 200 + y);
			for (int c = 0; c < 3; c++) most = std::max(most, std::abs(a[c] - b[c]));
			differ += a[0] != b[0] || a[1] != b[1] || a[2] != b[2];
		}
	EXPECT_LE(differ, 4);
	EXPECT_LE(most, 16);
	const std::string halved = own_trainer(clear_right + "ins_x[0] 880\nins_y[0] 200\nins_type[40] 74\nins_x[40] 880\nins_y[40] 330\nins_size[40] 0.5\n");
	ASSERT_FALSE(halved.empty());
	ASSERT_TRUE(shot("--alt-ft 3000 --kias 100" + halved));
	int area = 0, x1 = 9999, x2 = -1, y1 = 9999, y2 = -1;
	for (int y = 280; y < 380; y++)
		for (int x = 830; x < 930; x++) {
			const unsigned char *a = at_in(without_half, x, y), *b = at(x, y);
			if (a[0] == b[0] && a[1] == b[1] && a[2] == b[2]) continue;
			area++;
			x1 = std::min(x1, x), x2 = std::max(x2, x), y1 = std::min(y1, y), y2 = std::max(y2, y);
		}
	const double case_r = 59.5 * 0.5;   // the plate's case, 120 across
	EXPECT_NEAR(area, M_PI * case_r * case_r, 0.05 * M_PI * case_r * case_r);
	EXPECT_NEAR((x1 + x2 + 1) * 0.5, 880.0, 1.0);
	EXPECT_NEAR((y1 + y2 + 1) * 0.5, 330.0, 1.0);
	const std::vector<spoke> s = spokes(880, 330, 11.0);
	ASSERT_EQ(s.size(), 1u) << say(s);
	EXPECT_NEAR(wrap180(s[0].angle - face_angle(100)), 0.0, 3.0);
}

// The dial the program prints: from 20 knots under the flaps-down stall (40) to 20 over the
// never-exceed speed (163, to 180 in tens), 330 degrees clockwise from the top.
TEST_F(Instruments, TheAdaptiveAirspeedScaleRunsFromUnderTheStallToOverTheLimit)
{
	const std::string adaptive = own_trainer("ins_type[0] 80\n");
	ASSERT_FALSE(adaptive.empty());
	for (double kias : {60.0, 100.0, 150.0}) {
		ASSERT_TRUE(shot("--alt-ft 3000 --kias " + std::to_string(kias) + adaptive));
		const std::vector<spoke> s = spokes(asi_x, top_row_y, 20.0);
		ASSERT_EQ(s.size(), 1u) << kias << say(s);
		EXPECT_NEAR(wrap180(s[0].angle - (kias - 20.0) / 160.0 * 330.0), 0.0, 1.5) << kias;
	}
}
