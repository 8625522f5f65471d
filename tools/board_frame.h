#pragma once

// The game's own drawing without a window: what it draws is recorded and looked at.

#include <functional>
#include <vector>

#include "platform/headless/headless.h"
#include "tools/shapes.h"

// Begins a frame of 1024 by 832 pixels at zoom 1, with GPU calls recorded. False, once it is named
// on standard error, when there is no font.
bool board_frame_begin();

// What `draw` draws; calls recorded before are lost.
std::vector<gpu_draw> draws_of(const std::function<void()>& draw);

// Where a point of the unit quad that is drawn lands, in pixels from the window's lower left.
point placed(const gpu_draw& draw, point p);
shape placed(const gpu_draw& draw, const shape& s);
