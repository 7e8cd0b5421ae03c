// Other traffic: a random aircraft from the folders under Aircraft, the small ones first
// in the first slots and the airliners in the next.
#include "aircraft/HL_ACF.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "ui/HL_UI.h"
#include <cstdlib>
#include <string>

void get_random_plane(int p)
{
	if (p < 0 || p >= acf_max) return;
	const std::string top = app_path + "Aircraft:";
	wrk_path = top;
	for (int tries = 0; tries < 10; tries++) {
		const int n = opensave_getitems(4);
		for (int k = 0; k < n; k++)
			if (g_file_type[k] == 4) {   // an aircraft here: it flies
				str_to_buf(veh[p].path, g_path[k]);
				str_to_buf(veh[p].name, g_file[k]);
				MACIBM_showinit(("Loading " + g_file[k] + " as other air traffic.").c_str());
				load_plane(p);
				return;
			}
		int pick = -1;
		const char* want = p >= 2 && p <= 4 ? "General Aviation" : p >= 5 && p <= 7 ? "Heavy Metal" : nullptr;
		for (int k = 0; k < n && want; k++)
			if (g_file_type[k] == 1 && g_file[k] == want) pick = k;
		if (pick < 0 && n > 0) pick = std::rand() % n;
		if (pick < 0 || g_file_type[pick] != 1) { wrk_path = top; continue; }   // nothing to go down: begin again
		wrk_path = g_path[pick];
	}
	NB_ALERT("I Could not find planes to put in the sky with you!", "I suspect that maybe you have moved Nimbara out of the 'Nimbasys' folder?",
	         "Or maybe you have moved the 'Aircraft' folder out of the 'Nimbasys' folder?",
	         "You may need to delete your copy of Nimbara and re-install since I cannot seem to find the planes in their correct places.", alert_notice);
	flt[p].dob_x = flt[p].dob_z = 9.9e9;   // far away, unseen
}
