#include "platform/gl/kept_calls.h"

#include <algorithm>
#include <cassert>
#include <utility>

// A call is one word, its place and a bit for each argument that differs from the place's last
// call, and then these arguments. In the first call of a place, all zero counts as the last one,
// and the second word says what it is.

namespace {

constexpr u32 place_bits = 8;
constexpr u32 places_most = 1U << place_bits;
constexpr u32 is_first = 1U << 31;
static_assert(place_bits + arguments_most <= 31);

constexpr u32 trim_frames = 10;

// Blocks that no list needs now.
struct block_store {
    std::vector<kept_calls::block> blocks;
    std::size_t least = 0;  // that lay here in these frames
    u32 frames = 0;
};

block_store store;

kept_calls::block block_take() {
    if (store.blocks.empty()) {
        store.least = 0;
        return std::make_unique<kept_calls::block::element_type>();
    }
    kept_calls::block taken = std::move(store.blocks.back());
    store.blocks.pop_back();
    store.least = std::min(store.least, store.blocks.size());
    return taken;
}

void word_add(kept_calls& list, u32 word) {
    std::size_t place = list.size % kept_calls::block_size;
    if (place == 0) {
        list.blocks.push_back(block_take());
    }
    (*list.blocks.back())[place] = word;
    ++list.size;
}

u32 word_read(const kept_calls& list, std::size_t& at) {
    u32 word = (*list.blocks[at / kept_calls::block_size])[at % kept_calls::block_size];
    ++at;
    return word;
}

}  // namespace

void kept_add(kept_calls& list, u32 place, const call_words& call, const call_words* before) {
    assert(place < places_most);
    static constexpr call_words none = {};
    const call_words& from = before != nullptr ? *before : none;
    u32 head = place | (before != nullptr ? 0 : is_first);
    for (u32 i = 0; i < call.count; ++i) {
        head |= call.at[i] != from.at[i] ? 1U << (place_bits + i) : 0;
    }
    word_add(list, head);
    if (before == nullptr) {
        word_add(list, static_cast<u32>(call.call) << place_bits | call.count);
    }
    for (u32 i = 0; i < call.count; ++i) {
        if (call.at[i] != from.at[i]) {
            word_add(list, call.at[i]);
        }
    }
}

u32 kept_read(const kept_calls& list, std::size_t& at, std::vector<call_words>& latest) {
    u32 head = word_read(list, at);
    u32 place = head % places_most;
    latest.resize(std::max(latest.size(), std::size_t{place} + 1));
    call_words& call = latest[place];
    if ((head & is_first) != 0) {
        u32 kind = word_read(list, at);
        call = {static_cast<frame_call>(kind >> place_bits), kind % places_most, {}};
    }
    for (u32 i = 0; i < call.count; ++i) {
        if ((head >> (place_bits + i) & 1) != 0) {
            call.at[i] = word_read(list, at);
        }
    }
    return place;
}

void kept_drop(kept_calls& list, std::size_t at) {
    for (std::size_t i = at / kept_calls::block_size; i > 0 && list.blocks[i - 1]; --i) {
        store.blocks.push_back(std::move(list.blocks[i - 1]));
    }
}

void kept_clear(kept_calls& list) {
    kept_drop(list, list.blocks.size() * kept_calls::block_size);
    list.blocks.clear();
    list.size = 0;
}

void kept_store_trim() {
    if (++store.frames < trim_frames) {
        return;
    }
    store.blocks.resize(store.blocks.size() - store.least);
    store.blocks.shrink_to_fit();
    store.least = store.blocks.size();
    store.frames = 0;
}
