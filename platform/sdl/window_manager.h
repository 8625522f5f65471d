#pragma once

#include <SDL.h>

// Whether something manages the windows of the desktop and makes them fullscreen. Only X11 can be
// without.
bool window_manager_runs(SDL_Window* window);
