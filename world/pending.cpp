// World pieces that later steps build; until then each does nothing.
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "world/scenery.h"

void cloud_update_vars() {}               // weather: later step
float ret_parcel_rho(int, int, int) { return 0.0f; }   // cloud map: later step
void update_live_weather() {}                         // live weather: later step
// Until the cloud step's parcels: dense inside a layer of heaped or overcast cloud.
float cloud_parcel_rho(float, float y_msl, float)
{
	for (int l = 0; l < 2; l++)
		if (atm.cld_type[l] >= 3 && y_msl >= atm.base_h_MSL[l] && y_msl <= atm.tops_h_MSL[l]) return 1.0f;
	return 0.0f;
}
