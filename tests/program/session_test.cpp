// Whole sessions from the title menu to the winner and out again, by scripted input alone.

#include <map>

#include "rules/cards.h"
#include "rules/screens.h"
#include "tests/program/program.h"

namespace {

// The large text over the board: whose turn it is, or who won.
std::string notice() {
    std::string line = lines_with("size 512");
    return line.substr(0, line.find('"', 1)).substr(line.empty() ? 0 : 1);
}

// Each letter is one act: "012" click states, "lr" the hand's cards, "d" the deck, "e" the turn's
// end, "_" presses space, "-" is the right button. Then the turn has the time to end.
struct step {
    const char *acts, *notice;
};

void session_play(std::initializer_list<step> steps) {
    const std::map<char, point> places = {
        {'0', {-128, 0}},   {'1', {0, 0}},      {'2', {128, 0}},   {'l', {-136, -300}},
        {'r', {-64, -300}}, {'d', {-128, 300}}, {'e', {400, 300}}, {'-', {0, 0}}};
    for (const step& s : steps) {
        for (const char* act = s.acts; *act != '\0'; ++act) {
            if (*act == '_') {
                key(key_space);
            } else {
                click(places.at(*act).x, places.at(*act).y, *act == '-' ? mouse_right : mouse_left);
            }
        }
        frames(34);
        EXPECT_EQ(notice(), s.notice) << s.acts << screen_text();
    }
}

bool shows(std::string_view text) {
    return !lines_with(text).empty();
}

// Every family has one map: three states in a row, 0 at the left, an accepting one at the right.
class session_test : public program_test {
  protected:
    session_test() {
        map_put("state", "win 1\nstone 0\nstone 1\n", "");
        map_put("pushdown", "win 0\ndeck 1 1 1 6\nhand 2\ntape 0\nstone 0\n", "*");
        map_put("turing", "win 0\ndeck 1 1 1 3\ntape 3\ngoal 4 2 2 1 0 1\nstone 0\n", "BR");
        begin();
    }

    // From the title menu to a game of the family; the clicks are on the set-up screen.
    void game_open(const std::string& family, std::initializer_list<point> clicks) {
        for (frame(); !shows("\"" + family + "\""); frame()) {
            press_button(">");
        }
        press_button("Play Game");
        frame();
        for (point place : clicks) {
            click(place.x, place.y);
        }
        press_button("OK");
        press_button("Play");
        frame();
        EXPECT_EQ(notice(), "");
        EXPECT_TRUE(shows(family.substr(1) + " machine!"));
    }

    // Escape leads back to the title menu and out.
    void expect_way_out() {
        EXPECT_TRUE(key(key_escape) && shows("Number of players"));
        EXPECT_TRUE(key(key_escape) && shows("Game Mode"));
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

TEST_F(session_test, StateMachineForTwo) {
    game_open("State", {{-160, 320}});
    session_play({{"01", "Blue's turn"}, {"_01--", ""}, {"12", "Red's turn"}});
    session_play({{"_", ""}, {"12", "Red wins!"}, {"_", ""}});
    EXPECT_TRUE(is_drawn("player -152 -24 48 48 (0.2 0.4 1 1)"));
    expect_way_out();
}

TEST_F(session_test, StateMachineAgainstTheComputer) {
    game_open("State", {{-160, 320}, {-256, 128}});
    session_play({{"01", ""}});
    EXPECT_EQ(turn.current_player, 1);
    i64 until_it_moves = 0;
    for (; turn.move_timer <= 0 && until_it_moves < 100; ++until_it_moves) {
        frame();
    }
    EXPECT_NEAR(static_cast<f64>(until_it_moves), 24, 2);  // 0.4 s
    frames(34);
    EXPECT_EQ(turn.current_player, 0);
    session_play({{"12", "Red wins!"}});
    expect_way_out();
}

TEST_F(session_test, PushdownMachineForTwo) {
    game_open("Pushdown", {{-160, 320}});
    session_play({{"01", ""}, {"l", "Blue's turn"}});  // waits for its card
    EXPECT_TRUE(shows("\"1 card!\"") && shows("\"2 cards\""));
    session_play({{"_", ""}, {"d", ""}, {"e", "Red's turn"}});
    EXPECT_TRUE(shows("\"3 cards\"")) << screen_text();
    session_play({{"_12", ""}, {"r", "Red wins!"}, {"_", ""}});
    EXPECT_EQ(players[0].hand.count, 2);
    EXPECT_EQ(discard_pile.cards.count, 0);
    expect_way_out();
}

TEST_F(session_test, TuringMachineForThree) {
    game_open("Turing", {});
    EXPECT_TRUE(shows("\"num B %at l%e%ast 2\""));
    session_play({{"01", "Blue's turn"}});
    EXPECT_EQ(pile_text(tape).substr(0, 2), "Ba");
    EXPECT_EQ(tape_head, 1);
    session_play({{"_", ""}, {"12", "Blue wins!"}, {"_", ""}});
    EXPECT_EQ(pile_text(tape).find('B'), std::string::npos);
    expect_way_out();
}

// A few frames of a game of every family.
void every_family_play() {
    for (machine_kind = 0; machine_kind < machine_kind_count; ++machine_kind) {
        screens = {};
        click(0, -336);  // "Play Game"
        click(0, -352);  // "OK"
        click(0, -336);  // "Play"
        EXPECT_FALSE(screens.map_list_open);
        click(-128, 0);
    }
    machine_kind = 0;
}

// The pictures, the texts and the maps in turn: cut, empty, filled with bytes or missing.
TEST_F(session_test, RunsOnWithAnyFilesMissingOrBroken) {
    end();
    std::string bytes;
    for (i64 i = 0; i < 500; ++i) {
        bytes += static_cast<char>(i * 7919 >> 3);
    }
    for (const char* extension : {".png", ".txt", ""}) {
        std::map<std::string, std::string> whole;
        for (const auto& file : std::filesystem::recursive_directory_iterator(".")) {
            if (file.is_regular_file() && file.path().extension() == extension) {
                std::string path = file.path().string().substr(2);
                whole[path] = file_get(path);
            }
        }
        EXPECT_GE(whole.size(), 3U);
        for (i64 damage = 0; damage < 4; ++damage) {
            for (const auto& [path, content] : whole) {
                file_put(path, damage == 0   ? content.substr(0, content.size() / 2)
                               : damage == 1 ? ""
                                             : bytes);
                if (damage == 3) {
                    std::filesystem::remove(path);
                }
            }
            std::string said = begin();
            said += output_of(every_family_play);
            end();
            EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 0) << extension << damage;
            for (const auto& [path, content] : whole) {
                EXPECT_TRUE(damage < 3 || said.find(path) != said.npos) << path;
            }
        }
        for (const auto& [path, content] : whole) {
            file_put(path, content);
        }
    }
}

}  // namespace
