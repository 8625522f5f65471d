#pragma once

// The goals of turing games and the test whether a seat has won.

#include "maps/model.h"

// What a goal counts over the cards of the tape.
enum measure_value : u8 {
    measure_sum = 0,           // the sum of the numbers
    measure_distinct_colours,  // of the deck's colours, how many occur
    measure_distinct_shapes,
    measure_distinct_numbers,
    measure_colour,  // cards with card_a's colour
    measure_shape,
    measure_number,
    measure_either_colour,  // cards with card_a's or card_b's colour
    measure_either_shape,
    measure_either_number,
    measure_count,
};

enum comparison_value : u8 {
    compare_exactly = 0,
    compare_at_most,
    compare_at_least,
    comparison_count,
};

// The goal's count over the current tape; 0 for a measure that does not exist.
i64 goal_count(const goal& g);
// Whether the count meets the target; never for a comparison that does not exist.
bool goal_met(const goal& g);

// Whether the current seat has won, tested right after its move: the family's own test (an empty
// hand, a met goal), then the map's win mode.
bool win_check();
