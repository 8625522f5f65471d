#include "rules/goal.h"

#include "rules/cards.h"
#include "rules/game_state.h"

namespace {

i64 tape_sum() {
    i64 sum = 0;
    for (card c : tape) {
        sum += c.number;
    }
    return sum;
}

// How many of the values 0 to limit - 1 a field of the tape's cards takes; `limit` <= 64.
i64 tape_distinct(i64 limit, u8 (*field)(card)) {
    u64 present = 0;
    for (card c : tape) {
        if (field(c) < limit) {
            present |= u64{1} << field(c);
        }
    }
    i64 count = 0;
    for (i64 value = 0; value < limit; ++value) {
        count += static_cast<i64>(present >> value & 1);
    }
    return count;
}

template <typename test>
i64 tape_count(test passes) {
    i64 count = 0;
    for (card c : tape) {
        count += passes(c) ? 1 : 0;
    }
    return count;
}

i64 stones_on_accepting() {
    i64 count = 0;
    for (u16 state : stones) {
        count += state_exists(state) && game_map.states[state].accepting ? 1 : 0;
    }
    return count;
}

bool family_test() {
    const player& seat = current_seat();
    switch (machine_kind) {
        case pushdown_machine:
            return seat.hand.count == 0;
        case turing_machine:
            return goal_met(seat.own_goal);
        default:
            return true;
    }
}

bool win_mode_test() {
    switch (settings.win_mode) {
        case win_immediate:
            return true;
        case win_all_accepting:
            return stones_on_accepting() == stones.count;
        case win_any_accepting:
            return stones_on_accepting() > 0;
        default:
            return false;
    }
}

}  // namespace

i64 goal_count(const goal& g) {
    const card a = g.card_a;
    const card b = g.card_b;
    switch (g.measure) {
        case measure_sum:
            return tape_sum();
        case measure_distinct_colours:
            return tape_distinct(deck_colours_bounded(), [](card c) { return c.colour; });
        case measure_distinct_shapes:
            return tape_distinct(deck_shapes_bounded(), [](card c) { return c.shape; });
        case measure_distinct_numbers:
            return tape_distinct(deck_numbers_bounded(),
                                 [](card c) { return static_cast<u8>(c.number - 1); });
        case measure_colour:
            return tape_count([a](card c) { return c.colour == a.colour; });
        case measure_shape:
            return tape_count([a](card c) { return c.shape == a.shape; });
        case measure_number:
            return tape_count([a](card c) { return c.number == a.number; });
        case measure_either_colour:
            return tape_count(
                [a, b](card c) { return c.colour == a.colour || c.colour == b.colour; });
        case measure_either_shape:
            return tape_count([a, b](card c) { return c.shape == a.shape || c.shape == b.shape; });
        case measure_either_number:
            return tape_count(
                [a, b](card c) { return c.number == a.number || c.number == b.number; });
        default:
            return 0;
    }
}

bool goal_met(const goal& g) {
    i64 count = goal_count(g);
    switch (g.comparison) {
        case compare_exactly:
            return count == g.target;
        case compare_at_most:
            return count <= g.target;
        case compare_at_least:
            return count >= g.target;
        default:
            return false;
    }
}

bool win_check() {
    return family_test() && win_mode_test();
}
