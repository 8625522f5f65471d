#pragma once

// What the sources of this backend share: the one window and its events.

#include <SDL.h>

extern SDL_Window* window;  // null while no window is open; display.cpp opens and closes it

// Ends the window and its GPU context, if there are any.
void display_release();
// The player closed the window.
void display_close_requested();
// Chooses how frames are shown on the display that the window stands on now.
void present_display_changed();
