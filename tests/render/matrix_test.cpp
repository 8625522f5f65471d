#include "render/matrix.h"

#include <gtest/gtest.h>

#include "render/quad.h"

namespace {

constexpr f32 half_pi = 1.57079632679f;
constexpr mat4 unlike = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};

std::vector<f32> numbers_of(const mat4& m) {
    return {m.at, m.at + 16};
}

TEST(matrix, maps_points) {
    const struct {
        mat4 matrix;
        f32 x, y;
        f32 to_x, to_y;
    } rows[] = {{mat4_translation(3, 4) * mat4_scale(2, 5), 1, 1, 5, 9},
                {mat4_scale(2, 5) * mat4_translation(3, 4), 1, 1, 8, 25},
                {mat4_rotation(half_pi), 1, 0, 0, 1},
                {mat4_rotation(half_pi), 0, 1, -1, 0},
                {mat4_direction(0.6f, 0.8f), 5, 0, 3, 4},
                {mat4_translation(-1, -1) * mat4_scale(2, 2), 0, 0, -1, -1},
                {mat4_translation(-1, -1) * mat4_scale(2, 2), 1, 1, 1, 1}};
    for (const auto& row : rows) {
        const f32* m = row.matrix.at;
        EXPECT_NEAR(m[0] * row.x + m[4] * row.y + m[12], row.to_x, 1e-6f);
        EXPECT_NEAR(m[1] * row.x + m[5] * row.y + m[13], row.to_y, 1e-6f);
        EXPECT_EQ(m[15], 1);
    }
}

TEST(matrix, a_product_may_replace_a_factor) {
    const mat4 other = mat4_rotation(0.3f) * mat4_translation(7, -2);
    mat4 apart;
    mat4_multiply(apart, unlike, other);
    mat4 left = unlike;
    mat4_multiply(left, left, other);
    mat4 right = other;
    mat4_multiply(right, unlike, right);
    EXPECT_EQ(numbers_of(left), numbers_of(apart));
    EXPECT_EQ(numbers_of(right), numbers_of(apart));
    EXPECT_EQ(mat4_scale(2, 3).at[5], 3);
    // Row 1 of the left factor with column 0 of the right one.
    mat4 squared = unlike * unlike;
    EXPECT_EQ(squared.at[1], 2 * 1 + 6 * 2 + 10 * 3 + 14 * 4);
}

TEST(matrix, a_quad_is_its_translation_times_its_scale) {
    mat4 model = quad_model(3.3, -4.7, 100.1, 0.25);
    mat4 product = mat4_translation(3.3f, -4.7f) * mat4_scale(100.1f, 0.25f);
    EXPECT_EQ(numbers_of(model), numbers_of(product));
}

}  // namespace
