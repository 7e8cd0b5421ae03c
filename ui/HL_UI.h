// Pilot interface services used by the core: sound, joysticks, windows, resolution.
#pragma once
#include <string>

void SOUND_play(int snd);
void SOUND_play_buffer(int n, float pitch, float volume);
void SOUND_close();
void SOUND_start_stop(int start);
void SOUND_maintain();
void JOY_init();    // the devices attached now; none is no error
void JOY_get();
void load_plane_sounds();   // the sound table of the pilot's aircraft
void JOY_close();
int JOY_function_assigned(int fn);   // 1 if any joystick axis carries this function
void manage_top_win(int top_win);   // the handler of the settings window that is up
int MACIBM_setres(int on);
void IBM_handlewin(int msg, int wparam, int lparam);   // the window procedure
void MACIBM_handlekey(int vk);
void MACIBM_handleclick(int enter_close);
void MACIBM_startwind(int new_top_win, const char* from_str);
int MACIBM_getcontext();
void APPLICATION_handlemenu(int menu, int item);
void handle_pan_zoom(int code);   // zoom and pan keys: 31745 in, 31746 out, 50004 and 50005 finely
void reset_atc_and_plan(const char* callsign_from);   // clears ATC and the plan; "KMMM" both ends, IFR; our call sign from the aircraft's name
// The dialogs' file list: the working folder (ending in a separator) and its items.
extern std::string wrk_path;
extern std::string g_file[1000], g_path[1000];
extern int g_file_type[1000];   // 1 a folder, else the file type of its extension
int opensave_getitems(int file_type);   // lists wrk_path's items that file_type takes, by name; their count
int opensave_takeit(int n_ret, int file_type);
void do_key_command(int k);                 // the command of the key map's entry k
void APPLICATION_handlekey(int type, int key);
void manage_joy();   // the joystick window, top_win 14
void plot_atc_menu();   // the controller's menu and the words spoken
void SPEECH_speakstring(const char* s, int interrupt);   // the line read aloud
