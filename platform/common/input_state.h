#pragma once

// The keyboard, the mouse and the fingers between a backend, which feeds what happens in its order,
// and the queries of platform/input.h, which answer from the last sample.
//
// A sample ends with the first press of a key or a button, and with the release of a button: what
// comes after it waits for the next sample, so that each press is seen with the pointer, the
// modifiers and the caps lock of its moment, however slow the frames are. Shift, ctrl and alt end
// no sample. A key or button that goes up at once belongs to the sample of its press.

#include "base/types.h"

// A key or button that is down already gives no second edge. Codes out of range are ignored.
void input_feed_key(u32 key, bool down);
void input_feed_button(u32 button, bool down);
// Lets go of every key and button.
void input_feed_release_all();
void input_feed_caps_lock(bool on);
// Pixels from the picture's top-left corner.
void input_feed_pointer(f64 x, f64 y);
// A finger clicked: the pointer is there for the one sample that has the press.
void input_feed_tap(u32 button, f64 x, f64 y);
// A drag begins with a finger there. One with the middle button needs no more than the button.
void input_feed_grip(f64 x, f64 y);
// What was at (x, y) is pulled by (dx, dy) and made `zoom` times as large.
void input_feed_drag(f64 x, f64 y, f64 dx, f64 dy, f64 zoom);
// Adds to the distance moved since the last sample.
void input_feed_motion(f64 dx, f64 dy);
void input_feed_wheel(f64 steps);

// Whether nothing was fed since the sample before, and no key or button is down.
bool input_state_rests();

// Shows the queries what was fed since the sample before, up to its end.
void input_sample();
// Forgets everything.
void input_reset();
