#include "render/renderer.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "render/pictures.h"
#include "render/sprites.h"
#include "tests/support/screen.h"

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

std::vector<gpu_call> calls_of(gpu_op op) {
    std::vector<gpu_call> calls;
    std::ranges::copy_if(headless_calls(), std::back_inserter(calls),
                         [op](const gpu_call& call) { return call.op == op; });
    return calls;
}

// The first numbers of every call of that kind, with blanks between them.
std::string numbers_of(gpu_op op) {
    std::string text;
    for (const gpu_call& call : calls_of(op)) {
        for (i64 number : call.numbers) {
            text += std::to_string(number) + " ";
        }
        text += "; ";
    }
    return text;
}

TEST_F(renderer_test, EachPictureGetsItsSlot) {
    std::istringstream said(output_of(renderer_init));
    std::vector<std::string> lines(1);  // handles count up from 1 in the order of loading
    while (std::getline(said, lines.emplace_back())) {}
    for (i64 slot = 0; slot < texture_slot_count; ++slot) {
        const std::string path = "resources/" + picture_name(slot) + ".png";
        EXPECT_NE(lines.at(texture_set.textures[slot]).find(path), std::string::npos) << path;
    }
    // Clamped on both axes; with smaller copies, but for the target.
    EXPECT_EQ(numbers_of(gpu_op::texture_parameter_wrap).substr(0, 16), "1 0 2 ; 1 1 2 ; ");
    EXPECT_EQ(numbers_of(gpu_op::texture_parameter_filter).substr(0, 16), "1 3 5 ; 1 4 1 ; ");
    EXPECT_TRUE(numbers_of(gpu_op::texture_parameter_filter).ends_with("1 3 0 ; 1 4 0 ; "));
    EXPECT_EQ(calls_of(gpu_op::texture_generate_mipmap).size(), 19U);
}

// Corners with the picture's own corners, two triangles against the clock's hands.
TEST_F(renderer_test, TheQuad) {
    init();
    std::vector<gpu_call> data = calls_of(gpu_op::buffer_data);
    f32 corners[16];
    ASSERT_EQ(data[0].bytes.size(), sizeof corners);
    std::memcpy(corners, data[0].bytes.data(), sizeof corners);
    for (int i = 0; i < 16; i += 4) {
        EXPECT_EQ(corners[i], corners[i + 2]);
        EXPECT_EQ(corners[i + 1], corners[i + 3]);
    }
    auto corner = [&](int place) { return corners + 4 * data[1].bytes[static_cast<u8>(place)]; };
    ASSERT_EQ(data[1].bytes.size(), 6U);
    for (int t : {0, 3}) {
        const f32 *a = corner(t), *b = corner(t + 1), *c = corner(t + 2);
        EXPECT_EQ((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]), 1) << t;
    }
    EXPECT_EQ(numbers_of(gpu_op::attribute_format), "0 2 6 0 16 0 ; 1 2 6 0 16 8 ; ");
    EXPECT_EQ(numbers_of(gpu_op::attribute_enable), "0 1 ; 1 1 ; ");
    EXPECT_EQ(numbers_of(gpu_op::buffer_bind), "0 1 ; 1 2 ; ");
}

TEST_F(renderer_test, AShaderOrATargetThatFailsIsNamed) {
    for (u32 nth : {0U, 1U}) {
        headless_reset();
        headless_fail_shader(nth, "no such word");
        EXPECT_EQ(init(), std::string("shader error for ") + (nth == 0 ? "simple" : "gamma") +
                              " shader!\nno such word\n");
        EXPECT_EQ(headless_live_objects(gpu_op::shader_create), nth + 1);
    }
    headless_reset();
    headless_record(true);
    init();
    i64 textures = headless_live_objects(gpu_op::texture_create);
    headless_set_frame_buffer_status(8);
    EXPECT_EQ(output_of(render_target_rebuild), "frame buffer error: unsupported\n");
    std::string texture = std::to_string(render_target.texture);
    EXPECT_TRUE(numbers_of(gpu_op::frame_buffer_texture).ends_with("0 3 0 " + texture + " 0 ; "));
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), textures);
    EXPECT_EQ(headless_live_objects(gpu_op::frame_buffer_create), 1);
}

TEST_F(renderer_test, AFrameBeginsInTheTargetAndEndsInTheWindow) {
    init();
    headless_forget_calls();
    render_frame_begin();
    box_fill({0, 0, 1, 1}, colour_white);
    render_frame_end();
    gpu_draw inside = headless_draws().at(0);
    gpu_draw last = headless_draws().at(1);
    EXPECT_EQ(inside.frame_buffer, render_target.frame_buffer);
    EXPECT_EQ(inside.program, simple_shader.program);
    EXPECT_EQ(last.frame_buffer, 0U);
    EXPECT_EQ(last.program, gamma_shader.program);
    EXPECT_EQ(last.texture, render_target.texture);
    EXPECT_EQ(inside.gamma, 2.2f);
    EXPECT_EQ(last.gamma, 2.2f);
    EXPECT_EQ(place_of(last, 0, 0).y, -416);
    EXPECT_EQ(place_of(last, 1, 1).x, 512);
    EXPECT_EQ(place_of(last, 1, 1).y, 416);
    EXPECT_EQ(numbers_of(gpu_op::pipeline_blend_enable), "1 ; 0 ; ");
    EXPECT_EQ(numbers_of(gpu_op::pipeline_viewport), "0 0 1024 832 ; 0 0 1024 832 ; ");
    EXPECT_EQ(numbers_of(gpu_op::draw_elements), "4 0 0 6 0 1 ; 4 0 0 6 0 1 ; ");
    for (const gpu_call& call :
         calls_of(gpu_op::shader_uniform_matrix4fa)) {  // one, not transposed
        EXPECT_EQ(call.numbers[1] * 10 + call.numbers[2], 10);
    }
    std::vector<gpu_call> colours = calls_of(gpu_op::pipeline_clear_color);
    EXPECT_EQ(colours.at(0).reals, (std::vector<f32>{0, 0, 0.2f, 1}));
    EXPECT_EQ(colours.at(1).reals, (std::vector<f32>{1, 0, 1, 1}));
}

}  // namespace
