#pragma once

// Sizes shared by everything that shows cards on the two bands, in window pixels.

#include "base/types.h"
#include "render/colour.h"

inline constexpr f64 card_size = 128;
inline constexpr f64 card_step = 144;   // from one card of a row to the next
inline constexpr f64 card_margin = 16;  // by which a highlight stands out around a card

inline constexpr colour card_selected_tint = {1, 0.3f, 0, 0.5f};
inline constexpr colour card_hover_tint = {1, 1, 1, 0.3f};

// The square around a card whose lower-left corner is (x, y).
void card_highlight_draw(f64 x, f64 y, const colour& tint);
