#pragma once

// Fingerprints: 64 bits in which a difference of what went into them shows. Equal inputs have equal
// ones. Two different inputs have the same one by chance, once in 2^64; whoever looks for such a
// pair finds one, so nothing that must withstand malice may rest on them.

#include "base/str.h"
#include "base/types.h"

// Mixes a value into a fingerprint, which begins as any number.
inline void fingerprint_add(u64& fingerprint, u64 value) {
    fingerprint = (fingerprint ^ value) * 0x9e3779b97f4a7c15;
    fingerprint ^= fingerprint >> 32;
}

inline void fingerprint_add(u64& fingerprint, str bytes) {
    for (char byte : bytes) {
        fingerprint_add(fingerprint, u64{static_cast<u8>(byte)});
    }
}
