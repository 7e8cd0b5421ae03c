// pngmake: writes an RGBA PNG from a readable drawing description, so that no binary
// image is kept in the repository.
//   size W H               the image, at most 4096 x 4096
//   fill R G B A           the whole image
//   rect X Y W H R G B A   a rectangle, X and Y from the top left
//   swatch X Y R G B       an opaque 8 x 8 square round X, Y counted from the bottom left,
//                          where the reader samples a colour
//   glyphs CHARSET FONT PX the characters of a charset rendered white, coverage as alpha, into
//                          its cells, each within its advance less a column, baseline 2 above
//                          the cell's foot
//   gamma G                a gAMA chunk: 0.45455 keeps the colours as written
//   timestrip X W E R G B [E R G B]...
//                          columns X to X+W-1 of a light strip: row t from the bottom is the
//                          time pixel whose sun elevation is E (-10 at the left end, 6 at the
//                          middle, mirrored after noon); colours between the stops blend
//   skyzenith E R G B [E R G B]...   the sky overhead by the sun's elevation E
//   skyhorizon E R G B [...]         the sky at the horizon
//   skyglow W E R G B [...]          light round the sun, fading over W degrees from it
//   skydraw                          the 64 x 256 sky table from those: 16 frames of 16
//                          rows (2 degrees each, the horizon first) by 64 azimuth columns, the
//                          sun's in the middle; frames by sun elevation as the time pixels
//   glow X Y W H R G B P     a soft round light in the rectangle: alpha (1 - r) to the power P
//   disc X Y W H R G B E     a round disc, its edge softened over E of its radius
//   moon P                   the whole image a moon at phase P (0 new, 0.5 full): a sphere lit
//                          from the side, the unlit part transparent
//   aurora SEED              the whole image a curtain of light: green rays, red at their tops
//   noise SEED A             the whole image grey static of alpha A
//   land LATTICE OCTAVES SEED R G B R G B R G B
//                            ground: noise that wraps at the image's edges, LATTICE cells
//                            across its height, coloured through three stops
//   patches LATTICE SEED SHARE R G B A   blotches of a colour over about SHARE of the ground
//   grid STEP WIDTH R G B A  lines every STEP pixels both ways
//   sea STATE                the sea in state 1 (calm) to 7 (high), at the frame given on
//                            the command line (0..15, one loop)
// Blank lines and lines starting with '#' are skipped.
#include "tools/pngmake.h"
#include "render/glyph_tables.h"
#include <ft2build.h>
#include FT_FREETYPE_H
#include <png.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace pm {

int w = 0, h = 0;
std::vector<unsigned char> px;

void put(int x, int y, const int c[4])
{
	if (x < 0 || y < 0 || x >= w || y >= h) return;
	for (int k = 0; k < 4; k++) px[(size_t)(y * w + x) * 4 + k] = (unsigned char)c[k];
}

}  // namespace pm

