#include "editor/copying.h"

#include "editor/map_edit.h"
#include "maps/model.h"
#include "shown/selection.h"

copied_record copied;

void selection_copy() {
    const u16 source = selection_source();
    if (const transition* arc = selected_arc()) {
        copied.kind = copied_arrow;
        copied.bend = arc->bend;
        copied.rule.count = 0;
        for (char byte : arc->rule) {
            dyn_array_push(copied.rule, byte);
        }
    } else if (source != no_index && selection_target() == no_index) {
        copied.kind = copied_state;
        copied.accepting = game_map.states[source].accepting;
    }
}

void copied_state_put(point place) {
    if (copied.kind == copied_state) {
        state_add(place, copied.accepting);
    }
}

void copied_arrow_put() {
    const u16 source = selection_source();
    const u16 target = selection_target();
    if (copied.kind != copied_arrow || source == no_index || target == no_index) {
        return;
    }
    transition* arc = selected_arc();
    if (arc == nullptr) {
        map_add_transition(source, target, 0, 0, 0, {});
        arc = &game_map.transitions[game_map.transitions.count - 1];
    }
    arc->bend = copied.bend;
    arc->rule = str_copy({copied.rule.data, copied.rule.count});
}
