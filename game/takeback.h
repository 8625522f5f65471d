#pragma once

// Back and forward in the running game: ctrl+z goes back to where a human decided last, over what
// the computers did since and out of a won game; ctrl+y or ctrl+shift+z goes forward again, until
// somebody does something else. A key that is pressed while a stone flies counts when it has
// landed.

#include "base/types.h"

struct takeback_record {
    i64 steps_wanted = 0;  // forward, or back when it is below 0
};

extern takeback_record takeback;

// Takes the keys.
void takeback_keys_apply();

// Whether they do something on the board that is shown.
bool takeback_goes_back();
bool takeback_goes_forward();

// Goes as far as was wanted; nothing where the record ends. No move may be shown.
void takeback_steps_take();
