// Loading the planet's navigation world at start and on a change of planet: the
// default files, then the airports of custom scenery packages, each replacing an
// airport of the same id in place or standing at the end.
#include "world/nav_data.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include "world/HL_WORLD.h"
#include <algorithm>
#include <cstring>

static void add_custom_airports()
{
	const std::vector<std::string> packages = plat_list_folders(ret_host_path(cus_path).c_str());
	const char* rel = env.planet == 1 ? "Mars nav data:apt.dat" : "Earth nav data:apt.dat";
	for (size_t n = packages.size(); n-- > 0;) {
		const size_t before = vec_apt.size();
		if (!IO_apt(2, cus_path + packages[n] + ":" + rel)) continue;   // a package without airports
		for (size_t k = before; k < vec_apt.size(); k++)
			for (size_t o = 0; o < before; o++)
				if (std::strcmp(vec_apt[o].apt_id, vec_apt[k].apt_id) == 0) {
					vec_apt[o] = vec_apt[k];
					std::strcpy(vec_apt[k].apt_id, "XXXX");
				}
	}
	vec_apt.erase(std::remove_if(vec_apt.begin(), vec_apt.end(), [](const vec_apt_struct& a) { return std::strcmp(a.apt_id, "XXXX") == 0; }),
	              vec_apt.end());
	apt_hash.clear();
	for (size_t k = 0; k < vec_apt.size(); k++) apt_hash[apt_hash_key(vec_apt[k].apt_id)] = (int)k;
}

static void limit_index(int* v, size_t n) { *v = n == 0 ? 0 : std::clamp(*v, 0, (int)n - 1); }

void read_planet_nav()
{
	// Fixes and aids on workers, airways and airports here meanwhile.
	const int fix_call = THREAD_RunAsync(IO_fix, 0, 1);
	IO_awy(0);
	if (!THREAD_IsDone(fix_call, 60.0f)) NB_ALERT("Timed out IO_fix thread after 60 seconds.", "", "", "", alert_fatal);
	THREAD_DoneValue(fix_call);
	THREAD_Cleanup(fix_call);
	const int nav_call = THREAD_RunAsync(IO_nav, 0, 1);
	try {
		IO_apt(0, "");
	} catch (...) {   // the worker must be done with its containers before the alert goes on
		THREAD_IsDone(nav_call, 60.0f);
		THREAD_Cleanup(nav_call);
		throw;
	}
	if (!THREAD_IsDone(nav_call, 60.0f)) NB_ALERT("Timed out IO_nav thread after 60 seconds.", "", "", "", alert_fatal);
	THREAD_DoneValue(nav_call);
	THREAD_Cleanup(nav_call);
	add_custom_airports();
	init_world_rendering(3);
	get_basic_specs_with_apt_ID();
	load_region(1);
	limit_index(&nav.gps_apt_index, vec_apt.size());
	limit_index(&nav.gps_vor_index, vec_nav.size());
	limit_index(&nav.gps_ndb_index, vec_nav.size());
	limit_index(&nav.gps_fix_index, vec_fix.size());
	const size_t use = nav.gps_type == nav_type_apt ? vec_apt.size() : nav.gps_type == nav_type_fix ? vec_fix.size() : vec_nav.size();
	limit_index(&nav.gps_use_index, use);
}
