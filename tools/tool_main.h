// The shared entry of the command-line tools: the records set up as at start, --help,
// and a fatal alert turned into exit status 1 (the alert has said why on standard error).
#pragma once
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

struct tool_command {
	const char* name;
	int (*run)(int argc, char** argv);   // argv[0] is the command's name
};

inline int tool_main(const char* tool, const char* help, const tool_command* cmds, int n, int argc, char** argv)
{
	zero_all_records();
	init_con();
	init_tables();
	set_planet_specs(0);
	if (argc < 2 || !std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h")) {
		std::fputs(help, argc < 2 ? stderr : stdout);
		return argc < 2 ? 2 : 0;
	}
	try {
		for (int k = 0; k < n; k++)
			if (!std::strcmp(argv[1], cmds[k].name)) return cmds[k].run(argc - 1, argv + 1);
	} catch (const XFatalAlert&) {
		return 1;
	}
	std::fprintf(stderr, "%s: unknown command '%s'; see %s --help\n", tool, argv[1], tool);
	return 2;
}

// The data tree an aircraft file lies in: the nearest folder above it that holds an
// Airfoils folder, with a trailing '/'; empty when there is none.
inline std::string find_data_tree(const std::string& file)
{
	namespace fs = std::filesystem;
	std::error_code ec;
	for (fs::path q = fs::absolute(file, ec).parent_path(); !q.empty(); q = q.parent_path()) {
		if (fs::is_directory(q / "Airfoils", ec)) return q.string() + "/";
		if (q == q.root_path()) break;
	}
	return "";
}
