// Aircraft pieces that later steps build; until then each does nothing.
#include "aircraft/HL_ACF.h"

#include "aircraft/acf_io.h"
int OLD_IO_acf(int, veh_struct&) { return 0; }   // old aircraft files: later step
int build_cockpit_object(const char*) { return -1; }   // object files: later step
int IO_wpn(int, int, int, const char*, char*, int) { return 0; }   // weapon files: later step
int wpn_drop_tank_station() { return -1; }   // weapons on their stations: weapons step
void wpn_release_station(int) {}   // weapons on their stations: weapons step
