#include "editor/editor.h"

#include <sstream>

#include "editor/goal_editing.h"
#include "maps/catalogue.h"
#include "render/camera.h"
#include "rules/screens.h"
#include "rules/selection.h"
#include "tests/editor/editor_screen.h"

namespace {

using editor_test = editor_screen;

// The map and the selection on one line.
std::string board_text() {
    std::ostringstream text;
    for (const map_state& s : game_map.states) {
        text << (s.accepting ? '*' : '.') << s.x << ',' << s.y << ' ';
    }
    text << '[';
    for (u16 state : stones) {
        text << state;
    }
    text << ']';
    for (const transition& arc : game_map.transitions) {
        text << ' ' << arc.from << '>' << arc.to << '(' << arc.bend << ' ' << arc.label_dx << ' '
             << arc.label_dy << ' ' << string_of(arc.rule) << ')';
    }
    auto number = [](u16 index) { return index == no_index ? "-" : std::to_string(index); };
    text << " @" << number(selection.selected_state) << number(selection.target_state)
         << number(selection.selected_transition);
    return text.str();
}

TEST_F(editor_test, EachFamilyHasItsControls) {
    const std::string bands =
        "white -512 -416 1024 176 (0 0 0 0.75)\nwhite -512 256 1024 160 (0 0 0 0.75)\n";
    const std::string deck_buttons =
        "[<] -352 384 32 32\n[>] -256 384 32 32\n[<] -352 352 32 32\n[>] -256 352 32 32\n"
        "[<] -352 320 32 32\n[>] -256 320 32 32\n[<] -352 288 32 32\n[>] -256 288 32 32\n";
    const std::string edit_buttons =
        "[remove] 368 368 256 32\n[remove stone] 368 336 256 32\n[add stone] 368 304 256 32\n";
    const std::string rule_button = "[change rule] 96 368 256 32\n";
    const std::string goal_buttons = "[add goal] 96 336 256 32\n[remove goal] 96 304 256 32\n";
    const std::string row = "[<] -280 -296 32 32\n[>] 280 -296 32 32\n";
    const std::string rows = row + "[<] -280 -328 32 32\n[>] 280 -328 32 32\n";
    const std::string hint = "\"Press <f1> for help\" 317.75 392 size 128 (0.5 0.5 0.5 1)\n";
    const std::string deck =
        "\"decks\" -416 384\n\"1\" -304 384\n\"colors\" -416 352\n\"4\" -304 352\n"
        "\"numbers\" -416 320\n\"4\" -304 320\n\"shapes\" -416 288\n\"4\" -304 288\n";
    const std::string win = "\"win\" -352 -296\n\"immediate\" 0 -296\n";
    const std::string expected[] = {
        bands + edit_buttons + row + hint + win,
        bands + deck_buttons + edit_buttons + rule_button + rows + hint + deck + win +
            "\"hand\" -352 -328\n\"8\" 0 -328\n",
        bands + deck_buttons + edit_buttons + rule_button + goal_buttons + rows +
            "[<] -280 -360 32 32\n[>] 280 -360 32 32\n" + hint + deck + win +
            "\"tape\" -352 -328\n\"4\" 0 -328\n\"goal\" -352 -360\n",
    };
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        open(kind);
        point_at(-100, 336);  // between the controls
        frame();
        EXPECT_EQ(screen_text(), expected[kind]);
    }
}

TEST_F(editor_test, TheCursorSnapsToTheGridOnTheBoard) {
    struct {
        f64 x, y;
        const char* disc;
    } const rows[] = {
        {100, 50, "circle 64 32 64 64 (1 1 1 0.3)\n"},
        {-17, -15.5, "circle -64 -32 64 64 (1 1 1 0.3)\n"},
        {16, 255.5, "circle 0 224 64 64 (1 1 1 0.3)\n"},
        {0, 256, ""},
        {0, -240, ""},
    };
    open(state_machine);
    for (const auto& row : rows) {
        point_at(row.x, row.y);
        frame();
        EXPECT_EQ(lines_with("circle"), row.disc) << row.x << ' ' << row.y;
    }
}

TEST_F(editor_test, ANewStateLandsUnderTheCursorOfAnyMap) {
    open(state_machine);
    camera = {40, 8, 2};
    point_at(100, 50);  // over (90, 33)
    for (f64 scale : {128.0, -3.0, 0.0}) {
        map_clear();
        game_map.origin_x = 10;
        game_map.origin_y = -200;
        game_map.scale = scale;
        key(key_1);
        world_point centre = state_centre(0);
        EXPECT_NEAR(centre.x, scale == 0 ? 10 : 96, 1e-9);
        EXPECT_NEAR(centre.y, scale == 0 ? -200 : 32, 1e-9);
        key(key_l);
        EXPECT_NEAR(state_centre(0).x - centre.x, scale == 0 ? 0 : 32, 1e-9);
    }
}

