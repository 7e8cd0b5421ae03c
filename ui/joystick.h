// Joystick axes and buttons to controls: the pieces JOY_get runs each frame, apart from
// the devices that feed them.
#pragma once

float JOY_curve(float input, int axis);      // pitch 0, roll 1, yaw 2: null zone, then power
void JOY_axes_to_functions(const float* old_raw);   // ranges widen; moved axes drive their functions
void JOY_learn_null_zones();                 // while the calibration page is open
void JOY_buttons();                          // the four passes over the raw buttons
void JOY_press_one(int use);                 // a button function on its press
void JOY_release_one(int use);               // on its release
void JOY_press_always(int use);              // every frame it is held
void JOY_release_always(int use);            // every frame it is not
void JOY_reset_ranges();                     // every raw axis's range forgotten
void JOY_set_axis_use(int raw, int use, int reversed);   // the assignment page's rules
void JOY_defaults();                         // the axes a new installation starts with
void start_fire();
int in_single_fire();                        // the first frame of a press of the trigger
int in_contin_fire();                        // while it is held
void JOY_end_frame_fire();
