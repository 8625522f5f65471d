#include "rules/goal.h"

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

using goal_test = game_test;

TEST_F(goal_test, MeasuresCountTheTape) {
    const char* three = "Aa3 Bc3 Ab5";
    // clang-format off
    struct {
        u8 measure;
        const char *tape, *a, *b;
        i64 count;
    } const rows[] = {
        {measure_sum, three, "Aa1", "Aa1", 11}, {measure_distinct_colours, three, "Aa1", "Aa1", 2},
        {measure_distinct_shapes, three, "Aa1", "Aa1", 3},
        {measure_distinct_numbers, three, "Aa1", "Aa1", 2},
        {measure_distinct_colours, "Ea1 Fa1 Da1", "Aa1", "Aa1", 1},  // the deck has four colours
        {measure_distinct_shapes, "Ae1 Ad1 Af1", "Aa1", "Aa1", 1},
        {measure_distinct_numbers, "Aa6 Aa7 Aa0", "Aa1", "Aa1", 1},
        {measure_colour, three, "Af6", "Bf6", 2}, {measure_shape, three, "Fc6", "Fa6", 1},
        {measure_number, three, "Ff3", "Ff5", 2}, {measure_either_colour, three, "Bf6", "Af6", 3},
        {measure_either_shape, three, "Fb6", "Fa6", 2},
        {measure_either_number, three, "Ff3", "Ff5", 3},
        {measure_either_number, three, "Ff3", "Ff3", 2}, {measure_count, three, "Aa3", "Aa3", 0},
    };
    // clang-format on
    settings.deck_numbers = 6;
    for (const auto& row : rows) {
        pile_set(tape, row.tape);
        goal g = {row.measure, compare_exactly, 0, card_of(row.a), card_of(row.b)};
        EXPECT_EQ(goal_count(g), row.count) << int{row.measure} << ' ' << row.tape;
        tape.count = 0;
        EXPECT_EQ(goal_count(g), 0);
    }
    pile_set(tape, "Aa5 Aa4");
    settings.deck_numbers = -1;
    EXPECT_EQ(goal_count({measure_distinct_numbers, 0, 0, {}, {}}), 0);
    settings.deck_numbers = i64{1} << 40;
    EXPECT_EQ(goal_count({measure_distinct_numbers, 0, 0, {}, {}}), 2);
}

TEST_F(goal_test, ComparisonsAreSigned) {
    pile_set(tape, "Aa3");
    // clang-format off
    struct {
        u8 comparison;
        bool below, at, above;  // met by a target below, at and above the count
    } const rows[] = {
        {compare_exactly, false, true, false}, {compare_at_most, false, true, true},
        {compare_at_least, true, true, false}, {comparison_count, false, false, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        auto met = [&](i64 target) {
            return goal_met({measure_sum, row.comparison, target, {}, {}});
        };
        EXPECT_EQ(met(-4), row.below);
        EXPECT_EQ(met(3), row.at);
        EXPECT_EQ(met(i64{1} << 40), row.above);
    }
}

TEST_F(goal_test, AWinNeedsTheFamilysTestAndTheWinMode) {
    const goal met = {measure_sum, compare_exactly, 3, {}, {}};
    // clang-format off
    struct {
        i64 kind;
        u8 mode;
        std::vector<u16> stones;  // states 0 and 2 are accepting
        bool hand_empty, goal_met, wins;
    } const rows[] = {
        {state_machine, win_immediate, {1}, false, false, true},
        {state_machine, win_all_accepting, {0, 2, 0}, false, false, true},
        {state_machine, win_all_accepting, {0, 1}, false, false, false},
        {state_machine, win_all_accepting, {0, 9}, false, false, false},
        {state_machine, win_any_accepting, {1, 2}, false, false, true},
        {state_machine, win_any_accepting, {1, 9, 65535}, false, false, false},
        {state_machine, win_all_accepting, {}, false, false, true},
        {state_machine, win_any_accepting, {}, false, false, false},
        {state_machine, win_mode_count, {0}, true, true, false},
        {pushdown_machine, win_immediate, {1}, true, false, true},
        {pushdown_machine, win_immediate, {1}, false, true, false},
        {pushdown_machine, win_all_accepting, {1}, true, true, false},
        {turing_machine, win_immediate, {1}, false, true, true},
        {turing_machine, win_immediate, {1}, true, false, false},
        {turing_machine, win_any_accepting, {1}, true, true, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        map_make(row.kind, "*.*", {}, row.stones);
        settings.win_mode = row.mode;
        seats_make("HH");
        turn.current_player = 1;  // the other seat would win and must not matter
        players[0].goal = row.goal_met ? goal{} : met;
        pile_set(players[0].hand, row.hand_empty ? "Aa1" : "");
        players[1].goal = row.goal_met ? met : goal{};
        pile_set(players[1].hand, row.hand_empty ? "" : "Aa1");
        pile_set(tape, "Aa1 Aa2");
        EXPECT_EQ(win_check(), row.wins);
    }
}

}  // namespace
