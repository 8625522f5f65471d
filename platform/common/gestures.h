#pragma once

// The fingers on a touch screen, on their way to what the game hears of a mouse:
//
//   one finger, lifted soon            a click of the left button
//   one finger that rests for long     a click of the right button
//   one finger that moves              drags what the picture shows
//   two fingers                        drag it and zoom it about their middle
//   a third one, a cancelled touch     nothing, until the last finger is gone
//
// Nothing reaches the game before it is clear what a finger does: one that drags has clicked
// nothing. A click is where its finger came down.

#include "base/types.h"

enum finger_phase : u8 { finger_down, finger_moved, finger_up, finger_cancelled };

struct finger_event {
    i64 finger;  // tells those apart that are down at a time
    finger_phase phase;
    f64 x, y;  // pixels from the picture's top-left corner
    i64 time;  // milliseconds of any clock
};

// How far a finger may stray that rests, in units of a window or a page: about an eighth of an
// inch.
inline constexpr f64 finger_stray = 12;

// A finger does something. One that is not down can only come down; what is told of it otherwise is
// ignored. `stray` is how many pixels of the picture a resting finger may move.
void gestures_feed(const finger_event& event, f64 stray);
// Nothing else was heard until this time. What came down since the call before may have gone up by
// then: on a slow machine its lifting is still on its way.
void gestures_wait(i64 time);
// Whether no finger is down.
bool gestures_rest();
// The fingers are somebody else's now.
void gestures_end();
