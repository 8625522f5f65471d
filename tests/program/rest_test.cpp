// Frames that would repeat, and what keeps them from it.

#include "program/rest.h"

#include "base/tidings.h"
#include "base/time_step.h"
#include "platform/input.h"
#include "render/camera.h"
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
