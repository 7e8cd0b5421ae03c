// The aircraft as designed: `veh[p]`. Its first part, up to end_of_data, is the
// aircraft file's image, so no field may move, change width or change order. The
// fields come from veh_fields.def, the one table that also drives the byte reversal,
// the readable form and the offset checks below. Loading converts the file's feet,
// pounds and knots to SI in place (m, kg, N, m/s).
#pragma once
#include "aircraft/airfoil.h"
#include "aircraft/wpn_struct.h"
#include "core/HL_LIMITS.h"
#include <cstddef>

template <class T, int a, int b, int c, int d> struct veh_arr { using type = T[a][b][c][d]; };
template <class T, int a, int b, int c> struct veh_arr<T, a, b, c, 0> { using type = T[a][b][c]; };
template <class T, int a, int b> struct veh_arr<T, a, b, 0, 0> { using type = T[a][b]; };
template <class T, int a> struct veh_arr<T, a, 0, 0, 0> { using type = T[a]; };
template <class T> struct veh_arr<T, 0, 0, 0, 0> { using type = T; };

struct veh_struct {
#define VEH_FIELD(t, n, a, b, c, d, u, off) veh_arr<t, a, b, c, d>::type n;
#include "aircraft/veh_fields.def"
#undef VEH_FIELD
};

constexpr int acf_version = 740;
constexpr size_t acf_image_size = 647096;   // bytes of the record stored in the file
constexpr size_t acf_file_size = acf_image_size + 5;

static_assert(sizeof(veh_struct) == 3386576, "the aircraft record's size");
static_assert(offsetof(veh_struct, end_of_data) == acf_image_size, "the stored image ends at end_of_data");
#define VEH_FIELD(t, n, a, b, c, d, u, off) static_assert(offsetof(veh_struct, n) == (off), "offset of " #n);
#include "aircraft/veh_fields.def"
#undef VEH_FIELD

// The table as data, for code that walks the fields.
enum { vf_int = 0, vf_float = 1, vf_char = 2, vf_other = 3 };
struct veh_field_info {
	const char* name;
	int type;          // vf_*
	int dims[4];       // outermost first, 0 where there are none
	const char* unit;  // as the file holds it
	size_t offset;
	size_t size;       // bytes of the whole field
};
extern const veh_field_info veh_fields[];
extern const int veh_field_count;
const veh_field_info* ret_veh_field(const char* name);
