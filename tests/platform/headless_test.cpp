#include "platform/headless/headless.h"

#include "platform/gpu.h"
#include "platform/input.h"
#include "tests/support/game.h"

namespace {

class headless_test : public game_test {};

// After a poll: "p" pressed, "r" released, "h" held.
std::string key_after_poll(u32 key) {
    input_poll();
    return std::string(input_key_is_pressed(key) ? "p" : "") + (input_key_is_held(key) ? "h" : "");
}
std::string button_after_poll(u32 button) {
    input_poll();
    return std::string(input_mouse_is_pressed(button) ? "p" : "") +
           (input_mouse_is_released(button) ? "r" : "");
}

using two = std::pair<f64, f64>;

two two_of(void (*query)(f64&, f64&)) {
    two both;
    query(both.first, both.second);
    return both;
}

}  // namespace

TEST_F(headless_test, keys_are_seen_from_the_next_poll_on) {
    headless_key_press(key_a);
    EXPECT_FALSE(input_key_is_pressed(key_a));
    EXPECT_EQ(key_after_poll(key_a), "p");
    EXPECT_EQ(key_after_poll(key_a), "");

    headless_key_hold(key_a);
    EXPECT_EQ(key_after_poll(key_a), "ph");
    headless_key_hold(key_a);
    EXPECT_EQ(key_after_poll(key_a), "h");
    headless_key_release(key_a);
    EXPECT_EQ(key_after_poll(key_a), "");

    headless_key_press(key_count);
    EXPECT_EQ(key_after_poll(key_count), "");
}

TEST_F(headless_test, mouse_edges_motion_and_wheel) {
    headless_mouse_press(mouse_left);
    EXPECT_EQ(button_after_poll(mouse_left), "p");
    EXPECT_EQ(button_after_poll(mouse_left), "");
    headless_mouse_release(mouse_left);
    EXPECT_EQ(button_after_poll(mouse_left), "r");
    headless_mouse_press(mouse_right);
    headless_mouse_release(mouse_right);
    EXPECT_EQ(button_after_poll(mouse_right), "pr");

    headless_mouse_move(10, 20);
    headless_mouse_move(7, 30);
    headless_wheel(1.0);
    headless_wheel(0.5);
    input_poll();
    EXPECT_EQ(two_of(input_mouse_position), two(7, 30));
    EXPECT_EQ(two_of(input_mouse_moved), two(7, 30));
    EXPECT_EQ(input_mouse_wheel(), 1.5);
    input_poll();
    EXPECT_EQ(two_of(input_mouse_position), two(7, 30));
    EXPECT_EQ(two_of(input_mouse_moved), two(0, 0));
    EXPECT_EQ(input_mouse_wheel(), 0);
}

TEST_F(headless_test, objects_are_counted) {
    u32 first = texture_create();
    texture_create();
    for (u32 texture : {first, first, 0U}) {
        texture_destroy(texture);
    }
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 1);
}
