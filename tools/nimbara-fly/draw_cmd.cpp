// nimbara-fly draw: a window's worth of drawing calls, one a line, through the real
// primitives, written out as PNG: for looking at text and panels without the simulator.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "render/textures.h"
#include <GL/gl.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

// Words of a line; a double-quoted word may hold spaces, and \" and \n inside it.
bool split(const std::string& line, std::vector<std::string>* out, std::vector<bool>* quoted)
{
	size_t i = 0;
	while (i < line.size()) {
		if (line[i] == ' ' || line[i] == '\t') { i++; continue; }
		std::string w;
		if (line[i] == '"') {
			i++;
			while (i < line.size() && line[i] != '"') {
				if (line[i] == '\\' && i + 1 < line.size()) {
					i++;
					w += line[i] == 'n' ? '\n' : line[i];
				} else {
					w += line[i];
				}
				i++;
			}
			if (i >= line.size()) return false;   // unclosed
			i++;
			out->push_back(w);
			quoted->push_back(true);
			continue;
		}
		while (i < line.size() && line[i] != ' ' && line[i] != '\t') w += line[i++];
		out->push_back(w);
		quoted->push_back(false);
	}
	return true;
}

bool number(const std::string& s, float* v)
{
	char* end = nullptr;
	*v = std::strtof(s.c_str(), &end);
	return !s.empty() && !*end && std::isfinite(*v);
}

// One call; an empty string when it ran, else what is wrong with it.
std::string run_line(const std::vector<std::string>& w, const std::vector<bool>& quoted)
{
	const std::string& op = w[0];
	auto nums = [&](size_t first, size_t count, float* v) {
		if (w.size() != first + count) return false;
		for (size_t k = 0; k < count; k++)
			if (quoted[first + k] || !number(w[first + k], &v[k])) return false;
		return true;
	};
	float v[24];
	if (op == "set") {
		if (w.size() < 3) return "set needs a name and values";
		if (w[1] == "night_vision" && nums(2, 1, v)) { ren.night_vision_on = v[0] != 0.0f; return ""; }
		if (w[1] == "current_alpha" && nums(2, 1, v)) { ren.current_alpha = v[0]; return ""; }
		if (w[1] == "manual_lighting" && nums(2, 3, v)) { r_manual_lighting = v[0]; g_manual_lighting = v[1]; b_manual_lighting = v[2]; return ""; }
		if (w[1] == "win" && nums(2, 2, v)) { mnw.win_x = (int)v[0]; mnw.win_y = (int)v[1]; return ""; }
		return "set takes night_vision N, current_alpha A, manual_lighting R G B or win X Y";
	}
	if (op == "OGL_string" || op == "gray_string") {
		const bool gray = op == "gray_string";
		const size_t n = gray ? 5 : 7;
		if (w.size() != n || !quoted[4]) return op + " takes color x y \"text\"" + (gray ? "" : " dx charset");
		float a[3];
		for (int k = 0; k < 3; k++)
			if (!number(w[1 + k], &a[k])) return "bad number '" + w[1 + k] + "'";
		if (gray) { gray_string((int)a[0], a[1], a[2], w[4]); return ""; }
		float dx, cs;
		if (!number(w[5], &dx) || !number(w[6], &cs)) return "bad dx or charset";
		OGL_string((int)a[0], a[1], a[2], w[4], dx, (int)cs);
		return "";
	}
	struct call { const char* name; size_t args; };
	static const call calls[] = {{"OGL_number", 7}, {"OGL_fillrect", 6}, {"OGL_framerect", 6}, {"OGL_line", 6}, {"OGL_framecircle", 4},
	                             {"OGL_grayrect", 5}, {"OGL_2dquad", 21}, {"OGL_scissors", 4}, {"OGL_scissors_end", 0},
	                             {"OGL_spectrum_rgb", 1}, {"OGL_plot_background", 0}};
	for (const call& c : calls) {
		if (op != c.name) continue;
		if (!nums(1, c.args, v)) return op + " takes " + std::to_string(c.args) + " numbers";
		if (op == "OGL_number") OGL_number((int)v[0], v[1], v[2], v[3], (int)v[4], (int)v[5], (int)v[6]);
		else if (op == "OGL_fillrect") OGL_fillrect((int)v[0], v[1], v[2], v[3], v[4], v[5]);
		else if (op == "OGL_framerect") OGL_framerect((int)v[0], v[1], v[2], v[3], v[4], v[5]);
		else if (op == "OGL_line") OGL_line((int)v[0], v[1], v[2], v[3], v[4], v[5]);
		else if (op == "OGL_framecircle") OGL_framecircle((int)v[0], v[1], v[2], v[3]);
		else if (op == "OGL_grayrect") OGL_grayrect(v[0], v[1], v[2], v[3], v[4]);
		else if (op == "OGL_2dquad")
			OGL_2dquad((int)v[0], (int)v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13], v[14], v[15],
			           v[16], v[17], v[18], (int)v[19], (int)v[20]);
		else if (op == "OGL_scissors") OGL_scissors(v[0], v[1], v[2], v[3]);
		else if (op == "OGL_scissors_end") OGL_scissors_end();
		else if (op == "OGL_spectrum_rgb") OGL_spectrum_rgb(v[0]);
		else OGL_plot_background();
		return "";
	}
	return "unknown call '" + op + "'";
}

}  // namespace

