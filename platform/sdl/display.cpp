#include "platform/display.h"

#include <SDL.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "base/message.h"
#include "platform/common/regular_file.h"
#include "platform/common/view.h"
#include "platform/gl/frame.h"
#include "platform/png/png.h"
#include "platform/sdl/cursor.h"
#include "platform/sdl/gamepads.h"
#include "platform/sdl/portal.h"
#include "platform/sdl/window.h"
#include "platform/sdl/window_manager.h"
#include "platform/system.h"

SDL_Window* window;

namespace {

constexpr int gl_major = 3;
constexpr int gl_minor = 3;
// What a software renderer takes of the address space, and for each of its threads; others take
// less.
constexpr std::size_t driver_addresses = std::size_t{256} << 20;  // bytes
constexpr std::size_t thread_addresses = std::size_t{160} << 20;  // bytes
constexpr std::size_t driver_threads_most = 32;
constexpr Uint32 window_flags = SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;

SDL_GLContext context;
view_size windowed_size;  // of the game's picture while the window is no fullscreen one
view_size logical_size;   // of the game's picture now
bool is_fullscreen;
bool close_requested;
bool stillness_wanted;  // as the game began
std::string game_title;
std::string told_line;
std::string standing_line;

[[noreturn]] void open_failed(const char* reason) {
    message_write(
        {"failed to open the display: ", {reason, static_cast<i64>(std::strlen(reason))}, "\n"});
    system_release();
    std::exit(EXIT_FAILURE);
}

// Whether "ulimit -v" leaves what drivers take: without it they crash instead of failing.
bool address_space_suffices() {
    std::size_t threads = std::thread::hardware_concurrency();
    std::size_t size = driver_addresses + std::min(threads, driver_threads_most) * thread_addresses;
    void* room = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return room != MAP_FAILED && munmap(room, size) == 0;
}

// Without a display SDL falls back to a driver that draws where nobody can see it.
bool driver_shows_windows() {
    std::string_view driver = SDL_GetCurrentVideoDriver();
    return driver != "offscreen" && driver != "dummy";
}

// What the player sets in the environment counts more.
void hints_set() {
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");  // a finger is no mouse that is held
    if (SDL_getenv("WAYLAND_DISPLAY") != nullptr) {
        // Through X11 a dense display would show the window enlarged and blurred.
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "wayland,x11");
    }
}

void video_start() {
    if (!address_space_suffices()) {
        open_failed("the address space is limited too much (ulimit -v)");
    }
    hints_set();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        open_failed(SDL_GetError());
    }
    if (!driver_shows_windows()) {
        open_failed("no display");
    }
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

// Where the driver can, a context that is lost is told as a GPU error, which ends the game.
SDL_GLContext context_make() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_RESET_NOTIFICATION, SDL_GL_CONTEXT_RESET_LOSE_CONTEXT);
    if (SDL_GLContext made = SDL_GL_CreateContext(window); made != nullptr) {
        return made;
    }
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_RESET_NOTIFICATION, SDL_GL_CONTEXT_RESET_NO_NOTIFICATION);
    return SDL_GL_CreateContext(window);
}

// Without its picture the window has the icon of its desktop's choice.
void icon_set() {
    constexpr i64 icon_bytes_max = 4 * 256 * 256;
    i64 size = 0;
    std::FILE* file = regular_file_open("resources/icon.png", size);
    if (file == nullptr) {
        return;
    }
    std::vector<u8> pixels(icon_bytes_max);
    u32 width = 0;
    u32 height = 0;
    if (png_decode(file, {icon_bytes_max, pixels.data(), false}, width, height)) {
        SDL_Surface* icon = SDL_CreateRGBSurfaceWithFormatFrom(
            pixels.data(), static_cast<int>(width), static_cast<int>(height), 32,
            static_cast<int>(4 * width), SDL_PIXELFORMAT_RGBA32);
        SDL_SetWindowIcon(window, icon);
        SDL_FreeSurface(icon);
    }
    std::fclose(file);
}

view_size fitted_into(view_size size, const SDL_Rect& room) {
    bool fits = size.width <= room.w && size.height <= room.h;
    return fits ? size : view_fitted(size, {room.w, room.h});
}

// Where a window's content may stand for all of it to be seen; the frame around the window is known
// only after the window has been shown.
SDL_Rect room_of(SDL_Window* shown) {
    SDL_Rect room = {};
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    if (SDL_GetDisplayUsableBounds(shown != nullptr ? SDL_GetWindowDisplayIndex(shown) : 0,
                                   &room) != 0) {
        return {0, 0, windowed_size.width, windowed_size.height};
    }
    if (shown != nullptr) {
        SDL_GetWindowBordersSize(shown, &top, &left, &bottom, &right);
    }
    return {room.x + left, room.y + top, room.w - left - right, room.h - top - bottom};
}

