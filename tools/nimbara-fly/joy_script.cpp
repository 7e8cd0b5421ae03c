// nimbara-fly's joystick scripts: virtual sticks attached, moved, pressed and unplugged at
// set times, and the assignments of raw axes and buttons, all through the real device
// path.
#include "tools/nimbara-fly/joy_script.h"
#include "core/HL_LIMITS.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include "ui/joystick.h"
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

bool whole(const std::string& s, int lo, int hi, int* v)
{
	char* end;
	const long n = std::strtol(s.c_str(), &end, 10);
	if (s.empty() || *end || n < lo || n > hi) return false;
	*v = (int)n;
	return true;
}

}  // namespace

bool read_joy_script(const std::string& path, std::vector<joy_event>& out, std::string* why)
{
	std::ifstream in(path);
	if (!in) { *why = "cannot read " + path; return false; }
	std::string text;
	int line_no = 0;
	double last_t = 0.0;
	while (std::getline(in, text)) {
		line_no++;
		const size_t hash = text.find('#');
		if (hash != std::string::npos) text.resize(hash);
		std::istringstream ss(text);
		std::vector<std::string> w;
		for (std::string s; ss >> s;) w.push_back(s);
		if (w.empty()) continue;
		auto bad = [&](const char* what) {
			*why = path + ":" + std::to_string(line_no) + ": " + what;
			return false;
		};
		joy_event e;
		e.line = line_no;
		char* end;
		e.t = std::strtod(w[0].c_str(), &end);
		if (*end || !(e.t >= last_t) || e.t > 1e6) return bad("a time, not before the line above, comes first");
		last_t = e.t;
		if (w.size() < 2) return bad("an event follows the time");
		e.what = w[1];
		const size_t n = w.size() - 2;
		bool ok = false;
		if (e.what == "attach") ok = n == 3 && whole(w[2], 0, 8, &e.a) && whole(w[3], 0, 4, &e.b) && whole(w[4], 0, plat_joy_max_buttons, &e.c);
		else if (e.what == "detach") ok = n == 1 && whole(w[2], 0, 3, &e.a);
		else if (e.what == "axis") ok = n == 3 && whole(w[2], 0, 3, &e.a) && whole(w[3], 0, 7, &e.b) && whole(w[4], -100, 100, &e.c);
		else if (e.what == "hat") {
			ok = n == 3 && whole(w[2], 0, 3, &e.a) && whole(w[3], 0, 3, &e.b);
			if (ok && w[4] == "c") e.c = -1;
			else ok = ok && whole(w[4], 0, 31500, &e.c) && e.c % 4500 == 0;
		} else if (e.what == "button") ok = n == 3 && whole(w[2], 0, 3, &e.a) && whole(w[3], 0, plat_joy_max_buttons - 1, &e.b) && whole(w[4], 0, 1, &e.c);
		else if (e.what == "map-axis") {
			ok = (n == 2 || (n == 3 && w[4] == "rev")) && whole(w[2], 0, joy_axis_max - 1, &e.a) && whole(w[3], 0, axis_max - 1, &e.b);
			e.c = n == 3;
		} else if (e.what == "map-button") ok = n == 2 && whole(w[2], 0, joy_button_max - 1, &e.a) && whole(w[3], 0, joy_function_max - 1, &e.b);
		else return bad("no such event; they are attach, detach, axis, hat, button, map-axis, map-button");
		if (!ok) return bad(("a malformed " + e.what).c_str());
		out.push_back(e);
	}
	return true;
}

bool apply_joy_event(const joy_event& e, std::string* why)
{
	const bool needs_device = e.what == "detach" || e.what == "axis" || e.what == "hat" || e.what == "button";
	if (needs_device && e.a >= plat_joy_count()) {
		*why = "line " + std::to_string(e.line) + ": no device " + std::to_string(e.a) + " is attached";
		return false;
	}
	bool ok = true;
	if (e.what == "attach") ok = plat_joy_attach_virtual(e.a, e.b, e.c) >= 0;
	else if (e.what == "detach") ok = plat_joy_detach_virtual(e.a) != 0;
	else if (e.what == "axis") ok = plat_joy_set(e.a, 'a', e.b, e.c) != 0;
	else if (e.what == "hat") ok = plat_joy_set(e.a, 'h', e.b, e.c) != 0;
	else if (e.what == "button") ok = plat_joy_set(e.a, 'b', e.b, e.c) != 0;
	else if (e.what == "map-axis") JOY_set_axis_use(e.a, e.b, e.c);
	else if (e.what == "map-button") mnw.joy_BUTN_use[e.a] = e.b;
	if (!ok) *why = "line " + std::to_string(e.line) + ": the device would not take " + e.what;
	return ok;
}
