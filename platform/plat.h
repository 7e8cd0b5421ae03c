// The platform layer under the system's own MACIBM_/OGL_ calls: clock, messages,
// buffer swap, start-up text, program folder, signals. One backend is linked at a
// time: headless (tests and command-line tools) or windowed.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

// Messages as the window procedure numbers them. A caught SIGINT or SIGTERM arrives
// as msg_destroy, so it ends the loop through the normal finish.
enum plat_msg_type {
	msg_none = 0, msg_create = 1, msg_destroy = 2, msg_size = 5, msg_paint = 15, msg_keydown = 256, msg_keyup = 257,
	msg_mousemove = 512, msg_lbuttondown = 513, msg_lbuttonup = 514, msg_rbuttondown = 516,
	msg_rbuttonup = 517, msg_mousewheel = 522
};

struct plat_msg {
	int type;
	int a, b;   // keys: a the virtual-key code; mouse: a, b the window pixel from the top left; wheel: a in 120ths of a notch;
	            // size: a, b the new width and height
};

int plat_next_msg(plat_msg* m);       // 1 while a message waits
void plat_swap_buffers();
int plat_open_window(int width, int height);   // 1 on success
int plat_make_context();                       // an OpenGL compatibility context; 1 on success
void plat_close_window();
int plat_has_gl();                             // 1 once a context is current
// Drawing without a window of our own, for tools and tests: a compatibility context and a
// framebuffer of the size asked for, bound for drawing and reading.
int plat_offscreen_open(int width, int height);   // 1 on success, else plat_offscreen_error() says why
void plat_offscreen_close();
int plat_offscreen_active();
const char* plat_offscreen_error();
void plat_showinit(const char* text);
// The mouse pointer: 0 the arrow, 2 to 5 a knob turned down or up (small, large), 6 and 7 a
// rocker down or up, 8 and 9 left or right, 10 the hand of a button, 11 the grip of a lever.
void plat_set_cursor(int kind);
std::string plat_exe_folder();        // with a trailing '/'
std::string plat_program_folder();    // where the data tree is: the executable's folder unless a backend says otherwise
void plat_catch_signals();            // SIGINT and SIGTERM end the loop through the normal finish

// Files mapped whole, read-only. nullptr: no such file; (unsigned char*)-1: opened but
// not mapped. A file of zero bytes maps to a valid empty view with *size 0.
unsigned char* plat_map_file(const char* path, size_t* size);
void plat_unmap_file(unsigned char* begin, size_t size);

// A plain message box, for alerts before the interface can draw them; once OpenGL is up the
// simulator draws its own, and this only writes the lines to standard error.
void plat_message_box(const char* title, const char* text);

// The local calendar: seconds since midnight, month 0..11, day of the month 1..31.
void plat_local_clock(int* sec_of_day, int* month, int* mday);

// The clock behind time_sec: monotonic, or driven by hand.
void plat_clock_manual(double t);     // from now on time_sec() reads t
void plat_clock_advance(double dt);
void plat_clock_auto();
// The sub-folders of a folder, names only, sorted; empty when it does not open.
std::vector<std::string> plat_list_folders(const char* path);
// Every entry of a folder, names only, unsorted, each with whether it is a folder.
struct plat_entry { std::string name; bool is_dir; };
std::vector<plat_entry> plat_list_entries(const char* path);

// Joysticks and game controllers, up to four in the order they were attached.
constexpr int plat_joy_max_buttons = 128;
struct plat_joy_state {
	int has_axis[8];   // X, Y, Z, Rx, Ry, Rz, slider 0, slider 1
	float axis[8];     // -100..100
	int n_hats;
	int hat[4];        // hundredths of a degree clockwise from up, -1 centred
	int n_buttons;
	unsigned char button[plat_joy_max_buttons];
};
int plat_joy_init();                       // 0 when there is no joystick support at all
void plat_joy_close();
int plat_joy_update();                     // takes in plugging and unplugging; 1 when the list changed
int plat_joy_count();
int plat_joy_id(int dev);                  // a device's identity for as long as it stays attached
int plat_joy_read(int dev, plat_joy_state* s);   // 0 when the device has gone
int plat_joy_attach_virtual(int axes, int hats, int buttons);   // the new device's number, or -1
int plat_joy_attach_virtual_pad();        // a game controller: axes and buttons numbered as SDL's controller enums
int plat_joy_detach_virtual(int dev);
int plat_joy_set(int dev, char what, int n, int value);   // a virtual device's axis 'a' (-100..100), hat 'h', button 'b'
