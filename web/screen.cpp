#include "web/screen.h"

#include <emscripten.h>

#include <string>

#include "editor/text_entry.h"
#include "editor/trial.h"
#include "game/game_file.h"
#include "game/replay.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "rules/game_state.h"
#include "shown/screens.h"
#include "shown/selection.h"

// clang-format off
EM_JS(void, page_screen_tell, (const char* words), { page_screen(UTF8ToString(words)); });
// clang-format on

namespace {

bool state_is_selected() {
    return editor_is_shown() && selection_source() != no_index && selection_target() == no_index;
}

bool pair_is_selected() {
    return editor_is_shown() && selection_source() != no_index && selection_target() != no_index;
}

bool arrow_is_selected() {
    return pair_is_selected() && selection.selected_transition < game_map.transitions.count;
}

bool rule_is_selected() {
    return arrow_is_selected() &&
           game_map.transitions[selection.selected_transition].rule.length > 0;
}

bool hand_is_covered() {
    return game_is_shown() && turn.winner == no_winner && !turn.turn_revealed &&
           !current_seat().is_computer;
}

struct screen_word {
    const char* word;
    bool (*holds)();
};

// clang-format off
constexpr screen_word words[] = {
    {"title", [] { return screens.title_menu_open; }},
    {"seats", [] { return screens.player_setup_open && !screens.title_menu_open; }},
    {"maps", [] { return screens.map_list_open && !screens.player_setup_open; }},
    {"game", game_is_shown},
    {"editor", editor_is_shown},
    {"help", [] { return app.help_visible; }},
    {"covered", hand_is_covered},
    {"won", [] { return game_is_shown() && turn.winner != no_winner; }},
    {"state", state_is_selected},
    {"pair", pair_is_selected},
    {"arrow", arrow_is_selected},
    {"label", rule_is_selected},
    {"next",
     [] { return game_is_shown() && turn.winner != no_winner && catalogue_has_next(); }},
    {"replay", [] { return screens.replay_open; }},
    {"again", [] { return !screens.title_menu_open && replay_can_begin(); }},
    {"nimbers", [] { return board_is_shown() && machine_kind == state_machine; }},
    {"playable", [] { return editor_is_shown() && trial_key_works(); }},
    {"left", [] { return game_menu_is_shown() && game_can_return(); }},
    {"trial", [] { return map_work.aside.length > 0; }},
    {"rule", [] { return screens.text_entry_open && text_entry.text_purpose_rule; }},
    {"name", [] { return screens.text_entry_open && text_entry.text_purpose_map_name; }},
    {"action", [] { return machine_kind == turing_machine; }},
};
// clang-format on

u32 told;  // a bit for each of the words

u32 words_now() {
    u32 now = 0;
    for (u32 i = 0; i < std::size(words); ++i) {
        now |= words[i].holds() ? 1U << i : 0;
    }
    return now;
}

}  // namespace

void screen_tell() {
    u32 now = words_now();
    if (now == told) {
        return;
    }
    told = now;
    std::string text;
    for (u32 i = 0; i < std::size(words); ++i) {
        text += (now >> i & 1) != 0 ? std::string(words[i].word) + " " : "";
    }
    page_screen_tell(text.c_str());
}

// What web/typing.js asks: the text typed so far, which ends with a zero byte.
extern "C" EMSCRIPTEN_KEEPALIVE const char* page_typed() {
    static std::string text;
    text.assign(text_entry_text().data, static_cast<std::size_t>(text_entry_text().length));
    return text.c_str();
}
