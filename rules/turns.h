#pragma once

// Which moves are open, what a move does and how a turn ends; shared by human and computer seats.

#include "base/str.h"
#include "base/types.h"
#include "maps/model.h"
#include "rules/game_state.h"

inline constexpr f64 move_duration = 0.5;      // seconds for which a move is shown
inline constexpr f64 think_after_turn = 0.4;   // seconds a computer seat waits when its turn comes
inline constexpr f64 think_after_draw = 0.25;  // seconds until it looks at a card it drew

// The first stone on `state`, `no_index` when there is none.
u16 stone_find(u16 state);

// The first stone on every state and how many stand there, in the frame arena.
struct stone_table {
    u16* first;  // `no_index` where none stands
    i64* count;
};

stone_table stones_locate();

// Calls visit(arc, stone) for every transition along which a stone may be moved, before cards are
// asked for: those whose source state holds one. In their order; the stone is the first one there.
template <typename visitor>
void open_moves_visit(const stone_table& table, visitor visit) {
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && table.first[arc.from] != no_index) {
            visit(arc, table.first[arc.from]);
        }
    }
}

// Puts a stone on an existing state and starts its flight and the move's time.
void stone_move(u16 stone, u16 target);
// The card at `index` leaves the current hand, whose order stays, for the top of the discard pile.
void hand_play(i64 index);
// The deck's top card goes to the end of the current hand; `card_drawn` is set.
void hand_draw();
// The current seat's turn ends without a move, when the time of a move has passed.
void turn_pass();

// A turing machine's action: its first byte, a colour, shape or number, is written on the card
// under the head; its second, "L" or "R", moves the head one card, round the tape's ends.
void tape_apply(str action);

// One step of the move that is shown; it ends when its time has passed.
void move_advance();
// Ends the move or turn: the current seat has won, or the next one takes its turn.
void turn_end();
