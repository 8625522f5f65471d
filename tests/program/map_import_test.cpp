#include "program/map_import.h"

#include "maps/catalogue.h"
#include "maps/family.h"
#include "program/command_line.h"
#include "tests/support/game.h"

namespace {

class map_import_test : public game_test {
  protected:
    map_import_test() {
        for (std::string_view family : family_names) {
            file_put("resources/" + std::string(family) + "_maps.txt", "");
        }
        catalogues_load();
    }
};

// Whether the map was taken, and what was said of it.
std::string import(std::string_view path, i64 family = no_family) {
    testing::internal::CaptureStderr();
    std::string said = output_of([&] { map_import(str_of(path), family); });
    return said + testing::internal::GetCapturedStderr();
}

TEST_F(map_import_test, maps_of_one_name_get_names_of_their_own) {
    file_put("in/my-map.quorrel", "* 0 0\n");
    file_put("my map", ". 0 0\n");
    const char* first = "map my_map is custom_state_machines/my_map\n";
    const char* second = "map my_map_2 is custom_state_machines/my_map_2\n";
    EXPECT_EQ(import("in/my-map.quorrel"), first);
    EXPECT_EQ(import("my map"), second);
    EXPECT_EQ(import("my map"), second);
    EXPECT_EQ(import("custom_state_machines/my_map"), first);
    EXPECT_EQ(import("my map", turing_machine), "map my_map is custom_turing_machines/my_map\n");
    EXPECT_EQ(file_get("custom_state_machines/my_map"), "* 0 0\n");
    EXPECT_EQ(file_get("custom_state_machines/my_map_2"), ". 0 0\n");
    EXPECT_EQ(file_get("resources/state_maps.txt"),
              "my_map custom_state_machines/my_map\nmy_map_2 custom_state_machines/my_map_2\n");
}

TEST_F(map_import_test, what_is_no_map_or_cannot_be_placed_is_refused) {
    file_put("words", "* a list\n");
    file_put("deck", "deck 1 1 1 1\n. 0 0\n");
    file_put("custom_turing_machines", "in the way");
    EXPECT_EQ(import("missing"), "quorrel: missing: cannot be read\n");
    EXPECT_EQ(import("words"), "quorrel: words: is not a map\n");
    EXPECT_NE(import("deck").find("add --family"), std::string::npos);
    EXPECT_EQ(import("deck", turing_machine),
              "quorrel: custom_turing_machines/deck: cannot be written\n");
    EXPECT_EQ(file_get("resources/turing_maps.txt"), "");
}

TEST_F(map_import_test, lines_tell_the_family) {
    for (const shipped_map& map : shipped_maps()) {
        EXPECT_TRUE(text_is_map(str_of(map.text)));
        EXPECT_EQ(map_family_find(str_of(map.text)), map.kind) << map.path;
    }
    struct {
        const char* text;
        i64 family;
    } const rows[] = {
        {"=> 0 1 0 0 0 \"A&B\"\n", state_machine},
        {"hand 3", pushdown_machine},
        {"goal 0 2 3\n", turing_machine},
        {"deck 1 1 1 1\n=> 0 1 0 0 0 \"!A\"\n", pushdown_machine},
        {"deck 1 1 1 1\n=> 0 1 0 0 0 \"A\"\n=> 0 1 0 0 0 \".L\"", turing_machine},
        {"deck 1 1 1 1\nhand 1\ntape 1\n=> 0 1 0 0 0 \"AR\"", turing_machine},
        {"deck 1 1 1 1\n=> 0 1 0 0 0 \"A\"", no_family},
        {"deck 1 1 1 1\n=> 0 1\n", no_family},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(map_family_find(str_of(row.text)), row.family) << row.text;
    }
}

TEST(command_line_test, arguments_are_understood_or_refused) {
    struct {
        std::vector<const char*> arguments;
        int status;
        i64 files = 0;
    } const rows[] = {
        {{}, command_play},
        {{"a", "--fullscreen", "b"}, command_play, 2},
        {{"--directory", "d", "--family=turing", "--restore-maps"}, command_play},
        {{"--", "--help"}, command_play, 1},
        {{"--help"}, 0},
        {{"--version"}, 0},
        {{"--directory"}, 2},
        {{"--family=none"}, 2},
        {{"-x"}, 2},
    };
    for (const auto& row : rows) {
        std::vector<const char*> words = {"quorrel"};
        words.insert(words.end(), row.arguments.begin(), row.arguments.end());
        int count = static_cast<int>(words.size());
        words.push_back(nullptr);
        command_line command;
        testing::internal::CaptureStderr();
        output_of([&] {
            EXPECT_EQ(command_line_read(count, const_cast<char**>(words.data()), command),
                      row.status);
        });
        std::string error = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), row.status == 2) << error;
        EXPECT_EQ(command.file_count, row.files);
    }
}

}  // namespace
