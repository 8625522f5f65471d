// What of a picture is drawn anew, for frames made up by hand.

#include "platform/gl/damage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr clip_box left = {-0.9f, -0.9f, -0.5f, -0.5f};
constexpr clip_box right = {0.5f, 0.5f, 0.9f, 0.9f};
constexpr clip_box both = {-0.9f, -0.9f, 0.9f, 0.9f};

using frame = std::vector<drawn>;

TEST(gl_damage, holds_every_draw_that_came_went_or_changed_its_place) {
    const drawn back = {1, clip_all};
    const drawn a = {2, left};
    const drawn b = {3, right};
    const drawn everywhere = {4, clip_all};
    frame long_before(1'000'000, a);
    frame long_after(1'000'000, b);
    long_before.insert(long_before.begin(), everywhere);
    struct two_frames {
        frame before, after;
        clip_box damage;
    };
    const two_frames cases[] = {
        {{back, a, b}, {back, a, b}, clip_nothing},
        {{back, a}, {back, a, b}, right},
        {{back, a, b}, {back, b}, left},
        {{back, a, b}, {back, b, a}, right},  // below the other one now
        {{back, a}, {back, b}, both},
        {{back, a, a}, {back, a}, left},
        {{back}, {everywhere}, clip_all},
        {{}, {back, a}, clip_all},
        {{back}, {}, clip_all},
        {long_before, long_after, clip_all},
    };
    for (const two_frames& one : cases) {
        EXPECT_EQ(damage_find(one.before, one.after), one.damage) << &one - cases;
    }
}

TEST(gl_damage, bounds_of_what_cannot_be_told_are_all) {
    constexpr f32 infinity = std::numeric_limits<f32>::infinity();
    struct placed {
        f32 x_edge[2], y_edge[2], origin[2];
        f32 depth;
        clip_box bounds;
    };
    constexpr placed squares[] = {
        {{1, 0}, {0, 1}, {0, 0}, 1, {0, 0, 1, 1}},
        {{-1, 1}, {-1, -1}, {0, 0}, 1, {-2, -1, 0, 1}},  // turned
        {{1, 0}, {0, 1}, {-5, 9}, 1, {-5, 9, -4, 10}},   // outside
        {{NAN, 0}, {0, 1}, {0, 0}, 1, clip_all},
        {{1, 0}, {0, 1}, {0, NAN}, 1, clip_all},
        {{1, 0}, {0, 1}, {infinity, 0}, 1, clip_all},
        {{infinity, 0}, {-infinity, 1}, {0, 0}, 1, clip_all},
        {{3e38f, 0}, {3e38f, 1}, {0, 0}, 1, clip_all},  // their sum is too large
        {{65, 0}, {0, 1}, {0, 0}, 1, clip_all},         // rounded too much
        {{1, 0}, {0, 1}, {0, 0}, 2, clip_all},          // seen in depth
    };
    for (const placed& one : squares) {
        const f32 matrix[16] = {one.x_edge[0],
                                one.x_edge[1],
                                0,
                                0,
                                one.y_edge[0],
                                one.y_edge[1],
                                0,
                                0,
                                0,
                                0,
                                1,
                                0,
                                one.origin[0],
                                one.origin[1],
                                0,
                                one.depth};
        EXPECT_EQ(damage_bounds(matrix), one.bounds) << &one - squares;
    }
}

TEST(gl_damage, pixels_are_those_that_a_gpu_may_change_inside_the_picture) {
    constexpr view_box whole = {10, 20, 200, 100};
    struct placed {
        clip_box damage;
        view_box pixels;
    };
    constexpr placed boxes[] = {
        {clip_all, whole},
        {{0, 0, 0.5f, 0.5f}, {109, 69, 52, 27}},
        {{0.003f, 0, 0.004f, 0.01f}, {109, 69, 3, 3}},  // within one pixel
        {{-60, -60, 60, 60}, whole},
        {{2, 0, 3, 0}, {209, 69, 1, 2}},  // beyond the edge: what rounding may reach
    };
    for (const placed& one : boxes) {
        EXPECT_EQ(damage_pixels(one.damage, whole), one.pixels) << &one - boxes;
    }
    EXPECT_EQ(damage_pixels(clip_nothing, whole).width, 0);
}

TEST(gl_damage, whatever_may_touch_its_pixels_is_drawn) {
    constexpr view_size whole = {100, 100};
    constexpr clip_box damage = {0, 0, 0.1f, 0.1f};
    EXPECT_TRUE(damage_meets(damage, {-0.5f, -0.5f, 0.5f, 0.5f}, whole));
    EXPECT_TRUE(damage_meets(damage, {0.14f, 0, 0.2f, 0.1f}, whole));  // in the margin
    EXPECT_TRUE(damage_meets(damage, {0, -0.1f, 0.1f, -0.04f}, whole));
    EXPECT_FALSE(damage_meets(damage, {0.2f, 0, 0.3f, 0.1f}, whole));
    EXPECT_FALSE(damage_meets(damage, {0, -0.3f, 0.1f, -0.2f}, whole));
    EXPECT_FALSE(damage_meets(clip_nothing, {-0.5f, -0.5f, 0.5f, 0.5f}, whole));
}

}  // namespace
