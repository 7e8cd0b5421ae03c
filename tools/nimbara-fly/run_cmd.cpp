// nimbara-fly run: flies aircraft 0 headless through the real start-up and the real
// main loop, and writes a CSV of flight-record fields.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "tools/tool_main.h"
#include "tools/nimbara-fly/joy_script.h"
#include "aircraft/load_plane.h"
#include "core/HL_CORE.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "core/flt_fields.h"
#include "core/rec_fields.h"
#include "flight/HL_FLIGHT.h"
#include "platform/plat_headless.h"
#include "world/HL_WORLD.h"
#include "world/nav_data.h"
#include "world/scenery.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char* default_fields =
	"dob_lat,dob_lon,dob_ele,vx,vy,vz,phi,the,psi,P,Q,R,alpha,AV_msc,v_ind_kts,g_total,l_o_d,lift_path_axis,drag_path_axis,m_total,"
	"onground_any,onground_all,y_agl_mtr,fside_gear_acf,fnrml_gear_acf,faxil_gear_acf";

struct column { std::string name; const void* addr; int type; };

int number(const char* s, float* v)
{
	char* end;
	*v = std::strtof(s, &end);
	return *s && !*end && std::isfinite(*v);
}

}  // namespace

void fly_calm_air()
{
	for (int i = 0; i < 3; i++)
		atm.set_wind_spd_kts[i] = atm.set_shear_spd_kts[i] = atm.set_turb_inc[i] = 0.0f;
	atm.therm_prt = atm.burst_prob = atm.rate_change = atm.wind_tbl = 0.0f;
	atm.wind_X_msc = atm.wind_Y_msc = atm.wind_Z_msc = 0.0f;
}

