#include "tools/solver/key_pool.h"

#include <algorithm>
#include <cassert>

#include "base/fingerprint.h"

namespace {

constexpr std::size_t first_slots = 1 << 10;  // a power of two, as every later number of them

// The slot in which the record stands or would.
std::size_t slot_find(const key_pool& pool, const u64* words) {
    u64 fingerprint = 0;
    for (i64 i = 0; i < pool.width; ++i) {
        fingerprint_add(fingerprint, words[i]);
    }
    const std::size_t mask = pool.slots.size() - 1;
    std::size_t slot = fingerprint & mask;
    while (pool.slots[slot] != 0 &&
           !std::equal(words, words + pool.width, key_words(pool, pool.slots[slot] - 1))) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

void slots_double(key_pool& pool) {
    pool.slots.assign(std::max(first_slots, 2 * pool.slots.size()), 0);
    for (i64 number = 0; number < pool.count; ++number) {
        pool.slots[slot_find(pool, key_words(pool, number))] = static_cast<u32>(number + 1);
    }
}

}  // namespace

i64 key_add(key_pool& pool, const u64* words) {
    if (2 * static_cast<std::size_t>(pool.count + 1) > pool.slots.size()) {
        slots_double(pool);
    }
    u32& slot = pool.slots[slot_find(pool, words)];
    if (slot == 0) {
        pool.words.insert(pool.words.end(), words, words + pool.width);
        pool.count += 1;
        slot = static_cast<u32>(pool.count);
    }
    return slot - 1;
}

i64 key_find(const key_pool& pool, const u64* words) {
    return pool.count == 0 ? -1 : i64{pool.slots[slot_find(pool, words)]} - 1;
}

i64 key_pool_bytes(const key_pool& pool) {
    return static_cast<i64>(pool.words.capacity() * sizeof(u64) +
                            pool.slots.capacity() * sizeof(u32));
}
