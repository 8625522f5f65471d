#pragma once

// Keyboard, mouse and touch screen, sampled once per frame by `input_poll`. A finger that taps is a
// mouse that clicks, one that rests presses the right button, one that moves drags the picture.
//
// "Pressed" and "released" are edges: true in the one frame whose poll found them, also when a key
// went down and up between two polls. "Held" is a level. A poll finds one press, with the pointer
// and the modifiers of its moment; the next press waits for the next poll.
//
// Characters are told as the keys that type them on an American keyboard, with shift held where it
// is needed there, whatever keyboard the player has. A key whose character has no code here, as on
// keyboards without Latin letters, counts by its place.

#include "base/types.h"

enum input_key : u32 {
    key_a = 2,  // key_a + n is the n-th letter after it
    key_c = 4,
    key_d = 5,
    key_e = 6,
    key_i = 10,
    key_j = 11,
    key_k = 12,
    key_l = 13,
    key_n = 15,
    key_o = 16,
    key_q = 18,
    key_r = 19,
    key_s = 20,
    key_u = 22,
    key_v = 23,
    key_w = 24,
    key_y = 26,
    key_z = 27,
    key_0 = 28,  // key_0 + n is digit n
    key_1 = 29,
    key_2 = 30,
    key_3 = 31,
    key_4 = 32,
    key_5 = 33,
    key_9 = 37,
    key_space = 42,
    key_enter = 43,
    key_backspace = 44,
    key_escape = 46,
    key_ctrl = 47,   // either one
    key_shift = 48,  // either one
    key_alt = 49,    // not the one that chooses characters
    key_left_bracket = 60,
    key_right_bracket = 61,
    key_semicolon = 62,
    key_comma = 63,
    key_period = 64,
    key_apostrophe = 65,
    key_slash = 66,
    key_backslash = 67,
    key_grave = 68,
    key_equals = 69,
    key_minus = 70,
    key_delete = 79,
    key_f1 = 96,
    key_f2 = 97,
    key_f3 = 98,
    key_f4 = 99,
    key_f9 = 104,
    key_f11 = 106,
    key_left = 112,  // the arrow keys
    key_right = 113,
    key_up = 114,
    key_down = 115,
    key_home = 116,
    key_end = 117,
    key_count = 128,
};

enum input_modifier : u32 { modifier_caps_lock = 1 << 4 };

enum mouse_button : u32 {
    mouse_left = 2,
    mouse_middle = 3,
    mouse_right = 4,
    mouse_button_count = 8
};

void input_poll();

// Whether the last poll found nothing, and nobody holds a key, a button or a finger: the next one
// finds the same unless something happens.
bool input_rests();

bool input_key_is_pressed(u32 key);
bool input_key_is_held(u32 key);
// The lasting states of the keyboard, as bits of `input_modifier`.
u32 input_key_modifiers();

// Pixels from the picture's top-left corner; y grows downwards. In a window of other proportions
// the pointer can be beyond the picture's edges.
void input_mouse_position(f64& x, f64& y);
// Whether the pointer is over the place that it points at. A mouse always is; a finger only in the
// poll that finds its click, after which the position stays where it was.
bool input_mouse_hovers();
// Pixels moved since the poll before; y grows downwards.
void input_mouse_moved(f64& dx, f64& dy);
bool input_mouse_is_pressed(u32 button);
bool input_mouse_is_released(u32 button);
// Brings the pointer to a place without the mouse. It hovers there until the mouse is used, which
// takes it back to where the mouse is.
void input_mouse_bring(f64 x, f64 y);
// Whether the pointer is where that brought it.
bool input_mouse_is_brought();
// Makes a click of a key that this poll found pressed, which then is not pressed any more. Nothing
// while the player holds that button.
void input_key_clicks(u32 key, u32 button);
// Steps turned since the poll before, positive away from the player.
f64 input_mouse_wheel();

// How the player pulls at what the picture shows, with the middle button, one finger or two: what
// was at (x, y) is to come to (x + dx, y + dy), and everything around it `zoom` times as large.
struct input_drag {
    f64 from_x, from_y;  // where the button or the first finger went down
    f64 x, y;
    f64 dx, dy;    // 0 and 0 when nothing was pulled
    f64 zoom = 1;  // above 0; 1 unless two fingers moved apart or together
};

// Since the poll before. Places are pixels from the picture's top-left corner.
input_drag input_dragged();
