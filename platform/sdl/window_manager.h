#pragma once

#include <SDL.h>

// Whether something manages the windows of the desktop and makes them fullscreen. Only X11 can be
// without.
bool window_manager_runs(SDL_Window* window);
// The socket on which the window's events come, ready to be read when there are some; -1 where it
// is not known, as on Wayland.
int display_connection(SDL_Window* window);
