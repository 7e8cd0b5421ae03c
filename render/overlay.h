// What lies flat over the finished picture.
#pragma once

struct body_effect { float redout, blackout, hypoxia, glare; float alpha, rgb[3]; };
// The eye's own dimming: red-out under negative g, black-out under heavy g, hypoxia in a
// thin cabin, and the sun's glare; eased over dt, and the colour of the veil they make.
body_effect update_body_effects(float dt);
void draw_mouse_box();
void draw_replay_bar();
void draw_warnings();
