// Where the sun and moon stand: the sun from the solar equations on the UTC date and time,
// the moon by its mean age since a known new moon; both as the lights' directions.
#pragma once

struct sky_light {
	float lat, azi, dec;   // the light's latitude, azimuth (hour angle) and declination, degrees
	float psi, the;        // heading clockwise from true north, and elevation, degrees
};

extern float hours;             // true solar time at the aircraft, 0..24
extern float declination_deg;   // the sun's declination, negative in June
extern float side_time_hrs;     // local sidereal time, hours
extern float PhaseFraction;     // the moon's age over a lunation: 0 new, 0.5 full
extern float moon_hours;        // the moon's hour, as the sun's
extern int moon_tex;            // its phase's texture, 228 to 250
extern float moon_brt;
extern sky_light lgt[3];        // sun, moon, and whichever lights

int day_of_year(int year, int month, int mday);   // 0 for 1 January; month 1..12
double julian_day_utc(int year, int day_of_year, double utc_sec);   // day_of_year 0 for 1 January
// The sun from the solar equations: true solar time and the declination (the usual sign).
void solar_position(double jd, double lon_deg, double* true_solar_hours, double* declination);
float moon_phase(double jd);                                        // 0 new, 0.5 full
double sidereal_hours(double jd, double lon_deg);                   // local mean sidereal time
void light_direction(float lat, float azi, float dec, float* psi, float* the);
void update_sun_moon(int year, int day_of_year, float zulu_sec, double lat, double lon);
void update_sun_moon();   // from the date, the clock and aircraft 0
