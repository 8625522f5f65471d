#include "platform/display.h"

#include <emscripten.h>
#include <emscripten/html5.h>

#include <cstdlib>

#include "base/message.h"
#include "platform/common/view.h"
#include "platform/web/canvas.h"

namespace {

EMSCRIPTEN_WEBGL_CONTEXT_HANDLE context;

EMSCRIPTEN_WEBGL_CONTEXT_HANDLE context_create() {
    EmscriptenWebGLContextAttributes attributes;
    emscripten_webgl_init_context_attributes(&attributes);
    attributes.majorVersion = 2;
    attributes.alpha = EM_FALSE;
    attributes.depth = EM_FALSE;
    attributes.antialias = EM_FALSE;
    return emscripten_webgl_create_context(canvas_selector, &attributes);
}

}  // namespace

void display_open(i32 width, i32 height, str, u32, u32) {
    emscripten_set_canvas_element_size(canvas_selector, width, height);
    view_set({width, height}, {width, height});
    context = context_create();
    if (context <= 0 || emscripten_webgl_make_context_current(context) < 0) {
        message_write({"failed to open the display: no WebGL 2\n"});
        std::exit(EXIT_FAILURE);
    }
    // A target of 16-bit floats can be drawn into only after this.
    emscripten_webgl_enable_extension(context, "EXT_color_buffer_float");
    input_listen();
}

// A page is never asked whether it may close.
bool display_is_closed() {
    return false;
}

void display_set_fullscreen(bool fullscreen) {
    // clang-format off
    EM_ASM({ fullscreen_set($0 !== 0); }, fullscreen);
    // clang-format on
}

void display_get_info(i32& width, i32& height) {
    width = 1024;
    height = 832;
}

void display_close() {
    emscripten_webgl_destroy_context(context);
}
