#include "tools/map_play.h"

#include <gmock/gmock.h>

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

using map_play_test = game_test;
using testing::ElementsAre;

TEST_F(map_play_test, TurnsAreCountedUntilTheWinner) {
    map_make(state_machine, "...*", {{0, 1}, {1, 2}, {2, 3}}, {0});
    settings.win_mode = win_all_accepting;
    play_record record = map_play({strength_hard, strength_easy}, 5, 1, false);
    EXPECT_THAT(record.wins, ElementsAre(5, 0));
    EXPECT_THAT(record.turns, ElementsAre(3, 3, 3, 3, 3));
    EXPECT_EQ(record.moves, 15);
    EXPECT_EQ(record.passes + record.draws + record.unfinished, 0);
}

TEST_F(map_play_test, AGameThatCannotEndIsGivenUp) {
    map_make(state_machine, "..*", {{0, 1}}, {0});
    settings.win_mode = win_all_accepting;
    play_record record = map_play({strength_hard, strength_hard}, 2, 1, false);
    EXPECT_EQ(record.unfinished, 2);
    EXPECT_THAT(record.turns, ElementsAre(1, 1));  // the second seat waits for ever
    EXPECT_EQ(record.moves, 2);
    EXPECT_EQ(record.passes, 0);
}

TEST_F(map_play_test, DrawsAndPassesOfPushdownSeatsAreCounted) {
    map_make(pushdown_machine, ".", {{0, 0, "A"}}, {0});
    settings = {1, 1, 1, 2, 0, 0, win_immediate};  // two cards, none dealt
    play_record playable = map_play({strength_hard}, 1, 1, false);
    EXPECT_EQ(playable.moves, 1);
    EXPECT_EQ(playable.draws, 1);
    EXPECT_EQ(playable.passes, 0);

    map_make(pushdown_machine, ".", {{0, 0, "B"}}, {0});
    play_record stuck = map_play({strength_hard}, 1, 1, false);
    EXPECT_EQ(stuck.unfinished, 1);
    EXPECT_EQ(stuck.moves, 0);
    EXPECT_EQ(stuck.draws, turn_limit);
    EXPECT_EQ(stuck.passes, turn_limit);
}

TEST_F(map_play_test, AHumanIsStuckWhereTheBoardOffersNothing) {
    map_make(pushdown_machine, ".", {{0, 0, "B"}, {0, 0, "A"}}, {0});
    settings = {1, 1, 1, 3, 1, 0, win_immediate};  // the first transition hides the second one
    play_record record = map_play({human_seat, human_seat}, 4, 1, false);
    EXPECT_EQ(record.stuck, 4);
    EXPECT_EQ(record.unfinished + record.moves + record.at_once, 0);
    EXPECT_EQ(record.draws, 4);  // with the last card the deck is empty: the turn cannot end

    map_make(pushdown_machine, ".", {{0, 0, "A"}}, {0});
    settings.deck_copies = 9;
    record = map_play({human_seat}, 40, 1, false);
    EXPECT_EQ(record.stuck + record.unfinished, 0);
    EXPECT_GT(record.draws, 0);
    EXPECT_THAT(record.wins, ElementsAre(40));
    EXPECT_THAT(record.at_once, testing::AllOf(testing::Gt(20), testing::Lt(40)));
}

TEST_F(map_play_test, ASeedPlaysTheSameGames) {
    map_make(pushdown_machine, "..", {{0, 1, "A|1"}, {1, 0, "!A"}, {0, 0, "b"}}, {0});
    auto play = [](u64 seed) {
        tape_head = 0;
        return map_play({strength_normal, strength_easy}, 20, seed, false);
    };
    play_record first = play(1);
    play_record again = play(1);
    EXPECT_EQ(first.turns, again.turns);
    EXPECT_EQ(first.wins, again.wins);
    EXPECT_NE(first.turns, play(2).turns);
}

TEST(median_test, TheLowerMiddle) {
    EXPECT_EQ(median({}), 0);
    EXPECT_EQ(median({7}), 7);
    EXPECT_EQ(median({9, 1}), 1);
    EXPECT_EQ(median({9, 1, 5}), 5);
}

}  // namespace
