// The colours of the sky and of the light, looked up by the sun's height in tables a user
// can repaint, one set for each kind of weather.
#pragma once

int load_sky_colours(int planet);   // the sky tables and light strips of the five sets, from bmp_path; 1 when all were read
// The time pixels of a sun elevation: index i1 with weight r1, i1 + 1 with r2.
void get_time_pixels(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon);
void get_time_frames(int* i1, int* i2, float* r1, float* r2, float the, bool before_noon);
// The ambient and direct light of the sets weighted as given, for a sun at that elevation,
// the moon taking over at night by its brightness.
void blend_light(const float weights[5], float sun_the, bool before_noon, float amb[3], float dir[3]);
// The weights of the five sets at the viewer: 0 clean, 1 misty, 2 foggy, 3 high, 4 overcast.
void weather_set_weights(float view_sig_earth_rat, float vis_sky_m, float view_ele, float weights[5]);
// sky_256 for a sun at that elevation: the sets blended, socked in below 5 nm, darkening
// from the top down as the air thins (sig_rat_top, sig_rat_bot); and the fog colour toward
// del_psi, the view's heading less the sun's.
void compute_sky_256(const float weights[5], float sun_the, bool before_noon, float vis_sky_m, float sig_rat_top, float sig_rat_bot,
                     float del_psi);
// The sun's and moon's discs, water and the two sides of clouds: the sets' plain blend, the
// water, clouds and fog dimmed toward the moon's brightness as night takes over.
void blend_world_colours(const float weights[5], float sun_the, bool before_noon);
