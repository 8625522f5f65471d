#include "editor/map_edit.h"

#include <cassert>

#include "maps/model.h"
#include "platform/maths.h"
#include "shown/selection.h"

namespace {

void transitions_of_remove(u16 state) {
    for (i64 i = 0; i < game_map.transitions.count;) {
        const transition& arc = game_map.transitions[i];
        if (arc.from == state || arc.to == state) {
            transition_remove(i);
        } else {
            i += 1;
        }
    }
}

void index_change(u16& index, u16 from, u16 to) {
    if (index == from) {
        index = to;
    }
}

void state_renumber(u16 from, u16 to) {
    assert(from != to);
    for (transition& arc : game_map.transitions) {
        index_change(arc.from, from, to);
        index_change(arc.to, from, to);
    }
    for (u16& state : stones) {
        index_change(state, from, to);
    }
}

}  // namespace

f64 snapped(f64 value, f64 step) {
    return math_floor(value / step + 0.5) * step;
}

f64 map_units(f64 world) {
    return game_map.scale == 0 ? 0 : world / game_map.scale;
}

transition* selected_arc() {
    u16 index = selection.selected_transition;
    bool set = index != no_index && index < game_map.transitions.count;
    return set ? &game_map.transitions[index] : nullptr;
}

void state_add(point place, u8 accepting) {
    if (game_map.states.count >= no_index) {
        return;
    }
    map_add_state(map_units(place.x - game_map.origin_x), map_units(place.y - game_map.origin_y),
                  accepting);
    selection.selected_state = static_cast<u16>(game_map.states.count - 1);
    assert(state_exists(selection.selected_state));
    selection.target_state = no_index;
}

void stones_remove(u16 state, bool only_one) {
    for (i64 i = 0; i < stones.count;) {
        if (stones[i] != state) {
            i += 1;
            continue;
        }
        dyn_array_remove_swap(stones, i);
        if (only_one) {
            return;
        }
    }
}

void state_remove(u16 state) {
    assert(state_exists(state));
    transitions_of_remove(state);
    i64 last = game_map.states.count - 1;
    if (last != state && last < no_index) {
        state_renumber(static_cast<u16>(last), state);
    }
    dyn_array_remove_swap(game_map.states, state);
}
