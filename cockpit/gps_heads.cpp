// The GPS and FMS heads. Until the GPS step each shows its plate only.
#include "cockpit/gauges.h"

void update_GPS(int) {}   // GPS step
void update_FMS() {}   // GPS step
