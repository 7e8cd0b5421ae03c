// Strings and text tables: `stl`. The file services and the language files fill it.
#pragma once

struct stl_struct {
	char sys_path[1024];   // the program's folder, with a trailing separator
	char custom_scene_path[1024];   // the package the current quadrant came from, ':' path; empty for ours
};
