// The panel composed once, at aircraft load: for each of the nine views its background,
// and on the forward one every instrument's back plate in slot order and the overlay over
// all; then each instrument's moving layers as textures of their own. A frame of a still
// panel then costs one quad.
#include "cockpit/HL_COCKPIT.h"
#include "cockpit/panel.h"
#include "render/HL_GRAPH.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>
#include <cstring>
#include <fstream>

float os_y_from_PM_coords = 0.0f;

namespace {

const char* const view_suffix[9] = {"_panel.bmp",    "_panel_RF.bmp", "_panel_R.bmp",  "_panel_RB.bmp", "_panel_B.bmp",
                                    "_panel_LB.bmp", "_panel_L.bmp",  "_panel_LF.bmp", "_panel_LIT.bmp"};
const char* const default_panel[8] = {"Panel_General.png", "Panel_Airliner.png", "Panel_Fighter.png",     "Panel_Glider.png",
                                      "Panel_Helo.png",    "Panel_Autogyro.png", "Panel_General_IFR.png", "Panel_Glass.png"};

bool in(int v, int lo, int hi) { return v >= lo && v <= hi; }

// The file with "-N.png" in place of its extension.
std::string with_layer(const std::string& path, int layer)
{
	const size_t dot = path.find_last_of('.');
	const size_t sep = path.find_last_of(":/\\");
	const std::string stem = dot == std::string::npos || (sep != std::string::npos && dot < sep) ? path : path.substr(0, dot);
	return stem + "-" + std::to_string(layer) + ".png";
}

// A piece of art from the aircraft's folder when it brings its own, else the default.
int load_art(int type, int id, int filter, const std::string& art_path)
{
	for (const std::string& p : {aircraft_folder() + art_path, bmp_path + art_path}) {
		const bool there = std::ifstream(ret_host_path(tex_file_path(p, ".png"))).good() || std::ifstream(ret_host_path(tex_file_path(p, ".bmp"))).good();
		if (there && OGL_texbmp(type, id, filter, p)) return 1;   // only what is there: most slots have no art of their own
	}
	return 0;
}

// Where a view's background sets the panel's heights: its offset when taller than 768, the
// three scroll targets, and the head-up display's centre lifted with everything else.
void set_heights(int view, int height)
{
	veh_struct& v = veh[0];
	const float os = (float)std::max(0, height - 768);
	if (view == 0) os_y_from_PM_coords = os;
	const float shown = mnw.xy_scale > 0.0f ? (float)mnw.y_res_now / mnw.xy_scale : 768.0f;
	mnw.look_up_UP[view] = std::max(0.0f, (float)height - shown);
	mnw.look_up_CTR[view] = std::clamp(mnw.look_up_UP[view] - v.big_panel_pix_default, 0.0f, mnw.look_up_UP[view]);
	mnw.look_up_DN[view] = 0.0f;
	v.HUD_ctr_y[view] += os;
	if (view == 0) v.yawstring_y += os;
}

void compose_view(int view)
{
	veh_struct& v = veh[0];
	std::memset(scratch_array, 0, (size_t)1024 * 1024 * 4);
	std::string path;
	panel_path(0, view, &path);
	ren.view_bmp_avail[view] = OGL_texbmp(tex_panel_base, 0, filt_key_magenta, path);
	bool got = ren.view_bmp_avail[view];
	if (view == 0 && !got) {
		panel_path(1, view, &path);
		got = OGL_texbmp(tex_panel_base, 0, filt_key_magenta, path);
		if (!got) {
			panel_path(2, view, &path);
			got = OGL_texbmp(tex_panel_base, 0, filt_key_magenta, path);
		}
	}
	set_heights(view, got ? ren.tex_dy_vis[0] : 768);
	if (view == 0) {
		for (int n = 0; n < ins_slot_max; n++) {
			const int code = v.ins_type[n];
			if (code < 0 || code >= ins_code_max) continue;
			v.ins_y[n] += os_y_from_PM_coords;
			if (!ren.view_bmp_avail[0] && ins_has_back(code)) load_art(tex_panel_instrument, 7942 + n, filt_key_magenta, ins_path[code]);
		}
		if (got) OGL_texbmp(tex_panel_layer, 7942, filt_key_magenta, with_layer(path, 1));
	}
	std::memcpy(cockpit_array[view], scratch_array, (size_t)1024 * 1024 * 4);
}

}  // namespace

std::string aircraft_folder()
{
	const std::string p = veh[0].path;
	const size_t sep = p.find_last_of(":/\\");
	return sep == std::string::npos ? std::string() : p.substr(0, sep + 1);
}

void panel_path(int t, int view_sel, std::string* path)
{
	if (t == 0) {
		const std::string p = veh[0].path;
		*path = (p.size() >= 4 ? p.substr(0, p.size() - 4) : p) + view_suffix[std::clamp(view_sel, 0, 8)];
	} else if (t == 1) {
		*path = aircraft_folder() + "cockpit:-PANELS-:panel.png";
	} else {
		*path = bmp_path + "cockpit:-panels-:" + default_panel[std::clamp(veh[0].cockpit_type, 0, 7)];
	}
}

std::string ins_layer_path(int code, int layer)
{
	if (code < 0 || code >= ins_code_max) return std::string();
	return layer == 0 ? std::string(ins_path[code]) : with_layer(ins_path[code], layer);
}

int ins_has_back(int code)
{
	static const int no_back[] = {445, 451, 452, 465, 484, 584, 600};
	if (in(code, 166, 184) || in(code, 196, 205) || in(code, 404, 410) || in(code, 553, 582) || in(code, 586, 588) || in(code, 590, 596))
		return 0;
	return std::find(std::begin(no_back), std::end(no_back), code) == std::end(no_back);
}

void load_panel_for_plane()
{
	for (int view = 0; view < 9; view++) compose_view(view);
	// Each used slot's moving layers, the aircraft's own art before the default; a slot
	// without art keeps an empty texture.
	const veh_struct& v = veh[0];
	for (int n = 0; n < ins_slot_max; n++)
		for (int layer = 1; layer <= 4; layer++) {
			const int id = 7942 + (layer - 1) * ins_slot_max + n;
			ren.tex_vram[id] = 0;
			ren.tex_dx_vis[id] = ren.tex_dy_vis[id] = 0;
			const int code = v.ins_type[n];
			if (code >= 0 && code < ins_code_max) load_art(tex_load, id, filt_alpha_mean, ins_layer_path(code, layer));
		}
	init_tapes_specs();
	MACIBM_update_back_texes();
}

void MACIBM_update_back_texes()
{
	ren.tex_dx_vis[480] = ren.tex_dy_vis[480] = ren.tex_dx_tot[480] = ren.tex_dy_tot[480] = 1024;
	const int p = view_panel_index(ren.view_type_act);
	// No window up (-1 is the start, before the first loop): the view's panel; else the window's picture.
	OGL_load_tex("panel", 480, 0, filt_rgb, GL_RGBA, mnw.top_win <= 0 ? cockpit_array[p] : scratch_array);
	mnw.look_up_mode = 1;
	mnw.look_up = mnw.look_up_CTR[p];
}
