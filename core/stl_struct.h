// Strings and text tables: `stl`. The file services and the language files fill it.
#pragma once

constexpr int text_line_max = 200, text_line_len = 128;   // lines of a text file or checklist shown over the picture

struct stl_struct {
	char sys_path[1024];   // the program's folder, with a trailing separator
	char custom_scene_path[1024];   // the package the current quadrant came from, ':' path; empty for ours
	char tex_path[49][256];   // each land texture's path, the region placeholder still in it
	int show_text_disp, show_checklist;   // the text sheet or the checklist is shown
	int num_text_lines;                   // of the text file; the checklist's count is msc.checklist_max
	char text_disp[text_line_max][text_line_len];
	char checklist[text_line_max][text_line_len];
};
