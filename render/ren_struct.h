// Rendering state (`ren`) and scene lists (`scn`). The drawing steps fill them.
#pragma once

struct ren_struct {
	int DL_carr, DL_frig, DL_opla, DL_orig;   // display lists of the ships and platforms
	int tex_clamp_avail, add_env_avail, dis_fog_avail, tex_comp_avail;   // what the OpenGL driver offers
	int num_tex_units, maxtexdim;
	float max_iso;
};

struct scn_struct {
	int num_objects;
	float vis_scale;   // size of the pilot's aircraft for effects
};
