// What scenarios do not show of the editor: every key that types, values at their extremes, texts
// confirmed and cancelled in any order, selections that do not fit the map.

#include <limits>
#include <sstream>

#include "editor/goal_editing.h"
#include "editor/text_entry.h"
#include "maps/catalogue.h"
#include "render/camera.h"
#include "rules/screens.h"
#include "rules/selection.h"
#include "tests/support/screen.h"

namespace {

constexpr i64 smallest = std::numeric_limits<i64>::min();
constexpr i64 largest = std::numeric_limits<i64>::max();

class editor_test : public screen_test {
  protected:
    editor_test() {
        begin();
        open(pushdown_machine);
    }

    // The editor of a family on an empty map of scale 1.
    static void open(i64 kind) {
        machine_kind = kind;
        map_clear();
        game_map.scale = 1;
        settings = {};
        selection = {};
        screens = {};
        screens.title_menu_open = false;
        screens.editor_open = true;
        point_at(0, 0);
        frame();
    }

    // Two states with a transition between them, selected.
    static void pair_make() {
        map_clear();
        map_add_state(0, 0, 0);
        map_add_state(96, 0, 0);
        map_add_transition(0, 1, 0, 0, 0, "old");
        selection = {0, 1};
        frame();
    }

    static std::string map_states_text() {
        std::ostringstream text;
        for (const map_state& s : game_map.states) {
            text << (s.accepting ? '*' : '.') << s.x << ',' << s.y << ' ';
        }
        return text.str();
    }