namespace {

using pm::w;
using pm::h;
using pm::px;
using pm::put;

std::vector<double> sky_zenith, sky_horizon, sky_glow;
double glow_width = 20.0;

// Colour stops E R G B, rising in E: the colour at e, held beyond the ends.
void blend_stops(const std::vector<double>& st, double e, double c[3])
{
	size_t k = 0;
	while (k + 4 < st.size() && st[k + 4] <= e) k += 4;
	for (int i = 0; i < 3; i++) {
		if (e <= st[0] || k + 4 >= st.size()) c[i] = st[(e <= st[0] ? 0 : k) + 1 + i];
		else c[i] = st[k + 1 + i] + (st[k + 5 + i] - st[k + 1 + i]) * (e - st[k]) / (st[k + 4] - st[k]);
	}
}

// Every character the charset has, rendered into its cell; the widest squeezed to its advance.
bool glyphs(int charset, const std::string& font, int pixels, std::string* error)
{
	const charset_spec* cs = charset_of(charset);
	if (!cs || charset == 103) { *error = "glyphs are drawn for charsets 100 to 102"; return false; }
	FT_Library lib;
	FT_Face face;
	if (FT_Init_FreeType(&lib)) { *error = "FreeType did not start"; return false; }
	if (FT_New_Face(lib, font.c_str(), 0, &face) || FT_Set_Pixel_Sizes(face, 0, (FT_UInt)pixels)) {
		*error = "cannot open the font " + font;
		FT_Done_FreeType(lib);
		return false;
	}
	for (int c = 33; c < 127; c++) {
		const int index = glyph_index((unsigned char)c);
		if (index < 0) continue;
		// A column of the advance stays clear, so that neighbours never touch.
		const int fit = std::max(1, (cs->pitch ? std::min(cs->pitch, cs->ds) : std::min(glyph_advance((unsigned char)c), cs->ds + 1)) - 1);
		const int cell_s = cs->s0 + index % cs->per_row * cs->ds, cell_t = cs->t0 + index / cs->per_row * cs->dt;
		FT_Matrix squeeze = {0x10000, 0, 0, 0x10000};
		for (int pass = 0; pass < 2; pass++) {
			FT_Set_Transform(face, &squeeze, nullptr);
			if (FT_Load_Char(face, (FT_ULong)c, FT_LOAD_RENDER | FT_LOAD_TARGET_LIGHT)) break;
			const FT_GlyphSlot g = face->glyph;
			const int width = (int)g->bitmap.width;
			if (pass == 0 && (g->bitmap_left < 0 || g->bitmap_left + width > fit) && width > 0) {
				const double room = std::max(1.0, (double)fit - 0.5);
				squeeze.xx = (FT_Fixed)(0x10000 * std::min(1.0, room / (g->bitmap_left > 0 ? g->bitmap_left + width : width)));
				continue;
			}
			const int left = std::clamp(g->bitmap_left, 0, std::max(0, fit - width));
			for (unsigned r = 0; r < g->bitmap.rows; r++)
				for (int col = 0; col < width; col++) {
					const int s = left + col, t = 2 + g->bitmap_top - 1 - (int)r;   // within the cell, up from its foot
					if (s < 0 || s >= fit || t < 0 || t >= cs->dt) continue;
					const int a = g->bitmap.buffer[r * g->bitmap.pitch + col];
					const int rgba[4] = {255, 255, 255, a};
					put(cell_s + s, h - 1 - (cell_t + t), rgba);
				}
			break;
		}
	}
	FT_Done_Face(face);
	FT_Done_FreeType(lib);
	// At this size a hinted 'l' can come out as 'I'; as hand-tuned bitmap fonts do, the 'l'
	// then rises a pixel above the capitals.
	auto cell_top = [&](unsigned char c) { return h - 1 - (cs->t0 + glyph_index(c) / cs->per_row * cs->dt) - (cs->dt - 1); };
	auto inked_from_top = [&](unsigned char c) {   // rows down from the cell's top to its first inked row
		const int left = cs->s0 + glyph_index(c) % cs->per_row * cs->ds;
		for (int y = 0; y < cs->dt; y++)
			for (int x = left; x < left + cs->ds; x++)
				if (px[((size_t)(cell_top(c) + y) * w + x) * 4 + 3] > 64) return y;
		return -1;
	};
	const int rel_i = inked_from_top('I'), rel_l = inked_from_top('l');
	if (rel_l > 0 && rel_i >= 0 && rel_l >= rel_i) {
		unsigned char* row = &px[((size_t)(cell_top('l') + rel_l) * w + cs->s0 + glyph_index('l') % cs->per_row * cs->ds) * 4];
		std::copy(row, row + cs->ds * 4, row - (size_t)w * 4);   // its top row once more, above
	}
	return true;
}

}  // namespace