int fly_draw(int argc, char** argv)
{
	int width = 0, height = 0;
	std::string script, png_out, tree = fly_default_tree();
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const std::string val = argv[++k];
		if (o == "--size") {
			if (std::sscanf(val.c_str(), "%dx%d", &width, &height) != 2 || width < 1 || height < 1 || width > 4096 || height > 4096) {
				std::fprintf(stderr, "nimbara-fly: --size is WxH, 1 to 4096 each\n");
				return 2;
			}
		} else if (o == "--script") script = val;
		else if (o == "--png") png_out = val;
		else if (o == "--tree") tree = fly_tree_arg(val.c_str());
		else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str()); return 2; }
	}
	if (!width || script.empty() || png_out.empty()) { std::fprintf(stderr, "nimbara-fly: draw needs --size, --script and --png\n"); return 2; }
	std::ifstream in(script);
	if (!in) { std::fprintf(stderr, "nimbara-fly: cannot read %s\n", script.c_str()); return 2; }
	std::vector<std::string> lines;
	for (std::string l; std::getline(in, l);) lines.push_back(l);
	if (!plat_offscreen_open(width, height)) { std::fprintf(stderr, "nimbara-fly: cannot draw: %s\n", plat_offscreen_error()); return 1; }
	OGL_report_situation();
	OGL_init_state();
	OGL_assign_start_colours();
	OGL_set_panel_space(width, height);
	bmp_path = tree + "Resources/bitmaps/";
	OGL_load_interface();
	glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
	glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
	OGL_viewport(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f);
	int status = 0;
	for (size_t n = 0; n < lines.size() && !status; n++) {
		const size_t hash = lines[n].find_first_not_of(" \t");
		if (hash == std::string::npos || lines[n][hash] == '#') continue;
		std::vector<std::string> words;
		std::vector<bool> quoted;
		std::string error = split(lines[n], &words, &quoted) ? run_line(words, quoted) : "an unclosed quote";
		if (!error.empty()) {
			std::fprintf(stderr, "nimbara-fly: %s:%zu: %s\n", script.c_str(), n + 1, error.c_str());
			status = 2;
		}
	}
	if (!status) {
		glFinish();
		std::vector<unsigned char> px((size_t)width * height * 4);
		glPixelStorei(GL_PACK_ALIGNMENT, 1);
		glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
		if (!fly_write_png(png_out.c_str(), px.data(), width, height, true)) {
			std::fprintf(stderr, "nimbara-fly: cannot write %s\n", png_out.c_str());
			status = 1;
		}
	}
	plat_offscreen_close();
	return status;
}
