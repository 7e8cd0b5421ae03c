// The platform layer under the system's own MACIBM_/OGL_ calls: clock, messages,
// buffer swap, start-up text, program folder, signals. One backend is linked at a
// time: headless (tests and command-line tools) or windowed.
#pragma once
#include <string>

enum plat_msg_type { msg_none = 0, msg_paint, msg_quit };

struct plat_msg {
	int type;
	int a, b;
};

int plat_next_msg(plat_msg* m);       // 1 while a message waits; a caught SIGINT/SIGTERM arrives as msg_quit
void plat_swap_buffers();
void plat_showinit(const char* text);
std::string plat_exe_folder();        // with a trailing '/'
std::string plat_program_folder();    // where the data tree is: the executable's folder unless a backend says otherwise
void plat_catch_signals();            // SIGINT and SIGTERM end the loop through the normal finish

// The clock behind time_sec: monotonic, or driven by hand.
void plat_clock_manual(double t);     // from now on time_sec() reads t
void plat_clock_advance(double dt);
void plat_clock_auto();
