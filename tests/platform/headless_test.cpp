#include "platform/headless/headless.h"

#include "platform/input.h"
#include "tests/support/game.h"

namespace {

using headless_test = game_test;

// After a poll: "p" pressed, "r" released, "h" held.
std::string after_poll(u32 key, u32 button) {
    input_poll();
    return std::string(input_key_is_pressed(key) ? "p" : "") + (input_key_is_held(key) ? "h" : "") +
           (input_mouse_is_pressed(button) ? "P" : "") +
           (input_mouse_is_released(button) ? "R" : "");
}

TEST_F(headless_test, KeysAndButtonsAreSeenFromTheNextPollOn) {
    headless_key_press(key_a);
    EXPECT_FALSE(input_key_is_pressed(key_a));
    headless_mouse_press(mouse_left);
    EXPECT_EQ(after_poll(key_a, mouse_left), "pP");
    EXPECT_EQ(after_poll(key_a, mouse_left), "");
    headless_mouse_release(mouse_left);
    headless_key_hold(key_a);
    EXPECT_EQ(after_poll(key_a, mouse_left), "phR");
    headless_key_hold(key_a);
    headless_mouse_press(mouse_right);
    headless_mouse_release(mouse_right);
    EXPECT_EQ(after_poll(key_a, mouse_right), "hPR");
    headless_key_release(key_a);
    headless_key_press(key_count);
    EXPECT_EQ(after_poll(key_a, mouse_right) + after_poll(key_count, mouse_right), "");
}

TEST_F(headless_test, MotionAndWheelAddUpBetweenPolls) {
    headless_mouse_move(10, 20);
    headless_mouse_move(7, 30);
    headless_wheel(1.0);
    headless_wheel(0.5);
    for (bool first : {true, false}) {
        input_poll();
        f64 at[4];
        input_mouse_position(at[0], at[1]);
        input_mouse_moved(at[2], at[3]);
        EXPECT_EQ(std::vector<f64>(at, at + 4),
                  first ? (std::vector<f64>{7, 30, 7, 30}) : (std::vector<f64>{7, 30, 0, 0}));
        EXPECT_EQ(input_mouse_wheel(), first ? 1.5 : 0);
    }
}

}  // namespace
