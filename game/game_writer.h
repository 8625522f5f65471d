#pragma once

// The record as a text that people can read and change: docs/game-format.md.

#include "maps/writer.h"

// Whether there is a game to be written: one to go back into, in which something was done, of which
// all is recorded, and whose map's text is no longer than `record_map_limit`.
bool game_can_be_written();

// Hands the text to `take` piece by piece. Needs no memory of the arenas.
void game_write(text_taker take, void* to);
