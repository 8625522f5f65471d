#pragma once

// Records of one width, each kept once and known by its number, in the order in which they came. A
// table of open addresses (G. Amdahl, E. McGraw, A. Samuel, 1953, in W. W. Peterson, "Addressing
// for random-access storage", 1957) finds them again; it is at most half full.

#include <vector>

#include "base/types.h"

struct key_pool {
    i64 width = 0;  // of a record, in words; may be 0, when there is only one
    i64 count = 0;
    std::vector<u64> words = {};  // of all records, one behind the other
    std::vector<u32> slots = {};  // the number of the record at an address, from 1; 0: free
};

// The number of a record of the pool's width, which is added if it is not there; it is new when the
// number is the pool's count before. The words must not lie in the pool.
i64 key_add(key_pool& pool, const u64* words);
// Its number, -1 when it is not there.
i64 key_find(const key_pool& pool, const u64* words);

inline const u64* key_words(const key_pool& pool, i64 number) {
    return pool.words.data() + number * pool.width;
}

i64 key_pool_bytes(const key_pool& pool);
