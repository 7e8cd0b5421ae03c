// nimbara-fly: the simulator without a window, on the command line. Each command runs
// the same code the flight model uses.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "tools/tool_main.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

static const char* help_text =
	"nimbara-fly: the simulator without a window.\n"
	"\n"
	"  nimbara-fly atmos --planet earth|mars --alt-ft A[,B...] [--temp-c T] [--baro-inhg P]\n"
	"      Prints 'alt_ft T_cel P_pas rho_kgm3 a_ms', a line per altitude, for the air the\n"
	"      flight model would meet there. --temp-c and --baro-inhg set the sea-level\n"
	"      temperature and pressure of the weather, as the weather settings do.\n"
	"  nimbara-fly run --aircraft PATH [--airport ICAO] [--runway ID] [--ramp [N|NAME]] [--approach 3|10]\n"
	"                  [--start CODE] [--lat D --lon D] [--alt-ft H] [--kias V | --ktas V]\n"
	"                  [--heading D] [--pitch D] [--seconds S] [--dt S] [--calm] [--throttle R]\n"
	"                  [--yoke-pitch R] [--yoke-roll R] [--yoke-yaw R] [--flaps R]\n"
	"                  [--mixture R] [--prop R] [--engines-off] [--collective R] [--cyclic-pitch R]\n"
	"                  [--cyclic-roll R] [--hold-still] [--trim-pitch R] [--hold-vs FPM]\n"
	"                  [--release-after S] [--hold-bank D] [--brakes R] [--toe-brakes L,R]\n"
	"                  [--rotate-kias V] [--hold-heading D] [--speedbrake R] [--chute]\n"
	"                  [--joy-script FILE] [--fields a,b,...] [--every N] --csv OUT\n"
	"      Flies aircraft 0 from an aircraft file inside a data tree, headless, through the\n"
	"      real start-up, flight start and main loop, and writes t and the chosen fields each\n"
	"      pass, or every N passes: flight-record names (name or name[i]), another aircraft's\n"
	"      as flt[1].name, and other records' as stg.name, env.name, mnw.name, msc.name,\n"
	"      nav.name, veh.name[i]. The start: --airport selects the airport (KSBD unless\n"
	"      changed), --runway an end of one of its runways (the far end turns the aircraft\n"
	"      round), --ramp a start point by number or name, --approach 3 or 10 nm out on the\n"
	"      glide path; --start any start code (1200 custom, 4204 the carrier's catapult, 4206\n"
	"      a tow, 4807 re-entry ...). --lat, --lon (and --alt-ft above sea level) start at a\n"
	"      place, in the air at --kias or --ktas along --heading and --pitch, or without\n"
	"      --alt-ft on the ground on its gear, at rest or rolling. Engines run unless\n"
	"      --engines-off, and always in the air. --brakes sets the parking brake (which an\n"
	"      airport start sets), --toe-brakes the left and right toe brakes (0..1).\n"
	"      --dt fixes the flight-model period; --calm stills the air. Yoke ratios run\n"
	"      -1..1 (positive: pull, right, right pedal), throttle, mixture, propeller speed\n"
	"      and flaps 0..1. The collective ratio sets blade pitch max_pitch + R (min_pitch -\n"
	"      max_pitch); the cyclic is the yoke. --hold-still keeps the airframe fixed in space,\n"
	"      to measure static thrust and torque. --trim-pitch sets the elevator trim;\n"
	"      --hold-vs holds a vertical speed with the collective (helicopters) or the elevator\n"
	"      (others); --release-after centres the yoke and cyclic after S seconds; --hold-bank\n"
	"      holds a bank angle with the ailerons, --hold-heading a heading with the pedals;\n"
	"      --rotate-kias holds --yoke-pitch back until that indicated speed. --speedbrake\n"
	"      sets the speedbrake out (0..1) from the start; --chute deploys the drag chute.\n"
	"      --joy-script feeds virtual joysticks through the real device path, an event a line\n"
	"      at simulated time T ('#' comments): 'T attach AXES HATS BUTTONS' (devices number\n"
	"      from 0 in attach order), 'T detach DEV', 'T axis DEV N V' (-100..100), 'T hat DEV\n"
	"      N DIR' (c, or 0 to 31500 by 4500), 'T button DEV N 0|1', 'T map-axis RAW FUNC\n"
	"      [rev]', 'T map-button RAW FUNC'; without --yoke-* and --throttle the yoke and\n"
	"      levers come through it. Alerts go to standard error as well as Error.out.\n"
	"  nimbara-fly nav [--planet earth|mars] [--tree DIR] find --type T ID [ID...] [--near LAT,LON]\n"
	"      Loads the navigation data as start-up does and shows each id found by type T\n"
	"      (apt, ndb, vor, ils, loc, gs, om, mm, im, fix, dme, or the row code), the nearest\n"
	"      of equal ids to --near. An airport prints 'apt ID apt_type elev_ft name', then\n"
	"      'rwy num_str lat lon psi_true len_ft width_ft surf_tex', 'frq CODE MHZ label' and\n"
	"      'sta lat lon psi name' lines. An id not found goes to stderr, exit status 1.\n"
	"  nimbara-fly nav [--planet P] [--tree DIR] near --lat D --lon D [--radius-nm R]\n"
	"      Radio aids within R nm (30): 'type lat lon elev_ft frq range_nm psi_true nav_id name'.\n"
	"  nimbara-fly nav [--planet P] [--tree DIR] block --lat S --lon W\n"
	"      The block whose south-west corner is S, W: 'airports N vors N ndbs N fixes N busy X',\n"
	"      then 'apt ID', 'vor ID', 'ndb ID' and 'fix NAME' lines in list order.\n"
	"  nimbara-fly nav magvar --lat D --lon D\n"
	"      The magnetic variation there, about 2000: degrees to add to a true heading.\n"
	"  nimbara-fly terrain [--tree DIR] (--lat D --lon D | --points FILE)\n"
	"      Loads the scenery block round each point as a start would (FILE: 'lat lon'\n"
	"      lines) and prints 'lat lon elev_m landuse wet is_apt': the ground's height there,\n"
	"      the land use of the nearest vertex, and whether its cell is wet or airport ground.\n"
	"  nimbara-fly block [--tree DIR] --lat D --lon D\n"
	"      Loads the scenery block round the point as a start there would and prints\n"
	"      'obj typ lat lon psi dh name' per queued object, 'rec KIND i j lat lon y code' per\n"
	"      record of the cells' linear features (KIND roads, trails, rails, power, taxiways,\n"
	"      rivers; the middle of its two edges), 'fire lat lon' when a fire burns and\n"
	"      'boat N lat lon' per boat in the block.\n"
	"  nimbara-fly tex FILE --id N [--type T] [--filter F] [--tex-res R] [--over LAYER]...\n"
	"                  [--level L] [--png OUT] [--bmp OUT]\n"
	"      Loads FILE as the simulator loads a texture under id N (type -100 and filter -107\n"
	"      unless told; its PNG before its BMP; --tex-res the resolution setting, 4 full, the\n"
	"      default) and prints 'dx_vis dy_vis dx_tot dy_tot vram'. --png writes mip level L as\n"
	"      the driver holds it, RGBA, upright; --bmp level 0 as a 24-bit BMP. With --over,\n"
	"      FILE is a panel background and each LAYER is laid over it; --bmp then writes the\n"
	"      composed 1024 x 1024 panel. Needs a display (an X server, or xvfb-run).\n"
	"  nimbara-fly draw --size WxH --script FILE --png OUT [--tree DIR]\n"
	"      Clears a window of that size to black and runs FILE's drawing calls, one a line,\n"
	"      each by its own name with its arguments in order ('OGL_string 0 10 700 \"Hello\"\n"
	"      9999 100', 'OGL_number 2 10 600 -12.5 4 1 101', 'OGL_fillrect 13 1 100 100 50 50';\n"
	"      also OGL_framerect, OGL_line, OGL_framecircle, OGL_grayrect, gray_string, OGL_2dquad,\n"
	"      OGL_scissors, OGL_scissors_end), plus 'set night_vision N', 'set manual_lighting R G\n"
	"      B', 'set current_alpha A' and 'set win X Y'; '#' starts a comment. Coordinates are\n"
	"      the 1024 x 768 panel's, placed in the window as the simulator places them. Writes\n"
	"      the window as PNG. A bad line is an error naming its line.\n"
	"  nimbara-fly sky --lat D --lon D [--alt-ft H] --date YYYY-MM-DD --time-utc HH:MM[,...]\n"
	"                  [--heading D] [--tree DIR]\n"
	"      Where the sun and moon stand and the light of clear air, as the frame works them\n"
	"      out: a header, then per time 'utc sun_elev sun_azi moon_elev moon_azi moon_phase\n"
	"      amb_r amb_g amb_b dir_r dir_g dir_b lite_rat_on glare_rat' (degrees, azimuth\n"
	"      clockwise from true north; phase 0 new, 0.5 full; light 0..1; how far the lights of\n"
	"      night are on and the sun's glare looking level along the heading). No display needed.\n"
	"  nimbara-fly view --lat D --lon D --alt-ft H [--heading D] [--pitch D] [--roll D] [--view CODE]\n"
	"                  [--fov D] [--size WxH] [--date YYYY-MM-DD] [--time-utc HH:MM] [--vis-nm V]\n"
	"                  [--sunglasses] [--night-vision] [--landing-light] [--aircraft PATH] [--panel]\n"
	"                  [--click X,Y ...] --png OUT [--tree DIR]\n"
	"      Starts as the simulator does, holds aircraft 0 at the place and attitude with the\n"
	"      clock stopped, runs 30 frames of the real frame code offscreen and writes the last.\n"
	"      View 1525 (forward, nothing), field of view 45, 1024x768 unless told; --panel is view\n"
	"      1500, and then prints a line per drawn instrument: 'ins SLOT CODE X Y SIZE', its centre\n"
	"      in the picture's pixels from the top left. Each --click presses and releases the\n"
	"      mouse at that pixel, in order, before the frames. Needs a display.\n"
	"  nimbara-fly --help\n";

