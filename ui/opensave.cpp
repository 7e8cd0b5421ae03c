// The file lists of the open and save dialogs: the items of the working folder that a
// file type takes, folders first by name with the files.
#include "ui/HL_UI.h"
#include "core/files.h"
#include "platform/plat.h"
#include <algorithm>
#include <cctype>
#include <string>

std::string wrk_path;
std::string g_file[1000], g_path[1000];
int g_file_type[1000];

namespace {

// The file type an extension gives, as the dialogs know them.
int type_of(const std::string& name)
{
	const size_t dot = name.rfind('.');
	if (dot == std::string::npos) return 0;
	std::string ext = name.substr(dot);
	for (char& c : ext) c = (char)std::toupper((unsigned char)c);
	static const struct { const char* ext; int type; } table[] = {
	    {".ACF", 4}, {".SIT", 6}, {".SMO", 7}, {".LOG", 8}, {".TXT", 8}, {".FMS", 9}, {".GAM", 10}, {".TRA", 11}, {".CAR", 12},
	    {".SPA", 13}, {".REG", 14}, {".WAV", 15}, {".BMP", 16}, {".PNG", 16}, {".ENV", 17}, {".FDR", 20}, {".OBJ", 5}};
	for (const auto& t : table)
		if (ext == t.ext) return t.type;
	return 0;
}

}  // namespace

int opensave_takeit(int n_ret, int file_type)
{
	const std::string& name = g_file[n_ret];
	if (name.empty() || name[0] == '.') return 0;
	if (g_file_type[n_ret] == 1) return 1;   // folders are always listed
	const int t = type_of(name);
	g_file_type[n_ret] = t == 1 ? 0 : t;
	return file_type == 0 || t == file_type || ((file_type == 18 || file_type == 19) && t == 16);
}

int opensave_getitems(int file_type)
{
	const char last = wrk_path.empty() ? 0 : wrk_path.back();
	if (last != ':' && last != '\\' && last != '/')
		NB_ALERT("Working path does not appear to be a directory!", "This is not consistent with my labelling practices!",
		         "I need to end all paths with the directory indicator!", "See the instrument-check in Framewright for example.", alert_fatal);
	int n = 0;
	for (const plat_entry& e : plat_list_entries(ret_host_path(wrk_path).c_str())) {
		if (n >= 999) break;
		g_file[n] = e.name;
		g_path[n] = wrk_path + e.name + (e.is_dir ? ":" : "");
		g_file_type[n] = e.is_dir ? 1 : 0;
		if (opensave_takeit(n, file_type)) n++;
	}
	for (int a = 0; a < n; a++)   // by name, path and type going along
		for (int b = 0; b + 1 < n - a; b++)
			if (g_file[b] > g_file[b + 1]) {
				std::swap(g_file[b], g_file[b + 1]);
				std::swap(g_path[b], g_path[b + 1]);
				std::swap(g_file_type[b], g_file_type[b + 1]);
			}
	return n;
}
