// How far the eye sees the ground and the sky, through cloud decks and out to the limb, and
// the clipping distances that follow.
#pragma once

struct view_distances {
	float dis_from_ground;   // the eye's height, blending to its height above sea level high up
	float ogl_fog_dis;       // where the fog is full
	float far_dis, near_dis;
};

view_distances update_visibility();   // also sets atm.vis_ground, atm.vis_sky, ren.ground_is_vis, ren.stars_are_vis, ren.planet_is_vis
