#pragma once

// The way back in the editor: the steps by which the map under work came to be what it is.
//
// A step is what one press or drag changed, or a map that was loaded over the one under work, or
// an editor that was opened anew in the same family. It keeps the bytes of the map that it took
// away and those that it put there, the selection on both sides, and, where another map came, the
// file that each of both belongs to. All steps lie in one block of memory, 32 MiB with the two
// copies of the map that they are found by; when it is full, the oldest are forgotten. A map that
// takes more than `history_map_limit` bytes has no steps.

#include "base/str.h"
#include "maps/map_work.h"
#include "shown/selection.h"

inline constexpr i64 history_map_limit = 6 * 1024 * 1024;        // bytes of `map_bytes_write`
inline constexpr i64 history_steps_capacity = 20 * 1024 * 1024;  // bytes

struct history_record {
    i64 family = -1;  // of the map under work
    // The map as of the latest step, in one of the two copies.
    i64 copy = 0;
    i64 map_size = 0;  // bytes, 0 for none
    // The steps, in bytes: up to `position` they can be taken back, from there done again.
    i64 used = 0;
    i64 position = 0;
    i64 size_before = 0;              // of the step before `position`
    selection_record selection = {};  // at the end of the frame before
    bool map_left = false;            // another map comes under work
    map_work_record left = {};        // what is known of the one before
};

extern history_record history;

// Every frame of the editor begins with the one. It ends with the other, which records a step if
// the map was changed, unless a change is still going on.
void history_frame_begin();
void history_frame_end();

// Called before the map under work makes way for another one, be it in a later frame.
void history_map_leave();

// Takes the latest step back, or does it again, and tells the player which; at the end of the
// steps nothing happens.
void history_back();
void history_forward();

// The map under work as of the latest step; empty for a map that has no steps.
str history_map();

// What is broken in the history, empty when nothing is.
str history_fault();
