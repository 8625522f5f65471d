#pragma once

// What the window is to show. The next frame changes a part of it, so where the window keeps
// nothing once it was shown, it is drawn into a frame buffer of its own and copied from there.

#include "base/types.h"

// Makes it as large as the window. Whether it was so and has kept what was drawn.
bool window_picture_fit();
// The frame buffer to draw into; 0 is the window's own, also where the GPU has no memory for
// another.
u32 window_picture();
// Gets it into the window.
void window_picture_show();
// The context was made anew, and all of it is lost.
void window_picture_forget();
