#include "rules/deal.h"

#include <sstream>

#include "rules/cards.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/game.h"

namespace {

using deal_test = game_test;

// A case is "family seats copies colours shapes numbers hand tape": what seed 5 deals.
TEST_F(deal_test, AGameIsDealtFromTheShuffledDeckInOrder) {
    golden_check("rules/deals", [](const std::string& given) {
        std::istringstream in(given);
        i64 kind = 0;
        std::string seats;
        settings = {};
        in >> kind >> seats >> settings.deck_copies >> settings.deck_colours >>
            settings.deck_shapes >> settings.deck_numbers >> settings.hand_size >>
            settings.tape_length;
        map_make(kind, ".", {});
        seats_make(seats);
        pile_set(discard_pile.cards, "Aa1");
        screens = {true, true, true, true, true};
        turn = {1, 2, 0, true, true, 0.3, 0.2, true};
        random_seed(5);
        game_start();
        EXPECT_EQ(discard_pile.cards.count, 0);
        EXPECT_EQ(stones.count, 2);
        EXPECT_FALSE(screens.title_menu_open || screens.player_setup_open || screens.map_list_open);
        EXPECT_TRUE(screens.editor_open && turn.card_drawn && turn.show_nimbers);
        EXPECT_TRUE(turn.current_player == 0 && turn.winner == no_winner && turn.move_timer == 0);
        EXPECT_EQ(turn.turn_revealed, seats[0] == 'H');
        std::string dealt = "tape " + pile_text(tape);
        for (const player& seat : players) {
            dealt += ", hand " + pile_text(seat.hand);
        }
        return dealt + ", deck " + pile_text(deck.cards);
    });
}

TEST_F(deal_test, HugePilesAreCutAndSaidOnce) {
    constexpr i64 huge = i64{1} << 62;
    map_make(pushdown_machine, ".", {}, {0});
    seats_make("H0");
    settings = {huge, 2, 2, huge, huge, 10'001};
    EXPECT_EQ(output_of(game_start),
              "deck limited to 10000 cards\ntape limited to 10000 cards\n"
              "hand limited to 10000 cards\n");
    EXPECT_EQ(players[1].hand.count, 10'000);
    EXPECT_EQ(tape.count, 10'000);
    EXPECT_EQ(settings.hand_size, huge);
    settings = {huge, 0, 1, 1, 10'000, 10'000};
    EXPECT_EQ(output_of(game_start), "");
}

TEST_F(deal_test, AnEmptyDeckTakesTheDiscardPile) {
    pile_set(deck.cards, "Aa1");
    pile_set(discard_pile.cards, "Bb2 Cc3 Dd4 Ee5");
    random_state before = random_generator;
    deck_refill();
    EXPECT_EQ(pile_text(deck.cards), "Aa1");
    card_take_top(deck.cards);
    deck_refill();
    EXPECT_EQ(draws_since(before), 3);
    std::string refilled = pile_text(deck.cards);
    EXPECT_EQ(discard_pile.cards.count, 0);
    for (int i = 0; i < 9; ++i) {
        dyn_array_push(discard_pile.cards, {5, 5, 6});
    }
    EXPECT_EQ(pile_text(deck.cards), refilled);
}

}  // namespace
