#include "ai/turing_player.h"

#include "ai/movable.h"
#include "rules/random.h"
#include "rules/turns.h"

void turing_machine_act() {
    stone_table table = stones_locate();
    i64 count = 0;
    movable_visit(table, [&](const transition&, u16) { count += 1; });
    if (count == 0) {
        turn_pass();
        return;
    }
    i64 chosen = random_index(count);
    u16 chosen_stone = no_index;
    const transition* chosen_arc = nullptr;
    movable_visit(table, [&](const transition& arc, u16 stone) {
        if (chosen-- == 0) {
            chosen_stone = stone;
            chosen_arc = &arc;
        }
    });
    if (chosen_arc->rule.length == 0) {
        turn_pass();
        return;
    }
    stone_move(chosen_stone, chosen_arc->to);
    tape_apply(chosen_arc->rule);
}
