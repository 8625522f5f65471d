#include "maps/model.h"

#include <algorithm>
#include <cassert>

i64 machine_kind = pushdown_machine;
map_record game_map;
map_settings settings;
dyn_array<goal> goals;
dyn_array<u16> stones;

bool family_is_known() {
    return 0 <= machine_kind && machine_kind < machine_kind_count;
}

void map_add_state(f64 x, f64 y, u8 accepting) {
    assert(accepting <= 1);
    dyn_array_push(game_map.states, {x, y, accepting});
}

void map_add_transition(u16 from, u16 to, i16 bend, f32 label_dx, f32 label_dy, str rule) {
    dyn_array_push(game_map.transitions, {from, to, bend, label_dx, label_dy, rule});
}

void transition_remove(i64 index) {
    dyn_array_remove_swap(game_map.transitions, index);
}

void map_clear() {
    goals.count = 0;
    stones.count = 0;
    game_map.transitions.count = 0;
    game_map.states.count = 0;
}

whole_map map_exchange(const whole_map& other) {
    const whole_map before = {game_map, settings, goals, stones};
    game_map = other.map;
    settings = other.settings;
    goals = other.goals;
    stones = other.stones;
    return before;
}

bool state_exists(i64 index) {
    return 0 <= index && index < named_state_count();
}

i64 named_state_count() {
    return std::min(game_map.states.count, i64{no_index});
}

bool transition_exists(const transition& arc) {
    return state_exists(arc.from) && state_exists(arc.to);
}

u16 transition_between(u16 from, u16 to) {
    i64 count = std::min(game_map.transitions.count, i64{no_index});
    for (i64 i = 0; i < count; ++i) {
        const transition& arc = game_map.transitions[i];
        if (arc.from == from && arc.to == to) {
            return static_cast<u16>(i);
        }
    }
    return no_index;
}

u8 state_nimber(u16 state) {
    return state < game_map.nimber_count ? game_map.nimbers[state] : no_nimber;
}

str map_fault() {
    for (const map_state& s : game_map.states) {
        if (s.accepting > 1) {
            return "a state's accepting is neither 0 nor 1";
        }
    }
    for (const transition& arc : game_map.transitions) {
        if (arc.rule.length < 0 || (arc.rule.length > 0 && arc.rule.data == nullptr)) {
            return "a transition's rule has no bytes";
        }
    }
    if (game_map.nimber_count < 0) {
        return "the nimbers are fewer than none";
    }
    for (i64 s = 0; s < game_map.nimber_count; ++s) {
        if (game_map.nimbers[s] >= nimber_limit && game_map.nimbers[s] != no_nimber) {
            return "a nimber is out of its range";
        }
    }
    return {};
}

point state_centre(i64 state) {
    assert(0 <= state && state < game_map.states.count);
    const map_state& s = game_map.states[state];
    return {game_map.scale * s.x + game_map.origin_x, game_map.scale * s.y + game_map.origin_y};
}
