#pragma once

// From the keyboard's keys to the game's key codes.

#include <SDL.h>

#include "base/types.h"

// The code of `input_key` that a key stands for: a letter by the keyboard's layout, everything
// else by the key's place. 0 when the game has no code for it.
u32 key_of(const SDL_Keysym& key);
