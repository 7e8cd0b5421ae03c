// World pieces that later steps build; until then each does nothing.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "world/scenery.h"

void cloud_update_vars() {}               // weather: later step
float ret_parcel_rho(int, int, int) { return 0.0f; }   // cloud map: later step
void update_live_weather() {}                         // live weather: later step
