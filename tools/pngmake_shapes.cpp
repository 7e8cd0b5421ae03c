// pngmake's procedural shapes: the lights of the sky and the lamps, the moon's phases,
// aurora curtains and static.
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
	return -1;
}

}  // namespace pm
