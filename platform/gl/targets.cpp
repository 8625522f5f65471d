#include "platform/gl/targets.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "base/message.h"
#include "platform/gl/opengl.h"
#include "platform/gl/state.h"
#include "platform/gl/window_picture.h"
#include "platform/system.h"

namespace {

struct target {
    u32 texture;
    u32 frame_buffer;
    view_size logical;
    view_size wanted;  // for the view that it was made for
    view_size actual;  // smaller where the wanted size could not be had
};

std::vector<target> targets;

f64 ratio(i32 part, i32 whole) {
    return f64{1} * part / whole;
}

i32 scaled(i32 length, f64 factor) {
    return static_cast<i32>(std::lround(length * factor));
}

view_box box_scaled(const view_box& box, f64 x_factor, f64 y_factor) {
    return {scaled(box.x, x_factor), scaled(box.y, y_factor), scaled(box.width, x_factor),
            scaled(box.height, y_factor)};
}

view_size wanted_size(view_size logical) {
    return {std::max(scaled(logical.width, ratio(view.shown.width, view.logical.width)), 1),
            std::max(scaled(logical.height, ratio(view.shown.height, view.logical.height)), 1)};
}

bool format_is_drawable(const target_format& format) {
    GLuint texture = 0;
    GLuint frame_buffer = 0;
    glGenTextures(1, &texture);
    state_texture(texture);
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format.storage), 1, 1, 0, GL_RGBA,
                 format.type, nullptr);
    glGenFramebuffers(1, &frame_buffer);
    state_frame_buffer(frame_buffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    bool drawable = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    state_frame_buffer(0);
    state_texture(0);
    glDeleteFramebuffers(1, &frame_buffer);
    glDeleteTextures(1, &texture);
    return drawable;
}

// The first of the formats, best first, that this GPU draws into.
const target_format& format_choose() {
    const target_format* last = std::prev(std::end(target_formats));
    return *std::find_if(std::begin(target_formats), last, format_is_drawable);
}

bool storage_make(u32 texture, view_size size) {
    static const target_format& format = format_choose();
    state_texture(texture);
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format.storage), size.width, size.height, 0,
                 GL_RGBA, format.type, nullptr);
    return glGetError() == GL_NO_ERROR;
}

void storage_fit(target& to) {
    to.actual = to.wanted = wanted_size(to.logical);
    while (!storage_make(to.texture, to.actual)) {
        if (to.actual.width == 1 && to.actual.height == 1) {
            message_write({"failed to draw: the GPU has no memory for the picture\n"});
            system_release();
            std::exit(EXIT_FAILURE);
        }
        to.actual = {std::max(to.actual.width / 2, 1), std::max(to.actual.height / 2, 1)};
    }
}

// Null for the window.
const target* target_of(u32 frame_buffer) {
    auto found = std::find_if(targets.begin(), targets.end(),
                              [=](const target& one) { return one.frame_buffer == frame_buffer; });
    return found != targets.end() ? &*found : nullptr;
}

}  // namespace

void target_make(u32 texture, view_size logical) {
    target_forget(texture);
    targets.push_back({texture, 0, logical, {}, {}});
    storage_fit(targets.back());
}

void target_attach(u32 texture, u32 frame_buffer) {
    for (target& one : targets) {
        if (one.texture == texture) {
            one.frame_buffer = frame_buffer;
        }
    }
}

void target_forget(u32 texture) {
    std::erase_if(targets, [=](const target& one) { return one.texture == texture; });
}

bool targets_fit() {
    bool last = window_picture_fit();
    for (target& one : targets) {
        last = last && one.actual == view_size{view.shown.width, view.shown.height};
        if (one.wanted != wanted_size(one.logical)) {
            storage_fit(one);
            last = false;
        }
    }
    return last;
}

view_box target_whole(u32 frame_buffer) {
    const target* one = target_of(frame_buffer);
    return one != nullptr ? view_box{0, 0, one->actual.width, one->actual.height} : view.shown;
}

view_box target_box(u32 frame_buffer, const view_box& box) {
    const target* one = target_of(frame_buffer);
    view_size logical = one != nullptr ? one->logical : view.logical;
    view_box whole = target_whole(frame_buffer);
    view_box placed =
        box_scaled(box, ratio(whole.width, logical.width), ratio(whole.height, logical.height));
    return {whole.x + placed.x, whole.y + placed.y, placed.width, placed.height};
}
