#pragma once

// Why nothing came of an act or a click, in words, which live in the frame arena.

#include "base/str.h"
#include "rules/acts.h"

struct refused_act {
    refusal why = refused_not;
    u16 from = no_index;  // of a move, as far as it goes
    u16 to = no_index;
    game_act what = {};
};

// What the rule of an arrow asks of a card, or why none fits.
str rule_wish(str rule);

// Said to the player of the current seat, whose hand is as it was then; empty for what is open.
str refusal_sentence(const refused_act& refused);
