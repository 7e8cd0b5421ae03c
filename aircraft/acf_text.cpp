// Readable aircraft records, walked field by field from the record's own table, so
// that the text can never disagree with the binary layout.
#include "aircraft/acf_text.h"
#include <cctype>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <ostream>
#include <sstream>

static veh_struct text_scratch;

static int dim_count(const veh_field_info& f)
{
	int n = 0;
	while (n < 4 && f.dims[n]) n++;
	return n;
}

static std::string quote(const char* s, int len)
{
	int end = len;
	while (end > 0 && s[end - 1] == 0) end--;   // trailing zeros are the unset rest
	std::string q = "\"";
	for (int k = 0; k < end; k++) {
		unsigned char ch = (unsigned char)s[k];
		if (ch == '"' || ch == '\\') { q += '\\'; q += (char)ch; }
		else if (ch < 32 || ch >= 127) {
			char hex[8];
			std::snprintf(hex, sizeof hex, "\\x%02X", ch);
			q += hex;
		} else q += (char)ch;
	}
	return q + "\"";
}

static std::string float_text(float v)
{
	char buf[32];
	if (!std::isfinite(v)) {   // not a number in decimal: its bits
		unsigned bits;
		std::memcpy(&bits, &v, 4);
		std::snprintf(buf, sizeof buf, "0x%08X", bits);
	} else std::snprintf(buf, sizeof buf, "%.9g", v);   // nine digits read back to the same bits
	return buf;
}

void acf_write_text(const veh_struct& v, std::ostream& out)
{
	out << "# Nimbara aircraft, version " << acf_version << ", readable form.\n"
	    << "# Units as the file holds them: feet, pounds, knots, degrees. Unset fields are zero,\n"
	    << "# instrument slots empty (-1).\n";
	const char* base = (const char*)&v;
	for (int f = 0; f < veh_field_count; f++) {
		const veh_field_info& fi = veh_fields[f];
		if (fi.offset >= acf_image_size) break;
		const int nd = dim_count(fi);
		int unit_said = 0;
		auto line_start = [&](const int* idx, int n) {
			if (!unit_said && fi.unit[0]) { out << "# " << fi.name << ": " << fi.unit << "\n"; unit_said = 1; }
			out << fi.name;
			for (int k = 0; k < n; k++) out << "[" << idx[k] << "]";
			out << " ";
		};
		if (fi.type == vf_char && nd > 0) {
			const int len = fi.dims[nd - 1];
			const int count = (int)fi.size / len;
			for (int s = 0; s < count; s++) {
				const char* str = base + fi.offset + (size_t)s * len;
				int any = 0;
				for (int k = 0; k < len; k++) any |= str[k];
				if (!any) continue;
				int idx[4], r = s;
				for (int k = nd - 2; k >= 0; k--) { idx[k] = r % fi.dims[k]; r /= fi.dims[k]; }
				line_start(idx, nd - 1);
				out << quote(str, len) << "\n";
			}
			continue;
		}
		const int unit = fi.type == vf_char ? 1 : 4;
		const int count = (int)fi.size / unit;
		const bool empty_slots = std::strcmp(fi.name, "ins_type") == 0;   // unset is -1 there: 0 is the tail number
		for (int e = 0; e < count; e++) {
			const char* p = base + fi.offset + (size_t)e * unit;
			int idx[4], r = e;
			for (int k = nd - 1; k >= 0; k--) { idx[k] = r % fi.dims[k]; r /= fi.dims[k]; }
			if (fi.type == vf_char) {
				if (!*p) continue;
				line_start(idx, nd);
				out << (int)(unsigned char)*p << "\n";
			} else if (fi.type == vf_int) {
				int iv;
				std::memcpy(&iv, p, 4);
				if (iv == (empty_slots ? -1 : 0)) continue;
				line_start(idx, nd);
				out << iv << "\n";
			} else {
				unsigned bits;
				std::memcpy(&bits, p, 4);
				if (!bits) continue;   // -0.0 is not unset: its sign bit is kept
				float fv;
				std::memcpy(&fv, p, 4);
				line_start(idx, nd);
				out << float_text(fv) << "\n";
			}
		}
	}
}

static int parse_string(const std::string& s, size_t pos, std::string& val, std::string& why)
{
	if (pos >= s.size() || s[pos] != '"') { why = "expected text in double quotes"; return 0; }
	pos++;
	val.clear();
	while (pos < s.size() && s[pos] != '"') {
		char ch = s[pos++];
		if (ch == '\\') {
			if (pos >= s.size()) break;
			char e = s[pos++];
			if (e == '"' || e == '\\') val += e;
			else if (e == 'x' && pos + 2 <= s.size() && std::isxdigit((unsigned char)s[pos]) && std::isxdigit((unsigned char)s[pos + 1])) {
				val += (char)std::strtol(s.substr(pos, 2).c_str(), nullptr, 16);
				pos += 2;
			} else { why = "unknown escape in the text"; return 0; }
		} else val += ch;
	}
	if (pos >= s.size()) { why = "the text has no closing quote"; return 0; }
	pos++;
	while (pos < s.size() && (s[pos] == ' ' || s[pos] == '\t' || s[pos] == '\r')) pos++;
	if (pos != s.size()) { why = "something follows the text"; return 0; }
	return 1;
}

