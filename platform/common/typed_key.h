#pragma once

// Which key of the game's, with shift or without, types a character: the keys as they stand on an
// American keyboard, which is what the game's codes are named after.

#include "base/types.h"

struct typed_key {
    u32 key;  // of `input_key`; 0 where no key types the character
    bool shift;
};

// For any character of ASCII that is visible.
typed_key typed_key_of(char character);
