#include "platform/headless/headless.h"

#include <sstream>

#include "platform/input.h"
#include "tests/support/game.h"

namespace {

using headless_test = game_test;

// What the next poll finds: letters pressed and held ("_"), shift held ("^"), caps lock ("c"), the
// left button's edges ("+", "-") and the pointer's x.
std::string poll() {
    input_poll();
    std::ostringstream found;
    for (u32 key = key_a; key <= key_z; ++key) {
        char letter = static_cast<char>('a' + (key - key_a));
        found << (input_key_is_pressed(key) ? std::string{letter} : "")
              << (input_key_is_held(key) ? std::string{'_', letter} : "");
    }
    f64 x = 0;
    f64 y = 0;
    input_mouse_position(x, y);
    found << (input_key_is_held(key_shift) ? "^" : "") << (input_key_modifiers() != 0 ? "c" : "")
          << (input_mouse_is_pressed(mouse_left) ? "+" : "")
          << (input_mouse_is_released(mouse_left) ? "-" : "") << ' ' << x;
    return found.str();
}

TEST_F(headless_test, APollFindsOnePressWithAllOfItsMoment) {
    headless_mouse_move(1, 0);
    headless_key_press(key_a);
    headless_set_caps_lock(true);
    headless_key_hold(key_shift);
    headless_key_hold(key_d);
    headless_key_hold(key_d);  // is down already
    headless_set_caps_lock(false);
    headless_key_release(key_shift);
    headless_mouse_move(2, 0);
    headless_mouse_press(mouse_left);
    headless_mouse_move(3, 0);
    headless_mouse_release(mouse_left);
    headless_key_release(key_d);
    headless_mouse_press(mouse_left);
    headless_mouse_release(mouse_left);
    headless_key_press(key_count);
    for (const char* found : {"a 1", "d_d^c 1", "_d^c 1", "_d+ 2", "_d- 3", "+- 3", " 3"}) {
        EXPECT_EQ(poll(), found);
    }
}

TEST_F(headless_test, LettingGoOfAllLeavesNothingHeld) {
    headless_key_hold(key_a);
    headless_key_hold(key_shift);
    headless_mouse_press(mouse_left);
    headless_release_all();
    headless_key_release(key_a);
    headless_key_hold(key_d);
    for (const char* found : {"a_a 0", "_a^+ 0", "d_d- 0", "_d 0"}) {
        EXPECT_EQ(poll(), found);
    }
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
