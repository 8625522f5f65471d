#pragma once

// Frames that would repeat are not played.
//
// A frame is a function of what the game remembers and of what its player does. Where one changed
// nothing of what is remembered, drew what the one before drew, and nobody holds a key or a button,
// the next would do the same, and the program may wait until something happens. So whatever changes
// with time alone changes one of the records of program/globals.cpp in every frame while it goes
// on, or is a line of `by_time` in rest.cpp, which tells when it does something next.
//
// Builds with QUORREL_CHECK play such frames all the same and stop where one changed anything.

#include "base/types.h"

struct rest_record {
    u64 fingerprint = 0;  // of what is remembered, after the last frame; 0 for not known
    i64 repeats = 0;      // frames in a row that did what the one before did
    bool proven = true;   // the frame under way must be another one, if it can be one
};

extern rest_record rest;

// Around every frame: the one behind its poll, the other when it is presented.
void rest_frame_begin();
void rest_frame_end();

// How many of the next frames would repeat the last one; `frames_endless` for all until something
// happens.
i64 rest_frames();
// So many of them were not played.
void rest_pass(i64 frames);
