// The recorded flight path: `pat`. The recording step fills it.
#pragma once

struct path_struct {
	int num_snaps;
};
