#pragma once

// How large a map's code may be: the letters behind "#map=" in a link to the game's page, which
// the tool for map makers reads and writes, too.

#include "base/types.h"

inline constexpr i64 code_letters_limit = 200'000;
inline constexpr i64 code_bytes_limit = 1'000'000;  // of what the letters hold
