#include <limits>

#include "editor/goal_editing.h"
#include "editor/text_entry.h"
#include "maps/catalogue.h"
#include "rules/screens.h"
#include "rules/selection.h"
#include "tests/editor/editor_screen.h"

namespace {

constexpr i64 smallest = std::numeric_limits<i64>::min();
constexpr i64 largest = std::numeric_limits<i64>::max();

using editor_spinner_test = editor_screen;

// What a value becomes when the spinner's buttons at (x1, y) and (x2, y) are clicked.
template <typename value>
void expect_steps(value& v, i64 start, f64 y, f64 down_x, i64 down, f64 up_x, i64 up) {
    v = static_cast<value>(start);
    click(down_x, y);
    EXPECT_EQ(static_cast<i64>(v), down) << "down from " << start;
    v = static_cast<value>(start);
    click(up_x, y);
    EXPECT_EQ(static_cast<i64>(v), up) << "up from " << start;
}

TEST_F(editor_spinner_test, DeckSettingsStopAtTheirLimits) {
    struct {
        i64 start, down, up_to_6, up_to_9;
    } const rows[] = {
        {smallest, 0, smallest + 1, smallest + 1},
        {-1, 0, 0, 0},
        {0, 0, 1, 1},
        {6, 5, 6, 7},
        {9, 8, 6, 9},
        {largest, largest - 1, 6, 9},
    };
    open(pushdown_machine);
    for (const auto& row : rows) {
        expect_steps(settings.deck_copies, row.start, 384, -352, row.down, -256, row.up_to_9);
        expect_steps(settings.deck_colours, row.start, 352, -352, row.down, -256, row.up_to_6);
        expect_steps(settings.deck_numbers, row.start, 320, -352, row.down, -256, row.up_to_6);
        expect_steps(settings.deck_shapes, row.start, 288, -352, row.down, -256, row.up_to_6);
    }
}

TEST_F(editor_spinner_test, OtherSettingsHaveNoLimits) {
    for (i64 start : {smallest, i64{0}, largest}) {
        i64 down = start == smallest ? largest : start - 1;
        i64 up = start == largest ? smallest : start + 1;
        open(pushdown_machine);
        expect_steps(settings.hand_size, start, -328, -280, down, 280, up);
        open(turing_machine);
        expect_steps(settings.tape_length, start, -328, -280, down, 280, up);
        expect_steps(goal_editing.goal_cursor, start, -360, -280, down, 280, up);
        goal_editing.goal_dialog_open = true;
        expect_steps(goal_editing.new_goal.target, start, 112, -256, down, 256, up);
        EXPECT_TRUE(is_drawn("\"" + std::to_string(up) + "\" 0 112"));
    }
}

TEST_F(editor_spinner_test, TheWinModeGoesRound) {
    struct {
        i64 start;
        const char* shown;
        i64 after, down, up;
    } const rows[] = {
        {0, "immediate", 0, 2, 1},       {1, "all accepting", 1, 0, 2},
        {2, "any accepting", 2, 1, 3},   {5, "any accepting", 2, 1, 3},
        {255, "any accepting", 2, 1, 3}, {128, "all accepting", 1, 0, 2},
    };
    open(state_machine);
    for (const auto& row : rows) {
        settings.win_mode = static_cast<u8>(row.start);
        frame();
        EXPECT_TRUE(is_drawn("\"" + std::string(row.shown) + "\" 0 -296"));
        EXPECT_EQ(settings.win_mode, row.after);
        expect_steps(settings.win_mode, row.start, -296, -280, row.down, 280, row.up);
    }
}

class editor_text_test : public editor_screen {
  protected:
    // A pair with a transition, selected.
    editor_text_test() {
        open(pushdown_machine);
        map_add_state(0, 0, 0);
        map_add_state(96, 0, 0);
        map_add_transition(0, 1, 0, 0, 0, "old");
        selection = {0, 1};
        frame();
    }

    static std::string rule() { return string_of(game_map.transitions[0].rule); }
    static std::string typed() { return string_of(text_entry_text()); }
};

TEST_F(editor_text_test, KeysTypeTheirCharacters) {
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
        EXPECT_EQ(typed(), row.typed);
        for (u32 code : row.held) {
            headless_key_release(code);
        }
    }
}