int acf_read_text(std::istream& in, const char* fname, veh_struct& v, std::string& err)
{
	std::memset(&text_scratch, 0, sizeof text_scratch);
	for (int& t : text_scratch.ins_type) t = -1;   // a slot the text leaves out is empty, not the tail number (0)
	char* base = (char*)&text_scratch;
	std::string line;
	int line_no = 0;
	auto fail = [&](const std::string& why) {
		err = std::string(fname) + ":" + std::to_string(line_no) + ": " + why;
		return 0;
	};
	while (std::getline(in, line)) {
		line_no++;
		size_t p = line.find_first_not_of(" \t\r");
		if (p == std::string::npos || line[p] == '#') continue;
		size_t q = p;
		while (q < line.size() && (std::isalnum((unsigned char)line[q]) || line[q] == '_')) q++;
		std::string name = line.substr(p, q - p);
		const veh_field_info* fi = ret_veh_field(name.c_str());
		if (!fi) return fail("unknown field '" + name + "'");
		if (fi->offset >= acf_image_size) return fail("'" + name + "' is built at load and not stored");
		const int nd = dim_count(*fi);
		const int string_field = fi->type == vf_char && nd > 0;
		const int want = string_field ? nd - 1 : nd;
		int idx[4] = {0, 0, 0, 0}, got = 0;
		while (q < line.size() && line[q] == '[') {
			size_t close = line.find(']', q);
			if (close == std::string::npos) return fail("an index has no closing ']'");
			std::string num = line.substr(q + 1, close - q - 1);
			char* end;
			errno = 0;
			long k = std::strtol(num.c_str(), &end, 10);
			if (num.empty() || *end || errno) return fail("bad index '" + num + "'");
			if (got >= want) return fail("'" + name + "' takes " + std::to_string(want) + " index(es)");
			if (k < 0 || k >= fi->dims[got]) return fail("index " + num + " of '" + name + "' is outside 0.." + std::to_string(fi->dims[got] - 1));
			idx[got++] = (int)k;
			q = close + 1;
		}
		if (got != want) return fail("'" + name + "' takes " + std::to_string(want) + " index(es)");
		size_t vpos = line.find_first_not_of(" \t", q);
		if (vpos == q && q < line.size()) return fail("expected a blank after the name");
		if (vpos == std::string::npos) return fail("no value for '" + name + "'");
		size_t flat = 0;
		for (int k = 0; k < want; k++) flat = flat * fi->dims[k] + idx[k];
		if (string_field) {
			const int len = fi->dims[nd - 1];
			std::string val, why;
			if (!parse_string(line, vpos, val, why)) return fail(why);
			if ((int)val.size() > len) return fail("text longer than " + std::to_string(len) + " bytes");
			char* dst = base + fi->offset + flat * len;
			std::memset(dst, 0, len);
			std::memcpy(dst, val.data(), val.size());
			continue;
		}
		std::string val = line.substr(vpos);
		while (!val.empty() && (val.back() == ' ' || val.back() == '\t' || val.back() == '\r')) val.pop_back();
		char* end;
		errno = 0;
		if (fi->type == vf_float) {
			float fv;
			if (val.size() == 10 && val[0] == '0' && (val[1] == 'x' || val[1] == 'X')) {
				unsigned long bits = std::strtoul(val.c_str() + 2, &end, 16);
				if (*end) return fail("bad number '" + val + "'");
				unsigned b32 = (unsigned)bits;
				std::memcpy(&fv, &b32, 4);
			} else {
				fv = std::strtof(val.c_str(), &end);
				if (val.empty() || *end || !std::isfinite(fv)) return fail("bad number '" + val + "'");
			}
			std::memcpy(base + fi->offset + flat * 4, &fv, 4);
		} else {
			long long iv = std::strtoll(val.c_str(), &end, 10);
			if (val.empty() || *end || errno) return fail("bad number '" + val + "'");
			if (fi->type == vf_char) {
				if (iv < 0 || iv > 255) return fail("'" + name + "' takes 0..255");
				base[fi->offset + flat] = (char)iv;
			} else {
				if (iv < INT_MIN || iv > INT_MAX) return fail("'" + val + "' is outside the range of an int");
				int i32 = (int)iv;
				std::memcpy(base + fi->offset + flat * 4, &i32, 4);
			}
		}
	}
	std::memcpy(&v, &text_scratch, sizeof v);
	return 1;
}
