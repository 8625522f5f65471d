#pragma once

// What the sources of this backend share: the one window and its events.

#include <SDL.h>

#include "base/types.h"

extern SDL_Window* window;  // null while no window is open; display.cpp opens and closes it

// Pixels of the screen for one unit of SDL's window coordinates.
f64 window_density();
// The window has another size, stands elsewhere, or has to be drawn anew.
void window_changed();
// Not while it is hidden, minimised or without any area.
bool window_can_be_seen();

// Ends the window and its GPU context, if there are any.
void display_release();
// The player closed the window.
void display_close_requested();
// Chooses how frames are shown on the display that the window stands on now.
void present_display_changed();
