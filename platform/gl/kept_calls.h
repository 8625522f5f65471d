#pragma once

// Calls kept in order, in as few words as they take: of what a call says, only what it says anew.

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "base/types.h"
#include "platform/gl/frame_call.h"

inline constexpr std::size_t arguments_most = 18;  // a program, a location and a matrix

// A call with its arguments.
struct call_words {
    frame_call call;
    u32 count;
    std::array<u32, arguments_most> at;
    std::span<const u32> words() const { return {at.data(), count}; }
};

// Words, in blocks that come from and go back to one store, so that none is copied as a list grows.
struct kept_calls {
    static constexpr std::size_t block_size = std::size_t{16} * 1024;  // words
    using block = std::unique_ptr<std::array<u32, block_size>>;
    std::vector<block> blocks;
    std::size_t size = 0;  // words
};

// Keeps a call of a place, one of 256; `before` is the one kept there last, null for the first.
void kept_add(kept_calls& list, u32 place, const call_words& call, const call_words* before);
// Reads the call that begins at `at`, which becomes the next one's begin; returns its place. There
// `latest` has to have the one before.
u32 kept_read(const kept_calls& list, std::size_t& at, std::vector<call_words>& latest);
// Gives back the blocks that end before `at`, which is not read any more.
void kept_drop(kept_calls& list, std::size_t at);
void kept_clear(kept_calls& list);

// Called once a frame: what the last ten frames did not need of the store goes back to the system.
void kept_store_trim();
