// What scenarios do not show of the board and its panels: the edges of all boxes, seats in every
// state of a turn, and maps of any size.

#include <iterator>

#include "render/camera.h"
#include "render/motion.h"
#include "rules/cards.h"
#include "rules/seats.h"
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/screen.h"

namespace {

// Three states at -128, 0 and 128 on the board, two humans, three cards from -208 on.
class board_test : public screen_test {
  protected:
    board_test() {
        begin();
        screens.title_menu_open = false;
        seats_make("HH");
        turn.turn_revealed = true;
        map_make(pushdown_machine, ".*.", {});
        game_map.origin_x = -128;
        pile_set(players[0].hand, "Ba1 Ba1 Ba1");
    }
};

std::string index_text(i64 index) {
    return index == no_index || index == no_card ? "-" : std::to_string(index);
}

std::string selected_text() {
    return index_text(selection.selected_state) + index_text(selection.target_state) +
           index_text(selection.selected_transition) + index_text(selection.selected_card);
}

// A case is a place: what a click there selects. Boxes include left and bottom edges; the bands
// take no clicks for the board.
TEST_F(board_test, WhereClicksHit) {
    game_map.states[0].y = -240.0 / 128;
    game_map.states[2].y = 256.0 / 128;
    golden_check("game/clicks", [](const std::string& place) {
        selection = {};
        click(std::stod(place), std::stod(place.substr(place.find(' '))));
        return selected_text();
    });
    selection.selected_card = 1;
    click(0, -336);
    EXPECT_EQ(selection.selected_card, no_card);
    machine_kind = turing_machine;
    click(0, -336);
    EXPECT_EQ(selection.selected_card, no_card);
    screens.editor_open = screens.text_entry_open = true;
    click(0, 0);
    click(0, 0, mouse_right);
    EXPECT_EQ(selected_text(), "----");
}

// In a window of other proportions the pointer can be beside the picture.
TEST_F(board_test, BesideThePictureThePointerPointsAtNothing) {
    game_map.states[0].x = -384.0 / 128;
    screens.editor_open = true;
    for (f64 x : {-513.0, 512.0}) {
        selection.selected_state = 1;
        click(x, 0);
        click(x, 0, mouse_right);
        headless_wheel(1);
        headless_key_press(key_1);
        frame();
        EXPECT_EQ(selected_text(), "1---") << x;
        EXPECT_EQ(game_map.states.count, 3);
        EXPECT_EQ(camera.zoom, 1);
    }
    click(-511, 0);
    EXPECT_EQ(selected_text(), "10--");
}

// The deck and the sign are 128 wide, from (-192, 272) and (368, 272) on.
TEST_F(board_test, WhereDeckAndSignHit) {
    golden_check("game/piles", [](const std::string& place) {
        pile_set(deck.cards, "Aa1");
        pile_set(players[0].hand, "Ba1");
        turn = {};
        turn.turn_revealed = true;
        turn.card_drawn = place[0] == 's';
        std::size_t blank = place.find(' ');
        click(std::stod(place.substr(blank)), std::stod(place.substr(place.rfind(' '))));
        return std::to_string(players[0].hand.count) + " seat " +
               std::to_string(turn.current_player);
    });
}

// A state that the map lacks counts as none until a map has it again. A case is what is selected
// and the clicks: a digit that state, "R" the right button.
TEST_F(board_test, ASelectionOutlivesItsMap) {
    map_add_transition(7, 7, 0, 0, 0, {});
    map_add_transition(2, 1, 0, 0, 0, {});
    map_add_transition(2, 1, 0, 0, 0, {});
    golden_check("game/selections", [](const std::string& given) {
        auto state = [&](std::size_t place) {
            return given[place] == '-' ? no_index : static_cast<u16>(given[place] - '0');
        };
        selection = {state(0), state(1), no_index, 3};
        for (char act : given.substr(3)) {
            click(act == 'R' ? 0 : 128.0 * (act - '1'), 0, act == 'R' ? mouse_right : mouse_left);
        }
        frame();
        return selected_text();
    });
    selection = {7, 7, no_index, no_card};
    map_make(state_machine, "........", {{7, 7}});
    frame();
    EXPECT_EQ(selection.selected_transition, 0);
}

TEST_F(board_test, WhatNamesMissingStatesLeavesNoTrace) {
    map_add_transition(0, 1, 0, 8, 0, "x");
    game_map.states[1].x = 0;  // at one place: the rule without an arrow
    dyn_array_push(stones, 0);
    frame();
    const std::string whole = drawn();
    EXPECT_EQ(whole.find("arrow"), whole.npos);
    map_add_transition(0, 3, 0, 0, 0, "x");
    map_add_transition(no_index, 0, 0, 0, 0, "x");
    map_add_transition(7, 7, 0, 0, 0, "x");
    for (u16 state : {u16{3}, u16{no_index}}) {
        dyn_array_push(stones, state);
    }
    for (u16 flying : {u16{1}, u16{9}}) {
        flight.moving_stone = flying;
        frame();
        EXPECT_EQ(drawn(), whole);
        EXPECT_EQ(flight.moving_stone, no_index);
    }
}

TEST_F(board_test, WithoutMotionAStoneJumps) {
    dyn_array_push(stones, 0);
    for (bool still : {false, true}) {
        motion.still = still;
        flight = {0, {128, 0}, {0, 0}};
        frame();
        EXPECT_EQ(drawn("player -152 -24") != "", still);
    }
}

TEST_F(board_test, NimbersAreSigned) {
    u8 nimbers[] = {no_nimber, 2};
    game_map.nimbers = nimbers;
    game_map.nimber_count = 2;  // the third state has none
    turn.show_nimbers = true;
    frame();
    EXPECT_EQ(drawn("\"-1\"") + drawn("\"2\""), "\"-1\" -128 -32\n\"2\" 0 -32\n");
    EXPECT_EQ(drawn("\" 128 -32"), "");
}

TEST_F(board_test, SeatsHaveTheirColoursAndColumns) {
    const char* const looks[] = {"-128 -264 (1 0 0 1)",  "-128 -296 (0 0 1 1)",
                                 "-128 -328 (0 1 0 1)",  "-128 -360 (1 1 0 1)",
                                 "128 -264 (0.3 0 1 1)", "128 -296 (1 0.3 0 1)"};
    seats_make("HHHHHH");
    std::string counts;
    for (u8 i = 0; i < 6; ++i) {
        seat_colour_set(players[i], i);
        counts += std::string("\"0 cards!\" ") + looks[i] + "\n";
    }
    turn = {};
    frame();
    EXPECT_EQ(drawn("cards!"), counts);
}

}  // namespace
