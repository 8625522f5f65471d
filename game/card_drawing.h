#pragma once

// Cards on the two bands, in window pixels; (x, y) is a card's lower-left corner.

#include "base/colour.h"
#include "base/types.h"
#include "maps/card.h"

inline constexpr f64 card_size = 128;
inline constexpr f64 card_step = 144;   // from one card of a row to the next
inline constexpr f64 card_margin = 16;  // by which a highlight stands out around a card

inline constexpr colour card_selected_tint = {1, 0.3f, 0, 0.5f};
inline constexpr colour card_hover_tint = {1, 1, 1, 0.3f};

// A dark square in the card's colour with as many pips of its shape as its number. Above 6 there
// are six pips, for 0 or a negative byte none.
void card_draw(const card& face, f64 x, f64 y, f64 size);

// The square around a card.
void card_highlight_draw(f64 x, f64 y, const colour& tint);
