// Aircraft loading.
#pragma once
#include "aircraft/load_plane.h"

void get_random_plane(int p);
