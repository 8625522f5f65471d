#include "game/table_panel.h"

#include "game/card_drawing.h"
#include "game/record.h"
#include "maps/model.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/view.h"
#include "render/walk.h"
#include "rules/game_state.h"

namespace {

void pile_place(card_pile& pile, f64 x) {
    pile.x = x;
    pile.y = render_target.height - card_step;
    pile.size = card_size;
}

void piles_draw() {
    if (deck.cards.count > 0) {
        sprite_draw(texture_gradient1, pile_box(deck), colour_white);
    }
    if (discard_pile.cards.count > 0) {
        card_draw(card_array_top(discard_pile.cards), discard_pile.x, discard_pile.y,
                  discard_pile.size);
    }
}

void tape_draw() {
    f64 row_width = static_cast<f64>(settings.tape_length) * card_step - card_margin;
    f64 start = render_target.width / 2.0 - row_width / 2;
    f64 y = render_target.height - top_panel_height / 2 - card_size / 2;
    for (i64 i = 0; i < tape.count; ++i) {
        f64 x = start + static_cast<f64>(i) * card_step;
        if (i == tape_head) {
            card_highlight_draw(x, y, card_selected_tint);
        }
        card_draw(tape[i], x, y, card_size);
    }
}

}  // namespace

void piles_place() {
    f64 centre = render_target.width / 2.0;
    pile_place(deck, centre - 192);
    pile_place(discard_pile, centre + 64);
}

box pile_box(const card_pile& pile) {
    return {pile.x, pile.y, pile.size, pile.size};
}

box end_turn_box() {
    return {render_target.width - card_step, render_target.height - card_step, card_size,
            card_size};
}

bool end_turn_is_at(const pointer& mouse) {
    return pointer_is_over(mouse, end_turn_box());
}

void table_draw() {
    if (machine_kind == pushdown_machine) {
        piles_draw();
    } else if (machine_kind == turing_machine) {
        tape_draw();
    }
}

void deck_frame(const pointer& mouse) {
    bool drawable = machine_kind == pushdown_machine && deck.cards.count > 0 && !turn.card_drawn;
    if (!drawable) {
        return;
    }
    walk_note(pile_box(deck));
    if (!pointer_is_over(mouse, pile_box(deck))) {
        return;
    }
    if (mouse.pressed) {
        record_take({act_draw});
    }
    card_highlight_draw(deck.x, deck.y, card_hover_tint);
}

void end_turn_frame(const pointer& mouse) {
    if (!turn.card_drawn) {
        return;
    }
    box sign = end_turn_box();
    sprite_draw(texture_next_turn, sign, current_seat().colour);
    if (deck.cards.count == 0) {
        return;
    }
    walk_note(sign);
    if (!end_turn_is_at(mouse)) {
        return;
    }
    if (mouse.pressed) {
        record_take({act_end});
    }
    card_highlight_draw(sign.x, sign.y, card_hover_tint);
}
