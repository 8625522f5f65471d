#pragma once

// When a frame of the game is due, and whether there is time to draw it: sixty frames a second on
// every display and with every renderer. Arithmetic only; times are nanoseconds of a steady clock.

#include "base/types.h"

struct pacing {
    bool in_step;   // pictures wait for the display, so that none tears
    i64 drift;      // by how much a frame may be later than due without being counted as late
    i64 due;        // when the next frame begins
    i64 undrawn;    // frames in a row that were not drawn
    bool has_time;  // whether the next frame is to be drawn
    i64 cost = 0;   // of a picture, in time of the processor: a mean that the latest weigh most in
};

// A pacing that begins at `now`.
pacing pacing_begin(i64 now);
// Chooses how pictures are shown by the display's pictures per second; 0: unknown.
void pacing_set_display(pacing& pace, i32 refresh_rate);
// A frame has been played, and shown where it was drawn. Returns when the next one begins, and says
// in `has_time` whether it is drawn: frames that come late are caught up with by leaving out
// pictures, at most three in a row; what is still missing then is forgotten, as after a stop.
i64 pacing_frame_end(pacing& pace, i64 now);
// A picture has kept the processor busy for so long.
void pacing_cost_add(pacing& pace, i64 time);
// Whether pictures are dear: one costs more than half a frame's time.
bool pacing_is_dear(const pacing& pace);
// When the frame that comes so many after the next one would be due.
i64 pacing_after(const pacing& pace, i64 frames);
// Nothing was to be played until now: how many frames' time passed since the next one was due. It
// is due now, unless it was not due yet, and drawn.
i64 pacing_wake(pacing& pace, i64 now);
// From when on the next frame may begin instead, because the player acts on a still picture: up to
// a frame before it is due. It stays due when it was, so that frames do not come to more than
// sixty.
i64 pacing_earliest(const pacing& pace);
