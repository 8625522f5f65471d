#include "render/renderer.h"
#include "render/pictures.h"

#include <algorithm>
#include <map>
#include <sstream>

#include "render/sprites.h"
#include "tests/support/draws.h"

namespace {

class renderer_test : public game_test {
  protected:
    renderer_test() { headless_record(true); }

    // Sets up without any picture; returns what is said about the shaders.
    std::string init() {
        std::string said = output_of(renderer_init);
        std::size_t start = said.find("shader error");
        return start == std::string::npos ? "" : said.substr(start);
    }
};

// Whether these calls were made in this order, others between them or not.
bool are_made_in_order(std::initializer_list<gpu_op> ops) {
    const gpu_op* next = ops.begin();
    for (const gpu_call& call : headless_calls()) {
        next += next != ops.end() && call.op == *next ? 1 : 0;
    }
    return next == ops.end();
}

TEST_F(renderer_test, each_picture_gets_its_slot) {
    std::istringstream said(output_of(renderer_init));
    std::map<u32, std::string> lines;  // handles count up from 1 in the order of loading
    while (std::getline(said, lines[static_cast<u32>(lines.size()) + 1])) {}
    const std::pair<texture_slot, const char*> rows[] = {
        {texture_circle, "circle"},       {texture_stack, "stack"},
        {texture_player, "player"},       {texture_similarity, "similarity"},
        {texture_gradient3, "gradient3"}, {texture_turing_machine, "turing_machine"}};
    for (auto [slot, name] : rows) {
        EXPECT_NE(lines[texture_set.textures[slot]].find(name), std::string::npos) << name;
    }
}

TEST_F(renderer_test, a_shader_that_fails_ends_the_set_up) {
    const struct {
        u32 nth;
        std::string message;
        std::string said;
    } rows[] = {{0, "no such word", "shader error for simple shader!\nno such word\n"},
                {1, "no such word", "shader error for gamma shader!\nno such word\n"},
                {0, std::string(1000, 'x'),
                 "shader error for simple shader!\n" + std::string(256, 'x') + "\n"}};
    for (const auto& row : rows) {
        headless_reset();
        headless_fail_shader(row.nth, row.message);
        EXPECT_EQ(init(), row.said);
        EXPECT_EQ(headless_live_objects(gpu_op::shader_create), row.nth + 1);
        EXPECT_EQ(headless_live_objects(gpu_op::frame_buffer_create), 0);
    }
}

TEST_F(renderer_test, frame_buffer_errors) {
    for (auto [status, said] : {std::pair{0U, ""},
                                {1U, "frame buffer error: undefined\n"},
                                {8U, "frame buffer error: unsupported\n"},
                                {9U, ""}}) {
        headless_set_frame_buffer_status(status);
        EXPECT_EQ(output_of(render_target_rebuild), said);
    }
}

TEST_F(renderer_test, a_rebuilt_target_replaces_the_old_one) {
    init();
    i64 textures = headless_live_objects(gpu_op::texture_create);
    headless_forget_calls();
    render_target.width = 1920;
    render_target_rebuild();
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), textures);
    EXPECT_EQ(headless_live_objects(gpu_op::frame_buffer_create), 1);
    EXPECT_TRUE(are_made_in_order({gpu_op::texture_image_2d, gpu_op::frame_buffer_bind,
                                   gpu_op::frame_buffer_texture, gpu_op::frame_buffer_get_status,
                                   gpu_op::frame_buffer_unbind}));
    for (const gpu_call& call : headless_calls()) {
        if (call.op == gpu_op::texture_image_2d) {
            EXPECT_EQ((std::vector(&call.numbers[3], &call.numbers[5])),
                      (std::vector<i64>{1920, 832}));
        }
    }
}

TEST_F(renderer_test, a_frame_begins_in_the_target_and_ends_in_the_window) {
    init();
    headless_forget_calls();
    render_frame_begin();
    box_fill({0, 0, 1, 1}, colour_white);
    render_frame_end();
    EXPECT_TRUE(are_made_in_order(
        {gpu_op::vertex_array_bind, gpu_op::frame_buffer_bind, gpu_op::pipeline_blend_enable,
         gpu_op::pipeline_viewport, gpu_op::pipeline_clear_color, gpu_op::pipeline_clear,
         gpu_op::draw_elements, gpu_op::pipeline_blend_enable, gpu_op::frame_buffer_unbind,
         gpu_op::pipeline_clear_color, gpu_op::pipeline_clear, gpu_op::draw_elements}));
    gpu_draw inside = headless_draws().at(0);
    EXPECT_EQ(inside.frame_buffer, render_target.frame_buffer);
    EXPECT_EQ(inside.program, simple_shader.program);
    gpu_draw last = headless_draws().at(1);
    EXPECT_EQ(last.frame_buffer, 0U);
    EXPECT_EQ(last.program, gamma_shader.program);
    EXPECT_EQ(last.texture, render_target.texture);
    EXPECT_EQ(std::min(inside.gamma, last.gamma), 2.2f);
    EXPECT_EQ(window_point_of(last, 0, 0).y, 0);
    EXPECT_EQ(window_point_of(last, 1, 1).x, 1024);
}

TEST_F(renderer_test, release_leaves_nothing) {
    file_put("resources/white.png", "");
    file_put("resources/font_info.txt", "i white.png");
    init();
    renderer_release();
    for (gpu_op create :
         {gpu_op::texture_create, gpu_op::buffer_create, gpu_op::vertex_array_create,
          gpu_op::shader_create, gpu_op::frame_buffer_create}) {
        EXPECT_EQ(headless_live_objects(create), 0) << int{static_cast<u8>(create)};
    }
}

}  // namespace
