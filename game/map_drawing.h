#pragma once

// The parts of a map, drawn alike on the board and in the map list's preview.

#include "base/colour.h"
#include "base/types.h"
#include "maps/model.h"
#include "render/view.h"

// Where and how large a map is drawn: the world point (0, 0) lands on (x, y) and lengths are
// multiplied by `factor`.
struct map_placement {
    f64 x;
    f64 y;
    f64 factor;
    draw_space space;
};

inline constexpr map_placement on_board = {0, 0, 1, world_space};

inline constexpr f64 state_size = 64;  // world units, side of a state's disc and of its box

inline constexpr f64 arrow_width = 4;
inline constexpr f64 bend_offset = 8;   // world units per step of an arrow's bend
inline constexpr f64 arrow_reach = 12;  // from an arrow's middle line to the edge of its head
inline constexpr f64 loop_reach = 92;   // from a state's centre to the far edge of its loop

inline constexpr colour transition_tint = {0.9f, 0.8f, 0.8f, 1};

// An existing state's centre under the placement.
point placed_centre(const map_placement& place, i64 state);

// The arrow or loop of a transition whose states exist, and its rule.
void transition_draw(const map_placement& place, const transition& arc, const colour& tint);

// Whether its text is words for the board, which have a "%", and no rule.
bool transition_carries_words(const transition& arc);

// Where its rule stands, in world units.
box label_box(const transition& arc);

// A round mark centred on a point of the placement's space; `side` in world units.
void disc_draw(const map_placement& place, point centre, f64 side, const colour& tint);
// The disc of an existing state.
void state_draw(const map_placement& place, i64 state);

// A stone centred on a point of the placement's space.
void stone_draw(const map_placement& place, point centre);
