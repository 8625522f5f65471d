#pragma once

// What the player is told besides the picture: one line at a time, which the platform shows where
// players look, such as in the window's title.

#include <initializer_list>

#include "base/str.h"
#include "base/types.h"

enum tiding_kind : u8 {
    tiding_failure,  // the game could not do what it should
    tiding_refusal,  // the game does not do what was asked for
    tiding_news,
};

inline constexpr i64 tiding_limit = 320;            // bytes of a line
inline constexpr i32 tiding_frames = 8 * 60;        // for which one is shown
inline constexpr i32 tiding_least_frames = 3 * 60;  // also when one that matters less comes

// The latest tiding.
struct tidings_record {
    tiding_kind kind;
    tiding_kind shown_kind;   // of the one that is shown, maybe still the one before
    bool is_new;              // not shown yet
    i32 frames_left;          // for which one is still shown
    i64 length;               // bytes
    char text[tiding_limit];  // UTF-8 without control characters
};

extern tidings_record tidings;

// Tells the player the parts as one line, without a newline. One that is not shown yet makes way
// for none that matters less. Long parts and long lines are cut, "?" stands for each byte that
// cannot be shown.
void tiding_tell(tiding_kind kind, std::initializer_list<str> parts);

// Tells the player, and writes on standard output, what could not be done; the line, without its
// newline.
void failure_tell(std::initializer_list<str> parts);

// The passing of a frame in which the player could see a tiding. True when something else has to be
// shown from now on: a new tiding, or nothing once the last one's time is over. The text lives
// until the next tiding.
bool tidings_step(str& shown);
