// Rendering state (`ren`) and scene lists (`scn`). The drawing steps fill them.
#pragma once

struct ren_struct {
	int DL_carr, DL_frig, DL_opla, DL_orig;   // display lists of the ships and platforms
};

struct scn_struct {
	int num_objects;
};
