// Paths: every stored file's path is held with ':' between folders and turned into
// the host's form just before it is opened.
#pragma once
#include <string>

void set_dir_chars(std::string& path);
