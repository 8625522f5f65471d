#pragma once

// Where the mouse points, as the board screen needs it.

#include "base/types.h"
#include "maps/model.h"

struct pointer {
    f64 x;  // window pixels from the left edge
    f64 y;  // window pixels from the bottom edge
    world_point world;
    bool on_board;  // strictly between the two bands: only there states can be hovered and clicked
    bool pressed;   // the left button went down in this frame
};

// Read from this frame's input and camera.
pointer pointer_read();

// Whether the pointer is in a window rectangle; left and bottom edges belong to it, right and top
// edges do not.
bool pointer_in(const pointer& mouse, f64 x, f64 y, f64 width, f64 height);
