// Whole sessions from the title menu to the winner and out again, by scripted input alone.

#include "rules/cards.h"
#include "rules/screens.h"
#include "tests/shell/program.h"

namespace {

// Every family has one map: three states in a row, 0 at the left, an accepting one at the right.
class session_test : public program_test {
  protected:
    session_test() {
        map_put("state", "win 1\nstone 0\nstone 1\n", "");
        map_put("pushdown", "win 0\ndeck 1 1 1 6\nhand 2\ntape 0\nstone 0\n", "*");
        map_put("turing", "win 0\ndeck 1 1 1 3\ntape 3\ngoal 4 2 2 1 0 1\nstone 0\n", "BR");
        begin();
    }

    // From the title menu to a game of the family, with the players that stand in the set-up.
    void game_open(std::string_view family) {
        while (lines_with("\"" + std::string(family) + "\"").empty()) {
            press_button(">");
            frame();
        }
        press_button("Play Game");
        frame();
    }

    void game_play() {
        press_button("OK");
        press_button("Play");
        frame();
    }

    // Escape leads back to the title menu and out.
    void expect_way_out() {
        EXPECT_TRUE(key(key_escape));
        EXPECT_FALSE(lines_with("Number of players").empty());
        EXPECT_TRUE(key(key_escape));
        EXPECT_FALSE(lines_with("Game Mode").empty());
        EXPECT_FALSE(key(key_escape));
    }

  private:
    void map_put(const std::string& family, const std::string& settings_lines,
                 const std::string& rule) {
        file_put("resources/" + family + "_maps.txt", "only maps/" + family + "\n");
        file_put("maps/" + family, "map 0 0 128\n" + settings_lines +
                                       ". -1 0\n. 0 0\n* 1 0\n=> 0 1 0 0 0 \"" + rule +
                                       "\"\n=> 1 2 0 0 0 \"" + rule + "\"\n");
    }
};

void state_click(i64 state) {
    click(128.0 * static_cast<f64>(state - 1), 0);
}

// Selects the move and waits until its turn has ended.
void move_make(i64 from, i64 to) {
    state_click(from);
    state_click(to);
    frames(34);
}

bool shows(std::string_view text) {
    return !lines_with(text).empty();
}

TEST_F(session_test, StateMachineForTwo) {
    game_open("State");
    click(-160, 320);  // two players
    game_play();
    EXPECT_TRUE(shows("state machine!") && !shows("turn\""));
    move_make(0, 1);
    EXPECT_TRUE(shows("\"Blue's turn\"")) << screen_text();
    key(key_space);
    EXPECT_FALSE(shows("'s turn"));
    move_make(0, 1);  // no stone there
    EXPECT_FALSE(shows("'s turn"));
    click(0, 0, mouse_right);
    click(0, 0, mouse_right);
    move_make(1, 2);
    key(key_space);
    EXPECT_FALSE(shows("wins!"));
    move_make(1, 2);
    EXPECT_TRUE(shows("\"Red wins!\"")) << screen_text();
    key(key_space);
    EXPECT_FALSE(shows("wins!"));
    EXPECT_TRUE(is_drawn("player -152 -24 48 48 (0.2 0.4 1 1)"));
    expect_way_out();
}

TEST_F(session_test, StateMachineAgainstTheComputer) {
    game_open("State");
    click(-160, 320);
    click(-256, 128);  // the second one is a computer
    game_play();
    move_make(0, 1);
    EXPECT_EQ(turn.current_player, 1);
    EXPECT_FALSE(shows("'s turn"));
    i64 until_it_moves = 0;
    for (; turn.move_timer <= 0 && until_it_moves < 100; ++until_it_moves) {
        frame();
    }
    EXPECT_NEAR(static_cast<f64>(until_it_moves), 24, 2);  // 0.4 s
    frames(34);
    EXPECT_EQ(turn.current_player, 0);
    EXPECT_FALSE(shows("'s turn"));
    move_make(1, 2);
    EXPECT_TRUE(shows("\"Red wins!\"")) << screen_text();
    expect_way_out();
}

TEST_F(session_test, PushdownMachineForTwo) {
    game_open("Pushdown");
    click(-160, 320);
    game_play();
    EXPECT_TRUE(shows("pushdown machine!"));
    move_make(0, 1);
    EXPECT_EQ(turn.current_player, 0);  // waits for its card
    click(-136, -300);
    frames(34);
    EXPECT_EQ(turn.current_player, 1);
    EXPECT_TRUE(shows("\"Blue's turn\"") && shows("\"1 card!\"") && shows("\"2 cards\""));
    key(key_space);
    click(-128, 300);  // a card from the deck
    frame();
    EXPECT_TRUE(shows("next_turn2"));
    click(400, 300);
    frame();
    EXPECT_TRUE(shows("\"Red's turn\"") && shows("\"3 cards\"")) << screen_text();
    key(key_space);
    state_click(1);
    state_click(2);
    click(-64, -300);
    frames(34);
    EXPECT_TRUE(shows("\"Red wins!\"")) << screen_text();
    key(key_space);
    EXPECT_EQ(players[0].hand.count, 2);
    EXPECT_EQ(discard_pile.cards.count, 0);
    expect_way_out();
}

TEST_F(session_test, TuringMachineForThree) {
    game_open("Turing");
    game_play();
    EXPECT_TRUE(shows("turing machine!") && shows("\"num B %at l%e%ast 2\""));
    move_make(0, 1);
    EXPECT_EQ(pile_text(tape).substr(0, 2), "Ba");
    EXPECT_EQ(tape_head, 1);
    EXPECT_TRUE(shows("\"Blue's turn\"") && !shows(" card"));
    key(key_space);
    move_make(1, 2);
    EXPECT_TRUE(shows("\"Blue wins!\"")) << screen_text();
    key(key_space);
    EXPECT_FALSE(shows("wins!"));
    EXPECT_EQ(pile_text(tape).find('B'), std::string::npos);
    expect_way_out();
}

// A few frames of a game of every family, from the title menu on.
void every_family_play() {
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        screens = {};
        machine_kind = kind;
        click(0, -336);  // "Play Game"
        click(0, -352);  // "OK"
        click(0, -336);  // "Play"
        EXPECT_FALSE(screens.map_list_open);
        state_click(0);
    }
}

std::vector<std::string> files_read() {
    std::vector<std::string> paths;
    for (const char* place : {"resources", "maps"}) {
        for (const auto& file : std::filesystem::directory_iterator(place)) {
            paths.push_back(file.path().string());
        }
    }
    return paths;
}

TEST_F(session_test, RunsOnWithAnyFileMissingOrBroken) {
    end();
    std::string binary;
    for (i64 i = 0; i < 500; ++i) {
        binary += static_cast<char>(i * 7919 >> 3);
    }
    ASSERT_EQ(files_read().size(), 19U + 2 + 3 + 3);
    for (const std::string& path : files_read()) {
        std::string whole = file_get(path);
        for (const std::string& content : {whole.substr(0, whole.size() / 2), {}, binary}) {
            file_put(path, content);
            begin();
            output_of(every_family_play);
            end();
        }
        std::filesystem::remove(path);
        std::string said = begin();
        said += output_of(every_family_play);
        EXPECT_NE(said.find(path), std::string::npos) << said;
        end();
        EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 0) << path;
        file_put(path, whole);
    }
}

}  // namespace
