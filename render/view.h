// The camera of each view and the picture's final angles and frustum.
#pragma once

void WORLD_view_per_frame();
float horizon_dip_deg(float height_m, float planet_rad);   // the horizon's dip below level at that height
