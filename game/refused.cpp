#include "game/refused.h"

#include <algorithm>

#include "game/table_panel.h"
#include "platform/input.h"
#include "render/renderer.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/turns.h"
#include "shown/selection.h"

refused_record refused;

namespace {

// Why the states and the card that are selected make no move; nothing while some are still missing.
refused_act selection_judge() {
    u16 from = selection_source();
    u16 to = selection_target();
    if (from == no_index) {
        return {};
    }
    if (stone_find(from) == no_index) {
        return {refused_no_stone, from, to};
    }
    if (to == no_index) {
        return {};
    }
    u16 arc = transition_between(from, to);
    if (arc == no_index) {
        return {refused_no_arrow, from, to};
    }
    game_act move = move_along(game_map.transitions[arc], selection.selected_card);
    refusal why = act_refusal(move, false);
    return {why == refused_no_card ? refused_not : why, from, to, move};
}

bool board_is_covered() {
    return !turn.turn_revealed && turn.human_count > 1 && !current_seat().is_computer;
}

bool is_over_pile(const pointer& mouse, const card_pile& pile) {
    return machine_kind == pushdown_machine && pointer_is_over(mouse, pile_box(pile));
}

// Where nothing can be clicked, or not now, the first that holds being the reason.
struct idle_place {
    bool (*has)(const pointer& mouse);
    refusal (*why)();
};

constexpr idle_place idle_places[] = {
    {[](const pointer&) { return board_is_covered(); }, [] { return refused_covered; }},
    {[](const pointer& mouse) { return is_over_pile(mouse, deck); },
     [] { return act_refusal({act_draw}, false); }},
    {[](const pointer& mouse) { return turn.card_drawn && end_turn_is_at(mouse); },
     [] { return act_refusal({act_end}, false); }},
    {[](const pointer& mouse) { return is_over_pile(mouse, discard_pile); },
     [] { return refused_pile; }},
    {[](const pointer& mouse) {
         return machine_kind == turing_machine && mouse.y > render_target.height - top_panel_height;
     },
     [] { return refused_tape; }},
    {[](const pointer& mouse) { return mouse.on_board; }, [] { return refused_nothing_here; }},
};

bool selection_is_new() {
    return refused.source != selection.selected_state || refused.target != selection.target_state ||
           refused.card != selection.selected_card;
}

refusal place_judge(const pointer& mouse) {
    for (const idle_place& place : idle_places) {
        if (place.has(mouse)) {
            return place.why();
        }
    }
    return refused_not;
}

refused_act press_judge(const pointer& mouse) {
    if (turn.move_timer > 0) {
        return {refused_flying};
    }
    return selection_is_new() ? selection_judge() : refused_act{place_judge(mouse)};
}

}  // namespace

void click_judge(const pointer& mouse) {
    bool done = refused.done_number != last_done.number;
    refused.frames_left = std::max(refused.frames_left - 1, 0);
    if (done || mouse.pressed || input_mouse_is_pressed(mouse_right)) {
        refused.what = {};
    }
    if (mouse.pressed && !done && turn.winner == no_winner) {
        refused.what = press_judge(mouse);
        refused.frames_left = refused.what.why == refused_not ? 0 : refused_frames;
    }
    refused.done_number = last_done.number;
    refused.source = selection.selected_state;
    refused.target = selection.target_state;
    refused.card = selection.selected_card;
}
