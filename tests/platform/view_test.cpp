#include "platform/common/view.h"

#include <gtest/gtest.h>

namespace {

TEST(view, stands_in_the_middle_and_the_pointer_agrees) {
    struct {
        view_size window;
        view_box shown;
        f64 x, y;                  // a pixel of the window
        f64 picture_x, picture_y;  // the pixel of the picture below it
    } cases[] = {
        {{1024, 832}, {0, 0, 1024, 832}, 700, 31, 700, 31},
        {{2048, 1664}, {0, 0, 2048, 1664}, 2047, 1, 1023.5, 0.5},
        {{1280, 1000}, {24, 0, 1231, 1000}, 24, 0, 0, 0},
        {{1024, 901}, {0, 34, 1024, 832}, 5, 35, 5, 0},
        {{512, 3000}, {0, 1292, 512, 416}, 0, 0, 0, -2584},
        {{1, 3000}, {0, 1499, 1, 1}, 0, 1500, 0, 0},
        {{16384, 10}, {8186, 0, 12, 10}, 8192, 5, 512, 416},
        {{0, 0}, {0, 0, 1, 1}, 0, 0, 0, 0},
    };
    for (const auto& one : cases) {
        view_set({1024, 832}, one.window);
        EXPECT_EQ(view.shown, one.shown) << one.window.width << " by " << one.window.height;
        f64 x = one.x;
        f64 y = one.y;
        view_point(x, y);
        EXPECT_NEAR(x, one.picture_x, 1e-9);
        EXPECT_NEAR(y, one.picture_y, 1e-9);
    }
    EXPECT_FALSE(view_set({1024, 832}, {0, 0}));
    EXPECT_TRUE(view_set({1480, 832}, {1, 1}));
}

TEST(view, fills_a_display_in_its_proportions) {
    const view_size cases[][2] = {
        {{1920, 1080}, {1920, 1080}}, {{2560, 1440}, {1920, 1080}}, {{3840, 2160}, {1920, 1080}},
        {{3440, 1440}, {2580, 1080}}, {{1280, 1024}, {1280, 1024}}, {{1366, 768}, {1480, 832}},
        {{800, 600}, {1109, 832}},    {{1080, 1920}, {1024, 1820}}, {{0, 0}, {1024, 1024}},
    };
    for (const auto& [display, logical] : cases) {
        EXPECT_EQ(view_fullscreen(display), logical) << display.width << " by " << display.height;
        view_set(logical, display);
        EXPECT_EQ((view_size{view.shown.width, view.shown.height}), view.window);
    }
}

TEST(view, fills_a_room_with_things_as_large_as_they_can_be) {
    const view_size cases[][2] = {
        {{390, 633}, {1024, 1662}},   {{2360, 1400}, {1403, 832}}, {{1024, 832}, {1024, 832}},
        {{100, 10000}, {1024, 2496}}, {{10000, 1}, {3072, 832}},   {{0, 0}, {1024, 1024}},
    };
    for (const auto& [room, logical] : cases) {
        EXPECT_EQ(view_filled(room), logical) << room.width << " by " << room.height;
    }
}

}  // namespace