TEST_F(editor_text_test, BackspaceAndLongTexts) {
    text_entry_open_map_name();
    key(key_backspace);
    key(key_a);
    key(key_backspace);
    key(key_backspace);
    key(key_n);
    EXPECT_EQ(typed(), "n");
    EXPECT_TRUE(is_drawn("\"n\" 0 -64"));
    headless_record(false);
    std::string expected = typed();
    for (int i = 0; i < 100; ++i) {
        for (u32 letter = key_a; letter <= key_z; ++letter) {
            headless_key_press(letter);
        }
        key(key_backspace);
        expected += "abcdefghijklmnopqrstuvwxy";
    }
    EXPECT_EQ(typed(), expected);
}

// One frame per letter: what is pressed and clicked in it.
constexpr struct {
    char letter;
    u32 key, held;
    point button;
} steps[] = {
    {'r', 0, 0, {96, 368}},             // "change rule"
    {'m', key_s, key_ctrl, {0, 400}},   // ctrl+s
    {'x', key_z - 2, 0, {0, 400}},      // types
    {'y', key_z - 1, 0, {0, 400}},      // types
    {'+', 0, 0, {0, -144}},             // "OK"
    {'e', key_enter, 0, {0, 400}},      // Enter
    {'-', 0, 0, {-224, -144}},          // "Cancel"
    {'E', key_enter, 0, {-224, -144}},  // Enter and "Cancel"
    {'l', key_escape, 0, {0, 400}},     // leaves the editor
    {'n', 0, 0, {0, 400}},              // nothing
};

void steps_apply(std::string_view letters) {
    for (char letter : letters) {
        for (const auto& step : steps) {
            if (step.letter == letter) {
                headless_key_press(step.key);
                headless_key_hold(step.held);
                click(step.button.x, step.button.y);
                headless_key_release(step.held);
            }
        }
    }
}

TEST_F(editor_text_test, AConfirmedTextServesItsOwnPurpose) {
    struct {
        const char *steps, *rule, *saved;
    } const rows[] = {
        {"rxy+n", "xy", ""},
        {"rxyen", "xy", ""},
        {"rxy+", "old", ""},
        {"r+n", "old", ""},
        {"rx-n", "old", ""},
        {"mxy+n", "old", "xy"},
        {"mxyen", "old", "xy"},
        {"mxy+", "old", ""},
        {"mx-n", "old", ""},
        {"rx-my+n", "old", "y"},
        {"mx-ry+n", "y", ""},
        {"rxmy+n", "old", "y"},
        {"mxry+n", "y", ""},
        {"rxEnmn", "old", ""},
        {"mxEnrn", "old", ""},
        {"rx+mn", "old", ""},
        {"rxrye"
         "n",
         "y", ""},
        {"mxel", "old", ""},
        {"rxl", "old", ""},
        {"rx+nmy+n", "x", "y"},
        {"rx+rn", "old", ""},
    };
    for (const auto& row : rows) {
        game_map.transitions[0].rule = "old";
        selection = {0, 1};
        screens.title_menu_open = false;
        screens.editor_open = true;
        text_entry_close();
        frame();
        std::string output = output_of([&] { steps_apply(row.steps); });
        EXPECT_EQ(rule(), row.rule) << row.steps;
        std::string name = row.saved;
        EXPECT_EQ(output, name.empty() ? name
                                       : "saving map " + name + " as custom_pushdown_machines/" +
                                             name + "\n")
            << row.steps;
    }
}

TEST_F(editor_text_test, TheDialogIsDrawnOverTheEditor) {
    click(96, 368);
    key(key_n);
    EXPECT_TRUE(is_drawn("white -320 -240 640 480 (0 0 0 0.8)"));
    EXPECT_TRUE(is_drawn("\"Type a rule\" 0 64"));
    EXPECT_TRUE(is_drawn("\"n\" 0 -64"));
    EXPECT_TRUE(is_drawn("[OK] 0 -144 128 64"));
    EXPECT_TRUE(is_drawn("[Cancel] -224 -144 128 64"));
    EXPECT_EQ(lines_with("\"win\""), "");  // the bottom rows rest
    click(96, 0);
    click(96, 0, mouse_right);
    EXPECT_EQ(selection.target_state, 1);
    click(-352, 384);
    EXPECT_EQ(settings.deck_copies, 0);  // the spinners do not
    for (const char* closing : {"-", "r+", "re"}) {
        steps_apply(closing);
        EXPECT_FALSE(screens.text_entry_open) << closing;
    }
    selection = {0, no_index};
    steps_apply("nr");
    EXPECT_FALSE(screens.text_entry_open);  // no transition, no rule
}

using editor_goal_test = editor_screen;

