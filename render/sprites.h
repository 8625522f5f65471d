#pragma once

// Pictures, filled boxes and arrows, between `render_frame_begin` and `render_frame_end`. A picture
// is multiplied by `tint`. One with a negative width or height is not seen.

#include "base/colour.h"
#include "base/types.h"
#include "render/pictures.h"
#include "render/view.h"

// Fills the box with the picture.
void sprite_draw(texture_slot picture, const box& place, const colour& tint,
                 draw_space space = screen_space);

// Fills a box of the window with a colour.
void box_fill(const box& place, const colour& tint);

// Turns the picture counter-clockwise by `degrees` about its point (pivot_x, pivot_y), measured
// from its lower-left corner, and places that point on (x, y).
void sprite_draw_rotated(texture_slot picture, f64 x, f64 y, f64 width, f64 height, f64 degrees,
                         f64 pivot_x, f64 pivot_y, const colour& tint, draw_space space);

// A straight arrow from (x1, y1) towards (x2, y2), which must differ, moved by `offset` to the
// left of its direction. It ends five widths before (x2, y2); points closer than eight widths
// show the head alone.
void arrow_draw(f64 x1, f64 y1, f64 x2, f64 y2, f64 width, f64 offset, const colour& tint,
                draw_space space);
