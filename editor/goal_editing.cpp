#include "editor/goal_editing.h"

#include "base/arithmetic.h"
#include "editor/spinner.h"
#include "render/button.h"
#include "render/goal_text.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"

goal_editing_record goal_editing;

namespace {

constexpr colour box_tint = {0, 0, 0, 0.8f};
constexpr f64 row_step = 32;

constexpr str measure_names[measure_count] = {
    "sum",
    "# distinct colors",
    "# distinct shapes",
    "# distinct numbers",
    "# cards of color",
    "# cards of shape",
    "# cards of number",
    "# cards of color a or b",
    "# cards of shape a or b",
    "# cards of number a or b",
};
constexpr str comparison_names[comparison_count] = {"exactly", "at most", "at least"};

// Brings the cursor into the range of the goals, of which there must be some.
void goal_cursor_reduce() {
    goal_editing.goal_cursor = floor_modulo(goal_editing.goal_cursor, goals.count);
}

// One row of the dialog: "<" is worth -1, ">" +1.
i64 row_step_clicked(f64 y) {
    f64 centre = render_target.width / 2.0;
    i64 step = 0;
    step -= spinner_down(centre - 256, y) ? 1 : 0;
    step += spinner_up(centre + 256, y) ? 1 : 0;
    return step;
}

void row_text_draw(str text, f64 y) {
    text_draw_centred(text, render_target.width / 2.0, y, 256, colour_white);
}

void card_step_apply(card& c, i64 step) {
    c.colour = cyclic_step(c.colour, step, card_colour_count);
    c.shape = cyclic_step(c.shape, step, card_shape_count);
    if (step != 0) {
        i64 number = c.number + step;
        c.number = static_cast<u8>(number < 1 ? 6 : number > 6 ? 1 : number);
    }
}

void card_row_frame(card& c, f64 y) {
    card_step_apply(c, row_step_clicked(y));
    char symbol = card_symbol(c, measures[goal_editing.new_goal.measure].field);
    text_draw({&symbol, 1}, render_target.width / 2.0, y, 256, colour_white, true, true, true);
}

void dialog_rows_frame(f64 y) {
    goal& g = goal_editing.new_goal;
    g.measure = cyclic_step(g.measure, row_step_clicked(y), measure_count);
    row_text_draw(measure_names[g.measure], y);
    y -= row_step;
    g.comparison = cyclic_step(g.comparison, row_step_clicked(y), comparison_count);
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
    text_draw_centred("goal", 160, y, 256, colour_white);
    if (spinner_down(x - 280, y)) {
        cursor = wrapping_add(cursor, -1);
    }
    if (goals.count > 0) {
        goal_cursor_reduce();
        goal_draw(goals[cursor], x, y);
    }
    if (spinner_up(x + 280, y)) {
        cursor = wrapping_add(cursor, 1);
    }
}

void goal_dialog_frame() {
    f64 x = render_target.width / 2.0;
    f64 y = render_target.height / 2.0;
    sprite_draw(texture_set.textures[texture_white], x - 320, y - 240, 640, 480, box_tint, true);
    dialog_rows_frame(y + 176);
    if (button_draw("OK", x, y - 144, 128, 64)) {
        dyn_array_push(goals, goal_editing.new_goal);
        goal_editing.goal_dialog_open = false;
    }
    if (button_draw("Cancel", x - 224, y - 144, 128, 64)) {
        goal_editing.goal_dialog_open = false;
    }
}
