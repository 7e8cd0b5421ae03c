// Each start's place: the custom position, ships and platforms, open water, formation and
// tankers, the carried drop, a fire, a rooftop pad, the re-entry stages, the ramp, the
// runway and its approaches. A start that cannot be reached says why and puts the
// aircraft on the selected runway instead.
#include "core/start_places.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include "world/scenery.h"
#include <cmath>
#include <cstring>

namespace {

constexpr float nm = 1852.0f;

// The local frame's heading of a true heading at a place.
float frame_psi(float psi_true, double lat, double lon) { return fltwrap(psi_true + z_north_os((float)lat, (float)lon), 0.0f, 360.0f); }

// A point d metres from (lat, lon) along a true bearing.
void move_latlon(double lat, double lon, float brg_deg, float d, double* lat2, double* lon2)
{
	const double b = brg_deg * con.degtorad;
	latlon_offset(lat, lon, d * std::sin(b), d * std::cos(b), lat2, lon2);
}

void place_latlon(flt_struct& f, double lat, double lon, double ele)
{
	check_for_shift(lat, lon);
	xdob_xyz_with_latlonel(f.dob_x, f.dob_y, f.dob_z, lat, lon, ele);
}

bool runway_start(flt_struct& f, int t2)
{
	if (vec_apt.empty() || vec_apt[msc.loc_apt_wrl].rwy.empty()) return false;
	const vec_apt_struct& a = vec_apt[msc.loc_apt_wrl];
	const veh_struct& v = veh[0];
	if (t2 == 600 && !a.sta.empty()) {   // the ramp
		const vec_sta_struct& s = a.sta[intlim(msc.lcl_rwy_ram, 0, (int)a.sta.size() - 1)];
		place_latlon(f, s.lat, s.lon, a.h + v.h_eqlbm);
		f.psi = frame_psi(s.psi, s.lat, s.lon);
		return true;
	}
	const vec_rwy_struct& r = a.rwy[intlim(msc.lcl_rwy_ram, 0, (int)a.rwy.size() - 1)];
	const float psi_true = fltwrap(r.psi_true + (msc.backwards ? 180.0f : 0.0f), 0.0f, 360.0f);
	double lat, lon;
	move_latlon(r.lat, r.lon, psi_true + 180.0f, 0.5f * (r.len - 20.0f), &lat, &lon);   // ten metres past the threshold
	double ele = a.h;
	if (t2 == 602 || t2 == 603) {   // out on the extended centre line, on the glide path
		const float out = (t2 == 602 ? 3.0f : 10.0f) * nm;
		move_latlon(lat, lon, psi_true + 180.0f, out, &lat, &lon);
		const float slope = v.num_engines > 0 ? 3.0f : 6.0f;
		ele += out * std::tan(slope * con.degtorad);
		f.V_msc = v.V_ref_ms * std::sqrt(con.planet_mu / (con.planet_rad * con.planet_rad * con.g)) * std::sqrt(1.225f / fltmax2(con.sl_r_met, 0.01f));
	}
	place_latlon(f, lat, lon, ele);
	f.psi = frame_psi(psi_true, lat, lon);
	return true;
}

bool boat_start(flt_struct& f, int t1)
{
	const int boat = t1 == 4802 ? 1 : t1 == 4803 ? 3 : t1 == 4804 ? 4 : 0;
	stg.cat_waiting = stg.cat_inprog = stg.wired = 0;
	if (!ret_xz_inreg(env.boat_x[boat], env.boat_z[boat])) {
		NB_ALERT("I can't find one in the area!", "Try going to a coastal area!", "", "", alert_notice);
		return false;
	}
	const veh_struct& v = veh[0];
	if (t1 == 4204) {   // on the catapult: the deck point in the ship's axes
		f.the = v.the_eqlbm + env.boat_the[0];
		f.V_msc = 15.0f;
		f.psi = env.boat_psi[0] + 2.0f;
		env.over_carr = 1;
		stg.cat_waiting = 1;
		float dx, dy, dz;
		const float bp = env.boat_psi[0] * con.degtorad, bt = env.boat_the[0] * con.degtorad, bf = env.boat_phi[0] * con.degtorad;
		any_to_wrl(-12.5f, 21.0f, -60.0f, &dx, &dy, &dz, std::sin(bp), std::cos(bp), std::sin(bt), std::cos(bt), std::sin(bf), std::cos(bf));
		f.dob_x = env.boat_x[0] + dx;
		f.dob_y = env.boat_y[0] + dy + v.h_eqlbm;
		f.dob_z = env.boat_z[0] + dz;
		return true;
	}
	static const float deck[5] = {21.0f, 7.0f, 0.0f, 60.0f, 97.0f};
	const float dis = 90.0f * v.V_ref_ms;
	const float course = t1 == 4801 ? env.boat_psi[boat] - 8.0f : (t1 == 4802 ? env.boat_psi[boat] : 0.0f);   // the angled deck
	const float c = course * con.degtorad;
	f.dob_x = env.boat_x[boat] - dis * std::sin(c);
	f.dob_z = env.boat_z[boat] + dis * std::cos(c);
	f.dob_y = env.boat_y[boat] + deck[boat] + dis * std::tan(3.5f * con.degtorad);
	f.psi = fltwrap(course, 0.0f, 360.0f);
	f.V_msc = v.V_ref_ms;
	return true;
}

bool water_start(flt_struct& f)
{
	const int p = env.planet == 1 ? 1 : 0;
	const int mi = (int)(1.25f * lon_buff[p] * file_imax[p]), mj = (int)(1.25f * lat_buff[p] * file_jmax[p]);
	auto wet = [](int i, int j) { return landuse[i][j] == 14 || landuse[i][j] == 15; };
	int fi = -1, fj = -1;
	for (int i = mi; i + 5 <= regn_imax[p] - mi; i++)
		for (int j = mj; j + 5 <= regn_jmax[p] - mj; j++) {
			bool all = true;   // a five-by-five block of cells, every corner wet
			for (int a = 0; a <= 5 && all; a++)
				for (int b = 0; b <= 5 && all; b++) all = wet(i + a, j + b);
			if (all) { fi = i; fj = j; }
		}
	if (fi < 0) {
		NB_ALERT("I can't find any signifigant amount of coastline in this area!",
		         "Try going to a coastal region to guarantee that I can find some coastline to put your plane near.", "", "", alert_notice);
		return false;
	}
	f.dob_x = planexyz[fi][fj][0];
	f.dob_y = planexyz[fi][fj][1];
	f.dob_z = planexyz[fi][fj][2];
	f.psi = 0.0f;
	f.V_msc = 0.1f;
	return true;
}

bool fire_start(flt_struct& f)
{
	if (!(scn.fire_avail && con.sl_T_cel > 0.0f && atm.rain_set <= 0.0f)) {
		NB_ALERT("I can't find any forest fires in the area!", "Try moving to a mountainous area, where fires are more likely!",
		         "Also be sure there is no rain and the temperature is above 32 F!", "You can set this stuff in the Set Weather window.", alert_notice);
		return false;
	}
	const veh_struct& v = veh[0];
	const float dis = 120.0f * v.V_ref_ms;
	const float brg = (atm.set_wind_dir_mag[0] + 120.0f) * con.degtorad;
	f.dob_x = scn.firexyz[0][0] + dis * std::sin(brg) * std::cos(10.0f * con.degtorad);
	f.dob_z = scn.firexyz[0][2] - dis * std::cos(brg) * std::cos(10.0f * con.degtorad);
	f.dob_y = scn.firexyz[0][1] + dis * std::sin(10.0f * con.degtorad);
	f.psi = fltwrap(atm.set_wind_dir_mag[0] + 270.0f, 0.0f, 360.0f);
	f.V_msc = 1.5f * v.V_ref_ms;
	for (int l = 0; l < 3; l++) atm.set_wind_spd_kts[l] = 15.0f + 5.0f * ran01();
	if (v.m_jettison < 0.01f)
		NB_ALERT("I could not help but notice that you are going after a forest fire with no water to drop on it.",
		         "You might consider opening the Bombardier in the 'Seaplanes' folder, which packs a lot of water to dump on the fire.",
		         "Skim the surface of any water to pick up a load of water. Then, fly your approach to the fire and if you jettison the water load right over the fire you will put part of the fire out!",
		         "I will let you go ahead and fly into the forest fire, but I suspect that what you are planning to put on the fire will not be enough to extinguish it.",
		         alert_notice);
	return true;
}

bool helipad_start(flt_struct& f)
{
	float best = 9.9e9f;
	const obs_lis_struct* pad = nullptr;
	for (const obs_lis_struct& o : obs_lis)   // the block's rooftop pads, queued as objects
		if (o.typ == 105) {
			const float d = pythag(o.x_cent - (float)f.dob_x, o.z_cent - (float)f.dob_z);
			if (d < best) { best = d; pad = &o; }
		}
	if (!pad) {
		NB_ALERT("I can't find any buildings with helipads in the area!", "Try going to New York, Chicago, Los Angeles or some other major city.",
		         "There are likely to be building-top helipads there.", "", alert_notice);
		return false;
	}
	float vx, vy, vz;
	int i = 0, j = 0;
	const float ground = find_local_y(pad->x_cent, pad->z_cent, &vx, &vy, &vz, &i, &j, 0);
	f.dob_x = pad->x_cent;
	f.dob_z = pad->z_cent + nm;   // a mile south
	f.dob_y = ground + pad->dh + 0.05f * nm;
	f.psi = 0.0f;
	f.V_msc = veh[0].V_ref_ms;
	return true;
}

bool reentry_start(flt_struct& f, int t1)
{
	int k = 0;
	if (!get_index_from_id("KEDW", nav_type_apt, &k, (float)f.dob_lat, (float)f.dob_lon) || vec_apt[k].rwy.empty()) return false;
	nav.gps_type = 1;
	nav.gps_use_index = nav.gps_apt_index = k;
	nav.HSIsel = 2;
	msc.loc_apt_wrl = k;
	msc.lcl_rwy_ram = intlim(6, 0, (int)vec_apt[k].rwy.size() - 1);
	const vec_apt_struct& a = vec_apt[k];
	static const float dist_nm[4] = {5340, 591, 40, 8}, speed_fps[4] = {25750, 14000, 2500, 600}, alt_ft[4] = {450000, 167270, 83000, 18000};
	static const float hdg[3] = {52, 86, 89};
	static const char* first[4][4] = {
	    {"This will start you off 5,340 miles downrange at 450,000 feet and 15,400 mph!", "The re-entry takes a long time and is an EXTREME challenge!",
	     "Watch the right EFIS to fly the vertical part of the re-entry, and the middle EFIS for the horizontal guidance to Edwards.",
	     "If you have too much speed, pull up to a higher pitch for more drag, and do steep S-turns to descend!"},
	    {"This will start you off 591 miles downrange at 167,000 feet, Mach 10!", "This will be the final 12-minute glide to Edwards, and is a moderate challenge.",
	     "Watch the right EFIS to fly the vertical part of the re-entry, and the middle EFIS for the horizontal guidance to Edwards.",
	     "If you have too much speed, pull up to a higher pitch for more drag, and do steep S-turns to descend!"},
	    {"This will start you off 40 miles downrange at 83,000 feet, Mach 2.5.", "Edwards will be the small circle on your moving map... the large circle is the final turn.",
	     "Fly OVER AND PAST Edwards at 60,000 feet, then do a left 230-degree turn to bring it BACK to Edwards for a landing on 22.",
	     "Near the end, your descent path should be about 20 degrees down, 240 knots indicated."},
	    {"This will start you off on an 8 mile final at 18,000 feet, 250 knots indicated.",
	     "Edwards will be right in front of you, and the glidelsope lighting will be a few miles short of Edwards.",
	     "Fly the approach at 240 knots, aiming for the lights a few miles SHORT of Edwards, then level out your descent over the lights.",
	     "After this 'Pre-Flare', where you level your descent, get the gear down and touch down smoothly."}};
	const int s = t1 - 4807;
	NB_ALERT(first[s][0], first[s][1], first[s][2], first[s][3], alert_notice);
	double lat, lon;
	float psi_true;
	if (s < 3) {   // on the airport's own meridian, downrange to the south
		const vec_rwy_struct& r = a.rwy[0];
		latlon_offset(r.lat, r.lon, 0.0, -dist_nm[s] * nm, &lat, &lon);
		psi_true = hdg[s];
	} else {   // on the final, half the runway and eight miles out
		const vec_rwy_struct& r = a.rwy[msc.lcl_rwy_ram];
		psi_true = r.psi_true;
		move_latlon(r.lat, r.lon, psi_true + 180.0f, 0.5f * r.len + dist_nm[s] * nm, &lat, &lon);
	}
	place_latlon(f, lat, lon, alt_ft[s] * con.fttomtrs);
	f.psi = frame_psi(psi_true, lat, lon);
	f.the = f.phi = 0.0f;
	f.V_msc = speed_fps[s] * con.fttomtrs;
	if (t1 == 4807) f.vy = -561.7f * con.fttomtrs;
	f.m_fixed = 1000.0f;
	f.m_jettison = 0.0f;
	return true;
}

}  // namespace

