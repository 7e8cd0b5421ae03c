// framewright art: the cockpit's pictures drawn from readable sources. One operation a
// line, '#' a comment; y counts up from the bottom as the panel's does. Pure magenta is
// the see-through key, so shapes in it are drawn without smoothing: no pink fringe.
#include "tools/framewright/framewright.h"
#include <cairo-ft.h>
#include <cairo.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr const char* font_file = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

struct canvas {
	cairo_surface_t* surface = nullptr;
	cairo_t* cr = nullptr;
	int w = 0, h = 0;
	FT_Library ft = nullptr;
	FT_Face face = nullptr;
	cairo_font_face_t* font = nullptr;
	~canvas()
	{
		if (cr) cairo_destroy(cr);
		if (surface) cairo_surface_destroy(surface);
		if (font) cairo_font_face_destroy(font);
		if (face) FT_Done_Face(face);
		if (ft) FT_Done_FreeType(ft);
	}
	double y(double from_bottom) const { return h - from_bottom; }
	bool cutting = false;   // "cut": the shape clears what is under it, whatever its colour
	void colour(double r, double g, double b, double a = 255.0)
	{
		if (cutting) {
			cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
			cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
			return;
		}
		const bool key = r == 255 && g == 0 && b == 255;
		cairo_set_antialias(cr, key ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
		cairo_set_operator(cr, key ? CAIRO_OPERATOR_SOURCE : CAIRO_OPERATOR_OVER);
		cairo_set_source_rgba(cr, r / 255.0, g / 255.0, b / 255.0, a / 255.0);
	}
	// The curve a windscreen's lower edge follows: y at the sides, rise more in the middle.
	double arch(double x, double y0, double rise) const
	{
		const double u = (x - w * 0.5) / (w * 0.5);
		return y0 + rise * (1.0 - u * u);
	}
	void arch_path(double y0, double rise)
	{
		for (int x = 0; x <= w; x += 8) {
			if (x == 0) cairo_move_to(cr, x, y(arch(x, y0, rise)));
			else cairo_line_to(cr, x, y(arch(x, y0, rise)));
		}
	}
};

bool draw(canvas& c, const std::string& op, std::istringstream& ss, std::string* why)
{
	auto need = [&](std::vector<double>& v, size_t n) {
		double d;
		while (v.size() < n && ss >> d) v.push_back(d);
		if (v.size() < n) *why = op + " needs " + std::to_string(n) + " numbers";
		return v.size() == n;
	};
	std::vector<double> v;
	if (op == "cut") {   // cut OP ...: the shape OP draws becomes see-through
		std::string shape;
		if (!(ss >> shape) || shape == "cut") { *why = "cut needs a shape"; return false; }
		c.cutting = true;
		const bool ok = draw(c, shape, ss, why);
		c.cutting = false;
		return ok;
	}
	if (op == "fill") {
		if (!need(v, 3)) return false;
		c.colour(v[0], v[1], v[2]);
		cairo_paint(c.cr);
	} else if (op == "rect") {   // rect X Y W H R G B [A]
		if (!need(v, 7)) return false;
		double a = 255;
		ss >> a;
		c.colour(v[4], v[5], v[6], a);
		cairo_rectangle(c.cr, v[0], c.y(v[1] + v[3]), v[2], v[3]);
		cairo_fill(c.cr);
	} else if (op == "poly" || op == "sharp" || op == "key") {   // poly R G B X1 Y1 ...; sharp the same unsmoothed; key X1 Y1 ...
		if (op != "key" && !need(v, 3)) return false;
		std::vector<double> p;
		double d;
		while (ss >> d) p.push_back(d);
		if (p.size() < 6 || p.size() % 2) { *why = op + " needs three or more points"; return false; }
		if (op == "key") c.colour(255, 0, 255);
		else c.colour(v[0], v[1], v[2]);
		if (op == "sharp") cairo_set_antialias(c.cr, CAIRO_ANTIALIAS_NONE);   // against the windscreen: no magenta fringe
		for (size_t k = 0; k < p.size(); k += 2) cairo_line_to(c.cr, p[k], c.y(p[k + 1]));
		cairo_close_path(c.cr);
		cairo_fill(c.cr);
	} else if (op == "arch") {   // arch Y RISE R G B: everything above the curve
		if (!need(v, 5)) return false;
		c.colour(v[2], v[3], v[4]);
		c.arch_path(v[0], v[1]);
		cairo_line_to(c.cr, c.w, 0);
		cairo_line_to(c.cr, 0, 0);
		cairo_close_path(c.cr);
		cairo_fill(c.cr);
	} else if (op == "band") {   // band Y RISE DEPTH R G B: a glare shield under the curve
		if (!need(v, 6)) return false;
		c.colour(v[3], v[4], v[5]);
		c.arch_path(v[0], v[1]);
		for (int x = c.w; x >= 0; x -= 8) cairo_line_to(c.cr, x, c.y(c.arch(x, v[0], v[1]) - v[2]));
		cairo_close_path(c.cr);
		cairo_fill(c.cr);
	} else if (op == "shade") {   // shade Y0 Y1 R0 G0 B0 R1 G1 B1: a vertical gradient
		if (!need(v, 8)) return false;
		cairo_pattern_t* g = cairo_pattern_create_linear(0, c.y(v[0]), 0, c.y(v[1]));
		cairo_pattern_add_color_stop_rgb(g, 0, v[2] / 255, v[3] / 255, v[4] / 255);
		cairo_pattern_add_color_stop_rgb(g, 1, v[5] / 255, v[6] / 255, v[7] / 255);
		cairo_set_antialias(c.cr, CAIRO_ANTIALIAS_DEFAULT);
		cairo_set_operator(c.cr, CAIRO_OPERATOR_OVER);
		cairo_set_source(c.cr, g);
		cairo_rectangle(c.cr, 0, c.y(v[1]), c.w, v[1] - v[0]);
		cairo_fill(c.cr);
		cairo_pattern_destroy(g);
	} else if (op == "circle") {   // circle X Y R R G B [A]
		if (!need(v, 6)) return false;
		double a = 255;
		ss >> a;
		c.colour(v[3], v[4], v[5], a);
		cairo_arc(c.cr, v[0], c.y(v[1]), v[2], 0, 2 * M_PI);
		cairo_fill(c.cr);
	} else if (op == "needle") {   // needle X Y LENGTH WIDTH ANGLE R G B: a bar from (X, Y) out at ANGLE, clockwise from up
		if (!need(v, 8)) return false;
		const double a = v[4] * M_PI / 180.0, ux = std::sin(a), uy = std::cos(a), hw = v[3] * 0.5;
		c.colour(v[5], v[6], v[7]);
		const double pts[4][2] = {{v[0] - uy * hw, v[1] + ux * hw}, {v[0] + uy * hw, v[1] - ux * hw},
		                          {v[0] + uy * hw + ux * v[2], v[1] - ux * hw + uy * v[2]}, {v[0] - uy * hw + ux * v[2], v[1] + ux * hw + uy * v[2]}};
		for (const auto& p : pts) cairo_line_to(c.cr, p[0], c.y(p[1]));
		cairo_close_path(c.cr);
		cairo_fill(c.cr);
	} else if (op == "ring") {   // ring X Y R WIDTH R G B [A]: a circle's outline
		if (!need(v, 7)) return false;
		double a = 255;
		ss >> a;
		c.colour(v[4], v[5], v[6], a);
		cairo_set_line_width(c.cr, v[3]);
		cairo_new_path(c.cr);
		cairo_arc(c.cr, v[0], c.y(v[1]), v[2], 0, 2 * M_PI);
		cairo_stroke(c.cr);
	} else if (op == "sector") {   // sector X Y R_IN R_OUT A0 A1 R G B [A]: a band between radii, angles clockwise from up
		if (!need(v, 9)) return false;
		double a = 255;
		ss >> a;
		c.colour(v[6], v[7], v[8], a);
		// Up and clockwise on the dial is cairo's angle - 90 degrees, y being flipped.
		const double a0 = (v[4] - 90.0) * M_PI / 180.0, a1 = (v[5] - 90.0) * M_PI / 180.0;
		cairo_new_path(c.cr);
		cairo_arc(c.cr, v[0], c.y(v[1]), v[3], a0, a1);
		cairo_arc_negative(c.cr, v[0], c.y(v[1]), v[2], a1, a0);
		cairo_close_path(c.cr);
		cairo_fill(c.cr);
	} else if (op == "ticks") {   // ticks X Y R_IN R_OUT WIDTH A0 A1 STEP R G B: radial marks every STEP degrees
		if (!need(v, 11)) return false;
		if (v[7] <= 0 || (v[6] - v[5]) / v[7] > 10000) { *why = "ticks needs a step above 0 and at most 10000 marks"; return false; }
		c.colour(v[8], v[9], v[10]);
		cairo_set_line_width(c.cr, v[4]);
		for (double ang = v[5]; ang <= v[6] + 1e-6; ang += v[7]) {
			const double r = ang * M_PI / 180.0;
			cairo_move_to(c.cr, v[0] + v[2] * std::sin(r), c.y(v[1] + v[2] * std::cos(r)));
			cairo_line_to(c.cr, v[0] + v[3] * std::sin(r), c.y(v[1] + v[3] * std::cos(r)));
		}
		cairo_stroke(c.cr);
	} else if (op == "text" || op == "label") {   // text X Y SIZE R G B WORDS: centred on X, baseline at Y
		// label X Y RADIUS ANGLE SIZE R G B WORDS: centred on the point at RADIUS and ANGLE round (X, Y)
		if (op == "label") {
			if (!need(v, 8)) return false;
			const double r = v[3] * M_PI / 180.0;
			v = {v[0] + v[2] * std::sin(r), v[1] + v[2] * std::cos(r), v[4], v[5], v[6], v[7]};
		} else if (!need(v, 6)) {
			return false;
		}
		std::string words;
		std::getline(ss, words);
		words.erase(0, words.find_first_not_of(' '));
		if (!c.font) {
			if (FT_Init_FreeType(&c.ft) || FT_New_Face(c.ft, font_file, 0, &c.face)) { *why = std::string("cannot read ") + font_file; return false; }
			c.font = cairo_ft_font_face_create_for_ft_face(c.face, 0);
		}
		cairo_set_font_face(c.cr, c.font);
		cairo_set_font_size(c.cr, v[2]);
		c.colour(v[3], v[4], v[5]);
		cairo_text_extents_t e;
		cairo_text_extents(c.cr, words.c_str(), &e);
		const double base = op == "label" ? v[1] + e.y_bearing + e.height * 0.5 : v[1];   // a label is centred both ways
		cairo_move_to(c.cr, v[0] - e.width * 0.5 - e.x_bearing, c.y(base));
		cairo_show_text(c.cr, words.c_str());
	} else {
		*why = "unknown operation";
		return false;
	}
	return true;
}

// One source file's lines; "include FILE" (beside it) reads another's in its place.
bool run_file(canvas& c, const std::string& file, int depth)
{
	std::ifstream in(file);
	if (!in) { std::fprintf(stderr, "framewright: cannot read %s\n", file.c_str()); return false; }
	std::string line;
	int line_no = 0;
	while (std::getline(in, line)) {
		line_no++;
		std::istringstream ss(line);
		std::string op, why;
		if (!(ss >> op) || op[0] == '#') continue;
		if (op == "include") {
			std::string name;
			std::getline(ss, name);
			name.erase(0, name.find_first_not_of(' '));
			const size_t slash = file.find_last_of('/');
			if (depth > 8) why = "includes nested too deep";
			else if (name.empty()) why = "include needs a file";
			else if (!run_file(c, (slash == std::string::npos ? std::string() : file.substr(0, slash + 1)) + name, depth + 1)) return false;
		} else if (op == "size") {
			if (c.surface || !(ss >> c.w >> c.h) || c.w < 1 || c.h < 1 || c.w > 4096 || c.h > 4096) why = "size W H once, first";
			else {
				c.surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, c.w, c.h);
				c.cr = cairo_create(c.surface);
			}
		} else if (!c.surface) {
			why = "no size yet";
		} else {
			draw(c, op, ss, &why);
		}
		if (!why.empty()) {
			std::fprintf(stderr, "framewright: %s:%d: %s: \"%s\"\n", file.c_str(), line_no, why.c_str(), line.c_str());
			return false;
		}
	}
	return true;
}

}  // namespace

int framewright_art(int argc, char** argv)
{
	if (argc != 3) { std::fprintf(stderr, "framewright: art SRC.txt OUT.png\n"); return 2; }
	canvas c;
	if (!run_file(c, argv[1], 0)) return 1;
	if (!c.surface) { std::fprintf(stderr, "framewright: %s draws nothing\n", argv[1]); return 1; }
	cairo_surface_flush(c.surface);
	if (cairo_surface_write_to_png(c.surface, argv[2]) != CAIRO_STATUS_SUCCESS) {
		std::fprintf(stderr, "framewright: cannot write %s\n", argv[2]);
		return 1;
	}
	return 0;
}
