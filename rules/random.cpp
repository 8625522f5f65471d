#include "rules/random.h"

#include <bit>
#include <cassert>

random_state random_generator;

namespace {

u64 split_mix(u64 z) {
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

}  // namespace

void random_seed(u64 t) {
    constexpr u64 step = 0x9e3779b97f4a7c15;
    random_generator = {split_mix(t + step), split_mix(t + 2 * step), split_mix(t + 3 * step),
                        split_mix(t + 4 * step)};
}

u64 random_next() {
    random_state& s = random_generator;
    u64 result = std::rotl(s.s1 * 5, 7) * 9;
    u64 t = s.s1 << 17;
    s.s2 ^= s.s0;
    s.s3 ^= s.s1;
    s.s1 ^= s.s2;
    s.s0 ^= s.s3;
    s.s2 ^= t;
    s.s3 = std::rotl(s.s3, 45);
    return result;
}

i64 random_draws_since(random_state before) {
    random_state now = random_generator;
    i64 draws = 0;
    for (random_generator = before; random_generator != now; ++draws) {
        random_next();
    }
    return draws;
}

u64 random_below(u64 n) {
    assert(n >= 1);
    for (;;) {
        u64 r = random_next();
        u64 value = r % n;
        // Rejects the last, incomplete block of n values.
        if (r - value <= u64{0} - n) {
            return value;
        }
    }
}

i64 random_index(i64 count) {
    assert(count >= 1);
    return static_cast<i64>(random_below(static_cast<u64>(count)));
}
