#pragma once

// Whole games between computer seats on the loaded map, without a window.

#include <vector>

#include "base/types.h"
#include "rules/game_state.h"

// A game that has no winner after so many turns is given up, and so is one in which no stone of a
// state machine can be moved any more.
inline constexpr i64 turn_limit = 2'000;

struct play_record {
    std::vector<i64> wins;   // by seat
    std::vector<i64> turns;  // of every game, in their order
    i64 moves;
    i64 passes;  // turns without a move
    i64 draws;
    i64 unfinished;  // games given up
};

// Plays `games` games with one computer seat per strength, dealt from `seed`. With `progress` it
// shows on the terminal how far it is.
play_record map_play(const std::vector<strength_value>& strengths, i64 games, u64 seed,
                     bool progress);

// The middle value, the lower one of two; 0 of none.
i64 median(std::vector<i64> values);
