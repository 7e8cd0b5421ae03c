// nimbara-fly's joystick scripts: "T attach AXES HATS BUTTONS", "T detach DEV",
// "T axis DEV N V", "T hat DEV N DIR", "T button DEV N 0|1", "T map-axis RAW FUNC [rev]",
// "T map-button RAW FUNC", one a line, '#' comments.
#pragma once
#include <string>
#include <vector>

struct joy_event {
	double t = 0.0;
	std::string what;
	int a = 0, b = 0, c = 0;
	int line = 0;
};
// False with the file and line of the first malformed line.
bool read_joy_script(const std::string& path, std::vector<joy_event>& out, std::string* why);
// False, with the line, when it names a device not attached or the device refuses it.
bool apply_joy_event(const joy_event& e, std::string* why);
