#pragma once

// What a running game consists of beside the map and the cards: the seats and whose turn it is.

#include "base/colour.h"
#include "base/dyn_array.h"
#include "base/types.h"
#include "maps/model.h"

enum strength_value : u64 { strength_easy = 0, strength_normal, strength_hard };
inline constexpr u64 strength_count = 3;

inline constexpr i64 player_limit = 6;
inline constexpr i64 seat_colour_count = 6;

// One seat. `is_computer` and `strength` together are the kind of the player.
struct player {
    u64 strength = strength_easy;  // used when the seat is a computer
    dyn_array<card> hand = {};
    u8 is_computer = 0;
    u8 colour_index = 0;   // 0 to 5, a card colour
    ::colour colour = {};  // that colour, in which the seat's marks are drawn
    ::goal goal;           // dealt at the start of every turing game
};

extern dyn_array<player> players;
// Seats wanted, 1 to 6, chosen in the player set-up, which makes `players` hold as many.
extern i64 player_count;

inline constexpr u8 no_winner = 255;

struct turn_record {
    i8 current_player = 0;  // index into `players`
    i64 human_count = 0;    // seats that are human, counted at every update
    u8 winner = no_winner;  // index of the seat that has won
    // A human's turn was taken up; until then the board is covered when several humans play.
    bool turn_revealed = false;
    bool card_drawn = false;  // the current seat has drawn its one card of this turn
    f64 move_timer = 0;       // seconds left of the move that is being shown
    f64 think_timer = 0;      // seconds a computer seat waits before it acts
    bool show_nimbers = false;
};

extern turn_record turn;

// The seat to move; there must be one.
player& current_seat();

// Counts `human_count` anew.
void humans_count();
