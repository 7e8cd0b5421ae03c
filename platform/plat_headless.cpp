// The headless backend: no window; the clock moves by a fixed frame time at each
// buffer swap, so whole passes of the main loop repeat exactly.
#include "platform/plat.h"
#include "platform/plat_headless.h"
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

extern volatile sig_atomic_t plat_stop_requested;

static double frame_sec = 0.02;
static int paint_held = 0, paint_pending = 1;
static std::string folder_override;
static std::vector<std::string> showinit_lines;
static int swaps = 0, pumps = 0;
static void (*pump_hook)(int) = nullptr;

void HEADLESS_setup(double frame, int hold_first_paint, const char* program_folder)
{
	frame_sec = frame;
	paint_held = hold_first_paint;
	paint_pending = 1;
	folder_override = program_folder ? program_folder : "";
	if (!folder_override.empty() && folder_override.back() != '/') folder_override += '/';
	showinit_lines.clear();
	swaps = pumps = 0;
	pump_hook = nullptr;
	plat_stop_requested = 0;
	plat_clock_manual(0.0);
}

void HEADLESS_deliver_first_paint() { paint_held = 0; }
int HEADLESS_num_showinit() { return (int)showinit_lines.size(); }
const char* HEADLESS_showinit_line(int n)
{
	return n >= 0 && n < (int)showinit_lines.size() ? showinit_lines[n].c_str() : "";
}
int HEADLESS_num_swaps() { return swaps; }
void HEADLESS_on_message_pump(void (*fn)(int)) { pump_hook = fn; }

int plat_next_msg(plat_msg* m)
{
	static int in_pump = 0;
	if (!in_pump) {   // the hook runs once per pump, before its first message
		in_pump = 1;
		if (pump_hook) pump_hook(pumps);
		pumps++;
	}
	m->a = m->b = 0;
	if (plat_stop_requested) { plat_stop_requested = 0; m->type = msg_destroy; return 1; }
	if (paint_pending && !paint_held) { paint_pending = 0; m->type = msg_paint; return 1; }
	in_pump = 0;
	m->type = msg_none;
	return 0;
}

void plat_swap_buffers()
{
	swaps++;
	plat_clock_advance(frame_sec);
}

int plat_open_window(int, int) { return 1; }
int plat_make_context() { return 1; }
void plat_close_window() {}
int plat_has_gl() { return plat_offscreen_active(); }   // a tool or test may draw offscreen

void plat_message_box(const char* title, const char* text)   // headless: Error.out has it, and standard error
{
	std::fprintf(stderr, "%s: %s\n", title, text);
}

void plat_showinit(const char* text) { showinit_lines.emplace_back(text); }
void plat_set_cursor(int) {}   // no pointer without a window

std::string plat_program_folder() { return folder_override.empty() ? plat_exe_folder() : folder_override; }
