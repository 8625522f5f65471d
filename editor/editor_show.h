#pragma once

// What is to be known of the map under work, shown over its picture: the numbers by which states
// are told, the rules that cannot be read, and what `quorrel_maps check` says breaks play, as far
// as it is found at once.

#include "base/str.h"

// Marks all that on the board.
void editor_show_draw();

// The same in words, a line for each, in the frame arena.
str editor_show_words();
