// What shines in the sky round the eye: stars, meteors, the sun with its disc and glare,
// the moon in its phase, aurora; and lightning's strikes below the clouds.
#pragma once

struct sky_brightness {
	float brat_base;   // the day's ambient light, 0..1
	float brat_star, brat_ab;   // how far stars and aurora show through it
	float brat_sm[2];           // the sun's and moon's sprites
	float star_boost;           // thin air shows fainter stars
};

sky_brightness sky_object_brightness(float earth_rat);
int meteor_period(int meteorite_code);   // seconds between meteors, on the average
float sky_magnify(float elevation_deg);  // the sun and moon look larger near the horizon
void draw_sky_objects(float earth_rat);   // in the dome, after the sky and before the horizon band

// A strike is tried each second in a thunderstorm; the cloud there must be dense.
int lightning_try_strike(float parcel_rho, float distance_nm, float bearing_deg, float now);   // 1 when it struck
float lightning_ratio(float planet_rat);   // the flash at the eye: 0 at 40 nm, full at the strike
void update_lightning();   // the second's try at a strike
void draw_lightning();
