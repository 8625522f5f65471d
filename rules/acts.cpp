#include "rules/acts.h"

#include <cassert>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "rules/turns.h"

namespace {

// Whether no transition before it joins the same states.
bool is_first_between(i64 index) {
    const transition& arc = game_map.transitions[index];
    for (i64 i = 0; i < index; ++i) {
        const transition& earlier = game_map.transitions[i];
        if (earlier.from == arc.from && earlier.to == arc.to) {
            return false;
        }
    }
    return true;
}

// Whether the card is in the current hand and satisfies the rule.
bool card_allows(str rule, i64 index) {
    const dyn_array<card>& hand = current_seat().hand;
    return 0 <= index && index < hand.count && rule_matches(rule, hand[index]);
}

bool move_is_open(const game_act& act) {
    if (act.arc < 0 || act.arc >= game_map.transitions.count) {
        return false;
    }
    const transition& arc = game_map.transitions[act.arc];
    return transition_exists(arc) && stone_find(arc.from) != no_index &&
           (machine_kind != pushdown_machine || card_allows(arc.rule, act.card));
}

void move_do(const game_act& act) {
    const transition& arc = game_map.transitions[act.arc];
    stone_move(stone_find(arc.from), arc.to);
    if (machine_kind == pushdown_machine) {
        hand_play(act.card);
    } else if (machine_kind == turing_machine) {
        tape_apply(arc.rule);
    }
}

bool computer_may(const game_act& act) {
    if (!current_seat().is_computer || turn.winner != no_winner) {
        return false;
    }
    switch (act.kind) {
        case act_move:
            return move_is_open(act);
        case act_draw:
            return machine_kind == pushdown_machine && !turn.card_drawn;
        case act_end:
            return machine_kind == pushdown_machine && turn.card_drawn;
        default:
            return act.kind == act_pass && machine_kind == turing_machine;
    }
}

bool human_may(const game_act& act) {
    if (act.kind == act_move) {
        return move_is_open(act) && is_first_between(act.arc);
    }
    if (current_seat().is_computer || deck.cards.count == 0) {
        return false;
    }
    return turn.card_drawn ? act.kind == act_end
                           : act.kind == act_draw && machine_kind == pushdown_machine;
}

}  // namespace

game_act move_along(const transition& arc, i64 card) {
    return {act_move, static_cast<i32>(&arc - game_map.transitions.data), static_cast<i32>(card)};
}

bool act_is_open(const game_act& act, bool by_computer) {
    return by_computer ? computer_may(act) : human_may(act);
}

void act_do(const game_act& act) {
    switch (act.kind) {
        case act_move:
            move_do(act);
            break;
        case act_draw:
            hand_draw();
            if (current_seat().is_computer) {
                turn.think_timer = think_after_draw;
            }
            break;
        case act_end:
            turn_end();
            break;
        case act_pass:
            turn_pass();
            break;
        default:
            assert(act.kind == act_wait);
    }
}
