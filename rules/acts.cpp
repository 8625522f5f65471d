#include "rules/acts.h"

#include <cassert>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "rules/turns.h"

done_record last_done;

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

refusal card_refusal(str rule, i64 index) {
    const dyn_array<card>& hand = current_seat().hand;
    if (index < 0 || index >= hand.count) {
        return refused_no_card;
    }
    return rule_matches(rule, hand[index]) ? refused_not : refused_card;
}

refusal move_refusal(const game_act& act) {
    if (act.arc < 0 || act.arc >= game_map.transitions.count) {
        return refused_no_arrow;
    }
    const transition& arc = game_map.transitions[act.arc];
    if (!transition_exists(arc)) {
        return refused_no_arrow;
    }
    if (stone_find(arc.from) == no_index) {
        return refused_no_stone;
    }
    return machine_kind == pushdown_machine ? card_refusal(arc.rule, act.card) : refused_not;
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

refusal computer_refusal(const game_act& act) {
    if (!current_seat().is_computer || turn.winner != no_winner) {
        return refused_turn;
    }
    bool has_cards = machine_kind == pushdown_machine;
    switch (act.kind) {
        case act_move:
            return move_refusal(act);
        case act_draw:
            return has_cards && !turn.card_drawn ? refused_not : refused_drawn;
        case act_end:
            return has_cards && turn.card_drawn ? refused_not : refused_not_drawn;
        default:
            return act.kind == act_pass && machine_kind == turing_machine ? refused_not
                                                                          : refused_turn;
    }
}

refusal human_move_refusal(const game_act& act) {
    refusal why = move_refusal(act);
    return why == refused_not && !is_first_between(act.arc) ? refused_behind : why;
}

refusal human_refusal(const game_act& act) {
    if (act.kind == act_move) {
        return human_move_refusal(act);
    }
    if (current_seat().is_computer) {
        return refused_turn;
    }
    if (turn.card_drawn && act.kind == act_draw) {
        return refused_drawn;
    }
    if (deck.cards.count == 0) {
        return refused_empty_deck;
    }
    if (act.kind == act_end) {
        return turn.card_drawn ? refused_not : refused_not_drawn;
    }
    bool draws = act.kind == act_draw && machine_kind == pushdown_machine;
    return draws ? refused_not : refused_turn;
}

void done_note(const game_act& act) {
    last_done = {
        act, static_cast<u8>(turn.current_player), turn.card_drawn, {}, last_done.number + 1};
    if (act.kind == act_move && machine_kind == pushdown_machine) {
        last_done.played = current_seat().hand[act.card];
    }
}

}  // namespace

game_act move_along(const transition& arc, i64 card) {
    return {act_move, static_cast<i32>(&arc - game_map.transitions.data), static_cast<i32>(card)};
}

refusal act_refusal(const game_act& act, bool by_computer) {
    return by_computer ? computer_refusal(act) : human_refusal(act);
}

bool act_is_open(const game_act& act, bool by_computer) {
    return act_refusal(act, by_computer) == refused_not;
}

void act_do(const game_act& act) {
    done_note(act);
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
