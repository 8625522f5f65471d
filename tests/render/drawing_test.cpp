// Sprites, arrows, cards, buttons and texts: where they land. The camera that the world's go
// through.

#include <array>
#include <cmath>
#include <limits>
#include <sstream>

#include "game/card_drawing.h"
#include "render/button.h"
#include "render/camera.h"
#include "render/font.h"
#include "render/goal_text.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"
#include "rules/screens.h"
#include "tests/support/screen.h"

namespace {

constexpr colour some_tint = {0.1f, 0.2f, 0.3f, 0.4f};

// Inside a frame, with nothing drawn yet. Places are from the window's corner, 512 and 416 pixels
// off its centre.
class drawing_test : public screen_test {
  protected:
    drawing_test() {
        begin();
        frame();
        render_frame_begin();
        headless_forget_calls();
    }
};

// A corner of what was drawn, to a tenth of a pixel from the window's corner.
std::string corner_text(const gpu_draw& draw, f64 u, f64 v) {
    point place = place_of(draw, u, v);
    return (std::ostringstream() << std::round(place.x * 10) / 10 + 512 << ','
                                 << std::round(place.y * 10) / 10 + 416 << ' ')
        .str();
}

TEST_F(drawing_test, SpritesFillTheirRectangles) {
    sprite_draw(texture_eye, {0, 0, 10, 20}, some_tint);
    sprite_draw_rotated(texture_eye, 300, 200, 100, 90, 0, 50, -1.5, colour_white, screen_space);
    sprite_draw_rotated(texture_eye, 300, 200, 100, 90, 90, 50, -1.5, colour_white, screen_space);
    camera = {100, 50, 2, 256};
    camera_matrices_build(1024, 832);
    sprite_draw(texture_eye, {150, 75, 10, 20}, some_tint, world_space);
    EXPECT_EQ(drawn(),
              "eye -512 -416 10 20 (0.1 0.2 0.3 0.4)\neye -262 -214.5 100 90\n"
              "eye -213.5 -266 -90 100\neye 100 50 20 40 (0.1 0.2 0.3 0.4)\n");
    world_point seen = view_world_point(612, 466);
    EXPECT_EQ(seen.x, 150);
    EXPECT_EQ(seen.y, 75);
}

TEST_F(drawing_test, ArrowsEndBeforeTheirPoint) {
    arrow_draw(100, 100, 200, 100, 4, 16, some_tint, screen_space);
    arrow_draw(100, 100, 100, 200, 4, 16, colour_white, screen_space);
    arrow_draw(100, 100, 120, 100, 4, 0, colour_white, screen_space);  // a shaft of negative length
    EXPECT_EQ(drawn(),
              "arrow -412 -300 to -332 -300 (0.1 0.2 0.3 0.4)\narrow -428 -316 to -428 -236\n"
              "arrow -412 -316 to -412 -316\n");
    std::vector<gpu_draw> draws = headless_draws();
    EXPECT_EQ(corner_text(draws[0], 0, 0) + corner_text(draws[0], 1, 1), "100,114 168,118 ");
    EXPECT_EQ(corner_text(draws[1], 0, 0) + corner_text(draws[1], 1, 0), "156,128 156,104 ");
    EXPECT_EQ(corner_text(draws[4], 0, 0) + corner_text(draws[4], 1, 1), "100,98 88,102 ");
}

TEST_F(drawing_test, CardsHaveAsManyPipsAsTheirNumber) {
    for (auto [number, pips, corners] : {std::tuple{1, 1U, "100,200 180,280 "},
                                         {3, 3U, "104,204 156,276 "},
                                         {5, 5U, "106.8,206.8 153.2,253.2 "},
                                         {6, 6U, "110,210 170,250 "},
                                         {7, 6U, "110,210 170,250 "},
                                         {200, 0U, "100,200 180,280 "}}) {  // negative as i8
        headless_forget_calls();
        card_draw({4, 4, static_cast<u8>(number)}, 100, 200, 80);
        std::vector<gpu_draw> draws = headless_draws();
        ASSERT_EQ(draws.size(), pips + 1);
        EXPECT_EQ(draws[0].colour, (std::array{0.3f / 7, 0.0f, 1.0f / 7, 1.0f}));
        EXPECT_EQ(corner_text(draws[pips > 0], 0, 0) + corner_text(draws.back(), 1, 1), corners);
    }
    headless_forget_calls();
    card_draw({6, 6, 1}, 0, 0, 64);  // of no known kind
    EXPECT_EQ(headless_draws()[1].texture, 0U);
    EXPECT_EQ(headless_draws()[1].colour, (std::array{0.0f, 0.0f, 0.0f, 1.0f}));
}

// Around (300, 200), 64 by 32: from 268 to 332 and from 184 to 216.
TEST_F(drawing_test, AButtonReportsTheLeftClickOnce) {
    for (auto [x, y, button, over, clicked] :
         {std::tuple{268.0, 184.0, u32{mouse_left}, true, true},
          {331.9, 215.9, mouse_left, true, true},
          {267.9, 200.0, mouse_left, false, false},
          {300.0, 183.9, mouse_left, false, false},
          {332.0, 200.0, mouse_left, false, false},
          {300.0, 216.0, mouse_left, false, false},
          {300.0, 200.0, mouse_right, true, false}}) {
        headless_mouse_move(x, 832 - y);
        headless_mouse_press(button);
        for (bool expected : {clicked, false}) {
            input_poll();
            headless_forget_calls();
            EXPECT_EQ(button_draw("Go", 300, 200, 64, 32), expected) << x << ' ' << y;
            EXPECT_EQ(drawn(), std::string("[Go] -212 -216 64 32\n") +
                                   (over ? "white -244 -232 64 32 (1 1 1 0.5)\n" : ""));
        }
        headless_mouse_release(button);
    }
}

TEST_F(drawing_test, CharactersFollowThePen) {
    const struct {
        const char* text;
        text_layout layout;
        const char* places;  // the lower-left corners
    } rows[] = {
        {"x \ty", text_left, "500,400 539,400 "},
        {" x\ny", text_left, "513,400 500,368 "},
        {"xy", text_centred, "487,384 500,384 "},
        // Only the first line is shifted, by half of all lines' width.
        {"xx\ny", text_centred, "480.5,368 493.5,368 500,336 "},
        {"x%", text_centred, "493.5,384 506.5,384 "},  // drawn, but not counted in the width
        {"A", text_icons, "484,384 "},
        {"xA", text_icons, "477.5,384 490.5,384 "},
        {"%AA", text_icons, "477.5,384 490.5,384 "},
        {"%%A", text_icons, "493.5,384 "},
        {"% A", text_icons, "490.5,384 "},
    };
    for (const auto& row : rows) {
        headless_forget_calls();
        text_draw(str_of(row.text), 500, 400, 256, colour_white, screen_space, row.layout);
        std::string places;
        for (const gpu_draw& draw : headless_draws()) {
            places += corner_text(draw, 0, 0);
        }
        EXPECT_EQ(places, row.places) << row.text;
    }
}

TEST_F(drawing_test, IconsShowPicturesAndOnlyDotsHaveTheirOwnColour) {
    text_draw("ABCDEFabcdefT~G%A", 0, 0, 256, some_tint, screen_space, text_icons);
    EXPECT_EQ(drawn().substr(0, 20), "\"ABCDEFabcdefT~G%A\" ");
    std::vector<gpu_draw> draws = headless_draws();
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(draws.at(i).uv_rect == (std::array<f32, 4>{0, 0, 1, 1}), i < 14) << i;
        EXPECT_EQ(draws.at(i).texture == font.texture, i >= 14) << i;
        EXPECT_EQ(draws.at(i).colour == (std::array{0.1f, 0.2f, 0.3f, 0.4f}), i >= 6) << i;
    }
}

