#pragma once

// From the keyboard's keys to the game's key codes: what is printed on a key is what it types.

#include <SDL.h>

#include "platform/common/keyboard.h"

// What a key means that types `text` as it goes down; empty where it types nothing. Characters of
// ASCII come first, then the key's place. A layout without Latin letters counts as the American
// one, and a key that only changes the next character means nothing.
key_meaning key_meaning_of(const SDL_Keysym& key, const char* text);
