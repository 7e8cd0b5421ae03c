// The flight record's fields by name, for tools and data output.
#include "core/flt_fields.h"
#include "core/HL_TYPES.h"
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

template <class T> constexpr int ff_type_of()
{
	if (std::is_same_v<T, int>) return ff_int;
	if (std::is_same_v<T, float>) return ff_float;
	if (std::is_same_v<T, double>) return ff_double;
	return ff_char;
}

const flt_field_info flt_fields[] = {
#define FLT_FIELD(t, n, a, b, c) {#n, ff_type_of<t>(), {a, b, c}, offsetof(flt_struct, n), sizeof(flt_struct::n)},
#include "core/flt_fields.def"
#undef FLT_FIELD
};
const int flt_field_count = sizeof flt_fields / sizeof flt_fields[0];

const flt_field_info* ret_flt_field(const char* name)
{
	for (int n = 0; n < flt_field_count; n++)
		if (!std::strcmp(flt_fields[n].name, name)) return &flt_fields[n];
	return nullptr;
}

const void* ret_flt_address(int p, const char* spec, int* type)
{
	if (p < 0 || p >= acf_max) return nullptr;
	std::string s = spec;
	size_t br = s.find('[');
	const flt_field_info* f = ret_flt_field(s.substr(0, br).c_str());
	if (!f) return nullptr;
	size_t flat = 0;
	int k = 0;
	while (br != std::string::npos) {
		size_t close = s.find(']', br);
		if (close == std::string::npos || k >= 3 || !f->dims[k]) return nullptr;
		char* end;
		long i = std::strtol(s.c_str() + br + 1, &end, 10);
		if (end != s.c_str() + close || i < 0 || i >= f->dims[k]) return nullptr;
		flat = flat * f->dims[k] + (size_t)i;
		k++;
		br = close + 1 < s.size() ? (s[close + 1] == '[' ? close + 1 : std::string::npos) : std::string::npos;
		if (br == std::string::npos && close + 1 != s.size()) return nullptr;
	}
	if (k < 3 && f->dims[k]) return nullptr;   // every dimension needs its index
	static const size_t unit[4] = {4, 4, 8, 1};
	*type = f->type;
	return (const char*)&flt[p] + f->offset + flat * unit[f->type];
}

double ret_flt_value(int p, const char* spec, int* ok)
{
	int type = 0;
	const char* base = (const char*)ret_flt_address(p, spec, &type);
	*ok = base != nullptr;
	if (!base) return 0.0;
	switch (type) {
	case ff_int: { int v; std::memcpy(&v, base, 4); return v; }
	case ff_float: { float v; std::memcpy(&v, base, 4); return v; }
	case ff_double: { double v; std::memcpy(&v, base, 8); return v; }
	default: return (double)(unsigned char)*base;
	}
}
