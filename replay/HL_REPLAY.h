// Replay, logbook and movies.
#pragma once

void update_with_replay();
void logbook_read();
void MOV_close();
void MOV_addframe();
void periodic_output();   // the snapshot, data output and motion platform on their timer
void zero_path();       // clears the recording for a new flight
void logbook_entry();   // writes the flight just ended to the logbook
void replay_toggle();   // into replay from the present state, or back out to it
