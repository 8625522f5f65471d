#pragma once

// What can be done on the board of a game, shown over its picture: where a stone can be moved, from
// a selected state the open arrows with what fits them, how many stones stack up, the last move,
// the numbers by which states are told, a tape that does not fit.

#include "render/view.h"
#include "rules/acts.h"

// Marks all that on the board.
void board_show_draw();

// The numbers by which states are told, how many stones stand on each, and a plate under its
// nimber.
void state_plates_draw();

// Marks the card of a pushdown machine's move beside its arrow.
void move_card_draw(const game_act& move);

// The same in words, a line for each: how things are, what every seat holds, the goal of the seat
// whose hand is shown, the rule under the pointer. In the frame arena.
str board_show_words(const pointer& mouse);
