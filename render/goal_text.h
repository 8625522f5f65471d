#pragma once

// Goals of turing games in a compact form with pictures for colours and shapes.

#include "base/text_builder.h"
#include "base/types.h"
#include "maps/model.h"

inline constexpr i64 goal_text_capacity = 64;  // bytes; the longest goal takes 55

// Appends the goal as a text for icons, such as "num A or B %ex%a%ctly 2". A measure or comparison
// that does not exist adds nothing.
void goal_text_put(text_buffer& buffer, const goal& g);

// Draws the goal centred on a window pixel, in white.
void goal_draw(const goal& g, f64 x, f64 y);
