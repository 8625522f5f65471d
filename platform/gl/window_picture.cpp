#include "platform/gl/window_picture.h"

#include <string_view>

#include "platform/common/view.h"
#include "platform/gl/opengl.h"
#include "platform/gl/state.h"

namespace {

struct kept_picture {
    u32 frame_buffer;
    u32 pixels;
    view_size size;
};

kept_picture picture;

// Whether the window keeps what was drawn when it is shown. Pages are told to, and Mesa's software
// renderers have one buffer, of which they send copies; a copy of our own would cost them more than
// most pictures do.
bool window_keeps() {
#ifdef __EMSCRIPTEN__
    return true;
#else
    std::string_view renderer(reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
    return renderer.starts_with("llvmpipe") || renderer.starts_with("softpipe");
#endif
}

void picture_destroy() {
    state_frame_buffer(0);
    glDeleteFramebuffers(1, &picture.frame_buffer);
    glDeleteRenderbuffers(1, &picture.pixels);
    picture.frame_buffer = 0;
}

void picture_create() {
    glGenFramebuffers(1, &picture.frame_buffer);
    glGenRenderbuffers(1, &picture.pixels);
    state_frame_buffer(picture.frame_buffer);
    glBindRenderbuffer(GL_RENDERBUFFER, picture.pixels);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, picture.size.width, picture.size.height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                              picture.pixels);
    if (glGetError() != GL_NO_ERROR ||
        glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        picture_destroy();
    }
}

}  // namespace

bool window_picture_fit() {
    static const bool window_suffices = window_keeps();
    if (picture.size == view.window) {
        return window_suffices || picture.frame_buffer != 0;
    }
    picture_destroy();
    picture.size = view.window;
    if (!window_suffices) {
        picture_create();
    }
    return false;
}

u32 window_picture() {
    return picture.frame_buffer;
}

void window_picture_show() {
    if (picture.frame_buffer == 0) {
        return;
    }
    state_frame_buffer(picture.frame_buffer);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    glBlitFramebuffer(0, 0, picture.size.width, picture.size.height, 0, 0, picture.size.width,
                      picture.size.height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, picture.frame_buffer);
}

void window_picture_forget() {
    picture = {};
}
