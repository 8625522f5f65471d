// Preloaded into the game: says how long it took from QUORREL_STARTED, in nanoseconds of the
// system's clock, to the first frame in the window, and ends the program.

#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

struct SDL_Window;

extern "C" void SDL_GL_SwapWindow(SDL_Window* window);

void SDL_GL_SwapWindow(SDL_Window* window) {
    auto present = reinterpret_cast<void (*)(SDL_Window*)>(dlsym(RTLD_NEXT, "SDL_GL_SwapWindow"));
    present(window);
    auto now = std::chrono::system_clock::now().time_since_epoch();
    long long started = std::atoll(std::getenv("QUORREL_STARTED"));
    std::printf("%.0f ms\n",
                static_cast<double>(std::chrono::nanoseconds(now).count() - started) / 1e6);
    std::fflush(stdout);
    std::_Exit(0);
}
