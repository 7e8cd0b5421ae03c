// framewright build and dump: between the readable aircraft form and the binary file.
// Both work on the raw record image, without the load's checks.
#include "tools/framewright/framewright.h"
#include "tools/tool_main.h"
#include "aircraft/acf_io.h"
#include "aircraft/acf_text.h"
#include "aircraft/load_plane.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include <filesystem>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

static veh_struct record;

int framewright_build(int argc, char** argv)
{
	int big = argc == 4 && !std::strcmp(argv[3], "--big-endian");
	if (argc != 3 && !big) { std::fprintf(stderr, "framewright: build SRC OUT.acf [--big-endian]\n"); return 2; }
	std::ifstream in(argv[1]);
	if (!in) { std::fprintf(stderr, "framewright: cannot read %s\n", argv[1]); return 1; }
	std::string err;
	if (!acf_read_text(in, argv[1], record, err)) { std::fprintf(stderr, "framewright: %s\n", err.c_str()); return 1; }
	if (!acf_write_image(argv[2], record, big)) { std::fprintf(stderr, "framewright: cannot write %s\n", argv[2]); return 1; }
	return 0;
}

int framewright_dump(int argc, char** argv)
{
	if (argc != 2) { std::fprintf(stderr, "framewright: dump IN.acf\n"); return 2; }
	const char* why = "";
	if (!acf_read_image(argv[1], record, &why)) { std::fprintf(stderr, "framewright: %s %s\n", argv[1], why); return 1; }
	acf_write_text(record, std::cout);
	return std::cout.good() ? 0 : 1;
}

int framewright_check(int argc, char** argv)
{
	const int loaded = argc == 3 && !std::strcmp(argv[1], "--loaded");
	if (argc != 2 && !loaded) { std::fprintf(stderr, "framewright: check [--loaded] FILE.acf\n"); return 2; }
	const std::string file = std::filesystem::absolute(argv[argc - 1]).string();
	app_path = find_data_tree(file);
	if (app_path.empty()) app_path = std::filesystem::path(file).parent_path().string() + "/";
	afl_path = app_path + "Airfoils:";
	acf_path = app_path + "Aircraft:";
	const char* why = "";
	if (!acf_read_image(file.c_str(), record, &why)) { std::fprintf(stderr, "framewright: %s %s\n", file.c_str(), why); return 1; }
	std::snprintf(veh[0].path, sizeof veh[0].path, "%s", file.c_str());
	// The load runs the same reading, defaults and checks as the simulator; a finding is fatal.
	if (!load_plane(0)) { std::fprintf(stderr, "framewright: %s could not be loaded\n", file.c_str()); return 1; }
	if (loaded) acf_write_text(veh[0], std::cout);
	else std::printf("%s: no findings\n", file.c_str());
	return 0;
}
