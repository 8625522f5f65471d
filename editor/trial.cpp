#include "editor/trial.h"

#include <algorithm>

#include "base/tidings.h"
#include "editor/drag.h"
#include "editor/history.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/seats.h"
#include "shown/flight.h"
#include "shown/screens.h"

trial_record trial;

namespace {

bool is_open() {
    return map_work.aside.length > 0;
}

void trial_begin() {
    history_frame_end();  // of a drag
    drag = {};
    if (history_map().length == 0) {
        tiding_tell(tiding_refusal,
                    {"this map is too large to be played from the editor: save it"});
        return;
    }
    trial = {selection, selected_entry};
    map_work_lay_aside(history_map());
    selection = {};
    selected_entry = -1;
    screens.editor_open = false;
    seats_adjust();
    game_start();
}

// Nothing of the game stays on the board.
void game_clear() {
    deck.cards.count = 0;
    discard_pile.cards.count = 0;
    tape.count = 0;
    tape_head = 0;
    flight = {};
}

void trial_end() {
    map_work_take_back();
    game_clear();
    current_catalogue = &catalogues[machine_kind];
    selected_entry = std::min(trial.entry, catalogue_count() - 1);
    selection = trial.selection;
    screens = {};
    screens.title_menu_open = false;
    screens.editor_open = true;
}

}  // namespace

void trial_key_apply() {
    if (is_open()) {
        trial_end();
    } else if (trial_key_works()) {
        trial_begin();
    }
}

bool trial_key_works() {
    return is_open() || (editor_is_shown() && !screens.text_entry_open);
}

void trial_give_up() {
    if (is_open()) {
        map_work_take_back();
        history_map_leave();
        map_work_end();
    }
}
