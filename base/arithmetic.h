#pragma once

// Whole-number arithmetic that the language leaves out.

#include <cassert>

#include "base/types.h"

// `value` modulo `count` > 0, taken in [0, count) also for a negative value: -1 becomes the last.
constexpr i64 floor_modulo(i64 value, i64 count) {
    assert(count > 0);
    i64 remainder = value % count;
    return remainder < 0 ? remainder + count : remainder;
}

// The sum; the largest and the smallest number are neighbours.
constexpr i64 wrapping_add(i64 value, i64 step) {
    return static_cast<i64>(static_cast<u64>(value) + static_cast<u64>(step));
}

// The largest whole number whose square is at most `value` >= 0.
// Source: Heron's method, from above.
constexpr i64 root_floor(i64 value) {
    assert(value >= 0);
    i64 root = value / 2 + 1;
    while (root > 0 && root > value / root) {
        root = (root + value / root) / 2;
    }
    return root;
}