const std::string sample_states = ".0,0 *96,0 .192,0 ";
const std::string sample_rest = "1>2(0 0 0 ) 1>1(90 0 0 b) 2>0(0 0 0 c)";
const std::string sample_arcs = " 0>1(0 0 0 A) " + sample_rest;
const std::string sample = sample_states + "[0102]" + sample_arcs;

void sample_make(u16 selected, u16 target) {
    map_clear();
    map_add_state(0, 0, 0);
    map_add_state(96, 0, 1);
    map_add_state(192, 0, 0);
    map_add_transition(0, 1, 0, 0, 0, "A");
    map_add_transition(1, 2, 0, 0, 0, "");
    map_add_transition(1, 1, 90, 0, 0, "b");
    map_add_transition(2, 0, 0, 0, 0, "c");
    for (u16 state : {u16{0}, u16{1}, u16{0}, u16{2}}) {
        dyn_array_push(stones, state);
    }
    selection = {selected, target};
    frame();  // finds the transition
}

// One frame per letter: the editing keys by their own, D and S delete without and with shift, the
// buttons "remove", "remove stone" and "add stone" as -, / and +.
void letters_apply(std::string_view letters) {
    for (char letter : letters) {
        point_at(100, 50);
        if (letter == 'D' || letter == 'S') {
            letter == 'S' ? headless_key_hold(key_shift) : headless_key_release(key_shift);
            key(key_delete);
            headless_key_release(key_shift);
        } else if (letter == '-' || letter == '/' || letter == '+') {
            click(368, letter == '-' ? 368 : letter == '/' ? 336 : 304);
        } else {
            bool digit = '0' <= letter && letter <= '9';
            key(digit ? key_0 + static_cast<u32>(letter - '0')
                      : key_a + static_cast<u32>(letter - 'a'));
        }
    }
}

TEST_F(editor_test, KeysDoWhatTheSelectionAllows) {
    constexpr u16 no = no_index;
    const std::string& states = sample_states;
    const std::string& arcs = sample_arcs;
    const std::string& rest = sample_rest;
    const std::string swapped = "2>0(0 0 0 c) 1>2(0 0 0 ) 1>1(90 0 0 b)";
    struct {
        u16 selected, target;
        const char* letters;
        std::string after;
    } const rows[] = {
        {no, no, "23ijkluoDS-/+", sample + " @---"},
        {no, no, "1", states + ".96,64 [0102]" + arcs + " @3--"},
        {no, no, "11", states + ".96,64 .96,64 [0102]" + arcs + " @4--"},
        {no, no, "13", states + ".96,64 [01023]" + arcs + " @3--"},
        {0, no, "2o", sample + " @0--"},
        {0, no, "jjk", ".-64,-32 *96,0 .192,0 [0102]" + arcs + " @0--"},
        {0, no, "lii", ".32,64 *96,0 .192,0 [0102]" + arcs + " @0--"},
        {0, no, "u", "*0,0 *96,0 .192,0 [0102]" + arcs + " @0--"},
        {1, no, "o", ".0,0 .96,0 .192,0 [0102]" + arcs + " @1--"},
        {2, no, "3+", states + "[010222]" + arcs + " @2--"},
        {0, no, "S", states + "[210]" + arcs + " @0--"},
        {0, no, "//", states + "[21]" + arcs + " @0--"},
        {0, no, "S/S/", states + "[21]" + arcs + " @0--"},
        {2, no, "D", ".0,0 *96,0 [010] 0>1(0 0 0 A) 1>1(90 0 0 b) @---"},
        {0, no, "-", ".192,0 *96,0 [01] 1>1(90 0 0 b) 1>0(0 0 0 ) @---"},
        {0, no, "3D", ".192,0 *96,0 [01] 1>1(90 0 0 b) 1>0(0 0 0 ) @---"},
        {1, no, "D", ".0,0 .192,0 [010] 1>0(0 0 0 c) @---"},
        {1, no, "DD", ".0,0 .192,0 [010] 1>0(0 0 0 c) @---"},
        {0, 1, "3+/", sample + " @010"},
        {0, 1, "jji", states + "[0102] 0>1(0 -64 32 A) " + rest + " @010"},
        {0, 1, "lkk", states + "[0102] 0>1(0 32 -64 A) " + rest + " @010"},
        {0, 1, "ooou", states + "[0102] 0>1(-2 0 0 A) " + rest + " @010"},
        {0, 1, "2u", states + "[0102] 0>1(1 0 0 A) " + rest + " 0>1(0 0 0 ) @010"},
        {0, 1, "D", states + "[0102] " + swapped + " @01-"},
        {0, 1, "--S", states + "[0102] " + swapped + " @01-"},
        {0, 1, "1", states + ".96,64 [0102]" + arcs + " @3-0"},
        {1, 2, "iju", states + "[0102] 0>1(0 0 0 A) 1>2(1 0 0 ) 1>1(90 0 0 b) 2>0(0 0 0 c) @121"},
        {1, 1, "uul", states + "[0102] 0>1(0 0 0 A) 1>2(0 0 0 ) 1>1(180 32 0 b) 2>0(0 0 0 c) @112"},
        {1, 1, "o", states + "[0102] 0>1(0 0 0 A) 1>2(0 0 0 ) 1>1(45 0 0 b) 2>0(0 0 0 c) @112"},
        {0, 2, "ijkluoDS-/+3", sample + " @02-"},
        {0, 2, "2o", sample + " 0>2(-1 0 0 ) @024"},
        {3, no, "3ijkluoDS-/+", sample + " @3--"},
        {0, 9, "u", "*0,0 *96,0 .192,0 [0102]" + arcs + " @09-"},
    };
    open(pushdown_machine);
    for (const auto& row : rows) {
        for (bool dialog : {false, true}) {
            goal_editing.goal_dialog_open = dialog;  // not modal
            sample_make(row.selected, row.target);
            letters_apply(row.letters);
            EXPECT_EQ(board_text(), row.after) << row.letters;
        }
        goal_editing.goal_dialog_open = false;
        sample_make(row.selected, row.target);
        std::string before = board_text();
        screens.text_entry_open = true;  // modal
        letters_apply(row.letters);
        EXPECT_EQ(board_text(), before) << row.letters;
        screens.text_entry_open = false;
    }
}

