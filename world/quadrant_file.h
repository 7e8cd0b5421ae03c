// The quadrant file: one whole degree square of terrain, its objects, its linear
// features and its textures. One module writes and reads it: the generator writes with
// write_quadrant, the block reads through the cursor calls, in place in a mapped file.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

constexpr int quad_file_type = 17;   // binary, with the versioned header of the mapped files

// One vertex as it lies in the file: ten bytes, no padding.
#pragma pack(push, 1)
struct quad_vertex_rec {
	int32_t pos_code;       // file byte order
	uint8_t elev_be[2];     // metres + 10000, big-endian in every file
	int32_t land_code;      // file byte order
};
#pragma pack(pop)
static_assert(sizeof(quad_vertex_rec) == 10, "a vertex is ten bytes");
static_assert(offsetof(quad_vertex_rec, elev_be) == 4 && offsetof(quad_vertex_rec, land_code) == 6, "vertex layout");

constexpr int quad_name_len = 150;   // object and texture names, NUL-padded
constexpr int quad_max_textures = 500;
constexpr int quad_obj_end = 99, quad_list_end = 99;

// "+30-130\+37-122.env": the ten-degree folder, a back-slash, the square's own name.
std::string return_latlon_str_ENV(int lat_file, int lon_file);
int quad_num_lists(int version);   // 61: four, 631: five, 650: six

// Position codes: lat part * 10000 + lon part, each 0..9999 across the square. A negative
// code (a chain's last point) decodes by its size.
int lat_lon_to_code(double lat, double lon, int lat_file, int lon_file);
void code_to_lat_lon(int code, int lat_file, int lon_file, double* lat, double* lon);

// Land codes: the digits I J T R, then five of land use.
struct land_code_parts { int I, J, T, R, use; };
int make_land_code(const land_code_parts& p);
land_code_parts split_land_code(int code);

struct quad_vertex { int pos_code; int elev_m; int land_code; };
struct quad_object { int type; float lat, lon, psi_dy; std::string name; };
struct quad_point { int code; float lat, lon; char tag; };   // code for most lists; lat, lon, tag for taxiways
enum { quad_roads, quad_trails, quad_rails, quad_power, quad_taxis, quad_river };

struct quadrant_data {
	int version = 650;
	int imax = 150, jmax = 200;          // grid steps across the square
	std::vector<quad_vertex> vertices;   // rows south to north, each west to east
	std::vector<quad_object> objects;
	std::vector<quad_point> lists[6];    // each list's points; chain ends marked, no list end
	std::vector<std::string> textures;
};

int write_quadrant(const std::string& host_path, const quadrant_data& q);   // 1 when written

// Reading in place. Each call returns 1 for a record, 0 at its section's end marker and
// -1 when the file ends first.
struct quad_cursor {
	const unsigned char* add;
	int c_use, c_max;
};
int quad_read_vertex(quad_cursor& c, quad_vertex* v);
int quad_read_object(quad_cursor& c, quad_object* o);
int quad_read_point(quad_cursor& c, int taxiway, quad_point* p);
int quad_read_texture(quad_cursor& c, char name[quad_name_len + 1]);

// The whole file into memory, for the tools and the tests: 1, or 0 with why. A Mars
// square (64 by 64 steps) is told from an Earth one by its second vertex's place.
int read_quadrant(const std::string& path, quadrant_data* q, std::string* why);
