// Flight-model pieces that later steps build; until then each does nothing.
#include "flight/HL_FLIGHT.h"
#include "core/HL_TYPES.h"

void update_with_AI(int) {}                  // computer-flown aircraft: later step
void update_effects(int) {}                  // exhaust, wash and smoke: later step
void update_failures() {}                    // the failure draw: later step
void attach_weapon(int, int) {}              // weapons: later step
void stop_fire() {}
void force_weapons() {}
void integ_weapons(int) {}
int weapon_to_track(body_state*) { return -1; }   // weapons in flight: weapons step
void inc_weapon_masses() {}
void do_lines() {}                           // tow, winch and sling lines: later step
void do_wire_and_catapult() {}
void do_tow_wake() {}
void do_line_ends() {}
void do_gpws() {}
void touchdown_keys(int) {}                   // key commands: later step
void update_trims(int, int) {}               // trim buttons: later step
void update_rocket(int, int, float) {}       // manoeuvre rockets: later step
