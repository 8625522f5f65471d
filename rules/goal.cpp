#include "rules/goal.h"

#include <algorithm>
#include <cassert>

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

bool tape_has(card_property property) {
    return std::any_of(tape.begin(), tape.end(), [=](card c) { return card_has(c, property); });
}

// How many of the values that the deck has in a field occur.
i64 tape_distinct(card_field field) {
    i64 count = 0;
    for (i64 i = 0; i < deck_kinds().counts[field]; ++i) {
        u8 value = static_cast<u8>(card_fields[field].first_value + i);
        count += tape_has({field, value}) ? 1 : 0;
    }
    return count;
}

// How many cards agree with one of the goal's cards in the measured field.
i64 tape_agreeing(const goal& g, const measure_info& measure) {
    assert(measure.cards == 1 || measure.cards == 2);
    u8 card::*value = card_fields[measure.field].value;
    i64 count = 0;
    for (card c : tape) {
        bool as_a = c.*value == g.card_a.*value;
        bool as_b = measure.cards == 2 && c.*value == g.card_b.*value;
        count += as_a || as_b ? 1 : 0;
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
            return goal_met(seat.goal);
        default:
            return true;
    }
}

}  // namespace

i64 goal_count(const goal& g) {
    if (g.measure >= measure_count) {
        return 0;
    }
    const measure_info& measure = measures[g.measure];
    if (g.measure == measure_sum) {
        return tape_sum();
    }
    return measure.cards == 0 ? tape_distinct(measure.field) : tape_agreeing(g, measure);
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

bool win_mode_met() {
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

bool win_check() {
    return family_test() && win_mode_met();
}