TEST_F(editor_test, APairWithoutATransitionIsNoneAlsoInTheLargestMaps) {
    open(state_machine);
    map_add_state(0, 0, 0);
    for (i64 i = 0; i <= no_index; ++i) {
        map_add_transition(7, 7, 0, 0, 0, {});
    }
    selection = {0, 0};
    letters_apply("uD");
    EXPECT_EQ(game_map.transitions.count, i64{no_index} + 1);
    EXPECT_EQ(game_map.transitions[no_index].bend, 0);
}

TEST_F(editor_test, ASelectionDroppedInTheFrameOfARemovalIsForgottenWhole) {
    open(pushdown_machine);
    sample_make(0, 1);
    headless_key_press(key_delete);
    click(0, 200, mouse_right);
    EXPECT_EQ(board_text(), ".192,0 *96,0 [01] 1>1(90 0 0 b) 1>0(0 0 0 ) @---");
}

TEST_F(editor_test, CtrlOpensMapsAndSaves) {
    file_put("maps/first", "map 0 0 1\n* 5 5\n* 9 9\n=> 0 1 3\n");
    const catalogue_entry entries[] = {{"first", "maps/first"}, {"second", "maps/second"}};
    struct {
        u16 selected, target;
        i64 listed;
        std::string after;
    } const rows[] = {
        {0, 1, 0, sample + " @010"},                 // an empty list loads nothing
        {0, 1, 2, "*5,5 *9,9 [] 0>1(3 0 0 ) @010"},  // and is not bent by the "o"
        {1, 1, 2, "*5,5 *9,9 [] 0>1(3 0 0 ) @11-"},
        {2, 1, 2, "*5,5 *9,9 [] 0>1(3 0 0 ) @21-"},
    };
    open(pushdown_machine);
    headless_key_hold(key_ctrl);
    current_catalogue = &catalogues[pushdown_machine];
    for (const auto& row : rows) {
        current_catalogue->count = 0;
        for (i64 i = 0; i < row.listed; ++i) {
            dyn_array_push(*current_catalogue, entries[i]);
        }
        selected_entry = 1;
        sample_make(row.selected, row.target);
        key(key_o);
        EXPECT_TRUE(screens.map_list_open);
        EXPECT_EQ(selected_entry, 0);
        EXPECT_EQ(board_text(), row.after);
        screens.map_list_open = false;
    }
    goal_editing.goal_dialog_open = true;
    sample_make(0, 1);
    key(key_s);
    EXPECT_TRUE(screens.text_entry_open);
    EXPECT_TRUE(is_drawn("\"Map name\" 0 64"));
    headless_key_release(key_ctrl);
    key(key_escape);
    EXPECT_TRUE(screens.title_menu_open && !screens.editor_open);
    EXPECT_FALSE(screens.text_entry_open || goal_editing.goal_dialog_open);
    EXPECT_EQ(board_text(), sample + " @---");  // in play it would be a move
}

}  // namespace
