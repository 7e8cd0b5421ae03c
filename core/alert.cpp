// The alert: the one way to tell the user something. Every alert is written to
// Error.out; a fatal one is then carried up as an exception to the top of the program,
// which finishes and ends the process, so that a test can catch it on the same path.
#include "core/files.h"
#include "core/HL_MAIN.h"
#include "platform/plat.h"
#include <cstdio>
#include <iostream>

std::string last_alert_text;
int alert_count = 0;

void MACIBM_alert(int close_to, const std::string& s1, const std::string& s2, const std::string& s3,
                  const std::string& s4, int type, const char* file, int line)
{
	alert_count++;
	last_alert_text = s1 + "\n" + s2 + "\n" + s3 + "\n" + s4 + "\n";
	std::ostream& log = xer.is_open() ? static_cast<std::ostream&>(xer) : std::cerr;
	if (type == alert_fatal) log << "file: " << file << ", line: " << line << "\n";
	log << last_alert_text;
	log.flush();
	std::string shown = s1 + "\n\n" + s2 + "\n\n" + s3 + "\n\n" + s4;
	plat_message_box("Nimbasys Message", shown.c_str());
	(void)close_to;   // reopening the window behind is the interface's, when it draws alerts
	if (type == alert_fatal) {
		g_done = 1;
		throw XFatalAlert(s1, s2, s3, s4, file, line);
	}
}

void XException::ReportAndQuit() const
{
	try {
		MACIBM_alert(0, c1_, c2_, c3_, c4_, alert_fatal, file_, line_);
	} catch (const XFatalAlert&) {
	}
}
