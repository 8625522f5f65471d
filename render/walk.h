#pragma once

// Walking with the arrow keys over the places that a click would find. Each is noted where the
// click is tested, in every frame; an arrow brings the pointer to the nearest one in its direction,
// Enter clicks there and shift+Enter with the right button. A ring shows the place until the mouse
// is used. With shift the arrows bring the pointer one step of the editor's grid on instead.
//
// In its direction is what lies at most 45 degrees off. Whoever always presses the arrow that
// points at a place comes to it: an arrow that is pressed again where it led to a place before
// leads to the next nearest one, unless the arrow against it has led back in between.

#include "render/view.h"

enum walk_direction : u64 { walk_nowhere, walk_left, walk_right, walk_down, walk_up };

// Between two points of the window.
struct walk_step {
    walk_direction direction = walk_nowhere;
    f64 from_x = 0, from_y = 0;
    f64 to_x = 0, to_y = 0;
};

inline constexpr i64 walk_trail_size = 32;

struct walk_record {
    bool noting = false;             // the keys are in use: places are of interest
    bool sideways_is_taken = false;  // left and right mean something else on this screen
    walk_step step;                  // where this frame's arrow leads, by the places noted so far
    f64 cost = 0;                    // of that place; infinite before there is one
    box reach = {};                  // what of the world can hold a place that costs less, or the
                                     // place that the pointer is on; on large maps most cannot
    box stands_on = {};              // the last place noted that the pointer is on; else no width
    // The last steps since the mouse was used or something clicked.
    walk_step trail[walk_trail_size];
    i64 trail_count = 0;
};

extern walk_record walk;

// Begins a frame: takes its arrow, and turns Enter into a click. While a text is typed or a game is
// shown again these keys are not for walking.
void walk_frame_begin();
// This screen has its own use for left and right. Up and down then lead through all places, row by
// row. Called before the frame's places are noted.
void walk_take_sideways();
// A click would find what is seen of this box of the window.
void walk_note(const box& place);
// A click would find what is seen between the bands of this box of the world.
void walk_note_on_board(const box& place);
// A click would find this box if it were not beyond the window's edge; once the pointer is brought
// there, the screen brings both of them in.
void walk_note_beyond(const box& place);
// Ends a frame: shows the ring and brings the pointer to where the arrow leads.
void walk_frame_end();
