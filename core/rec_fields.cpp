// The global records' field tables, and the one parser of "record[p].field[i][j]".
#include "core/rec_fields.h"
#include "core/flt_fields.h"
#include "core/HL_TYPES.h"
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace {

template <class T> constexpr int rf_type_of()
{
	if (std::is_same_v<T, int>) return ff_int;
	if (std::is_same_v<T, float>) return ff_float;
	if (std::is_same_v<T, double>) return ff_double;
	return ff_char;
}

#define REC_FIELD(rec, t, n, a, b, c, d) {#n, rf_type_of<std::remove_all_extents_t<decltype(rec::n)>>(), {a, b, c, d}, offsetof(rec, n), sizeof(rec::n)},
const rec_field_info stg_fields[] = {
#define STG_FIELD(t, n, a, b, c, d) REC_FIELD(stg_struct, t, n, a, b, c, d)
#include "core/stg_fields.def"
#undef STG_FIELD
};
const rec_field_info env_fields[] = {
#define ENV_FIELD(t, n, a, b, c, d) REC_FIELD(env_struct, t, n, a, b, c, d)
#include "core/env_fields.def"
#undef ENV_FIELD
};
const rec_field_info msc_fields[] = {
#define MSC_FIELD(t, n, a, b, c, d) REC_FIELD(msc_struct, t, n, a, b, c, d)
#include "core/msc_fields.def"
#undef MSC_FIELD
};
const rec_field_info mnw_fields[] = {
#define MNW_FIELD(t, n, a, b, c, d) REC_FIELD(mnw_struct, t, n, a, b, c, d)
#include "core/mnw_fields.def"
#undef MNW_FIELD
};
const rec_field_info nav_fields[] = {
#define NAV_FIELD(t, n, a, b, c, d) REC_FIELD(nav_struct, t, n, a, b, c, d)
#include "cockpit/nav_fields.def"
#undef NAV_FIELD
};
#undef REC_FIELD
template <size_t N> constexpr int count_of(const rec_field_info (&)[N]) { return (int)N; }

void* record_base(const char* rec, int p)
{
	if (!std::strcmp(rec, "stg")) return &stg;
	if (!std::strcmp(rec, "env")) return &env;
	if (!std::strcmp(rec, "msc")) return &msc;
	if (!std::strcmp(rec, "mnw")) return &mnw;
	if (!std::strcmp(rec, "nav")) return &nav;
	if (!std::strcmp(rec, "veh")) return &veh[p];
	return nullptr;
}

}  // namespace

const rec_table rec_tables[] = {
    {"stg", stg_fields, count_of(stg_fields), sizeof(stg_struct)}, {"env", env_fields, count_of(env_fields), sizeof(env_struct)},
    {"msc", msc_fields, count_of(msc_fields), sizeof(msc_struct)}, {"mnw", mnw_fields, count_of(mnw_fields), sizeof(mnw_struct)},
    {"nav", nav_fields, count_of(nav_fields), sizeof(nav_struct)}};
const int rec_table_count = sizeof rec_tables / sizeof rec_tables[0];

const void* ret_rec_address(const std::string& spec, int* type)
{
	const size_t dot = spec.find('.');
	if (dot == std::string::npos) return ret_flt_address(0, spec.c_str(), type);
	std::string rec = spec.substr(0, dot);
	const std::string field = spec.substr(dot + 1);
	int p = 0;
	const size_t br = rec.find('[');
	if (br != std::string::npos) {   // which aircraft: flt[p], veh[p]
		char* end;
		const long v = std::strtol(rec.c_str() + br + 1, &end, 10);
		if (*end != ']' || end[1] || end == rec.c_str() + br + 1 || v < 0 || v >= acf_max) return nullptr;
		p = (int)v;
		rec = rec.substr(0, br);
		if (rec != "flt" && rec != "veh") return nullptr;
	}
	if (rec == "flt") return ret_flt_address(p, field.c_str(), type);
	const size_t fb = field.find('[');
	const std::string name = field.substr(0, fb);
	size_t offset = 0;
	int dims[4] = {0, 0, 0, 0};
	if (rec == "veh") {
		const veh_field_info* vf = ret_veh_field(name.c_str());
		if (!vf) return nullptr;
		if (vf->type == vf_other) return nullptr;
		offset = vf->offset;
		for (int k = 0; k < 4; k++) dims[k] = vf->dims[k];
		*type = vf->type == vf_int ? ff_int : vf->type == vf_float ? ff_float : ff_char;
	} else {
		const rec_table* t = nullptr;
		for (int k = 0; k < rec_table_count; k++)
			if (rec == rec_tables[k].record) t = &rec_tables[k];
		if (!t) return nullptr;
		const rec_field_info* f = nullptr;
		for (int k = 0; k < t->count; k++)
			if (name == t->fields[k].name) f = &t->fields[k];
		if (!f) return nullptr;
		offset = f->offset;
		for (int k = 0; k < 4; k++) dims[k] = f->dims[k];
		*type = f->type;
	}
	size_t flat = 0;   // the indices, each within its dimension, all given
	size_t at = fb;
	int k = 0;
	while (at != std::string::npos && at < field.size()) {
		if (field[at] != '[' || k >= 4 || !dims[k]) return nullptr;
		const size_t close = field.find(']', at);
		if (close == std::string::npos) return nullptr;
		char* end;
		const long i = std::strtol(field.c_str() + at + 1, &end, 10);
		if (end != field.c_str() + close || end == field.c_str() + at + 1 || i < 0 || i >= dims[k]) return nullptr;
		flat = flat * dims[k] + (size_t)i;
		k++;
		at = close + 1;
	}
	if (k < 4 && dims[k]) return nullptr;
	static const size_t unit[4] = {4, 4, 8, 1};
	return (const char*)record_base(rec.c_str(), p) + offset + flat * unit[*type];
}
