#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "maps/reader.h"
#include "tests/support/screen.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"
#include "tools/map_play.h"
#include "tools/play_check.h"

namespace {

class tools_test : public screen_test {
  protected:
    tools_test() {
        begin();
        frame();  // builds the camera's matrices
    }
};

// What breaks play stands behind a "!".
std::string joined(const remarks& found) {
    std::string text;
    for (const auto* group : {&found.breaks_play, &found.doubtful, &found.looks, &found.labels}) {
        for (const std::string& words : *group) {
            text += (text == "" ? "" : "; ") + ((group == &found.breaks_play ? "!" : "") + words);
        }
    }
    return text;
}

// A case is a check, a family and a map with ';' for line feeds. "cyclic" is the map's check where
// a cycle is meant.
TEST_F(tools_test, WhatIsDoubtfulIsNamed) {
    golden_check("tools/checks", [](const std::string& given) {
        std::istringstream in(replaced(given, ';', '\n'));
        std::string check, family, text;
        in >> check >> family;
        std::getline(in >> std::ws, text, '\0');
        machine_kind = family_named(str_of(family));
        settings = {};
        remarks found;
        output_of([&] {
            map_read(str_of(text));
            if (check == "lines") {
                lines_check(str_of(text), static_cast<machine_kind_value>(machine_kind), found);
            } else if (check == "layout") {
                layout_check(found);
            } else if (check == "play") {
                play_check(str_of(text), 3, found);
            } else {
                map_check(check == "cyclic", found);
            }
        });
        return joined(found);
    });
}

// Wins of the first seat, turns of the first game, moves, passes, draws and unfinished games.
std::string played(const play_record& record) {
    return (std::ostringstream() << record.wins[0] << ' ' << record.turns[0] << ' ' << record.moves
                                 << ' ' << record.passes << ' ' << record.draws << ' '
                                 << record.unfinished)
        .str();
}

TEST_F(tools_test, GamesAreCounted) {
    map_make(state_machine, "...*", {{0, 1}, {1, 2}, {2, 3}}, {0});
    settings.win_mode = win_all_accepting;
    EXPECT_EQ(played(map_play({strength_hard, strength_easy}, 5, 1)), "5 3 15 0 0 0");
    map_make(pushdown_machine, ".", {{0, 0, "A"}}, {0});
    settings = {1, 1, 1, 2, 0, 0, win_immediate};  // two cards, none dealt
    EXPECT_EQ(played(map_play({strength_hard}, 1, 1)), "1 1 1 0 1 0");
    map_make(pushdown_machine, ".", {{0, 0, "B"}}, {0});
    const std::string limit = std::to_string(turn_limit);
    EXPECT_EQ(played(map_play({strength_hard}, 1, 1)),
              "0 " + limit + " 0 " + limit + " " + limit + " 1");
    map_make(turing_machine, ".", {{0, 0, ""}}, {0});
    settings.tape_length = 1;  // nobody wins
    EXPECT_EQ(played(map_play({strength_hard}, 1, 1)), "0 " + limit + " 0 " + limit + " 0 1");
    EXPECT_EQ(median({}) + median({7}) + median({9, 1}) + median({9, 1, 5}), 0 + 7 + 1 + 5);
}

TEST_F(tools_test, AHumanIsStuckWhereTheBoardOffersNothing) {
    map_make(pushdown_machine, ".", {{0, 0, "B"}, {0, 0, "A"}}, {0});
    settings = {1, 1, 1, 3, 1, 0, win_immediate};  // the first transition hides the second one
    play_record record = map_play({human_seat, human_seat}, 4, 1);
    EXPECT_EQ(record.stuck, 4);
    EXPECT_EQ(record.unfinished + record.moves + record.at_once, 0);
    EXPECT_EQ(record.draws, 4);  // with the last card the deck is empty: the turn cannot end

    map_make(pushdown_machine, ".", {{0, 0, "A"}}, {0});
    settings.deck_copies = 9;
    record = map_play({human_seat}, 40, 1);
    EXPECT_EQ(record.stuck + record.unfinished, 0);
    EXPECT_GT(record.draws, 0);
    EXPECT_THAT(record.wins, testing::ElementsAre(40));
    EXPECT_THAT(record.at_once, testing::AllOf(testing::Gt(20), testing::Lt(40)));
}

}  // namespace
