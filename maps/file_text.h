#pragma once

// Whole text files.

#include "base/str.h"
#include "base/types.h"

// Records made from a text may take forty times its size; this keeps them inside the arena.
inline constexpr i64 text_file_limit = i64{4} * 1024 * 1024;  // bytes

// Reads the file at `path` into a new block of the persistent arena, which `content` then names.
// False, with nothing changed, when it cannot be read or is larger than the limit.
bool file_read_all(str path, str& content);

// Puts `content` in place of the file at `path`; false, with the old one whole, when that fails.
bool file_write_all(str path, str content);