TEST_F(editor_goal_test, TheDialogStepsThroughAllGoals) {
    struct {
        const char *measure, *cards;
    } const rows[] = {
        {"sum", ""},
        {"# distinct colors", ""},
        {"# distinct shapes", ""},
        {"# distinct numbers", ""},
        {"# cards of color", "\"A\" 0 80 (1 0 0 1)\n"},
        {"# cards of shape", "\"a\" 0 80\n"},
        {"# cards of number", "\"0\" 0 80\n"},
        {"# cards of color a or b", "\"A\" 0 80 (1 0 0 1)\n\"A\" 0 48 (1 0 0 1)\n"},
        {"# cards of shape a or b", "\"a\" 0 80\n\"a\" 0 48\n"},
        {"# cards of number a or b", "\"0\" 0 80\n\"0\" 0 48\n"},
        {"sum", ""},
    };
    open(turing_machine);
    click(96, 336);
    EXPECT_TRUE(is_drawn("white -320 -240 640 480 (0 0 0 0.8)"));
    for (const auto& row : rows) {
        auto drawn = screen_lines([](std::string_view line) {
            return line.find(" 0 80") != line.npos || line.find(" 0 48") != line.npos;
        });
        EXPECT_TRUE(is_drawn("\"" + std::string(row.measure) + "\" 0 176")) << screen_text();
        EXPECT_EQ(drawn, row.cards) << row.measure;
        bool has_a = row.cards[0] != '\0';
        EXPECT_EQ(is_drawn("[<] -256 80 32 32") && is_drawn("[>] 256 80 32 32"), has_a);
        click(256, 176);
    }
    click(-256, 176);
    click(-256, 176);
    EXPECT_TRUE(is_drawn("\"# cards of number a or b\" 0 176"));
    for (const char* name : {"exactly", "at most", "at least", "exactly"}) {
        EXPECT_TRUE(is_drawn("\"" + std::string(name) + "\" 0 144"));
        click(256, 144);
    }
}

TEST_F(editor_goal_test, CardsStepAllTheirFields) {
    const card downwards[] = {{5, 5, 6}, {4, 4, 5}, {3, 3, 4}, {2, 2, 3},
                              {1, 1, 2}, {0, 0, 1}, {5, 5, 6}};
    const card upwards[] = {{0, 0, 1}, {1, 1, 2}, {2, 2, 3}, {3, 3, 4},
                            {4, 4, 5}, {5, 5, 6}, {0, 0, 1}};
    open(turing_machine);
    goal_editing.goal_dialog_open = true;
    goal_editing.new_goal.measure = 7;
    for (i64 i = 0; i < 14; ++i) {
        click(i < 7 ? -256 : 256, 80);
        EXPECT_EQ(goal_editing.new_goal.card_a, i < 7 ? downwards[i] : upwards[i - 7]);
    }
    click(256, 48);
    EXPECT_EQ(goal_editing.new_goal.card_b, (card{1, 1, 1}));
}

TEST_F(editor_goal_test, GoalsAreAddedBrowsedAndRemoved) {
    open(turing_machine);
    for (i64 target = 0; target < 3; ++target) {
        click(96, 336);
        goal_editing.new_goal.target = target;
        click(0, -144);
        EXPECT_FALSE(goal_editing.goal_dialog_open);
    }
    click(96, 336);
    EXPECT_TRUE(is_drawn("\"2\" 0 112"));  // kept from the goal before
    click(-224, -144);
    ASSERT_EQ(goals.count, 3);
    struct {
        i64 cursor, shown;
    } const rows[] = {{-1, 2}, {3, 0}, {-5, 1}, {smallest, 1}, {largest, 1}};
    for (const auto& row : rows) {
        goal_editing.goal_cursor = row.cursor;
        frame();
        EXPECT_EQ(goal_editing.goal_cursor, row.shown) << row.cursor;
        EXPECT_EQ(lines_with(" 0 -360"),
                  "\"sum %ex%a%ctly " + std::to_string(row.shown) + "\" 0 -360\n");
    }
    goal_editing.goal_cursor = -3;
    click(96, 304);
    ASSERT_EQ(goals.count, 2);
    EXPECT_EQ(goals[0].target, 1);
    EXPECT_EQ(goals[1].target, 2);
    EXPECT_EQ(goal_editing.goal_cursor, 0);
    for (int i = 0; i < 3; ++i) {
        click(96, 304);
    }
    EXPECT_EQ(goals.count, 0);
}

}  // namespace
