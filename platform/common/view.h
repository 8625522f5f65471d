#pragma once

// Where the game's picture stands in the window.
//
// The game draws a picture of a size of its own, the logical size, and hears of the pointer in
// that picture's pixels. The window has whatever size the player gives it; the picture is shown as
// large as fits, in the window's middle, with its proportions kept. Pixels of the window are those
// of the screen, also on dense displays.

#include "base/types.h"

struct view_size {
    i32 width, height;  // pixels
    bool operator==(const view_size&) const = default;
};

struct view_box {
    i32 x, y;  // pixels from the window's bottom-left corner
    i32 width, height;
    bool operator==(const view_box&) const = default;
};

struct view_record {
    view_size logical;
    view_size window;
    view_box shown;  // the part of the window that shows the picture, at least one pixel
};

extern view_record view;

// Whether anything changed by it. Sizes below one pixel count as one.
bool view_set(view_size logical, view_size window);
// From pixels of the window to pixels of the picture, both from their top-left corner, y downwards.
// What lies beside the picture comes out beyond its edges.
void view_point(f64& x, f64& y);

// The largest size of the given proportions that fits, at least one pixel.
view_size view_fitted(view_size proportions, view_size room);
// The logical size that fills a room with things as large as they can be: of its proportions, as
// near to 1024 by 832 as it can be where all of that is seen, but not three times as wide or high.
view_size view_filled(view_size room);
// The logical size for a whole display: its proportions, at least 1024 by 832; displays of up to
// 1080 lines are drawn pixel for pixel where that is enough, larger ones as if they had 1080.
view_size view_fullscreen(view_size display);
