#pragma once

// The seats of a game, made as they are wanted.

#include "base/str.h"
#include "rules/game_state.h"

// What command lines, links and files call the kinds of seats: a human, and computers by strength.
inline constexpr str seat_kinds[1 + strength_count] = {"human", "easy", "normal", "hard"};

// The kinds of some seats, as indices of that table.
struct seat_list {
    i64 kinds[player_limit] = {};
    i64 count = 0;
};

// Gives a seat the colour with that index, 0 to 5.
void seat_colour_set(player& seat, i64 index);

// Makes `players` hold exactly `player_count` seats; new ones are humans.
void seats_adjust();

// Reads a list such as "human,hard"; false when it is not one to six kinds with commas between
// them.
bool seat_list_read(str words, seat_list& list);
// Makes those the seats, in the colours that the set-up begins with.
void seats_set(const seat_list& list);
