#include "platform/display.h"

#include <SDL.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "base/message.h"
#include "platform/sdl/window.h"
#include "platform/system.h"

SDL_Window* window;

namespace {

constexpr int gl_major = 3;
constexpr int gl_minor = 3;

SDL_GLContext context;
int windowed_width;   // pixels
int windowed_height;  // pixels
bool close_requested;

// Without a display SDL falls back to a driver that draws where nobody can see it.
bool driver_shows_windows() {
    std::string_view driver = SDL_GetCurrentVideoDriver();
    return driver != "offscreen" && driver != "dummy";
}

[[noreturn]] void open_failed(const char* reason) {
    message_write(
        {"failed to open the display: ", {reason, static_cast<i64>(std::strlen(reason))}, "\n"});
    system_release();
    std::exit(EXIT_FAILURE);
}

void context_attributes(u32 options, u32 samples) {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, gl_major);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, gl_minor);
    if ((options & display_core_profile) != 0) {
        SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    if (samples > display_samples_one) {
        SDL_GL_SetAttribute(SDL_GL_MULTISAMPLEBUFFERS, 1);
        SDL_GL_SetAttribute(SDL_GL_MULTISAMPLESAMPLES, static_cast<int>(samples));
    }
}

}  // namespace

void display_open(i32 width, i32 height, str title, u32 options, u32 samples) {
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        open_failed(SDL_GetError());
    }
    if (!driver_shows_windows()) {
        open_failed("no display");
    }
    context_attributes(options, samples);
    window =
        SDL_CreateWindow(std::string(title.begin(), title.end()).c_str(), SDL_WINDOWPOS_CENTERED,
                         SDL_WINDOWPOS_CENTERED, width, height, SDL_WINDOW_OPENGL);
    if (window == nullptr) {
        open_failed(SDL_GetError());
    }
    context = SDL_GL_CreateContext(window);
    if (context == nullptr) {
        open_failed(SDL_GetError());
    }
    SDL_StopTextInput();  // keys come as keys, past any input method
    windowed_width = width;
    windowed_height = height;
    close_requested = false;
    present_display_changed();
}

void display_close_requested() {
    close_requested = true;
}

bool display_is_closed() {
    return close_requested;
}

void display_set_fullscreen(bool fullscreen) {
    SDL_SetWindowFullscreen(window, fullscreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
    if (!fullscreen) {
        SDL_SetWindowSize(window, windowed_width, windowed_height);
    }
    present_display_changed();
}

void display_get_info(i32& width, i32& height) {
    SDL_DisplayMode mode = {};
    SDL_GetDesktopDisplayMode(SDL_GetWindowDisplayIndex(window), &mode);
    width = mode.w;
    height = mode.h;
}

void display_close() {
    SDL_HideWindow(window);
}

void display_release() {
    if (context != nullptr) {
        SDL_GL_DeleteContext(context);
        context = nullptr;
    }
    if (window != nullptr) {
        SDL_DestroyWindow(window);
        window = nullptr;
    }
}
