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
struct frame_record {
    words kept;                 // the frame that is being made
    words shown;                // the frame drawn last
    std::size_t shown_end = 0;  // up to where it is drawn, if it takes several parts
    bool asked = true;          // for a picture, whatever it shows
    bool held = false;
    bool drawn = false;  // completely, with the frame completed last
    bool same = false;   // as the one before: the frame completed last

    // What the next draw is made with, as the game set it last, and the places of what no draw was
    // made with yet, in the game's order.
    std::vector<setting> settings;
    std::vector<std::size_t> changed;

    f32 covered = 0;  // by the draws of the part
    u32 draws = 0;    // of the part
};

frame_record frame;

void call_keep(frame_call call, std::span<const u32> arguments) {
    std::size_t head = frame.kept.size();
    frame.kept.push_back(static_cast<u32>(call) | static_cast<u32>(arguments.size()) << call_bits);
    u32 bit = 1U << (call_bits + count_bits);
    for (u32 argument : arguments) {
        if (argument != 0) {
            frame.kept[head] |= bit;
            frame.kept.push_back(argument);
        }
        bit <<= 1;
    }
}

void settings_keep() {
    for (std::size_t place : frame.changed) {
        call_keep(frame.settings[place].call, frame.settings[place].arguments);
    }
    frame.changed.clear();
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
    auto found =
        std::find_if(frame.settings.begin(), frame.settings.end(), [=](const setting& one) {
            return one.call == call && std::equal(name.begin(), name.end(), one.arguments.begin());
        });
    if (found == frame.settings.end()) {
        found = frame.settings.insert(found, {call, {name.begin(), name.end()}});
    }
    return static_cast<std::size_t>(found - frame.settings.begin());
}

void part_begin() {
    frame.covered = 0;
    frame.draws = 0;
}

void frame_begin() {
    frame.kept.clear();
    frame.settings.clear();
    frame.changed.clear();
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
    while (!over && frame.shown_end < frame.shown.size()) {
        bool part_ends = frame.shown[frame.shown_end] == static_cast<u32>(frame_call::part_end);
        frame.shown_end = call_run(frame.shown, frame.shown_end);
        over = part_ends && system_time() - begin > parts_time;
    }
}

void kept_run() {
    for (std::size_t at = 0; at < frame.kept.size();) {
        at = call_run(frame.kept, at);
    }
    frame_begin();
    frame.asked = true;
}

// Draws what is kept so far. While nobody can see it, it is forgotten instead, and what follows
// with it: all of a held frame is.
void room_make() {
    if (frame.held) {
        frame.kept.clear();
    } else {
        kept_run();
    }
}

// A picture that was begun is completed before the next one, unless that is done sooner.
bool kept_is_next() {
    std::size_t rest = frame.shown.size() - frame.shown_end;
    return frame.asked || (rest > 0 ? frame.kept.size() < rest : !frame.same);
}

}  // namespace

void frame_ask() {
    frame.asked = true;
}

void frame_hold(bool hold) {
    frame.held = hold;
}

bool frame_is_begun() {
    return frame.shown_end < frame.shown.size();
}

bool frame_is_drawn() {
    return frame.drawn;
}

bool frame_is_same() {
    return frame.same;
}

bool frame_is_due() {
    return frame.asked || frame_is_begun();
}

void frame_set(frame_call call, std::initializer_list<u32> arguments, std::span<const f32> reals) {
    std::array<u32, arguments_most> all = {};
    assert(arguments.size() + reals.size() <= all.size());
    auto* reals_begin = std::copy(arguments.begin(), arguments.end(), all.begin());
    std::span<const std::byte> bits = std::as_bytes(reals);
    std::copy(bits.begin(), bits.end(), reinterpret_cast<std::byte*>(reals_begin));
    std::span<const u32> set(all.data(), arguments.size() + reals.size());
    std::size_t place = setting_place(call, set);
    words& known = frame.settings[place].arguments;
    if (std::equal(known.begin(), known.end(), set.begin(), set.end())) {
        return;
    }
    known.assign(set.begin(), set.end());
    std::erase(frame.changed, place);
    frame.changed.push_back(place);
}

void frame_draw(frame_call call, std::initializer_list<u32> arguments, f32 coverage) {
    if (coverage == 0) {
        return;
    }
    settings_keep();
    call_keep(call, arguments);
    frame.covered += coverage;
    ++frame.draws;
    if (frame.covered > part_coverage || frame.draws > part_draws) {
        call_keep(frame_call::part_end, {});
        part_begin();
    }
    if (frame.kept.size() > kept_most) {
        room_make();
    }
}

void frame_flush() {
    settings_keep();
    kept_run();
}

void frame_finish() {
    settings_keep();
    frame.same = frame.kept == frame.shown;
    if (!frame.held && kept_is_next()) {
        targets_fit();
        std::swap(frame.kept, frame.shown);
        frame.shown_end = 0;
        frame.asked = false;
    }
    frame.drawn = false;
    if (!frame.held && frame_is_begun()) {
        parts_run();
        frame.drawn = frame.shown_end == frame.shown.size();
    }
    frame_begin();
}
