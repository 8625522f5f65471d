#include "ai/state_player.h"

#include "ai/movable.h"
#include "rules/random.h"
#include "rules/turns.h"

namespace {

u8 stones_nimber() {
    u8 sum = 0;
    for (u16 state : stones) {
        sum ^= state_exists(state) ? state_nimber(state) : u8{0};
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
            return winning_count > 0;
    }
}

}  // namespace

void state_machine_act() {
    stone_table table = stones_locate();
    u8 sum = stones_nimber();
    i64 counts[2] = {0, 0};  // other moves, winning moves
    movable_visit(table, [&](const transition& arc, u16) { counts[is_winning(sum, arc)] += 1; });
    if (counts[0] + counts[1] == 0) {
        turn_pass();
        return;
    }
    bool winning = wants_winning(counts[1], counts[0]);
    i64 chosen = random_index(counts[winning]);
    u16 chosen_stone = no_index;
    u16 chosen_target = no_index;
    movable_visit(table, [&](const transition& arc, u16 stone) {
        if (is_winning(sum, arc) == winning && chosen-- == 0) {
            chosen_stone = stone;
            chosen_target = arc.to;
        }
    });
    stone_move(chosen_stone, chosen_target);
}
