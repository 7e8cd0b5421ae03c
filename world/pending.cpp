// World pieces that later steps build; until then each does nothing.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "world/scenery.h"

float find_local_y(float, float, float* vx, float* vy, float* vz, int*, int*, int)   // scenery: later step; flat still ground at y 0
{
	*vx = *vy = *vz = 0.0f;
	env.terrain_nrm[0] = 0.0f; env.terrain_nrm[1] = 1.0f; env.terrain_nrm[2] = 0.0f;
	return 0.0f;
}
void cloud_update_vars() {}               // weather: later step
float ret_parcel_rho(int, int, int) { return 0.0f; }   // cloud map: later step
void update_live_weather() {}                         // live weather: later step
int ret_over_water() { return 0; }                    // surfaces: later step; land everywhere until then
void read_a_quadrant(int, int, int, int, int) {}   // quadrant files: later step; until then the block is sea
