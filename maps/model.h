#pragma once

// The one loaded map: an automaton of states joined by transitions, the stones on its states, and
// the settings that come with it.
//
// States are referred to by index, as u16. A file may name states that do not exist: stones and
// transitions keep such an index, and every use goes through `state_exists`. Positions are in map
// units; world units are the camera's, pixels at zoom 1.

#include "base/dyn_array.h"
#include "base/point.h"
#include "base/str.h"
#include "base/types.h"
#include "maps/card.h"

// The family of the current map and game.
enum machine_kind_value : i64 { state_machine = 0, pushdown_machine, turing_machine };
inline constexpr i64 machine_kind_count = 3;

inline constexpr u16 no_index = 0xffff;  // no state, transition or stone
inline constexpr u8 nimber_limit = 128;  // nimbers are below it
inline constexpr u8 no_nimber = 255;     // not known

enum win_mode_value : u8 { win_immediate = 0, win_all_accepting, win_any_accepting };
inline constexpr i64 win_mode_count = 3;

// What a goal counts over the cards of the tape.
enum measure_value : u8 {
    measure_sum = 0,           // the sum of the numbers
    measure_distinct_colours,  // of the deck's colours, how many occur
    measure_distinct_shapes,
    measure_distinct_numbers,
    measure_colour,  // cards with card_a's colour
    measure_shape,
    measure_number,
    measure_either_colour,  // cards with card_a's or card_b's colour
    measure_either_shape,
    measure_either_number,
    measure_count,
};

// What a measure looks at: a field of the tape's cards, and how many cards of the goal it compares
// them with.
struct measure_info {
    card_field field;
    i64 cards;  // 0: none, 1: `card_a`, 2: both
    str name;   // as players read it
};

inline constexpr measure_info measures[measure_count] = {
    {field_number, 0, "sum"},
    {field_colour, 0, "# distinct colors"},
    {field_shape, 0, "# distinct shapes"},
    {field_number, 0, "# distinct numbers"},
    {field_colour, 1, "# cards of color"},
    {field_shape, 1, "# cards of shape"},
    {field_number, 1, "# cards of number"},
    {field_colour, 2, "# cards of color a or b"},
    {field_shape, 2, "# cards of shape a or b"},
    {field_number, 2, "# cards of number a or b"},
};

enum comparison_value : u8 {
    compare_exactly = 0,
    compare_at_most,
    compare_at_least,
    comparison_count,
};

inline constexpr str comparison_names[comparison_count] = {"exactly", "at most", "at least"};

struct map_state {
    f64 x;         // map units
    f64 y;         // map units
    u8 accepting;  // 0 or 1
};

struct transition {
    u16 from;
    u16 to;  // equal to `from`: a loop
    // An arrow is drawn moved sideways by 8 world units per step; a loop is turned by degrees.
    i16 bend;
    f32 label_dx;  // world units from the midpoint of the two states to the rule's text
    f32 label_dy;
    str rule;  // a rule, a tape action, or words, by family; may be empty
};

// A winning condition over the tape: the measure's count, compared with a target. A file may hold
// a measure, a comparison or card values that do not exist.
struct goal {
    u8 measure = measure_sum;
    u8 comparison = compare_exactly;
    i64 target = 0;
    card card_a;
    card card_b;
};

struct map_record {
    f64 origin_x = 0;  // world position of the map point (0, 0)
    f64 origin_y = 0;
    f64 scale = 128;  // world units per map unit
    dyn_array<map_state> states = {};
    dyn_array<transition> transitions = {};
    // One per state at the last load of a state-machine map, `no_nimber` where unknown. The editor
    // may have changed the states since: read through `state_nimber`.
    u8* nimbers = nullptr;
    i64 nimber_count = 0;
    i64 nimber_capacity = 0;
    char* text = nullptr;  // of the file loaded last: rules point into it
    i64 text_capacity = 0;
};

// As read from the map; dealing bounds them where it uses them.
struct map_settings {
    i64 deck_copies = 1;
    i64 deck_colours = 4;
    i64 deck_shapes = 4;
    i64 deck_numbers = 4;
    i64 hand_size = 8;
    i64 tape_length = 4;
    u8 win_mode = win_immediate;
};

extern i64 machine_kind;
extern map_record game_map;
extern map_settings settings;
extern dyn_array<goal> goals;
extern dyn_array<u16> stones;  // the state that each stone sits on; the index is its identity

// Whether `machine_kind` names a family.
bool family_is_known();

void map_add_state(f64 x, f64 y, u8 accepting);
// The rule's bytes are not copied and must outlive the map.
void map_add_transition(u16 from, u16 to, i16 bend, f32 label_dx, f32 label_dy, str rule);
// Removes one transition by moving the last one into its place; out of range: nothing.
void transition_remove(i64 index);

// Forgets states, transitions, stones and goals; the settings stay.
void map_clear();

// Everything of a map but its family.
struct whole_map {
    map_record map = {};
    map_settings settings = {};
    dyn_array<::goal> goals = {};
    dyn_array<u16> stones = {};
};

// Puts another map in the place of the loaded one, which is returned; no record moves.
whole_map map_exchange(const whole_map& other);

bool state_exists(i64 index);
// How many states an index can name; a file may hold more, which are only drawn.
i64 named_state_count();
// One value for each state that an index can name, in the frame arena.
template <typename element>
element* per_state(element value) {
    return frame_array<element>(named_state_count(), value);
}
// Whether both of its states exist.
bool transition_exists(const transition& arc);
// The first transition from one to the other of those that an index can name; `no_index`: none.
u16 transition_between(u16 from, u16 to);

// The nimber of a state, `no_nimber` when it is unknown or the state has no entry.
u8 state_nimber(u16 state);

// What is broken in the map, in words, empty when nothing is. Indices, settings, goals and win mode
// may be anything, since a file may name it.
str map_fault();

// The centre of an existing state, in world units.
point state_centre(i64 state);
