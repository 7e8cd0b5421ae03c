// EFIS elements, ECAM pages and the moving map. Until the EFIS step each shows its plate only.
#include "cockpit/gauges.h"

void update_EFIS_element() {}   // EFIS step
void update_EFIS_map() {}   // EFIS step
void update_EFIS_mode() {}   // EFIS step
void update_ECAM_display() {}   // EFIS step
void update_ECAM_mode() {}   // EFIS step
void update_HITS() {}   // EFIS step
