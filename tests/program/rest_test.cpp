// Frames that would repeat, and what keeps them from it.

#include "program/rest.h"

#include "base/tidings.h"
#include "base/time_step.h"
#include "game/game_reader.h"
#include "platform/input.h"
#include "render/camera.h"
#include "rules/cards.h"
#include "shown/screens.h"
#include "tests/support/screen.h"

namespace {

using rest_test = screen_test;

constexpr i64 frames_seen = 64;  // more than a checked build asks for

// How many frames would repeat after some in which nothing happened.
i64 rest_found() {
    for (i64 i = 0; i < frames_seen; ++i) {
        frame();
    }
    return rest_frames();
}

TEST_F(rest_test, frames_repeat_where_nothing_moves_and_nobody_holds_anything) {
    begin();
    EXPECT_EQ(rest_found(), 0) << "the title's picture moves";
    screens.title_menu_open = false;
    screens.player_setup_open = true;
    EXPECT_EQ(rest_found(), frames_endless);
    headless_mouse_press(mouse_right);
    EXPECT_EQ(rest_found(), 0);
    headless_mouse_release(mouse_right);
    EXPECT_EQ(rest_found(), frames_endless);
    headless_mouse_move(7, 7);
    frame();
    EXPECT_EQ(rest_frames(), 0);
}

TEST_F(rest_test, a_board_rests_whose_cards_are_all_dealt) {
    constexpr str game =
        "quorrel game 1\nfamily turing\nseat human red\n"
        "chance 0000000000000001 0000000000000002 0000000000000003 0000000000000004\n"
        "|map 0 0 128\n|deck 1 1 1 1\n|tape 1\n|stone 0\n|. 0 0\n";
    begin();
    text_fault fault;
    ASSERT_TRUE(game_read(str_copy(game), trust_nobody, fault)) << fault.line;
    screens.title_menu_open = false;
    EXPECT_EQ(deck.cards.count, 0);
    EXPECT_EQ(rest_found(), frames_endless);
}

TEST_F(rest_test, a_tiding_says_when_its_time_is_over) {
    begin();
    screens.title_menu_open = false;
    screens.player_setup_open = true;
    tiding_tell(tiding_failure, {"lost"});
    EXPECT_EQ(rest_found(), tiding_frames - frames_seen);
    rest_pass(tiding_frames - frames_seen);
    EXPECT_EQ(headless_told(), "lost");
    EXPECT_EQ(rest_frames(), 0);
    frame();
    EXPECT_EQ(headless_told(), "");
    EXPECT_EQ(rest_frames(), frames_endless);
}

TEST_F(rest_test, a_frame_that_should_repeat_and_does_not_is_a_fault) {
    begin();
    screens.title_menu_open = false;
    screens.player_setup_open = true;
    rest_found();
    rest_frame_begin();
    camera.x += 1;
    EXPECT_DEATH(rest_frame_end(), "repeat");
}

}  // namespace