void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode)
{
	if (p < 0 || p >= acf_max) return;
	flt_struct& f = flt[p];
	const veh_struct& v = veh[p];
	std::memset(&f, 0, sizeof f);
	f.update_type = 1;   // computer-flown
	f.last_time_rcvd = -9999.0f;
	f.the = the; f.psi = psi; f.phi = phi;
	f.dob_x = x; f.dob_y = y; f.dob_z = z;
	f.V_msc = v_msc;
	f.vx = v_msc * std::sin(psi * con.degtorad);
	f.vz = -v_msc * std::cos(psi * con.degtorad);
	f.ai_app_mode = mode;
	const int pl = env.planet == 1 ? 1 : 0;
	f.i = intlim((int)interp(env.lo_x, 0.0f, env.hi_x, (float)regn_imax[pl], x, 1), 0, regn_imax[pl]);
	f.j = intlim((int)interp(env.lo_z, 0.0f, env.hi_z, (float)regn_jmax[pl], z, 1), 0, regn_jmax[pl]);
	veh_struct& vw = veh[p];
	for (int en = en_gear_lo; en <= en_gear_hi; en++) {
		vw.gear_deploy[en] = v.gear_retract ? 0.0f : 1.0f;
		f.tire_vrt_def_veh[en] = 0.0f;
	}
	for (int en = 0; en < engn_max; en++) {
		f.ENGN_burning_fuel[en] = 1;
		f.CONT_thro_ref[en] = f.CONT_thro_use[en] = 1.0f;
		f.ENGN_tacrad[en] = f.POINT_tac_rad[en] = 99.9f;
		const int t = v.engn_type[en];
		f.POINT_DVinc[en] = (t == 4 || t == 5) ? 0.75f * con.lcl_a : 0.1f * con.lcl_a;
	}
	for (auto& slots : f.Q_centroid_MULT)
		for (float& m : slots) m = 1.0f;
	init_quaternion(psi, the, phi, f.q);
	update_def_angles(p);
}

