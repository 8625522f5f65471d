#include "platform/headless/headless.h"

#include "platform/gpu.h"
#include "platform/input.h"
#include "tests/support/game.h"

namespace {

class headless_test : public game_test {};

// A key's state after a poll: "p" pressed, "h" held.
std::string key_after_poll(u32 key) {
    input_poll();
    return std::string(input_key_is_pressed(key) ? "p" : "") + (input_key_is_held(key) ? "h" : "");
}

// A button's edges after a poll: "p" pressed, "r" released.
std::string button_after_poll(u32 button) {
    input_poll();
    return std::string(input_mouse_is_pressed(button) ? "p" : "") +
           (input_mouse_is_released(button) ? "r" : "");
}

constexpr char source[] =
    "#vertex\nuniform mat4 mvp;\nuniform vec4 uv_rect;\n"
    "#fragment\nuniform float gamma;\nuniform vec4 color;\nuniform sampler2D diffuse;\n";

u32 program_make() {
    char message[8];
    u32 program = shader_create();
    EXPECT_TRUE(shader_source(program, source, message, sizeof message).ok);
    return program;
}

}  // namespace

TEST_F(headless_test, keys_are_seen_from_the_next_poll_on) {
    headless_key_press(key_a);
    EXPECT_FALSE(input_key_is_pressed(key_a));
    EXPECT_EQ(key_after_poll(key_a), "p");
    EXPECT_EQ(key_after_poll(key_a), "");

    headless_key_hold(key_a);
    EXPECT_EQ(key_after_poll(key_a), "ph");
    headless_key_hold(key_a);
    EXPECT_EQ(key_after_poll(key_a), "h");
    headless_key_release(key_a);
    EXPECT_EQ(key_after_poll(key_a), "");

    headless_key_press(key_count);
    EXPECT_EQ(key_after_poll(key_count), "");
}

TEST_F(headless_test, mouse_edges_motion_and_wheel) {
    headless_mouse_press(mouse_left);
    EXPECT_EQ(button_after_poll(mouse_left), "p");
    EXPECT_EQ(button_after_poll(mouse_left), "");
    headless_mouse_release(mouse_left);
    EXPECT_EQ(button_after_poll(mouse_left), "r");
    headless_mouse_press(mouse_right);
    headless_mouse_release(mouse_right);
    EXPECT_EQ(button_after_poll(mouse_right), "pr");

    headless_mouse_move(10, 20);
    headless_mouse_move(7, 30);
    headless_wheel(1.0);
    headless_wheel(0.5);
    input_poll();
    f64 x = 0;
    f64 y = 0;
    input_mouse_position(x, y);
    EXPECT_EQ((std::pair{x, y}), (std::pair{7.0, 30.0}));
    input_mouse_moved(x, y);
    EXPECT_EQ((std::pair{x, y}), (std::pair{7.0, 30.0}));
    EXPECT_EQ(input_mouse_wheel(), 1.5);
    input_poll();
    input_mouse_moved(x, y);
    EXPECT_EQ((std::pair{x, y}), (std::pair{0.0, 0.0}));
    EXPECT_EQ(input_mouse_wheel(), 0.0);
}

TEST_F(headless_test, a_draw_carries_the_state_it_was_made_with) {
    u32 program = program_make();
    u32 other = program_make();
    u32 texture = texture_create();
    const f32 mvp[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const f32 colour[4] = {0.1F, 0.2F, 0.3F, 0.4F};
    shader_bind(program);
    shader_uniform_matrix4fa(shader_get_uniform_location(program, "mvp"), 1, false, mvp);
    shader_uniform4f(shader_get_uniform_location(program, "color"), colour);
    shader_uniform1i(shader_get_uniform_location(program, "diffuse"), 3);
    shader_uniform1f(shader_get_uniform_location(program, "none"), 9.0F);
    texture_unit(3);
    texture_bind(texture_2d, texture);
    texture_unit(0);
    shader_bind(other);
    shader_uniform1f(shader_get_uniform_location(other, "gamma"), 2.2F);
    draw_elements(primitive_triangles, component_u8, 0, 6, 0, 1);

    headless_record(true);
    shader_bind(program);
    draw_elements(primitive_triangles, component_u8, 0, 6, 0, 1);
    std::vector<gpu_draw> draws = headless_draws();
    ASSERT_EQ(draws.size(), 1U);
    EXPECT_EQ(draws[0].program, program);
    EXPECT_EQ(draws[0].texture, texture);
    EXPECT_EQ(draws[0].mvp[15], 16.0F);
    EXPECT_EQ(draws[0].colour[3], 0.4F);
    EXPECT_EQ(draws[0].gamma, 0.0F);
    ASSERT_EQ(headless_calls().size(), 2U);
    EXPECT_EQ(headless_calls()[1].op, gpu_op::draw_elements);
    EXPECT_EQ(headless_calls()[1].numbers, (std::vector<i64>{4, 0, 0, 6, 0, 1}));
}

TEST_F(headless_test, objects_are_counted_and_shaders_fail_on_demand) {
    u32 first = texture_create();
    texture_create();
    texture_destroy(first);
    texture_destroy(first);
    texture_destroy(0);
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 1);

    headless_fail_shader(1, "no such thing");
    program_make();
    char message[7];
    shader_result refused = shader_source(shader_create(), source, message, sizeof message);
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(string_of(refused.message), "no such");
}
