// nimbara-fly view: the simulator's picture from a place, attitude and time, through the
// real start-up and frame code, offscreen; the last of 30 frames written as PNG.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "aircraft/load_plane.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "flight/HL_FLIGHT.h"
#include "platform/plat.h"
#include "platform/plat_headless.h"
#include "render/HL_GRAPH.h"
#include "render/sun_moon.h"
#include "render/ogl.h"
#include "world/HL_WORLD.h"
#include <GL/gl.h>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

int fly_view(int argc, char** argv)
{
	double lat = NAN, lon = NAN, alt_ft = NAN, heading = 0, pitch = 0, roll = 0, view = 1525, fov = 45, vis_nm = 25;
	double kias = 0, baro_inhg = 29.92;
	int width = 1024, height = 768, year = 2026, month = 6, mday = 21, hh = 19, mm = 0;
	std::string png_out, tree = fly_default_tree();
	bool sunglasses = false, night_vision = false, landing_light = false;
	std::string aircraft;
	std::vector<std::pair<int, int>> clicks;   // picture pixels from the top left
	std::vector<std::array<int, 4>> drags;      // from, to
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (o == "--sunglasses" || o == "--night-vision" || o == "--landing-light") {
			(o == "--sunglasses" ? sunglasses : o == "--night-vision" ? night_vision : landing_light) = true;
			continue;
		}
		if (o == "--panel") {   // the forward view with the panel
			view = 1500;
			continue;
		}
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		bool ok = true;
		if (o == "--lat") ok = fly_parse(val, -89.9, 89.9, &lat);
		else if (o == "--lon") ok = fly_parse(val, -180, 180, &lon);
		else if (o == "--alt-ft") ok = fly_parse(val, -1000, 3e6, &alt_ft);
		else if (o == "--heading") ok = fly_parse(val, -360, 360, &heading);
		else if (o == "--pitch") ok = fly_parse(val, -89.9, 89.9, &pitch);
		else if (o == "--roll") ok = fly_parse(val, -180, 180, &roll);
		else if (o == "--kias") ok = fly_parse(val, 0, 2000, &kias);
		else if (o == "--baro-inhg") ok = fly_parse(val, 0, 35, &baro_inhg);
		else if (o == "--view") ok = fly_parse(val, 1500, 1539, &view);
		else if (o == "--fov") ok = fly_parse(val, 5, 170, &fov);
		else if (o == "--vis-nm") ok = fly_parse(val, 0.1, 200, &vis_nm);
		else if (o == "--png") png_out = val;
		else if (o == "--aircraft") aircraft = val;
		else if (o == "--click") {
			int x, y;
			ok = std::sscanf(val, "%d,%d", &x, &y) == 2;
			if (ok) clicks.emplace_back(x, y);
		}
		else if (o == "--drag") {
			std::array<int, 4> d;
			ok = std::sscanf(val, "%d,%d,%d,%d", &d[0], &d[1], &d[2], &d[3]) == 4;
			if (ok) drags.push_back(d);
		}
		else if (o == "--tree") tree = fly_tree_arg(val);
		else if (o == "--size") ok = std::sscanf(val, "%dx%d", &width, &height) == 2 && width >= 16 && height >= 16 && width <= 4096 && height <= 4096;
		else if (o == "--date") ok = std::sscanf(val, "%d-%d-%d", &year, &month, &mday) == 3 && month >= 1 && month <= 12 && mday >= 1 && mday <= 31;
		else if (o == "--time-utc") ok = std::sscanf(val, "%d:%d", &hh, &mm) == 2 && hh >= 0 && hh <= 23 && mm >= 0 && mm <= 59;
		else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str()); return 2; }
		if (!ok) { std::fprintf(stderr, "nimbara-fly: bad value '%s' for %s\n", val, o.c_str()); return 2; }
	}
	std::vector<std::pair<int, int>> points = clicks;   // every place the mouse goes must be in the picture
	for (const auto& d : drags) points.emplace_back(d[0], d[1]), points.emplace_back(d[2], d[3]);
	for (const auto& c : points)
		if (c.first < 0 || c.second < 0 || c.first >= width || c.second >= height) {
			std::fprintf(stderr, "nimbara-fly: the mouse at %d,%d is outside the %dx%d picture\n", c.first, c.second, width, height);
			return 2;
		}
	if (std::isnan(lat) || std::isnan(lon) || std::isnan(alt_ft) || png_out.empty()) {
		std::fprintf(stderr, "nimbara-fly: view needs --lat, --lon, --alt-ft and --png\n");
		return 2;
	}
	if (tree.empty()) { std::fprintf(stderr, "nimbara-fly: no data tree\n"); return 1; }
	if (!plat_offscreen_open(width, height)) { std::fprintf(stderr, "nimbara-fly: cannot draw: %s\n", plat_offscreen_error()); return 1; }
	HEADLESS_setup(0.02, 0, tree.c_str());
	init_sim();
	OGL_set_panel_space(width, height);
	// The start aircraft unless another is named: its eye, size and panel.
	str_to_buf(veh[0].path, ret_host_path(aircraft.empty() ? app_path + stg.def_pln_path : aircraft));
	flt_struct& f = flt[0];
	if (!load_plane(0)) {
		std::fprintf(stderr, "nimbara-fly: could not load the aircraft\n");
		MACIBM_finishup(0);
		plat_offscreen_close();
		return 1;
	}
	f.dob_lat = lat;
	f.dob_lon = lon;
	f.dob_ele = alt_ft * con.fttomtrs;
	ren.ground_is_vis = 1;   // the block round the place, its ground set up for drawing
	env.lat_sou = (int)std::lround(lat - lat_secs_os[env.planet == 1]);
	env.lon_wes = (int)std::lround(lon - lon_secs_os[env.planet == 1]);
	load_region(1);
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele);
	f.psi = (float)std::fmod(heading + 360.0, 360.0);
	f.the = (float)pitch;
	f.phi = (float)roll;
	init_quaternion(f.psi, f.the, f.phi, f.q);
	update_derived_flt(0);
	mnw.locl_year = year;
	mnw.locl_date_jan1 = day_of_year(year, month, mday);
	mnw.zulu_time = mnw.locl_time = (float)(hh * 3600 + mm * 60);   // the clock held at UTC
	mnw.use_sys_time = 0;
	atm.vis_rep = (float)(vis_nm * 1852.0);
	atm.vis_frmult = 1.0f;
	ren.FOV = (float)fov;
	ren.view_menu_TYPE = (int)view;
	ren.sunglasses_on = sunglasses;
	ren.night_vision_on = night_vision;
	ren.draw_shadows = 1;   // cloud shadows and the sun's glitter, as a user has them
	if (landing_light) {   // the battery on to feed it
		f.lan_lite = 1;
		stg.battery = 1;
		for (float& v : f.ENGN_bat_volt) v = 24.0f;
	}
	nav.baro_setting_HG = (float)baro_inhg;
	// Flight passes with the aircraft held where it was put, flying at the set speed along its
	// nose in still air, so that the instruments' lags settle on what it is doing.
	const float q_held[4] = {f.q[0], f.q[1], f.q[2], f.q[3]};
	auto hold = [&]() {
		f.dob_lat = lat, f.dob_lon = lon, f.dob_ele = alt_ft * con.fttomtrs;
		xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele);
		for (int k = 0; k < 4; k++) f.q[k] = q_held[k];
		f.psi = (float)std::fmod(heading + 360.0, 360.0), f.the = (float)pitch, f.phi = (float)roll;
		const float tas = (float)kias * con.ktstomsc / std::sqrt(fltmax2(con.lcl_sig, 1e-6f));
		rot_quat(f.q, 0.0f, 0.0f, -tas, &f.vx, &f.vy, &f.vz);   // along the nose, the aircraft's -z
		f.P = f.Q = f.R = f.Prad = f.Qrad = f.Rrad = 0.0f;
		update_derived_flt(0);
	};
	const bool settle = view_shows_panel((int)view);
	auto settle_instruments = [&]() {
		if (!settle) return;
		fly_calm_air();
		for (int n = 0; n < 200; n++) {
			WORLD_math_all_cases();
			hold();
			PLANE_math_in_flight(0);
		}
		hold();
	};
	settle_instruments();
	mnw.top_win = 0;
	glClearColor(1.0f, 0.0f, 1.0f, 1.0f);   // a colour no sky has: any hole in the picture shows it
	glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
	WORLD_scene_all_cases();   // the view in place before the mouse acts on it
	for (const auto& c : clicks) {   // a press, a frame, a release, a frame
		mnw.mx = (int)(c.first / mnw.xy_scale - mnw.x_off);
		mnw.my = (int)((height - c.second) / mnw.xy_scale);
		mnw.mouse_clicked = mnw.now_dragging = 1;
		WORLD_scene_all_cases();
		mnw.mouse_clicked = mnw.now_dragging = 0;
		mnw.mouse_lifted = 1;
		WORLD_scene_all_cases();
		mnw.mouse_lifted = 0;
	}
	for (const auto& d : drags) {   // a press, the mouse moved over a few frames, a release
		const int steps = 6;
		for (int k = 0; k <= steps; k++) {
			const float t = (float)k / steps;
			mnw.mx = (int)((d[0] + (d[2] - d[0]) * t) / mnw.xy_scale - mnw.x_off);
			mnw.my = (int)((height - (d[1] + (d[3] - d[1]) * t)) / mnw.xy_scale);
			mnw.mouse_clicked = k == 0;
			mnw.now_dragging = mnw.delay_dragging = 1;
			WORLD_scene_all_cases();
		}
		mnw.mouse_clicked = mnw.now_dragging = mnw.delay_dragging = 0;
		mnw.mouse_lifted = 1;
		WORLD_scene_all_cases();
		mnw.mouse_lifted = 0;
	}
	if (!clicks.empty() || !drags.empty()) settle_instruments();   // what the clicks set, read through the instruments
	for (int n = 0; n < 30; n++) WORLD_scene_all_cases();
	glFinish();
	std::vector<unsigned char> px((size_t)width * height * 4);
	glPixelStorei(GL_PACK_ALIGNMENT, 1);
	glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	const int ok = fly_write_png(png_out.c_str(), px.data(), width, height, true);
	if (view_shows_panel(ren.view_type_act))   // where each instrument's centre fell, in the picture's pixels from its top left
		for (int n = 0; n < 300; n++) {
			const veh_struct& v = veh[0];
			if (v.ins_type[n] == -1) continue;
			const float x = (v.ins_x[n] + mnw.x_off) * mnw.xy_scale, y = height - (v.ins_y[n] - mnw.look_up) * mnw.xy_scale;
			std::printf("ins %d %d %.1f %.1f %.3f\n", n, v.ins_type[n], x, y, v.ins_size[n]);
		}
	if (!ok) std::fprintf(stderr, "nimbara-fly: cannot write %s\n", png_out.c_str());
	MACIBM_finishup(1);
	plat_offscreen_close();
	return ok ? 0 : 1;
}
