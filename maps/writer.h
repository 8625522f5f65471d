#pragma once

// The loaded map as a text: the canonical form, the one in which maps are written. Read and written
// again it gives the same bytes, as far as the reals are within 10^10.

#include "base/str.h"
#include "base/text_builder.h"

// Takes the next piece of a text, which lives until it returns.
using text_taker = void (*)(void* to, str piece);

// Hands the text of the map, as one of that family, to `take` piece by piece. Needs no memory of
// the arenas.
void map_write(i64 family, text_taker take, void* to);
// Appends the text, as one of the current family.
void map_write(text_builder& text);
