// The shared entry of the command-line tools: the records set up as at start, --help,
// and a fatal alert turned into exit status 1 (the alert has said why on standard error).
#pragma once
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cstdio>
#include <cstring>

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
