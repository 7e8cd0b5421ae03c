// The camera of each view and the picture's final angles and frustum.
#pragma once

void WORLD_view_per_frame();
float horizon_dip_deg(float height_m, float planet_rad);   // the horizon's dip below level at that height
void view_menu_pick(int code);   // a view menu item: a view to change to, or an action
void take_view_action();          // runs the action waiting in view_menu_ACTION
void force_network_view();        // an outside visual station holds its view
void update_ground_cone(float near_dis);   // the ground the view sees and the grid range to draw
void nearest_runway_end(const float ref[3], float spot[3]);   // of the local airport, an eye's height up
int tower_point(const float ref[3], float xyz[3]);   // 1 the tower's eye, 2 the carrier's island, 0 neither
