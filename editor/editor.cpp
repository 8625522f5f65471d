#include "editor/editor.h"

#include <cassert>

#include "base/message.h"
#include "editor/copying.h"
#include "editor/drag.h"
#include "editor/goal_editing.h"
#include "editor/history.h"
#include "editor/label_layout.h"
#include "editor/map_edit.h"
#include "editor/rule_advice.h"
#include "editor/settings_panel.h"
#include "editor/text_entry.h"
#include "game/board.h"
#include "game/map_drawing.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/saving.h"
#include "platform/input.h"
#include "render/button.h"
#include "render/renderer.h"
#include "render/text.h"
#include "render/view.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

constexpr i16 loop_turn = 45;   // degrees
constexpr f32 label_step = 32;  // world units

constexpr colour cursor_tint = {1, 1, 1, 0.3f};
constexpr colour hint_tint = {0.5f, 0.5f, 0.5f, 1};

void grid_cursor_draw(const pointer& mouse, point cursor) {
    if (mouse.on_board) {
        disc_draw(on_board, cursor, state_size, cursor_tint);
    }
}

// The buttons on the right of the top band: what was clicked.
struct edit_buttons {
    bool remove;
    bool remove_stone;
    bool add_stone;
};

edit_buttons edit_buttons_frame() {
    f64 x = render_target.width - 144;
    f64 y = render_target.height - top_panel_height / 2;
    edit_buttons clicked = {};
    clicked.remove = button_draw("remove", x, y + 32, 256, 32);
    clicked.remove_stone = button_draw("remove stone", x, y, 256, 32);
    clicked.add_stone = button_draw("add stone", x, y - 32, 256, 32);
    return clicked;
}

void map_list_show() {
    history_map_leave();
    screens.map_list_open = true;
    selected_entry = 0;
    if (const catalogue_entry* entry = catalogue_selected()) {
        map_load(entry->path);
        board_find_transition();
    }
}

// ctrl+z, and ctrl+y or ctrl+shift+z, unless a text is typed.
void history_keys_apply() {
    if (screens.text_entry_open) {
        return;
    }
    if (input_key_is_pressed(key_y) ||
        (input_key_is_pressed(key_z) && input_key_is_held(key_shift))) {
        history_forward();
    } else if (input_key_is_pressed(key_z)) {
        history_back();
    }
}

// The keys with ctrl; true when the map list was opened, to which this frame's "o" then belonged.
bool ctrl_keys_apply() {
    if (!input_key_is_held(key_ctrl)) {
        return false;
    }
    history_keys_apply();
    if (input_key_is_pressed(key_s)) {
        text_entry_open_map_name();
    }
    if (input_key_is_pressed(key_o)) {
        map_list_show();
        return true;
    }
    return false;
}

void rule_entry_frame() {
    transition* arc = selected_arc();
    if (machine_kind != state_machine) {
        f64 y = render_target.height - top_panel_height / 2 + 32;
        bool clicked = button_draw("change rule", render_target.width - 416, y, 256, 32);
        if (clicked && arc != nullptr) {
            text_entry_open_rule();
        }
    }
    if (arc != nullptr && text_entry_take_rule() && text_entry_text().length > 0) {
        arc->rule = str_copy(text_entry_text());
        rule_advice_tell(arc->rule, true);
    }
}

// -1, 0 or +1 by two keys that pull in opposite directions.
i64 key_direction(u32 negative_key, u32 positive_key) {
    return (input_key_is_pressed(positive_key) ? 1 : 0) -
           (input_key_is_pressed(negative_key) ? 1 : 0);
}

// The open text entry; a rule is looked at with each letter.
void typing_frame() {
    const i64 length = text_entry.typed_text.count;
    text_entry_frame();
    if (text_entry.text_purpose_rule && text_entry.typed_text.count != length) {
        rule_advice_tell(text_entry_text(), false);
    }
}

void copy_keys_apply(const pointer& mouse, point cursor) {
    if (input_key_is_pressed(key_c)) {
        selection_copy();
    }
    if (input_key_is_pressed(key_v)) {
        if (mouse.inside) {
            copied_state_put(cursor);
        }
        copied_arrow_put();
    }
}

