#include "platform/display.h"

#include <emscripten.h>
#include <emscripten/html5.h>

#include <cmath>
#include <cstdlib>

#include "base/message.h"
#include "platform/common/view.h"
#include "platform/gl/frame.h"
#include "platform/gl/state.h"
#include "platform/gl/window_picture.h"
#include "platform/web/canvas.h"

// clang-format off
EM_JS(void, page_fullscreen_set, (bool wanted), { page_fullscreen(wanted !== 0); });
EM_JS(bool, page_is_touched, (), { return page_touched(); });
EM_JS(void, page_tell, (const char* line, int length), { page_told(UTF8ToString(line, length)); });
EM_JS(void, page_stand, (const char* line, int length), { page_stood(UTF8ToString(line, length)); });
EM_JS(void, page_refuse, (bool refuses), { canvas.style.cursor = refuses ? "not-allowed" : ""; });
EM_JS(int, page_wants_stillness, (), {
    return matchMedia("(prefers-reduced-motion: reduce)").matches ? 1 : 0;
});
// clang-format on

namespace {

EMSCRIPTEN_WEBGL_CONTEXT_HANDLE context;
view_size windowed_size;    // of the game's picture where nothing else is wanted
view_size fullscreen_size;  // the same, on a whole screen
bool is_fullscreen;

EMSCRIPTEN_WEBGL_CONTEXT_HANDLE context_create() {
    EmscriptenWebGLContextAttributes attributes;
    emscripten_webgl_init_context_attributes(&attributes);
    attributes.majorVersion = 2;
    attributes.alpha = EM_FALSE;
    attributes.depth = EM_FALSE;
    attributes.antialias = EM_FALSE;
    attributes.preserveDrawingBuffer = EM_TRUE;  // platform/gl/window_picture relies on it
    return emscripten_webgl_create_context(canvas_selector, &attributes);
}

void extensions_enable() {
    // Without it 16-bit floats cannot be drawn into, and the next best format is taken.
    emscripten_webgl_enable_extension(context, "EXT_color_buffer_float");
}

i32 pixels_of(f64 page_units) {
    return static_cast<i32>(std::lround(page_units * canvas_density()));
}

view_size screen_size() {
    int width = 0;
    int height = 0;
    emscripten_get_screen_size(&width, &height);
    return {pixels_of(width), pixels_of(height)};
}

// What the game's picture shall have in a canvas of so many pixels.
view_size logical_size(view_size canvas) {
    return page_is_touched() ? view_filled(canvas)
           : is_fullscreen   ? fullscreen_size
                             : windowed_size;
}

}  // namespace

void display_open(i32 width, i32 height, str, u32, u32) {
    windowed_size = {width, height};
    context = context_create();
    if (context <= 0 || emscripten_webgl_make_context_current(context) < 0) {
        message_write({"failed to open the display: no WebGL 2\n"});
        std::exit(EXIT_FAILURE);
    }
    extensions_enable();
    canvas_fit();
    input_listen();
}

void canvas_context_restored() {
    extensions_enable();
    state_forget_all();
    window_picture_forget();
}

f64 canvas_density() {
    return emscripten_get_device_pixel_ratio();
}

void canvas_fit() {
    f64 width = 0;
    f64 height = 0;
    emscripten_get_element_css_size(canvas_selector, &width, &height);
    view_size size = {pixels_of(width), pixels_of(height)};
    if (view_set(logical_size(size), size)) {
        emscripten_set_canvas_element_size(canvas_selector, view.window.width, view.window.height);
        frame_ask();
    }
}

// A page is closed without being asked.
bool display_is_closed() {
    return false;
}

bool display_is_hidden() {
    return false;  // a page that is hidden plays no frames
}

void display_set_fullscreen(bool fullscreen) {
    is_fullscreen = fullscreen;
    fullscreen_size = view_fullscreen(screen_size());
    page_fullscreen_set(fullscreen);
    canvas_fit();
}

void display_get_info(i32& width, i32& height) {
    width = view.logical.width;
    height = view.logical.height;
}

bool display_wants_stillness() {
    return page_wants_stillness() != 0;
}

void display_tell(str line) {
    if (line.length > 0) {
        page_tell(line.data, static_cast<int>(line.length));
    }
}

void display_stand(str line) {
    page_stand(line.data, static_cast<int>(line.length));
}

void display_refuse(bool refuses) {
    page_refuse(refuses);
}

// A page does not see what its pictures cost.
void display_set_ornament(bool) {}

void display_close() {}
