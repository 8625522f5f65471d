#pragma once

// Gamepads, on their way to the keys and drags of the game. Buttons count by their place:
//
//   pad, left stick         the arrow keys; one push of the stick is one press
//   south, east             Enter, shift+Enter
//   west, north, start      space, F2, Escape
//   right stick, shoulders  move the board, zoom it out and in
//
// All pads do the same. A stick that rests noisily does nothing.

#include "base/types.h"

enum pad_button : u8 {
    pad_south,
    pad_east,
    pad_west,
    pad_north,
    pad_start,
    pad_up,
    pad_down,
    pad_left,
    pad_right,
    pad_left_shoulder,
    pad_right_shoulder,
    pad_button_count,
};

enum pad_axis : u8 { pad_left_x, pad_left_y, pad_right_x, pad_right_y, pad_axis_count };

// What a pad has now; told again it changes nothing. `pad` tells those apart that are there at a
// time. Axes are -1 to 1, right and down above 0.
void gamepad_button(i64 pad, pad_button button, bool down);
void gamepad_axis(i64 pad, pad_axis axis, f64 value);
// It is unplugged: lets go of all of it.
void gamepad_gone(i64 pad);
// The pads are somebody else's now.
void gamepads_end();
// A poll, a sixtieth of a second after the one before: what is held over moves the board.
void gamepads_wait();
// Whether any is connected that was used.
bool gamepads_are_there();
// Whether nothing is held over that does.
bool gamepads_rest();
