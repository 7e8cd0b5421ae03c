// The headless backend: no window, a clock that moves by a fixed frame time at each
// buffer swap, and a first paint that a test may hold back and deliver when it likes.
#pragma once

void HEADLESS_setup(double frame_sec, int hold_first_paint, const char* program_folder);
void HEADLESS_deliver_first_paint();
int HEADLESS_num_showinit();
const char* HEADLESS_showinit_line(int n);
int HEADLESS_num_swaps();
void HEADLESS_on_message_pump(void (*fn)(int pump_count));   // called before each pump, for tests
