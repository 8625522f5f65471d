#include "program/game_screen.h"

#include "editor/editor.h"
#include "game/board.h"
#include "game/hand_panel.h"
#include "game/hint.h"
#include "game/notices.h"
#include "game/refused.h"
#include "game/replay.h"
#include "game/table_panel.h"
#include "maps/model.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/view.h"
#include "rules/game_state.h"
#include "shown/screens.h"

namespace {

constexpr colour band_tint = {0, 0, 0, 0.75f};

void band_draw(f64 y, f64 height) {
    box_fill({0, y, static_cast<f64>(render_target.width), height}, band_tint);
}

bool turn_is_covered() {
    return turn.winner == no_winner && turn.human_count > 1 && !current_seat().is_computer &&
           !screens.replay_open;
}

void play_overlays_frame(const pointer& mouse) {
    if (turn.turn_revealed) {
        hand_panel_frame(mouse);
    } else if (turn_is_covered()) {
        turn_cover_draw();
    }
    if (machine_kind == pushdown_machine && !turn.turn_revealed) {
        card_counts_draw();
    }
    status_lines_draw();
    if (screens.replay_open) {
        replay_line_draw();
    }
    if (turn.winner != no_winner) {
        winner_banner_draw();
    }
    if (!screens.replay_open) {
        hint_draw();
        click_judge(mouse);
    }
}

}  // namespace

void game_screen_frame() {
    piles_place();
    pointer mouse = pointer_read();
    if (screens.replay_open) {
        mouse.hovers = mouse.pressed = mouse.on_board = false;
    }
    board_frame(mouse);
    band_draw(0, bottom_panel_height);
    band_draw(render_target.height - top_panel_height, top_panel_height);
    table_draw();
    if (screens.editor_open) {
        editor_frame(mouse);
    } else {
        play_overlays_frame(mouse);
    }
}
