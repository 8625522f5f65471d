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