// Stands a window of the game's picture in the middle of a room, smaller where it has to be.
void window_place(const SDL_Rect& room) {
    view_size size = fitted_into(windowed_size, room);
    SDL_SetWindowSize(window, size.width, size.height);
    SDL_SetWindowPosition(window, room.x + (room.w - size.width) / 2,
                          room.y + (room.h - size.height) / 2);
}

// Makes the window small enough for a small desktop.
void window_fit() {
    SDL_PumpEvents();
    SDL_Rect room = room_of(window);
    view_size size = {};
    SDL_GetWindowSize(window, &size.width, &size.height);
    if (size.width > room.w || size.height > room.h) {
        window_place(room);
    }
}

// What a window manager would do for a fullscreen window, and for one that is so no longer.
void window_fill(bool whole_display) {
    SDL_Rect room = {};
    SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(window), &room);
    if (whole_display) {
        SDL_SetWindowSize(window, room.w, room.h);
        SDL_SetWindowPosition(window, room.x, room.y);
    } else {
        window_place(room);
    }
}

// The size of the display that the window stands on, in pixels of the screen.
view_size display_size() {
    SDL_DisplayMode mode = {};
    SDL_GetDesktopDisplayMode(SDL_GetWindowDisplayIndex(window), &mode);
    f64 density = window_density();
    return {static_cast<i32>(mode.w * density), static_cast<i32>(mode.h * density)};
}

void title_show() {
    std::string title = !told_line.empty()       ? game_title + " - " + told_line
                        : !standing_line.empty() ? standing_line + " - " + game_title
                                                 : game_title;
    SDL_SetWindowTitle(window, title.c_str());
}

}  // namespace

void display_open(i32 width, i32 height, str title, u32 options, u32 samples) {
    video_start();
    context_attributes(options, samples);
    windowed_size = logical_size = {width, height};
    close_requested = false;
    view_size size = fitted_into(windowed_size, room_of(nullptr));
    game_title.assign(title.begin(), title.end());
    window = SDL_CreateWindow(game_title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                              size.width, size.height, window_flags);
    if (window == nullptr) {
        open_failed(SDL_GetError());
    }
    icon_set();
    context = context_make();
    if (context == nullptr) {
        open_failed(SDL_GetError());
    }
    SDL_StopTextInput();  // keys come as keys, past any input method, and yet tell what they type
    SDL_EventState(SDL_TEXTINPUT, SDL_ENABLE);
    window_fit();
    window_changed();
    gamepads_start();
    stillness_wanted = portal_wants_stillness();
}

f64 window_density() {
    int points = 0;
    int pixels = 0;
    SDL_GetWindowSize(window, &points, nullptr);
    SDL_GL_GetDrawableSize(window, &pixels, nullptr);
    return points > 0 ? f64{1} * pixels / points : 1;
}

void window_changed() {
    view_size size = {};
    SDL_GL_GetDrawableSize(window, &size.width, &size.height);
    view_set(logical_size, size);
    present_display_changed();
    frame_ask();
}

bool window_can_be_seen() {
    view_size size = {};
    SDL_GL_GetDrawableSize(window, &size.width, &size.height);
    return size.width > 0 && size.height > 0 &&
           (SDL_GetWindowFlags(window) & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)) == 0;
}

void display_close_requested() {
    close_requested = true;
}

bool display_is_closed() {
    return close_requested;
}

bool display_is_hidden() {
    return (SDL_GetWindowFlags(window) & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)) != 0;
}

void display_set_fullscreen(bool fullscreen) {
    is_fullscreen = fullscreen;
    logical_size = fullscreen ? view_fullscreen(display_size()) : windowed_size;
    if (window_manager_runs(window)) {
        SDL_SetWindowFullscreen(window, fullscreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
    } else {
        window_fill(fullscreen);
    }
    window_changed();
}

void display_get_info(i32& width, i32& height) {
    view_size size = is_fullscreen ? logical_size : view_fullscreen(display_size());
    width = size.width;
    height = size.height;
}

bool display_wants_stillness() {
    return stillness_wanted;
}

void display_tell(str line) {
    told_line.assign(line.begin(), line.end());
    title_show();
}

void display_stand(str line) {
    standing_line.assign(line.begin(), line.end());
    title_show();
}

void display_refuse(bool refuses) {
    cursor_refuse(refuses);
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
