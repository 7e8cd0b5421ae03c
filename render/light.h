// The light of the moment beyond the tables: the lights of night and of lightning, the
// panel's lighting, the thinning air's black shadows, the sun's glare, and which second
// texture the ground wears.
#pragma once

struct light_inputs {
	float earth_rat, planet_rat;   // the air's density at the eye against Earth's and the planet's sea level
	float sun_use_rat;             // the sun's share of the light, the moon's the rest
	float rat_lightning;           // a strike's flash at the eye, 0..1
};

extern float amb_lite, rat_lite;
extern float lgt_amb_clear[3];   // the ambient light before the glare dims it: how bright the sky itself is
void inc_colors(float r, float g, float b, int is_nite_vis);   // brightens or tints the light, water, sky and fog; clouds and discs with the flag
void update_light(const light_inputs& in);   // after the tables' blend: every light value of the frame
float sun_use_ratio(float sun_the, float earth_rat);   // 1 by day and out of the air, 0 by night
