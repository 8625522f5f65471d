#include "editor/goal_editing.h"

#include <cassert>

#include "base/arithmetic.h"
#include "editor/dialog.h"
#include "render/button.h"
#include "render/goal_text.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"

goal_editing_record goal_editing;

namespace {

constexpr f64 row_step = 32;

u8 stepped_around(u8 value, i64 step, i64 count) {
    return static_cast<u8>(floor_modulo(value + step, count));
}

// Brings the cursor into the range of the goals, of which there must be some.
void goal_cursor_reduce() {
    assert(goals.count > 0);
    goal_editing.goal_cursor = floor_modulo(goal_editing.goal_cursor, goals.count);
}

// One row of the dialog: "<" is worth -1, ">" +1.
i64 row_step_clicked(f64 y) {
    return stepper_draw(render_target.width / 2.0, y, 256, 32);
}

void row_text_draw(str text, f64 y) {
    label_draw(text, render_target.width / 2.0, y);
}

void card_step_apply(card& c, i64 step) {
    c.colour = stepped_around(c.colour, step, card_colour_count);
    c.shape = stepped_around(c.shape, step, card_shape_count);
    if (step != 0) {
        i64 number = c.number + step;
        c.number = static_cast<u8>(number < 1 ? 6 : number > 6 ? 1 : number);
    }
}

void card_row_frame(card& c, f64 y) {
    assert(measures[goal_editing.new_goal.measure].cards > 0);
    card_step_apply(c, row_step_clicked(y));
    char symbol = card_symbol(c, measures[goal_editing.new_goal.measure].field);
    text_draw_icons({&symbol, 1}, render_target.width / 2.0, y);
}

void dialog_rows_frame(f64 y) {
    goal& g = goal_editing.new_goal;
    assert(g.measure < measure_count && g.comparison < comparison_count);
    g.measure = stepped_around(g.measure, row_step_clicked(y), measure_count);
    row_text_draw(measures[g.measure].name, y);
    y -= row_step;
    g.comparison = stepped_around(g.comparison, row_step_clicked(y), comparison_count);
    row_text_draw(comparison_names[g.comparison], y);
    y -= row_step;
    g.target = wrapping_add(g.target, row_step_clicked(y));
    number_draw(g.target, render_target.width / 2.0, y);
    if (measures[g.measure].cards >= 1) {
        card_row_frame(g.card_a, y - row_step);
    }
    if (measures[g.measure].cards >= 2) {
        card_row_frame(g.card_b, y - 2 * row_step);
    }
}

}  // namespace

void goal_buttons_frame() {
    f64 x = render_target.width - 416;
    f64 y = render_target.height - top_panel_height / 2;
    if (button_draw("add goal", x, y, 256, 32)) {
        goal_editing.goal_dialog_open = true;
    }
    if (button_draw("remove goal", x, y - 32, 256, 32) && goals.count > 0) {
        goal_cursor_reduce();
        dyn_array_remove_at(goals, goal_editing.goal_cursor);
    }
}

void goal_row_frame() {
    f64 x = render_target.width / 2.0;
    f64 y = bottom_panel_height / 2 - 32;
    i64& cursor = goal_editing.goal_cursor;
    label_draw("goal", 160, y);
    if (button_draw_less(x - 280, y, 32)) {
        cursor = wrapping_add(cursor, -1);
    }
    if (goals.count > 0) {
        goal_cursor_reduce();
        goal_draw(goals[cursor], x, y);
    }
    if (button_draw_more(x + 280, y, 32)) {
        cursor = wrapping_add(cursor, 1);
    }
}

void goal_dialog_frame() {
    dialog_box_draw();
    dialog_rows_frame(render_target.height / 2.0 + 176);
    dialog_answer answer = dialog_buttons_draw();
    if (answer.ok) {
        dyn_array_push(goals, goal_editing.new_goal);
    }
    if (answer.ok || answer.cancel) {
        goal_editing.goal_dialog_open = false;
    }
}
