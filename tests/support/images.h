// Test pictures written by encoders of their own: PNG through libpng in every colour type,
// BMP byte by byte, so that the loader is read against files it did not write.
#pragma once
#include <png.h>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace test_images {

struct rgba { unsigned char r, g, b, a; };

// A picture as the file holds it: row 0 at the top.
struct picture {
	int w = 0, h = 0;
	std::vector<rgba> px;
	rgba& at(int x, int y) { return px[(size_t)y * w + x]; }
	const rgba& at(int x, int y) const { return px[(size_t)y * w + x]; }
};

// Distinct values in every channel, so that a swapped channel or a flipped row shows.
inline picture pattern(int w, int h, bool with_alpha)
{
	picture p{w, h, std::vector<rgba>((size_t)w * h)};
	for (int y = 0; y < h; y++)
		for (int x = 0; x < w; x++)
			p.at(x, y) = {(unsigned char)(x * 37 + y * 11), (unsigned char)(200 - x * 13 - y * 7), (unsigned char)(y * 29 + 3),
			              (unsigned char)(with_alpha ? 40 + (x * 31 + y * 17) % 216 : 255)};
	return p;
}

enum png_kind { png_gray, png_rgb, png_rgba, png_palette };

// gamma 0: no gAMA chunk. Gray files take the red channel; palette files index the
// picture's distinct colours, with a tRNS chunk when any is not opaque.
inline bool write_png(const std::string& path, const picture& p, png_kind kind, double gamma)
{
	std::FILE* f = std::fopen(path.c_str(), "wb");
	if (!f) return false;
	png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
	png_infop info = png_create_info_struct(png);
	if (setjmp(png_jmpbuf(png))) {
		png_destroy_write_struct(&png, &info);
		std::fclose(f);
		return false;
	}
	png_init_io(png, f);
	const int type = kind == png_gray ? PNG_COLOR_TYPE_GRAY : kind == png_rgb ? PNG_COLOR_TYPE_RGB
	                 : kind == png_rgba ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_PALETTE;
	png_set_IHDR(png, info, p.w, p.h, 8, type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
	std::vector<rgba> pal;
	std::vector<unsigned char> index(p.px.size());
	if (kind == png_palette) {
		for (size_t k = 0; k < p.px.size(); k++) {
			size_t i = 0;
			while (i < pal.size() && !(pal[i].r == p.px[k].r && pal[i].g == p.px[k].g && pal[i].b == p.px[k].b && pal[i].a == p.px[k].a)) i++;
			if (i == pal.size()) pal.push_back(p.px[k]);
			index[k] = (unsigned char)i;
		}
		std::vector<png_color> colours;
		std::vector<unsigned char> alphas;
		for (const rgba& c : pal) {
			colours.push_back({c.r, c.g, c.b});
			alphas.push_back(c.a);
		}
		png_set_PLTE(png, info, colours.data(), (int)colours.size());
		bool opaque = true;
		for (unsigned char a : alphas) opaque = opaque && a == 255;
		if (!opaque) png_set_tRNS(png, info, alphas.data(), (int)alphas.size(), nullptr);
	}
	if (gamma > 0.0) png_set_gAMA(png, info, gamma);
	png_write_info(png, info);
	std::vector<unsigned char> row((size_t)p.w * 4);
	for (int y = 0; y < p.h; y++) {
		size_t n = 0;
		for (int x = 0; x < p.w; x++) {
			const rgba& c = p.at(x, y);
			if (kind == png_gray) row[n++] = c.r;
			else if (kind == png_palette) row[n++] = index[(size_t)y * p.w + x];
			else {
				row[n++] = c.r; row[n++] = c.g; row[n++] = c.b;
				if (kind == png_rgba) row[n++] = c.a;
			}
		}
		png_write_row(png, row.data());
	}
	png_write_end(png, info);
	png_destroy_write_struct(&png, &info);
	return std::fclose(f) == 0;
}

inline void le(std::string& s, unsigned v, int bytes)
{
	for (int k = 0; k < bytes; k++) s += (char)(v >> (8 * k));
}

// A BMP: bottom-up rows of blue, green, red, each padded to four bytes. bits and
// compression may be set wrong on purpose.
inline std::string bmp_bytes(const picture& p, int bits = 24, int compression = 0)
{
	const int stride = (p.w * 3 + 3) / 4 * 4;
	std::string s = "BM";
	le(s, 54 + stride * p.h, 4);
	le(s, 0, 4);
	le(s, 54, 4);
	le(s, 40, 4);
	le(s, p.w, 4);
	le(s, p.h, 4);
	le(s, 1, 2);
	le(s, bits, 2);
	le(s, compression, 4);
	le(s, stride * p.h, 4);
	le(s, 2835, 4);
	le(s, 2835, 4);
	le(s, 0, 4);
	le(s, 0, 4);
	for (int y = p.h - 1; y >= 0; y--) {
		for (int x = 0; x < p.w; x++) {
			const rgba& c = p.at(x, y);
			s += (char)c.b;
			s += (char)c.g;
			s += (char)c.r;
		}
		for (int k = p.w * 3; k < stride; k++) s += '\0';
	}
	return s;
}

inline void write_file(const std::string& path, const std::string& bytes)
{
	std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string read_file(const std::string& path)
{
	std::ifstream in(path, std::ios::binary);
	return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace test_images
