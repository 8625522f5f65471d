// Sprites, arrows, cards, buttons and texts: where they land. The camera that the world's go
// through.

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "game/card_drawing.h"
#include "platform/common/input_state.h"
#include "render/camera.h"
#include "render/goal_text.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"
#include "shown/screens.h"
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

// What was drawn, and where the unit quad's corners (0, 0) and (1, 1) of every draw landed, to a
// tenth of a pixel from the window's centre.
std::string draws_text() {
    std::ostringstream text;
    for (const std::string& line : drawn_lines()) {
        text << line << "; ";
    }
    for (const gpu_draw& draw : headless_draws()) {
        for (f64 corner : {0.0, 1.0}) {
            point place = place_of(draw, corner, corner);
            text << std::round(place.x * 10) / 10 + 0.0 << ','
                 << std::round(place.y * 10) / 10 + 0.0 << ' ';
        }
    }
    return text.str();
}

// A case is a call, in window pixels from the window's corner.
TEST_F(drawing_test, WhatIsDrawnWhere) {
    golden_check("render/drawing", [](const std::string& given) {
        std::istringstream in(given);
        std::string verb;
        f64 n[6] = {};
        in >> verb;
        for (f64& number : n) {
            in >> number;
        }
        headless_forget_calls();
        if (verb == "sprite") {
            sprite_draw(texture_eye, {n[0], n[1], n[2], n[3]}, some_tint);
        } else if (verb == "turned") {
            sprite_draw_rotated(texture_eye, n[0], n[1], n[2], n[3], n[4], 50, -1.5, some_tint,
                                screen_space);
        } else if (verb == "arrow") {
            arrow_draw(n[0], n[1], n[2], n[3], 4, n[4], some_tint, screen_space);
        } else if (verb == "card") {
            card_draw({static_cast<u8>(n[0]), static_cast<u8>(n[1]), static_cast<u8>(n[2])}, 100,
                      200, 80);
        } else if (verb == "goal") {
            goal_draw({static_cast<u8>(n[0]),
                       static_cast<u8>(n[1]),
                       static_cast<i64>(n[2]),
                       {4, 5, 7},
                       {1, 2, 10}},
                      512, 416);
            return drawn_lines().at(0);
        } else {
            std::string text = replaced(given.substr(verb.size() + 1), ';', '\n');
            text_draw(str_of(text), 500, 400, 256, some_tint, screen_space,
                      verb == "left"    ? text_left
                      : verb == "icons" ? text_icons
                                        : text_centred);
        }
        return draws_text();
    });
}

// A case is a held key, for how many frames, the wheel, the pointer's row and whether a text is
// typed: the camera from (8, 4) and zoom 2 on. The wheel rests over the bottom panel, the keys
// while typing.
TEST_F(drawing_test, KeysAndWheelMoveTheCamera) {
    auto step = [] {
        input_poll();
        camera_input_apply(1024, 832);
    };
    golden_check("render/camera", [&](const std::string& given) {
        std::istringstream in(given.substr(1));
        i64 frames = 0;
        f64 wheel = 0, row = 0;
        in >> frames >> wheel >> row >> screens.text_entry_open;
        camera = {8, 4, 2, 256};
        headless_mouse_move(10, row);
        headless_wheel(wheel);
        const u32 key = key_a + static_cast<u32>(given[0] - 'a');
        headless_key_hold(key);
        for (; frames > 0; --frames) {
            step();
        }
        headless_key_release(key);
        step();
        std::ostringstream text;
        text << std::round(camera.x * 1e6) / 1e6 << ' ' << std::round(camera.y * 1e6) / 1e6
             << " zoom " << std::round(camera.zoom * 1e6) / 1e6;
        return text.str();
    });
    screens.text_entry_open = false;
    headless_key_hold(key_r);
    step();
    camera.x = 10;
    step();  // a held key counts once
    EXPECT_EQ(camera.x, 10);
}

// What two fingers, or one, or the middle button hold stays under them, also where the zoom ends;
// the bottom panel holds nothing of the board.
TEST_F(drawing_test, ADragHoldsTheBoard) {
    auto world_at = [](f64 x, f64 y) {
        camera_matrices_build(1024, 832);
        point at = view_world_point(x, 832 - y);
        return std::vector<f64>{at.x, at.y};
    };
    screens.title_menu_open = false;
    for (f64 zoom : {1.0, 1.5, 0.01, 100.0}) {
        camera = {8, 4, 2, 256};
        std::vector<f64> held = world_at(100, 200);
        input_feed_grip(512, 655);
        input_feed_drag(100, 200, 50, -20, zoom);
        input_feed_drag(150, 180, 50, 10, 1);
        input_poll();
        camera_input_apply(1024, 832);
        EXPECT_EQ(camera.zoom, std::clamp(2 * zoom, 0.25, 4.0));
        EXPECT_THAT(world_at(200, 190), testing::Pointwise(testing::DoubleNear(1e-3), held));
    }
    for (auto [row, moved] : {std::pair{655, -5}, {656, 0}}) {
        camera = {};
        headless_mouse_move(100, row);
        headless_mouse_press(mouse_middle);
        headless_mouse_move(105, row);
        headless_mouse_release(mouse_middle);
        for (i64 polls = 0; polls < 3; ++polls) {
            input_poll();
            camera_input_apply(1024, 832);
            headless_mouse_move(300, 300);
        }
        EXPECT_EQ(camera.x, moved);
    }
}

}  // namespace
