#include "game/turn_update.h"

#include "ai/computer.h"
#include "base/message.h"
#include "base/time_step.h"
#include "game/board.h"
#include "platform/input.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/deal.h"
#include "rules/rule.h"
#include "rules/selection.h"
#include "rules/turns.h"

namespace {

void humans_count() {
    turn.human_count = 0;
    for (const player& seat : players) {
        turn.human_count += seat.is_computer ? 0 : 1;
    }
}

void running_move_advance() {
    turn.move_timer -= frame_dt;
    if (turn.move_timer <= 0) {
        turn_end();
    }
}

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

// Whether the selected card is there and satisfies the rule.
bool card_allows(str rule) {
    const dyn_array<card>& hand = current_seat().hand;
    i64 index = selection.selected_card;
    return 0 <= index && index < hand.count && rule_matches(rule, hand[index]);
}

void pending_move_take() {
    const transition* arc = pending_transition();
    if (arc == nullptr) {
        return;
    }
    u16 stone = stone_find(arc->from);
    bool costs_card = machine_kind == pushdown_machine;
    if (stone == no_index || (costs_card && !card_allows(arc->rule))) {
        return;
    }
    stone_move(stone, arc->to);
    if (costs_card) {
        hand_play(selection.selected_card);
    } else if (machine_kind == turing_machine) {
        tape_apply(arc->rule);
    }
}

void space_key_apply() {
    if (!input_key_is_pressed(key_space)) {
        return;
    }
    if (turn.winner != no_winner) {
        game_start();
    } else if (!current_seat().is_computer) {
        turn.turn_revealed = true;
    }
}

void computer_turn_advance() {
    if (!current_seat().is_computer || turn.winner != no_winner) {
        return;
    }
    if (turn.think_timer > 0) {
        turn.think_timer -= frame_dt;
    } else if (turn.move_timer <= 0) {
        computer_act();
    }
}

// While no move is shown.
void seat_act() {
    deck_refill();
    pending_move_take();
    nimbers_key_apply();
    space_key_apply();
    computer_turn_advance();
}

}  // namespace

void turn_update() {
    humans_count();
    if (turn.move_timer > 0) {
        running_move_advance();
    } else {
        seat_act();
    }
    fault_assert(game_fault);
}
