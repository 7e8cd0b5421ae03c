// nimbara-world: makes the world's data files from real sources.
#include "tools/tool_main.h"

int world_navdata(int argc, char** argv);
int world_scenery(int argc, char** argv);
int world_dump(int argc, char** argv);
int world_stars(int argc, char** argv);

static const char* help =
	"nimbara-world: makes the world's data from real sources.\n"
	"  nimbara-world navdata --db FILE --out DIR\n"
	"      Reads an airport database (SQLite, the airport-db layout of OurAirports data),\n"
	"      writes DIR/apt.dat and prints what it kept and what it left out, by reason.\n"
	"      Airports, small to large, and heliports are kept; closed fields, balloon and\n"
	"      seaplane bases and water runways are not. A runway is placed between its two\n"
	"      ends when both are known and agree with its length, else along the one end's\n"
	"      heading; a runway with no end placed is left out.\n"
	"  nimbara-world scenery --south S --west W --north N --east E [--seed K] [--apt FILE]\n"
	"                        [--planet earth|mars] [--land FILE] --out DIR\n"
	"      Writes a quadrant file for each degree square from S to N and W to E (whole\n"
	"      degrees, north and east excluded) under DIR. On Earth, land and sea come from\n"
	"      FILE, a TopoJSON topology with a 'land' object (Natural Earth's 1:10m land); the\n"
	"      relief from seeded noise (K, default 1) about the airfields' heights; the ground\n"
	"      round each airport of apt.dat (default DIR/apt.dat) is flat at its elevation and\n"
	"      dry. Rivers run from high ground to the sea or a hollow; radio towers stand on\n"
	"      the highest summits. Mars squares are 64 by 64 steps, dry, without rivers.\n"
	"  nimbara-world dump FILE.env\n"
	"      Prints a quadrant file: 'version N', 'obj TYPE LAT LON PSI_DY [NAME]' per object,\n"
	"      and per chain 'chain KIND' (roads, trails, rails, power, taxiways, rivers) and\n"
	"      its 'pt LAT LON' lines.\n"
	"  nimbara-world stars --bsc FILE --out FILE\n"
	"      Writes the sky's star catalogue (astro.dat) from the Bright Star Catalogue as a\n"
	"      text list of declination, right ascension in hours, magnitude and quoted name,\n"
	"      brightest first.\n"
	"  nimbara-world --help\n";

int main(int argc, char** argv)
{
	static const tool_command cmds[] = {{"navdata", world_navdata}, {"scenery", world_scenery}, {"dump", world_dump}, {"stars", world_stars}};
	return tool_main("nimbara-world", help, cmds, 4, argc, argv);
}
