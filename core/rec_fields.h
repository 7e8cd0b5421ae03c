// Fields of the global records by name, for tools, data output and plug-ins that address
// them as text: "stg.tow_waiting", "mnw.axis[2]", "env.surf_tex", "veh.gear_znodef[67]",
// "flt[1].dob_y"; a bare name is aircraft 0's flight record.
#pragma once
#include <cstddef>
#include <string>

struct rec_field_info {
	const char* name;
	int type;        // ff_int, ff_float, ff_double, ff_char
	int dims[4];     // outermost first, 0 where there are none
	size_t offset, size;
};
struct rec_table {
	const char* record;
	const rec_field_info* fields;
	int count;
	size_t record_size;
};
extern const rec_table rec_tables[];
extern const int rec_table_count;

// Where the field lies and its type; nullptr when there is no such record, field or index.
const void* ret_rec_address(const std::string& spec, int* type);
