// Pilot interface services used by the core: sound, joysticks, windows, resolution.
#pragma once

void SOUND_play(int snd);
void SOUND_play_buffer(int n, float pitch, float volume);
void SOUND_close();
void SOUND_start_stop(int start);
void SOUND_maintain();
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
