#include "render/camera.h"
#include "rules/screens.h"
#include "rules/selection.h"
#include "tests/program/program.h"

namespace {

// Three states at -128, 0 and 128 on the board, two humans, nothing to move.
class board_test : public program_test {
  protected:
    board_test() {
        begin_game("HH");
        map_make(state_machine, ".*.", {});
        game_map.origin_x = -128;
    }
};

void stones_set(const std::vector<u16>& states) {
    stones.count = 0;
    for (u16 state : states) {
        dyn_array_push(stones, state);
    }
}

std::string index_text(u16 index) {
    return index == no_index ? "-" : std::to_string(index);
}

std::string selected_text() {
    return index_text(selection.selected_state) + index_text(selection.target_state);
}

// A digit clicks that state, "R" the right button.
void clicks(std::string_view script) {
    for (char c : script) {
        click(c == 'R' ? 0 : 128.0 * (c - '1'), 0, c == 'R' ? mouse_right : mouse_left);
    }
}

TEST_F(board_test, IsDrawnFromBackToFront) {
    map_add_transition(0, 1, 0, 0, 40, "B");
    map_add_transition(1, 2, -1, 0, -40, "x");
    map_add_transition(1, 1, 90, -8, 4, {});
    stones_set({0, 1, 0, 0});
    settings.win_mode = win_all_accepting;
    frame();
    std::string whole = screen_text();
    EXPECT_EQ(whole,
              "white -128 -2 96 4 (0.9 0.8 0.8 1)\ntriangle -44 12 24 -24 (0.9 0.8 0.8 1)\n"
              "white 0 -10 96 4 (0.9 0.8 0.8 1)\ntriangle 84 4 24 -24 (0.9 0.8 0.8 1)\n"
              "self_arrow -1.5 -50 -90 100 (0.9 0.8 0.8 1)\n"
              "circle -160 -32 64 64 (0.08 0.08 0.15 1)\ncircle -32 -32 64 64 (0.4 0.7 1 1)\n"
              "circle 96 -32 64 64 (0.08 0.08 0.15 1)\n"
              "player -152 -24 48 48 (0.2 0.4 1 1)\nplayer -24 -24 48 48 (0.2 0.4 1 1)\n"
              "player -152 -16 48 48 (0.2 0.4 1 1)\nplayer -152 -8 48 48 (0.2 0.4 1 1)\n"
              "white -512 -416 1024 176 (0 0 0 0.75)\nwhite -512 256 1024 160 (0 0 0 0.75)\n"
              "player -416 304 32 32 (1 0 0 1)\n\"B\" -64 40 (0 0 1 1)\n\"x\" 64 -40\n"
              "\"state machine!\" -405 384 (1 0 0 1)\n\"all accepting\" -411.5 352 (1 0 0 1)\n"
              "\"turn:\" -463.5 320 (1 0 0 1)\n");
    // What names missing states leaves no trace.
    map_add_transition(0, 3, 0, 0, 0, "x");
    map_add_transition(no_index, 0, 0, 0, 0, "x");
    map_add_transition(7, 7, 0, 0, 0, "x");
    stones_set({3, 0, 1, 0, 0, no_index});
    flight.moving_stone = 0;
    selection = {7, 8, 2, no_card};
    frame();
    EXPECT_EQ(screen_text(), whole);
    flight.moving_stone = 6;  // after a restart with fewer stones
    frame();
    EXPECT_EQ(flight.moving_stone, no_index);
}

TEST_F(board_test, SelectedStatesHaveHalosBelowHoveredOnesAbove) {
    map_add_transition(0, 2, 0, 0, 0, {});
    map_add_transition(0, 2, 2, 0, 0, {});
    clicks("02");
    EXPECT_EQ(lines_with("circle"),
              "circle -176 -48 96 96 (0.5 0 0 0.5)\ncircle -160 -32 64 64 (0.08 0.08 0.15 1)\n"
              "circle -32 -32 64 64 (0.4 0.7 1 1)\ncircle 80 -48 96 96 (0 0 1 0.5)\n"
              "circle 96 -32 64 64 (0.08 0.08 0.15 1)\ncircle 80 -48 96 96 (1 1 1 0.3)\n");
    EXPECT_EQ(lines_with("(0.3 0 1 1)"), "");
    frame();  // the transition is found at the start of the frame after
    EXPECT_EQ(lines_with("(0.3 0 1 1)"),
              "white -128 -2 224 4 (0.3 0 1 1)\ntriangle 84 12 24 -24 (0.3 0 1 1)\n");
}

TEST_F(board_test, ClicksChooseSourceThenTargetAndTheirFirstTransition) {
    struct {
        const char *clicks, *selected, *transition;
    } const rows[] = {
        // clang-format off
        {"0", "0-", "-"},   {"01", "01", "1"},     {"10", "10", "-"},  {"00", "00", "-"},
        {"000", "0-", "-"}, {"011", "0-", "-"},    {"012", "02", "-"}, {"0121", "01", "1"},
        {"R", "--", "-"},   {"0R", "--", "-"},     {"01R", "0-", "-"}, {"01RR", "--", "-"},
        {"21", "21", "0"},  {"01RRR2", "2-", "-"}, {"0112", "02", "-"},
        // clang-format on
    };
    map_add_transition(2, 1, 0, 0, 0, {});
    map_add_transition(0, 1, 0, 0, 0, {});
    map_add_transition(0, 1, 0, 0, 0, {});
    for (const auto& row : rows) {
        selection = {};
        clicks(row.clicks);
        frame();
        EXPECT_EQ(selected_text(), row.selected) << row.clicks;
        EXPECT_EQ(index_text(selection.selected_transition), row.transition) << row.clicks;
    }
    selection.selected_card = 3;  // is dropped last
    clicks("RR");
    EXPECT_EQ(selection.selected_card, 3);
    clicks("R");
    EXPECT_EQ(selection.selected_card, no_card);
}

// A state that the map lacks counts as none until a map has it again.
TEST_F(board_test, ASelectionOutlivesItsMap) {
    map_add_transition(7, 7, 0, 0, 0, {});
    struct {
        u16 state, target;
        const char *clicks, *selected;
        i64 card;
    } const rows[] = {
        // clang-format off
        {7, 7, "", "77", 3},  {7, no_index, "R", "7-", no_card}, {7, 8, "R", "78", no_card},
        {1, 7, "R", "-7", 3}, {7, 1, "R", "7-", 3},              {7, 1, "2", "2-", 3},
        {1, 7, "2", "12", 3},
        // clang-format on
    };
    for (const auto& row : rows) {
        selection = {row.state, row.target, no_index, 3};
        clicks(row.clicks);
        frame();
        EXPECT_EQ(selected_text(), row.selected);
        EXPECT_EQ(selection.selected_card, row.card);
        EXPECT_EQ(selection.selected_transition, no_index);
    }
    selection = {7, 7, no_index, no_card};
    map_make(state_machine, "........", {{7, 7}});
    frame();
    EXPECT_EQ(selection.selected_transition, 0);
}

TEST_F(board_test, AnOpenTextEntryTakesTheClicks) {
    screens.editor_open = true;
    screens.text_entry_open = true;
    selection.selected_state = 2;
    clicks("1R");
    EXPECT_EQ(selected_text(), "2-");
    EXPECT_EQ(lines_with("(1 1 1 0.3)").find("circle 80"), std::string::npos);
}

// Boxes include left and bottom; the bands take no clicks for the board, wherever a box reaches.
TEST_F(board_test, WhereClicksHit) {
    game_map.states[0].y = -240.0 / 128;
    game_map.states[2].y = 256.0 / 128;
    struct {
        f64 x, y;
        const char* selected;
    } const rows[] = {
        {-32, 0, "1-"},     {-33, 0, "--"},     {31, 0, "1-"},    {32, 0, "--"},
        {0, -32, "1-"},     {0, -33, "--"},     {0, 31, "1-"},    {0, 32, "--"},
        {-128, -239, "0-"}, {-128, -240, "--"}, {128, 255, "2-"}, {128, 256, "--"},
    };
    for (const auto& row : rows) {
        selection = {};
        click(row.x, row.y);
        EXPECT_EQ(selected_text(), row.selected) << row.x << ' ' << row.y;
    }
    key(key_f11);  // the bands stay at the window's edges
    selection = {};
    click(128, 256);
    EXPECT_EQ(selected_text(), "2-");
    game_map.states[1] = game_map.states[2];
    selection = {};
    click(128, 256);  // every state at that place is clicked
    EXPECT_EQ(selected_text(), "12");
}

TEST_F(board_test, IsSeenAndClickedThroughTheCamera) {
    camera = {128, 50, 2, 256};
    click(0, 0);
    EXPECT_EQ(selected_text(), "--");
    click(0, -100);
    EXPECT_EQ(selected_text(), "2-");
    EXPECT_TRUE(is_drawn("circle -64 -164 128 128 (0.08 0.08 0.15 1)")) << screen_text();
}

TEST_F(board_test, NimbersAreSigned) {
    u8 nimbers[] = {no_nimber, 2};
    game_map.nimbers = nimbers;
    game_map.nimber_count = 2;  // the third state has none
    auto shown = [] { return screen_lines([](auto line) { return line.ends_with(" -32"); }); };
    key(key_n);
    EXPECT_EQ(shown(), "");
    headless_key_hold(key_shift);
    key(key_n);
    EXPECT_EQ(shown(), "\"-1\" -128 -32\n\"2\" 0 -32\n");
    key(key_n);
    EXPECT_EQ(shown(), "");
}

TEST_F(board_test, AMovedStoneFliesAndLands) {
    map_add_transition(0, 2, 0, 0, 0, {});
    stones_set({1, 0, 0});
    frame();
    clicks("02");
    frame();
    EXPECT_EQ(stones[1], 0);
    frame();
    EXPECT_EQ(stones[1], 2);
    // It starts where the next stone on its old state would have been drawn.
    EXPECT_EQ(flight.moving_from[0], -0x1.e66666p+6f);
    EXPECT_EQ(flight.moving_from[1], 0x1.f33334p+3f);
    EXPECT_EQ(flight.moving_velocity[0], 384);
    EXPECT_TRUE(is_drawn("player -145.6 -8.4 48 48 (0.2 0.4 1 1)")) << screen_text();
    EXPECT_TRUE(is_drawn("player -152 -24 48 48 (0.2 0.4 1 1)"));
    frames(97);
    EXPECT_EQ(flight.moving_stone, 1);
    EXPECT_EQ(flight.moving_from[0], 0x1.ff1566p+6f);
    frame();
    EXPECT_EQ(flight.moving_stone, no_index);
    EXPECT_EQ(flight.moving_from[0], 128);
    EXPECT_EQ(flight.moving_from[1], 0);
    stones_set({1, 1, 1});
    flight = {1, {500, 300}, {0, 0}};  // still raises the others
    frame();
    EXPECT_EQ(lines_with("(0.2 0.4 1 1)"),
              "player -24 -24 48 48 (0.2 0.4 1 1)\nplayer 463.5 268.5 48 48 (0.2 0.4 1 1)\n"
              "player -24 -8 48 48 (0.2 0.4 1 1)\n");
}

TEST_F(board_test, VeryManyStatesAndStones) {
    map_make(state_machine, std::string(300, '.'), {});
    game_map.origin_x = -128.0 * 299;
    stones_set({299, 43, 299});
    click(0, 0);
    frame();
    EXPECT_EQ(selection.selected_state, 299);
    EXPECT_EQ(lines_with("48 48 (0.2 0.4 1 1)").find("player -24 -24 48 48"), 0U);
    EXPECT_TRUE(is_drawn("player -24 -16 48 48 (0.2 0.4 1 1)"));
    EXPECT_TRUE(is_drawn("circle -48 -48 96 96 (0.5 0 0 0.5)"));
    stones_set(std::vector<u16>(no_index + 2, 300));
    flight.moving_from[0] = 500;
    stones[no_index] = 299;  // the index that means none is no stone's: it does not fly
    frame();
    EXPECT_TRUE(is_drawn("player -24 -24 48 48 (0.2 0.4 1 1)"));
}

TEST_F(board_test, StatesAtOnePlaceShowTheRuleWithoutAnArrow) {
    map_add_transition(0, 1, 0, 8, 0, "x");
    game_map.states[1].x = 0;
    frame();
    EXPECT_EQ(lines_with("triangle") + lines_with("\"x\""), "\"x\" -120 0\n");
}

}  // namespace
