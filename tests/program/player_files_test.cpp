#include "program/player_files.h"

#include "making/days.h"
#include "maps/family.h"
#include "maps/file_text.h"
#include "platform/file.h"
#include "program/daily_maps.h"
#include "tests/support/game.h"

namespace {

// The data that ships lies in "data", the game is started in "start", the user's files go to
// "home".
class player_files_test : public game_test {
  protected:
    player_files_test() : folder(std::filesystem::current_path().string()) {
        setenv("XDG_DATA_HOME", (folder + "/home").c_str(), 1);
        file_put("data/resources/font_info.txt", "font");
        ship("a maps/a\nb maps/b\nc maps/c\n");
        file_put("start/other", "");
        std::filesystem::current_path("start");
    }
    ~player_files_test() override {
        file_set_fallback("");
        unsetenv("XDG_DATA_HOME");
    }

    void ship(std::string_view catalogue) const {
        file_put(folder + "/data/resources/state_maps.txt", catalogue);
    }

    // Starts the game in `from`; returns where it plays, as seen from the test's folder.
    std::string enter(std::string_view from, std::string_view directory = "", bool restore = false,
                      i64 day = no_day) {
        std::filesystem::current_path(folder + "/" + std::string(from));
        file_set_fallback("");
        std::string data = folder + "/data";
        if (!player_files_enter(str_of(directory), str_of(data), restore, day)) {
            return "refused";
        }
        return std::filesystem::current_path().lexically_relative(folder);
    }

    const std::string folder;
};

TEST_F(player_files_test, only_a_directory_with_the_games_own_resources_is_played_in_as_it_is) {
    file_put(folder + "/whole/resources/font_info.txt", "own");
    EXPECT_EQ(enter("whole"), "whole");
    EXPECT_EQ(file_read_back("resources/state_maps.txt"), "failed");
    file_put(folder + "/foreign/resources/letter.txt", "of another program");
    file_put(folder + "/plain/resources", "a file");
    for (const char* from : {"start", "foreign", "plain"}) {
        EXPECT_EQ(enter(from), "home/quorrel");
        EXPECT_EQ(file_read_back("resources/state_maps.txt"), "a maps/a\nb maps/b\nc maps/c\n");
        EXPECT_EQ(file_read_back("resources/font_info.txt"), "font");
        EXPECT_FALSE(std::filesystem::exists("resources/font_info.txt"));
    }
    EXPECT_EQ(enter("home/quorrel"), "home/quorrel");
    EXPECT_EQ(enter("start", "../made/deep"), "made/deep");
    EXPECT_EQ(enter("made/deep"), "made/deep");
    EXPECT_EQ(enter("start", "../whole"), "whole");
    EXPECT_EQ(enter("start", "other"), "refused");
    for (const char* directory : {"../foreign", "../plain"}) {
        enter("start", directory);
        EXPECT_EQ(file_read_back("resources/font_info.txt"), "font") << directory;
    }
}

TEST_F(player_files_test, catalogues_follow_what_ships_and_what_the_player_does) {
    struct {
        const char *ships, *player, *merged;
        bool restore = false;
    } const rows[] = {
        {"a a\nb b\n", nullptr, "a a\nb b\n"},
        {"a a\nb b\n", "m m\nb b\na a\nm m\n", "m m\nb b\na a\nm m\n"},  // their order, twice m
        {"a a\nb b\n", "m m\nb b\n", "m m\nb b\n"},                      // the player removes a
        {"a a\nc c\nb b\n", nullptr, "m m\nb b\nc c\n"},                 // c comes, a stays away
        {"a a\nc c\n", nullptr, "m m\nc c\n"},                           // b no longer ships
        {"a a\nc c\n", nullptr, "m m\nc c\na a\n", true},                // all are wanted back
        {"a x\nc c\n", "c c\na a\nl l", "c c\nl l\na x\n"},              // a has moved
    };
    const std::string list = folder + "/home/quorrel/resources/state_maps.txt";
    const std::string record = folder + "/home/quorrel/.shipped/state_maps.txt";
    for (const auto& row : rows) {
        ship(row.ships);
        if (row.player != nullptr) {
            file_put(list, row.player);
        }
        EXPECT_EQ(enter("start", "", row.restore), "home/quorrel");
        EXPECT_EQ(file_get(list), row.merged) << row.ships;
        EXPECT_EQ(file_get(record), row.ships);
    }
    // The record is there and for once cannot be read.
    file_put(list, "l l\n");
    std::filesystem::resize_file(record, text_file_limit + 1);
    enter("start");
    EXPECT_EQ(file_get(list), "l l\n");
}

TEST_F(player_files_test, the_map_of_the_day_ships_anew_each_day) {
    const std::string list = folder + "/home/quorrel/resources/state_maps.txt";
    const std::string map = folder + "/home/quorrel/daily/state_machines/today";
    const std::string listed = "a maps/a\nb maps/b\nc maps/c\n",
                      today = "today daily/state_machines/today\n";
    enter("start", "", false, first_day);
    const std::string first = file_get(map);
    EXPECT_TRUE(text_is_map(str_of(first)));
    EXPECT_EQ(file_get(list), listed + today);
    enter("start", "", false, no_day);
    EXPECT_EQ(file_get(map), first);
    EXPECT_EQ(file_get(list), listed + today);
    enter("start", "", false, last_day);
    EXPECT_NE(file_get(map), first);
    file_put(list, listed);  // the player removes it
    std::filesystem::remove(map);
    enter("start", "", false, first_day);
    EXPECT_EQ(file_get(list), listed);
    enter("start", "", true, first_day);
    EXPECT_EQ(file_get(list), listed + today);
    std::filesystem::remove_all(folder + "/home/quorrel/daily");
    file_put(folder + "/home/quorrel/daily", "a file");
    EXPECT_EQ(output_of([&] { enter("start", "", false, first_day); }),
              "failed to write the map of the day: daily/state_machines/today\n");
    EXPECT_EQ(file_get(list), listed);
}

}  // namespace
