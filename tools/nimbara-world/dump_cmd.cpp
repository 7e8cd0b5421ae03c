// nimbara-world dump: a quadrant file in readable form, for people and for tests.
#include "world/quadrant_file.h"
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

int world_dump(int argc, char** argv)
{
	if (argc != 2) { std::fprintf(stderr, "nimbara-world: dump takes one quadrant file\n"); return 2; }
	const std::string path = argv[1];
	// The square comes from the name: sign, two latitude digits, sign, three longitude digits.
	const std::string name = std::filesystem::path(path).filename().string();
	char ls = 0, os = 0;
	int la = 0, lo = 0, used = 0;
	if (std::sscanf(name.c_str(), "%c%2d%c%3d.env%n", &ls, &la, &os, &lo, &used) != 4 || used != (int)name.size() || (ls != '+' && ls != '-') ||
	    (os != '+' && os != '-')) {
		std::fprintf(stderr, "nimbara-world: %s is not named as a quadrant file (+37-122.env)\n", path.c_str());
		return 1;
	}
	const int lat_file = ls == '-' ? -la : la, lon_file = os == '-' ? -lo : lo;
	quadrant_data q;
	std::string why;
	if (!read_quadrant(path, &q, &why)) { std::fprintf(stderr, "nimbara-world: %s: %s\n", path.c_str(), why.c_str()); return 1; }
	std::printf("version %d\n", q.version);
	for (const quad_object& o : q.objects) {
		std::printf("obj %d %.6f %.6f %.2f", o.type, o.lat, o.lon, o.psi_dy);
		if (o.type == 8) std::printf(" %s", o.name.c_str());
		std::printf("\n");
	}
	static const char* kinds[6] = {"roads", "trails", "rails", "power", "taxiways", "rivers"};
	for (int l = 0; l < quad_num_lists(q.version); l++) {
		bool open = false;
		for (const quad_point& p : q.lists[l]) {
			if (!open) std::printf("chain %s\n", kinds[l]);
			double lat = p.lat, lon = p.lon;
			if (l != quad_taxis) code_to_lat_lon(p.code, lat_file, lon_file, &lat, &lon);
			std::printf("pt %.6f %.6f\n", lat, lon);
			open = p.tag != 'e';
		}
	}
	return 0;
}
