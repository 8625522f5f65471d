#pragma once

// How large a map's code may be, the letters behind "#map=" in a link to the game's page. The page
// and the tool for map makers write and read the same.

#include <cstddef>

inline constexpr std::size_t code_length_limit = 200'000;   // letters
inline constexpr std::size_t code_bytes_limit = 1'000'000;  // of what they hold
