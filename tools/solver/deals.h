#pragma once

// What becomes of many deals, each with its weight.

#include <vector>

#include "tools/solver/retrograde.h"

struct deals_share {
    std::vector<f64> wins = {};  // by seat
    f64 nobody = 0;
    f64 turns = 0;    // of games that are won, times their weight
    i64 longest = 0;  // turns
};

// Adds a deal in which the first seat begins.
inline void deal_add(deals_share& sum, const verdict& found, f64 weight) {
    if (found.winner == nobody) {
        sum.nobody += weight;
        return;
    }
    sum.wins[found.winner] += weight;
    sum.turns += weight * static_cast<f64>(found.turns);
    sum.longest = found.turns > sum.longest ? found.turns : sum.longest;
}

inline void deals_add(deals_share& sum, const deals_share& more) {
    for (std::size_t seat = 0; seat < sum.wins.size(); ++seat) {
        sum.wins[seat] += more.wins[seat];
    }
    sum.nobody += more.nobody;
    sum.turns += more.turns;
    sum.longest = more.longest > sum.longest ? more.longest : sum.longest;
}
