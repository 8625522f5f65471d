#pragma once

// Buttons in window pixels, between `render_frame_begin` and `render_frame_end`.

#include "base/str.h"
#include "base/types.h"

// Draws a labelled button around its centre and reports a click on it. The box includes its left
// and bottom edges and excludes its right and top ones.
//
//   pointer   left mouse button   drawn         result
//   outside   any                 plain         false
//   over      up, or held         lightened     false
//   over      goes down           lightened     true, in this one frame
bool button_draw(str label, f64 centre_x, f64 centre_y, f64 width, f64 height);

// The square buttons "<" and ">".
bool button_draw_less(f64 centre_x, f64 centre_y, f64 side);
bool button_draw_more(f64 centre_x, f64 centre_y, f64 side);

// Both of them, on either side of a value at (x, y) and each `reach` away from it: -1, 0 or +1 by
// what was clicked.
i64 stepper_draw(f64 x, f64 y, f64 reach, f64 side);
