#include "game/hand_panel.h"

#include <algorithm>
#include <cassert>

#include "base/numbers.h"
#include "game/card_drawing.h"
#include "game/table_panel.h"
#include "platform/input.h"
#include "render/goal_text.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"
#include "render/walk.h"
#include "rules/game_state.h"
#include "shown/selection.h"

hand_scroll_record hand_row;

namespace {

constexpr f64 hand_y = 16;
constexpr f64 bar_y = 160;
constexpr f64 bar_height = 16;
constexpr f64 bar_margin = 16;
constexpr f64 wheel_step = 0.03125;

constexpr colour thumb_tint = {0.3f, 0, 1, 1};
constexpr colour thumb_hover_tint = {0.5f, 0.3f, 1, 1};
constexpr colour thumb_drag_tint = {0.1f, 0, 0.5f, 1};

// The row of a hand with `count` cards, at the start of the frame.
struct hand_layout {
    i64 count;
    i64 visible;     // cards that the window shows at once
    f64 full_width;  // pixels
    f32 start;       // x of the first card while nothing is scrolled
};

hand_layout hand_measure(i64 count) {
    assert(count >= 0);
    hand_layout row = {};
    row.count = count;
    row.visible = render_target.width / static_cast<i64>(card_step);
    row.full_width = static_cast<f64>(count) * card_step - card_margin;
    f64 shown = static_cast<f64>(std::min(count, row.visible));
    row.start = static_cast<f32>(render_target.width / 2.0 -
                                 ((shown - 1) * card_margin + shown * card_size) / 2);
    return row;
}

void hand_card_frame(i64 index, f64 x, const pointer& mouse) {
    const box face = {x, hand_y, card_size, card_size};
    if (machine_kind == pushdown_machine) {
        walk_note_beyond(face);
    }
    bool hovered = machine_kind == pushdown_machine && pointer_is_over(mouse, face);
    if (hovered && mouse.pressed) {
        selection.selected_card = selection.selected_card == index ? no_card : index;
    }
    if (selection.selected_card == index) {
        card_highlight_draw(x, hand_y, card_selected_tint);
    }
    card_draw(current_seat().hand[index], x, hand_y, card_size);
    if (hovered) {
        card_highlight_draw(x, hand_y, card_hover_tint);
    }
}

// Scrolls the row by as much as shows the card beyond the window's edge that the keys have brought
// the pointer to, and the pointer with it.
void walked_card_pull(const hand_layout& row, const pointer& mouse) {
    const f64 left = mouse.x - card_size / 2;
    const f64 right = mouse.x + card_size / 2 - render_target.width;
    const f64 beyond = mouse.x < 0 ? left : mouse.x >= render_target.width ? right : 0;
    if (beyond != 0 && input_mouse_is_brought()) {
        hand_row.hand_scroll += beyond / row.full_width;
        input_mouse_bring(mouse.x - beyond, render_target.height - mouse.y);
    }
}

void hand_cards_frame(const hand_layout& row, const pointer& mouse) {
    if (machine_kind == state_machine) {
        return;
    }
    walked_card_pull(row, mouse);
    for (i64 i = 0; i < row.count; ++i) {
        f64 x = static_cast<f64>(i) * card_step + f64{row.start} -
                row.full_width * hand_row.hand_scroll;
        hand_card_frame(i, x, mouse);
    }
}

void drag_advance(const pointer& mouse, f64 track, bool thumb_hovered) {
    if (thumb_hovered && mouse.pressed) {
        hand_row.hand_scroll_dragging = true;
    }
    if (input_mouse_is_released(mouse_left)) {
        hand_row.hand_scroll_dragging = false;
    } else if (hand_row.hand_scroll_dragging) {
        f64 dx = 0;
        f64 dy = 0;
        input_mouse_moved(dx, dy);
        hand_row.hand_scroll += dx / track;
    }
}

// How far a finger, or the middle button, has pulled the row itself, or the bar above it.
f64 pulled(const hand_layout& row, f64 track) {
    input_drag drag = input_dragged();
    f64 from_y = render_target.height - drag.from_y;
    if (from_y >= bottom_panel_height) {
        return 0;
    }
    return from_y < hand_y + card_size ? -drag.dx / row.full_width : drag.dx / track;
}

void scroll_bar_frame(const hand_layout& row, const pointer& mouse) {
    if (row.count <= row.visible) {
        hand_row.hand_scroll = 0;
        return;
    }
    f64 track = render_target.width - 2 * bar_margin;
    assert(row.full_width > 0);
    f64 fraction = track / row.full_width;
    box thumb = {bar_margin + hand_row.hand_scroll * track, bar_y, fraction * track, bar_height};
    bool hovered = !hand_row.hand_scroll_dragging && pointer_is_over(mouse, thumb);
    drag_advance(mouse, track, hovered);
    if (mouse.inside && mouse.y < bottom_panel_height) {
        hand_row.hand_scroll -= input_mouse_wheel() * wheel_step;
    }
    hand_row.hand_scroll += pulled(row, track);
    hand_row.hand_scroll = std::clamp(hand_row.hand_scroll, 0.0, 1 - fraction);
    const colour& tint = hand_row.hand_scroll_dragging ? thumb_drag_tint
                         : hovered                     ? thumb_hover_tint
                                                       : thumb_tint;
    thumb.x = bar_margin + hand_row.hand_scroll * track;
    box_fill(thumb, tint);
}

void card_count_draw(const player& seat, f64 x, f64 y) {
    i64 count = seat.hand.count;
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_int(text, count);
    text_builder_put_str(text, " card");
    if (count != 1) {
        text_builder_put(text, 's');
    }
    if (count < 2) {
        text_builder_put(text, '!');
    }
    label_draw(text_builder_text(text), x, y, seat.colour);
}

}  // namespace

void hand_panel_frame(const pointer& mouse) {
    hand_layout row = hand_measure(current_seat().hand.count);
    hand_cards_frame(row, mouse);
    deck_frame(mouse);
    if (machine_kind == turing_machine) {
        goal_draw(current_seat().goal, render_target.width / 2.0, bottom_panel_height / 2);
    }
    end_turn_frame(mouse);
    scroll_bar_frame(row, mouse);
}

void card_counts_draw() {
    i64 rows = std::max(i64{4}, players.count / 2);
    f64 offset = players.count > rows ? 128 : 0;
    for (i64 i = 0; i < players.count; ++i) {
        f64 x = render_target.width / 2.0 - offset + static_cast<f64>(i / rows) * 2 * offset;
        f64 y = bottom_panel_height - 24 - 32 * static_cast<f64>(i % rows);
        card_count_draw(players[i], x, y);
    }
}
