#pragma once

// Opening for reading, shared by files and pictures.

#include <cstdio>
#include <string>

#include "base/str.h"

// The path for the system's calls; empty, which names no file, when the bytes cannot be a path.
std::string path_text(str path);
// Opens a regular file for reading and tells its bytes; null, and 0 bytes, for anything else.
std::FILE* regular_file_open(str path, i64& size);
