#include "tools/solver/hand_solver.h"

#include <algorithm>

#include "ai/computer.h"
#include "base/arena.h"
#include "rules/game_state.h"
#include "rules/turns.h"
#include "tools/solver/hand_game.h"
#include "tools/solver/solved.h"

namespace {

void seats_harden() {
    for (player& seat : players) {
        seat.is_computer = 1;
        seat.strength = strength_hard;
    }
}

// What the seat did in a turn: the last act, and the card that it played.
struct turn_done {
    game_act last;
    card played;
};

// Plays the current seat's turn to its end.
turn_done computer_turn() {
    turn_done done;
    do {
        arena_rewind(arena_frame, 0);
        deck_refill();
        done.last = computer_decide();
        if (done.last.kind == act_move) {
            done.played = current_seat().hand[done.last.card];
        }
        act_do(done.last);
    } while (done.last.kind == act_draw);
    if (done.last.kind == act_move) {
        turn.move_timer = 0;
        turn_end();
    }
    return done;
}

bool is_turn(const hand_game& played, const hand_turn& turn, const turn_done& done) {
    if (done.last.kind != act_move || turn.arc < 0) {
        return done.last.kind != act_move && turn.arc < 0;
    }
    return turn.arc == done.last.arc && at(played.cards, turn.held) == done.played;
}

// Counts the turn that was taken where turns differ in what becomes of the seat.
void turn_count(hand_deal& deal, const hand_game& played, const verdict_cells& cells,
                const std::vector<hand_turn>& turns, const hand_turn& taken) {
    auto standing = [&](const hand_turn& t) {
        return verdict_standing(turn_verdict(played.graph, cells, 0, t.to));
    };
    i64 best = standing(taken);
    i64 worst = best;
    for (const hand_turn& t : turns) {
        best = std::max(best, standing(t));
        worst = std::min(worst, standing(t));
    }
    if (best != worst) {
        deal.hard_turns += 1;
        deal.hard_best += standing(taken) == best ? 1 : 0;
    }
}

// Plays the deal as long as the solver knows the turns that hard seats take.
void hard_seats_watch(hand_deal& deal, hand_game& played, const verdict_cells& cells) {
    seats_harden();
    i64 node = 0;
    for (std::vector<hand_turn> turns = hand_turns(played, node);
         !turns.empty() && turn.winner == no_winner; turns = hand_turns(played, node)) {
        const turn_done done = computer_turn();
        auto taken = std::ranges::find_if(
            turns, [&](const hand_turn& t) { return is_turn(played, t, done); });
        if (taken == turns.end()) {
            return;
        }
        turn_count(deal, played, cells, turns, *taken);
        node = taken->to;
    }
}

// Where it lies in the hand once the seat has drawn, which keeps its order.
i64 index_in_hand(const hand_game& played, const hand_turn& taken) {
    if (taken.arc < 0) {
        return no_card;
    }
    const dyn_array<card>& hand = current_seat().hand;
    const card* found = std::find(hand.begin(), hand.end(), at(played.cards, taken.held));
    return found - hand.begin();
}

}  // namespace

hand_deal hand_deal_solve() {
    hand_game played;
    hand_deal deal = {hand_game_make(played), played.graph.node_count, {}, 0, 0};
    verdict_cells cells;
    if (deal.state == work_well) {
        deal.state = game_solve(played.graph, cells);
    }
    if (deal.state == work_well) {
        deal.found = verdict_of(cells[0]);
        hard_seats_watch(deal, played, cells);
    }
    return deal;
}

work_state hand_position_solve(solved_position& solved) {
    hand_game played;
    verdict_cells cells;
    work_state state = hand_game_make(played);
    if (state == work_well) {
        state = game_solve(played.graph, cells);
    }
    if (state != work_well) {
        return state;
    }
    solved = solved_from(cells, verdict_of(cells[0]));
    for (const hand_turn& t : hand_turns(played, 0)) {
        const verdict outcome = turn_verdict(played.graph, cells, 0, t.to);
        solved.turns.push_back({t.draws, t.arc, index_in_hand(played, t), outcome});
    }
    return state;
}
