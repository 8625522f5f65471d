#pragma once

// The frame that the game draws, kept call by call until it is complete.
//
// A complete frame is drawn only when it shows something else than the frame drawn last, or when a
// picture is asked for, and then only where it differs (platform/gl/damage). So a board that nobody
// touches costs no drawing, while the game goes on with every frame as ever. A frame that takes
// long is drawn in parts, one each time that a frame is complete, so that the game hears its player
// meanwhile.

#include <initializer_list>
#include <span>

#include "base/types.h"
#include "platform/gl/damage.h"
#include "platform/gl/frame_call.h"

// For the back end, which presents what is drawn.

// A picture is due also when it shows nothing new, and all of it: the window was uncovered,
// resized, moved to another display.
void frame_ask();
// While held, frames are not drawn: nobody can see them, or there is no time for it. A picture that
// is asked for meanwhile is drawn afterwards.
void frame_hold(bool hold);
// Whether a part of a picture is drawn, and another is to follow.
bool frame_is_begun();
// Whether with the frame completed last a picture became complete.
bool frame_is_drawn();
// Whether the frame completed last shows what was drawn last.
bool frame_is_same();
// Whether a picture, or the rest of one, is still to be drawn though the frames stay the same.
bool frame_is_due();

// For platform/gpu.h.

// Sets what draws are made with: arguments as words, then as reals. Kept with the next draw, unless
// it is set to something else before, or was so already.
void frame_set(frame_call call, std::initializer_list<u32> words, std::span<const f32> reals = {});
// Keeps a draw that covers at most this share of what it draws into, from 0 to 1, and nothing
// beyond these bounds. One that covers nothing is left out.
void frame_draw(frame_call call, std::initializer_list<u32> words, f32 coverage,
                const clip_box& bounds);
// Makes the calls kept so far, before one that cannot be kept: it makes, changes or asks for an
// object. The frame is then drawn whole.
void frame_flush();
// The frame is complete.
void frame_finish();
// Makes a call.
void frame_call_run(frame_call call, std::span<const u32> words);
