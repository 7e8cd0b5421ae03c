// Our synthetic radio aids, fixes and airways, laid out from the real runways.
#pragma once
#include <string>
#include <vector>

struct known_runway {
	int apt;                  // index in vec_apt
	std::string ident[2];     // the two ends' names
	double lat[2], lon[2];    // the two thresholds
	double len_m;
	int large, medium;
};

// Fills vec_nav, vec_fix and vec_awy; the airports must already stand in vec_apt.
void make_synthetic_aids(const std::vector<known_runway>& runways);
double gc_dist_m(double la1, double lo1, double la2, double lo2);
double gc_bearing_deg(double la1, double lo1, double la2, double lo2);
void gc_destination(double la, double lo, double brg_deg, double dist_m, double* la2, double* lo2);
