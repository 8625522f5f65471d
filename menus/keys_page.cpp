#include "menus/keys_page.h"

#include "base/text_builder.h"
#include "editor/copying.h"
#include "editor/history.h"
#include "editor/map_edit.h"
#include "editor/trial.h"
#include "game/game_file.h"
#include "game/hint.h"
#include "game/replay.h"
#include "game/takeback.h"
#include "maps/catalogue.h"
#include "maps/model.h"
#include "menus/info_overlays.h"
#include "rules/game_state.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

bool always() {
    return true;
}

bool can_return() {
    return game_menu_is_shown() && game_can_return();
}

bool can_go_back() {
    return takeback_goes_back() || (editor_is_shown() && history.position > 0);
}

bool can_go_forward() {
    return takeback_goes_forward() || (editor_is_shown() && history.position < history.used);
}

bool can_play_next() {
    return game_is_shown() && turn.winner != no_winner && catalogue_has_next();
}

bool can_type_rule() {
    return editor_is_shown() && selected_arc() != nullptr;
}

bool can_place_labels() {
    return editor_is_shown() && game_map.transitions.count > 0;
}

bool can_drag() {
    return editor_is_shown() && game_map.states.count > 0;
}

bool can_copy() {
    return editor_is_shown() && selection_source() != no_index;
}

bool can_put() {
    return editor_is_shown() && (copied.kind == copied_state ||
                                 (copied.kind == copied_arrow && selection_target() != no_index));
}

// A line of the page; one without a key is a heading, and an empty one lies between two parts.
struct key_row {
    str key;
    str words;
    bool (*works)();  // right now
};

constexpr key_row rows[] = {
    {"", "Everywhere:", nullptr},
    {"<f2>", "held, what can be done; else this page", always},
    {"arrows", "walk over what can be clicked", nullptr},
    {"<enter>", "click there, with <shift> by the right button", nullptr},
    {"<f4>", "from the menus back into the game", can_return},
    {"<shift> + <f4>", "show the game from its deal", replay_can_begin},
    {"", "", nullptr},
    {"", "Games and editor:", nullptr},
    {"ctrl+z", "take back what was done", can_go_back},
    {"ctrl+y", "do it again", can_go_forward},
    {"<f9>", "play the map under work, and back to it", trial_key_works},
    {"<shift> + <f2>", "a hint in a game", hints_are_due},
    {"n", "after a win the next map", can_play_next},
    {"", "", nullptr},
    {"", "Editor:", nullptr},
    {"drag", "move a state or a rule", can_drag},
    {"<shift> + drag", "add a transition, as the right button", nullptr},
    {"<shift> + arrows", "walk along the grid", nullptr},
    {"4", "type the rule of the transition", can_type_rule},
    {"5", "put rules beside their transitions", can_place_labels},
    {"c", "copy the state, or the transition's rule", can_copy},
    {"v", "put what was copied", can_put},
};

void row_put(text_builder& text, const key_row& row) {
    text_builder_put_str(text, row.key);
    text_builder_put_str(text, row.key.length > 0 ? str(": ") : str());
    text_builder_put_str(text, row.words);
    text_builder_put_str(text, "\n");
}

}  // namespace

str keys_now_words() {
    text_builder text = text_builder_make(arena_frame);
    str before = "Right now: ";
    for (const key_row& row : rows) {
        if (row.works != nullptr && row.works()) {
            text_builder_put_str(text, before);
            text_builder_put_str(text, row.key);
            before = ", ";
        }
    }
    return text_builder_text(text);
}

void keys_page_draw() {
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_str(text, keys_now_words());
    text_builder_put_str(text, "\n\n");
    for (const key_row& row : rows) {
        row_put(text, row);
    }
    page_draw(text_builder_text(text));
}
