#pragma once

// What a seat does in its turn, as a value: humans and computers decide on one, it can be written
// down, and doing it is the same for all.

#include "base/types.h"
#include "maps/card.h"
#include "maps/model.h"
#include "shown/selection.h"

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

// Why nothing comes of an act, or of a click that is to bring one about.
enum refusal : u8 {
    refused_not = 0,       // it is open
    refused_no_arrow,      // no transition joins the two states
    refused_behind,        // one before it joins them
    refused_no_stone,      // none stands where the move begins
    refused_no_card,       // none of the hand was chosen
    refused_card,          // the transition's rule does not let it through
    refused_turn,          // the seat is not to do that now
    refused_empty_deck,    // so no card is drawn, and no turn ends without a move
    refused_drawn,         // a card was drawn in this turn
    refused_not_drawn,     // none was, which would end the turn
    refused_flying,        // a move is still being shown
    refused_covered,       // the turn was not taken up
    refused_pile,          // cards are put onto the stack by moves,
    refused_tape,          // and written on the tape
    refused_nothing_here,  // no state, card or pile
    refusal_count,
};

// Why the current seat may not do it now. A human's move goes along the first transition between
// its two states, a computer's along any; a human may move for a computer that thinks.
refusal act_refusal(const game_act& act, bool by_computer);
bool act_is_open(const game_act& act, bool by_computer);

// What the running game's last act was.
struct done_record {
    game_act what;       // `act_wait`: there is none
    u8 seat = 0;         // index of the seat that did it
    bool drawn = false;  // the seat had drawn a card before, in the same turn
    card played;         // by a move of a pushdown machine
    i64 number = 0;      // grows with every act and every deal
};

extern done_record last_done;

// Does an open act for the current seat.
void act_do(const game_act& act);
