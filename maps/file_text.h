#pragma once

// Whole text files.

#include "base/str.h"
#include "base/types.h"

inline constexpr i64 text_file_limit = i64{32} * 1024 * 1024;  // bytes

// Reads the file at `path` into a new block at the end of the persistent arena, which `content`
// then names. False, with nothing changed, when it cannot be read whole, is larger than the limit,
// or does not fit into the arena.
bool file_read_all(str path, str& content);

// Puts `content` in place of the file at `path`; false, with the old one whole, when that fails.
bool file_write_all(str path, str content);
