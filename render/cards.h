#pragma once

// Cards in window pixels, between `render_frame_begin` and `render_frame_end`.

#include "base/types.h"
#include "maps/card.h"

// A dark square in the card's colour with as many pips of its shape as its number; (x, y) is its
// lower-left corner, `size` its side. Above 6 there are six pips, for 0 or a negative byte none.
void card_draw(const card& face, f64 x, f64 y, f64 size);
