// POSIX services of the platform layer: the program's folder and the stop signals.
#include "platform/plat.h"
#include <csignal>
#include <climits>
#include <ctime>
#include <unistd.h>

volatile sig_atomic_t plat_stop_requested = 0;

static void on_stop_signal(int) { plat_stop_requested = 1; }

void plat_catch_signals()
{
	struct sigaction sa = {};
	sa.sa_handler = on_stop_signal;
	sigemptyset(&sa.sa_mask);
	sigaction(SIGINT, &sa, nullptr);
	sigaction(SIGTERM, &sa, nullptr);
}

std::string plat_exe_folder()
{
	char buf[PATH_MAX];
	ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
	if (n <= 0) return "./";
	buf[n] = 0;
	std::string s(buf);
	size_t cut = s.find_last_of("/");
	return cut == std::string::npos ? "./" : s.substr(0, cut + 1);
}

void plat_local_clock(int* sec_of_day, int* month, int* mday)
{
	time_t now = time(nullptr);
	struct tm lt;
	localtime_r(&now, &lt);
	*sec_of_day = lt.tm_hour * 3600 + lt.tm_min * 60 + lt.tm_sec;
	*month = lt.tm_mon;
	*mday = lt.tm_mday;
}
