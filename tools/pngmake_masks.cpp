// pngmake's ground sheets: the masks that blend one land type into the next, and the light
// the second texture unit lays on the ground (a landing light's pool, the sun's glitter).
#include "tools/pngmake.h"
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pm {

namespace {

int byte(double v) { return (int)std::lround(std::clamp(v, 0.0, 255.0)); }

// The corners each mask index covers: south-west, north-west, north-east, south-east.
constexpr int corners_of[15][4] = {{0, 0, 0, 0}, {1, 0, 0, 1}, {1, 1, 0, 0}, {0, 1, 1, 0}, {0, 0, 1, 1}, {0, 0, 1, 0},
                                   {0, 0, 0, 1}, {1, 0, 0, 0}, {0, 1, 0, 0}, {1, 1, 0, 1}, {1, 1, 1, 0}, {0, 1, 1, 1},
                                   {1, 0, 1, 1}, {0, 1, 0, 1}, {1, 0, 1, 0}};

double smooth(double u)
{
	u = std::clamp(u, 0.0, 1.0);
	return u * u * (3.0 - 2.0 * u);
}

// Coverage of one mask at (s, t) in the cell, both 0..1. The corners blend bilinearly, so
// along a cell's edge only that edge's two corners count and neighbouring cells meet; the
// noise repeats every cell for the same reason. A diagonal pair joins across the middle.
double coverage(int index, double s, double t, double ragged, double soft, int cells, uint32_t seed)
{
	const int* c = corners_of[index];
	double f = c[0] * (1 - s) * (1 - t) + c[1] * (1 - s) * t + c[2] * s * t + c[3] * s * (1 - t);
	if (index >= 13) f += 2.0 * s * (1 - s) * t * (1 - t);   // 0.125 at the middle, nothing on the edges
	double n = 0.0, amp = 0.5, norm = 0.0;
	for (int k = 1; k <= 8 && cells * k <= 64; k *= 2) {
		n += amp * wrap_noise(s * cells * k, t * cells * k, cells * k, cells * k, seed + (uint32_t)k);
		norm += amp;
		amp *= 0.5;
	}
	n = (n / norm) * 2.0 - 1.0;
	return smooth((f - 0.5 + ragged * n) / soft + 0.5);
}

// Sheet 1..4 (_C1.._C4): three sheets of four square masks, the quadrants in the order
// (0,0), (0,1), (1,1), (1,0) from the bottom left; the fourth two half-width masks.
void mask_sheet(int sheet, double ragged, double soft, int cells, uint32_t seed)
{
	static const int first_index[5] = {0, 9, 5, 1, 13};
	static const int quad[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
	const int half_w = w / 2, half_h = sheet == 4 ? h : h / 2;
	for (int y = 0; y < h; y++)
		for (int x = 0; x < w; x++) {
			const int row = h - 1 - y;   // from the bottom, as the texture's t runs
			const int qi = x / half_w, qj = row / half_h;
			int k = 0;
			if (sheet == 4) k = qi;
			else
				for (; k < 4; k++)
					if (quad[k][0] == qi && quad[k][1] == qj) break;
			const double s = (x - qi * half_w + 0.5) / half_w, t = (row - qj * half_h + 0.5) / half_h;
			const int a = byte(255.0 * coverage(first_index[sheet] + k, s, t, ragged, soft, cells, seed));
			const int rgba[4] = {a, a, a, a};
			put(x, y, rgba);
		}
}

// The sun's path on the water seen from above: nothing behind the eye (the bottom half),
// ahead a band along the middle that widens and sparkles with distance. The top row is
// the far end, and clamping carries it on to the horizon.
void glitter(const double rgb[3], uint32_t seed)
{
	for (int y = 0; y < h; y++)
		for (int x = 0; x < w; x++) {
			const double s = (x + 0.5) / w, t = (h - 1 - y + 0.5) / h, u = (t - 0.5) * 2.0;
			double v = 0.0;
			if (u > 0.0 && x > 0 && x < w - 1) {
				const double width = 0.03 + 0.2 * u, across = (s - 0.5) / width;
				const double sparkle = 0.55 + 0.45 * wrap_noise(s * 32.0, t * 32.0, 32, 32, seed);
				v = std::exp(-across * across) * smooth(u / 0.08) * sparkle;
			}
			const int rgba[4] = {byte(rgb[0] * v), byte(rgb[1] * v), byte(rgb[2] * v), 255};
			put(x, y, rgba);
		}
}

}  // namespace

int ground_light_op(const std::string& op, std::istream& ss, std::string* why)
{
	if (op == "mask") {   // mask RAGGED SOFT LATTICE SEED: the sheet (1..4) comes from the command line
		double ragged, soft;
		int cells;
		uint32_t seed;
		if (!(ss >> ragged >> soft >> cells >> seed) || cells < 1 || soft <= 0.0 || ragged < 0.0 || ragged + soft * 0.5 >= 0.5) {
			*why = "needs RAGGED SOFT LATTICE SEED, ragged plus half soft below 0.5 so that the corners stay whole";
			return 0;
		}
		if (frame_number < 1 || frame_number > 4 || w != h || w < 4) {
			*why = "a mask sheet is square and its number 1..4";
			return 0;
		}
		mask_sheet(frame_number, ragged, soft, cells, seed);
		return 1;
	}
	if (op == "glitter") {   // glitter R G B SEED
		double rgb[3];
		uint32_t seed;
		if (!(ss >> rgb[0] >> rgb[1] >> rgb[2] >> seed)) {
			*why = "needs R G B SEED";
			return 0;
		}
		glitter(rgb, seed);
		return 1;
	}
	if (op == "premultiply") {   // colours times their alpha, then opaque: for adding light
		for (size_t k = 0; k < px.size(); k += 4) {
			for (int c = 0; c < 3; c++) px[k + c] = (unsigned char)((px[k + c] * px[k + 3] + 127) / 255);
			px[k + 3] = 255;
		}
		return 1;
	}
	return -1;
}

}  // namespace pm
