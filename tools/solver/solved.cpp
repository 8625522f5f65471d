#include "tools/solver/solved.h"

#include <algorithm>

#include "maps/model.h"

work_state position_solve(solved_position& solved) {
    switch (machine_kind) {
        case pushdown_machine:
            return hand_position_solve(solved);
        case turing_machine:
            return tape_position_solve(solved);
        default:
            return state_position_solve(solved);
    }
}

solved_position solved_from(const verdict_cells& cells, const verdict& best) {
    solved_position solved = {best};
    for (u32 cell : cells) {
        const verdict found = verdict_of(cell);
        solved.standings[verdict_standing(found)] += 1;
        solved.longest = std::max(solved.longest, found.turns);
    }
    return solved;
}

const solved_turn& best_turn(const solved_position& solved) {
    const solved_turn* best = &solved.turns[0];
    for (const solved_turn& turn : solved.turns) {
        if (verdict_is_better(turn.outcome, best->outcome)) {
            best = &turn;
        }
    }
    return *best;
}
