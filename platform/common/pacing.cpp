#include "platform/common/pacing.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr i32 frames_per_second = 60;
constexpr i64 frame_time = 1'000'000'000 / frames_per_second;
constexpr i64 undrawn_limit = 3;
constexpr i64 cost_pictures = 8;  // that the mean of their costs follows
// A display of 59 Hz takes this much longer for its picture than the game for its frame.
constexpr i64 display_drift = 1'000'000'000 / (frames_per_second - 1) - frame_time;

// 59.94 Hz may be told as 59, 60 or 61.
bool shows_one_picture_a_frame(i32 refresh_rate) {
    return std::abs(refresh_rate - frames_per_second) <= 1;
}

// The wait for the display takes half a frame at most, the other half is left for the work.
bool shows_two_pictures_a_frame(i32 refresh_rate) {
    return refresh_rate >= 2 * frames_per_second - 1;
}

}  // namespace

pacing pacing_begin(i64 now) {
    return {false, 0, now, 0, true};
}

void pacing_set_display(pacing& pace, i32 refresh_rate) {
    bool one = shows_one_picture_a_frame(refresh_rate);
    pace.in_step = one || shows_two_pictures_a_frame(refresh_rate);
    pace.drift = one ? display_drift : 0;
}

i64 pacing_frame_end(pacing& pace, i64 now) {
    pace.due += frame_time;
    if (now <= pace.due) {
        pace.has_time = true;
        pace.undrawn = 0;
        return pace.due;
    }
    i64 late = now - pace.due;
    if (late < frame_time) {
        late = std::max(late - pace.drift, i64{0});
    }
    late = std::min(late, undrawn_limit * frame_time);
    pace.due = now - late;
    pace.has_time = late < frame_time || pace.undrawn == undrawn_limit;
    pace.undrawn = pace.has_time ? 0 : pace.undrawn + 1;
    return now;
}

void pacing_cost_add(pacing& pace, i64 time) {
    pace.cost += (time - pace.cost) / cost_pictures;
}

bool pacing_is_dear(const pacing& pace) {
    return pace.cost > frame_time / 2;
}

i64 pacing_after(const pacing& pace, i64 frames) {
    return pace.due + frames * frame_time;
}

i64 pacing_wake(pacing& pace, i64 now) {
    i64 passed = std::max(now - pace.due, i64{0});
    pace.due += passed;
    pace.has_time = true;
    pace.undrawn = 0;
    return passed / frame_time;
}

i64 pacing_earliest(const pacing& pace) {
    return pace.due - frame_time;
}
