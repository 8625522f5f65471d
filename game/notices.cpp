#include "game/notices.h"

#include <cassert>

#include "maps/model.h"
#include "render/goal_text.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"
#include "rules/game_state.h"

namespace {

constexpr str family_labels[machine_kind_count] = {"state machine!", "pushdown machine!",
                                                   "turing machine!"};
constexpr str win_mode_labels[win_mode_count] = {"immediate", "all accepting", "any accepting"};

constexpr str turn_texts[seat_colour_count] = {"Red's turn",    "Blue's turn",   "Green's turn",
                                               "Yellow's turn", "Purple's turn", "Orange's turn"};
constexpr str win_texts[seat_colour_count] = {"Red wins!",    "Blue wins!",   "Green wins!",
                                              "Yellow wins!", "Purple wins!", "Orange wins!"};

constexpr colour status_tint = {1, 0, 0, 1};
constexpr colour box_tint = {0, 0, 0, 0.9f};

// A box over the middle of the board with a large title and a smaller line below it.
void notice_draw(str title, str hint, f64 hint_drop, const colour& tint) {
    f64 x = render_target.width / 2.0;
    f64 y = render_target.height / 2.0;
    box_fill(box_around(x, y, 800, 600), box_tint);
    text_draw(title, x, y, text_large, tint, screen_space, text_centred);
    label_draw(hint, x, y - hint_drop, tint);
}

}  // namespace

void status_lines_draw() {
    assert(0 <= machine_kind && machine_kind < machine_kind_count);
    f64 height = render_target.height;
    text_draw_left(family_labels[machine_kind], 16, height - 48, text_normal, status_tint);
    text_draw_left(win_mode_label(settings.win_mode), 16, height - 80, text_normal, status_tint);
    const colour& tint = current_seat().colour;
    text_draw_left("turn: ", 16, height - 112, text_normal, tint);
    sprite_draw(texture_player, {96, height - 112, 32, 32}, tint);
}

void turn_cover_draw() {
    const player& seat = current_seat();
    assert(seat.colour_index < seat_colour_count);
    notice_draw(turn_texts[seat.colour_index], "Press <space> to continue", 64, seat.colour);
}

void winner_banner_draw() {
    assert(turn.winner != no_winner);
    const player& winner = players[turn.winner];
    assert(winner.colour_index < seat_colour_count);
    notice_draw(win_texts[winner.colour_index], "Press <space> to restart or <esc> to quit", 200,
                winner.colour);
    if (machine_kind == turing_machine) {
        goal_draw(winner.goal, render_target.width / 2.0, bottom_panel_height / 2);
    }
}

str win_mode_label(i64 win_mode) {
    return 0 <= win_mode && win_mode < win_mode_count ? win_mode_labels[win_mode] : str();
}
