#pragma once

// Clicks on the board of which nothing comes: what was asked for, and why it is not done.

#include "maps/card.h"
#include "render/view.h"
#include "words/refusal_words.h"

inline constexpr i32 refused_frames = 20;  // for which the pointer shows it

struct refused_record {
    refused_act what;     // `refused_not`: nothing
    i32 frames_left = 0;  // for which the pointer still shows it
    // How things were at the end of the last frame.
    i64 done_number = 0;  // of `last_done`
    u16 source = no_index;
    u16 target = no_index;
    i64 card = no_card;
};

extern refused_record refused;

// Judges the click of this frame, once everything on the screen has had it. What was refused counts
// until the next click, or until something is done.
void click_judge(const pointer& mouse);
