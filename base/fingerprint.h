#pragma once

// Fingerprints: 64 bits that differ where what went into them differs, but for chance.

#include "base/str.h"
#include "base/types.h"

// Mixes a value into a fingerprint, which begins as any number.
inline void print_add(u64& print, u64 value) {
    print = (print ^ value) * 0x9e3779b97f4a7c15;
    print ^= print >> 32;
}

inline void print_add(u64& print, str bytes) {
    for (char byte : bytes) {
        print_add(print, u64{static_cast<u8>(byte)});
    }
}
