// Start-up and shutdown: WinMain, init_sim in its order, MACIBM_init, init_gen and
// MACIBM_finishup. The main loop itself is in main_loop.cpp.
#include "core/HL_MAIN.h"
#include "core/HL_CORE.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "aircraft/HL_ACF.h"
#include "net/HL_NET.h"
#include "plugin/HL_PLUGIN.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include "render/ogl.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"
#include "ui/joystick.h"
#include "world/HL_WORLD.h"
#include "core/files.h"
#include <stdexcept>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>

int g_done = 0;
int have_done_first_update = 0;
std::string app_path, gen_path, res_path, afl_path, wpn_path, acf_path, sit_path, mov_path,
	log_path, fms_path, snd_path, bmp_path, cus_path, agn_path, ean_path, man_path, men_path, txt_path, key_path;
std::ofstream xer, dat, cyc;

int WinMain()
{
	try {
		plat_catch_signals();
		init_sim();
		while (!g_done) MACIBM_event_proc();
		MACIBM_finishup(1);
		return 0;
	} catch (const XFatalAlert&) {   // already reported
		MACIBM_finishup(0);
		return 1;
	} catch (const XException& x) {
		x.ReportAndQuit();
		MACIBM_finishup(0);
		return 1;
	} catch (...) {
		if (xer.is_open()) xer << "catch anything else\n";
		MACIBM_finishup(0);
	}
	return 1;
}

void MACIBM_showinit(const char* text) { plat_showinit(text); }

void init_sim()
{
	std::memset(&scn, 0, sizeof scn);
	std::memset(flt, 0, sizeof flt);
	g_done = 0;
	have_done_first_update = 0;
	reset_loop_state();
	MACIBM_init();
	MACIBM_showinit("Will init gen.");
	init_gen();
	MACIBM_showinit("Will init graphics world.");
	init_world_rendering(0);
	MACIBM_showinit("Will init graphics world.");
	init_world_rendering(2);
	MACIBM_showinit("Will init graphics world.");
	init_world_rendering(1);
	MACIBM_showinit("Will init hardware out.");
	init_hardware_out();
	MACIBM_showinit("Will read logbook.");
	logbook_read();
	MACIBM_showinit("Will load your plane.");
	str_to_buf(veh[0].path, app_path + stg.def_pln_path);
	load_plane(0);
	MACIBM_showinit("Will read nav data.");
	read_planet_nav();
	MACIBM_showinit("Will init flight 0.");
	init_flt_0(608, stg.start_ramp ? 600 : 601);   // the selected airport's runway, or its ramp
	for (int p = 1; p < NBPGetNumberPlanesToHandle(stg.numacf, 1) && p < acf_max; p++) {
		get_random_plane(p);
		init_flt_p_other_ai(p);
	}
	for (int s = 0; s < net_slot_max; s++)
		if (net.use_ip[s]) { NET_re_init(); break; }
	ren.DL_carr = build_a_carr();
	ren.DL_frig = build_a_frig();
	ren.DL_opla = build_a_opla();
	ren.DL_orig = build_a_orig();
	if (net.use_ip[17]) { mnw.top_win = 19; cloud_update_vars(); }
	if (mnw.start_qfl) { mnw.top_win = 9; cloud_update_vars(); }
}

static void open_log(std::ofstream& s, const std::string& name)
{
	s.open(app_path + name, std::ios::out | std::ios::trunc);
	s.precision(4);
}

