#include "render/picture.h"

#include "platform/gpu.h"

u32 texture_make(const image& picture, u32 minification, u32 magnification) {
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

u32 picture_load(str path) {
    image picture = {};
    image_load(picture, path, image_channels_rgba);
    return texture_make(picture, filter_trilinear, filter_linear);
}
