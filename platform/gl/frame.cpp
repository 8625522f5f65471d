#include "platform/gl/frame.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/gl/targets.h"

namespace {

// Every call as one word for the call, one for the number of its arguments, and these.
using calls = std::vector<u32>;

calls kept;   // of the frame that is being made
calls shown;  // of the frame drawn last
bool asked = true;
bool held;
bool drawn;

void calls_run(const calls& list) {
    for (std::size_t at = 0; at < list.size();) {
        std::size_t count = list[at + 1];
        frame_call_run(static_cast<frame_call>(list[at]), {&list[at + 2], count});
        at += 2 + count;
    }
}

}  // namespace

void frame_ask() {
    asked = true;
}

void frame_hold(bool hold) {
    held = hold;
}

bool frame_is_drawn() {
    return drawn;
}

void frame_keep(frame_call call, std::initializer_list<u32> words) {
    frame_keep_reals(call, words, {});
}

void frame_keep_reals(frame_call call, std::initializer_list<u32> words,
                      std::span<const f32> reals) {
    std::size_t at = kept.size();
    std::size_t count = words.size() + reals.size();
    kept.resize(at + 2 + count);
    u32* place = &kept[at];
    *place++ = static_cast<u32>(call);
    *place++ = static_cast<u32>(count);
    place = std::copy(words.begin(), words.end(), place);
    std::span<const std::byte> bits = std::as_bytes(reals);
    std::copy(bits.begin(), bits.end(), reinterpret_cast<std::byte*>(place));
}

void frame_flush() {
    calls_run(kept);
    kept.clear();
    asked = true;
}

void frame_finish() {
    drawn = !held && (asked || kept != shown);
    if (drawn) {
        targets_fit();
        calls_run(kept);
        std::swap(kept, shown);
        asked = false;
    }
    kept.clear();
}
