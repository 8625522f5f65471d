#include "program/globals.h"

#include <algorithm>
#include <cstring>

#include "base/arena.h"
#include "base/fingerprint.h"
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
#include "maps/map_work.h"
#include "maps/model.h"
#include "maps/waiting_maps.h"
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
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

template <typename global>
void start_value_set(global& one) {
    one = {};
}

template <typename global, std::size_t count>
void start_value_set(global (&all)[count]) {
    std::fill(all, all + count, global{});
}

// All of them but the arenas and what counts time until it is due.
template <typename visitor>
void globals_visit(visitor visit) {
    visit(machine_kind);
    visit(game_map);
    visit(settings);
    visit(goals);
    visit(stones);
    visit(catalogues);
    visit(known_catalogues);
    visit(current_catalogue);
    visit(selected_entry);
    visit(standing);
    visit(map_work);
    visit(waiting_maps);
    visit(deck);
    visit(discard_pile);
    visit(tape);
    visit(tape_head);
    visit(random_generator);
    visit(players);
    visit(player_count);
    visit(turn);
    visit(selection);
    visit(flight);
    visit(stone_stack);
    visit(hand_row);
    visit(last_deal);
    visit(last_done);
    visit(record);
    visit(takeback);
    visit(replay);
    visit(game_file);
    visit(refused);
    visit(hint);
    visit(game_line);
    visit(text_entry);
    visit(goal_editing);
    visit(history);
    visit(drag);
    visit(copied);
    visit(rule_advice);
    visit(trial);
    visit(app);
    visit(screens);
    visit(camera);
    visit(walk);
    visit(motion);
    visit(title_picture_angle);
    visit(texture_set);
    visit(quad_mesh);
    visit(simple_shader);
    visit(gamma_shader);
    visit(render_target);
    visit(font);
}

void fingerprint_add_bytes(u64& fingerprint, const void* bytes, std::size_t size) {
    const char* from = static_cast<const char*>(bytes);
    u64 word = 0;
    for (; size >= sizeof word; size -= sizeof word, from += sizeof word) {
        std::memcpy(&word, from, sizeof word);
        fingerprint_add(fingerprint, word);
    }
    word = 0;
    std::memcpy(&word, from, size);
    fingerprint_add(fingerprint, word);
}

}  // namespace

void globals_reset() {
    std::fill(arenas, arenas + arena_count, arena{});
    tidings = {};
    globals_visit([](auto& one) { start_value_set(one); });
    machine_kind = pushdown_machine;
    selected_entry = -1;
    player_count = 3;
}

u64 globals_fingerprint() {
    u64 fingerprint = 1;
    globals_visit([&](const auto& one) { fingerprint_add_bytes(fingerprint, &one, sizeof one); });
    const arena& used = arenas[arena_persistent];
    fingerprint_add_bytes(fingerprint, used.base, static_cast<std::size_t>(used.offset));
    return std::max(fingerprint, u64{1});
}
