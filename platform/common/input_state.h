#pragma once

// The keyboard's and the mouse's state between a backend, which feeds what happens, and the
// queries of platform/input.h, which answer from the last sample.

#include "base/types.h"

// A key or button that is down already gives no second edge. Codes out of range are ignored.
void input_feed_key(u32 key, bool down);
void input_feed_button(u32 button, bool down);
// Lets go of every key and button.
void input_feed_release_all();
void input_feed_caps_lock(bool on);
// Pixels from the window's top-left corner.
void input_feed_pointer(f64 x, f64 y);
// Adds to the distance moved since the last sample.
void input_feed_motion(f64 dx, f64 dy);
void input_feed_wheel(f64 steps);

// Shows the queries what was fed since the sample before.
void input_sample();
// Forgets everything.
void input_reset();