int main(int argc, char** argv)
{
	if (argc != 3 && argc != 4) { std::fprintf(stderr, "usage: pngmake SOURCE.txt OUT.png [FRAME]\n"); return 2; }
	if (argc == 4) pm::frame_number = std::atoi(argv[3]);
	std::ifstream in(argv[1]);
	if (!in) { std::fprintf(stderr, "pngmake: cannot read %s\n", argv[1]); return 1; }
	int line_no = 0;
	double gamma = 0.0;
	std::string line;
	while (std::getline(in, line)) {
		line_no++;
		std::istringstream ss(line);
		std::string op;
		if (!(ss >> op) || op[0] == '#') continue;
		auto bad = [&](const char* why) {
			std::fprintf(stderr, "pngmake: %s:%d: %s: \"%s\"\n", argv[1], line_no, why, line.c_str());
			return 1;
		};
		if (op != "size" && w == 0) return bad("no size yet");
		if (op == "gamma") {
			if (!(ss >> gamma) || gamma <= 0.0 || gamma > 10.0) return bad("bad gamma");
			continue;
		}
		if (op == "glyphs") {
			int charset = 0, pixels = 0;
			std::string font, error;
			if (!(ss >> charset >> font >> pixels) || pixels < 4 || pixels > 64) return bad("cannot read");
			if (!glyphs(charset, font, pixels, &error)) return bad(error.c_str());
			continue;
		}
		if (op == "skyzenith" || op == "skyhorizon" || op == "skyglow") {
			std::vector<double>& st = op == "skyzenith" ? sky_zenith : op == "skyhorizon" ? sky_horizon : sky_glow;
			st.clear();
			if (op == "skyglow" && !(ss >> glow_width && glow_width > 0.0)) return bad("a glow needs its width");
			for (double d; ss >> d;) st.push_back(d);
			if (st.empty() || st.size() % 4 != 0) return bad("stops are E R G B");
			continue;
		}
		if (op == "skydraw") {
			if (w != 64 || h != 256 || sky_zenith.empty() || sky_horizon.empty() || sky_glow.empty()) return bad("skydraw needs size 64 256 and all three");
			for (int f = 0; f < 16; f++) {
				const double sun = f < 8 ? (f + 0.5) / 0.499374986 - 10.0 : 6.0 - (f + 0.5 - 7.0) / 0.499374986;
				double zen[3], hor[3], glow[3];
				blend_stops(sky_zenith, sun, zen);
				blend_stops(sky_horizon, sun, hor);
				blend_stops(sky_glow, sun, glow);
				for (int j = 0; j < 16; j++)
					for (int i = 0; i < 64; i++) {
						const double up = j * 2.0 * M_PI / 180.0, az = ((i + 0.5) / 64.0 - 0.5) * 2.0 * M_PI, se = sun * M_PI / 180.0;
						const double cos_apart = std::sin(up) * std::sin(se) + std::cos(up) * std::cos(se) * std::cos(az);
						const double apart = std::acos(std::clamp(cos_apart, -1.0, 1.0)) * 180.0 / M_PI;
						const double k = std::sqrt(j / 15.0), g = std::exp(-apart / glow_width) * (1.0 - 0.5 * j / 15.0);
						int rgba[4] = {0, 0, 0, 255};
						for (int c = 0; c < 3; c++) rgba[c] = (int)std::lround(std::clamp(hor[c] + (zen[c] - hor[c]) * k + glow[c] * g, 0.0, 255.0));
						put(i, h - 1 - (f * 16 + j), rgba);
					}
			}
			continue;
		}
		std::string why;
		int done = pm::shape_op(op, ss, &why);
		if (done < 0) done = pm::ground_light_op(op, ss, &why);
		if (done >= 0) {
			if (!done) return bad(why.c_str());
			continue;
		}
		if (op == "timestrip") {
			int x0 = 0, width = 0;
			std::vector<double> stops;
			double d;
			if (!(ss >> x0 >> width)) return bad("cannot read");
			while (ss >> d) stops.push_back(d);
			if (stops.empty() || stops.size() % 4 != 0) return bad("stops are E R G B");
			for (size_t k = 4; k < stops.size(); k += 4)
				if (stops[k] <= stops[k - 4]) return bad("stops must rise in elevation");
			for (int t = 0; t < h; t++) {
				const double half = h / 2.0, e = t < half ? t / (half / 16.0) - 10.0 : (h - 1 - t) / (half / 16.0) - 10.0;
				size_t k = 0;
				while (k + 4 < stops.size() && stops[k + 4] <= e) k += 4;
				double c[3];
				for (int i = 0; i < 3; i++) {
					if (e <= stops[0]) c[i] = stops[1 + i];
					else if (k + 4 >= stops.size()) c[i] = stops[k + 1 + i];
					else {
						const double u = (e - stops[k]) / (stops[k + 4] - stops[k]);
						c[i] = stops[k + 1 + i] + (stops[k + 5 + i] - stops[k + 1 + i]) * u;
					}
				}
				const int rgba[4] = {(int)std::lround(std::clamp(c[0], 0.0, 255.0)), (int)std::lround(std::clamp(c[1], 0.0, 255.0)),
				                     (int)std::lround(std::clamp(c[2], 0.0, 255.0)), 255};
				for (int x = x0; x < x0 + width; x++) put(x, h - 1 - t, rgba);
			}
			continue;
		}
		int v[8] = {};
		const int want = op == "size" ? 2 : op == "fill" ? 4 : op == "rect" ? 8 : op == "swatch" ? 5 : -1;
		int got = 0;
		while (got < want && ss >> v[got]) got++;
		if (want < 0 || got != want) return bad("cannot read");
		const int first_colour = op == "size" ? want : op == "swatch" ? 2 : want - 4;
		for (int k = first_colour; k < want; k++)
			if (v[k] < 0 || v[k] > 255) return bad("colour out of 0..255");
		if (op == "size") {
			if (v[0] < 1 || v[1] < 1 || v[0] > 4096 || v[1] > 4096) return bad("bad size");
			w = v[0];
			h = v[1];
			px.assign((size_t)w * h * 4, 0);
		} else if (op == "fill") {
			for (int y = 0; y < h; y++)
				for (int x = 0; x < w; x++) put(x, y, v);
		} else if (op == "rect") {
			for (int y = v[1]; y < v[1] + v[3]; y++)
				for (int x = v[0]; x < v[0] + v[2]; x++) put(x, y, v + 4);
		} else {
			const int c[4] = {v[2], v[3], v[4], 255};
			for (int y = v[1] - 4; y < v[1] + 4; y++)
				for (int x = v[0] - 4; x < v[0] + 4; x++) put(x, h - 1 - y, c);
		}
	}
	if (!w) { std::fprintf(stderr, "pngmake: %s: no size\n", argv[1]); return 1; }
	FILE* out = std::fopen(argv[2], "wb");
	if (!out) { std::fprintf(stderr, "pngmake: cannot write %s\n", argv[2]); return 1; }
	png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
	png_infop info = png_create_info_struct(png);
	if (setjmp(png_jmpbuf(png))) { std::fclose(out); return 1; }
	png_init_io(png, out);
	png_set_IHDR(png, info, w, h, 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
	if (gamma > 0.0) png_set_gAMA(png, info, gamma);
	png_write_info(png, info);
	for (int y = 0; y < h; y++) png_write_row(png, &px[(size_t)y * w * 4]);
	png_write_end(png, nullptr);
	png_destroy_write_struct(&png, &info);
	return std::fclose(out) == 0 ? 0 : 1;
}
