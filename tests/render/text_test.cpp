#include "render/text.h"

#include <limits>

#include "platform/gpu.h"
#include "render/font.h"
#include "render/goal_text.h"
#include "shell/camera.h"
#include "tests/render/calls.h"
#include "tests/support/draws.h"

namespace {

class text_test : public draw_test {
  protected:
    // Where each character of a text of size 256 lands.
    std::vector<box> places(std::string_view text, bool icons, bool centred) {
        headless_forget_calls();
        text_draw(str_of(text), 500, 400, 256, colour_white, true, icons, centred);
        std::vector<box> found;
        for (const gpu_draw& draw : headless_draws()) {
            point low = window_point_of(draw, 0, 0);
            point high = window_point_of(draw, 1, 1);
            found.push_back({low.x, low.y, high.x - low.x, high.y - low.y});
        }
        return found;
    }
};

void expect_places(const std::vector<box>& found, const std::vector<box>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i].x, expected[i].x, 1e-3) << i;
        EXPECT_NEAR(found[i].y, expected[i].y, 1e-3) << i;
        EXPECT_NEAR(found[i].width, expected[i].width, 1e-3) << i;
        EXPECT_NEAR(found[i].height, expected[i].height, 1e-3) << i;
    }
}

TEST_F(text_test, characters_follow_the_pen) {
    const struct {
        const char* text;
        bool icons, centred;
        std::vector<box> places;
    } rows[] = {
        {"xy", false, false, {{500, 400, 13, 32}, {513, 400, 13, 32}}},
        {"x \ty", false, false, {{500, 400, 13, 32}, {539, 400, 13, 32}}},
        {" x\ny", false, false, {{513, 400, 13, 32}, {500, 368, 13, 32}}},
        {"xy", false, true, {{487, 384, 13, 32}, {500, 384, 13, 32}}},
        // Only the first line is shifted, by half of all lines' width.
        {"xx\ny", false, true, {{480.5, 368, 13, 32}, {493.5, 368, 13, 32}, {500, 336, 13, 32}}},
        // Drawn, but not counted in the width.
        {"x%", false, true, {{493.5, 384, 13, 32}, {506.5, 384, 13, 32}}},
        {"A", false, false, {{500, 400, 13, 32}}},
        // Icons are centred in any case.
        {"A", true, false, {{484, 384, 32, 32}}},
        {"xA", true, true, {{477.5, 384, 13, 32}, {490.5, 384, 32, 32}}},
        {"%AA", true, true, {{477.5, 384, 13, 32}, {490.5, 384, 32, 32}}},
        {"%%A", true, true, {{493.5, 384, 13, 32}}},
        {"% A", true, true, {{490.5, 384, 32, 32}}},
        {"%", true, true, {}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        expect_places(places(row.text, row.icons, row.centred), row.places);
    }
}

TEST_F(text_test, icons_show_pictures_and_only_dots_have_their_own_colour) {
    constexpr colour tint = {0.1f, 0.2f, 0.3f, 0.4f};
    const struct {
        char letter;
        texture_slot slot;
        colour shown;
    } rows[] = {{'A', texture_circle, {1, 0, 0, 1}},
                {'B', texture_circle, {0, 0, 1, 1}},
                {'C', texture_circle, {0, 1, 0, 1}},
                {'D', texture_circle, {1, 1, 0, 1}},
                {'E', texture_circle, {0.3f, 0, 1, 1}},
                {'F', texture_circle, {1, 0.3f, 0, 1}},
                {'a', texture_circle, tint},
                {'b', texture_triangle, tint},
                {'c', texture_square, tint},
                {'d', texture_pentagon, tint},
                {'e', texture_hexagon, tint},
                {'f', texture_star, tint},
                {'T', texture_eye, tint},
                {'~', texture_similarity, tint}};
    const std::array<f32, 4> whole = {0, 0, 1, 1};
    for (const auto& row : rows) {
        headless_forget_calls();
        const char text[] = {row.letter, '%', row.letter};
        text_draw({text, 3}, 0, 0, 256, tint, false, true, true);
        std::vector<gpu_draw> draws = headless_draws();
        ASSERT_EQ(draws.size(), 2U);
        EXPECT_EQ(draws[0].texture, texture_set.textures[row.slot]) << row.letter;
        EXPECT_EQ(draws[0].colour, (std::array{row.shown.r, row.shown.g, row.shown.b, row.shown.a}))
            << row.letter;
        EXPECT_EQ(draws[0].uv_rect, whole);
        EXPECT_EQ(draws[1].texture, font.texture);
        EXPECT_EQ(draws[1].colour, (std::array{0.1f, 0.2f, 0.3f, 0.4f}));
        EXPECT_NE(draws[1].uv_rect, whole);
    }
}

TEST_F(text_test, world_texts_go_through_the_camera) {
    camera = {100, 50, 2, 256};
    camera_matrices_build(1024, 832);
    text_draw("x", 150, 75, 256, colour_white, false, false, false);
    drawn_text text = texts_drawn().at(0);
    EXPECT_NEAR(text.start.x, 612, 1e-3);
    EXPECT_NEAR(text.start.y, 466, 1e-3);
    EXPECT_NEAR(text.size, 512, 1e-3);
    EXPECT_NEAR(world_point_of(text.start).x, 150, 1e-3);
}

TEST_F(text_test, an_empty_font_takes_no_room) {
    font = {};
    for (const box& place : places("some text", false, true)) {
        EXPECT_NEAR(place.width, 0, 1e-3);
        EXPECT_NEAR(place.x, 500, 1e-3);
    }
}

TEST_F(text_test, icons_set_texture_and_colour_for_every_character) {
    text_draw("Ax", 0, 0, 256, colour_white, true, true, true);
    EXPECT_TRUE(last_calls_are(
        "texture_unit 0; texture_bind 1 1000; shader_uniform1i 4 0; "
        "shader_uniform4f 3 1 1 1 1; texture_bind 1 1; "
        "shader_uniform4f 3 1 0 0 1; shader_uniform_matrix4fa 0 1 0; "
        "shader_uniform4f 1 0 0 1 1; draw_elements 4 0 0 6 0 1; "
        "texture_bind 1 1000; shader_uniform4f 3 1 1 1 1; "
        "shader_uniform_matrix4fa 0 1 0; shader_uniform4f 1 0.5 0.4375 0.0507812 0.125; "
        "draw_elements 4 0 0 6 0 1"));
}

TEST_F(text_test, goals) {
    const card purple = {4, 5, 7};
    const card other = {1, 2, 10};
    const struct {
        goal g;
        const char* text;
    } rows[] = {{{0, 0, 5, {}, {}}, "sum %ex%a%ctly 5"},
                {{1, 2, 3, {}, {}}, "# %distin%ct %colors %at l%e%ast 3"},
                {{2, 1, 3, {}, {}}, "# %distin%ct sh%ap%es %at most 3"},
                {{3, 1, 3, {}, {}}, "# %distin%ct num%b%ers %at most 3"},
                {{4, 0, 2, purple, other}, "num E %ex%a%ctly 2"},
                {{5, 0, 2, purple, other}, "num f %ex%a%ctly 2"},
                {{6, 0, 2, purple, other}, "num 7 %ex%a%ctly 2"},
                {{7, 0, 2, purple, other}, "num E or B %ex%a%ctly 2"},
                {{8, 0, 2, purple, other}, "num f or c %ex%a%ctly 2"},
                {{9, 0, 2, purple, other}, "num 7 or : %ex%a%ctly 2"},
                {{10, 1, 4, {}, {}}, " %at most 4"},
                {{0, 3, 5, {}, {}}, "sum5"},
                {{255, 255, -7, {}, {}}, "-7"},
                {{3, 2, std::numeric_limits<i64>::min(), {}, {}},
                 "# %distin%ct num%b%ers %at l%e%ast -9223372036854775808"}};
    for (const auto& row : rows) {
        char bytes[goal_text_capacity];
        text_buffer buffer = {bytes, goal_text_capacity, 0, 0};
        goal_text_put(buffer, row.g);
        EXPECT_EQ(string_of(text_buffer_text(buffer)), row.text);
    }
    goal_draw(rows[7].g, 512, 88);
    EXPECT_TRUE(text_is_centred_at("num E or B %ex%a%ctly 2", 512, 88));
}

}  // namespace
