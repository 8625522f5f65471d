#pragma once

#include "base/str.h"

// The overlay that F2 shows over every screen: the keys that the help page does not name, and at
// its top those of them that do something right now.
void keys_page_draw();
// "Right now: " and the keys that do something, in the frame arena.
str keys_now_words();
