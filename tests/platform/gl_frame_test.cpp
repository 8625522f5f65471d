// The frames that the real back ends keep, with calls that only tell what they are.

#include "platform/gl/frame.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/gl/coverage.h"
#include "platform/gl/targets.h"
#include "platform/headless/headless.h"

namespace {

constexpr u64 second = 1'000'000'000;

using tints = std::vector<u32>;

tints made;  // the draws that reached the GPU, by what they were tinted with
u32 tint;
u64 now;

// A frame of so many draws, the first of which has this tint.
void frame_make(u32 first, u32 count, f32 coverage) {
    for (u32 i = 0; i < count; ++i) {
        frame_set(frame_call::uniform_1i, {1, 2, first + i});
        frame_draw(frame_call::draw_elements, {}, coverage, clip_all);
    }
    made.clear();
    frame_finish();
}

}  // namespace

bool targets_fit() {
    return true;
}

void frame_call_run(frame_call call, std::span<const u32> words) {
    if (call == frame_call::uniform_1i) {
        tint = words[2];
    } else if (call == frame_call::draw_elements) {
        made.push_back(tint);
    } else if (call == frame_call::part_end) {
        headless_set_time(now += second);
    }
}

namespace {

TEST(gl_frame, a_frame_is_drawn_when_it_is_new_or_asked_for) {
    frame_make(1, 2, 1);
    EXPECT_EQ(made, (tints{1, 2}));
    frame_make(1, 2, 1);
    EXPECT_TRUE(made.empty());
    EXPECT_FALSE(frame_is_drawn());
    frame_ask();
    frame_hold(true);
    frame_make(1, 2, 1);
    EXPECT_FALSE(frame_is_drawn());
    frame_hold(false);
    frame_make(1, 2, 1);
    EXPECT_TRUE(frame_is_drawn());
}

TEST(gl_frame, a_draw_that_covers_nothing_is_left_out_and_what_it_set_is_not) {
    frame_set(frame_call::uniform_1i, {1, 2, 7});
    frame_draw(frame_call::draw_elements, {}, 0, clip_all);
    frame_draw(frame_call::draw_elements, {}, 0.5f, clip_all);
    made.clear();
    frame_finish();
    EXPECT_EQ(made, (tints{7}));
}

TEST(gl_frame, a_long_picture_comes_in_parts_unless_a_shorter_one_is_due) {
    frame_make(0, 100, 1);
    EXPECT_EQ(made.size(), 33U);
    EXPECT_TRUE(frame_is_begun());
    EXPECT_FALSE(frame_is_drawn());
    frame_make(500, 100, 1);
    EXPECT_EQ(made.front(), 33U);
    frame_make(7, 1, 1);
    EXPECT_EQ(made, (tints{7}));
    EXPECT_TRUE(frame_is_drawn());
}

TEST(gl_frame, a_square_covers_what_clip_space_holds_of_it) {
    struct placed {
        f32 x_edge[2], y_edge[2], origin[2];
        f32 coverage;
    };
    constexpr placed squares[] = {
        {{2, 0}, {0, 2}, {-1, -1}, 1},          // all of it
        {{200, 0}, {0, 200}, {-100, -100}, 1},  // far more
        {{1, 0}, {0, 2}, {0.5f, -1}, 0.25f},    // half of it to the right
        {{1, 0}, {0, 1}, {1, 0}, 0},            // beyond an edge
        {{1, 1}, {-1, 1}, {0, -3}, 0},          // turned, below
        {{1, 1}, {-1, 1}, {0, -1}, 0.5f},       // turned, inside
        {{1, 0}, {0, 0}, {0, 0}, 0},            // flat
        {{-1, 0}, {0, 1}, {1.5f, 0}, 0.125f},   // mirrored
        {{NAN, 0}, {0, 1}, {0, 0}, 1},         {{1, 0}, {0, 1}, {NAN, 0}, 1},
    };
    for (const placed& square : squares) {
        const f32 matrix[16] = {square.x_edge[0],
                                square.x_edge[1],
                                0,
                                0,
                                square.y_edge[0],
                                square.y_edge[1],
                                0,
                                0,
                                0,
                                0,
                                1,
                                0,
                                square.origin[0],
                                square.origin[1],
                                0,
                                1};
        EXPECT_FLOAT_EQ(unit_square_coverage(matrix), square.coverage) << &square - squares;
    }
    const f32 in_depth[16] = {1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 5, 5, 0, 1};
    EXPECT_EQ(unit_square_coverage(in_depth), 1);
}

}  // namespace
