#pragma once

// Colours in linear light: the last pass of the frame raises them to the power 1/2.2, so that a
// grey of 0.5 shows as about 0.73. Each channel from 0 to 1; alpha is the share it covers.

#include "base/types.h"

struct colour {
    f32 r;
    f32 g;
    f32 b;
    f32 a;
};

inline constexpr colour colour_white = {1, 1, 1, 1};
inline constexpr colour colour_black = {0, 0, 0, 1};

// The six in which cards, seats and the icon letters A to F are told apart.
inline constexpr colour card_colours[] = {
    {1, 0, 0, 1},     // red
    {0, 0, 1, 1},     // blue
    {0, 1, 0, 1},     // green
    {1, 1, 0, 1},     // yellow
    {0.3f, 0, 1, 1},  // purple
    {1, 0.3f, 0, 1},  // orange
};

// The one of them with that index; black for any other index.
inline const colour& colour_rgba(i64 index) {
    constexpr i64 count = sizeof card_colours / sizeof card_colours[0];
    return 0 <= index && index < count ? card_colours[index] : colour_black;
}
