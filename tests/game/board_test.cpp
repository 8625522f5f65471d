// What scenarios do not show of the board and its panels: the edges of all boxes, selections that
// outlive their map, all six seats.

#include "menus/player_setup.h"
#include "rules/cards.h"
#include "rules/screens.h"
#include "rules/selection.h"
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

// Boxes include left and bottom edges; the bands take no clicks for the board.
TEST_F(board_test, WhereClicksHit) {
    struct {
        f64 x, y;
        const char* selected;
    } const rows[] = {
        // clang-format off
        {-32, 0, "1---"}, {-33, 0, "----"}, {31, 0, "1---"}, {32, 0, "----"}, {0, -32, "1---"},
        {0, -33, "----"}, {0, 31, "1---"}, {0, 32, "----"}, {-128, -239, "0---"},
        {-128, -240, "----"}, {128, 255, "2---"}, {128, 256, "----"}, {-208, -400, "---0"},
        {-81, -273, "---0"}, {-80, -300, "----"}, {-64, -300, "---1"}, {-64, -401, "----"},
        {-64, -272, "----"},
        // clang-format on
    };
    game_map.states[0].y = -240.0 / 128;
    game_map.states[2].y = 256.0 / 128;
    for (const auto& row : rows) {
        selection = {};
        click(row.x, row.y);
        EXPECT_EQ(selected_text(), row.selected) << row.x << ' ' << row.y;
    }
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

// A state that the map lacks counts as none until a map has it again.
TEST_F(board_test, ASelectionOutlivesItsMap) {
    map_add_transition(7, 7, 0, 0, 0, {});
    map_add_transition(2, 1, 0, 0, 0, {});
    map_add_transition(2, 1, 0, 0, 0, {});
    struct {
        u16 state, target;
        const char *clicks, *selected;  // a digit clicks that state, "R" the right button
    } const rows[] = {
        {7, 7, "", "77-3"},  {7, no_index, "R", "7---"}, {7, 8, "R", "78--"},   {1, 7, "R", "-7-3"},
        {7, 1, "R", "7--3"}, {7, 1, "2", "2--3"},        {1, 7, "2", "12-3"},   {2, 1, "", "2113"},
        {2, 1, "R", "2--3"}, {2, 1, "RR", "---3"},       {2, 1, "RRR", "----"}, {2, 1, "1", "2--3"},
        {2, 1, "0", "20-3"}, {2, 2, "2", "2--3"},
    };
    for (const auto& row : rows) {
        selection = {row.state, row.target, no_index, 3};
        for (const char* act = row.clicks; *act != '\0'; ++act) {
            click(*act == 'R' ? 0 : 128.0 * (*act - '1'), 0,
                  *act == 'R' ? mouse_right : mouse_left);
        }
        frame();
        EXPECT_EQ(selected_text(), row.selected) << row.clicks;
    }
    selection = {7, 7, no_index, no_card};
    map_make(state_machine, "........", {{7, 7}});
    frame();
    EXPECT_EQ(selection.selected_transition, 0);
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
