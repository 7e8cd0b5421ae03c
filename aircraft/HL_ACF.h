// Aircraft loading.
#pragma once

void load_plane(int p);
void get_random_plane(int p);
