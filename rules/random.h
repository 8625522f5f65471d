#pragma once

// The one source of chance: xoshiro256** seeded by SplitMix64.
//
// Source: D. Blackman, S. Vigna, "Scrambled linear pseudorandom number generators" (2021);
// G. Steele, D. Lea, C. Flood, "Fast splittable pseudorandom number generators" (2014).

#include "base/types.h"

struct random_state {
    u64 s0 = 0;
    u64 s1 = 0;
    u64 s2 = 0;
    u64 s3 = 0;

    bool operator==(const random_state&) const = default;
};

extern random_state random_generator;

void random_seed(u64 t);
u64 random_next();
// How many numbers were drawn since the generator stood there.
i64 random_draws_since(random_state before);
// Uniform in [0, n) for n >= 1; draws from the generator also for n = 1.
u64 random_below(u64 n);
// A uniform choice among `count` >= 1 things, by their index; draws as `random_below` does.
i64 random_index(i64 count);
