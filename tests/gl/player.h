#pragma once

// Draws recorded GPU calls with platform/gl on the software renderer, without a window. A library
// of its own, since tests have the headless platform's calls under the same names.

#include <vector>

#include "platform/headless/headless.h"

// Whether the window is taken for one that keeps nothing once it was shown; before all others.
[[gnu::visibility("default")]] void gl_play_begin(bool window_forgets);
// Makes the calls of a frame, or of the start-up. Now and then nobody sees the frame, or the window
// gets another size. Every few frames the picture, which was drawn where it differs, is then drawn
// whole: whether both are the same to the bit, and no call was an error.
[[gnu::visibility("default")]] bool gl_play(const std::vector<gpu_call>& calls);
// Destroys what can be drawn into. How many pictures were compared.
[[gnu::visibility("default")]] int gl_play_end();
