#pragma once

// The keys of a keyboard, by the places that a back end numbers, on their way to the game's codes:
// what is printed on a key is what it types.

#include "base/types.h"

struct key_meaning {
    u32 key;     // of `input_key`; 0 where the game has no code for it
    bool types;  // a character, which needs shift as `shift` says; else shift plays no part
    bool shift;
};

// What a key means that types a visible character of ASCII.
key_meaning key_meaning_typed(char character);

// A key goes down, once, however long it is held. Of several keys with one meaning the first press
// and the last release count.
void keyboard_press(u32 place, const key_meaning& meaning);
// A key goes up: it means what it meant as it went down, also when the layout has changed since.
void keyboard_release(u32 place);
// A character came that several keys made together.
void keyboard_type(const key_meaning& meaning);
// The keys are somebody else's now.
void keyboard_release_all();