    static bool key(u32 code) {
        headless_key_press(code);
        return frame();
    }
};

TEST_F(editor_test, SpinnersAtTheirExtremes) {
    struct {
        i64 kind;
        i64* value;
        f64 y, down_x, up_x;
        i64 start, down, up;
    } const rows[] = {
        // clang-format off
        {pushdown_machine, &settings.deck_copies, 384, -352, -256, smallest, 0, smallest + 1},
        {pushdown_machine, &settings.deck_copies, 384, -352, -256, 9, 8, 9},
        {pushdown_machine, &settings.deck_colours, 352, -352, -256, 6, 5, 6},
        {pushdown_machine, &settings.deck_numbers, 320, -352, -256, largest, largest - 1, 6},
        {pushdown_machine, &settings.deck_shapes, 288, -352, -256, 0, 0, 1},
        {pushdown_machine, &settings.hand_size, -328, -280, 280, smallest, largest, smallest + 1},
        {turing_machine, &settings.tape_length, -328, -280, 280, largest, largest - 1, smallest},
        {turing_machine, &goal_editing.goal_cursor, -360, -280, 280, largest, largest - 1, smallest},
        {turing_machine, &goal_editing.new_goal.target, 112, -256, 256, smallest, largest,
         smallest + 1},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        open(row.kind);
        goal_editing.goal_dialog_open = row.y == 112;
        for (auto [x, expected] : {std::pair{row.down_x, row.down}, {row.up_x, row.up}}) {
            *row.value = row.start;
            click(x, row.y);
            EXPECT_EQ(*row.value, expected);
        }
        goal_editing = {};
    }
}

TEST_F(editor_test, TheWinModeAndTheGoalsGoRound) {
    for (auto [start, shown, down, up] : {std::tuple{0, "immediate", 2, 1},
                                          {2, "any accepting", 1, 3},
                                          {255, "any accepting", 1, 3},
                                          {128, "all accepting", 0, 2}}) {
        for (auto [x, after] : {std::pair{-280.0, down}, {280.0, up}}) {
            settings.win_mode = static_cast<u8>(start);
            point_at(x, -296);
            headless_mouse_press(mouse_left);
            headless_mouse_release(mouse_left);
            frame();
            EXPECT_EQ(settings.win_mode, after) << start;
        }
        settings.win_mode = static_cast<u8>(start);
        point_at(0, 0);
        frame();
        EXPECT_NE(drawn(shown), "") << start;
    }
    open(turing_machine);
    for (i64 target : {0, 1, 2}) {
        dyn_array_push(goals, {0, 0, target, {}, {}});
    }
    for (auto [cursor, reduced] : {std::pair{i64{-1}, i64{2}}, {3, 0}, {smallest, 1}, {-3, 0}}) {
        goal_editing.goal_cursor = cursor;
        frame();
        EXPECT_EQ(goal_editing.goal_cursor, reduced) << cursor;
    }
    click(96, 304);  // removes the first, keeps the others' order
    EXPECT_EQ(goals[0].target * 10 + goals[1].target, 12);
}

TEST_F(editor_test, CardsOfGoalsStepAllTheirFields) {
    open(turing_machine);
    goal_editing.goal_dialog_open = true;
    goal& g = goal_editing.new_goal;
    g.measure = 7;
    for (i64 i = 0; i < 14; ++i) {
        click(i < 7 ? -256 : 256, 80);
        u8 field = static_cast<u8>(i < 7 ? (12 - i - 1) % 6 : (i - 7) % 6);
        EXPECT_EQ(g.card_a, (card{field, field, static_cast<u8>(field + 1)})) << i;
    }
    const char* const shown[] = {"", "", "", "", "A", "a", "1", "AA", "aa", "10"};
    g.card_b = {0, 0, 0};
    for (g.measure = 0; g.measure < 10; g.measure += 1) {
        point_at(0, 0);
        frame();
        std::string letters;
        for (const char* place : {"\" 0 80", "\" 0 48"}) {
            std::string line = drawn(place);
            letters += line == "" ? "" : line.substr(1, 1);
        }
        EXPECT_EQ(letters, shown[g.measure]);
    }
}

TEST_F(editor_test, KeysTypeTheirCharacters) {
    const std::string small = "abcdefghijklmnopqrstuvwxyz";
    const std::string capital = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string plain = "0123456789/\\;',.[]-=~";
    const std::string shifted = ")!@#$%^&*(?|:'<>{}_+~";
    struct {
        std::vector<u32> held;
        bool caps_lock;
        std::string typed;
    } const rows[] = {
        {{}, false, small + plain},        {{key_shift}, false, capital + shifted},
        {{}, true, capital + plain},       {{key_shift}, true, small + shifted},
        {{key_ctrl}, false, ""},           {{key_alt}, true, ""},
        {{key_shift, key_alt}, false, ""},
    };
    pair_make();
    for (const auto& row : rows) {
        screens.map_list_open = false;  // by ctrl and "o"
        text_entry_open_rule();
        frame();
        for (u32 code : row.held) {
            headless_key_hold(code);
        }
        headless_set_caps_lock(row.caps_lock);
        // All in one frame and backwards: they are typed in their own order.
        for (u32 code = 80; code > 0; --code) {
            if (code != key_enter && code != key_backspace && code != key_escape &&
                !input_key_is_held(code) && (code < key_ctrl || code > key_alt)) {
                headless_key_press(code);
            }
        }
        frame();
        EXPECT_EQ(string_of(text_entry_text()), row.typed);
        for (u32 code : row.held) {
            headless_key_release(code);
        }
    }
    EXPECT_EQ(camera.x + camera.y, 0);
    EXPECT_EQ(map_states_text(), ".0,0 .96,0 ");
}

// One frame per letter: "r" opens the rule, "m" the name, "x" and "y" type, "+" is the button OK,
// "e" Enter, "-" Cancel, "E" Enter with Cancel, "b" backspace, "l" Escape, "n" nothing.
void acts_apply(std::string_view acts) {
    for (char act : acts) {
        u32 key = act == 'x'                 ? key_z - 2
                  : act == 'y'               ? key_z - 1
                  : act == 'm'               ? u32{key_s}
                  : act == 'e' || act == 'E' ? u32{key_enter}
                  : act == 'b'               ? u32{key_backspace}
                  : act == 'l'               ? u32{key_escape}
                                             : 0;
        headless_key_press(key);
        act == 'm' ? headless_key_hold(key_ctrl) : headless_key_release(key_ctrl);
        act == 'r'                 ? click(96, 368)
        : act == '+'               ? click(0, -144)
        : act == '-' || act == 'E' ? click(-224, -144)
                                   : click(0, 400);
        headless_key_release(key_ctrl);
    }
}

TEST_F(editor_test, AConfirmedTextServesItsOwnPurpose) {
    struct {
        const char *acts, *rule, *saved;
    } const rows[] = {
        {"rxy+n", "xy", ""},     {"rxyen", "xy", ""},    {"rxy+", "old", ""},
        {"r+n", "old", ""},      {"rx-n", "old", ""},    {"mxy+n", "old", "xy"},
        {"mxyen", "old", "xy"},  {"mxy+", "old", ""},    {"mx-n", "old", ""},
        {"rx-my+n", "old", "y"}, {"mx-ry+n", "y", ""},   {"rxmy+n", "old", "y"},
        {"mxry+n", "y", ""},     {"rxEnmn", "old", ""},  {"mxEnrn", "old", ""},
        {"mxel", "old", ""},     {"rx+nmy+n", "x", "y"}, {"rbxbbyen", "y", ""},
    };
    for (const auto& row : rows) {
        open(pushdown_machine);
        text_entry_close();
        pair_make();
        std::string said = output_of([&] { acts_apply(row.acts); });
        EXPECT_EQ(string_of(game_map.transitions[0].rule), row.rule) << row.acts;
        std::string name = row.saved;
        std::string saved = "saving map " + name + " as custom_pushdown_machines/" + name + "\n";
        EXPECT_EQ(said, name.empty() ? name : saved) << row.acts;
    }
    open(pushdown_machine);
    pair_make();
    selection = {0, no_index};
    acts_apply("nr");
    EXPECT_FALSE(screens.text_entry_open);  // no transition, no rule
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

TEST_F(editor_test, KeysActOnWhatIsSelectedAlone) {
    constexpr u16 no = no_index;
    struct {
        u16 selected, target;
        std::vector<u32> keys;
        const char* after;
    } const rows[] = {
        {no, no, {key_2, key_3, key_u, key_l, key_delete}, ".0,0 .96,0 "},
        {3, no, {key_2, key_3, key_u, key_l, key_delete}, ".0,0 .96,0 "},
        {1, 0, {key_3, key_u, key_l, key_delete}, ".0,0 .96,0 "},
        {0, 9, {key_u}, "*0,0 .96,0 "},
        {0, 1, {key_3, key_j}, ".0,0 .96,0 "},
        {1, no, {key_u, key_i, key_j}, ".0,0 *64,32 "},
    };
    for (bool dialog : {false, true}) {  // which is not modal
        for (const auto& row : rows) {
            pair_make();
            goal_editing.goal_dialog_open = dialog;
            selection = {row.selected, row.target};
            frame();
            for (u32 code : row.keys) {
                key(code);
            }
            EXPECT_EQ(map_states_text(), row.after);
            EXPECT_EQ(stones.count, 0);
        }
    }
    game_map.transitions.count = 0;
    for (i64 i = 0; i <= no_index; ++i) {
        map_add_transition(7, 7, 0, 0, 0, {});
    }
    selection = {0, 0};
    key(key_delete);  // the pair has none, also where an index could name the last
    EXPECT_EQ(game_map.transitions.count, i64{no_index} + 1);
}

TEST_F(editor_test, TheListLoadsItsFirstMapAndKeepsTheSelection) {
    file_put("maps/first", "map 0 0 1\n* 5 5\n* 9 9\n=> 0 1 3\n");
    current_catalogue = &catalogues[pushdown_machine];
    for (i64 listed : {0, 2}) {
        for (; current_catalogue->count < listed;) {
            dyn_array_push(*current_catalogue, {"first", "maps/first"});
        }
        pair_make();
        selected_entry = 1;
        headless_key_hold(key_ctrl);
        key(key_o);  // does not bend the transition
        headless_key_release(key_ctrl);
        EXPECT_TRUE(screens.map_list_open);
        EXPECT_EQ(selected_entry, 0);
        EXPECT_EQ(map_states_text(), listed == 0 ? ".0,0 .96,0 " : "*5,5 *9,9 ");
        EXPECT_EQ(game_map.transitions[0].bend, listed == 0 ? 0 : 3);
        EXPECT_EQ(selection.selected_state + 10 * selection.target_state, 10);
        screens.map_list_open = false;
    }
}

}  // namespace
