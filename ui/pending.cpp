// Interface pieces that later steps build; until then each does nothing.
#include "ui/HL_UI.h"

void SOUND_play(int) {}             // sound: later step
void SOUND_play_buffer(int, float, float) {}
void SOUND_close() {}
void SOUND_start_stop(int) {}
void SOUND_maintain() {}
void load_plane_sounds() {}
void manage_top_win(int) {}         // settings windows: later step
void MACIBM_handlekey(int) {}                 // key commands: later step
void MACIBM_handleclick(int) {}               // menus and window clicks: later step
void MACIBM_startwind(int, const char*) {}    // window switch: later step
void APPLICATION_handlemenu(int, int) {}   // menus: later step
void reset_atc_and_plan(const char*) {}    // ATC and the flight plan: later step
void do_key_command(int) {}                 // key commands: later step
void APPLICATION_handlekey(int, int) {}     // key commands: later step
void manage_joy() {}   // the joystick window: waits for the widgets of its step
void plot_atc_menu() {}   // ATC menu: ATC step
void SPEECH_speakstring(const char*, int) {}   // speech: sound step
