#include "render/sprites.h"

#include "game/card_drawing.h"
#include "platform/input.h"
#include "render/button.h"
#include "render/camera.h"
#include "tests/support/draws.h"

namespace {

class sprites_test : public draw_test {};

constexpr colour some_tint = {0.1f, 0.2f, 0.3f, 0.4f};
constexpr i64 corner_count = 4;

// The corners (0, 0), (1, 0), (0, 1), (1, 1) of the unit quad.
void expect_corners(const gpu_draw& draw, const point (&corners)[corner_count]) {
    for (i64 i = 0; i < corner_count; ++i) {
        point found = window_point_of(draw, static_cast<f64>(i % 2), static_cast<f64>(i / 2));
        EXPECT_NEAR(found.x, corners[i].x, 2e-3) << i;
        EXPECT_NEAR(found.y, corners[i].y, 2e-3) << i;
    }
}

TEST_F(sprites_test, a_sprite_fills_its_rectangle) {
    camera.zoom = 0.5;
    camera_matrices_build(1024, 832);
    for (draw_space space : {screen_space, world_space}) {
        sprite_draw(texture_eye, {0, 0, 10, 20}, some_tint, space);
    }
    EXPECT_TRUE(picture_is_at(texture_eye, {0, 0, 10, 20}));
    EXPECT_TRUE(picture_is_at(texture_eye, {512, 416, 5, 10}));
}

TEST_F(sprites_test, a_turned_sprite_keeps_its_pivot_in_place) {
    sprite_draw_rotated(texture_eye, 300, 200, 100, 90, 0, 50, -1.5, some_tint, screen_space);
    sprite_draw_rotated(texture_eye, 300, 200, 100, 90, 90, 50, -1.5, some_tint, screen_space);
    std::vector<gpu_draw> draws = headless_draws();
    expect_corners(draws.at(0), {{250, 201.5}, {350, 201.5}, {250, 291.5}, {350, 291.5}});
    expect_corners(draws.at(1), {{298.5, 150}, {298.5, 250}, {208.5, 150}, {208.5, 250}});
}

// The head's corners are those of its picture, whose tip points up.
TEST_F(sprites_test, arrows) {
    const struct {
        point to;  // from (100, 100)
        f64 offset;
        point shaft[corner_count];
        point head[corner_count];
        // clang-format off
    } rows[] = {
        {{200, 100}, 16, {{100, 114}, {168, 114}, {100, 118}, {168, 118}},
                         {{156, 128}, {156, 104}, {180, 128}, {180, 104}}},
        {{100, 200}, 16, {{86, 100}, {86, 168}, {82, 100}, {82, 168}},
                         {{72, 156}, {96, 156}, {72, 180}, {96, 180}}},
        // Nearer than eight widths: a shaft of negative length.
        {{120, 100}, 0, {{100, 98}, {88, 98}, {100, 102}, {88, 102}},
                        {{76, 112}, {76, 88}, {100, 112}, {100, 88}}},
    };
    // clang-format on
    for (const auto& row : rows) {
        headless_forget_calls();
        arrow_draw(100, 100, row.to.x, row.to.y, 4, row.offset, some_tint, screen_space);
        std::vector<drawn_picture> drawn = pictures_drawn();
        ASSERT_EQ(drawn.size(), 2U);
        EXPECT_EQ(drawn[0].slot, texture_white);
        EXPECT_EQ(drawn[1].slot, texture_triangle);
        EXPECT_EQ(drawn[0].tint, some_tint);
        expect_corners(drawn[0].draw, row.shaft);
        expect_corners(drawn[1].draw, row.head);
    }
}

// Around (300, 200), 64 by 32: from 268 to 332 and from 184 to 216.
TEST_F(sprites_test, a_button_reports_the_left_click_once) {
    const struct {
        f64 x, y;  // y upwards
        u32 button;
        bool over, clicked;
        // clang-format off
    } rows[] = {
        {268, 184, mouse_left, true, true}, {331.9, 215.9, mouse_left, true, true},
        {267.9, 200, mouse_left, false, false}, {300, 183.9, mouse_left, false, false},
        {332, 200, mouse_left, false, false}, {300, 216, mouse_left, false, false},
        {300, 200, mouse_right, true, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        headless_mouse_move(row.x, 832 - row.y);
        headless_mouse_press(row.button);
        for (bool clicked : {row.clicked, false}) {
            SCOPED_TRACE(testing::Message() << row.x << ", " << row.y);
            input_poll();
            headless_forget_calls();
            EXPECT_EQ(button_draw("Go", 300, 200, 64, 32), clicked);
            EXPECT_TRUE(picture_is_at(texture_gradient3, {268, 184, 64, 32}));
            EXPECT_TRUE(text_is_centred_at("Go", 300, 200));
            EXPECT_EQ(bool(picture_is_at(texture_white, {268, 184, 64, 32})), row.over);
        }
        headless_mouse_release(row.button);
    }
}

TEST_F(sprites_test, cards_have_as_many_pips_as_their_number) {
    const struct {
        u8 number;
        std::size_t pips;
        box first, last;
    } rows[] = {{1, 1, {100, 200, 80, 80}, {100, 200, 80, 80}},
                {3, 3, {104, 204, 32, 32}, {124, 244, 32, 32}},
                {5, 5, {106.8, 206.8, 26.4, 26.4}, {126.8, 226.8, 26.4, 26.4}},
                {7, 6, {110, 210, 20, 20}, {150, 230, 20, 20}}};
    for (const auto& row : rows) {
        headless_forget_calls();
        card_draw({4, 4, row.number}, 100, 200, 80);
        EXPECT_EQ(pictures_drawn().size(), row.pips + 1);
        EXPECT_EQ(pictures_drawn().front().tint, (colour{0.3f / 7, 0, 1.0f / 7, 1}));
        EXPECT_EQ(pictures_drawn().back().tint, colour_rgba(4));
        EXPECT_TRUE(picture_is_at(texture_white, {100, 200, 80, 80}));
        EXPECT_TRUE(picture_is_at(texture_hexagon, row.first));
        EXPECT_TRUE(picture_is_at(texture_hexagon, row.last));
    }
    headless_forget_calls();
    card_draw({4, 4, 200}, 100, 200, 80);  // negative as a signed byte
    EXPECT_EQ(pictures_drawn().size(), 1U);
}

TEST_F(sprites_test, a_card_of_no_known_kind_is_black_without_a_picture) {
    card_draw({6, 6, 1}, 0, 0, 64);
    EXPECT_EQ(pictures_drawn().at(1).tint, colour_black);
    EXPECT_EQ(pictures_drawn().at(1).draw.texture, 0U);
}

}  // namespace