static int run_flight(int argc, char** argv)
{
	std::string aircraft, csv, fields = default_fields;
	float lat = NAN, lon = NAN, alt_ft = NAN, kias = NAN, ktas = NAN, heading = 0.0f, pitch = 0.0f, approach = NAN, start_code = NAN;
	std::string airport, runway, ramp, joy_script;
	bool yoke_given = false, throttle_given = false;
	bool ramp_given = false;
	float seconds = 60.0f, dt = 0.02f, throttle = 0.0f, yp = 0.0f, yr = 0.0f, yy = 0.0f, flaps = NAN, every_f = 1.0f;
	float brakes = NAN, rotate_kias = NAN, toe_l = 0.0f, toe_r = 0.0f, hold_heading = NAN, speedbrake = 0.0f;
	float mixture = 1.0f, prop = 1.0f, collective = NAN, cyc_ptch = NAN, cyc_roll = NAN, trim_pitch = NAN, hold_vs = NAN, release = NAN, hold_bank = NAN;
	int calm = 0, engines_off = 0, hold_still = 0, chute = 0;
	for (int k = 1; k < argc; k++) {
		const std::string o = argv[k];
		if (o == "--calm") { calm = 1; continue; }
		if (o == "--engines-off") { engines_off = 1; continue; }
		if (o == "--hold-still") { hold_still = 1; continue; }
		if (o == "--chute") { chute = 1; continue; }
		if (o == "--ramp") {   // a start point by number or name, or the first
			ramp_given = true;
			if (k + 1 < argc && std::strncmp(argv[k + 1], "--", 2) != 0) ramp = argv[++k];
			continue;
		}
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		float* target = nullptr;
		if (o == "--aircraft") aircraft = val;
		else if (o == "--csv") csv = val;
		else if (o == "--fields") fields = val;
		else if (o == "--airport") airport = val;
		else if (o == "--joy-script") joy_script = val;
		else if (o == "--runway") runway = val;
		else if (o == "--approach") target = &approach;
		else if (o == "--start") target = &start_code;
		else if (o == "--lat") target = &lat;
		else if (o == "--lon") target = &lon;
		else if (o == "--alt-ft") target = &alt_ft;
		else if (o == "--kias") target = &kias;
		else if (o == "--ktas") target = &ktas;
		else if (o == "--heading") target = &heading;
		else if (o == "--pitch") target = &pitch;
		else if (o == "--seconds") target = &seconds;
		else if (o == "--dt") target = &dt;
		else if (o == "--throttle") target = &throttle;
		else if (o == "--yoke-pitch") target = &yp;
		else if (o == "--yoke-roll") target = &yr;
		else if (o == "--yoke-yaw") target = &yy;
		else if (o == "--flaps") target = &flaps;
		else if (o == "--mixture") target = &mixture;
		else if (o == "--prop") target = &prop;
		else if (o == "--collective") target = &collective;
		else if (o == "--trim-pitch") target = &trim_pitch;
		else if (o == "--hold-vs") target = &hold_vs;
		else if (o == "--release-after") target = &release;
		else if (o == "--hold-bank") target = &hold_bank;
		else if (o == "--hold-heading") target = &hold_heading;
		else if (o == "--speedbrake") target = &speedbrake;
		else if (o == "--cyclic-pitch") target = &cyc_ptch;
		else if (o == "--cyclic-roll") target = &cyc_roll;
		else if (o == "--every") target = &every_f;
		else if (o == "--brakes") target = &brakes;
		else if (o == "--rotate-kias") target = &rotate_kias;
		else if (o == "--toe-brakes") {
			char* end;
			toe_l = std::strtof(val, &end);
			if (*end != ',' || !number(end + 1, &toe_r)) { std::fprintf(stderr, "nimbara-fly: --toe-brakes is L,R\n"); return 2; }
		}
		else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str()); return 2; }
		if (target && !number(val, target)) { std::fprintf(stderr, "nimbara-fly: bad number for %s: '%s'\n", o.c_str(), val); return 2; }
		yoke_given = yoke_given || o == "--yoke-pitch" || o == "--yoke-roll" || o == "--yoke-yaw";
		throttle_given = throttle_given || o == "--throttle";
	}
	const bool custom = !std::isnan(lat) || !std::isnan(lon) || !std::isnan(alt_ft);   // start 1200
	const bool on_ground = custom && std::isnan(alt_ft);   // no height: at rest or rolling on the surface
	if (custom && std::isnan(lat) != std::isnan(lon)) { std::fprintf(stderr, "nimbara-fly: --lat and --lon go together\n"); return 2; }
	if (custom && std::isnan(lat)) { lat = 34.1f; lon = -117.2f; }   // a height alone: over the hills east of Los Angeles
	if (aircraft.empty() || csv.empty() || (!std::isnan(kias) && !std::isnan(ktas)) || (custom && !on_ground && std::isnan(kias) && std::isnan(ktas))) {
		std::fprintf(stderr, "nimbara-fly: run needs --aircraft and --csv, and in the air at --lat, --lon one of --kias and --ktas\n");
		return 2;
	}
	const bool at_airport = !airport.empty() || !runway.empty() || ramp_given || !std::isnan(approach);
	if ((custom && at_airport) || (ramp_given && (!runway.empty() || !std::isnan(approach))) ||
	    (!std::isnan(start_code) && ((custom && start_code != 1200.0f) || (at_airport && start_code != 608.0f && (ramp_given || !std::isnan(approach) || !runway.empty()))))) {
		std::fprintf(stderr, "nimbara-fly: the position options contradict each other: --lat/--lon, --airport/--runway/--ramp/--approach and --start are different starts\n");
		return 2;
	}
	if (!std::isnan(approach) && approach != 3.0f && approach != 10.0f) { std::fprintf(stderr, "nimbara-fly: --approach is 3 or 10\n"); return 2; }
	if (std::isnan(kias) && std::isnan(ktas)) kias = 0.0f;
	if (!std::isnan(start_code)) {
		const int c = (int)start_code;
		const bool known = c == start_code && (c == 608 || c == 1200 || (c >= 4200 && c <= 4207) || (c >= 4500 && c <= 4503) || (c >= 4800 && c <= 4805) || (c >= 4807 && c <= 4810));
		if (!known) { std::fprintf(stderr, "nimbara-fly: no start %g; the starts are 608, 1200, 4200-4207, 4500-4503, 4800-4805, 4807-4810\n", start_code); return 2; }
	}
	if (!std::isnan(brakes) && !(brakes >= 0.0f && brakes <= 1.0f)) { std::fprintf(stderr, "nimbara-fly: --brakes, --toe-brakes and --speedbrake run 0 to 1\n"); return 2; }
	if (!(toe_l >= 0.0f && toe_l <= 1.0f) || !(toe_l >= 0.0f && toe_l <= 1.0f) || !(toe_r >= 0.0f && toe_r <= 1.0f) ||
	    !(speedbrake >= 0.0f && speedbrake <= 1.0f)) {
		std::fprintf(stderr, "nimbara-fly: --brakes, --toe-brakes and --speedbrake run 0 to 1\n");
		return 2;
	}
	if (!(dt > 0.0f && dt <= 0.08f)) { std::fprintf(stderr, "nimbara-fly: --dt is above 0 and at most 0.08\n"); return 2; }
	if (!(seconds >= 0.0f && seconds <= 1e6f) || lat < -90 || lat > 90 || lon < -180 || lon > 180 || every_f < 1.0f) {   // NaN passes: not given
		std::fprintf(stderr, "nimbara-fly: a value is out of range\n");
		return 2;
	}
	std::vector<joy_event> joy_events;
	if (!joy_script.empty()) {
		std::string why;
		if (!read_joy_script(joy_script, joy_events, &why)) { std::fprintf(stderr, "nimbara-fly: %s\n", why.c_str()); return 2; }
	}
	const bool stick_yoke = !joy_script.empty() && !yoke_given, stick_levers = !joy_script.empty() && !throttle_given;   // through the joystick path
	size_t next_joy = 0;
	const std::string file = std::filesystem::absolute(aircraft).string();
	const std::string tree = find_data_tree(file);
	if (tree.empty()) { std::fprintf(stderr, "nimbara-fly: %s is not inside a data tree\n", file.c_str()); return 1; }

	// The real start-up, headless, in the data tree; then the aircraft asked for.
	HEADLESS_setup(dt, 0, tree.c_str());
	prd_FM_fixed = dt;
	init_sim();
	str_to_buf(veh[0].path, file);
	if (!load_plane(0)) { std::fprintf(stderr, "nimbara-fly: could not load %s\n", file.c_str()); MACIBM_finishup(0); return 1; }
	if (calm) fly_calm_air();
	for (int& a : mnw.assigned) a = 0;   // the runner holds the controls
	flt_struct& f = flt[0];
	ren.ground_is_vis = 1;   // the ground is there to fly over
	auto refuse = [&](const std::string& why) {
		std::fprintf(stderr, "nimbara-fly: %s\n", why.c_str());
		MACIBM_finishup(0);
		return 1;
	};

	// Which start, and the scenery round its place.
	int t1 = 608, t2 = stg.start_ramp ? 600 : 601;
	if (!airport.empty()) {
		int k = 0;
		if (!get_index_from_id(airport, nav_type_apt, &k, (float)f.dob_lat, (float)f.dob_lon)) return refuse("no airport " + airport);
		msc.loc_apt_wrl = k;
		msc.lcl_rwy_ram = 0;
		msc.backwards = 0;
	}
	const vec_apt_struct* apt = vec_apt.empty() ? nullptr : &vec_apt[intlim(msc.loc_apt_wrl, 0, (int)vec_apt.size() - 1)];
	if (!runway.empty()) {
		std::string ends;
		int found = -1;
		for (size_t r = 0; apt && r < apt->rwy.size() && found < 0; r++) {
			std::string near_end, far_end;
			ret_rwy_end_names(apt->rwy[r], &near_end, &far_end);
			if (apt->rwy[r].num_str[0] == 'x') continue;
			ends += (ends.empty() ? "" : ", ") + near_end + ", " + far_end;
			if (runway == near_end || runway == far_end) { found = (int)r; msc.backwards = runway != near_end; }
		}
		if (found < 0) return refuse("no runway end " + runway + " at " + (apt ? apt->apt_id : "?") + "; its ends are " + ends);
		msc.lcl_rwy_ram = found;
	}
	if (ramp_given) {
		if (!apt || apt->sta.empty()) return refuse(std::string("no start points at ") + (apt ? apt->apt_id : "?"));
		int found = -1;
		float n;
		if (ramp.empty()) found = 0;
		else if (number(ramp.c_str(), &n) && n >= 1 && n <= (float)apt->sta.size() && n == std::floor(n)) found = (int)n - 1;
		else
			for (size_t r = 0; r < apt->sta.size() && found < 0; r++)
				if (apt->sta[r].sta_name == ramp) found = (int)r;
		if (found < 0) return refuse("no start point " + ramp + " at " + apt->apt_id);
		msc.lcl_rwy_ram = found;
		t2 = 600;
	}
	if (!std::isnan(approach)) t2 = approach == 3.0f ? 602 : 603;
	if (!std::isnan(start_code)) t1 = (int)start_code;
	if (custom) {
		t1 = 1200;
		stg.cus_lat = lat;
		stg.cus_lon = lon;
		stg.cus_alt = on_ground ? -1000.0f : alt_ft * con.fttomtrs;   // under the ground: the start lifts it onto its gear
		stg.cus_psi = heading;
		stg.cus_v = 0.0f;
	}
	double plat = lat, plon = lon;   // the scenery round the place
	if (!custom && apt && !apt->rwy.empty()) { plat = apt->rwy[intlim(msc.lcl_rwy_ram, 0, (int)apt->rwy.size() - 1)].lat; plon = apt->rwy[0].lon; }
	if (!std::isnan(plat)) {
		env.lat_sou = (int)std::lround(plat - lat_secs_os[0]);
		env.lon_wes = (int)std::lround(plon - lon_secs_os[0]);
		load_region(1);
		if (on_ground && !quadrant_file_exists((int)std::floor(lat), (int)std::floor(lon)))
			return refuse("no scenery at " + std::to_string(lat) + " " + std::to_string(lon) + " to start on; give --alt-ft to start in the air");
	}
	stg.start_running = !engines_off;
	init_flt_0(t1, t2);

	if (custom) {
		// Heading and pitch are given against the horizon where the aircraft is, which the
		// flat local frame meets at a small angle away from its reference point.
		if (on_ground) pitch = veh[0].the_eqlbm;
		float q_h[4], q_s[4];
		init_quaternion(fltwrap(heading, 0.0f, 360.0f), fltlim(pitch, -89.0f, 89.0f), 0.0f, q_h);
		ret_q_shift(f, q_s);
		q_s[1] = -q_s[1]; q_s[2] = -q_s[2]; q_s[3] = -q_s[3];
		mul_quat(q_s, q_h, f.q);
		quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
		WORLD_math_all_cases();
		if (calm) fly_calm_air();
		const float tas = !std::isnan(ktas) ? ktas * con.ktstomsc : kias * con.ktstomsc / std::sqrt(fltmax2(con.lcl_sig, 1e-6f));
		rot_quat(f.q, 0.0f, 0.0f, -tas, &f.vx, &f.vy, &f.vz);   // along the nose, the aircraft's -z
		f.V_msc = tas;
		update_derived_flt(0);
		if (on_ground)   // rolling: the wheels turn at the ground speed
			for (int en = en_gear_lo; en <= en_gear_hi; en++)
				f.tire_omega[en] = veh[0].tire_radius[en] > 0.0f ? tas / veh[0].tire_radius[en] : 0.0f;
		set_engines_for_start(stg.start_running || !on_ground, on_ground);   // in the air they run
	}
	if (!std::isnan(brakes)) f.parkbrake = brakes;
	if (calm) fly_calm_air();
	f.sbrk_rqst = f.sbrk_rat = speedbrake;   // out from the start, not on its way
	stg.chute_on = chute;
	mnw.first_miss_cycle = 0;

	std::vector<column> cols;
	std::stringstream ss(fields);
	std::string item;
	while (std::getline(ss, item, ',')) {
		int type = 0;
		const void* addr = ret_rec_address(item, &type);
		if (!addr) {   // the loader's worker threads end before we leave
			std::fprintf(stderr, "nimbara-fly: no field '%s' in the records\n", item.c_str());
			MACIBM_finishup(1);
			return 2;
		}
		cols.push_back({item, addr, type});
	}
	FILE* out = std::fopen(csv.c_str(), "w");
	if (!out) {
		std::fprintf(stderr, "nimbara-fly: cannot write %s\n", csv.c_str());
		MACIBM_finishup(1);
		return 1;
	}
	std::fprintf(out, "t");
	for (const column& c : cols) std::fprintf(out, ",%s", c.name.c_str());
	std::fprintf(out, "\n");
	const int every = (int)every_f;
	// --hold-vs: a plain PI loop on the collective (helicopters) or the elevator (others).
	const int has_coll = veh[0].has_collective;
	float hold_i = 0.0f, coll_use = std::isnan(collective) ? 0.5f : collective;
	const long passes = std::lround(seconds / dt);
	double t = 0.0;
	for (long n = 0; n <= passes; n++) {
		if (n % every == 0) {
			std::fprintf(out, "%.4f", t);
			for (const column& c : cols) {
				double v;
				switch (c.type) {
				case ff_int: v = *(const int*)c.addr; break;
				case ff_float: v = *(const float*)c.addr; break;
				case ff_double: v = *(const double*)c.addr; break;
				default: v = *(const unsigned char*)c.addr; break;
				}
				std::fprintf(out, ",%.9g", v);
			}
			std::fprintf(out, "\n");
		}
		if (n == passes) break;
		float vs_out = 0.0f;
		if (!std::isnan(hold_vs)) {
			const float err = (hold_vs - f.Vh_fpm) * con.fpmtomsc;   // m/s
			if (has_coll) {   // the collective ratio falls as blade pitch rises
				hold_i = fltlim(hold_i - 0.03f * err * dt, -1.0f, 1.0f);
				coll_use = fltlim((std::isnan(collective) ? 0.5f : collective) + hold_i - 0.06f * err, 0.0f, 1.0f);
			} else {
				hold_i = fltlim(hold_i + err * dt, -10.0f, 10.0f);
				vs_out = fltlim(0.1f * err + 0.1f * hold_i, -1.0f, 1.0f);
			}
		}
		if (!std::isnan(release) && t >= release) { yp = yr = yy = 0.0f; cyc_ptch = cyc_roll = NAN; }   // the pilot lets go
		if (!std::isnan(trim_pitch)) f.elev_trim = trim_pitch;
		const float yoke_pitch = std::isnan(rotate_kias) || f.v_ind_kts >= rotate_kias ? yp : 0.0f;   // --rotate-kias holds the pull till then
		for (; next_joy < joy_events.size() && joy_events[next_joy].t <= t + 1e-9; next_joy++) {
			std::string why;
			if (!apply_joy_event(joy_events[next_joy], &why)) {
				std::fclose(out);
				return refuse(joy_script + ", " + why);
			}
		}
		if (!stick_yoke) {   // else the yoke comes through the joystick path
			mnw.YK_ptch = fltlim((std::isnan(cyc_ptch) ? yoke_pitch : cyc_ptch) + (has_coll ? 0.0f : vs_out), -1.0f, 1.0f);   // a helicopter's cyclic is its yoke
			mnw.YK_roll = std::isnan(cyc_roll) ? yr : cyc_roll;
			if (!std::isnan(hold_bank))   // a wing leveller: bank error against roll rate
				mnw.YK_roll = fltlim(mnw.YK_roll + 0.03f * fltwrap(hold_bank - f.phi, -180.0f, 180.0f) - 0.02f * f.P, -1.0f, 1.0f);
			mnw.YK_hdng = yy;
		}
		if (!std::isnan(hold_heading))   // the pedals: heading error against yaw rate
			mnw.YK_hdng = fltlim(yy + 0.05f * fltwrap(hold_heading - f.psi, -180.0f, 180.0f) - 0.1f * f.R, -1.0f, 1.0f);
		if (!std::isnan(flaps)) f.flap_rqst = fltlim(flaps, 0.0f, 1.0f);   // else as the start set them
		f.sbrk_rqst = speedbrake;   // a glider's speedbrake stays closed unless asked
		if (!std::isnan(brakes)) f.parkbrake = brakes;   // else as the start set it
		f.l_brake_add = toe_l;
		f.r_brake_add = toe_r;
		const veh_struct& v = veh[0];
		for (int en = 0; en < engn_max; en++) {
			if (!stick_levers && !(eng_has_fadec(0, en) && fadec_is_running(0, en))) set_thro(en, throttle);   // a FADEC holds its own
			set_mixt(en, mixture);
			set_prop(en, v.RSC_mingreen_PROP + fltlim(prop, 0.0f, 1.0f) * (v.RSC_redline_PROP - v.RSC_mingreen_PROP));
			if ((!std::isnan(collective) || !std::isnan(hold_vs)) && v.prop_type[en] == 3)
				set_ptch(en, v.max_pitch[en] + coll_use * (v.min_pitch[en] - v.max_pitch[en]));
		}
		if (calm) fly_calm_air();
		const double hx = f.dob_x, hy = f.dob_y, hz = f.dob_z;
		float hq[4] = {f.q[0], f.q[1], f.q[2], f.q[3]};
		MACIBM_event_proc();
		if (hold_still) {   // a test stand: the forces are made, the airframe does not move
			f.dob_x = hx; f.dob_y = hy; f.dob_z = hz;
			for (int k = 0; k < 4; k++) f.q[k] = hq[k];
			quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
			f.vx = f.vy = f.vz = 0.0f;
			f.P = f.Q = f.R = f.Prad = f.Qrad = f.Rrad = 0.0f;
			xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
			update_derived_flt(0);
		}
		t += dt;
	}
	std::fclose(out);
	MACIBM_finishup(1);
	return 0;
}

int fly_run(int argc, char** argv)
{
	try {
		return run_flight(argc, argv);
	} catch (const XFatalAlert&) {   // the alert is in Error.out; the workers end before we leave
		std::fprintf(stderr, "%s\n", last_alert_text.c_str());
		MACIBM_finishup(0);
		return 1;
	}
}
