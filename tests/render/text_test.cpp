#include "render/text.h"

#include <cmath>
#include <limits>
#include <sstream>

#include "render/camera.h"
#include "render/font.h"
#include "render/goal_text.h"
#include "tests/support/draws.h"

namespace {

class text_test : public draw_test {};

// Where each character lands: "x,y,width,height", to a tenth of a pixel.
std::string places_drawn() {
    std::ostringstream text;
    for (const gpu_draw& draw : headless_draws()) {
        point low = window_point_of(draw, 0, 0);
        point high = window_point_of(draw, 1, 1);
        text << (text.tellp() > 0 ? " " : "");
        for (f64 length : {low.x, low.y, high.x - low.x, high.y - low.y}) {
            text << (length == low.x ? "" : ",") << std::round(length * 10) / 10;
        }
    }
    return text.str();
}

TEST_F(text_test, characters_follow_the_pen) {
    const struct {
        const char* text;
        text_layout layout;
        const char* places;
        // clang-format off
    } rows[] = {
        {"x \ty", text_left, "500,400,13,32 539,400,13,32"},
        {" x\ny", text_left, "513,400,13,32 500,368,13,32"},
        {"xy", text_centred, "487,384,13,32 500,384,13,32"},
        // Only the first line is shifted, by half of all lines' width.
        {"xx\ny", text_centred, "480.5,368,13,32 493.5,368,13,32 500,336,13,32"},
        // Drawn, but not counted in the width.
        {"x%", text_centred, "493.5,384,13,32 506.5,384,13,32"},
        {"A", text_icons, "484,384,32,32"},
        {"xA", text_icons, "477.5,384,13,32 490.5,384,32,32"},
        {"%AA", text_icons, "477.5,384,13,32 490.5,384,32,32"},
        {"%%A", text_icons, "493.5,384,13,32"},
        {"% A", text_icons, "490.5,384,32,32"},
    };
    // clang-format on
    for (const auto& row : rows) {
        headless_forget_calls();
        text_draw(str_of(row.text), 500, 400, 256, colour_white, screen_space, row.layout);
        EXPECT_EQ(places_drawn(), row.places) << row.text;
    }
}

TEST_F(text_test, icons_show_pictures_and_only_dots_have_their_own_colour) {
    constexpr colour tint = {0.1f, 0.2f, 0.3f, 0.4f};
    text_draw("ABCDEFabcdefT~G%A", 0, 0, 256, tint, screen_space, text_icons);
    EXPECT_EQ(texts_drawn().at(0).text, "ABCDEFabcdefT~G%A");
    std::vector<gpu_draw> draws = headless_draws();
    for (std::size_t i = 0; i < 16; ++i) {
        bool is_icon = i < 14;
        EXPECT_EQ(draws.at(i).uv_rect == (std::array<f32, 4>{0, 0, 1, 1}), is_icon) << i;
        EXPECT_EQ(draws.at(i).texture == font.texture, !is_icon) << i;
        EXPECT_EQ(draws.at(i).colour == (std::array{0.1f, 0.2f, 0.3f, 0.4f}), i >= 6) << i;
    }
}

TEST_F(text_test, world_texts_go_through_the_camera) {
    camera = {100, 50, 2, 256};
    camera_matrices_build(1024, 832);
    text_draw("x", 150, 75, 256, colour_white, world_space, text_left);
    EXPECT_TRUE(text_starts_at("x", 612, 466));
    EXPECT_NEAR(texts_drawn().at(0).size, 512, 1e-3);
}

TEST_F(text_test, goals) {
    const card purple = {4, 5, 7};
    const card other = {1, 2, 10};
    const struct {
        goal g;
        const char* text;
    } rows[] = {{{0, 0, 5, {}, {}}, "sum %ex%a%ctly 5"},
                {{1, 1, 3, {}, {}}, "# %distin%ct %colors %at most 3"},
                {{4, 0, 2, purple, other}, "num E %ex%a%ctly 2"},
                {{5, 0, 2, purple, other}, "num f %ex%a%ctly 2"},
                {{6, 0, 2, purple, other}, "num 7 %ex%a%ctly 2"},
                {{7, 0, 2, purple, other}, "num E or B %ex%a%ctly 2"},
                {{8, 0, 2, purple, other}, "num f or c %ex%a%ctly 2"},
                {{9, 0, 2, purple, other}, "num 7 or : %ex%a%ctly 2"},
                {{255, 255, -7, {}, {}}, "-7"},
                {{3, 2, std::numeric_limits<i64>::min(), {}, {}},
                 "# %distin%ct num%b%ers %at l%e%ast -9223372036854775808"}};
    for (const auto& row : rows) {
        char bytes[goal_text_capacity];
        text_buffer buffer = {bytes, goal_text_capacity, 0, 0};
        goal_text_put(buffer, row.g);
        EXPECT_EQ(string_of(text_buffer_text(buffer)), row.text);
    }
    goal_draw(rows[5].g, 512, 88);
    EXPECT_TRUE(text_is_centred_at("num E or B %ex%a%ctly 2", 512, 88));
}

}  // namespace
