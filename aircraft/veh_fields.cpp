// The field table of the aircraft record as data.
#include "aircraft/veh_struct.h"
#include <cstring>
#include <type_traits>

template <class T> constexpr int vf_type_of()
{
	if (std::is_same_v<T, int>) return vf_int;
	if (std::is_same_v<T, float>) return vf_float;
	if (std::is_same_v<T, char>) return vf_char;
	return vf_other;
}

const veh_field_info veh_fields[] = {
#define VEH_FIELD(t, n, a, b, c, d, u, off) {#n, vf_type_of<t>(), {a, b, c, d}, u, offsetof(veh_struct, n), sizeof(veh_struct::n)},
#include "aircraft/veh_fields.def"
#undef VEH_FIELD
};
const int veh_field_count = sizeof veh_fields / sizeof veh_fields[0];

const veh_field_info* ret_veh_field(const char* name)
{
	for (int n = 0; n < veh_field_count; n++)
		if (!std::strcmp(veh_fields[n].name, name)) return &veh_fields[n];
	return nullptr;
}
