#pragma once

// What the map maker drags: with the left button a state or a label, which follow the pointer in
// steps, and with shift or the right button an arrow out of a state, which the release over a state
// adds.
//
// The press itself does what a click does. Only when the pointer has moved some pixels away does
// the drag begin.

#include "render/view.h"

enum drag_kind : u8 { drag_nothing, drag_state, drag_arrow, drag_label };

struct drag_record {
    drag_kind kind = drag_nothing;
    u32 button = 0;
    bool moving = false;  // it has begun
    i64 index = 0;        // of the state, or of the label's transition
    f64 start_x = 0;      // of the pointer at the press, in window pixels
    f64 start_y = 0;
    f64 offset_x = 0;  // from the pointer to what is dragged, in world units
    f64 offset_y = 0;
};

extern drag_record drag;

// One frame of it, with no dialog open; true while something is dragged.
bool drag_frame(const pointer& mouse);
