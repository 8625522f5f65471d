#pragma once

// How a map looks at the start of a game: at zoom 1 in a window of 1024 by 832 pixels, between the
// two bands. The board's own drawing tells where things are.

#include "tools/remarks.h"

// Names, for the loaded map, every state, loop or label that leaves the free part of the window,
// and for each the first thing of a kind that is in its way: states that overlap or have another
// state's arrow run through them; arrows between the same two states that overlap; loops and labels
// that lie over something else. Only the first trouble of a label is named. To be called within a
// frame of that window, with GPU calls recorded; the recorded calls are lost.
void layout_check(remarks& found);
