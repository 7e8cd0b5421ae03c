// Moving the block with the aircraft: a step of a degree when it nears an edge, a fresh
// load after a far jump. The local frame is tied to the block's centre, so a move turns
// every aircraft's position, velocity and attitude into the new frame, keeping where it is
// on the planet and how it sits on its horizon.
#include "world/scenery.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "plugin/HL_PLUGIN.h"
#include "render/HL_GRAPH.h"
#include <cmath>
#include <cstring>

const float lat_buff[2] = {0.475f, 1.9f}, lon_buff[2] = {0.95f, 2.375f};
const int file_imax[2] = {150, 64}, file_jmax[2] = {200, 64};
const int regn_imax[2] = {450, 384}, regn_jmax[2] = {400, 320};
const float max_vis_ter_nm[2] = {25.0f, 60.0f}, max_vis_ter_mtrs[2] = {46300.0f, 111120.0f};

float planexyz[regn_dim_i][regn_dim_j][3];
float planest[regn_dim_i][regn_dim_j][4][2];
uint16_t landuse[regn_dim_i][regn_dim_j];
char ter_body_id[regn_dim_i][regn_dim_j];
char is_apt[regn_dim_i][regn_dim_j];
char tex_use_is_other_quadrant[regn_dim_i][regn_dim_j];
buc_struct buc[regn_dim_i][regn_dim_j];
std::vector<obs_lis_struct> obs_lis;
std::string cus_tex_path[cus_tex_dim];
float planet_xyz[361][181][3];

static int ret_planet() { return env.planet == 1 ? 1 : 0; }

void check_for_shift(double lat, double lon)
{
	if (!(lat >= -90.0 && lat <= 90.0 && lon >= -180.0 && lon <= 180.0)) {
		NB_ALERT("Out of range lat/lon call to check_for_shift!", "", "", "", alert_fatal);
		return;
	}
	const int p = ret_planet();
	flt[0].dob_lat = lat;
	flt[0].dob_lon = lon;
	const double dlat = dobwrap(lat - env.lat_sou, -90.0, 90.0), dlon = dobwrap(lon - env.lon_wes, -180.0, 180.0);
	if (dlat < lat_buff[p] - 1 || dlat > lat_secs[p] - lat_buff[p] + 1 || dlon < lon_buff[p] - 1 || dlon > lon_secs[p] - lon_buff[p] + 1) {
		env.lat_sou = (int)std::lround(lat - lat_secs_os[p]);
		env.lon_wes = (int)std::lround(lon - lon_secs_os[p]);
		load_region(1);
		return;
	}
	auto wrap_lon = [](int v) { return (int)std::lround(dobwrap(v, -180.0, 180.0)); };   // latitude steps stay inside by the margins
	if (dlat < lat_buff[p]) { env.lat_sou--; load_region(5); }
	else if (dlat > lat_secs[p] - lat_buff[p]) { env.lat_sou++; load_region(4); }
	else if (dlon < lon_buff[p]) { env.lon_wes = wrap_lon(env.lon_wes - 1); load_region(2); }
	else if (dlon > lon_secs[p] - lon_buff[p]) { env.lon_wes = wrap_lon(env.lon_wes + 1); load_region(3); }
}

static void manage_custom_textures();

static int finish_planet_call(int typeshift)
{
	MP_finish_planet(typeshift);
	return 1;
}

static int shift_and_clear_call(int typeshift)
{
	MP_shift_and_clear(typeshift);
	return 1;
}

