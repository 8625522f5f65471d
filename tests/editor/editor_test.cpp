// What scenarios do not show of the editor: every key that types, values at their extremes, texts
// confirmed and cancelled in any order, selections that do not fit the map.

#include <limits>
#include <map>
#include <sstream>

#include "editor/goal_editing.h"
#include "editor/text_entry.h"
#include "maps/catalogue.h"
#include "render/camera.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tests/support/screen.h"

namespace {

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

TEST_F(editor_test, ValuesOutOfTheirRangeGoRound) {
    for (auto [before, after] : {std::pair{2, 1}, {255, 1}, {128, 0}}) {
        settings.win_mode = static_cast<u8>(before);
        click(-280, -296);
        EXPECT_EQ(settings.win_mode, after) << before;
    }
    open(turing_machine);
    for (i64 left = 3; left > 0; --left) {
        dyn_array_push(goals, {});
    }
    for (auto [cursor, reduced] :
         {std::pair{i64{-1}, 2}, {3, 0}, {std::numeric_limits<i64>::min(), 1}}) {
        goal_editing.goal_cursor = cursor;
        frame();
        EXPECT_EQ(goal_editing.goal_cursor, reduced) << cursor;
    }
}

// A case are the modifiers: "s" shift, "c" ctrl, "a" alt, "l" caps lock. The answer is what all
// keys type in the order of their codes.
TEST_F(editor_test, KeysTypeTheirCharacters) {
    const std::map<char, u32> modifiers = {{'s', key_shift}, {'c', key_ctrl}, {'a', key_alt}};
    pair_make();
    golden_check("editor/typed", [&](const std::string& given) {
        screens.map_list_open = false;  // by ctrl and "o"
        text_entry_open_rule();
        frame();
        headless_set_caps_lock(given.ends_with('l'));
        for (auto [letter, code] : modifiers) {
            given.find(letter) != given.npos ? headless_key_hold(code) : headless_key_release(code);
        }
        for (u32 code = 1; code <= 80; ++code) {
            if (code != key_enter && code != key_backspace && code != key_escape &&
                (code < key_ctrl || code > key_alt)) {
                key(code);
            }
        }
        return string_of(text_entry_text());
    });
    EXPECT_EQ(camera.x + camera.y, 0);
    EXPECT_EQ(map_states_text(), ".0,0 .96,0 ");
}

// One frame per letter: "r" opens the rule, "s" with ctrl the name, "x" and "y" type, "+" is the
// button OK, "-" Cancel, "e" Enter, "b" backspace, "l" Escape, "n" nothing.
void acts_apply(std::string_view acts) {
    const std::map<char, u32> keys = {{'s', key_s},     {'x', key_z - 2},     {'y', key_z - 1},
                                      {'e', key_enter}, {'b', key_backspace}, {'l', key_escape}};
    const std::map<char, point> buttons = {{'r', {96, 368}}, {'+', {0, -144}}, {'-', {-224, -144}}};
    for (char act : acts) {
        if (buttons.contains(act)) {
            click(buttons.at(act).x, buttons.at(act).y);
            continue;
        }
        act == 's' ? headless_key_hold(key_ctrl) : headless_key_release(key_ctrl);
        headless_key_press(keys.contains(act) ? keys.at(act) : 0);
        frame();
        headless_key_release(key_ctrl);
    }
}

TEST_F(editor_test, AConfirmedTextServesItsOwnPurpose) {
    struct {
        const char *acts, *rule, *saved;
    } const rows[] = {
        // clang-format off
        {"rxy+n", "xy", ""}, {"rxyen", "xy", ""}, {"rxy+", "old", ""}, {"r+n", "old", ""},
        {"rx-n", "old", ""}, {"sxy+n", "old", "xy"}, {"sxyen", "old", "xy"}, {"sxy+", "old", ""},
        {"sx-n", "old", ""}, {"rx-sy+n", "old", "y"}, {"sx-ry+n", "y", ""}, {"rxsy+n", "old", "y"},
        {"sxry+n", "y", ""}, {"sxel", "old", ""},
        {"rx+nsy+n", "x", "y"}, {"rbxbbyen", "y", ""},
        // Opened anew, the dialog has an empty text, which the waiting confirmation then takes.
        {"rx+ry+n", "old", ""},
        {"sx+ry+n", "y", "x"},  // the name is taken before the rule's dialog opens
        // clang-format on
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

TEST_F(editor_test, ShiftNShowsTheNimbersUnlessItIsTyped) {
    pair_make();
    headless_key_hold(key_shift);
    key(key_n);
    EXPECT_TRUE(turn.show_nimbers);
    text_entry_open_rule();
    key(key_n);
    EXPECT_TRUE(turn.show_nimbers);
    EXPECT_EQ(string_of(text_entry_text()), "N");
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
        point centre = state_centre(0);
        EXPECT_NEAR(centre.x, scale == 0 ? 10 : 96, 1e-9);
        EXPECT_NEAR(centre.y, scale == 0 ? -200 : 32, 1e-9);
        key(key_l);
        EXPECT_NEAR(state_centre(0).x - centre.x, scale == 0 ? 0 : 32, 1e-9);
    }
}

}  // namespace
