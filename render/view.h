#pragma once

// How a frame sees the window and the world, and where the mouse points in both.
//
// Window pixels have their origin at the window's bottom-left corner, y upwards. World units are
// pixels at zoom 1.

#include "base/types.h"
#include "maps/model.h"
#include "render/matrix.h"

// What the lengths and places of a drawing call are measured in.
enum draw_space : u8 { world_space = 0, screen_space };

// An upright rectangle by its lower-left corner.
struct box {
    f64 x;
    f64 y;
    f64 width;
    f64 height;
};

box box_around(f64 centre_x, f64 centre_y, f64 width, f64 height);

// The one hit test: left and bottom edges belong to the box, right and top edges do not.
bool box_has(const box& place, f64 x, f64 y);

// The two bands that lie over the board, in window pixels.
inline constexpr f64 top_panel_height = 160;
inline constexpr f64 bottom_panel_height = 176;

// Built by the camera once per frame, before that frame's camera input; read by all that draws.
extern mat4 screen_matrix;        // window pixels to clip space
extern mat4 world_matrix;         // world units to clip space
extern mat4 inverse_view_matrix;  // window pixels to world units

// The world point under a window pixel.
point view_world_point(f64 pixel_x, f64 pixel_y);
// The window pixels that a box of the world covers.
box view_window_box(const box& place);

struct pointer {
    f64 x;  // window pixels
    f64 y;
    point world;
    bool inside;    // over the picture: beside it, in a window's bars, it points at nothing
    bool on_board;  // strictly between the two bands: only there states can be hovered and clicked
    bool hovers;    // over the place, which a finger is only while it clicks
    bool pressed;   // the left button went down over the picture in this frame
};

// Read from this frame's input and matrices.
pointer pointer_read();

// Whether the pointer hovers over a box of the window.
bool pointer_is_over(const pointer& mouse, const box& place);
