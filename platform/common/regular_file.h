#pragma once

// Opening for reading, shared by files and pictures.

#include <cstdio>
#include <string>

#include "base/str.h"

// The path for the system's calls; empty, which names no file, when the bytes cannot be a path.
std::string path_text(str path);
// The same where the file is read: below the directory of `file_set_fallback` when the working
// directory has nothing of that name.
std::string path_for_reading(str path);
// Opens a regular file for reading and tells its bytes; null, and 0 bytes, for anything else.
std::FILE* regular_file_open(str path, i64& size);
