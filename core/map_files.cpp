// Mapped files and the hand-made scanners over them, for the large navigation and
// scenery files: a cursor into the bytes, no stream machinery.
#include "core/files.h"
#include "platform/plat.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>

XMappedFile::XMappedFile(const char* name, unsigned char** begin)
{
	if (name && name[0]) {
		unsigned char* b = retry(name);
		if (begin) *begin = b;
	}
}

XMappedFile::~XMappedFile() { release(); }

void XMappedFile::release()
{
	if (mFile) plat_unmap_file(mBegin, mFileMapping);
	mBegin = mEnd = nullptr;
	mFile = 0;
	mFileMapping = 0;
}

unsigned char* XMappedFile::retry(const char* name)
{
	release();
	std::string p = ret_host_path(name);
	size_t size = 0;
	unsigned char* b = plat_map_file(p.c_str(), &size);
	if (!b) return nullptr;
	if (b == (unsigned char*)-1) {
		NB_ALERT("Xmapped file ran out of memory", "", "", "", alert_fatal);
		return nullptr;
	}
	mBegin = b;
	mEnd = b + size;
	mFile = 1;
	mFileMapping = size;
	return mBegin;
}

unsigned char BIN_MAP_chr_scan(const unsigned char* add, int* c_use, int c_max)
{
	if (*c_use >= c_max) return 0;
	return add[(*c_use)++];
}

// Four bytes, reversed for the other byte order; 0 at the limit, and never a read past it.
template <class T> static T bin_map_4(const unsigned char* add, int* c_use, int c_max)
{
	static_assert(sizeof(T) == 4, "four-byte values");
	unsigned char b[4] = {};
	if (*c_use >= c_max || c_max - *c_use < 4) *c_use = c_max;
	else {
		std::memcpy(b, add + *c_use, 4);
		if (rev_inf_bin) std::reverse(b, b + 4);
		*c_use += 4;
	}
	T v;
	std::memcpy(&v, b, 4);
	return v;
}

int BIN_MAP_int_scan(const unsigned char* add, int* c_use, int c_max) { return bin_map_4<int>(add, c_use, c_max); }
float BIN_MAP_flt_scan(const unsigned char* add, int* c_use, int c_max) { return bin_map_4<float>(add, c_use, c_max); }

int TXT_MAP_eoln(const unsigned char* add, int c) { return add[c] == 0 || add[c] == 13 || add[c] == 10; }

void TXT_MAP_finish_line(const unsigned char* add, int* c_use, int c_max)
{
	while (*c_use < c_max && TXT_MAP_eoln(add, *c_use)) (*c_use)++;
}

static void skip_blanks(const unsigned char* add, int* c_use, int c_max)
{
	while (*c_use < c_max && (add[*c_use] == ' ' || add[*c_use] == '\t')) (*c_use)++;
}

// The fast path of the large files: no checks, a letter in a number gives nonsense, not an error.
float TXT_MAP_flt_scan(const unsigned char* add, int* c_use, int c_max)
{
	skip_blanks(add, c_use, c_max);
	if (*c_use >= c_max) return 0.0f;
	double v = 0.0, sign = 1.0;
	int decimals = 0, point = 0;
	while (*c_use < c_max) {
		unsigned char ch = add[*c_use];
		if (ch == ' ' || ch == 10 || ch == 13) break;
		if (ch == '-') sign = -1.0;
		else if (ch == '+') sign = 1.0;
		else if (ch == '.') point = 1;
		else {
			v = v * 10.0 + (ch - 48);
			if (point) decimals++;
		}
		(*c_use)++;
	}
	if (*c_use >= c_max) return 0.0f;
	(*c_use)++;   // the one terminator
	double r = v * sign;
	for (int k = 0; k < decimals; k++) r /= 10.0;
	return (float)r;
}

int TXT_MAP_int_scan(const unsigned char* add, int* c_use, int c_max)
{
	skip_blanks(add, c_use, c_max);
	long long v = 0;
	int sign = 1;
	while (*c_use < c_max) {
		unsigned char ch = add[*c_use];
		if (ch == ' ' || ch == 10 || ch == 13) { (*c_use)++; break; }
		if (ch == '-') sign = -1;
		else if (ch >= '0' && ch <= '9' && v < 100000000000LL) v = v * 10 + (ch - '0');
		(*c_use)++;
	}
	v *= sign;
	return (int)std::max(std::min(v, 2147483647LL), -2147483647LL);
}

void TXT_MAP_str_scan(const unsigned char* add, int* c_use, int c_max, char* s, int size)
{
	skip_blanks(add, c_use, c_max);
	int n = 0;
	while (*c_use < c_max && !TXT_MAP_eoln(add, *c_use)) {
		if (n < size - 1) s[n++] = (char)add[*c_use];
		(*c_use)++;
	}
	if (size > 0) s[n] = 0;
	TXT_MAP_finish_line(add, c_use, c_max);
}

void TXT_MAP_wrd_scan(const unsigned char* add, int* c_use, int c_max, char* s, int size)
{
	skip_blanks(add, c_use, c_max);
	int n = 0;
	while (*c_use < c_max && add[*c_use] != ' ' && add[*c_use] != 10 && add[*c_use] != 13) {
		if (n < size - 1) s[n++] = (char)add[*c_use];
		(*c_use)++;
	}
	if (size > 0) s[n] = 0;
}

int TXT_MAP_is_end(const unsigned char* add, int c_use, int c_max)
{
	if (c_use >= c_max) return 1;
	return c_max - c_use >= 3 && add[c_use] == '9' && add[c_use + 1] == '9' &&
	       (add[c_use + 2] == 13 || add[c_use + 2] == 10);
}

int MAP_check_file(int ftype, XMappedFile* file, unsigned char* add, int* c_use, int* c_max, const char* req_version_str)
{
	*c_use = *c_max = 0;
	if (!add || !file || !file->mFile) return 0;
	size_t len = (size_t)(file->mEnd - file->mBegin);
	if (len == 0 || len > 0x7fffffff) return 0;
	*c_max = (int)len;
	if (std::strncmp(req_version_str, "NOT NIMBASYS", 12) == 0) return 1;
	if (is_bin_type(ftype)) {
		unsigned char c = BIN_MAP_chr_scan(add, c_use, *c_max);
		if (c != 'a' && c != 'i') return 0;
		rev_inf_bin = c == 'a';
		int v = BIN_MAP_int_scan(add, c_use, *c_max);
		size_t k = std::strlen(req_version_str);
		if (k == 0 || k > 9 || std::strspn(req_version_str, "0123456789") != k) return 0;
		return v == std::atoi(req_version_str);
	}
	if (add[0] != 'A' && add[0] != 'I') return 0;
	char junk[500];
	TXT_MAP_str_scan(add, c_use, *c_max, junk, sizeof junk);
	if (*c_max - *c_use < 3 || std::strlen(req_version_str) < 3 ||
	    std::memcmp(add + *c_use, req_version_str, 3) != 0)
		return 0;
	TXT_MAP_wrd_scan(add, c_use, *c_max, junk, sizeof junk);
	TXT_MAP_str_scan(add, c_use, *c_max, junk, sizeof junk);   // the rest of the version line
	if (ftype == ft_apt) copyright_apt = junk;
	if (ftype == ft_nav) copyright_nav = junk;
	return 1;
}
