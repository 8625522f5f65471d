#pragma once

// What the maker leaves to chance, out of the game's one source of it.

#include "rules/random.h"

inline bool random_chance(i64 percent) {
    return random_index(100) < percent;
}

// A whole number from `least` to `most`.
inline i64 random_between(i64 least, i64 most) {
    return least + random_index(most - least + 1);
}
