#pragma once

// The game's diagnostics: plain lines on standard output.

#include <initializer_list>

#include "base/str.h"

// Writes the parts one after the other; the caller gives the newline.
void message_write(std::initializer_list<str> parts);
