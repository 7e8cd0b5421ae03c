// Pilot interface services used by the core: sound, joysticks, windows, resolution.
#pragma once

void SOUND_play(int snd);
void SOUND_close();
void JOY_close();
int JOY_function_assigned(int fn);   // 1 if any joystick axis carries this function
void manage_top_win(int top_win);   // the handler of the settings window that is up
int MACIBM_setres(int on);
int MACIBM_getcontext();
