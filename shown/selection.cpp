#include "shown/selection.h"

selection_record selection;

namespace {

u16 existing(u16 state) {
    return state_exists(state) ? state : no_index;
}

}  // namespace

u16 selection_source() {
    return existing(selection.selected_state);
}

u16 selection_target() {
    return existing(selection.target_state);
}
