#include "editor/drag.h"

#include <algorithm>
#include <cmath>

#include "editor/map_edit.h"
#include "game/map_drawing.h"
#include "maps/model.h"
#include "platform/input.h"
#include "platform/maths.h"
#include "render/sprites.h"
#include "shown/selection.h"

drag_record drag;

namespace {

constexpr f64 begin_distance = 6;   // window pixels
constexpr f64 label_drag_step = 8;  // world units
constexpr i16 beside_opposite = 2;  // the bend that keeps an arrow off one that comes back

bool state_is_under(const pointer& mouse, i64 state) {
    const point centre = state_centre(state);
    return box_has(box_around(centre.x, centre.y, state_size, state_size), mouse.world.x,
                   mouse.world.y);
}

// The state that is drawn last there, -1 for none.
i64 state_under(const pointer& mouse) {
    i64 state = named_state_count() - 1;
    while (state >= 0 && !state_is_under(mouse, state)) {
        state -= 1;
    }
    return state;
}

bool label_is_under(const pointer& mouse, const transition& arc) {
    return transition_exists(arc) && arc.rule.length > 0 &&
           box_has(label_box(arc), mouse.world.x, mouse.world.y);
}

// The transition whose label is drawn last there, -1 for none.
i64 label_under(const pointer& mouse) {
    i64 index = game_map.transitions.count - 1;
    while (index >= 0 && !label_is_under(mouse, game_map.transitions[index])) {
        index -= 1;
    }
    return index;
}

void drag_take(drag_kind kind, u32 button, i64 index, point place, const pointer& mouse) {
    drag = {kind,
            button,
            false,
            index,
            mouse.x,
            mouse.y,
            place.x - mouse.world.x,
            place.y - mouse.world.y};
}

void press_apply(u32 button, const pointer& mouse) {
    drag = {};
    if (!mouse.on_board || input_mouse_is_released(button)) {
        return;
    }
    const bool for_arrow = button == mouse_right || input_key_is_held(key_shift);
    const i64 state = state_under(mouse);
    const i64 label = label_under(mouse);
    if (state >= 0) {
        drag_take(for_arrow ? drag_arrow : drag_state, button, state, state_centre(state), mouse);
    } else if (label >= 0 && !for_arrow) {
        const transition& arc = game_map.transitions[label];
        drag_take(drag_label, button, label, {f64{arc.label_dx}, f64{arc.label_dy}}, mouse);
    }
}

bool has_begun(const pointer& mouse) {
    return drag.moving || std::max(std::abs(mouse.x - drag.start_x),
                                   std::abs(mouse.y - drag.start_y)) > begin_distance;
}

// Where what is dragged comes to lie.
point dragged_to(const pointer& mouse, f64 step) {
    return {snapped(mouse.world.x + drag.offset_x, step),
            snapped(mouse.world.y + drag.offset_y, step)};
}

void state_drag(const pointer& mouse) {
    const point to = dragged_to(mouse, grid_step);
    map_state& s = game_map.states[drag.index];
    if (game_map.scale != 0) {
        s.x = map_units(to.x - game_map.origin_x);
        s.y = map_units(to.y - game_map.origin_y);
    }
    selection = {static_cast<u16>(drag.index), no_index};
}

void label_drag(const pointer& mouse) {
    const point to = dragged_to(mouse, label_drag_step);
    transition& arc = game_map.transitions[drag.index];
    arc.label_dx = static_cast<f32>(to.x);
    arc.label_dy = static_cast<f32>(to.y);
}

void arrow_drag(const pointer& mouse) {
    const point from = state_centre(drag.index);
    const i64 state = state_under(mouse);
    const point to = state >= 0 ? state_centre(state) : mouse.world;
    if (from.x != to.x || from.y != to.y) {
        arrow_draw(from.x, from.y, to.x, to.y, arrow_width, 0, transition_tint, world_space);
    }
}

bool are_joined(u16 from, u16 to) {
    return std::any_of(game_map.transitions.begin(), game_map.transitions.end(),
                       [=](const transition& arc) { return arc.from == from && arc.to == to; });
}

// Selects the two states and joins them, unless an arrow does that already.
void arrow_drop(const pointer& mouse) {
    const i64 state = state_under(mouse);
    if (state < 0) {
        return;
    }
    const u16 from = static_cast<u16>(drag.index);
    const u16 to = static_cast<u16>(state);
    selection = {from, to};
    if (!are_joined(from, to)) {
        const bool opposite = from != to && are_joined(to, from);
        map_add_transition(from, to, opposite ? beside_opposite : i16{0}, 0, 0, {});
    }
}

void drag_move(const pointer& mouse) {
    switch (drag.kind) {
        case drag_state:
            state_drag(mouse);
            break;
        case drag_label:
            label_drag(mouse);
            break;
        case drag_arrow:
            arrow_drag(mouse);
            break;
        case drag_nothing:
            break;
    }
}

}  // namespace

bool drag_frame(const pointer& mouse) {
    for (u32 button : {mouse_left, mouse_right}) {
        if (input_mouse_is_pressed(button)) {
            press_apply(button, mouse);
        }
    }
    if (drag.kind == drag_nothing) {
        return false;
    }
    drag.moving = has_begun(mouse);
    if (drag.moving) {
        drag_move(mouse);
    }
    if (input_mouse_is_released(drag.button)) {
        if (drag.moving && drag.kind == drag_arrow) {
            arrow_drop(mouse);
        }
        drag = {};
    }
    return drag.moving;
}
