#include "render/camera.h"

#include "platform/input.h"
#include "render/sprites.h"
#include "rules/screens.h"
#include "tests/support/draws.h"

namespace {

class camera_test : public draw_test {};

void frames(int count) {
    for (int i = 0; i < count; ++i) {
        input_poll();
        camera_input_apply(832);
    }
}

TEST_F(camera_test, input) {
    const struct {
        u32 key;
        int frame_count;
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
    for (const auto& row : rows) {
        camera = {8, 4, 2, 256};
        screens.text_entry_open = row.typing;
        headless_mouse_move(10, row.pointer_y);
        headless_wheel(row.wheel);
        headless_key_hold(row.key);
        frames(row.frame_count);
        headless_key_release(row.key);
        frames(1);
        SCOPED_TRACE(&row - rows);
        EXPECT_NEAR(camera.x, row.x, 1e-9);
        EXPECT_NEAR(camera.y, row.y, 1e-9);
        EXPECT_NEAR(camera.zoom, row.zoom, 1e-9);
    }
}

TEST_F(camera_test, a_held_reset_key_counts_once) {
    headless_key_hold(key_r);
    frames(1);
    camera.x = 10;
    frames(1);
    EXPECT_EQ(camera.x, 10);
}

TEST_F(camera_test, the_view_and_its_inverse_agree) {
    camera = {100, 50, 2, 256};
    camera_matrices_build(1024, 832);
    sprite_draw(texture_white, {150, 75, 1, 1}, colour_white, world_space);
    point window = window_point_of(headless_draws().at(0), 0, 0);
    EXPECT_NEAR(window.x, 612, 1e-3);
    EXPECT_NEAR(window.y, 466, 1e-3);
    EXPECT_EQ(world_point_of({612, 466}).x, 150);
    EXPECT_EQ(world_point_of({612, 466}).y, 75);
}

}  // namespace
