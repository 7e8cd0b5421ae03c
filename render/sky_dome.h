// The sky dome and the horizon band, drawn round the eye with the view's rotations set.
#pragma once

void draw_sky_dome(float the_os, float sun_psi);
void draw_horizon_band(float the_os, float sig_rat_bot);
