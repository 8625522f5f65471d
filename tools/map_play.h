#pragma once

// Whole games on the loaded map, without a window, between computer seats and humans who play by
// chance.

#include <functional>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "rules/game_state.h"

// A game that has no winner after so many turns is given up unless another number is asked for, and
// so is one in which no stone of a state machine can be moved any more.
inline constexpr i64 turn_limit = 2'000;

// A seat is a computer of a strength or a human, who makes any of the moves that the board offers a
// human, draws a card instead now and then, and ends the turn when nothing else is left.
inline constexpr i64 human_seat = strength_count;
inline constexpr std::string_view seat_names[] = {"easy", "normal", "hard", "human"};
static_assert(std::size(seat_names) == human_seat + 1);

struct play_record {
    std::vector<i64> wins;   // by seat
    std::vector<i64> turns;  // of every game, in their order
    i64 moves;
    i64 passes;  // turns without a move
    i64 draws;
    i64 unfinished;  // games given up
    i64 stuck;    // games that ended before a human who could neither move, draw nor end the turn
    i64 at_once;  // games won by their first turn
};

enum play_event_kind { play_deal, play_move, play_draw, play_pass, play_win, play_end };

// What happened last in a game; the game's own state tells the rest.
struct play_event {
    play_event_kind kind;
    i64 seat;   // that did it; of the deal and of a game that is given up the one to move
    u16 stone;  // of a move, else `no_index`
};

using play_listener = std::function<void(const play_event&)>;

// Plays `games` games of up to `most_turns` with one seat for each of `seats`, a strength or
// `human_seat`, dealt from `seed`; `listen` is told what happens.
play_record map_play(
    const std::vector<i64>& seats, i64 games, u64 seed, i64 most_turns = turn_limit,
    const play_listener& listen = [](const play_event&) {});

// The middle value, the lower one of two; 0 of none.
i64 median(std::vector<i64> values);
