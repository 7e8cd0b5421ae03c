// The light of the moment beyond the tables. Lightning and night vision tint it; the panel
// takes its lighting from it and switches its lamps as the day dims; thin air blackens
// shadows; the sun's glare dims the world; and the ground's second texture is chosen.
#include "render/light.h"
#include "render/ogl.h"
#include "render/sun_moon.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "cockpit/HL_COCKPIT.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include <algorithm>
#include <cmath>

float amb_lite = 0.0f, rat_lite = 0.0f;
float lgt_amb_clear[3];

namespace {

constexpr float nm = 1852.0f;

float max_vis() { return env.planet == 1 ? 111120.0f : 46300.0f; }

// The dominant light: the sun's and moon's directions blended by their shares.
void blend_any(float sun_use)
{
	sky_light& a = lgt[2];
	const float m = 1.0f - sun_use;
	a.lat = lgt[0].lat * sun_use + lgt[1].lat * m;
	a.azi = lgt[0].azi + fltwrap(lgt[1].azi - lgt[0].azi, -180.0f, 180.0f) * m;
	a.dec = lgt[0].dec * sun_use + lgt[1].dec * m;
	a.psi = lgt[0].psi + fltwrap(lgt[1].psi - lgt[0].psi, -180.0f, 180.0f) * m;
	a.the = lgt[0].the * sun_use + lgt[1].the * m;
	const float d = con.degtorad;
	ren.sin_azi_any = std::sin(a.azi * d);
	ren.cos_azi_any = std::cos(a.azi * d);
	ren.sin_dec_any = std::sin(a.dec * d);
	ren.cos_dec_any = std::cos(a.dec * d);
	// A shadow lies away from the sun by its height over the sun's slope.
	const float up = std::max(std::sin(lgt[0].the * d), 0.087f);
	ren.lgt_dx_by_dy = std::sin(lgt[0].psi * d) * std::cos(lgt[0].the * d) / up;
	ren.lgt_dz_by_dy = -std::cos(lgt[0].psi * d) * std::cos(lgt[0].the * d) / up;
}

// The landing light's pool on the ground ahead, for the terrain's second unit.
void landing_light_pool()
{
	const flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float ftm = 0.3048f, d = con.degtorad;
	float lx = v.lanlite1_xyz[0], ly = v.lanlite1_xyz[1], lz = v.lanlite1_xyz[2];
	if (v.has_lanlite2) {
		lx = 0.5f * (lx + v.lanlite2_xyz[0]);
		ly = 0.5f * (ly + v.lanlite2_xyz[1]);
		lz = 0.5f * (lz + v.lanlite2_xyz[2]);
	}
	float wx, wy, wz;
	any_to_wrl(lx * ftm, ly * ftm, lz * ftm, &wx, &wy, &wz, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	ren.light_xyz[0] = (float)f.dob_x + wx;
	ren.light_xyz[1] = (float)f.dob_y + wy;
	ren.light_xyz[2] = (float)f.dob_z + wz;
	const float bthe = v.lan_lite_the_ref + v.lan_lite_the_off, bpsi = v.lan_lite_psi_ref + v.lan_lite_psi_off;
	const float sp = std::sin(f.phi * d), cp = std::cos(f.phi * d);
	const float the = std::min(bthe * cp + f.the - bpsi * sp, -1.0f);
	float psi = bthe * sp + bpsi * cp + f.psi;
	if (v.lan_lite_steers) psi += f.tire_steer[std::clamp(v.steer_gear, 0, part_max - 1)];
	const float height = std::max(ren.light_xyz[1] - ren.local_y_vp, 0.5f);
	const float slant = height / std::sin(-the * d);
	const float semi_w = std::max(slant * std::tan(std::max(v.lan_lite_width, 1.0f) * d), 0.1f);
	const float semi_l = semi_w / std::max(std::cos((the + 90.0f) * d), 0.017f);
	const float run = height / std::tan(-the * d);   // the beam's middle meets the ground
	ren.light_x_cen = ren.light_xyz[0] + std::sin(psi * d) * run;
	ren.light_z_cen = ren.light_xyz[2] - std::cos(psi * d) * run;
	const float k = 0.35f + 0.65f * std::clamp(-the / 90.0f, 0.0f, 1.0f);
	ren.light_ds_dx = std::cos(psi * d) / semi_w * k;
	ren.light_ds_dz = std::sin(psi * d) / semi_w * k;
	ren.light_dt_dx = std::sin(psi * d) / semi_l;
	ren.light_dt_dz = -std::cos(psi * d) / semi_l;
}

// One extra texture unit on the ground: cloud shadows win over the landing light, and that
// over the sun's glitter on the sea.
void choose_second_texture(float manual_sum)
{
	const int p = atm.prim_layer & 1;
	const bool overcast = atm.cld_type[0] == 5 || atm.cld_type[1] == 5;
	const float sun = lgt[0].the;
	ren.plot_lan_litemap = ren.plot_sun_reflect = 0;
	ren.shadow_alpha = 0.0f;
	flt[0].lite_map = (flt[0].lan_lite || flt[0].tax_lite) && tot_volt_avail() > 0.1f;
	if (sun > 5.0f && ren.draw_shadows && atm.cld_type[p] > 0 && !overcast) {
		const float contrast = (ren.cld_lgt[0] + ren.cld_lgt[1] + ren.cld_lgt[2] - ren.cld_drk[0] - ren.cld_drk[1] - ren.cld_drk[2]) / 3.0f;
		float a = std::sqrt(std::max(contrast, 0.0f)) * interp(5.0f, 0.0f, 15.0f, 1.0f, sun, 0);
		const int type = atm.cld_type[p];
		ren.shadow_build_tex = type >= 3 ? 421 : type == 2 ? 204 : 203;
		ren.shadow_final_tex = type >= 3 ? 422 : 423;
		if (type == 2) a *= 0.6f;
		if (type == 1) a *= 0.8f;
		ren.shadow_alpha = a;
		ren.shad_yc = 0.5f * (atm.base_h_MSL[p] + atm.tops_h_MSL[p]);
	} else if (flt[0].lite_map && sun < -2.0f && manual_sum < 0.65f) {
		ren.plot_lan_litemap = 1;
		landing_light_pool();
	} else if (sun > -2.0f && sun < 5.0f && ren.draw_shadows) {
		ren.plot_sun_reflect = 1;   // a path of glitter 10 nm either side and 30 nm long toward the sun
		const float d = con.degtorad, psi = lgt[0].psi;
		ren.reflect_ds_dx = std::cos(psi * d) / (10.0f * nm);
		ren.reflect_ds_dz = std::sin(psi * d) / (10.0f * nm);
		ren.reflect_dt_dx = std::sin(psi * d) / (30.0f * nm);
		ren.reflect_dt_dz = -std::cos(psi * d) / (30.0f * nm);
	}
	ren.sha_or_lit_or_sun = ren.shadow_alpha > 0.0f || ren.plot_lan_litemap || ren.plot_sun_reflect;
}

void glare(float manual_sum, float sun_the)
{
	const float vis = atm.vis_sky;
	const float night_fade = interp(2.0f, 0.0f, 4.0f, 1.0f, sun_the, 0), vis_fade = interp(5.0f * nm, 0.0f, 10.0f * nm, 1.0f, vis, 0);
	const float dthe = ren.final_the - lgt[2].the, dpsi = fltwrap(ren.final_psi - lgt[2].psi, -180.0f, 180.0f);
	const float angle_off = std::sqrt(dthe * dthe + dpsi * dpsi);
	float g = std::clamp(manual_sum * (1.0f - angle_off * 0.05f) * 0.33f * night_fade * vis_fade, 0.0f, 1.0f);
	if (ren.sunglasses_on) g *= 0.5f;
	for (int l = 0; l < 2; l++)
		if (atm.cld_type[l] == 5 && ren.view_ele < atm.tops_h_MSL[l]) g = 0.0f;   // under a deck the sun is hidden
	if (ren.elum_renders >= 1) g = 0.0f;
	ren.glare_rat = g;
}

}  // namespace

float sun_use_ratio(float sun_the, float earth_rat)
{
	const float s = interp(-15.0f, 0.0f, -10.0f, 1.0f, sun_the, 0);
	return s + (1.0f - s) * (1.0f - std::clamp(earth_rat, 0.0f, 1.0f));   // out of the air the sun always lights
}

void inc_colors(float r, float g, float b, int is_nite_vis)
{
	const float add[3] = {r, g, b};
	for (int c = 0; c < 3; c++) {
		ren.lgt_amb[c] = std::clamp(ren.lgt_amb[c] + add[c], 0.0f, 1.0f);
		ren.lgt_dir[c] = std::clamp(ren.lgt_dir[c] + add[c], 0.0f, 1.0f);
		ren.wat_rgb[c] = std::clamp(ren.wat_rgb[c] + add[c], 0.0f, 1.0f);
		if (is_nite_vis) {
			ren.sun_rgb[c] = std::clamp(ren.sun_rgb[c] + add[c], 0.0f, 1.0f);
			ren.mon_rgb[c] = std::clamp(ren.mon_rgb[c] + add[c], 0.0f, 1.0f);
			ren.cld_drk[c] = std::clamp(ren.cld_drk[c] + add[c], 0.0f, 1.0f);
			ren.cld_lgt[c] = std::clamp(ren.cld_lgt[c] + add[c], 0.0f, 1.0f);
		}
	}
	// The air carries the tint as far as it is thick: none in clear air, all of it in fog.
	const float a = std::clamp(1.0f - atm.vis_sky / max_vis(), 0.0f, 1.0f);
	for (int c = 0; c < 3; c++) ren.fog_rgb[c] = std::clamp(ren.fog_rgb[c] + add[c] * a, 0.0f, 1.0f);
	for (int j = 0; j < 16; j++)
		for (int i = 0; i < 64; i++)
			for (int c = 0; c < 3; c++) ren.sky_256[j][i][c] = (unsigned char)std::clamp(ren.sky_256[j][i][c] + add[c] * a * 255.0f, 0.0f, 255.0f);
}

void update_light(const light_inputs& in)
{
	blend_any(in.sun_use_rat);
	amb_lite = (ren.lgt_amb[0] + ren.lgt_amb[1] + ren.lgt_amb[2] + ren.lgt_dir[0] + ren.lgt_dir[1] + ren.lgt_dir[2]) / 6.0f;
	// A strike lights the world the darker it is; inside the flash, the thicker the air.
	float flash = in.rat_lightning;
	if (flt[0].str_inflash) flash += in.planet_rat * interp(0.0f, 1.0f, nm, 0.0f, atm.vis_sky, 0);
	rat_lite = std::clamp(flash, 0.0f, 1.0f) * interp(0.0f, 1.0f, 0.5f, 0.0f, amb_lite, 0);
	inc_colors(rat_lite, rat_lite, rat_lite, 0);
	if (ren.night_vision_on) {   // the tube shows all light as green
		inc_colors(-10.0f, 10.0f, -10.0f, 1);
		for (auto& row : ren.sky_256)
			for (auto& cell : row) {
				cell[1] = (unsigned char)std::min(cell[0] + cell[1] + cell[2], 255);
				cell[0] = cell[2] = 0;
			}
		ren.fog_rgb[1] = std::min(ren.fog_rgb[0] + ren.fog_rgb[1] + ren.fog_rgb[2], 1.0f);
		ren.fog_rgb[0] = ren.fog_rgb[2] = 0.0f;
	}
	r_manual_lighting = (ren.lgt_amb[0] + ren.lgt_dir[0]) * 0.5f;
	g_manual_lighting = (ren.lgt_amb[1] + ren.lgt_dir[1]) * 0.5f;
	b_manual_lighting = (ren.lgt_amb[2] + ren.lgt_dir[2]) * 0.5f;
	const float manual_sum = r_manual_lighting + g_manual_lighting + b_manual_lighting;
	if (rat_lite < 0.01f) ren.lite_rat_on = interp(0.4f, 1.0f, 0.65f, 0.0f, manual_sum * 0.33f, 0);   // a flash leaves the lamps as they were
	const int lit = ren.lite_rat_on > 0.25f && flt[0].fail_stat[43] != 6 && flt[0].fail_stat[44] != 6 && tot_volt_avail() > 0.1f;
	if (lit != ren.cockpit_lite_on) {
		ren.cockpit_lite_on = lit;
		if (ren.view_bmp_avail[8]) MACIBM_update_back_texes();   // the lit panel bitmap in or out
	}
	const float amb_rat = 0.4f * std::clamp(in.earth_rat, 0.0f, 1.0f), dif_rat = 1.0f - 0.4f * std::clamp(in.earth_rat, 0.0f, 1.0f);
	for (int c = 0; c < 3; c++) {   // thin air blackens the shadows; last frame's glare dims the world
		lgt_amb_clear[c] = ren.lgt_amb[c] * amb_rat;
		ren.lgt_amb[c] *= amb_rat * (1.0f - ren.glare_rat);
		ren.lgt_dir[c] = std::min(ren.lgt_dir[c] * dif_rat * (1.0f - ren.glare_rat), 1.0f);
	}
	choose_second_texture(manual_sum);
	glare(manual_sum, lgt[0].the);
	cloud_update_vars();
}
