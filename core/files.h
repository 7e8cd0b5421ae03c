// File and error services: ':' paths turned into host paths (with a case-insensitive
// fallback), the versioned headers, the value scanners over a stream and over a
// mapped file, and the alert, the one way to tell the user something.
#pragma once
#include <exception>
#include <fstream>
#include <string>

// File-type codes: they pick binary or text handling and the extension set_ext gives.
enum {
	ft_none = 0, ft_afl = 2, ft_wpn = 3, ft_acf = 4, ft_obj = 5, ft_sit = 6, ft_smo = 7, ft_txt = 8,
	ft_fms = 9, ft_gam = 10, ft_tra = 11, ft_car = 12, ft_spa = 13, ft_reg = 14, ft_wav = 15,
	ft_bmp = 16, ft_bmp2 = 17, ft_fdr = 20, ft_prf = 21, ft_apt = 22, ft_nav = 23
};

// Alert types.
enum { alert_lang = 13, alert_sys_notice = 14, alert_credits = 15, alert_notice = 16, alert_fatal = 17 };

extern std::ifstream inf[2];
extern int inf_use;
extern int inf_is_bin[2];
extern int rev_inf_bin;
extern int extra_char_eoln;
extern std::ofstream ouf;
extern int ouf_is_bin;
extern char C_s[500];
extern std::string copyright_apt, copyright_nav;

// Paths.
void set_dir_chars(std::string& path);          // ':' and '\' become '/'
std::string ret_host_path(const std::string& path);   // set_dir_chars, then a case-insensitive match when the exact name is missing
std::string set_ext(const std::string& name, int ftype);
int is_bin_type(int ftype);
void str_to_buf(char* dst, const std::string& src);   // into a char[500]; a longer string is a fatal alert

// Streams.
int inf_open(const std::string& path, int ftype, int version, int alert_bad_version);
int ouf_open(const std::string& path, int ftype, int version);
int ouf_close_text_data();   // the "99" end line, then closes; 1 when all was written
int int_scan(const char* what);
unsigned uin_scan(const char* what);
float flt_scan(const char* what);
double dob_scan(const char* what);
char chr_scan(const char* what);
int check_scan(const char* what);
int str_scan(char* s, int size, int stop_at_comma);
int wrd_scan(char* s, int size, int exact);
void lin_scan(const char* what);
int eoln(int c);
int eowd(int c);

// A read-only view of a whole file.
class XMappedFile {
public:
	unsigned char* mBegin = nullptr;
	unsigned char* mEnd = nullptr;
	int mFile = 0;          // 1 while a file is held
	size_t mFileMapping = 0;   // bytes mapped
	XMappedFile(const char* name, unsigned char** begin);
	~XMappedFile();
	XMappedFile(const XMappedFile&) = delete;
	XMappedFile& operator=(const XMappedFile&) = delete;
	unsigned char* retry(const char* name);
	void release();
};

int MAP_check_file(int ftype, XMappedFile* file, unsigned char* add, int* c_use, int* c_max, const char* req_version_str);
unsigned char BIN_MAP_chr_scan(const unsigned char* add, int* c_use, int c_max);
int BIN_MAP_int_scan(const unsigned char* add, int* c_use, int c_max);
float BIN_MAP_flt_scan(const unsigned char* add, int* c_use, int c_max);
int TXT_MAP_eoln(const unsigned char* add, int c);
void TXT_MAP_finish_line(const unsigned char* add, int* c_use, int c_max);
float TXT_MAP_flt_scan(const unsigned char* add, int* c_use, int c_max);
int TXT_MAP_int_scan(const unsigned char* add, int* c_use, int c_max);
void TXT_MAP_str_scan(const unsigned char* add, int* c_use, int c_max, char* s, int size);   // rest of the line
void TXT_MAP_wrd_scan(const unsigned char* add, int* c_use, int c_max, char* s, int size);
int TXT_MAP_is_end(const unsigned char* add, int c_use, int c_max);   // at a "99" line or the end

// The exception that carries a fatal condition to the top of the program.
class XException : public std::exception {
public:
	std::string c1_, c2_, c3_, c4_;
	const char* file_ = "no exception";
	int line_ = 0;
	XException() = default;
	XException(const std::string& a, const std::string& b, const std::string& c, const std::string& d,
	           const char* file, int line)
		: c1_(a), c2_(b), c3_(c), c4_(d), file_(file), line_(line) {}
	const char* what() const noexcept override { return c1_.c_str(); }
	void ReportAndQuit() const;
};

// Thrown by a fatal alert once it has been reported: unwinds to the top of the
// program (or of a test), which finishes and ends the process.
class XFatalAlert : public XException {
public:
	using XException::XException;
};

void MACIBM_alert(int close_to, const std::string& s1, const std::string& s2, const std::string& s3,
                  const std::string& s4, int type, const char* file, int line);
#define NB_ALERT(s1, s2, s3, s4, type) MACIBM_alert(0, s1, s2, s3, s4, type, __FILE__, __LINE__)

// The last alert's lines, one per line, and how many alerts were raised: for tests and tools.
extern std::string last_alert_text;
extern int alert_count;