void load_region(int typeshift)
{
	const int p = ret_planet();
	const double r = con.planet_rad / 6378145.0;
	const double m = std::fmin(std::fabs((double)env.lat_sou), std::fabs((double)env.lat_sou + lat_secs[p])) * M_PI / 180.0;
	env.hi_x = (float)(1.01 * std::cos(m) * lon_secs_os[p] * 60.0 * r * con.nmtomtrs);
	env.lo_x = -env.hi_x;
	env.lo_z = (float)(-1.01 * (1.0 + std::sin(lon_secs[p] / 2.0 * M_PI / 180.0)) * lat_secs_os[p] * 60.0 * r * con.nmtomtrs);
	env.hi_z = (float)(1.01 * lat_secs_os[p] * 60.0 * r * con.nmtomtrs);
	MPSP_manage_obs_lis(0.0f, 0.0f, 0.0f, 0.0f, "", 0, 0);
	// The grids and positions on a worker, the navigation lists here meanwhile.
	const int call = THREAD_RunAsync(shift_and_clear_call, typeshift, 0);
	try {
		MP_make_airports_and_menus(typeshift);
	} catch (...) {
		THREAD_IsDone(call, 60.0f);
		THREAD_Cleanup(call);
		throw;
	}
	if (!THREAD_IsDone(call, 60.0f)) NB_ALERT("Timed out MP_shift_and_clear_call thread after 60 seconds.", "", "", "", alert_fatal);
	THREAD_Cleanup(call);
	for (int i = 0; i < regn_dim_i; i++)
		for (int j = 0; j < regn_dim_j; j++) tex_use_is_other_quadrant[i][j] = 0;
	for (int lat_os = 0; lat_os < (int)lat_secs[p]; lat_os++)
		for (int lon_os = 0; lon_os < (int)lon_secs[p]; lon_os++)
			read_a_quadrant(env.lat_sou + lat_os, env.lon_wes + lon_os, lat_os, lon_os, typeshift == 1);
	if (ren.ground_is_vis) {
		init_world_rendering(4);
		// Buildings, aids, fire and boats on a worker; the globe here meanwhile.
		const int call = THREAD_RunAsync(finish_planet_call, typeshift, 0);
		try {
			SP_finish_planet();
		} catch (...) {
			THREAD_IsDone(call, 60.0f);
			THREAD_Cleanup(call);
			throw;
		}
		if (!THREAD_IsDone(call, 60.0f)) NB_ALERT("Timed out MP_finish_planet_call thread after 60 seconds.", "", "", "", alert_fatal);
		THREAD_Cleanup(call);
	} else
		SP_finish_planet();
	MPSP_manage_obs_lis(0.0f, 0.0f, 0.0f, 0.0f, "", 0, 2);
	manage_custom_textures();
	NBPEventHook(6, 0.0f, 0, 0, 0);
}

// Custom terrain textures no cell uses any more give up their slot; too many in use at
// once is bad scenery.
static void manage_custom_textures()
{
	static char used[cus_tex_dim];
	for (char& u : used) u = 0;
	const int p = ret_planet();
	for (int i = 0; i <= regn_imax[p]; i++)
		for (int j = 0; j <= regn_jmax[p]; j++)
			if (landuse[i][j] >= 1000 && landuse[i][j] < 1000 + cus_tex_dim) used[landuse[i][j] - 1000] = 1;
	int in_use = 0;
	for (int t = 0; t < cus_tex_dim; t++) {
		if (!used[t] && !cus_tex_path[t].empty()) {
			cus_tex_path[t].clear();
			ren.tex_vram[1000 + t] = 0;
		}
		in_use += !cus_tex_path[t].empty();
	}
	if (in_use > 3000) NB_ALERT("Too many custom textures!", "", "", "", alert_fatal);
}

void MPSP_manage_obs_lis(float x_cent, float z_cent, float psi, float dh, const std::string& basic_path, int typ, int mode)
{
	if (mode == 0) obs_lis.clear();
	if (mode == 1) obs_lis.push_back({typ, basic_path, stl.custom_scene_path, x_cent, z_cent, psi, dh});
	if (mode != 2) return;
	// Each object is built as if its own package's quadrant were being read.
	char keep[sizeof stl.custom_scene_path];
	std::memcpy(keep, stl.custom_scene_path, sizeof keep);
	for (const obs_lis_struct& o : obs_lis) {
		str_to_buf(stl.custom_scene_path, o.scene_path);
		build_obs(o.x_cent, o.z_cent, o.psi, o.dh, o.basic_path, o.typ, 10);
	}
	std::memcpy(stl.custom_scene_path, keep, sizeof keep);
}

void SP_finish_planet()
{
	for (int lon = 0; lon <= 360; lon++)
		for (int lat = 0; lat <= 180; lat++) {
			double x, y, z;
			xdob_xyz_with_latlonel(x, y, z, lat - 90.0, lon - 180.0, 0.0);
			planet_xyz[lon][lat][0] = (float)x; planet_xyz[lon][lat][1] = (float)y; planet_xyz[lon][lat][2] = (float)z;
		}
}

