// framewright: the aircraft and airfoil designer on the command line. Runs the
// simulator's own readers and writers, so what it makes is what the simulator reads.
#include "tools/framewright/framewright.h"
#include "tools/tool_main.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cstdio>
#include <cstring>

static const char* help_text =
	"framewright: the aircraft and airfoil designer.\n"
	"\n"
	"  framewright airfoil gen PARAMS OUT.afl\n"
	"      Makes an airfoil file from a readable parameter file: one 'name value' a line,\n"
	"      '#' starts a comment. The names are the airfoil's shape parameters.\n"
	"  framewright airfoil eval FILE.afl --re RE --alpha A[,A...]\n"
	"      Prints 'alpha cl cd cm', then a line per angle (degrees), looked up as the\n"
	"      flight model looks it up, at Reynolds number RE (a plain number: 3000000).\n"
	"  framewright build SRC OUT.acf [--big-endian]\n"
	"      Writes the binary aircraft file from its readable form (in the other byte\n"
	"      order with --big-endian). Fields are 'name value' or 'name[i][j] value', in\n"
	"      feet, pounds, knots and degrees; text in double quotes; '#' comment lines.\n"
	"  framewright dump IN.acf\n"
	"      Writes the readable form of an aircraft file to standard output.\n"
	"  framewright check FILE.acf\n"
	"      Loads an aircraft as the simulator does and reports the first finding of its\n"
	"      checks (non-zero exit), or none.\n"
	"  framewright check --loaded FILE.acf\n"
	"      The same, then prints the whole loaded record, derived quantities included, in SI.\n"
	"  framewright art SRC.txt OUT.png\n"
	"      Draws a cockpit picture from its readable source: 'size W H', then shapes\n"
	"      (fill, rect, poly, sharp, key, arch, band, shade, circle, needle,\n"
	"      text; include FILE reads another source in place), y up from the bottom;\n"
	"      pure magenta (255 0 255) is the see-through key.\n"
	"  framewright --help\n";

int main(int argc, char** argv)
{
	static const tool_command cmds[] = {{"airfoil", framewright_airfoil}, {"build", framewright_build},
	                                    {"dump", framewright_dump}, {"check", framewright_check}, {"art", framewright_art}};
	return tool_main("framewright", help_text, cmds, 5, argc, argv);
}
