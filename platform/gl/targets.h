#pragma once

// Textures to draw into. The game gives them sizes of its own picture; they are as large as what
// is shown of it, so that everything is drawn at the resolution of the screen.

#include "base/types.h"
#include "platform/common/view.h"

// Gives the bound texture, which is `texture`, memory to draw into.
void target_make(u32 texture, view_size logical);
void target_attach(u32 texture, u32 frame_buffer);
void target_forget(u32 texture);

// Makes the targets whose size no longer fits the view anew; their content is lost. Whether none
// was so, and all have a pixel for each one that the window shows.
bool targets_fit();
// Where all of the game's picture lies in a frame buffer, and a box of it; 0 is the window.
view_box target_whole(u32 frame_buffer);
view_box target_box(u32 frame_buffer, const view_box& box);