void MP_shift_and_clear(int typeshift)
{
	const int p = ret_planet();
	const int dlat = typeshift == 5 ? -1 : typeshift == 4 ? 1 : 0, dlon = typeshift == 2 ? -1 : typeshift == 3 ? 1 : 0;
	const double lat_n = env.lat_sou + lat_secs_os[p], lon_n = env.lon_wes + lon_secs_os[p];
	const double lat_o = lat_n - dlat, lon_o = lon_n - dlon;
	if (typeshift == 1)
		for (int b : {0, 1, 3, 4}) { env.boat_x[b] = env.boat_z[b] = -9.9e9f; if (b < 2) env.boat_psi[b] = 0.0f; }
	if (dlat || dlon)
		for (int a = 0; a < acf_max; a++) {
			flt_struct& f = flt[a];
			double lat, lon, ele;
			xdob_latlonel_with_xyz_ref(lat, lon, ele, f.dob_x, f.dob_y, f.dob_z, lat_o, lon_o);
			float q_old[4], q_new[4], q_inv[4], h[4];
			ret_q_horizon(lat, lon, lat_o, lon_o, q_old);
			ret_q_horizon(lat, lon, lat_n, lon_n, q_new);
			q_inv[0] = q_new[0]; q_inv[1] = -q_new[1]; q_inv[2] = -q_new[2]; q_inv[3] = -q_new[3];
			// Velocity and attitude keep their bearing on the horizon at the aircraft.
			float vx, vy, vz;
			rot_quat(q_old, f.vx, f.vy, f.vz, &vx, &vy, &vz);
			rot_quat(q_inv, vx, vy, vz, &f.vx, &f.vy, &f.vz);
			mul_quat(q_old, f.q, h);
			mul_quat(q_inv, h, f.q);
			const float n = std::sqrt(f.q[0] * f.q[0] + f.q[1] * f.q[1] + f.q[2] * f.q[2] + f.q[3] * f.q[3]);
			if (n > 0.0f)
				for (float& c : f.q) c /= n;
			quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
			xdob_xyz_with_latlonel_ref(f.dob_x, f.dob_y, f.dob_z, lat, lon, ele, lat_n, lon_n);
		}
	// The fire burns on where it was, boats on the water keep their place on the planet;
	// those set away stay away.
	auto keep_place = [&](float& x, float& y, float& z) {
		if (x < -9e9f || z < -9e9f) return;
		double lat, lon, ele, nx, ny, nz;
		xdob_latlonel_with_xyz_ref(lat, lon, ele, x, y, z, lat_o, lon_o);
		xdob_xyz_with_latlonel_ref(nx, ny, nz, lat, lon, ele, lat_n, lon_n);
		x = (float)nx; y = (float)ny; z = (float)nz;
	};
	if (dlat || dlon) {
		for (auto& f : scn.firexyz) keep_place(f[0], f[1], f[2]);
		for (int b = 0; b < boat_max; b++) keep_place(env.boat_x[b], env.boat_y[b], env.boat_z[b]);
	}
	static const float st_default[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
	for (int i = 0; i < regn_dim_i; i++)
		for (int j = 0; j < regn_dim_j; j++) {
			buc_struct& b = buc[i][j];
			b.vec_roads.clear(); b.vec_trail.clear(); b.vec_rails.clear(); b.vec_power.clear();
			b.vec_taxis.clear(); b.vec_river.clear(); b.vec_hwy_car.clear(); b.vec_ins.clear();
		}
	for (int i = 0; i <= regn_imax[p]; i++)
		for (int j = 0; j <= regn_jmax[p]; j++) {
			is_apt[i][j] = 0;
			landuse[i][j] = 15;
			ter_body_id[i][j] = 0;
			for (int k = 0; k < 4; k++) { planest[i][j][k][0] = st_default[k][0]; planest[i][j][k][1] = st_default[k][1]; }
			double x, y, z;
			xdob_xyz_with_latlonel_ref(x, y, z, env.lat_sou + (double)j / file_jmax[p], env.lon_wes + (double)i / file_imax[p], 0.0, lat_n, lon_n);
			planexyz[i][j][0] = (float)x; planexyz[i][j][1] = (float)y; planexyz[i][j][2] = (float)z;
		}
}

int poly_is_wet(int i, int j)
{
	if (i < 0 || j < 0 || i + 1 >= regn_dim_i || j + 1 >= regn_dim_j) return 1;
	auto wet = [](uint16_t u) { return u == 14 || u == 15; };
	return wet(landuse[i][j]) || wet(landuse[i][j + 1]) || wet(landuse[i + 1][j + 1]) || wet(landuse[i + 1][j]);
}
