#pragma once

// The loaded map as a picture for paper.

#include <string>
#include <vector>

#include "base/types.h"

// The board as SVG, in black on white: arrows, loops, labels and stones where the game draws them,
// accepting states with a double ring, the goals of a turing map and then the lines below. With
// `numbers` each state's index stands beside it; the transition `marked`, -1 for none, is red. To
// be called in a frame of `board_frame_begin`.
std::string map_svg(bool numbers, const std::vector<std::string>& lines = {}, i64 marked = -1);