bool fly_parse(const char* s, double lo, double hi, double* v)
{
	char* end = nullptr;
	*v = std::strtod(s, &end);
	return *s && !*end && std::isfinite(*v) && *v >= lo && *v <= hi;
}

static int parse_float(const char* s, float* v)
{
	char* end;
	*v = std::strtof(s, &end);
	return *s && !*end && std::isfinite(*v);
}

static int atmos(int argc, char** argv)
{
	int planet = -1;
	float temp_c = NAN, baro = NAN;
	std::vector<float> alts;
	for (int k = 1; k < argc; k++) {
		const char* o = argv[k];
		const char* val = k + 1 < argc ? argv[k + 1] : nullptr;
		if (!val) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o); return 2; }
		k++;
		if (!std::strcmp(o, "--planet")) {
			if (!std::strcmp(val, "earth")) planet = 0;
			else if (!std::strcmp(val, "mars")) planet = 1;
			else { std::fprintf(stderr, "nimbara-fly: --planet is earth or mars\n"); return 2; }
		} else if (!std::strcmp(o, "--alt-ft")) {
			std::stringstream ss(val);
			std::string item;
			while (std::getline(ss, item, ',')) {
				float a;
				if (!parse_float(item.c_str(), &a)) { std::fprintf(stderr, "nimbara-fly: bad altitude '%s'\n", item.c_str()); return 2; }
				alts.push_back(a);
			}
		} else if (!std::strcmp(o, "--temp-c")) {
			if (!parse_float(val, &temp_c) || temp_c < -273.0f || temp_c > 200.0f) { std::fprintf(stderr, "nimbara-fly: bad --temp-c\n"); return 2; }
		} else if (!std::strcmp(o, "--baro-inhg")) {
			if (!parse_float(val, &baro) || !(baro > 0.0f) || baro > 100.0f) { std::fprintf(stderr, "nimbara-fly: bad --baro-inhg\n"); return 2; }
		} else {
			std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o);
			return 2;
		}
	}
	if (planet < 0 || alts.empty()) { std::fprintf(stderr, "nimbara-fly: atmos needs --planet and --alt-ft\n"); return 2; }
	set_planet_specs(planet);
	if (!std::isnan(temp_c)) con.sl_T_cel = temp_c;
	if (!std::isnan(baro)) con.sl_P_pas = baro * con.hg_topas;
	std::printf("alt_ft T_cel P_pas rho_kgm3 a_ms\n");
	for (float a : alts) {
		flt[0].dob_ele = flt[0].dob_y = a * con.fttomtrs;
		update_local_air();
		std::printf("%g %.2f %.1f %.6f %.2f\n", a, con.lcl_T_cel, con.lcl_P_pas, con.lcl_r_met, con.lcl_a);
	}
	return 0;
}

int main(int argc, char** argv)
{
	static const tool_command cmds[] = {{"atmos", atmos}, {"run", fly_run}, {"nav", fly_nav}, {"terrain", fly_terrain}, {"block", fly_block}, {"tex", fly_tex}, {"draw", fly_draw}, {"sky", fly_sky}, {"view", fly_view}};
	return tool_main("nimbara-fly", help_text, cmds, 9, argc, argv);
}
