#pragma once

// What lies over the board in play: the status lines, the cover between two human turns, the
// winner's banner.

#include "base/str.h"

void status_lines_draw();
void turn_cover_draw();
void winner_banner_draw();

// The words for a win mode; empty for a mode that does not exist.
str win_mode_label(i64 win_mode);
