// The small text files beside the instruments' art that place their needles and scales: the
// aircraft's own copy before the default. Each line holds a few numbers and then, if the
// author likes, a comment; a missing file or a line without its numbers leaves zeros.
#include "cockpit/panel.h"
#include "core/HL_MAIN.h"
#include "core/files.h"
#include <cstdlib>
#include <cstring>
#include <string>

float cus_dat_1[ins_code_max], cus_dat_2[ins_code_max], cus_dat_3[ins_code_max], cus_dat_4[ins_code_max];
float cus_dat_5[ins_code_max], cus_dat_6[ins_code_max], cus_dat_7[ins_code_max], cus_dat_8[ins_code_max];
float t_bot_tape[2][tape_max], t_top_tape[2][tape_max], v_bot_tape[2][tape_max], v_top_tape[2][tape_max], misc1_tape[2][tape_max];
float s_lft_scroll[scroll_row_max][scroll_max], s_rgt_scroll[scroll_row_max][scroll_max];
float t_bot_scroll[scroll_row_max][scroll_max], t_top_scroll[scroll_row_max][scroll_max];
float sma_tic_scroll[scroll_max], scale_scroll[scroll_max];
int big_tic_scroll[scroll_max], num_mod_scroll[scroll_max];

// AOA, airspeed, g, Mach, radio altitude and vertical speed tapes, the altimeter, then the
// horizons whose ball moves along a tape.
const int tape_ins[tape_max] = {89, 87, 330, 88, 335, 130, 94, 520, 90, 521, 460, 522, 448, 91, 92, 93, 523, 524, 166, 484, 532};
// The drum counters: altimeters, the autopilot's windows, the glass and head-up tapes.
const int scroll_ins[scroll_max] = {100, 97, 98, 99, 526, 137, 286, 287, 289, 288, 171, 170, 556, 555, 418};

namespace {

const int scroll_rows[scroll_max] = {13, 13, 13, 13, 13, 13, 4, 3, 4, 3, 4, 3, 4, 3, 3};

std::string spec_path(int code)
{
	std::string p = ins_path[code];
	return p.substr(0, p.size() - 4) + ".txt";
}

// The leading numbers of the next line, up to n; the rest of it a comment. 0 at the end.
int numbers(float* v, int n)
{
	std::string line;
	if (!std::getline(inf[inf_use], line)) return 0;
	const char* p = line.c_str();
	for (int k = 0; k < n; k++) {
		char* end = nullptr;
		const float x = std::strtof(p, &end);
		v[k] = end == p ? 0.0f : x;
		if (end == p) {
			for (int r = k + 1; r < n; r++) v[r] = 0.0f;
			break;
		}
		p = end;
		while (*p == ' ' || *p == '\t' || *p == ',') p++;
	}
	return 1;
}

}  // namespace

int open_ins_file(const std::string& sub_path)
{
	return inf_open(aircraft_folder() + sub_path, 0, 750, 0) || inf_open(bmp_path + sub_path, 0, 750, 0);
}

void init_cus_specs(int code, const std::string& sub_path, int lines)
{
	if (code < 0 || code >= ins_code_max || !open_ins_file(sub_path)) return;
	float* to[8] = {cus_dat_1, cus_dat_2, cus_dat_3, cus_dat_4, cus_dat_5, cus_dat_6, cus_dat_7, cus_dat_8};
	for (int l = 0; l < lines && l < 4; l++) {
		float v[2] = {0.0f, 0.0f};
		if (!numbers(v, 2)) break;
		to[l * 2][code] = v[0];
		to[l * 2 + 1][code] = v[1];
	}
	inf[inf_use].close();
}

void init_tapes_specs()
{
	float* all[8] = {cus_dat_1, cus_dat_2, cus_dat_3, cus_dat_4, cus_dat_5, cus_dat_6, cus_dat_7, cus_dat_8};
	for (float* a : all) std::memset(a, 0, sizeof cus_dat_1);
	static const int one_line[] = {347, 349, 352, 353, 101, 102, 554, 47, 48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 60, 61, 62, 63, 64, 65,
	                               453, 544, 545, 585, 328, 412, 325, 326, 327, 324, 606};
	static const int two_lines[] = {172, 58,  59,  458, 185, 186, 187, 371, 372, 373, 482, 483, 80,  81,  82,  83,  84,  85,  86,
	                                440, 584, 608, 310, 538, 297, 299, 300, 296, 295, 539, 598, 607, 599, 461, 294, 298, 542, 540,
	                                304, 306, 307, 303, 302, 541, 462, 301, 305, 205, 201, 203, 204, 200, 198, 199, 197, 196, 202, 322, 323};
	static const int four_lines[] = {110, 111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 583, 169, 168, 557};
	for (int c : one_line) init_cus_specs(c, spec_path(c), 1);
	for (int c : two_lines) init_cus_specs(c, spec_path(c), 2);
	for (int c : four_lines) init_cus_specs(c, spec_path(c), 4);
	// Tapes: a line a mask (two for the altimeter's, with a fifth number).
	std::memset(t_bot_tape, 0, sizeof t_bot_tape);
	std::memset(t_top_tape, 0, sizeof t_top_tape);
	std::memset(v_bot_tape, 0, sizeof v_bot_tape);
	std::memset(v_top_tape, 0, sizeof v_top_tape);
	std::memset(misc1_tape, 0, sizeof misc1_tape);
	for (int t = 0; t < tape_max; t++) {
		if (!open_ins_file(spec_path(tape_ins[t]))) continue;
		for (int m = 0; m < (t == 6 ? 2 : 1); m++) {
			float v[5] = {};
			if (!numbers(v, t == 6 ? 5 : 4)) break;
			t_bot_tape[m][t] = v[0];
			t_top_tape[m][t] = v[1];
			v_bot_tape[m][t] = v[2];
			v_top_tape[m][t] = v[3];
			misc1_tape[m][t] = v[4];
		}
		inf[inf_use].close();
	}
	// Scrolls: a line a drum row, then for the moving tapes of 10 to 13 their tick spacing.
	std::memset(s_lft_scroll, 0, sizeof s_lft_scroll);
	std::memset(s_rgt_scroll, 0, sizeof s_rgt_scroll);
	std::memset(t_bot_scroll, 0, sizeof t_bot_scroll);
	std::memset(t_top_scroll, 0, sizeof t_top_scroll);
	for (int s = 0; s < scroll_max; s++) {
		sma_tic_scroll[s] = scale_scroll[s] = 0.0f;
		big_tic_scroll[s] = num_mod_scroll[s] = 0;
		if (!open_ins_file(spec_path(scroll_ins[s]))) continue;
		bool whole = true;
		for (int r = 0; r < scroll_rows[s] && whole; r++) {
			float v[4] = {};
			whole = numbers(v, 4);
			s_lft_scroll[r][s] = v[0];
			s_rgt_scroll[r][s] = v[1];
			t_bot_scroll[r][s] = v[2];
			t_top_scroll[r][s] = v[3];
		}
		if (whole && s >= 10 && s <= 13) {
			float v[4] = {};
			for (float& x : v) numbers(&x, 1);
			sma_tic_scroll[s] = v[0];
			big_tic_scroll[s] = (int)v[1];
			num_mod_scroll[s] = (int)v[2];
			scale_scroll[s] = v[3];
		}
		inf[inf_use].close();
	}
}
