// The planet's navigation world, read whole at start and on a change of planet: radio
// aids, fixes, airways and airports with their runways, start points, windsocks and
// frequencies; the hashes that find them; the short lists of the loaded block.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

// Row codes of the aids, and the extra numbers the lookups use.
enum {
	nav_ndb = 2, nav_vor = 3, nav_ils = 4, nav_loc = 5, nav_gs = 6, nav_om = 7, nav_mm = 8, nav_im = 9, nav_dme = 12,
	nav_type_apt = 1, nav_type_fix = 11, nav_type_direct = 13
};

struct vec_nav_struct {
	int type;
	float lat, lon;
	float h;               // metres
	int frq;               // hundredths of a MHz (VHF), kHz (NDB), 0 for markers
	float sqr_range_deg;   // reception limit, squared degrees
	float psi_true;        // for a glide slope: slope*100000 + heading, packed
	char nav_id[5];
	std::string nav_name;
	char inreg;
};

struct vec_fix_struct {
	float lat, lon;
	char fix_name[6];
	char inreg;
};

struct vec_awy_struct {
	float lat[2], lon[2];
	std::string awy_name;
	char lohi;
	char inreg;
};

struct vec_rwy_struct {
	int geo_ind;
	float lat, lon;          // centre
	char num_str[4];         // the first end's number and suffix; "x..." is a taxiway
	float psi_true, len, width;   // degrees, metres, metres
	float disp, blast;       // packed as in the file
	int code;                // lighting
	int surf_tex;
	int shoulder, markings;
	float roughness;
	char dis_left;
};

struct vec_sta_struct {
	float lat, lon, psi;
	std::string sta_name;
};

struct vec_soc_struct {
	float lat, lon;
	char lit;
};

struct vec_apt_struct {
	char inreg;
	int apt_type;            // 1 airport, 16 seaplane base, 17 heliport, 20 heliport on a platform
	char apt_id[5];
	std::string apt_name;
	float h;                 // metres
	char atc_twr, def_bld, twr_vis;
	float twr_lat, twr_lon, twr_hgt;   // tower viewpoint, height in metres
	float bcn_lat, bcn_lon;
	int bcn_typ;
	int int_AWOS, int_unicom, int_clearance, int_ground, int_tower, int_approach, int_departure;
	std::string str_AWOS, str_unicom, str_clearance, str_ground, str_tower, str_approach, str_departure;
	std::vector<vec_rwy_struct> rwy;
	std::vector<vec_sta_struct> sta;
	std::vector<vec_soc_struct> soc;
};

struct vec_rwy_pol_struct { float x, y, z, s, t; };
struct vec_apt_lit_struct { float x, y, z, psi; int type; };

struct vec_rwy_geo_struct {
	std::vector<vec_rwy_pol_struct> vec_rwy_pol;
	std::vector<vec_apt_lit_struct> vec_apt_lit;
};

extern std::vector<vec_nav_struct> vec_nav;
extern std::vector<vec_fix_struct> vec_fix;
extern std::vector<vec_awy_struct> vec_awy;
extern std::vector<vec_apt_struct> vec_apt;
extern std::vector<vec_rwy_geo_struct> vec_rwy_geo;
extern std::unordered_multimap<long, int> nav_hash;   // frequency to index in vec_nav
extern std::map<uint32_t, int> apt_hash;              // apt_id's first four bytes to index in vec_apt

// The loaded block's short lists; the _max values are the last used index, -1 when empty.
constexpr int apt_lcl_dim = 300, vor_lcl_dim = 300, ndb_lcl_dim = 300, fix_lcl_dim = 1200;
extern int apt_lcl_to_wrl[apt_lcl_dim], vor_lcl_to_wrl[vor_lcl_dim], ndb_lcl_to_wrl[ndb_lcl_dim], fix_lcl_to_wrl[fix_lcl_dim];
extern int apt_lcl_max, vor_lcl_max, ndb_lcl_max, fix_lcl_max;

// Degrees to add to a true heading for a magnetic one, about the year 2000: row r is
// latitude -90 + 5r, column c longitude -180 + 5c, column 72 repeating column 0.
extern const float raw_mag_var[37][73];
float ret_mag_var(float lat, float lon);   // bilinear between the four cells around

// The block's menu items, plain lists until the menus exist: airport names, and for each
// local airport its start points and runway ends; VOR and NDB names.
struct nav_menu_lists {
	std::vector<std::string> apt, vor, ndb;
	std::vector<std::vector<std::string>> sta, rwy;
};
extern nav_menu_lists nav_menus;

void MP_make_airports_and_menus(int typeshift);   // inreg, the block lists, the menus, msc.radio_busy_fac
void ret_rwy_end_names(const vec_rwy_struct& r, std::string* near_end, std::string* far_end);
void ret_rwy_overruns(const vec_rwy_struct& r, double* first_m, double* second_m);   // the packed blast pads, metres
int on_runway(const vec_rwy_struct& r, double lat, double lon);   // within its width, its length and its blast pads
int IO_nav(int IO_type);   // 0 read, 1 write, the planet's file; 1 or 0
int IO_fix(int IO_type);
int IO_awy(int IO_type);
void sort_nav_aids();      // by type, then name
int IO_apt(int IO_type, const std::string& path);   // 0 read the planet's file, 1 write, 2 append a package's
void finish_apt();
int get_index_from_id(const std::string& id_req, int type_req, int* index, float lat_des, float lon_des);
uint32_t apt_hash_key(const char* apt_id);
int ret_surf_tex(int surface_index);      // the file's surface index 1..13 to a surface texture
int ret_surf_index(int surf_tex);         // and back
// Frequency rows 50 + k, k 0..6: AWOS, unicom, clearance, ground, tower, approach, departure.
int& ret_apt_frq(vec_apt_struct& a, int k);
std::string& ret_apt_frq_label(vec_apt_struct& a, int k);
inline int ret_apt_frq(const vec_apt_struct& a, int k) { return ret_apt_frq(const_cast<vec_apt_struct&>(a), k); }
inline const std::string& ret_apt_frq_label(const vec_apt_struct& a, int k) { return ret_apt_frq_label(const_cast<vec_apt_struct&>(a), k); }
void get_basic_specs_with_apt_ID();
std::string ret_nav_folder();   // the planet's nav-data folder, ':' separated
