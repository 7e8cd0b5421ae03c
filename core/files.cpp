// File services: host paths, versioned headers, scanners over streams and mapped
// files. Every reader of the system is a thin layer over these.
#include "core/files.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "platform/plat.h"
#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>

std::ifstream inf[2];
int inf_use = 0;
int inf_is_bin[2];
int rev_inf_bin = 0;
int extra_char_eoln = 0;
std::ofstream ouf;
int ouf_is_bin = 0;
char C_s[500];
std::string copyright_apt, copyright_nav;

void str_to_buf(char* dst, const std::string& src)
{
	if (src.size() >= 500) {
		NB_ALERT("String too long!", "I can not repeat this entire string or I will overflow the alert procedure!",
		         "Here is the first part of the string, though:", src.substr(0, 200), alert_fatal);
		return;
	}
	std::memcpy(dst, src.c_str(), src.size() + 1);
}

void set_dir_chars(std::string& path)
{
	if (path.size() >= 500) str_to_buf(C_s, path);   // raises the alert
	for (char& ch : path)
		if (ch == ':' || ch == '\\') ch = '/';
}

// The data names mix cases: when the exact path is missing, each missing component
// is looked up without regard to case in the folder above it.
std::string ret_host_path(const std::string& path)
{
	std::string p = path;
	set_dir_chars(p);
	namespace fs = std::filesystem;
	std::error_code ec;
	if (p.empty() || fs::exists(p, ec)) return p;
	std::string built = p[0] == '/' ? "/" : "";
	size_t pos = p[0] == '/' ? 1 : 0;
	while (pos <= p.size()) {
		size_t next = p.find('/', pos);
		std::string part = p.substr(pos, next == std::string::npos ? std::string::npos : next - pos);
		pos = next == std::string::npos ? p.size() + 1 : next + 1;
		if (part.empty()) continue;
		std::string exact = built + part;
		if (!fs::exists(exact, ec)) {
			std::string found;
			for (const auto& e : fs::directory_iterator(built.empty() ? "." : built, ec)) {
				std::string name = e.path().filename().string();
				if (name.size() == part.size() &&
				    std::equal(name.begin(), name.end(), part.begin(),
				               [](char a, char b) { return std::tolower((unsigned char)a) == std::tolower((unsigned char)b); })) {
					found = name;
					break;
				}
			}
			if (found.empty()) return p;   // not there in any case: the exact path, for the caller to fail on
			exact = built + found;
		}
		built = exact + (next == std::string::npos ? "" : "/");
	}
	return built;
}

int is_bin_type(int ftype)
{
	return ftype == 3 || ftype == 4 || ftype == 11 || ftype == 12 || ftype == 13 || ftype == 16 || ftype == 17 || ftype == 21;
}

std::string set_ext(const std::string& name, int ftype)
{
	static const char* ext[24] = {"", "", ".AFL", ".WPN", ".ACF", ".OBJ", ".SIT", ".SMO", ".TXT", ".FMS", ".GAM", ".TRA",
	                              ".CAR", ".SPA", ".REG", ".WAV", ".BMP", ".BMP", "", "", "", "", "", ""};
	std::string s = name;
	if (s.size() > 4) {
		s.resize(s.size() - 4);
		if (ftype >= 0 && ftype < 24) s += ext[ftype];
	}
	return s;
}

int eoln(int c)
{
	std::ifstream& in = inf[inf_use];
	return c == 13 || c == 10 || !in.good();
}

int eowd(int c)
{
	std::ifstream& in = inf[inf_use];
	return c == 13 || c == 10 || c == 9 || c == 32 || c == 44 || !in.good();
}

int check_scan(const char* what)
{
	std::ifstream& in = inf[inf_use];
	if (!in.fail()) return 1;
	if (std::strcmp(what, "prefs") == 0 || std::strcmp(what, "checklist") == 0) {
		in.close();
		return 0;
	}
	NB_ALERT("File-scanning error!", "", "file:", what, alert_fatal);
	return 0;
}

template <class T> static T bin_read(std::ifstream& in)
{
	unsigned char b[sizeof(T)] = {};
	in.read((char*)b, sizeof(T));
	if (rev_inf_bin) std::reverse(b, b + sizeof(T));
	T v;
	std::memcpy(&v, b, sizeof(T));
	return v;
}

// A number: raw bytes from a binary stream, formatted extraction from a text one.
template <class T> static T scan_value(const char* what)
{
	std::ifstream& in = inf[inf_use];
	T v = 0;
	if (inf_is_bin[inf_use]) v = bin_read<T>(in);
	else in >> v;
	check_scan(what);
	return v;
}

int int_scan(const char* what) { return scan_value<int>(what); }
unsigned uin_scan(const char* what) { return scan_value<unsigned>(what); }
float flt_scan(const char* what) { return scan_value<float>(what); }
double dob_scan(const char* what) { return scan_value<double>(what); }

char chr_scan(const char* what)
{
	std::ifstream& in = inf[inf_use];
	char c = 0;
	if (inf_is_bin[inf_use]) in.get(c);
	else in >> c;
	check_scan(what);
	return c;
}

