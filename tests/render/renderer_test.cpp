#include "render/renderer.h"

#include <algorithm>

#include "platform/gpu.h"
#include "render/font.h"
#include "render/picture.h"
#include "tests/render/calls.h"
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
    output_of([] { picture_load("none.png"); });
    EXPECT_TRUE(
        last_calls_are("texture_create; texture_bind 1 1; texture_image_2d 1 0 13 1 1 8 0; "
                       "texture_parameter_wrap 1 0 2; texture_parameter_wrap 1 1 2; "
                       "texture_parameter_filter 1 3 5; texture_parameter_filter 1 4 1; "
                       "texture_generate_mipmap 1; texture_unbind 1"));
    EXPECT_EQ(headless_calls()[2].bytes, "\xff\xff\xff\xff");
}

TEST_F(renderer_test, the_mesh_the_shaders_and_the_target_are_made_in_order) {
    EXPECT_EQ(init(), "");
    EXPECT_TRUE(
        last_calls_are("vertex_array_create; buffer_create; buffer_create; vertex_array_bind 1; "
                       "buffer_bind 0 1; buffer_data 0 64 0; attribute_enable 0 1; "
                       "attribute_format 0 2 6 0 16 0; attribute_enable 1 1; "
                       "attribute_format 1 2 6 0 16 8; buffer_bind 1 2; buffer_data 1 6 0; "
                       "vertex_array_unbind; shader_create; shader_source 1; "
                       "shader_get_uniform_location 1 mvp; shader_get_uniform_location 1 diffuse; "
                       "shader_get_uniform_location 1 gamma; shader_get_uniform_location 1 color; "
                       "shader_get_uniform_location 1 uv_rect; shader_create; shader_source 2; "
                       "shader_get_uniform_location 2 mvp; shader_get_uniform_location 2 diffuse; "
                       "shader_get_uniform_location 2 gamma; frame_buffer_create; texture_create; "
                       "texture_bind 1 20; texture_image_2d 1 0 13 1024 832 8 0; "
                       "texture_parameter_wrap 1 0 2; texture_parameter_wrap 1 1 2; "
                       "texture_parameter_filter 1 3 0; texture_parameter_filter 1 4 0; "
                       "texture_unbind 1; frame_buffer_bind 0 1; "
                       "frame_buffer_texture 0 3 0 20 0; pipeline_draw_buffers 1; "
                       "frame_buffer_get_status 0; frame_buffer_unbind 0"));
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
    const char* rows[] = {"",
                          "frame buffer error: undefined\n",
                          "frame buffer error: incomplete attachment\n",
                          "frame buffer error: missing attachment\n",
                          "frame buffer error: incomplete draw buffer\n",
                          "frame buffer error: incomplete read attachment\n",
                          "frame buffer error: incomplete attachment\n",
                          "frame buffer error: incomplete layer attachment\n",
                          "frame buffer error: unsupported\n",
                          ""};
    for (u32 status = 0; status < std::size(rows); ++status) {
        headless_set_frame_buffer_status(status);
        EXPECT_EQ(output_of(render_target_rebuild), rows[status]);
        EXPECT_TRUE(last_calls_are("frame_buffer_unbind 0"));
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
    EXPECT_TRUE(
        last_calls_are("vertex_array_bind 1; frame_buffer_bind 0 1; pipeline_blend_enable 1; "
                       "pipeline_viewport 0 0 1024 832; pipeline_clear_color 0 0 0.2 1; "
                       "pipeline_clear 4; shader_bind 1; shader_uniform1f 2 2.2"));
    render_frame_end();
    EXPECT_TRUE(last_calls_are(
        "pipeline_blend_enable 0; frame_buffer_unbind 0; pipeline_clear_color 1 0 1 1; "
        "pipeline_clear 4; pipeline_viewport 0 0 1024 832; shader_bind 2; "
        "texture_unit 0; texture_bind 1 20; "
        "shader_uniform_matrix4fa 0 1 0; shader_uniform1i 2 0; shader_uniform1f 1 2.2; "
        "draw_elements 4 0 0 6 0 1; texture_unbind 1"));
    const std::array<f32, 16> whole_clip_space = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1};
    EXPECT_EQ(headless_draws().back().mvp, whole_clip_space);
}

TEST_F(renderer_test, release_leaves_nothing) {
    file_put("resources/white.png", "");
    file_put("resources/font_info.txt", "i white.png");
    init();
    renderer_release();
    EXPECT_TRUE(
        last_calls_are("texture_destroy 19; texture_destroy 20; buffer_destroy 1; "
                       "buffer_destroy 2; vertex_array_destroy 1; shader_destroy 1; "
                       "shader_destroy 2; texture_destroy 21; frame_buffer_destroy 1"));
    for (gpu_op create :
         {gpu_op::texture_create, gpu_op::buffer_create, gpu_op::vertex_array_create,
          gpu_op::shader_create, gpu_op::frame_buffer_create}) {
        EXPECT_EQ(headless_live_objects(create), 0) << int{static_cast<u8>(create)};
    }
}

}  // namespace
