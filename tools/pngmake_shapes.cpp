// pngmake's procedural shapes: the lights of the sky and the lamps, the moon's phases,
// aurora curtains, static, the land and the sea.
#include "tools/pngmake.h"
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pm {

namespace {

int byte(double v) { return (int)std::lround(std::clamp(v, 0.0, 255.0)); }

// A small fixed random sequence, so that a seed always draws the same picture.
struct rng {
	uint32_t s;
	double next()
	{
		s = s * 1664525u + 1013904223u;
		return (s >> 8) / 16777216.0;
	}
};

// Round shapes inside a rectangle: radius 1 at the shorter side's half.
template <class F> void round_in(int x0, int y0, int rw, int rh, const int rgb[3], F alpha_at)
{
	const double cx = x0 + rw * 0.5, cy = y0 + rh * 0.5, rad = std::min(rw, rh) * 0.5;
	for (int y = y0; y < y0 + rh; y++)
		for (int x = x0; x < x0 + rw; x++) {
			const double r = std::hypot(x + 0.5 - cx, y + 0.5 - cy) / rad;
			const int c[4] = {rgb[0], rgb[1], rgb[2], byte(255.0 * alpha_at(r))};
			if (x >= 0 && y >= 0 && x < w && y < h && c[3] >= px[(size_t)(y * w + x) * 4 + 3]) put(x, y, c);   // the brighter shape shows
		}
}

// Dark seas on the near side, as soft patches: x, y on the disc, radius, depth.
constexpr double maria[][4] = {{-0.35, 0.35, 0.28, 0.30}, {-0.05, 0.45, 0.22, 0.25}, {0.25, 0.25, 0.25, 0.28}, {0.45, 0.05, 0.18, 0.22},
                               {-0.5, -0.05, 0.3, 0.25},  {-0.15, -0.1, 0.2, 0.18},  {0.2, -0.3, 0.2, 0.2}};

void moon(double phase)
{
	const double e = 2.0 * M_PI * phase, l[3] = {std::sin(e), 0.0, -std::cos(e)};   // the sun: behind at new, behind us at full
	const double c = w * 0.5, rad = w * 0.47;
	for (int y = 0; y < h; y++)
		for (int x = 0; x < w; x++) {
			const double nx = (x + 0.5 - c) / rad, ny = (c - (y + 0.5)) / rad, rr = nx * nx + ny * ny;
			int px4[4] = {0, 0, 0, 0};
			if (rr < 1.0) {
				const double nz = std::sqrt(1.0 - rr), lit = nx * l[0] + ny * l[1] + nz * l[2];
				double albedo = 0.92;
				for (const auto& m : maria) albedo -= m[3] * std::exp(-((nx - m[0]) * (nx - m[0]) + (ny - m[1]) * (ny - m[1])) / (m[2] * m[2]));
				const double edge = std::clamp((1.0 - std::sqrt(rr)) * rad, 0.0, 1.0);   // a smooth limb
				const double day = std::clamp((lit + 0.02) / 0.04, 0.0, 1.0);          // and terminator
				const double v = 255.0 * albedo * (0.8 + 0.2 * std::max(lit, 0.0));
				px4[0] = byte(v);
				px4[1] = byte(v * 0.98);
				px4[2] = byte(v * 0.94);
				px4[3] = byte(255.0 * edge * day);
			}
			put(x, y, px4);
		}
}

void aurora(uint32_t seed)
{
	rng r{seed * 2654435761u + 1u};
	double ph[6], fq[6];
	for (int k = 0; k < 6; k++) {
		ph[k] = r.next() * 2.0 * M_PI;
		fq[k] = 1.0 + r.next() * 9.0;
	}
	for (int x = 0; x < w; x++) {
		const double u = (double)x / w;
		double rays = 0.0, base = 0.0;
		for (int k = 0; k < 3; k++) rays += std::sin(u * fq[k] * 6.0 + ph[k]);
		for (int k = 3; k < 6; k++) base += std::sin(u * fq[k] + ph[k]);
		const double ray = 0.55 + 0.15 * rays, foot = h * (0.8 + 0.05 * base);   // the curtain's lower hem
		const double side = std::sin(M_PI * u);   // fading at the ends
		for (int y = 0; y < h; y++) {
			const double above = (foot - y) / h;
			const double in = above < 0.0 ? std::exp(above * 40.0) : std::exp(-above * 2.5);
			const double a = std::clamp(in * ray * side, 0.0, 1.0), t = std::clamp(above * 1.6, 0.0, 1.0);
			const int c[4] = {byte(60 + 160 * t), byte(255 - 215 * t), byte(120 - 20 * t), byte(255.0 * a)};
			put(x, y, c);
		}
	}
}

}  // namespace

// Value noise that wraps: a lattice of px by py cells over the image, so that the sheet
// tiles with itself side to side and top to bottom.
double wrap_noise(double x, double y, int px, int py, uint32_t seed)
{
	auto h = [&](int i, int j) {
		uint32_t k = (uint32_t)(((i % px) + px) % px) * 73856093u ^ (uint32_t)(((j % py) + py) % py) * 19349663u ^ seed * 83492791u;
		k ^= k >> 13;
		k *= 0x5bd1e995u;
		k ^= k >> 15;
		return (k & 0xffffff) / 16777215.0;
	};
	const int i = (int)std::floor(x), j = (int)std::floor(y);
	double u = x - i, v = y - j;
	u = u * u * (3.0 - 2.0 * u);
	v = v * v * (3.0 - 2.0 * v);
	const double a = h(i, j) + (h(i + 1, j) - h(i, j)) * u, b = h(i, j + 1) + (h(i + 1, j + 1) - h(i, j + 1)) * u;
	return a + (b - a) * v;
}

namespace {

// Octaves of it: 0..1, cells lattice cells across the image's height.
double wrap_fbm(int x, int y, int cells, int octaves, uint32_t seed)
{
	double sum = 0.0, amp = 0.5, norm = 0.0;
	int cy = std::max(cells, 1), cx = std::max(cells * w / std::max(h, 1), 1);
	for (int o = 0; o < octaves; o++) {
		sum += amp * wrap_noise((x + 0.5) * cx / w, (y + 0.5) * cy / h, cx, cy, seed + (uint32_t)o);
		norm += amp;
		amp *= 0.5;
		cx *= 2;
		cy *= 2;
	}
	return sum / norm;
}

void blend_into(int x, int y, const double rgb[3], double a)
{
	unsigned char* p = &px[(size_t)(y * w + x) * 4];
	for (int c = 0; c < 3; c++) p[c] = (unsigned char)byte(p[c] + (rgb[c] - p[c]) * a);
	p[3] = 255;
}

// The sea: long swell and shorter chop from a few directions, each a whole number of waves
// across the sheet so that it tiles, moving through one loop in sixteen frames.
void sea(int state, int frame)
{
	const double phase = 2.0 * M_PI * frame / 16.0, rough = state / 6.0;
	// Shading only: the frame tints it with the water colour of the hour.
	const double deep[3] = {168, 184, 200}, crest[3] = {226, 234, 240}, foam[3] = {255, 255, 255};
	static const int waves[6][2] = {{1, 2}, {2, -1}, {3, 1}, {-2, 3}, {5, -4}, {-7, 6}};
	for (int y = 0; y < h; y++)
		for (int x = 0; x < w; x++) {
			double v = 0.0, norm = 0.0;
			for (int k = 0; k < 6; k++) {
				const double amp = 1.0 / (1.0 + k * (1.5 - rough)), arg = 2.0 * M_PI * (waves[k][0] * (double)x / w + waves[k][1] * (double)y / h);
				v += amp * std::sin(arg + phase * (k % 3 + 1));
				norm += amp;
			}
			v = 0.5 + 0.5 * v / norm;   // 0 trough .. 1 crest
			double c[3];
			for (int i = 0; i < 3; i++) c[i] = deep[i] + (crest[i] - deep[i]) * v * (0.4 + 0.6 * rough);
			const double whitecap = std::clamp((v - (1.0 - 0.25 * rough)) / 0.06, 0.0, 1.0) * rough;
			for (int i = 0; i < 3; i++) c[i] += (foam[i] - c[i]) * whitecap;
			const int rgba[4] = {byte(c[0]), byte(c[1]), byte(c[2]), 255};
			put(x, y, rgba);
		}
}

}  // namespace

int frame_number = 0;

int shape_op(const std::string& op, std::istream& ss, std::string* why)
{
	if (op == "glow" || op == "disc") {
		int x, y, rw, rh, rgb[3];
		double k;
		if (!(ss >> x >> y >> rw >> rh >> rgb[0] >> rgb[1] >> rgb[2] >> k) || rw < 1 || rh < 1 || k <= 0.0) {
			*why = "needs X Y W H R G B and a positive shape number";
			return 0;
		}
		if (op == "glow") round_in(x, y, rw, rh, rgb, [k](double r) { return r < 1.0 ? std::pow(1.0 - r, k) : 0.0; });
		else round_in(x, y, rw, rh, rgb, [k](double r) { return std::clamp((1.0 - r) / k, 0.0, 1.0); });
		return 1;
	}
	if (op == "moon") {
		double phase;
		if (!(ss >> phase) || phase < 0.0 || phase > 1.0 || w != h) {
			*why = "needs a phase 0..1 on a square image";
			return 0;
		}
		moon(phase);
		return 1;
	}
	if (op == "aurora" || op == "noise") {
		uint32_t seed;
		double a = 1.0;
		if (!(ss >> seed) || (op == "noise" && !(ss >> a))) {
			*why = "needs a seed";
			return 0;
		}
		if (op == "aurora") aurora(seed);
		else {
			rng r{seed};
			for (int y = 0; y < h; y++)
				for (int x = 0; x < w; x++) {
					const int v = byte(r.next() * 255.0), c[4] = {v, v, v, byte(255.0 * a)};
					put(x, y, c);
				}
		}
		return 1;
	}
	if (op == "land") {   // land LATTICE OCTAVES SEED then three colours, dark to light
		int cells, oct;
		uint32_t seed;
		double c[9];
		if (!(ss >> cells >> oct >> seed) || cells < 1 || oct < 1 || oct > 8) { *why = "needs LATTICE OCTAVES SEED and three colours"; return 0; }
		for (double& v : c)
			if (!(ss >> v)) { *why = "needs three colours"; return 0; }
		for (int y = 0; y < h; y++)
			for (int x = 0; x < w; x++) {
				const double n = std::clamp((wrap_fbm(x, y, cells, oct, seed) - 0.2) / 0.6, 0.0, 1.0);
				const int k = n < 0.5 ? 0 : 3;
				const double u = n < 0.5 ? n * 2.0 : n * 2.0 - 1.0;
				const int rgba[4] = {byte(c[k] + (c[k + 3] - c[k]) * u), byte(c[k + 1] + (c[k + 4] - c[k + 1]) * u), byte(c[k + 2] + (c[k + 5] - c[k + 2]) * u), 255};
				put(x, y, rgba);
			}
		return 1;
	}
	if (op == "patches") {   // patches LATTICE SEED SHARE R G B A: blotches covering about SHARE of the ground
		int cells;
		uint32_t seed;
		double share, rgb[3], a;
		if (!(ss >> cells >> seed >> share >> rgb[0] >> rgb[1] >> rgb[2] >> a) || cells < 1) { *why = "needs LATTICE SEED SHARE R G B A"; return 0; }
		for (int y = 0; y < h; y++)
			for (int x = 0; x < w; x++) {
				const double n = wrap_fbm(x, y, cells, 2, seed);
				if (n > 1.0 - share) blend_into(x, y, rgb, a * std::clamp((n - (1.0 - share)) * 20.0, 0.0, 1.0));
			}
		return 1;
	}
	if (op == "grid") {   // grid STEP WIDTH R G B A: streets every STEP pixels
		int step, width;
		double rgb[3], a;
		if (!(ss >> step >> width >> rgb[0] >> rgb[1] >> rgb[2] >> a) || step < 2 || width < 1) { *why = "needs STEP WIDTH R G B A"; return 0; }
		for (int y = 0; y < h; y++)
			for (int x = 0; x < w; x++)
				if (x % step < width || y % step < width) blend_into(x, y, rgb, a);
		return 1;
	}
	if (op == "sea") {   // sea STATE: the frame comes from the command line
		int state;
		if (!(ss >> state) || state < 1 || state > 7) { *why = "needs a sea state 1..7"; return 0; }
		sea(state - 1, frame_number);
		return 1;
	}
	return -1;
}

}  // namespace pm