void MACIBM_init()
{
	zero_all_records();
	ren.ground_is_vis = 1;   // the terrain is shown unless the user turns it off
	for (int b = 0; b < boat_max; b++) env.boat_x[b] = env.boat_z[b] = -9.9e9f;   // no boat until a block places it
	init_tables();
	// Seed the process's own generator from the clock, drawing a clock-dependent number of times.
	unsigned seed = (unsigned)(time_sec() * 1000.0f);
	std::srand(seed);
	for (unsigned n = 0; n < seed % 100; n++) std::rand();

	app_path = plat_program_folder();
	open_log(xer, "Error.out");
	open_log(dat, "Data.out");
	open_log(cyc, "Nimbara.out");

	gen_path = app_path + "Resources:Preferences:Nimbasys 7 Nimbara.prf";
	res_path = app_path + "Resources:Preferences:Nimbasys 7 Resolution.prf";
	afl_path = app_path + "Airfoils:";
	wpn_path = app_path + "Weapons:";
	acf_path = app_path + "Aircraft:";
	sit_path = app_path + "Output:situations:";
	mov_path = app_path + "Output:movies:";
	log_path = app_path + "Output:logbooks:";
	fms_path = app_path + "Output:FMS plans:";
	snd_path = app_path + "Resources:sounds:";
	bmp_path = app_path + "Resources:bitmaps:";
	cus_path = app_path + "Custom Scenery:";
	agn_path = app_path + "Custom Scenery:AutoGen:";
	ean_path = app_path + "Resources:Earth nav data:";
	man_path = app_path + "Resources:Mars nav data:";
	men_path = app_path + "Resources:menus:";
	txt_path = app_path + "Resources:text:";
	key_path = app_path + "Instructions:keys:";
	THREAD_Init();

	init_con();
	set_planet_specs(0);

	mnw.x_res_req = 1024;
	mnw.y_res_req = 768;
	mnw.col_res_req = 32;
	mnw.set_res_req = 1;
	mnw.tex_res = 3;
	mnw.lang = -1;
	mnw.keylist_up = 1;
	mnw.prd_FM = 0.02f;
	mnw.prd_UI = 0.02f;
	mnw.top_win = -1;
	mnw.menu_up = -1;   // no menu open
	std::snprintf(msc.apt_id_str, sizeof msc.apt_id_str, "KSBD");   // until the preferences say otherwise
	handle_prefs(0, 6, res_path.c_str());
	OGL_assign_start_colours();
	OGL_set_panel_space(mnw.x_res_req, mnw.y_res_req);   // the 1024 x 768 panel inside the real window
	if (!MACIBM_setres(1) || !MACIBM_getcontext()) {
		handle_prefs(0, 7, res_path.c_str());
		NB_ALERT("I could not set up the graphics for Nimbara! I hope your monitor is at 1024x768 or higher! It must be!",
		         "Nimbara needs an OpenGL window of 1024 by 768 or more.", "Check that a display is available to this program,",
		         "and that its OpenGL driver is installed.", alert_fatal);
	}
	mnw.first_miss_cycle = 1;
	JOY_init();
	if (!std::ifstream(ret_host_path(bmp_path + "interface.png")))
		NB_ALERT("I cannot open the graphics interface file!", "It seems that you have moved Nimbara out of the Nimbasys folder!", "", "",
		         alert_fatal);
	OGL_report_situation();
	OGL_init_state();
	if (plat_has_gl()) OGL_load_interface();
}

void init_gen()
{
	// Defaults that the preferences may overwrite.
	JOY_defaults();
	std::snprintf(stg.def_apt_idst, sizeof stg.def_apt_idst, "%s", "KSBD");
	std::snprintf(stg.def_pln_path, sizeof stg.def_pln_path, "%s", "Aircraft:General Aviation:Wren 180:Wren 180.acf");
	std::snprintf(stg.def_pln_file, sizeof stg.def_pln_file, "%s", "Wren 180.acf");
	// The special aircraft: an unpowered glider stands in for the shuttle; the trainer tows;
	// the airliner refuels and carries.
	std::snprintf(stg.acf_path_shuttle, 500, "%s", "Aircraft:Gliders:Kestrel 15:Kestrel 15.acf");
	std::snprintf(stg.acf_path_tow, 500, "%s", "Aircraft:General Aviation:Wren 180:Wren 180.acf");
	std::snprintf(stg.acf_path_ref_airforce, 500, "%s", "Aircraft:Heavy Metal:Meridian 320:Meridian 320.acf");
	std::snprintf(stg.acf_path_ref_navy, 500, "%s", "Aircraft:Heavy Metal:Meridian 320:Meridian 320.acf");
	std::snprintf(stg.acf_path_carry, 500, "%s", "Aircraft:Heavy Metal:Meridian 320:Meridian 320.acf");
	set_planet_specs(0);
	init_weather_defaults();
	mnw.locl_date_jan1 = 90;
	{
		const std::time_t now = std::time(nullptr);
		const std::tm* t = std::localtime(&now);
		mnw.locl_year = t ? t->tm_year + 1900 : 2000;   // the sky of this year's calendar
	}
	mnw.locl_time = 10.0f * 3600.0f;
	mnw.zulu_time = mnw.locl_time + 8.0f * 3600.0f;
	mnw.assigned[2] = mnw.assigned[1] = mnw.assigned[4] = 1;   // roll, pitch, throttle
	mnw.radio_chatter_on = 1;
	stg.text_out = stg.warn_bb = stg.draw_g_load = 1;
	stg.numacf = 1;
	stg.drawboats = stg.drawobjects = stg.drawfires = 1;
	stg.auto_coord_helos = 1;
	stg.tran_ID = 1200;
	rel.real_MTBF_hours = 1000.0f;
}

void MACIBM_finishup(int is_normal_exit)
{
	THREAD_Cleanup();
	MOV_close();
	if (is_normal_exit) {
		handle_prefs(0, 7, res_path.c_str());
		handle_prefs(1, 7, gen_path.c_str());
		NBPShutdownPlugins();
		close_hardware_out(1);
	}
	MACIBM_setres(0);
	NET_close();
	JOY_close();
	SOUND_close();
	if (xer.is_open()) xer << (is_normal_exit ? "Normal exit.\n" : "Abnormal exit.\n");
	xer.close();
	cyc.close();
	dat.close();
}
