// nimbara-world stars: the star catalogue the sky draws, from the Bright Star Catalogue as
// a text list of declination, right ascension (hours), visual magnitude and name.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

int world_stars(int argc, char** argv)
{
	if (argc != 5 || std::strcmp(argv[1], "--bsc") || std::strcmp(argv[3], "--out")) {
		std::fprintf(stderr, "nimbara-world: stars takes --bsc FILE --out FILE\n");
		return 2;
	}
	std::ifstream in(argv[2]);
	if (!in) { std::fprintf(stderr, "nimbara-world: cannot read %s\n", argv[2]); return 1; }
	std::ofstream out(argv[4]);
	if (!out) { std::fprintf(stderr, "nimbara-world: cannot write %s\n", argv[4]); return 1; }
	out << "A\n740 Version - stars from the Bright Star Catalogue, 5th Revised Ed. (Hoffleit and Warren, 1991): RA hours, Dec degrees, "
	       "visual magnitude, name\n";
	std::string line;
	int kept = 0, line_no = 0;
	double last_mag = -99.0;
	while (std::getline(in, line)) {
		line_no++;
		if (line.empty() || line[0] == '#') continue;
		std::istringstream ss(line);
		double dec, ra, mag;
		if (!(ss >> dec >> ra >> mag) || std::fabs(dec) > 90.0 || ra < 0.0 || ra >= 24.0 || mag < -2.0 || mag > 9.0) {
			std::fprintf(stderr, "nimbara-world: %s:%d: not a star: \"%s\"\n", argv[2], line_no, line.c_str());
			return 1;
		}
		if (mag < last_mag) {   // the sky cuts its lists where the magnitude crosses a step
			std::fprintf(stderr, "nimbara-world: %s:%d: stars must come in order of rising magnitude\n", argv[2], line_no);
			return 1;
		}
		last_mag = mag;
		std::string name;
		const size_t q1 = line.find('"'), q2 = q1 == std::string::npos ? q1 : line.find('"', q1 + 1);
		if (q2 != std::string::npos) name = line.substr(q1 + 1, q2 - q1 - 1);
		while (!name.empty() && name[0] == ' ') name.erase(0, 1);
		char row[160];
		std::snprintf(row, sizeof row, "%8.4f %9.4f %6.2f %s", ra, dec, mag, name.c_str());
		out << row << "\n";
		kept++;
	}
	out << "99\n";
	if (!out.flush()) { std::fprintf(stderr, "nimbara-world: cannot write %s\n", argv[4]); return 1; }
	std::printf("stars: %d\n", kept);
	return kept > 0 ? 0 : 1;
}
