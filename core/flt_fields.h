// The flight record's fields by name.
#pragma once
#include <cstddef>

enum { ff_int = 0, ff_float = 1, ff_double = 2, ff_char = 3 };
struct flt_field_info {
	const char* name;
	int type;
	int dims[3];
	size_t offset, size;
};
extern const flt_field_info flt_fields[];
extern const int flt_field_count;
const flt_field_info* ret_flt_field(const char* name);
// Where "name" or "name[i]..." lies in aircraft p's record: its address and type; nullptr when no such field.
const void* ret_flt_address(int p, const char* spec, int* type);
// The value of "name" or "name[i]..." of aircraft p as a double; 0 and *ok 0 when there is no such field.
double ret_flt_value(int p, const char* spec, int* ok);
