#pragma once

// The loaded map and cards as pictures for paper.

#include <string>
#include <vector>

#include "base/types.h"
#include "maps/card.h"

// Whether a picture stands alone or on a page, which has the symbols once and tells the goals.
enum svg_place : u8 { svg_alone, svg_on_page };

// The board as SVG, in black on white: arrows, loops, labels and stones where the game draws them,
// accepting states with a double ring, the goals of a turing map and then the lines below. With
// `numbers` each state's index stands beside it; the transition `marked`, -1 for none, is red. To
// be called in a frame of `board_frame_begin`.
std::string map_svg(bool numbers, const std::vector<std::string>& lines = {}, i64 marked = -1,
                    svg_place place = svg_alone);

// A card, with a thick edge when `marked`, for a page that has the symbols.
std::string card_svg(card c, bool marked);
// The symbols of a page.
std::string symbols_svg();
