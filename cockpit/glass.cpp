// The glass panels and the shuttle's displays. Until the glass step each shows its plate only.
#include "cockpit/gauges.h"

void update_orb_prim() {}   // glass step
void update_orb_horz() {}   // glass step
void update_orb_vert() {}   // glass step
void update_integrated_PFD() {}   // glass step
void update_integrated_MFD() {}   // glass step
