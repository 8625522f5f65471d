#include "editor/settings_panel.h"

#include "base/arithmetic.h"
#include "editor/goal_editing.h"
#include "game/notices.h"
#include "maps/model.h"
#include "render/button.h"
#include "render/renderer.h"
#include "render/text.h"
#include "render/view.h"

namespace {

constexpr f64 row_step = 32;
constexpr f64 button_side = 32;

struct deck_spinner {
    str label;
    i64 map_settings::*value;
    i64 maximum;
};

constexpr deck_spinner deck_spinners[] = {
    {"decks", &map_settings::deck_copies, 9},
    {"colors", &map_settings::deck_colours, card_colour_count},
    {"numbers", &map_settings::deck_numbers, card_number_count},
    {"shapes", &map_settings::deck_shapes, card_shape_count},
};

void deck_spinner_frame(const deck_spinner& spinner, f64 y) {
    i64& value = settings.*spinner.value;
    label_draw(spinner.label, 96, y);
    if (button_draw_less(160, y, button_side)) {
        value = value <= 0 ? 0 : value - 1;
    }
    char digit = static_cast<char>('0' + static_cast<u8>(value));
    label_draw({&digit, 1}, 208, y);
    if (button_draw_more(256, y, button_side)) {
        value = value >= spinner.maximum ? spinner.maximum : value + 1;
    }
}

// Where the bottom rows have their parts.
f64 row_centre() {
    return render_target.width / 2.0;
}

bool row_down(f64 y) {
    return button_draw_less(row_centre() - 280, y, button_side);
}

bool row_up(f64 y) {
    return button_draw_more(row_centre() + 280, y, button_side);
}

void win_row_frame(f64 y) {
    label_draw("win", 160, y);
    i64 mode = static_cast<i8>(settings.win_mode) - (row_down(y) ? 1 : 0);
    mode = floor_modulo(mode, win_mode_count);
    label_draw(win_mode_label(mode), row_centre(), y);
    settings.win_mode = static_cast<u8>(mode + (row_up(y) ? 1 : 0));
}

void number_row_frame(str label, i64& value, f64 y) {
    label_draw(label, 160, y);
    if (row_down(y)) {
        value = wrapping_add(value, -1);
    }
    number_draw(value, row_centre(), y);
    if (row_up(y)) {
        value = wrapping_add(value, 1);
    }
}

}  // namespace

void deck_spinners_frame() {
    f64 y = render_target.height - top_panel_height / 2 + 48;
    for (const deck_spinner& spinner : deck_spinners) {
        deck_spinner_frame(spinner, y);
        y -= row_step;
    }
}

void bottom_rows_frame() {
    f64 y = bottom_panel_height / 2;
    win_row_frame(y + row_step);
    if (machine_kind == pushdown_machine) {
        number_row_frame("hand", settings.hand_size, y);
    } else if (machine_kind == turing_machine) {
        number_row_frame("tape", settings.tape_length, y);
        goal_row_frame();
    }
}
