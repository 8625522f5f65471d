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
    map_add_transition(0, 0, 0, 0, 0, "A");
    dyn_array_push(goals, {});
    dyn_array_push(stones, 1);
    void (*const changes[])() = {
        [] { game_map.origin_x += 1; },
        [] { game_map.origin_y += 1; },
        [] { game_map.scale += 1; },
        [] { settings.deck_copies += 1; },
        [] { settings.deck_colours += 1; },
        [] { settings.deck_shapes += 1; },
        [] { settings.deck_numbers += 1; },
        [] { settings.tape_length += 1; },
        [] { settings.win_mode = 2; },
        [] { goals[0].measure += 1; },
        [] { goals[0].comparison += 1; },
        [] { goals[0].target += 1; },
        [] { goals[0].card_a.shape += 1; },
        [] { goals[0].card_b.number += 1; },
        [] { stones[0] = 0; },
        [] { map_add_state(0, 0, 0); },
        [] { game_map.states[0].x += 1; },
        [] { game_map.states[0].accepting = 1; },
        [] { game_map.transitions[0].to = 1; },
        [] { game_map.transitions[0].bend = 1; },
        [] { game_map.transitions[0].label_dy = 1; },
        [] { game_map.transitions[0].rule = "B"; },
    };
    i64 count = 0;
    for (auto change : changes) {
        map_work_is_saved("map");
        change();
        map_work_keep();
        count += 1;
        std::string text = kept_text();
        EXPECT_EQ(std::count(text.begin(), text.end(), ':'), count);
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

TEST_F(kept_test, AKeptPathTellsNameAndFamily) {
    struct {
        const char *path, *told;
    } const rows[] = {
        {"kept/my_map_.pushdown.2026-11-23_18-30-05", "my_map_ 1"},
        {"/a.b/x.y.turing.2026-11-23_18-30-05-2", "x.y 2"},
        {"unnamed.state.2026-11-23_18-30-05", "unnamed 0"},
        {"x.map.2026-11-23_18-30-05", ""},
        {"state.2026-11-23_18-30-05", ""},
        {"maps/state", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        str name;
        i64 family = 0;
        bool kept = kept_path_read(str_of(row.path), name, family);
        EXPECT_EQ(kept ? string_of(name) + " " + std::to_string(family) : "", row.told);
    }
}

}  // namespace
