#include "program/map_import.h"

#include "maps/catalogue.h"
#include "maps/family.h"
#include "program/command_line.h"
#include "tests/support/game.h"

namespace {

class map_import_test : public game_test {
  protected:
    map_import_test() {
        for (str family : family_names) {
            file_put("resources/" + string_of(family) + "_maps.txt", "");
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
    EXPECT_EQ(import("missing"), "quorrel_tests: missing: cannot be read\n");
    EXPECT_EQ(import("words"), "quorrel_tests: words: is not a map\n");
    EXPECT_NE(import("deck").find("add --family"), std::string::npos);
    EXPECT_EQ(import("deck", turing_machine),
              "quorrel_tests: custom_turing_machines/deck: cannot be written\n");
    EXPECT_EQ(file_get("resources/turing_maps.txt"), "");
    EXPECT_EQ(machine_kind, pushdown_machine);  // what is done goes on
    EXPECT_EQ(current_catalogue, nullptr);
}

TEST_F(map_import_test, lines_tell_the_family) {
    for (const shipped_map& map : shipped_maps()) {
        EXPECT_TRUE(text_is_map(str_of(map.text)));
        EXPECT_EQ(map_family_find(str_of(map.text)), map.kind) << map.path;
    }
    golden_check("program/families", [](const std::string& given) {
        i64 family = map_family_find(str_of(replaced(given, ';', '\n')));
        return family == no_family ? "none" : string_of(family_names[family]);
    });
}

// A case are the arguments: the status and the number of files, or what is said of them.
TEST(command_line_test, arguments_are_understood_or_refused) {
    golden_check("program/arguments", [](const std::string& given) {
        std::vector<std::string> words = words_of("quorrel " + given);
        std::vector<char*> pointers;
        for (std::string& word : words) {
            pointers.push_back(word.data());
        }
        pointers.push_back(nullptr);
        command_line command;
        int status = 0;
        testing::internal::CaptureStderr();
        output_of([&] {
            status = command_line_read(static_cast<int>(words.size()), pointers.data(), command);
        });
        return std::to_string(status) + " " + std::to_string(command.file_count) + " " +
               replaced(testing::internal::GetCapturedStderr(), '\n', ';');
    });
}

}  // namespace
