#pragma once

// What the player is told besides the picture: one line at a time, which the platform shows where
// players look, such as in the window's title. Tidings pass; when there is none, a line stands
// there that says how things are.

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

// The line that stands.
struct standing_record {
    bool is_new = false;           // not shown yet
    i64 length = 0;                // bytes
    char text[tiding_limit] = {};  // as that of a tiding
};

extern standing_record standing;

// Tells the player the parts as one line, without a newline. One that is not shown yet makes way
// for none that matters less. Long parts and long lines are cut, "?" stands for each byte that
// cannot be shown.
void tiding_tell(tiding_kind kind, std::initializer_list<str> parts);

// Tells the player, and writes on standard output, what could not be done; the line, without its
// newline.
void failure_tell(std::initializer_list<str> parts);

// Says how things are, as a line of such parts; without parts nothing stands there. When it
// changes, the tiding that is shown is of the past: its time is over, unless it is a failure.
void standing_tell(std::initializer_list<str> parts);

// Whether the line that stands is new since it was asked for last.
bool standing_step(str& shown);

// The passing of a frame in which the player could see a tiding. True when something else has to be
// shown from now on: a new tiding, or nothing once the last one's time is over. The text lives
// until the next tiding.
bool tidings_step(str& shown);

// In how many of the next frames nothing changes of what is shown.
i64 tidings_frames_quiet();
// So many of them pass without `tidings_step`.
void tidings_pass(i64 frames);
