// The game in a page: the browser calls for the frames.

#include <emscripten/html5.h>

#include "program/frame.h"

namespace {

EM_BOOL frame(double, void*) {
    if (program_frame()) {
        return EM_TRUE;
    }
    program_end();
    return EM_FALSE;
}

}  // namespace

int main() {
    program_start();
    emscripten_request_animation_frame_loop(frame, nullptr);
    return 0;
}