TEST_F(drawing_test, GoalsAreSpelt) {
    const card purple = {4, 5, 7};
    const card other = {1, 2, 10};
    const std::pair<goal, const char*> rows[] = {
        {{0, 0, 5, {}, {}}, "sum %ex%a%ctly 5"},
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
    for (const auto& [g, text] : rows) {
        char bytes[goal_text_capacity];
        text_buffer buffer = {bytes, goal_text_capacity, 0, 0};
        goal_text_put(buffer, g);
        EXPECT_EQ(string_of(text_buffer_text(buffer)), text);
    }
}

TEST_F(drawing_test, KeysAndWheelMoveTheCamera) {
    const struct {
        u32 key;
        int frames;
        f64 wheel, pointer_y;
        bool typing;
        f64 x, y, zoom;
        // clang-format off
    } rows[] = {
        {key_a, 60, 0, 0, false, -120, 4, 2}, {key_d, 60, 0, 0, false, 136, 4, 2},
        {key_w, 60, 0, 0, false, 8, 132, 2}, {key_s, 60, 0, 0, false, 8, -124, 2},
        {key_q, 60, 0, 0, false, 8, 4, 1.5}, {key_e, 60, 0, 0, false, 8, 4, 2.5},
        {key_q, 600, 0, 0, false, 8, 4, 0.25}, {key_e, 600, 0, 0, false, 8, 4, 4},
        {key_r, 1, 0, 0, false, 0, 0, 1}, {key_r, 1, 0, 0, true, 8, 4, 2},
        // The wheel rests over the bottom panel, the keys while a text is typed.
        {key_z, 1, 1, 655, false, 8, 4, 2.25}, {key_z, 1, 1, 656, false, 8, 4, 2},
        {key_d, 60, 1, 0, true, 8, 4, 2.25}, {key_e, 60, 0, 0, true, 8, 4, 2},
    };
    // clang-format on
    auto step = [] {
        input_poll();
        camera_input_apply(832);
    };
    for (const auto& row : rows) {
        camera = {8, 4, 2, 256};
        screens.text_entry_open = row.typing;
        headless_mouse_move(10, row.pointer_y);
        headless_wheel(row.wheel);
        headless_key_hold(row.key);
        for (int i = 0; i < row.frames; ++i) {
            step();
        }
        headless_key_release(row.key);
        step();
        SCOPED_TRACE(&row - rows);
        EXPECT_NEAR(camera.x, row.x, 1e-9);
        EXPECT_NEAR(camera.y, row.y, 1e-9);
        EXPECT_NEAR(camera.zoom, row.zoom, 1e-9);
    }
    screens.text_entry_open = false;
    headless_key_hold(key_r);
    step();
    camera.x = 10;
    step();  // a held key counts once
    EXPECT_EQ(camera.x, 10);
}

}  // namespace
