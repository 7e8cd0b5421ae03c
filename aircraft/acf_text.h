// The readable form of an aircraft record's stored image, in the file's own units:
// one field per line, 'name value', arrays with one [i] per dimension, text in double
// quotes, '#' comments on their own lines, unset fields zero.
#pragma once
#include "aircraft/veh_struct.h"
#include <iosfwd>
#include <string>

void acf_write_text(const veh_struct& v, std::ostream& out);
// Fills v only when the whole text is good; otherwise returns 0 with "FILE:LINE: why" in err.
int acf_read_text(std::istream& in, const char* fname, veh_struct& v, std::string& err);
