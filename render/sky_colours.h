// The colours of the sky and of the light, looked up by the sun's height in tables a user
// can repaint, one set for each kind of weather.
#pragma once

int load_sky_colours(int planet);   // the light strips of the five sets, from bmp_path; 1 when all were read
// The time pixels of a sun elevation: index i1 with weight r1, i1 + 1 with r2.
void get_time_pixels(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon);
void get_time_frames(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon);
// The ambient and direct light of the sets weighted as given, for a sun at that elevation,
// the moon taking over at night by its brightness.
void blend_light(const float weights[5], float sun_the, bool before_noon, float amb[3], float dir[3]);
