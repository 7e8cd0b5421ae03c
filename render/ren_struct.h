// Rendering state (`ren`) and scene lists (`scn`). The drawing steps fill them.
#pragma once

struct ren_struct {
	int frame_count;
};

struct scn_struct {
	int num_objects;
};
