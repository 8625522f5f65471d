#pragma once

// The fixed time step of the game.

#include "base/types.h"

// Seconds by which every timer, animation and camera speed advances per frame.
inline constexpr f64 frame_dt = 1.0 / 60.0;

// More frames than a game lasts: two years.
inline constexpr i64 frames_endless = i64{1} << 32;
