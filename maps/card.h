#pragma once

// One card, as maps name it and the rules play it.

#include "base/types.h"

struct card {
    u8 colour = 0;  // 0 to 5, "A" to "F" in rules
    u8 shape = 0;   // 0 to 5, "a" to "f" in rules
    u8 number = 1;  // 1 to 6

    bool operator==(const card&) const = default;
};

inline constexpr i64 card_colour_count = 6;
inline constexpr i64 card_shape_count = 6;
inline constexpr i64 card_number_count = 6;
