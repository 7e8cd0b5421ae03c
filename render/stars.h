// The star catalogue and the night sky's stars, where they stand for the date, the time
// and the place.
#pragma once

constexpr float dis_to_sun = 1759.4f;   // the radius the sky's objects are drawn at, metres

struct star_entry { float ra_hours, dec_deg, mag; };
constexpr int star_max = 10000;
extern star_entry stars[star_max];
extern int num_stars;
extern const float star_band_mag[5];   // the magnitudes that cut the six lists

int read_star_catalogue(const char* path);   // 1 when read; else its alert, and no stars
void build_star_lists();                      // DL_stars from the catalogue, when GL is up
// The turn from the sky's own axes (x to the equinox, z to the celestial pole) into the
// local frame (x east, y up, z south) at a latitude and local sidereal time; column-major.
void sky_to_local(double lat_deg, double lst_hours, float m[16]);
void draw_stars(float brat_star, float star_boost);
