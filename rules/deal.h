#pragma once

// The start of a game: the map is loaded again, the deck built and shuffled, the cards dealt.

#include "rules/random.h"

// What a deal depends on beside the map, its settings and the seats: all of it stays from before.
struct deal_start {
    random_state chance;
    i64 tape_head = 0;
    bool card_drawn = false;
};

struct deal_record {
    i64 number = 0;  // games started so far
    deal_start start = {};
};

extern deal_record last_deal;

// Starts, or restarts, a game with the current family, the selected catalogue entry (without one
// the map under work, while that is played, or else the map that is loaded) and the seats. Closes
// the menus. Piles that would hold more than `pile_limit` cards are cut, which is said in one line
// on standard output.
void game_start();

// The same on the map that is loaded, as it stands.
void game_start_loaded();

// Deals the running game again as it was dealt from that start, with the stones where they are.
void game_deal_again(const deal_start& start);
