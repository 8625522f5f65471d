#include "rules/check.h"

#include "editor/drag.h"
#include "editor/text_entry.h"
#include "maps/catalogue.h"
#include "maps/waiting_maps.h"
#include "program/check.h"
#include "rules/cards.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/game.h"

namespace {

using check_test = game_test;

TEST_F(check_test, NamesWhatIsBroken) {
    const std::pair<const char*, void (*)()> rows[] = {
        {"", [] { stones[0] = selection.selected_state = no_index; }},
        {"hand shares storage with tape", [] { players[1].hand.data = tape.data + 1; }},
        {"tape: outside the arena's used part", [] { tape.capacity = 1 << 20; }},
        {"stones: not in the persistent arena", [] { stones.arena_id = arena_frame; }},
        {"deck: a card that does not exist", [] { deck.cards[1].number = 0; }},
        {"hand: a card that does not exist", [] { players[0].hand[0].shape = 6; }},
        {"a nimber is out of its range", [] { game_map.nimbers[1] = 128; }},
        {"a seat's kind of player does not exist", [] { players[1].strength = strength_count; }},
        {"the seat to move does not exist", [] { turn.current_player = 2; }},
        {"the time of the move is out of its range", [] { turn.move_timer = -1.0 / 60; }},
        {"the time to think is out of its range", [] { turn.think_timer = 0.5; }},
        {"more or fewer seats than a game has",
         [] {
             for (i64 seat = 2; seat < 40; ++seat) {
                 dyn_array_push(players, {});
                 dyn_array_push(players[seat].hand, {});
             }
         }},
        {"an arena holds more than it can", [] { arenas[arena_frame].offset = -1; }},
    };
    for (const auto& [fault, destroy] : rows) {
        map_make(state_machine, "..", {{0, 1, "A"}}, {0});
        seats_make("H0");
        turn = {};
        tape_head = 0;
        pile_set(deck.cards, "Aa1 Bb2");
        pile_set(tape, "Cc3 Dd4");
        pile_set(players[0].hand, "Ee5");
        EXPECT_EQ(string_of(game_fault()), "");
        destroy();
        EXPECT_EQ(string_of(game_fault()), fault);
        globals_start();
        random_seed(1);
    }
}

TEST_F(check_test, EveryRoomIsAsked) {
    const std::pair<const char*, void (*)()> rows[] = {
        {"the current catalogue is none of the three", [] { current_catalogue += 3; }},
        {"waiting maps do not fill their memory", [] { waiting_maps.used = 1; }},
        {"two menus are open", [] { screens.map_list_open = true; }},
        {"tape: not in the persistent arena", [] { tape.arena_id = arena_frame; }},
        {"a text is typed for two purposes",
         [] { text_entry.text_purpose_rule = text_entry.text_purpose_map_name = true; }},
        {"something is dragged that does not exist",
         [] {
             drag = {drag_label, 0, true, -1};
         }},
    };
    for (const auto& [fault, destroy] : rows) {
        globals_start();
        random_seed(1);
        current_catalogue = catalogues;
        EXPECT_EQ(string_of(program_fault()), "");
        destroy();
        EXPECT_EQ(string_of(program_fault()), fault);
    }
}

}  // namespace