int str_scan(char* s, int size, int stop_at_comma)
{
	std::ifstream& in = inf[inf_use];
	if (size <= 0) return 0;
	if (inf_is_bin[inf_use]) {
		in.read(s, size);
		if (in.gcount() < size) std::memset(s + in.gcount(), 0, size - in.gcount());
		return 0;
	}
	int n = 0, last = -1, stop = 0;
	for (;;) {
		int c = in.get();
		if (c == EOF) break;
		if (last < 0 && (c == ' ' || c == '\t')) continue;   // leading blanks are dropped
		int pos = n < size - 1 ? n++ : size - 1;              // a long string keeps overwriting the last place
		s[pos] = (char)c;
		last = pos;
		if (c == 13 || c == 10) { stop = 1; break; }
		if (stop_at_comma && c == ',') { stop = 2; break; }
	}
	// The zero goes where the stopping character was stored, which drops it.
	s[stop ? last : n] = 0;
	if (extra_char_eoln) in.get();
	return stop == 2;
}

int wrd_scan(char* s, int size, int exact)
{
	std::ifstream& in = inf[inf_use];
	int n = 0, c = in.get();
	while (c != EOF && eowd(c)) c = in.get();
	if (exact) {
		while (c != EOF && n < size) {
			if (!eowd(c)) s[n++] = (char)c;
			if (n < size) c = in.get();
		}
	} else {
		while (c != EOF && !eowd(c)) {
			if (n < size - 1) s[n++] = (char)c;
			c = in.get();
		}
	}
	if (size > 0) s[exact ? n : std::min(n, size - 1)] = 0;
	return in.good() ? 1 : 0;
}

void lin_scan(const char* what)
{
	std::ifstream& in = inf[inf_use];
	int c;
	do c = in.get(); while (c != EOF && c != 10 && c != 13);
	if (c == 13 && in.peek() == 10) in.get();
	check_scan(what);
}

int inf_open(const std::string& path, int ftype, int version, int alert_bad_version)
{
	std::string p = ret_host_path(path);
	std::ifstream& in = inf[inf_use];
	in.clear();
	in.close();
	in.clear();
	int bin = is_bin_type(ftype);
	in.open(p, bin ? std::ios::in | std::ios::binary : std::ios::in);
	inf_is_bin[inf_use] = bin;
	if (in.fail()) return 0;
	int c = in.get();
	if (bin) {
		if (c != 'a' && c != 'i') return 0;
		rev_inf_bin = c == 'a';
	} else {
		if (c != 'A' && c != 'I') return 0;
		int c2 = in.get();   // the rest of the first line
		if (c2 == 13 && in.peek() == 10) in.get();
	}
	extra_char_eoln = 0;
	if (version > 0) {
		int v = 0;
		if (bin) v = bin_read<int>(in);
		else in >> v;
		if (in.fail()) return 0;
		if (v != version) {
			if (alert_bad_version)
				NB_ALERT("The following file is the wrong version for this version of Nimbara:", path, "Throw that file away.",
				         "You may have to re-install Nimbara from the CD into a new folder, and throw away this folder, if you cannot update or delete this file.",
				         alert_fatal);
			return 0;
		}
		if (!bin) str_scan(C_s, 500, 0);
	}
	return in.fail() ? 0 : 1;
}

int ouf_open(const std::string& path, int ftype, int version)
{
	std::string p = path;
	set_dir_chars(p);
	if (p.size() > 3)   // extensions are always written in lower case
		for (size_t n = p.size() - 3; n < p.size(); n++) p[n] = (char)std::tolower((unsigned char)p[n]);
	ouf.clear();
	ouf.close();
	ouf.clear();
	int bin = is_bin_type(ftype);
	if (bin) {
		ouf.open(p, std::ios::out | std::ios::binary | std::ios::trunc);
		ouf_is_bin = 1;
		unsigned char hdr[5] = {'i', (unsigned char)(version & 255), (unsigned char)((version >> 8) & 255),
		                        (unsigned char)((version >> 16) & 255), (unsigned char)((version >> 24) & 255)};
		ouf.write((const char*)hdr, 5);
	} else {
		ouf.open(p, std::ios::out | std::ios::trunc);
		ouf_is_bin = 0;
		ouf.setf(std::ios::fixed, std::ios::floatfield);
		ouf << "I\n" << version << " ";
		if (ftype == ft_apt) ouf << copyright_apt << "\n";
		else if (ftype == ft_nav) ouf << copyright_nav << "\n";
		else ouf << "version\n";
	}
	if (ouf.fail()) {
		MACIBM_alert(0, "I could not save the file! Could the directory that the file sits in be missing?", path,
		             "Could the file be flagged as read-only? This happens in Windows if you copy it from a CD!",
		             "Try putting this stg.in the background and then flag the file as NOT read-only, or creating the folder listed in the path above.",
		             alert_notice, __FILE__, __LINE__);
		return 0;
	}
	return 1;
}

int ouf_close_text_data()
{
	ouf << "99\n";
	ouf.close();
	return !ouf.fail();
}
