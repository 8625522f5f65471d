#include "platform/web/pacing.h"

namespace {

constexpr f64 step = 1000.0 / 60;  // milliseconds
// A step may come this much early, so that a display of 60 pictures a second that is not quite
// even gets one with each.
constexpr f64 early = step / 4;
constexpr i32 steps_at_once = 4;

f64 due;  // when the next step is

}  // namespace

i32 steps_due(f64 now) {
    if (now - due > steps_at_once * step) {
        due = now;
    }
    i32 steps = 0;
    for (; due <= now + early; due += step) {
        steps += 1;
    }
    return steps;
}
