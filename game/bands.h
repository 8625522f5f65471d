#pragma once

// The two bands that lie over the board, in window pixels.

#include "shell/memory/types.h"

inline constexpr f64 top_panel_height = 160;
inline constexpr f64 bottom_panel_height = 176;
