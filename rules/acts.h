#pragma once

// What a seat does in its turn, as a value: humans and computers decide on one, it can be written
// down, and doing it is the same for all.

#include "base/types.h"
#include "maps/model.h"
#include "rules/selection.h"

enum act_kind : u8 {
    act_wait = 0,  // nothing: a computer of a state machine without a move
    act_move,      // a stone goes along a transition
    act_draw,      // a card is drawn from the deck
    act_end,       // the turn ends after a card was drawn
    act_pass,      // a computer of a turing machine lets its turn pass
    act_kind_count,
};

struct game_act {
    act_kind kind = act_wait;
    i32 arc = -1;   // of a move: index of the transition along which its state's first stone goes
    i32 card = -1;  // of a pushdown machine's move: index in the current hand

    bool operator==(const game_act&) const = default;
};

// The move along a transition of the loaded map.
game_act move_along(const transition& arc, i64 card = no_card);

// Whether the current seat may do it now. A human's move goes along the first transition between
// its two states, a computer's along any; a human may move for a computer that thinks.
bool act_is_open(const game_act& act, bool by_computer);

// Does an open act for the current seat.
void act_do(const game_act& act);
