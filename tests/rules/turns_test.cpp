#include "rules/turns.h"

#include <sstream>

#include "game/turn_update.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "rules/cards.h"
#include "shown/selection.h"
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

// A case is a selected state, target, transition and card: what moves.
TEST_F(turns_test, IncompleteOrStaleSelectionsMoveNothing) {
    board_make(pushdown_machine, "HH");
    const std::string before = game_text();
    golden_check("rules/stale", [&](const std::string& given) {
        std::vector<std::string> words = words_of(given);
        auto index = [&](std::size_t i) {
            return words[i] == "-" ? no_index : static_cast<u16>(std::stoi(words[i]));
        };
        selection = {index(0), index(1), index(2),
                     words[3] == "-" ? no_card : i64{std::stoi(words[3])}};
        turn_update();
        return std::string(game_text() == before ? "nothing" : game_text());
    });
}

TEST_F(turns_test, TheTurnPassesAndIsRevealed) {
    golden_check("rules/passes", [&](const std::string& given) {
        std::istringstream in(given);
        std::string seats;
        int from = 0;
        in >> seats >> from >> turn.turn_revealed;
        board_make(state_machine, seats);
        turn = {static_cast<i8>(from), 0, no_winner, turn.turn_revealed, true, 0.001, 0, false};
        turn_update();
        std::string text = game_text();
        return text.substr(text.find("seat"), text.rfind('\n') - text.find("seat"));
    });
}

TEST_F(turns_test, EveryUpdateRefillsAnEmptyDeck) {
    board_make(pushdown_machine, "H");
    deck.cards.count = 0;
    pile_set(discard_pile.cards, "Bb2");
    turn.move_timer = 0.4;
    turn_update();
    EXPECT_EQ(deck.cards.count, 0);  // not while a move is shown
    turn.move_timer = 0;
    turn_update();
    EXPECT_EQ(pile_text(deck.cards), "Bb2");
    hand_draw();
    hand_draw();
    EXPECT_EQ(pile_text(players[0].hand), "Aa1 Cb2 Dd4 Bb2 Aa1");
    EXPECT_TRUE(turn.card_drawn);
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
