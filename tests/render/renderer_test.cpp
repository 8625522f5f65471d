#include "render/renderer.h"

#include <algorithm>

#include "platform/gpu.h"
#include "render/font.h"
#include "render/picture.h"
#include "tests/render/calls.h"
#include "tests/support/draws.h"

namespace {

using op = gpu_op;

class renderer_test : public game_test {
  protected:
    renderer_test() { headless_record(true); }

    // The calls of `renderer_init` after its pictures, in which nothing was found.
    std::string init() {
        std::string said = output_of(renderer_init);
        std::size_t start = said.find("shader error");
        return start == std::string::npos ? "" : said.substr(start);
    }
};

TEST_F(renderer_test, pictures_are_loaded_in_order_each_into_its_slot) {
    std::string said = output_of(renderer_init);
    const char* names[] = {"circle",        "triangle",      "square",
                           "pentagon",      "hexagon",       "star",
                           "white",         "eye",           "stack",
                           "player",        "similarity",    "gradient1",
                           "gradient2",     "gradient3",     "next_turn2",
                           "self_arrow",    "state_machine", "pushdown_machine",
                           "turing_machine"};
    std::string expected;
    for (const char* name : names) {
        expected += "failed to load picture: resources/" + std::string(name) + ".png\n";
    }
    EXPECT_EQ(said, expected + "failed to open resources/font_info.txt\n");
    // Handles count up from 1 in the order of loading.
    EXPECT_EQ(texture_set.textures[texture_stack], 9U);
    EXPECT_EQ(texture_set.textures[texture_player], 10U);
    EXPECT_EQ(texture_set.textures[texture_similarity], 11U);
    EXPECT_EQ(texture_set.textures[texture_gradient3], 14U);
    EXPECT_EQ(texture_set.textures[texture_turing_machine], 19U);
    EXPECT_EQ(texture_set.image_scratch.size, 32U << 20);
    EXPECT_EQ(arenas[arena_persistent].offset, 32 << 20);
}

TEST_F(renderer_test, a_picture_is_smooth_at_every_size) {
    i64 texture = 0;
    output_of([&] { texture = picture_load("none.png"); });
    EXPECT_TRUE(last_calls_are({
        {op::texture_create, {}},
        {op::texture_bind, {1, texture}},
        {op::texture_image_2d, {1, 0, 13, 1, 1, 8, 0}},
        {op::texture_parameter_wrap, {1, 0, 2}},
        {op::texture_parameter_wrap, {1, 1, 2}},
        {op::texture_parameter_filter, {1, 3, 5}},
        {op::texture_parameter_filter, {1, 4, 1}},
        {op::texture_generate_mipmap, {1}},
        {op::texture_unbind, {1}},
    }));
    EXPECT_EQ(headless_calls()[2].bytes, "\xff\xff\xff\xff");
}

TEST_F(renderer_test, the_mesh_the_shaders_and_the_target_are_made_in_order) {
    EXPECT_EQ(init(), "");
    const i64 array = quad_mesh.vertex_array;
    const i64 vertices = quad_mesh.vertex_buffer;
    const i64 indices = quad_mesh.index_buffer;
    const i64 simple = simple_shader.program;
    const i64 gamma = gamma_shader.program;
    const i64 texture = render_target.texture;
    const i64 frame_buffer = render_target.frame_buffer;
    EXPECT_TRUE(last_calls_are({
        {op::vertex_array_create, {}},
        {op::buffer_create, {}},
        {op::buffer_create, {}},
        {op::vertex_array_bind, {array}},
        {op::buffer_bind, {0, vertices}},
        {op::buffer_data, {0, 64, 0}},
        {op::attribute_enable, {0, 1}},
        {op::attribute_format, {0, 2, 6, 0, 16, 0}},
        {op::attribute_enable, {1, 1}},
        {op::attribute_format, {1, 2, 6, 0, 16, 8}},
        {op::buffer_bind, {1, indices}},
        {op::buffer_data, {1, 6, 0}},
        {op::vertex_array_unbind, {}},
        {op::shader_create, {}},
        {op::shader_source, {simple}},
        {op::shader_get_uniform_location, {simple}},
        {op::shader_get_uniform_location, {simple}},
        {op::shader_get_uniform_location, {simple}},
        {op::shader_get_uniform_location, {simple}},
        {op::shader_get_uniform_location, {simple}},
        {op::shader_create, {}},
        {op::shader_source, {gamma}},
        {op::shader_get_uniform_location, {gamma}},
        {op::shader_get_uniform_location, {gamma}},
        {op::shader_get_uniform_location, {gamma}},
        {op::frame_buffer_create, {}},
        {op::texture_create, {}},
        {op::texture_bind, {1, texture}},
        {op::texture_image_2d, {1, 0, 13, 1024, 832, 8, 0}},
        {op::texture_parameter_wrap, {1, 0, 2}},
        {op::texture_parameter_wrap, {1, 1, 2}},
        {op::texture_parameter_filter, {1, 3, 0}},
        {op::texture_parameter_filter, {1, 4, 0}},
        {op::texture_unbind, {1}},
        {op::frame_buffer_bind, {0, frame_buffer}},
        {op::frame_buffer_texture, {0, 3, 0, texture, 0}},
        {op::pipeline_draw_buffers, {1}},
        {op::frame_buffer_get_status, {0}},
        {op::frame_buffer_unbind, {0}},
    }));
    EXPECT_NE(vertices, indices);
    const std::vector<i32> locations = {simple_shader.mvp, simple_shader.diffuse,
                                        simple_shader.gamma, simple_shader.color,
                                        simple_shader.uv_rect};
    EXPECT_EQ(std::count(locations.begin(), locations.end(), -1), 0);
    EXPECT_GE(std::min({gamma_shader.mvp, gamma_shader.diffuse, gamma_shader.gamma}), 0);
}

TEST_F(renderer_test, a_shader_that_fails_ends_the_set_up) {
    const struct {
        u32 nth;
        const char* said;
        i64 programs;
    } rows[] = {{0, "shader error for simple shader!\nno such word\n", 1},
                {1, "shader error for gamma shader!\nno such word\n", 2}};
    for (const auto& row : rows) {
        headless_reset();
        headless_fail_shader(row.nth, "no such word");
        render_target = {};
        EXPECT_EQ(init(), row.said);
        EXPECT_EQ(headless_live_objects(gpu_op::shader_create), row.programs);
        EXPECT_EQ(headless_live_objects(gpu_op::frame_buffer_create), 0);
        EXPECT_EQ(render_target.texture, 0U);
    }
    headless_reset();
    headless_fail_shader(0, std::string(1000, 'x'));
    EXPECT_EQ(init(), "shader error for simple shader!\n" + std::string(256, 'x') + "\n");
}

TEST_F(renderer_test, frame_buffer_errors) {
    const char* rows[] = {
        "",
        "frame buffer error: undefined\n",
        "frame buffer error: incomplete attachment\n",
        "frame buffer error: missing attachment\n",
        "frame buffer error: incomplete draw buffer\n",
        "frame buffer error: incomplete read attachment\n",
        "frame buffer error: incomplete attachment\n",
        "frame buffer error: incomplete layer attachment\n",
        "frame buffer error: unsupported\n",
        "",
    };
    for (u32 status = 0; status < std::size(rows); ++status) {
        headless_set_frame_buffer_status(status);
        EXPECT_EQ(output_of(render_target_rebuild), rows[status]);
        EXPECT_TRUE(last_calls_are({{op::frame_buffer_unbind, {0}}}));
    }
}

TEST_F(renderer_test, a_rebuilt_target_replaces_the_old_one) {
    init();
    i64 textures = headless_live_objects(gpu_op::texture_create);
    u32 old_texture = render_target.texture;
    render_target.width = 1920;
    render_target.height = 1080;
    render_target_rebuild();
    render_target_rebuild();
    EXPECT_NE(render_target.texture, old_texture);
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), textures);
    EXPECT_EQ(headless_live_objects(gpu_op::frame_buffer_create), 1);
    EXPECT_EQ(output_of(render_target_rebuild), "");
}