void state_keys_apply(u16 state, const edit_buttons& clicked) {
    assert(state_exists(state));
    map_state& s = game_map.states[state];
    s.x += map_units(grid_step) * static_cast<f64>(key_direction(key_j, key_l));
    s.y += map_units(grid_step) * static_cast<f64>(key_direction(key_k, key_i));
    if (input_key_is_pressed(key_u)) {
        s.accepting = 1;
    }
    if (input_key_is_pressed(key_o)) {
        s.accepting = 0;
    }
    if (!input_key_is_pressed(key_delete) && !clicked.remove && !clicked.remove_stone) {
        return;
    }
    bool only_one_stone = input_key_is_held(key_shift) || clicked.remove_stone;
    stones_remove(state, only_one_stone);
    if (!only_one_stone) {
        state_remove(state);
        selection.selected_state = no_index;
        selection.selected_transition = no_index;
    }
}

void transition_keys_apply(transition& arc, const edit_buttons& clicked) {
    if (arc.rule.length > 0) {
        arc.label_dx += label_step * static_cast<f32>(key_direction(key_j, key_l));
        arc.label_dy += label_step * static_cast<f32>(key_direction(key_k, key_i));
    }
    i64 step = arc.from == arc.to ? loop_turn : 1;
    arc.bend = static_cast<i16>(arc.bend + step * key_direction(key_o, key_u));
    if (input_key_is_pressed(key_delete) || clicked.remove) {
        transition_remove(selection.selected_transition);
        selection.selected_transition = no_index;
    }
}

void editing_keys_apply(const pointer& mouse, point cursor, const edit_buttons& clicked) {
    if (mouse.inside && input_key_is_pressed(key_1)) {
        state_add(cursor, 0);
    }
    u16 source = selection_source();
    u16 target = selection_target();
    bool has_state = source != no_index;
    bool has_pair = has_state && target != no_index;
    if (has_pair && input_key_is_pressed(key_2)) {
        map_add_transition(source, target, 0, 0, 0, {});
    }
    if (has_state && !has_pair) {
        if (input_key_is_pressed(key_3) || clicked.add_stone) {
            dyn_array_push(stones, source);
        }
        state_keys_apply(source, clicked);
    } else if (has_pair && selected_arc() != nullptr) {
        transition_keys_apply(*selected_arc(), clicked);
    }
    if (input_key_is_pressed(key_4) && selected_arc() != nullptr) {
        text_entry_open_rule();
    }
    if (input_key_is_pressed(key_5)) {
        labels_lay_out();
    }
    copy_keys_apply(mouse, cursor);
}

// True while something is dragged; none begins under a dialog.
bool drags_frame(const pointer& mouse) {
    if (screens.text_entry_open || goal_editing.goal_dialog_open) {
        drag = {};
    }
    return !screens.text_entry_open && !goal_editing.goal_dialog_open && drag_frame(mouse);
}

}  // namespace

void editor_frame(const pointer& mouse) {
    history_frame_begin();
    point cursor = {snapped(mouse.world.x, grid_step), snapped(mouse.world.y, grid_step)};
    grid_cursor_draw(mouse, cursor);
    text_draw_left("Press <f1> for help", render_target.width - 256, render_target.height - 32,
                   text_small, hint_tint);
    if (machine_kind != state_machine) {
        deck_spinners_frame();
    }
    edit_buttons clicked = edit_buttons_frame();
    bool dragging = drags_frame(mouse);
    bool list_opened = !dragging && ctrl_keys_apply();
    if (text_entry_take_map_name()) {
        map_save(text_entry_text());
    }
    rule_entry_frame();
    if (machine_kind == turing_machine) {
        goal_buttons_frame();
    }
    if (screens.text_entry_open) {
        typing_frame();
    } else {
        if (!list_opened && !dragging) {
            editing_keys_apply(mouse, cursor, clicked);
        }
        nimbers_key_apply();
        bottom_rows_frame();
    }
    if (goal_editing.goal_dialog_open) {
        goal_dialog_frame();
    }
    if (!list_opened && !dragging) {
        history_frame_end();
        fault_assert(history_fault);
    }
}

void editor_leave() {
    history_frame_end();
    history_map_leave();
    map_work_end();
    text_entry_close();
    goal_editing.goal_dialog_open = false;
    drag = {};
    rule_advice = {};
    selection = {};
}

str editor_fault() {
    if (text_entry.text_purpose_rule && text_entry.text_purpose_map_name) {
        return "a text is typed for two purposes";
    }
    if (goal_editing.new_goal.measure >= measure_count ||
        goal_editing.new_goal.comparison >= comparison_count) {
        return "the dialog makes a goal that does not exist";
    }
    if (drag.kind > drag_label || (drag.kind != drag_nothing && drag.index < 0)) {
        return "something is dragged that does not exist";
    }
    return {};
}
