#pragma once

// What the solver found, in words.

#include <string>

#include "tools/solver/deals.h"
#include "tools/solver/solved.h"

// Why a work was stopped.
std::string work_words(work_state state, i64 megabytes, i64 seconds);

// "1 turn", "1,234 turns".
std::string count_words(i64 count, const char* what);

// "seat 2", which moves so many seats after the one to move.
std::string seat_words(i64 after);

// "wins in 5 turns", for the seat to move; "seat 2 wins in 4 turns"; "nobody wins".
std::string outcome_words(const verdict& outcome);

// "0>2", "draws Aa1, 0>2:Aa1", "draws Aa1, ends the turn", for the seat to move.
std::string turn_words(const solved_turn& taken);

// "48.1% / 51.9%, nobody 0.0%; 7.3 turns on average, 19 at most", of deals that weigh so much.
std::string share_words(const deals_share& share, f64 weight);