void place_start(int& t1, int& t2)
{
	flt_struct& f = flt[0];
	bool placed = false;
	switch (t1) {
	case 1200:
		place_latlon(f, stg.cus_lat, stg.cus_lon, stg.cus_alt);
		f.psi = frame_psi(stg.cus_psi, stg.cus_lat, stg.cus_lon);
		f.V_msc = stg.cus_v;
		placed = true;
		break;
	case 4801: case 4802: case 4803: case 4804: case 4204: placed = boat_start(f, t1); break;
	case 4205: placed = water_start(f); break;
	case 4500: case 4501: case 4502: {   // 0.2 nm behind the leader, 10 degrees off its tail
		const flt_struct& l = flt[1];
		const float b = (l.psi - 10.0f) * con.degtorad;
		f.dob_x = l.dob_x - 0.2f * nm * std::sin(b);
		f.dob_z = l.dob_z + 0.2f * nm * std::cos(b);
		f.dob_y = l.dob_y;
		f.the = l.the; f.psi = l.psi; f.V_msc = l.V_msc;
		if (t1 != 4500) {
			const veh_struct& v = veh[0];
			for (int t = 0; t < 3; t++) f.m_fuel[t] = v.m_fuel_tot * fltmin2(v.tank_rat[t], 0.15f / intmax2(v.num_tanks, 1));
		}
		placed = true;
		break;
	}
	case 4503: {
		const veh_struct& v = veh[0];
		f.the = f.phi = 0.0f;
		f.psi = flt[1].psi;   // along the mother ship
		f.dob_x = flt[1].dob_x; f.dob_z = flt[1].dob_z; f.dob_y = flt[1].dob_y;
		f.V_msc = flt[1].V_msc;
		for (int t = 0; t < 3; t++) f.m_fuel[t] = v.m_fuel_tot * fltmin2(v.tank_rat[t], 1.0f / intmax2(v.num_tanks, 1));
		placed = true;
		break;
	}
	case 4805: placed = fire_start(f); break;
	case 4800: placed = helipad_start(f); break;
	case 4807: case 4808: case 4809: case 4810: placed = reentry_start(f, t1); break;
	case 608: placed = runway_start(f, t2); break;
	default: break;
	}
	if (!placed && t1 != 608) { t1 = 608; t2 = 601; placed = runway_start(f, t2); }
	if (t1 == 608 && (t2 == 600 || t2 == 601)) {   // at rest on an invisible roof at the airport's height
		xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
		if (!vec_apt.empty()) {
			env.over_obs = 1;
			env.obj_y_top = (float)f.dob_y - (t2 == 600 ? veh[0].h_eqlbm : 0.0f);
			env.obj_x = (float)f.dob_x;
			env.obj_z = (float)f.dob_z;
		}
		if (t2 == 601) f.dob_y += veh[0].h_eqlbm;
		f.the = veh[0].the_eqlbm;
		f.V_msc = 0.0f;
	}
	(void)placed;
}
