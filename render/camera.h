#pragma once

// The one camera over the map, which fills the frame's matrices.

#include "base/types.h"

struct camera_record {
    f64 x = 0;  // the world point shown at the window's centre
    f64 y = 0;
    f64 zoom = 1;     // 0.25 to 4
    f64 speed = 256;  // world units per second at zoom 1
};

extern camera_record camera;

// Builds the matrices of a window of that many pixels from the camera as it is now.
void camera_matrices_build(i32 width, i32 height);

// Moves and zooms the camera by this frame's keys, wheel and drag; a change shows from the next
// frame on. The keys rest while a text is being typed, the wheel and the drag on the bottom panel,
// the wheel also beside the picture, the drag also while no board is shown. The size is the
// window's, in pixels.
void camera_input_apply(i32 width, i32 height);
