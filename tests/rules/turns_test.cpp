#include "rules/turns.h"

#include <sstream>

#include "game/turn_update.h"
#include "rules/cards.h"
#include "rules/selection.h"
#include "tests/support/game.h"

namespace {

// A board on which nobody wins: two stones on state 0, and two cards for the seat to move.
class turns_test : public game_test {
  protected:
    void board_make(i64 kind, std::string_view seats) {
        map_make(kind, "...",
                 {{0, 1, "C"}, {0, 1, "*"}, {1, 2, "*"}, {0, 9, "*"}, {0, 0, "4R"}, {0, 2}},
                 {0, 0});
        settings.win_mode = win_mode_count;
        seats_make(seats);
        pile_set(players[0].hand, "Aa1 Cb2 Dd4");
        pile_set(deck.cards, "Ee5 Ff6");
        pile_set(tape, "Aa1 Bb2");
    }
};

TEST_F(turns_test, IncompleteOrStaleSelectionsMoveNothing) {
    const selection_record rows[] = {
        {no_index, 1, 0, 1}, {0, no_index, 0, 1}, {0, 1, no_index, 1},  // incomplete
        {0, 1, 0, no_card},  {0, 1, 0, 0},                              // the card does not fit
        {1, 2, 2, 1},                                                   // no stone
        {0, 2, 0, 1},        {0, 1, 2, 1},                              // another pair's transition
        {0, 1, 99, 1},       {0, 1, 0, 3},        {0, 9, 3, 1},         // things that are gone
    };
    board_make(pushdown_machine, "HH");
    const std::string before = game_text();
    for (const selection_record& row : rows) {
        SCOPED_TRACE(&row - rows);
        selection = row;
        turn_update();
        EXPECT_EQ(game_text(), before);
        EXPECT_EQ(selection.selected_state, row.selected_state);
    }
}

TEST_F(turns_test, AMoveDoesWhatItsFamilySays) {
    // clang-format off
    struct {
        i64 kind;
        selection_record chosen;
        const char *hand, *discard, *tape;
        i64 head;
    } const rows[] = {
        {state_machine, {0, 1, 0, no_card}, "Aa1 Cb2 Dd4", "", "Aa1 Bb2", 1},
        {pushdown_machine, {0, 1, 0, 1}, "Aa1 Dd4", "Cb2", "Aa1 Bb2", 1},
        {pushdown_machine, {0, 1, 1, 0}, "Cb2 Dd4", "Aa1", "Aa1 Bb2", 1},
        {turing_machine, {0, 1, 0, no_card}, "Aa1 Cb2 Dd4", "", "Aa1 Cb2", 1},
        {turing_machine, {0, 0, 4, no_card}, "Aa1 Cb2 Dd4", "", "Aa1 Bb4", 0},
        {turing_machine, {0, 2, 5, 2}, "Aa1 Cb2 Dd4", "", "Aa1 Bb2", 1},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        board_make(row.kind, "HH");
        tape_head = 1;
        discard_pile.cards.count = 0;
        turn = {};
        selection = row.chosen;
        stone_stack[0] = 2;
        game_map.origin_y = 100;
        turn_update();
        EXPECT_EQ(stones[0] + 10 * stones[1], row.chosen.target_state);
        EXPECT_EQ(pile_text(players[0].hand), row.hand);
        EXPECT_EQ(pile_text(discard_pile.cards), row.discard);
        EXPECT_EQ(pile_text(tape), row.tape);
        EXPECT_EQ(tape_head, row.head);
        EXPECT_EQ(flight.moving_stone, 0);
        EXPECT_EQ(flight.moving_from[1], 116);
        EXPECT_EQ(turn.move_timer, 0.5);
        // 0.5 less 30 times the double nearest to 1/60 is still a little above 0.
        EXPECT_EQ(move_finish(), 31);
        EXPECT_EQ(turn.current_player, 1);
        EXPECT_EQ(selection.selected_state & selection.target_state, no_index);
        EXPECT_EQ(selection.selected_card, no_card);
    }
}

TEST_F(turns_test, TheTurnPassesAndIsRevealed) {
    // clang-format off
    struct {
        const char* seats;
        i8 from, to;
        bool revealed_before, revealed;
        f64 think;
    } const rows[] = {
        {"H", 0, 0, false, true, 0}, {"H", 0, 0, true, true, 0}, {"0", 0, 0, true, true, 0.4},
        {"H0", 0, 1, true, false, 0.4}, {"H0", 1, 0, false, true, 0}, {"HH", 1, 0, true, false, 0},
        {"HH0", 1, 2, true, false, 0.4}, {"HH0", 2, 0, false, false, 0},
        {"012", 2, 0, true, false, 0.4},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seats);
        board_make(state_machine, row.seats);
        turn = {};
        turn.current_player = row.from;
        turn.turn_revealed = row.revealed_before;
        turn.card_drawn = true;
        turn.move_timer = 0.001;
        turn_update();
        EXPECT_EQ(turn.current_player, row.to);
        EXPECT_EQ(turn.turn_revealed, row.revealed);
        EXPECT_EQ(turn.think_timer, row.think);
        EXPECT_FALSE(turn.card_drawn);
        EXPECT_EQ(turn.winner, no_winner);
    }
}

// A case is an action in quotes, the head and the tape: the head and the tape afterwards.
TEST_F(turns_test, ActionsWriteTheTapeAndMoveItsHead) {
    golden_check("rules/actions", [](const std::string& given) {
        std::size_t end = given.rfind('\'');
        std::istringstream in(given.substr(end + 1));
        std::string cards;
        in >> tape_head;
        std::getline(in, cards);
        pile_set(tape, cards);
        tape_apply(str_copy(str_of(given.substr(1, end - 1))));
        return std::to_string(tape_head) + " " + pile_text(tape);
    });
}

}  // namespace
