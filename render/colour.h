#pragma once

// The colours of cards and seats, 0 to 5; the icon letters A to F show the same ones.

#include "base/colour.h"

inline constexpr colour card_colours[] = {
    {1, 0, 0, 1},     // red
    {0, 0, 1, 1},     // blue
    {0, 1, 0, 1},     // green
    {1, 1, 0, 1},     // yellow
    {0.3f, 0, 1, 1},  // purple
    {1, 0.3f, 0, 1},  // orange
};

// The card colour with that index; black for any other index.
inline const colour& colour_rgba(i64 index) {
    constexpr i64 count = sizeof card_colours / sizeof card_colours[0];
    return 0 <= index && index < count ? card_colours[index] : colour_black;
}
