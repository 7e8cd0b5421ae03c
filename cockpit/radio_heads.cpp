// The radios' heads on the panel. Until the radios step each shows its plate only.
#include "cockpit/gauges.h"

void update_NAV_COM_ADF(int, int, int, int, int, int) {}   // radios step
void update_XPNDR(int) {}   // radios step
void update_audiopanel() {}   // radios step
void update_markers() {}   // radios step
