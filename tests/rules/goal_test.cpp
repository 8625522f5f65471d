#include "rules/goal.h"

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

using goal_test = game_test;

TEST_F(goal_test, MeasuresCountTheTape) {
    const char* three = "Aa3 Bc3 Ab5";
    struct {
        u8 measure;
        const char *tape, *a, *b;
        i64 count;
    } const rows[] = {
        // clang-format off
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
        // clang-format on
    };
    settings.deck_numbers = 6;
    for (const auto& row : rows) {
        goal g = {row.measure, compare_exactly, 0, card_of(row.a), card_of(row.b)};
        pile_set(tape, row.tape);
        EXPECT_EQ(goal_count(g), row.count) << int{row.measure} << ' ' << row.tape;
        tape.count = 0;
        EXPECT_EQ(goal_count(g), 0);
    }
    pile_set(tape, "Aa5 Aa4");
    for (auto [numbers, count] : {std::pair{i64{-1}, 0}, {i64{1} << 40, 2}}) {
        settings.deck_numbers = numbers;
        EXPECT_EQ(goal_count({measure_distinct_numbers, 0, 0, {}, {}}), count);
    }
}

TEST_F(goal_test, ComparisonsAreSigned) {
    pile_set(tape, "Aa3");
    // Met by a target below, at and above the count.
    for (auto [comparison, below, at, above] : {std::tuple{u8{compare_exactly}, false, true, false},
                                                {compare_at_most, false, true, true},
                                                {compare_at_least, true, true, false},
                                                {comparison_count, false, false, false}}) {
        EXPECT_EQ(goal_met({measure_sum, comparison, -4, {}, {}}), below);
        EXPECT_EQ(goal_met({measure_sum, comparison, 3, {}, {}}), at);
        EXPECT_EQ(goal_met({measure_sum, comparison, i64{1} << 40, {}, {}}), above);
    }
}

TEST_F(goal_test, AWinNeedsTheFamilysTestAndTheWinMode) {
    struct {
        i64 kind;
        u8 mode;
        std::vector<u16> stones;  // states 0 and 2 are accepting
        bool hand_empty, goal_met, wins;
    } const rows[] = {
        // clang-format off
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
        // clang-format on
    };
    const goal met = {measure_sum, compare_exactly, 3, {}, {}};
    for (const auto& row : rows) {
        map_make(row.kind, "*.*", {}, row.stones);
        settings.win_mode = row.mode;
        seats_make("HH");
        turn.current_player = 1;  // the other seat would win and must not matter
        players[0].goal = row.goal_met ? goal{} : met;
        pile_set(players[0].hand, row.hand_empty ? "Aa1" : "");
        players[1].goal = row.goal_met ? met : goal{};
        pile_set(players[1].hand, row.hand_empty ? "" : "Aa1");
        pile_set(tape, "Aa1 Aa2");
        EXPECT_EQ(win_check(), row.wins) << &row - rows;
    }
}

}  // namespace
