#include "ai/computer.h"

#include <cassert>

#include "ai/pushdown_player.h"
#include "maps/model.h"
#include "rules/random.h"
#include "rules/turns.h"

// The state seat plays a sum of games, one per stone, in which the value of a state is its nimber:
// the mover loses exactly when the exclusive or of all values is 0, and from any other sum some
// move leads to 0 (Sprague-Grundy). A state without a nimber counts as `no_nimber`, which keeps the
// sum defined but without that meaning. Every seat here walks the open moves twice, once to count
// and once to pick: O(stones + states + transitions).

namespace {

// A uniform choice among the `count` >= 1 open moves that pass the test.
template <typename test>
const transition& open_move_choose(const stone_table& table, i64 count, test passes) {
    i64 left = random_index(count);
    const transition* chosen = nullptr;
    open_moves_visit(table, [&](const transition& arc, u16) {
        if (passes(arc) && left-- == 0) {
            chosen = &arc;
        }
    });
    assert(chosen != nullptr);
    return *chosen;
}

u8 stones_nimber() {
    u8 sum = 0;
    for (u16 state : stones) {
        sum ^= state_nimber(state);
    }
    return sum;
}

bool is_winning(u8 sum, const transition& arc) {
    return (sum ^ state_nimber(arc.from) ^ state_nimber(arc.to)) == 0;
}

// Whether the seat takes one of its winning moves, given how many there are of each kind.
bool wants_winning(i64 winning_count, i64 other_count) {
    switch (current_seat().strength) {
        case strength_easy:
            return other_count == 0;
        case strength_normal: {
            bool careless = random_below(100) < 50;
            return winning_count > 0 && !(careless && other_count > 0);
        }
        default:
            assert(current_seat().strength == strength_hard);
            return winning_count > 0;
    }
}

game_act state_machine_decide() {
    stone_table table = stones_locate();
    u8 sum = stones_nimber();
    i64 counts[2] = {0, 0};  // other moves, winning moves
    open_moves_visit(table, [&](const transition& arc, u16) { counts[is_winning(sum, arc)] += 1; });
    if (counts[0] + counts[1] == 0) {
        return {act_wait};
    }
    bool winning = wants_winning(counts[1], counts[0]);
    return move_along(open_move_choose(table, counts[winning], [&](const transition& arc) {
        return is_winning(sum, arc) == winning;
    }));
}

game_act turing_machine_decide() {
    stone_table table = stones_locate();
    i64 count = 0;
    open_moves_visit(table, [&](const transition&, u16) { count += 1; });
    if (count == 0) {
        return {act_pass};
    }
    const transition& arc = open_move_choose(table, count, [](const transition&) { return true; });
    return arc.rule.length == 0 ? game_act{act_pass} : move_along(arc);
}

}  // namespace

game_act computer_decide() {
    assert(current_seat().is_computer);
    switch (machine_kind) {
        case state_machine:
            return state_machine_decide();
        case pushdown_machine:
            return pushdown_machine_decide();
        default:
            assert(machine_kind == turing_machine);
            return turing_machine_decide();
    }
}

void computer_act() {
    act_do(computer_decide());
}
