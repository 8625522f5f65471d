#include "platform/gl/frame.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/gl/targets.h"
#include "platform/system.h"

namespace {

// A part of a frame is what a software renderer draws in less than half a second.
constexpr f32 part_coverage = 32;  // whole pictures
constexpr u32 part_draws = 16'384;
constexpr u64 parts_time = 500'000'000;  // nanoseconds for the parts drawn in one go

// A frame keeps about this many words: more than a million letters in 128 MiB, which a few words
// more could double. What comes before the rest of a longer one is drawn at once, with every such
// frame anew.
constexpr std::size_t kept_most = std::size_t{32} * 1024 * 1024 - 1024;

constexpr std::size_t arguments_most = 18;  // a program, a location and a matrix

// The parts of a kept call's first word, from the lowest bit on.
constexpr u32 call_bits = 5;
constexpr u32 count_bits = 5;
static_assert(static_cast<u32>(frame_call::part_end) < 1U << call_bits);
static_assert(arguments_most < 1U << count_bits);
static_assert(call_bits + count_bits + arguments_most <= 32);

using words = std::vector<u32>;

// What draws are made with, as the game set it last.
struct setting {
    frame_call call;
    words arguments;
};

// Frames are lists of calls: each one word for the call, the number of its arguments and a bit for
// each of them that is not 0, and then these. Most numbers of a matrix are 0.
words kept;             // the frame that is being made
words shown;            // the frame drawn last
std::size_t shown_end;  // up to where it is drawn, if it takes several parts
bool asked = true;
bool held;
bool drawn;

std::vector<setting> settings;
std::vector<std::size_t> changed;  // settings that no draw was made with yet, in the game's order
f32 covered;                       // by the draws of the part
u32 draws;                         // of the part

void call_keep(frame_call call, std::span<const u32> arguments) {
    std::size_t head = kept.size();
    kept.push_back(static_cast<u32>(call) | static_cast<u32>(arguments.size()) << call_bits);
    u32 bit = 1U << (call_bits + count_bits);
    for (u32 argument : arguments) {
        if (argument != 0) {
            kept[head] |= bit;
            kept.push_back(argument);
        }
        bit <<= 1;
    }
}

void settings_keep() {
    for (std::size_t place : changed) {
        call_keep(settings[place].call, settings[place].arguments);
    }
    changed.clear();
}

// How many of its first arguments say what a call sets.
std::size_t name_length(frame_call call) {
    switch (call) {
        case frame_call::texture_bind:
            return 1;
        case frame_call::uniform_1i:
        case frame_call::uniform_1f:
        case frame_call::uniform_4f:
        case frame_call::uniform_matrix:
        case frame_call::uniform_matrix_transposed:
            return 2;
        default:
            return 0;
    }
}

std::size_t setting_place(frame_call call, std::span<const u32> arguments) {
    std::span<const u32> name = arguments.first(name_length(call));
    auto found = std::find_if(settings.begin(), settings.end(), [=](const setting& one) {
        return one.call == call && std::equal(name.begin(), name.end(), one.arguments.begin());
    });
    if (found == settings.end()) {
        found = settings.insert(found, {call, {name.begin(), name.end()}});
    }
    return static_cast<std::size_t>(found - settings.begin());
}

void part_begin() {
    covered = 0;
    draws = 0;
}

void frame_begin() {
    kept.clear();
    settings.clear();
    changed.clear();
    part_begin();
}

// Makes the call at a place of a list; returns the place of the next one.
std::size_t call_run(const words& list, std::size_t at) {
    u32 head = list[at++];
    std::size_t count = head >> call_bits & ((1U << count_bits) - 1);
    std::array<u32, arguments_most> arguments = {};
    for (std::size_t i = 0; i < count; ++i) {
        if ((head >> (call_bits + count_bits + i) & 1) != 0) {
            arguments[i] = list[at++];
        }
    }
    frame_call_run(static_cast<frame_call>(head & ((1U << call_bits) - 1)),
                   {arguments.data(), count});
    return at;
}

// Goes on with the picture until its end or, at the end of a part, until the time is over.
void parts_run() {
    u64 begin = system_time();
    bool over = false;
    while (!over && shown_end < shown.size()) {
        bool part_ends = shown[shown_end] == static_cast<u32>(frame_call::part_end);
        shown_end = call_run(shown, shown_end);
        over = part_ends && system_time() - begin > parts_time;
    }
}

void kept_run() {
    for (std::size_t at = 0; at < kept.size();) {
        at = call_run(kept, at);
    }
    frame_begin();
    asked = true;
}

// Draws what is kept so far. While nobody can see it, it is forgotten instead, and what follows
// with it: all of a held frame is.
void room_make() {
    if (held) {
        kept.clear();
    } else {
        kept_run();
    }
}

// A picture that was begun is completed before the next one, unless that is done sooner.
bool kept_is_next() {
    std::size_t rest = shown.size() - shown_end;
    return asked || (rest > 0 ? kept.size() < rest : kept != shown);
}

}  // namespace

void frame_ask() {
    asked = true;
}

void frame_hold(bool hold) {
    held = hold;
}

bool frame_is_begun() {
    return shown_end < shown.size();
}

bool frame_is_drawn() {
    return drawn;
}

void frame_set(frame_call call, std::initializer_list<u32> arguments, std::span<const f32> reals) {
    std::array<u32, arguments_most> all = {};
    assert(arguments.size() + reals.size() <= all.size());
    auto* reals_begin = std::copy(arguments.begin(), arguments.end(), all.begin());
    std::span<const std::byte> bits = std::as_bytes(reals);
    std::copy(bits.begin(), bits.end(), reinterpret_cast<std::byte*>(reals_begin));
    std::span<const u32> set(all.data(), arguments.size() + reals.size());
    std::size_t place = setting_place(call, set);
    words& known = settings[place].arguments;
    if (std::equal(known.begin(), known.end(), set.begin(), set.end())) {
        return;
    }
    known.assign(set.begin(), set.end());
    std::erase(changed, place);
    changed.push_back(place);
}

void frame_draw(frame_call call, std::initializer_list<u32> arguments, f32 coverage) {
    if (coverage == 0) {
        return;
    }
    settings_keep();
    call_keep(call, arguments);
    covered += coverage;
    ++draws;
    if (covered > part_coverage || draws > part_draws) {
        call_keep(frame_call::part_end, {});
        part_begin();
    }
    if (kept.size() > kept_most) {
        room_make();
    }
}

void frame_flush() {
    settings_keep();
    kept_run();
}

void frame_finish() {
    settings_keep();
    if (!held && kept_is_next()) {
        targets_fit();
        std::swap(kept, shown);
        shown_end = 0;
        asked = false;
    }
    drawn = false;
    if (!held && frame_is_begun()) {
        parts_run();
        drawn = shown_end == shown.size();
    }
    frame_begin();
}
