// Host paths from ':' paths.
#include "core/files.h"

// From the third character on, ':' and '\' become '/'; the first two are left alone,
// as they may hold a drive prefix on other hosts.
void set_dir_chars(std::string& path)
{
	for (size_t n = 2; n < path.size(); n++)
		if (path[n] == ':' || path[n] == '\\') path[n] = '/';
}