TEST_F(renderer_test, a_frame_begins_in_the_target_and_ends_in_the_window) {
    init();
    headless_forget_calls();
    render_frame_begin();
    const i64 frame_buffer = render_target.frame_buffer;
    EXPECT_TRUE(last_calls_are({
        {op::vertex_array_bind, {quad_mesh.vertex_array}},
        {op::frame_buffer_bind, {0, frame_buffer}},
        {op::pipeline_blend_enable, {1}},
        {op::pipeline_viewport, {0, 0, 1024, 832}},
        {op::pipeline_clear_color, {}, {0, 0, 0.2f, 1}},
        {op::pipeline_clear, {4}},
        {op::shader_bind, {simple_shader.program}},
        {op::shader_uniform1f, {simple_shader.gamma}, {2.2f}},
    }));
    render_frame_end();
    EXPECT_TRUE(last_calls_are({
        {op::pipeline_blend_enable, {0}},
        {op::frame_buffer_unbind, {0}},
        {op::pipeline_clear_color, {}, {1, 0, 1, 1}},
        {op::pipeline_clear, {4}},
        {op::pipeline_viewport, {0, 0, 1024, 832}},
        {op::shader_bind, {gamma_shader.program}},
        {op::texture_unit, {0}},
        {op::texture_bind, {1, render_target.texture}},
        {op::shader_uniform_matrix4fa,
         {gamma_shader.mvp, 1, 0},
         {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1}},
        {op::shader_uniform1i, {gamma_shader.diffuse, 0}},
        {op::shader_uniform1f, {gamma_shader.gamma}, {2.2f}},
        {op::draw_elements, {4, 0, 0, 6, 0, 1}},
        {op::texture_unbind, {1}},
    }));
}

TEST_F(renderer_test, release_leaves_nothing) {
    file_put("resources/white.png", "");
    file_put("resources/font_info.txt", "i white.png");
    init();
    renderer_release();
    EXPECT_TRUE(last_calls_are({
        {op::texture_destroy, {texture_set.textures[texture_turing_machine]}},
        {op::texture_destroy, {font.texture}},
        {op::buffer_destroy, {quad_mesh.vertex_buffer}},
        {op::buffer_destroy, {quad_mesh.index_buffer}},
        {op::vertex_array_destroy, {quad_mesh.vertex_array}},
        {op::shader_destroy, {simple_shader.program}},
        {op::shader_destroy, {gamma_shader.program}},
        {op::texture_destroy, {render_target.texture}},
        {op::frame_buffer_destroy, {render_target.frame_buffer}},
    }));
    for (gpu_op create : {op::texture_create, op::buffer_create, op::vertex_array_create,
                          op::shader_create, op::frame_buffer_create}) {
        EXPECT_EQ(headless_live_objects(create), 0) << int{static_cast<u8>(create)};
    }
}

}  // namespace
