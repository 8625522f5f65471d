#include "program/rest.h"

#include <algorithm>
#include <cassert>

#include "base/tidings.h"
#include "base/time_step.h"
#include "platform/gpu.h"
#include "platform/input.h"
#include "program/globals.h"
#include "render/renderer.h"

rest_record rest;

namespace {

// A checked build first sees a second of them.
#ifdef QUORREL_CHECK
constexpr i64 repeats_needed = 60;
#else
constexpr i64 repeats_needed = 1;
#endif

// What happens by time alone and changes nothing that is remembered until then: in how many frames
// it does nothing, and that so many have passed. What it counts with is no part of the fingerprint.
struct timed {
    i64 (*frames_quiet)();
    void (*pass)(i64 frames);
};

// On the whole screen no tidings are shown, and their time stands still.
i64 tidings_quiet() {
    return render_target.fullscreen ? frames_endless : tidings_frames_quiet();
}

void tidings_wait(i64 frames) {
    if (!render_target.fullscreen) {
        tidings_pass(frames);
    }
}

constexpr timed by_time[] = {
    {tidings_quiet, tidings_wait},
};

i64 frames_quiet() {
    i64 frames = frames_endless;
    for (const timed& one : by_time) {
        frames = std::min(frames, one.frames_quiet());
    }
    return frames;
}

}  // namespace

void rest_frame_begin() {
#ifdef QUORREL_CHECK
    rest.proven = rest.repeats == 0 || !input_rests() || frames_quiet() == 0 ||
                  globals_fingerprint() != rest.fingerprint;
#endif
}

void rest_frame_end() {
    bool may_repeat = input_rests() && pipeline_is_same();
    u64 fingerprint = may_repeat ? globals_fingerprint() : 0;
    bool repeats = may_repeat && fingerprint == rest.fingerprint;
    assert(repeats || rest.proven);
    rest.repeats = repeats ? rest.repeats + 1 : 0;
    rest.fingerprint = fingerprint;
}

i64 rest_frames() {
    return rest.repeats >= repeats_needed ? frames_quiet() : 0;
}

void rest_pass(i64 frames) {
    for (const timed& one : by_time) {
        one.pass(std::min(frames, one.frames_quiet()));
    }
}
