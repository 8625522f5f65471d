#include "maps/kept.h"

#include "maps/catalogue.h"
#include "maps/reader.h"
#include "maps/saving.h"
#include "platform/file.h"
#include "tests/support/game.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* old_map = "map 0 0 1\nwin 0\n. 1 0\n";

class kept_test : public game_test {
  protected:
    kept_test() {
        machine_kind = state_machine;
        game_map.scale = 1;
        file_put("maps/old", old_map);
        file_put("maps/other", "# by hand\nwin 7\n$ 0 0\n");
        file_put("resources/state_maps.txt", "old maps/old\nother maps/other\n");
        output_of(catalogues_load);
        catalogue_select();
        map_clear();
        map_work_begin();
    }
};

std::string changed(const char* name, std::string_view states = "") {
    return std::string(name) + ".state: map 0 0 1\nwin 0\n" + std::string(states) + ". 5 5\n\n";
}

TEST_F(kept_test, ChangesThatNoFileHoldsAreKeptBeforeTheyAreGivenUp) {
    map_load("maps/old");
    map_work_keep();
    map_load("maps/other");
    map_add_state(5, 5, 0);
    game_map.states.count -= 1;
    map_load("maps/old");
    EXPECT_EQ(kept_text(), "");

    map_add_state(5, 5, 0);
    map_load("missing");
    EXPECT_EQ(kept_text(), "");
    map_load("maps/old");
    EXPECT_EQ(kept_text(), changed("old", ". 1 0\n"));

    map_add_state(5, 5, 0);
    output_of([] { map_save("mine"); });
    map_work_end();
    EXPECT_EQ(kept_text(), changed("old", ". 1 0\n"));

    map_add_state(6, 6, 0);  // nothing is under work any more
    map_work_keep();
    map_clear();
    map_work_begin();
    map_add_state(5, 5, 0);
    map_work_end();
    EXPECT_EQ(kept_text(), changed("old", ". 1 0\n") + changed("unnamed"));
}

TEST_F(kept_test, EveryPartOfAMapCountsAsAChange) {
    machine_kind = turing_machine;
    const std::string whole =
        "map 1 1 1\nwin 1\ndeck 1 1 1 1\ntape 1\ngoal 1 1 1 1 1 1 1 1 1\nstone 1\n"
        ". 1 1\n. 1 1\n=> 1 1 1 1 1 \"1\"\n";
    i64 count = 0;
    for (std::size_t digit = whole.find('1'); digit != whole.npos;
         digit = whole.find('1', digit + 1)) {
        map_read(str_of(whole));
        map_work_is_saved("map");
        std::string text = whole;
        text[digit] = '2';
        map_read(str_copy(str_of(text)));
        map_work_keep();
        count += 1;
        text = kept_text();
        EXPECT_EQ(std::count(text.begin(), text.end(), ':'), count) << whole.substr(digit);
    }
}

TEST_F(kept_test, ADeletedMapIsKeptWhereItCanBe) {
    const std::string large(5000, '#');
    file_put("maps/old", large);
    file_put("data/maps/other", "ships");
    catalogue_select();
    {
        full_disk limit(4096);
        EXPECT_EQ(output_of(catalogue_delete_selected), "");
    }
    EXPECT_EQ(kept_text(), "old.state: " + large + "\n");
    EXPECT_FALSE(fs::exists("maps/old"));
    fs::rename("kept", "elsewhere");
    file_put("kept", "in the way");
    file_set_fallback("data");
    for (const char* told : {"failed to keep map: maps/other\n", ""}) {
        catalogue_select();
        EXPECT_EQ(output_of(catalogue_delete_selected), told);
        EXPECT_FALSE(fs::exists("maps/other"));
        EXPECT_EQ(catalogue_count(), 0);
        catalogue_add("other", "maps/other");  // now the one that ships
    }
    file_set_fallback("");
}

TEST_F(kept_test, TheNewestHundredStay) {
    file_put("kept/my own", "");
    file_put("kept/2026-11-23", "");
    for (i64 i = 0; i < 103; ++i) {
        file_put("maps/old", std::to_string(i));
        map_file_keep("maps/old");
    }
    std::string text = kept_text();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 102);
    EXPECT_EQ(text.find("old.state: 2\n"), text.npos);
    EXPECT_NE(text.find("old.state: 3\n"), text.npos);
}

// A case is a path: the name and the family that it tells.
TEST_F(kept_test, AKeptPathTellsNameAndFamily) {
    golden_check("maps/kept", [](const std::string& path) {
        str name;
        i64 family = 0;
        bool kept = kept_path_read(str_of(path), name, family);
        return kept ? string_of(name) + " " + std::to_string(family) : "none";
    });
}

}  // namespace
