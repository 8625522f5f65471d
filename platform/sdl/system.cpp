#include "platform/system.h"

#include <SDL.h>

#include <chrono>
#include <csignal>

#include "platform/sdl/window.h"

void system_init(u32, f64) {
    // Messages into a pipe that nobody reads any more must not end the game.
    std::signal(SIGPIPE, SIG_IGN);
    SDL_Init(SDL_INIT_EVENTS);
    // SDL takes SIGINT and SIGTERM for the window being closed; these mean the same.
    for (int signal : {SIGHUP, SIGQUIT, SIGXCPU}) {
        std::signal(signal, [](int) { std::raise(SIGTERM); });
    }
}

void system_release() {
    display_release();
    SDL_Quit();
}

u64 system_time() {
    auto since_epoch = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<u64>(std::chrono::nanoseconds(since_epoch).count());
}
