#include "platform/gl/frame.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#include "base/fingerprint.h"
#include "platform/common/view.h"
#include "platform/gl/kept_calls.h"
#include "platform/gl/targets.h"
#include "platform/system.h"

namespace {

// A part of a frame is what a software renderer draws in less than half a second.
constexpr f32 part_coverage = 32;  // whole pictures
constexpr u32 part_draws = 16'384;
constexpr u64 parts_time = 500'000'000;  // nanoseconds for the parts drawn in one go

// A frame keeps about this many words, 128 MiB. What comes before the rest of a longer one is drawn
// at once, with every such frame anew.
constexpr std::size_t kept_most = std::size_t{32} * 1024 * 1024;
// A frame of more draws is drawn whole.
constexpr std::size_t compared_most = 16'384;

// A frame, and what it is compared by.
struct frame_list {
    kept_calls calls;
    std::vector<drawn> draws;  // all of them, where they are compared
    bool compared = true;      // where the frame before is known
    u64 print = 0;             // of all draws
};

// What the game sets, or a kind of draw.
struct made_call {
    call_words latest;
    call_words kept;        // as it was kept last
    bool is_known = false;  // whether the next draw is made with it
    bool is_kept = false;
    u64 print = 0;  // of `kept`
    u64 turn = 0;   // of `latest` among all settings
};

// What the frame that is being made is made with.
struct making {
    std::vector<made_call> calls;  // by place: in the order in which the frame has them first
    std::vector<u32> waiting;      // for the next draw: places, in the order of the latest calls
    u64 print = 0;                 // of all that was kept last
    u64 turns = 0;
    f32 covered = 0;  // by the draws of the part
    u32 draws = 0;    // of the part
};

// How far the frame drawn last is drawn.
struct drawing {
    std::size_t at = 0;              // the next call
    std::size_t draws = 0;           // before it
    std::vector<call_words> latest;  // by place
    std::vector<u32> waiting;        // for the next draw inside of the damage
    clip_box damage = clip_all;
};

struct frame_record {
    frame_list made;   // the frame that is being made
    frame_list shown;  // the frame drawn last; its calls until it is drawn completely
    making make;
    drawing draw;
    bool dropped = false;  // the calls of the frame that is being made: it will not be drawn
    bool asked = true;     // for a picture, whatever it shows
    bool held = false;
    bool drawn = false;  // completely, with the frame completed last
    bool same = false;   // as the one before: the frame completed last
};

frame_record frame;

bool is_setting(frame_call call) {
    return call < frame_call::clear;
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

u32 place_of(const call_words& wanted) {
    std::vector<made_call>& calls = frame.make.calls;
    const u32* name_end = wanted.at.data() + name_length(wanted.call);
    auto found = std::find_if(calls.begin(), calls.end(), [&](const made_call& one) {
        return one.latest.call == wanted.call &&
               std::equal(wanted.at.data(), name_end, one.latest.at.data());
    });
    if (found == calls.end()) {
        found = calls.insert(found, {wanted, {}, false, false, 0, 0});
    }
    return static_cast<u32>(found - calls.begin());
}

void wait_last(std::vector<u32>& waiting, u32 place) {
    std::erase(waiting, place);
    waiting.push_back(place);
}

u64 call_print(const call_words& call) {
    u64 print = static_cast<u64>(call.call);
    for (u32 word : call.words()) {
        fingerprint_add(print, word);
    }
    fingerprint_add(print, call.count);
    return print;
}

void call_keep(u32 place) {
    made_call& made = frame.make.calls[place];
    if (!frame.dropped) {
        kept_add(frame.made.calls, place, made.latest, made.is_kept ? &made.kept : nullptr);
    }
    u64 print = call_print(made.latest);
    frame.make.print += print - made.print;
    made.kept = made.latest;
    made.is_known = made.is_kept = true;
    made.print = print;
}

void waiting_keep() {
    for (u32 place : frame.make.waiting) {
        call_keep(place);
    }
    frame.make.waiting.clear();
}

void part_begin() {
    frame.make.covered = 0;
    frame.make.draws = 0;
}

// Of a frame that is held nobody will see anything, and one that comes while another is drawn takes
// its place only where it is done much sooner.
bool made_is_dropped() {
    std::size_t rest = frame.shown.calls.size - frame.draw.at;
    return frame.held || (!frame.asked && rest > 0 && frame.made.calls.size > rest / 2);
}

void made_begin() {
    kept_clear(frame.made.calls);
    frame.made.draws.clear();
    frame.made.compared = true;
    frame.made.print = 0;
    frame.make = {};
    frame.dropped = frame.held;
}

void waiting_run() {
    for (u32 place : frame.draw.waiting) {
        const call_words& call = frame.draw.latest[place];
        frame_call_run(call.call, call.words());
    }
    frame.draw.waiting.clear();
}

// Whether a draw, which is counted here, may show in the damage.
bool draw_is_needed() {
    std::size_t draw = frame.draw.draws++;
    return frame.draw.damage == clip_all ||
           damage_meets(frame.draw.damage, frame.shown.draws[draw].bounds,
                        {view.shown.width, view.shown.height});
}

// Makes the next call of a list; returns which it was.
frame_call call_run(const kept_calls& list) {
    u32 place = kept_read(list, frame.draw.at, frame.draw.latest);
    const call_words& call = frame.draw.latest[place];
    if (is_setting(call.call)) {
        wait_last(frame.draw.waiting, place);
    } else if (call.call == frame_call::part_end || draw_is_needed()) {
        waiting_run();
        frame_call_run(call.call, call.words());
    }
    return call.call;
}

void area_set(const clip_box& damage) {
    std::array<u32, 4> box = {};
    std::memcpy(box.data(), &damage, sizeof box);
    frame_call_run(frame_call::area, box);
}

// Goes on with the picture until its end or, at the end of a part, until the time is over.
void parts_run() {
    u64 begin = system_time();
    bool over = false;
    area_set(frame.draw.damage);
    while (!over && frame_is_begun()) {
        bool part_ends = call_run(frame.shown.calls) == frame_call::part_end;
        over = part_ends && system_time() - begin > parts_time;
        if (part_ends) {
            kept_drop(frame.shown.calls, frame.draw.at);
        }
    }
    area_set(clip_all);
    frame.drawn = !frame_is_begun();
    if (frame.drawn) {
        frame_call_run(frame_call::show, {});
        kept_clear(frame.shown.calls);
        frame.draw = {};
    }
}

// Draws what is kept so far, of a frame that is then drawn whole, and differs from the next one,
// which may hold all of it.
void kept_run() {
    frame.asked = true;
    frame.made.compared = false;
    frame.made.print = 0;
    frame.draw = {};
    while (frame.draw.at < frame.made.calls.size) {
        call_run(frame.made.calls);
    }
    frame.draw = {};
    kept_clear(frame.shown.calls);
    kept_clear(frame.made.calls);
    for (made_call& made : frame.make.calls) {
        made.is_kept = false;
    }
    part_begin();
}

// Sets what the game set, in its order, also where its draws are not kept. The call that follows
// may change what any of it stands for: an object that is gone, another of the same name.
void settings_run() {
    std::vector<made_call*> settings;
    for (made_call& made : frame.make.calls) {
        if (is_setting(made.latest.call)) {
            settings.push_back(&made);
        }
        made.is_known = false;
    }
    std::sort(settings.begin(), settings.end(),
              [](const made_call* a, const made_call* b) { return a->turn < b->turn; });
    for (const made_call* made : settings) {
        frame_call_run(made->latest.call, made->latest.words());
    }
}

// Notes a draw for the comparison with other frames.
void draw_note(frame_call call, const clip_box& bounds) {
    u64 print = frame.make.print;
    fingerprint_add(print, static_cast<u64>(call));
    fingerprint_add(frame.made.print, print);
    if (frame.made.draws.size() == compared_most) {
        frame.made.compared = false;
        frame.made.draws.clear();
    }
    if (frame.made.compared) {
        frame.made.draws.push_back({print, bounds});
    }
}

void part_draw(f32 coverage) {
    frame.make.covered += coverage;
    ++frame.make.draws;
    if (frame.make.covered > part_coverage || frame.make.draws > part_draws) {
        call_keep(place_of({frame_call::part_end, 0, {}}));
        part_begin();
    }
}

clip_box damage_now(bool targets_last) {
    bool is_known = targets_last && !frame.asked && !frame_is_begun() && frame.made.compared &&
                    frame.shown.compared;
    return is_known ? damage_find(frame.shown.draws, frame.made.draws) : clip_all;
}

// Begins to draw the frame that was made.
void made_show() {
    bool targets_last = targets_fit();
    frame.draw = {0, 0, {}, {}, damage_now(targets_last)};
    std::swap(frame.made, frame.shown);
    frame.asked = false;
}

}  // namespace

void frame_ask() {
    frame.asked = true;
}

void frame_hold(bool hold) {
    frame.held = frame.dropped = hold;
}

bool frame_is_begun() {
    return frame.draw.at < frame.shown.calls.size;
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
    call_words wanted = {call, static_cast<u32>(arguments.size() + reals.size()), {}};
    assert(wanted.count <= arguments_most);
    u32* reals_begin = std::copy(arguments.begin(), arguments.end(), wanted.at.data());
    std::span<const std::byte> bits = std::as_bytes(reals);
    std::copy(bits.begin(), bits.end(), reinterpret_cast<std::byte*>(reals_begin));
    u32 place = place_of(wanted);
    made_call& made = frame.make.calls[place];
    if (made.is_known && made.latest.at == wanted.at) {
        return;
    }
    made.latest = wanted;
    made.is_known = true;
    made.turn = ++frame.make.turns;
    wait_last(frame.make.waiting, place);
}

void frame_draw(frame_call call, std::initializer_list<u32> arguments, f32 coverage,
                const clip_box& bounds) {
    if (coverage == 0) {
        return;
    }
    waiting_keep();
    call_words wanted = {call, static_cast<u32>(arguments.size()), {}};
    std::copy(arguments.begin(), arguments.end(), wanted.at.begin());
    u32 place = place_of(wanted);
    frame.make.calls[place].latest = wanted;
    call_keep(place);
    draw_note(call, bounds);
    part_draw(coverage);
    if (frame.made.calls.size > kept_most) {
        kept_run();
    }
    if (!frame.dropped && made_is_dropped()) {
        frame.dropped = true;
        kept_clear(frame.made.calls);
    }
}

void frame_flush() {
    kept_run();
    settings_run();
}

void frame_finish() {
    frame.same = frame.made.print == frame.shown.print;
    if (!frame.dropped && (frame.asked || frame_is_begun() || !frame.same)) {
        made_show();
    }
    frame.drawn = false;
    if (!frame.held && frame_is_begun()) {
        parts_run();
    }
    made_begin();
    kept_store_trim();
}
