// Maps as text: what is read, what is written of it, and how it is saved.

#include <algorithm>

#include "base/tidings.h"
#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/loading.h"
#include "maps/reader.h"
#include "maps/saving.h"
#include "maps/writer.h"
#include "tests/support/game.h"

namespace {

using map_file_test = game_test;

constexpr const char* pushdown_map =
    "map 0 0 1\nwin 0\ndeck 1 4 4 4\nhand 8\nstone 0\n* 0.5 -1\n. 2 0\n=> 0 1 0 0 0 \"A\"\n";

TEST_F(map_file_test, ATextTakesANewBlockWhileThereIsPlenty) {
    machine_kind = state_machine;
    std::string large(1'000'000, '#');
    for (const char* line : {"\n. 0 0", "\n. 1 0", "\n=> 0 1 0 0 0 \"a\""}) {
        large += line;
    }
    file_put("large", large);
    file_put("small", pushdown_map);
    const i64& used = arenas[arena_persistent].offset;
    i64 new_blocks = 0;
    for (i64 i = 0; i < 300; ++i) {
        const i64 before = used;
        map_load("large");
        new_blocks += used - before >= i64{1'000'000};
        map_load("small");
    }
    EXPECT_NEAR(static_cast<f64>(new_blocks), persistent_arena_capacity / 2 / 1'000'000, 1);
    map_load("large");
    EXPECT_EQ(string_of(game_map.transitions[0].rule), "a");
}

TEST_F(map_file_test, AMapThatMemoryCannotHoldChangesNothing) {
    machine_kind = state_machine;
    file_put("map", pushdown_map);
    map_load("map");
    std::string before = map_text();
    std::string states = "win 1\n";
    for (i64 i = 0; i < 100'000; ++i) {
        states += ". 0 0\n";
    }
    file_put("states", states);
    arena& memory = arenas[arena_persistent];
    const i64 left_for_play = i64{16} * 1024 * 1024;
    memory.capacity = memory.offset + left_for_play + 3'000'000;  // 24 bytes each, and the text
    EXPECT_EQ(output_of([] { map_load("states"); }), "failed to load map: states\n");
    EXPECT_EQ(map_text(), before);
    memory.capacity += 300'000;
    for (i64 loads = 0; loads < 10; ++loads) {
        EXPECT_EQ(output_of([] { map_load("states"); }), "");
        EXPECT_EQ(game_map.states.count, 100'000);
    }
}

// A case is a family and a map with ';' for line feeds: the map as it is written, which is read to
// the same again.
TEST_F(map_file_test, RecordsAreReadAndWrittenInTheirCanonicalForm) {
    golden_check("maps/records", [](const std::string& given) {
        std::size_t end = given.find(' ');
        machine_kind = family_named(str_of(given.substr(0, end)));
        std::string text = replaced(given.substr(end + 1), ';', '\n');
        std::string written[2];
        for (std::string& again : written) {
            game_map = {};
            settings = {};
            map_read(str_of(text));
            again = text = map_text();
        }
        EXPECT_EQ(written[0], written[1]);
        return replaced(text, '\n', ';');
    });
}

// A case is a file, read after those before it: the map then.
TEST_F(map_file_test, SettingsStayUntilAFileNamesThem) {
    machine_kind = turing_machine;
    golden_check("maps/settings", [](std::string text) {
        text = replaced(text, ';', '\n');
        map_read(str_of(text));
        return replaced(map_text(), '\n', ';');
    });
    EXPECT_EQ(settings.hand_size, 7);
}

TEST_F(map_file_test, AFileThatCannotBeReadChangesNothing) {
    machine_kind = state_machine;
    map_read(". 0 0\n. 1 0\n=> 0 1 0\n");
    EXPECT_EQ(state_nimber(0), 1);
    machine_kind = pushdown_machine;
    map_read(str_of(pushdown_map));
    EXPECT_EQ(state_nimber(0), 1);  // computed for state machines only
    file_put("huge", std::string(text_file_limit + 1, '.'));
    std::filesystem::create_directory("folder");
    for (const char* path : {"missing", "folder", "huge", ""}) {
        i64 offset = arenas[arena_persistent].offset;
        EXPECT_EQ(output_of([&] { map_load(str_of(path)); }),
                  std::string("failed to load map: ") + path + "\n");
        EXPECT_EQ(arenas[arena_persistent].offset, offset);
        EXPECT_EQ(map_text(), pushdown_map);
    }
}

// An earlier map under custom_pushdown_machines/old, listed, and another one in memory.
class save_test : public game_test {
  protected:
    save_test() {
        file_put(catalogue_file, earlier_list);
        file_put("custom_pushdown_machines/old", "old");
        current_catalogue = &catalogues[pushdown_machine];
        catalogue_load(*current_catalogue, str_of(catalogue_file));
        map_read(str_of(pushdown_map));
    }

    std::string save(std::string_view name) {
        return output_of([&] { map_save(str_of(name)); });
    }

    static constexpr const char* catalogue_file = "resources/pushdown_maps.txt";
    static constexpr const char* earlier_list = "old custom_pushdown_machines/old\n";
};

TEST_F(save_test, ASavedMapIsAnnouncedWrittenAndListedOnce) {
    i64 memory = arenas[arena_persistent].offset;
    EXPECT_EQ(save("my-map!"), "saving map my-map! as custom_pushdown_machines/my_map_\n");
    EXPECT_LT(arenas[arena_persistent].offset - memory, 150);  // the name, the path and the list
    EXPECT_EQ(file_get("custom_pushdown_machines/my_map_"), pushdown_map);
    std::string list = std::string(earlier_list) + "my-map! custom_pushdown_machines/my_map_\n";
    EXPECT_EQ(file_get(catalogue_file), list);
    std::filesystem::remove(catalogue_file);
    settings.hand_size = 3;
    save("my-map!");
    EXPECT_NE(file_get("custom_pushdown_machines/my_map_").find("hand 3\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(catalogue_file));  // listed already: not written again
    EXPECT_EQ(tidings.length, 0);
    current_catalogue->data[0].path = "resources/maps/old";
    save("old");
    EXPECT_EQ(string_of({tidings.text, tidings.length}),
              "the list still has the other old: save this one under another name");
}

TEST_F(save_test, AMapThatIsReplacedByAnotherOneIsKept) {
    for (const char* name : {"new", "new", "old", "old", "/old"}) {
        save(name);
        EXPECT_EQ(kept_text(), *name == 'n' ? "" : "old.pushdown: old\n") << name;
    }
    settings.hand_size = 3;
    save("old");
    EXPECT_EQ(kept_text(), std::string("old.pushdown: old\nold.pushdown: ") + pushdown_map + "\n");
}

TEST_F(save_test, AFileThatCannotBeKeptIsReplacedUnlessTheMapIsTooLargeToBeReadAgain) {
    file_put("kept", "in the way");
    std::string rule(text_file_limit, 'A');
    game_map.transitions[0].rule = str_of(rule);
    EXPECT_NE(save("old").find("failed to save map"), std::string::npos);
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), "old");
    game_map.transitions[0].rule = "A";
    EXPECT_NE(save("old").find("\nfailed to keep map: custom_pushdown_machines/old\n"),
              std::string::npos);
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), pushdown_map);
}

}  // namespace
