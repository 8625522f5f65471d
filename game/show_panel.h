#pragma once

// A text in a box at the foot of the board, over the lower band's edge; long lines are
// broken, and cut where they fill too many.

#include "base/str.h"

void show_panel_draw(str text);
