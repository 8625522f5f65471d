#include "program/globals.h"

#include <algorithm>
#include <cstring>

#include "base/arena.h"
#include "base/tidings.h"
#include "editor/copying.h"
#include "editor/drag.h"
#include "editor/goal_editing.h"
#include "editor/history.h"
#include "editor/rule_advice.h"
#include "editor/text_entry.h"
#include "editor/trial.h"
#include "game/game_file.h"
#include "game/game_line.h"
#include "game/hand_panel.h"
#include "game/hint.h"
#include "game/record.h"
#include "game/refused.h"
#include "game/replay.h"
#include "game/takeback.h"
#include "maps/catalogue.h"
#include "maps/kept.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "menus/title_menu.h"
#include "render/camera.h"
#include "render/font.h"
#include "render/motion.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "render/walk.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/screens.h"
#include "rules/selection.h"

namespace {

void map_globals_reset() {
    machine_kind = pushdown_machine;
    game_map = {};
    settings = {};
    goals = {};
    stones = {};
    std::fill(catalogues, catalogues + machine_kind_count, catalogue{});
    std::fill(known_catalogues, known_catalogues + machine_kind_count, catalogue{});
    current_catalogue = nullptr;
    selected_entry = -1;
    map_work = {};
    waiting_maps = {};
}

void game_globals_reset() {
    deck = {};
    discard_pile = {};
    tape = {};
    tape_head = 0;
    random_generator = {};
    players = {};
    player_count = 3;
    turn = {};
    selection = {};
    flight = {};
    std::memset(stone_stack, 0, sizeof stone_stack);
    hand_row = {};
    last_deal = {};
    last_done = {};
    record = {};
    takeback = {};
    replay = {};
    game_file = {};
    refused = {};
    hint = {};
    game_line = {};
    text_entry = {};
    goal_editing = {};
    history = {};
    drag = {};
    copied = {};
    rule_advice = {};
    trial = {};
}

void screen_globals_reset() {
    app = {};
    screens = {};
    camera = {};
    walk = {};
    motion = {};
    title_picture_angle = 0;
    texture_set = {};
    quad_mesh = {};
    simple_shader = {};
    gamma_shader = {};
    render_target = {};
    font = {};
}

}  // namespace

void globals_reset() {
    std::fill(arenas, arenas + arena_count, arena{});
    tidings = {};
    standing = {};
    map_globals_reset();
    game_globals_reset();
    screen_globals_reset();
}
