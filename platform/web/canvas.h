#pragma once

// What the sources of this backend share: the page's canvas and its events. The page gives the
// canvas whatever size it wants; the game's picture is shown in it as in a window.

#include "base/types.h"

inline constexpr char canvas_selector[] = "#canvas";

// Begins to listen for the canvas's keys and mouse.
void input_listen();

// Pixels of the screen for one unit of the page.
f64 canvas_density();
// The browser made the canvas's GPU context anew, without any object.
void canvas_context_restored();
// Gives the canvas as many pixels as the screen has for it.
void canvas_fit();
