#include "ai/advice.h"

#include <cstdlib>
#include <limits>

#include "ai/computer.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/goal.h"
#include "rules/random.h"
#include "rules/turns.h"

namespace {

constexpr i64 work_limit = 4'000'000;  // cards, stones and transitions that are looked at
constexpr i64 depth_limit = 12;        // moves

// What the seat would do as a hard computer.
game_act hard_seat_decide() {
    player& seat = current_seat();
    const player human = seat;
    const random_state chance = random_generator;
    seat.is_computer = 1;
    seat.strength = strength_hard;
    game_act act = computer_decide();
    seat.is_computer = human.is_computer;
    seat.strength = human.strength;
    random_generator = chance;
    return act;
}

// Of two transitions between the same states a human takes the first.
game_act human_act(game_act act) {
    if (act.kind == act_move) {
        const transition& arc = game_map.transitions[act.arc];
        act.arc = transition_between(arc.from, arc.to);
    }
    return act_is_open(act, false) ? act : game_act{act_wait};
}

// A search over the positions of a turing game, on the stones and the tape themselves.
struct tape_search {
    i64 work = 0;
    bool wins = false;  // the first move leads to a win
    i64 nearest = std::numeric_limits<i64>::max();
    game_act best = {act_wait};
};

// How far the goal is from being met.
i64 goal_distance() {
    const goal& wanted = current_seat().goal;
    return std::abs(goal_count(wanted) - wanted.target);
}

// A move done on the board, so that it can be undone.
struct tried_move {
    u16 stone;
    u16 from;
    i64 head;
    card written;
};

tried_move move_try(const transition& arc, u16 stone) {
    card under = tape_head < tape.count ? tape[tape_head] : card{};
    tried_move before = {stone, arc.from, tape_head, under};
    stones[stone] = arc.to;
    tape_apply(arc.rule);
    return before;
}

void move_undo(const tried_move& before) {
    stones[before.stone] = before.from;
    tape_head = before.head;
    if (tape_head < tape.count) {
        tape[tape_head] = before.written;
    }
}

bool leads_to_win(tape_search& search, i64 depth) {
    for (i64 i = 0; i < game_map.transitions.count && search.work < work_limit; ++i) {
        const transition& arc = game_map.transitions[i];
        u16 stone = transition_exists(arc) ? stone_find(arc.from) : no_index;
        search.work += 1 + stones.count;
        if (stone == no_index) {
            continue;
        }
        search.work += tape.count;
        tried_move before = move_try(arc, stone);
        bool wins = depth == 1 ? win_check() : leads_to_win(search, depth - 1);
        move_undo(before);
        if (wins) {
            return true;
        }
    }
    return false;
}

// Looks at every first move that a human has, and what it leads to in so many moves.
void first_moves_search(tape_search& search, i64 depth) {
    for (const transition& arc : game_map.transitions) {
        game_act move = move_along(arc);
        if (!act_is_open(move, false) || search.wins || search.work >= work_limit) {
            continue;
        }
        search.work += game_map.transitions.count;
        tried_move before = move_try(arc, stone_find(arc.from));
        search.wins = depth == 1 ? win_check() : leads_to_win(search, depth - 1);
        i64 distance = goal_distance();
        move_undo(before);
        if (search.wins || distance < search.nearest) {
            search.nearest = distance;
            search.best = move;
        }
    }
}

game_act tape_decide() {
    tape_search search;
    for (i64 depth = 1; depth <= depth_limit && !search.wins && search.work < work_limit; ++depth) {
        first_moves_search(search, depth);
    }
    return search.best;
}

}  // namespace

game_act advice_find() {
    if (machine_kind == turing_machine) {
        return tape_decide();
    }
    return human_act(hard_seat_decide());
}
