// Replay pieces that later steps build; until then each does nothing.
#include "replay/HL_REPLAY.h"

void update_with_replay() {}   // replay: later step
void logbook_read() {}         // logbook: later step
void MOV_close() {}            // movies: later step
void MOV_addframe() {}
void periodic_output() {}   // recording and data output: later steps
void zero_path() {}            // the recording: later step
void logbook_entry() {}        // logbook: later step
void replay_toggle() {}   // entering and leaving replay: replay step
