// Aircraft pieces that later steps build; until then each does nothing.
#include "aircraft/HL_ACF.h"

void load_plane(int) {}         // aircraft file: later step
void get_random_plane(int) {}
