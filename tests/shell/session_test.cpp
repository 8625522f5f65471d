// Whole sessions from the title menu to the winner and out again, by scripted input alone.

#include <map>

#include "rules/cards.h"
#include "rules/screens.h"
#include "tests/shell/program.h"

namespace {

// The large text over the board: whose turn it is, or who won.
std::string notice() {
    std::string line = lines_with("size 512");
    return line.substr(0, line.find('"', 1)).substr(line.empty() ? 0 : 1);
}

// "01" moves from state 0 to state 1 and waits for the turn's end; "_" is the space key, "-" the
// right mouse button.
struct step {
    const char *act, *notice;
};

void session_play(std::initializer_list<step> steps) {
    for (const step& s : steps) {
        if (*s.act == '_') {
            key(key_space);
        } else if (*s.act == '-') {
            click(0, 0, mouse_right);
        } else {
            click(128.0 * (s.act[0] - '1'), 0);
            click(128.0 * (s.act[1] - '1'), 0);
            frames(34);
        }
        EXPECT_EQ(notice(), s.notice) << s.act << screen_text();
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
        EXPECT_TRUE(
            shows(static_cast<char>(std::tolower(family[0])) + family.substr(1) + " machine!"));
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
    session_play({{"01", "Blue's turn"},
                  {"_", ""},
                  {"01", ""},
                  {"-", ""},
                  {"-", ""},
                  {"12", "Red's turn"},
                  {"_", ""},
                  {"12", "Red wins!"},
                  {"_", ""}});
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
    session_play({{"01", ""}});  // waits for its card
    click(-136, -300);
    frames(34);
    EXPECT_TRUE(shows("\"1 card!\"") && shows("\"2 cards\""));
    session_play({{"_", ""}});
    click(-128, 300);  // a card from the deck
    frame();
    click(400, 300);
    frame();
    EXPECT_EQ(notice(), "Red's turn");
    EXPECT_TRUE(shows("\"3 cards\"")) << screen_text();
    session_play({{"_", ""}, {"12", ""}});
    click(-64, -300);
    frames(34);
    session_play({{"_", ""}});
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

// A start and a few frames of a game of every family; returns what was written.
std::string every_family_play() {
    return output_of([] {
        for (i64 kind = 0; kind < machine_kind_count; ++kind) {
            screens = {};
            machine_kind = kind;
            click(0, -336);  // "Play Game"
            click(0, -352);  // "OK"
            click(0, -336);  // "Play"
            EXPECT_FALSE(screens.map_list_open);
            click(-128, 0);
        }
    });
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
        for (const char* place : {"resources", "maps"}) {
            for (const auto& file : std::filesystem::directory_iterator(place)) {
                if (file.path().extension() == extension) {
                    whole[file.path().string()] = file_get(file.path().string());
                }
            }
        }
        EXPECT_GE(whole.size(), 3U);
        for (i64 damage = 0; damage < 4; ++damage) {
            for (const auto& [path, content] : whole) {
                const std::string damaged[] = {content.substr(0, content.size() / 2), "", bytes};
                damage < 3 ? file_put(path, damaged[damage])
                           : static_cast<void>(std::filesystem::remove(path));
            }
            std::string said = begin();
            said += every_family_play();
            end();
            EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 0) << extension << damage;
            for (const auto& [path, content] : whole) {
                EXPECT_TRUE(damage < 3 || path == "resources/font.png" ||
                            said.find(path) != said.npos)
                    << path;
            }
        }
        for (const auto& [path, content] : whole) {
            file_put(path, content);
        }
    }
}

}  // namespace
