#include "game/turn_update.h"

#include "base/message.h"
#include "base/tidings.h"
#include "base/time_step.h"
#include "game/board.h"
#include "game/record.h"
#include "game/takeback.h"
#include "maps/catalogue.h"
#include "platform/input.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/deal.h"
#include "rules/turns.h"
#include "shown/selection.h"

namespace {

// The selected transition, null when there is none. It was found in the frame before and may
// belong to a map that is no longer loaded.
const transition* pending_transition() {
    if (selection.selected_transition >= game_map.transitions.count) {
        return nullptr;
    }
    const transition& arc = game_map.transitions[selection.selected_transition];
    bool selected = arc.from == selection.selected_state && arc.to == selection.target_state;
    return selected && transition_exists(arc) ? &arc : nullptr;
}

void pending_move_take() {
    if (const transition* arc = pending_transition()) {
        game_act move = move_along(*arc, selection.selected_card);
        if (act_is_open(move, false)) {
            record_take(move);
        }
    }
}

void space_key_apply() {
    if (!input_key_is_pressed(key_space)) {
        return;
    }
    if (turn.winner != no_winner) {
        record_restart();
    } else if (!current_seat().is_computer) {
        turn.turn_revealed = true;
    }
}

// After a win: the next map of the list, with the same seats.
void next_map_key_apply() {
    bool wanted = input_key_is_pressed(key_n) && !input_key_is_held(key_shift) &&
                  !input_key_is_held(key_ctrl);
    if (!wanted || turn.winner == no_winner) {
        return;
    }
    if (!catalogue_has_next()) {
        tiding_tell(tiding_refusal, {"there is no next map on the list"});
        return;
    }
    selected_entry += 1;
    game_start();
    record_follow();
}

void computer_turn_advance() {
    if (!current_seat().is_computer || turn.winner != no_winner) {
        return;
    }
    if (turn.think_timer > 0) {
        turn.think_timer -= frame_dt;
    } else if (turn.move_timer <= 0) {
        record_take_computer();
    }
}

// While no move is shown.
void seat_act() {
    takeback_steps_take();
    deck_refill();
    pending_move_take();
    nimbers_key_apply();
    space_key_apply();
    next_map_key_apply();
    computer_turn_advance();
}

}  // namespace

void turn_update() {
    record_follow();
    humans_count();
    takeback_keys_apply();
    if (turn.move_timer > 0) {
        move_advance();
    } else {
        seat_act();
    }
    fault_assert(game_fault);
    fault_assert(record_fault);
}
