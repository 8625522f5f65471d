#pragma once

// Plays a session of the game, in a process of its own, whose frames are drawn with platform/gl and
// the pictures that ship, in a window that may keep nothing once it was shown. Expects those drawn
// in part to be the same as when they are drawn whole.

#include <functional>

void gl_expect_same(const std::function<void()>& session, bool window_forgets = false);
