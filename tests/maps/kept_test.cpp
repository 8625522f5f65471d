#include "maps/kept.h"

#include "base/tidings.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/reader.h"
#include "maps/saving.h"
#include "maps/waiting_maps.h"
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
    map_work_begin();
    const std::string whole =
        "map 1 1 1\nwin 1\ndeck 1 1 1 1\ntape 1\ngoal 7 1 1 1 1 1 1 1 1\nstone 1\n"
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

// The map under work with a state at each of the places.
void work(std::initializer_list<f64> places) {
    machine_kind = state_machine;
    settings = {};
    map_clear();
    map_work_begin();
    for (f64 place : places) {
        map_add_state(place, place, 0);
    }
}

// While it lives, nothing can be kept.
struct kept_blocked {
    kept_blocked() {
        fs::create_directory("kept");
        fs::rename("kept", "elsewhere");
        file_put("kept", "in the way");
    }
    ~kept_blocked() { fs::remove("kept"), fs::rename("elsewhere", "kept"); }
};

// The latest tiding; it counts as shown.
std::string told() {
    tidings.is_new = false;
    return string_of({tidings.text, tidings.length});
}

TEST_F(kept_test, TheNewestHundredStayWhateverTheClockSays) {
    file_put("kept/my own", "");
    file_put("kept/2026-11-23", "");
    const auto ahead = fs::file_time_type::clock::now() + std::chrono::hours(24);
    for (i64 i = 0; i < 100; ++i) {
        const std::string path = "kept/z" + std::to_string(i) + ".state.2036-11-23_18-30-05";
        file_put(path, "");
        fs::last_write_time(path, ahead + std::chrono::milliseconds(i));
    }
    work({5});
    {
        full_disk limit(4096);
        const std::string rule(5000, 'A');
        map_add_transition(0, 0, 0, 0, 0, str_of(rule));
        EXPECT_EQ(output_of(map_work_keep), "failed to keep map: unnamed\n");
        EXPECT_EQ(names_in("kept").size(), 102U);  // none goes for what does not come
        transition_remove(0);
    }
    waiting_maps = {};
    map_work_end();
    file_put("maps/old", "last");
    kept_file_put("maps/old", state_machine);
    const std::string last = changed("unnamed") + "old.state: last\n";
    EXPECT_EQ(names_in("kept").size(), 102U);
    const std::string text = kept_text();
    EXPECT_EQ(text.substr(text.size() - last.size()), last);
    EXPECT_EQ(text.find("z1.state"), text.npos);
    EXPECT_NE(text.find("z2.state"), text.npos);
}

TEST_F(kept_test, TheMapUnderWorkIsKeptAsOneOfItsFamily) {
    machine_kind = pushdown_machine;
    settings = {};
    map_work_begin();
    map_add_state(5, 5, 0);
    machine_kind = state_machine;  // as where another map is taken in
    map_work_end();
    EXPECT_EQ(kept_text(), "unnamed.pushdown: map 0 0 1\nwin 0\ndeck 1 4 4 4\nhand 8\n. 5 5\n\n");
}

TEST_F(kept_test, WhatCannotBeKeptWaitsInMemoryUntilItIs) {
    map_load("maps/old");
    map_add_state(5, 5, 0);
    {
        kept_blocked now;
        EXPECT_EQ(output_of([] { map_load("maps/other"); }), "failed to keep map: maps/old\n");
        EXPECT_EQ(told(), "failed to keep map: maps/old");
        work({7, 5});
        EXPECT_EQ(output_of(map_work_end), "failed to keep map: unnamed\n");
        kept_try();
        EXPECT_EQ(told(), "not on the disk yet: 2 maps");
    }
    map_load("maps/other");
    output_of([] { map_save("mine"); });
    EXPECT_EQ(told(), "kept: unnamed");
    const std::string kept = changed("old", ". 1 0\n") + changed("unnamed", ". 7 7\n");
    EXPECT_EQ(kept_text(), kept);
    {
        kept_blocked now;
        file_put("maps/old", old_map);
        output_of([] { kept_file_put("maps/old", turing_machine); });
        EXPECT_EQ(told(), "failed to keep map: maps/old");
    }
    work({5});
    EXPECT_EQ(output_of(map_work_end), "");
    EXPECT_EQ(kept_text(), kept + "old.turing: " + old_map + "\n" + changed("unnamed"));
}

TEST_F(kept_test, TheOldestThatWaitMakeRoomAndAreTold) {
    std::string kept, said;
    {
        kept_blocked now;
        for (i64 i = 0; i <= waiting_limit; ++i) {
            work({f64(i), 5});
            said = output_of(map_work_end);
            kept += i > 0 ? changed("unnamed",
                                    ". " + std::to_string(i) + " " + std::to_string(i) + "\n")
                          : "";
        }
    }
    EXPECT_EQ(said, "failed to keep map: unnamed\nlost map: unnamed\n");
    EXPECT_EQ(output_of(map_work_finish), "");
    EXPECT_EQ(kept_text(), kept);
    kept_blocked now;
    work({5});
    EXPECT_EQ(output_of(map_work_finish), "failed to keep map: unnamed\nlost map: unnamed\n");
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
