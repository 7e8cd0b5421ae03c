#include "render/glyph_tables.h"
#include <cstring>

namespace {

const charset_spec specs[4] = {
	{468, 0, 0, 8, 11, 0, 21},      // 100 proportional
	{468, 168, 0, 8, 11, 6, 21},    // 101 mono, narrow
	{468, 168, 0, 8, 11, 10, 21},   // 102 mono, wide
	{469, 0, 0, 13, 13, 15, 40},    // 103 a language's double-byte sheet
};

const char* const punctuation = "!@#$%^&*()-_+=[]|\\':;<.>,?/`";

}  // namespace

const charset_spec* charset_of(int charset)
{
	return charset >= 100 && charset <= 103 ? &specs[charset - 100] : nullptr;
}

int glyph_index(unsigned char c)
{
	if (c == ' ') return 0;
	if (c >= '0' && c <= '9') return 1 + (c - '0');
	if (c >= 'A' && c <= 'Z') return 11 + 2 * (c - 'A');
	if (c >= 'a' && c <= 'z') return 12 + 2 * (c - 'a');
	if (c == 0) return -1;
	const char* p = std::strchr(punctuation, c);
	return p ? 63 + (int)(p - punctuation) : -1;
}

int glyph_advance(unsigned char c)
{
	static const struct { int adv; const char* chars; } table[] = {
		{2, ",."},
		{3, "!':;I`il"},
		{4, " ()*[]frt|"},
		{5, "$/?EFJLScjks"},
		{6, "+-0123456789=BKPRZ\\^_abdeghnopquvxyz"},
		{7, "<>ACDGHNTUVXY"},
		{8, "#%&OQmw"},
		{9, "@MW"},
	};
	if (c == 0) return 0;
	for (const auto& row : table)
		if (std::strchr(row.chars, c)) return row.adv;
	return 0;
}
