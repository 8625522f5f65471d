#pragma once

// What is written on standard output: with colours on a terminal, plain in a pipe, in a file and
// where NO_COLOR asks for it.

#include <string_view>

enum ink : unsigned char { ink_plain = 0, ink_name, ink_good, ink_bad, ink_faint };

void put(std::string_view text, ink colour = ink_plain);
