#pragma once

// The gamepads that SDL knows, whenever they are plugged in.

#include <SDL.h>

// Without them the game goes on.
void gamepads_start();
// Takes the event if it is one of theirs.
void gamepad_event_apply(const SDL_Event& event);
