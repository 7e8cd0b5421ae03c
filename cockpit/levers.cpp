// The panel's levers. Until the levers step each shows its plate only.
#include "cockpit/gauges.h"

void update_econs(int) {}   // levers step
