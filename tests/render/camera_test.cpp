#include "shell/camera.h"

#include "platform/input.h"
#include "rules/screens.h"
#include "tests/support/draws.h"

namespace {

class camera_test : public draw_test {
  protected:
    void frames(int count) {
        for (int i = 0; i < count; ++i) {
            input_poll();
            camera_input_apply(832);
        }
    }
};

TEST_F(camera_test, keys_move_by_speed_over_zoom) {
    const struct {
        u32 key;
        f64 x, y, zoom;
    } rows[] = {{key_a, -128, 0, 2}, {key_d, 128, 0, 2}, {key_w, 0, 128, 2}, {key_s, 0, -128, 2},
                {key_q, 0, 0, 1.5},  {key_e, 0, 0, 2.5}, {key_r, 0, 0, 1},   {key_delete, 0, 0, 2}};
    for (const auto& row : rows) {
        camera = {};
        camera.zoom = 2;
        headless_key_hold(row.key);
        frames(60);
        headless_key_release(row.key);
        frames(1);
        EXPECT_NEAR(camera.x, row.x, 1e-9) << row.key;
        EXPECT_NEAR(camera.y, row.y, 1e-9) << row.key;
        EXPECT_NEAR(camera.zoom, row.zoom, 1e-9) << row.key;
    }
}

TEST_F(camera_test, zoom_keeps_its_bounds) {
    headless_key_hold(key_q);
    frames(600);
    EXPECT_EQ(camera.zoom, 0.25);
    camera.zoom = 3.5;
    headless_key_release(key_q);
    headless_wheel(4);
    frames(1);
    EXPECT_EQ(camera.zoom, 4);
}

TEST_F(camera_test, wheel_rests_over_the_bottom_panel) {
    const struct {
        f64 y;
        f64 zoom;
    } rows[] = {{0, 1.25}, {832 - 176 - 1, 1.25}, {832 - 176, 1}, {831, 1}};
    for (const auto& row : rows) {
        camera = {};
        headless_mouse_move(10, row.y);
        headless_wheel(1);
        frames(1);
        EXPECT_EQ(camera.zoom, row.zoom) << row.y;
    }
}

TEST_F(camera_test, keys_rest_while_a_text_is_typed_but_not_the_wheel) {
    screens.text_entry_open = true;
    camera.x = 5;
    headless_key_hold(key_d);
    headless_key_hold(key_e);
    headless_key_press(key_r);
    headless_wheel(2);
    frames(1);
    EXPECT_EQ(camera.x, 5);
    EXPECT_EQ(camera.zoom, 1.5);
}

TEST_F(camera_test, reset_happens_on_the_edge_and_keeps_the_speed) {
    camera = {10, 20, 3, 512};
    headless_key_hold(key_r);
    frames(1);
    EXPECT_EQ(camera.x, 0);
    EXPECT_EQ(camera.y, 0);
    EXPECT_EQ(camera.zoom, 1);
    EXPECT_EQ(camera.speed, 512);
    camera.x = 10;
    frames(1);
    EXPECT_EQ(camera.x, 10);
}

TEST_F(camera_test, the_view_and_its_inverse_agree) {
    camera = {100, 50, 2, 256};
    camera_matrices_build(1024, 832);
    point world = world_point_of({612, 466});
    EXPECT_EQ(world.x, 150);
    EXPECT_EQ(world.y, 75);
    const f32* m = world_matrix.at;
    EXPECT_NEAR((m[0] * 150 + m[12] + 1) * 512, 612, 1e-3);
    EXPECT_NEAR((m[5] * 75 + m[13] + 1) * 416, 466, 1e-3);
    const mat4 screen = {{2 / 1024.0f, 0, 0, 0, 0, 2 / 832.0f, 0, 0, 0, 0, -1, 0, -1, -1, 0, 1}};
    EXPECT_TRUE(std::equal(screen.at, screen.at + 16, screen_matrix.at));
}

}  // namespace
