#pragma once

// Reading a game's text, docs/game-format.md, into the running game.

#include "base/str.h"
#include "base/types.h"

// Whether it is a game's, of whatever version, by its beginning.
bool text_is_game(str text);

// The first line that is not as it should be, from 1, and why; an empty reason when all of them
// are.
struct text_fault {
    i64 line = 0;
    str reason;
};

// Whose word is taken for what computers decided.
enum computer_trust : u8 {
    trust_text,
    trust_nobody,  // they decide again, as far as that takes no longer than a second
};

// Whether what stands before the map is a game's. Changes nothing.
bool game_head_is_right(str text, text_fault& fault);

// Replaces the running game by the text's: its map, its seats, and its acts up to the first one
// that cannot be done there or that a computer would not decide on. False, with nothing changed,
// when there is not even a position to begin with. The text must outlive the call and lie in no
// arena's free part.
bool game_read(str text, computer_trust trust, text_fault& fault);
