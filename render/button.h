#pragma once

// A labelled button in window pixels, between `render_frame_begin` and `render_frame_end`.

#include "base/str.h"
#include "base/types.h"

// Draws the button around its centre and reports a click on it. The box includes its left and
// bottom edges and excludes its right and top ones.
//
//   pointer   left mouse button   drawn         result
//   outside   any                 plain         false
//   over      up, or held         lightened     false
//   over      goes down           lightened     true, in this one frame
bool button_draw(str label, f64 centre_x, f64 centre_y, f64 width, f64 height);
