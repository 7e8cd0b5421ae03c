// The per-frame world step: clock, slow weather change, the wind of the layers with
// shear and microbursts, the limits of the settings, the local cloud, cloud drift and
// the air at the aircraft.
#include "world/HL_WORLD.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"
#include <cmath>
#include <cstdlib>

namespace {

float shr_term_spd_msc, shr_term_dir_true, shr_crnt_spd_msc, shr_crnt_dir_true;
int burst_type, burst_on_top;
float burst_strt_time, burst_stop_time, burst_speed, burst_vertv;
float prev_locl_time = -1.0f;
const float max_vis_ter_mtrs[2] = {46300.0f, 111120.0f};

float rnd(float lo, float hi) { return lo + (hi - lo) * ran01(); }
void lag(float& v, float target, float k) { v = target * k + (1.0f - k) * v; }

void system_clock()
{
	static const int days_in_month[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
	int sec, month, mday;
	plat_local_clock(&sec, &month, &mday);
	mnw.locl_time = (float)sec;
	int d = 0;
	for (int m = 0; m < intlim(month, 0, 12); m++) d += days_in_month[m];
	mnw.locl_date_jan1 = d + mday - 1;
	mnw.zulu_time = fltwrap(mnw.sys_offset_hours * 3600.0f + mnw.locl_time -
	                        (float)intround((float)flt[0].dob_lon / 15.0f) * 3600.0f, 0.0f, 86400.0f);
}

void weather_change()
{
	if (std::fabs(atm.rate_change) <= 0.01f) return;
	const float dt = mnw.prd_FM;
	float change_use = atm.rate_change * dt;
	// Bad weather that is already bad stops worsening and wanders instead.
	const bool bad = atm.rain_set > 0.8f || atm.tstm_set > 0.8f || atm.wind_tbl > 0.8f || atm.burst_prob > 0.8f || atm.vis_rep < 3000.0f;
	if (bad && change_use < 0.0f) change_use = dt * rnd(-1.0f, 1.0f);
	atm.tops_h_MSL[0] *= 1.0f - change_use * 0.001f;
	atm.base_h_MSL[0] *= 1.0f + change_use * 0.001f;
	atm.vis_rep *= 1.0f + change_use * 0.001f;
	atm.rain_set = fltlim(atm.rain_set - change_use * 0.001f, 0.0f, 1.0f);
	atm.tstm_set = fltlim(atm.tstm_set - change_use * 0.0005f, 0.0f, 1.0f);
	atm.wind_tbl = fltlim(atm.wind_tbl - change_use * 0.0005f, 0.0f, 1.0f);
	atm.burst_prob = fltlim(atm.burst_prob - change_use * 0.0005f, 0.0f, 1.0f);
	assign_wind_tbl(dt);
}

void microburst(float& bvx, float& bvy, float& bvz)
{
	const flt_struct& f = flt[0];
	if (burst_type == 0 && atm.burst_prob > 0.01f && f.y_agl_mtr < 300.0f) {
		const float sec_to_shear = 600.0f - 540.0f * atm.burst_prob;
		if (rnd(0.0f, sec_to_shear) < mnw.prd_FM) {
			burst_type = 1 + std::rand() % 4;
			burst_on_top = ran01() < 0.5f;
			burst_strt_time = mnw.totl_time;
			burst_stop_time = mnw.totl_time + 10.0f + rnd(0.0f, 10.0f);
			burst_speed = (30.0f + rnd(0.0f, 60.0f)) * con.ktstomsc;
			burst_vertv = (-2000.0f - rnd(0.0f, 6000.0f)) * con.fpmtomsc;
			if ((veh[0].warn1_EQ || veh[0].warn2_EQ) && stg.warn_bb) SOUND_play(51);
		}
	}
	bvx = bvy = bvz = 0.0f;
	if (burst_type == 0) return;
	const float s = std::sin(interp(burst_strt_time, 0.0f, burst_stop_time, 1.0f, mnw.totl_time, 0) * con.pi);
	float lon = 0.0f, lat = 0.0f;
	if (burst_type == 1) lon = s;
	if (burst_type == 2) lon = -s;
	if (burst_type == 3) lat = -s;
	if (burst_type == 4) lat = s;
	bvx = -burst_speed * lat;
	bvy = burst_vertv * (burst_on_top ? s : 0.0f);
	bvz = burst_speed * lon;
	if (mnw.totl_time > burst_stop_time) burst_type = 0;
}

void weather_limits()
{
	const float top = con.fttomtrs * 99999.0f;
	atm.base_h_MSL[0] = fltlim(atm.base_h_MSL[0], 0.0f, top - 2743.2f);
	atm.tops_h_MSL[0] = fltlim(atm.tops_h_MSL[0], atm.base_h_MSL[0] + ret_min_layer_thick_mtrs(0), top - 1828.8f);
	atm.base_h_MSL[1] = fltlim(atm.base_h_MSL[1], atm.tops_h_MSL[0] + 914.4f, top - 914.4f);
	atm.tops_h_MSL[1] = fltlim(atm.tops_h_MSL[1], atm.base_h_MSL[1] + ret_min_layer_thick_mtrs(1), top);
	for (int l = 0; l < 2; l++)
		if (atm.cld_type[l] != 5) atm.tops_h_MSL[l] = atm.base_h_MSL[l] + ret_min_layer_thick_mtrs(l);
	limit_cloud_typ_rat(0);
	atm.vis_rep = fltlim(atm.vis_rep, 100.0f, max_vis_ter_mtrs[env.planet & 1]);
	atm.tstm_set = fltlim(atm.tstm_set, 0.0f, 1.0f);
	atm.wind_tbl = fltlim(atm.wind_tbl, 0.0f, 1.0f);
	atm.burst_prob = fltlim(atm.burst_prob, 0.0f, 1.0f);
	atm.rain_set = fltlim(atm.rain_set, atm.tstm_set, 1.0f);
	for (int i = 0; i < 3; i++) {
		atm.set_wind_dir_mag[i] = fltwrap(atm.set_wind_dir_mag[i], 0.0f, 360.0f);
		atm.set_shear_dir[i] = fltlim(atm.set_shear_dir[i], 0.0f, 180.0f);
		atm.set_wind_spd_kts[i] = fltlim(atm.set_wind_spd_kts[i], 0.0f, 200.0f);
		atm.set_shear_spd_kts[i] = fltlim(atm.set_shear_spd_kts[i], 0.0f, 50.0f);
		atm.set_turb_inc[i] = fltlim(atm.set_turb_inc[i], 0.0f, 9.0f);
	}
	atm.rate_change = fltlim(atm.rate_change, -1.0f, 1.0f);
}

// Cloud density round the aircraft and rain under tall cloud, from the cloud map.
void local_cloud(float& wxr_lcl, float& rai_lcl)
{
	const flt_struct& f = flt[0];
	wxr_lcl = rai_lcl = 0.0f;
	if (ren.all_bucs_dx <= 0.0f || ren.all_bucs_dh <= 0.0f || ren.all_bucs_dz == 0.0f) return;
	const int wi = (((int)(255.0f / ren.all_bucs_dx * ((float)f.dob_x - ren.cld_buc00_origin_x)) % 256) + 256) % 256;
	const int wj = intlim((int)(63.0f / ren.all_bucs_dh * (float)f.dob_ele), 0, 63);
	const int wk = (((int)(255.0f / -ren.all_bucs_dz * ((float)f.dob_z - ren.cld_buc00_origin_z)) % 256) + 256) % 256;
	for (int di = -1; di <= 1; di++)
		for (int dk = -1; dk <= 1; dk++) {
			const int i = intlim(wi + di, 0, 255), k = intlim(wk + dk, 0, 255);
			for (int dj = -1; dj <= 1; dj++) wxr_lcl += ret_parcel_rho(i, intlim(wj + dj, 0, 63), k) / 27.0f;
			for (int dj = 0; dj < 20; dj++) rai_lcl += ret_parcel_rho(i, intlim(wj + dj, 0, 63), k) / 18.0f;
		}
	rai_lcl = fltlim((rai_lcl - 0.25f) / 0.75f, 0.0f, 1.0f);
}

void cloud_drift()
{
	const int l = atm.prim_layer & 1;
	float spd, dir, s1, s2, t;
	get_wind(0.5f * (atm.base_h_MSL[l] + atm.tops_h_MSL[l]), &spd, &dir, &s1, &s2, &t);
	const float ms = spd * con.ktstomsc, true_dir = (dir - env.mag_var) * con.degtorad;
	ren.cld_buc00_origin_x -= ms * std::sin(true_dir) * mnw.prd_FM;
	ren.cld_buc00_origin_z += ms * std::cos(true_dir) * mnw.prd_FM;
	if (ren.all_bucs_dx > 0.0f) ren.cld_buc00_origin_x = fltwrap(ren.cld_buc00_origin_x, -0.5f * ren.all_bucs_dx, 0.5f * ren.all_bucs_dx);
	if (ren.all_bucs_dz != 0.0f) {
		const float h = 0.5f * std::fabs(ren.all_bucs_dz);
		ren.cld_buc00_origin_z = fltwrap(ren.cld_buc00_origin_z, -h, h);
	}
	ren.shad_x1 = ren.cld_buc00_origin_x;
	ren.shad_z1 = ren.cld_buc00_origin_z;
	const float n = ren.shadow_final_tex == 423 ? 8.0f : 1.0f;
	if (ren.cld_buc_dx != 0.0f) ren.shad_dspm = n / (ren.cld_buc_dx * 8.0f);
	if (ren.cld_buc_dz != 0.0f) ren.shad_dtpm = -n / (ren.cld_buc_dz * 8.0f);
}

}  // namespace

float ret_min_layer_thick_mtrs(int layer) { return atm.cld_type[layer & 1] >= 3 ? 914.4f : 0.0f; }

void limit_cloud_typ_rat(int hard_clouds)
{
	const int greater = atm.cld_type[0] > atm.cld_type[1] ? atm.cld_type[0] : atm.cld_type[1];
	const float max_precip = greater >= 3 ? 1.0f : 0.0f;
	if (hard_clouds) {
		atm.rain_set = fltmin2(atm.rain_set, max_precip);
		atm.tstm_set = fltmin2(atm.tstm_set, max_precip);
		return;
	}
	// Rain makes clouds, not clouds rain.
	if (atm.rain_set > max_precip) atm.cld_type[0] = intlim(atm.cld_type[0] + 1, 0, 5);
	if (atm.tstm_set > max_precip) atm.cld_type[0] = intlim(atm.cld_type[0] + 1, 0, 5);
}

void get_wind(float h, float* spd, float* dir, float* shr_spd, float* shr_dir, float* turb)
{
	int lo = 0, hi = 0;
	if (h >= atm.set_wind_alt_mtrs[2]) lo = hi = 2;
	else if (h > atm.set_wind_alt_mtrs[0]) {
		lo = h <= atm.set_wind_alt_mtrs[1] ? 0 : 1;
		hi = lo + 1;
	}
	const float x0 = atm.set_wind_alt_mtrs[lo], x1 = atm.set_wind_alt_mtrs[hi];
	*spd = interp(x0, atm.set_wind_spd_kts[lo], x1, atm.set_wind_spd_kts[hi], h, 0);
	*dir = interp(x0, atm.set_wind_dir_mag[lo], x1, atm.set_wind_dir_mag[hi], h, 0);   // no wrap between layers
	*shr_spd = interp(x0, atm.set_shear_spd_kts[lo], x1, atm.set_shear_spd_kts[hi], h, 0);
	*shr_dir = interp(x0, atm.set_shear_dir[lo], x1, atm.set_shear_dir[hi], h, 0);
	*turb = interp(x0, atm.set_turb_inc[lo], x1, atm.set_turb_inc[hi], h, 0);
	if (lo == hi) {
		*spd = atm.set_wind_spd_kts[lo]; *dir = atm.set_wind_dir_mag[lo]; *shr_spd = atm.set_shear_spd_kts[lo];
		*shr_dir = atm.set_shear_dir[lo]; *turb = atm.set_turb_inc[lo];
	}
}

void assign_wind_tbl(float newpart)
{
	const float w = std::pow(fltlim(atm.wind_tbl, 0.0f, 1.0f), 1.5f), k = fltlim(newpart, 0.0f, 1.0f);
	for (int i = 0; i < 3; i++) {
		lag(atm.set_wind_dir_mag[i], atm.set_wind_dir_mag[0] + rnd(-1.0f, 1.0f) * w * 90.0f, k);
		atm.set_wind_dir_mag[i] = fltlim(atm.set_wind_dir_mag[i], 0.0f, 360.0f);
		lag(atm.set_shear_dir[i], ran01() * w * 150.0f, k);
		atm.set_shear_dir[i] = fltlim(atm.set_shear_dir[i], 0.0f, 180.0f);
		lag(atm.set_wind_spd_kts[i], ran01() * w * 90.0f, k);
		atm.set_wind_spd_kts[i] = fltlim(atm.set_wind_spd_kts[i], 0.0f, 200.0f);
		lag(atm.set_shear_spd_kts[i], ran01() * w * 30.0f, k);
		atm.set_shear_spd_kts[i] = fltlim(atm.set_shear_spd_kts[i], 0.0f, 50.0f);
		lag(atm.set_turb_inc[i], ran01() * w * 15.0f, k);
		atm.set_turb_inc[i] = fltlim(atm.set_turb_inc[i], 0.0f, 9.0f);
	}
}

void WORLD_math_all_cases()
{
	const flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	if (mnw.top_win == 0) init_world_rendering(2);
	if (mnw.use_sys_time) system_clock();
	if (prev_locl_time >= 0.0f) {   // a crossing of midnight moves the date
		if (mnw.locl_time < prev_locl_time - 43200.0f) mnw.locl_date_jan1 = (mnw.locl_date_jan1 + 1) % 360;
		if (mnw.locl_time > prev_locl_time + 43200.0f) mnw.locl_date_jan1 = (mnw.locl_date_jan1 + 359) % 360;
	}
	prev_locl_time = mnw.locl_time;
	SOUND_maintain();
	JOY_get();
	if (atm.use_rwx) update_live_weather();
	weather_change();
	get_wind((float)f.dob_ele, &atm.now_wind_spd_kts, &atm.now_wind_dir_mag, &atm.now_shear_spd_kts,
	         &atm.now_shear_dir_deg, &atm.now_turb_inc);
	if (mnw.puff1) {
		shr_term_spd_msc = atm.now_shear_spd_kts * rnd(-1.0f, 1.0f) * con.ktstomsc;
		shr_term_dir_true = atm.now_shear_dir_deg * rnd(-1.0f, 1.0f);
	}
	const float k = fltlim(dt * 2.0f, 0.0f, 1.0f);
	lag(shr_crnt_spd_msc, shr_term_spd_msc, k);
	lag(shr_crnt_dir_true, shr_term_dir_true, k);
	const float speed = atm.now_wind_spd_kts * con.ktstomsc + shr_crnt_spd_msc;
	const int dir = (int)fltwrap((float)(int)(atm.now_wind_dir_mag - env.mag_var + shr_crnt_dir_true), 0.0f, 359.0f);
	const float target_x = -speed * lookup_sin[intlim(dir, 0, 360)];
	const float target_z = speed * lookup_cos[intlim(dir, 0, 360)];
	float bvx, bvy, bvz;
	microburst(bvx, bvy, bvz);
	lag(atm.wind_X_msc, target_x + bvx, k);
	lag(atm.wind_Y_msc, bvy, k);
	lag(atm.wind_Z_msc, target_z + bvz, k);
	atm.wind_dir_true = fltwrap(std::atan2(-atm.wind_X_msc, atm.wind_Z_msc) * con.radtodeg, 0.0f, 360.0f);
	atm.wind_spd_msc = fltlim(pythag(atm.wind_X_msc, atm.wind_Z_msc), 0.0f, 999.0f);
	weather_limits();
	atm.prim_layer = atm.cld_type[0] > atm.cld_type[1] ? 0 : 1;
	const float T_cld_cel = find_temp_cel(0.5f * (atm.base_h_MSL[atm.prim_layer] + atm.tops_h_MSL[atm.prim_layer]));
	float wxr_lcl, rai_lcl;
	local_cloud(wxr_lcl, rai_lcl);
	const float ka = fltlim(dt, 0.0f, 1.0f), T = con.lcl_T_cel;   // the last frame's air
	lag(atm.level_rat_amb, wxr_lcl, ka);
	lag(atm.rain_rat_amb, rai_lcl * fltlim((T + 1.0f) * 0.5f, 0.0f, 1.0f), ka);
	lag(atm.snow_rat_amb, rai_lcl * fltlim((1.0f - T) * 0.5f, 0.0f, 1.0f), ka);
	lag(atm.hail_rat_amb, rai_lcl * fltlim(1.0f - std::fabs(T_cld_cel) * 0.1f, 0.0f, 1.0f), ka);
	cloud_drift();
	update_local_air();
	atm.wave_length = atm.wave_height * atm.wave_length_to_height;
	atm.wave_speed = std::sqrt(fltmax2(atm.wave_length * con.mtrstoft, 0.0f)) * 1.34f * con.ktstomsc;
	if (mnw.puff5) periodic_output();
}

// The weather a new start has before any preference overrides it.
void init_weather_defaults()
{
	const float ft = con.fttomtrs;
	atm.vis_rep = 10.0f * con.nmtomtrs;
	atm.cld_type[0] = 1;
	atm.base_h_MSL[0] = 8500.0f * ft;
	atm.cld_type[1] = 0;
	atm.base_h_MSL[1] = 12000.0f * ft;
	const float alts[3] = {5000.0f, 7500.0f, 25000.0f};
	for (int i = 0; i < 3; i++) {
		atm.set_wind_alt_mtrs[i] = alts[i] * ft;
		atm.set_wind_dir_mag[i] = rnd(0.0f, 60.0f);
		atm.set_shear_dir[i] = rnd(10.0f, 20.0f);
		atm.set_wind_spd_kts[i] = rnd(0.0f, 10.0f);
		atm.set_shear_spd_kts[i] = rnd(0.0f, 5.0f);
		atm.set_turb_inc[i] = rnd(0.0f, 1.0f);
	}
	atm.wave_height = 4.0f * ft;
	atm.wave_length_to_height = 15.0f;
	atm.wave_length = atm.wave_height * atm.wave_length_to_height;
	atm.wave_speed = std::sqrt(atm.wave_length * con.mtrstoft) * 1.34f * con.ktstomsc;
	atm.meteorite_code = 2;
	atm.therm_vvi_fpm = 800.0f;
	atm.therm_alt_ft = 10000.0f;
	atm.vis_frmult = 1.0f;
	weather_limits();
}
