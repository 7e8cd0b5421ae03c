// Aircraft pieces that later steps build; until then each does nothing.
#include "aircraft/HL_ACF.h"

void load_plane(int) {}         // aircraft file: later step
void get_random_plane(int) {}
#include "aircraft/acf_io.h"
int OLD_IO_acf(int, veh_struct&) { return 0; }   // old aircraft files: later step
void ACF_autoset(int) {}                         // load defaults: later step
int ACF_check(int, int) { return 1; }            // load checks: later step
int build_cockpit_object(const char*) { return -1; }   // object files: later step
