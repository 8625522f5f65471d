#include "render/pictures.h"

#include <cassert>

#include "base/arena.h"
#include "platform/gpu.h"

texture_set_record texture_set;

namespace {

constexpr i64 image_scratch_size = 33'554'432;  // bytes, 32 MiB

struct picture_file {
    texture_slot slot;
    str path;
};

// In the order of loading.
constexpr picture_file picture_files[] = {
    {texture_circle, "resources/circle.png"},
    {texture_triangle, "resources/triangle.png"},
    {texture_square, "resources/square.png"},
    {texture_pentagon, "resources/pentagon.png"},
    {texture_hexagon, "resources/hexagon.png"},
    {texture_star, "resources/star.png"},
    {texture_white, "resources/white.png"},
    {texture_eye, "resources/eye.png"},
    {texture_stack, "resources/stack.png"},
    {texture_player, "resources/player.png"},
    {texture_similarity, "resources/similarity.png"},
    {texture_gradient1, "resources/gradient1.png"},
    {texture_gradient2, "resources/gradient2.png"},
    {texture_gradient3, "resources/gradient3.png"},
    {texture_next_turn, "resources/next_turn2.png"},
    {texture_self_arrow, "resources/self_arrow.png"},
    {texture_state_machine, "resources/state_machine.png"},
    {texture_pushdown_machine, "resources/pushdown_machine.png"},
    {texture_turing_machine, "resources/turing_machine.png"},
};
static_assert(sizeof picture_files / sizeof picture_files[0] == texture_slot_count);

u32 picture_load(str path) {
    image picture = {};
    image_load(picture, path, image_channels_rgba);
    return texture_make(picture, filter_trilinear, filter_linear);
}

}  // namespace

void pictures_load() {
    void* scratch = arena_alloc(arena_persistent, image_scratch_size);
    texture_set.image_scratch = {image_scratch_size, scratch};
    // The first row of a texture is its bottom one.
    image_set_flip(true);
    image_set_buffer(image_scratch_size, scratch);
    for (const picture_file& file : picture_files) {
        texture_set.textures[file.slot] = picture_load(file.path);
    }
}

u32 texture_make(const image& picture, u32 minification, u32 magnification) {
    assert(picture.width > 0 && picture.height > 0);
    u32 texture = texture_create();
    texture_bind(texture_2d, texture);
    texture_image_2d(texture_2d, 0, texture_format_rgba, picture.width, picture.height,
                     pixel_format_rgba, component_u8, picture.pixels);
    texture_parameter_wrap(texture_2d, texture_axis_u, texture_wrap_clamp);
    texture_parameter_wrap(texture_2d, texture_axis_v, texture_wrap_clamp);
    texture_parameter_filter(texture_2d, texture_minification, minification);
    texture_parameter_filter(texture_2d, texture_magnification, magnification);
    if (minification == filter_trilinear) {
        texture_generate_mipmap(texture_2d);
    }
    texture_unbind(texture_2d);
    return texture;
}
