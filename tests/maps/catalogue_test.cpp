#include "maps/catalogue.h"

#include "tests/support/game.h"

namespace {

// A state catalogue of three maps, each with as many states as its place.
class catalogue_test : public game_test {
  protected:
    catalogue_test() {
        machine_kind = state_machine;
        file_put("resources/state_maps.txt", "a maps/a\nb maps/b\nc maps/c\n");
        file_put("maps/a", ". 0 0\n");
        file_put("maps/b", ". 0 0\n. 1 0\n");
        file_put("maps/c", ". 0 0\n. 1 0\n. 2 0\n");
    }
};

std::string entries_text(const catalogue& list) {
    std::string text;
    for (const catalogue_entry& entry : list) {
        text += "[" + string_of(entry.name) + "|" + string_of(entry.path) + "]";
    }
    return text;
}

// A case is a file with ';' for line feeds: its entries.
TEST_F(catalogue_test, LinesBecomeEntries) {
    golden_check("maps/entries", [](const std::string& given) {
        file_put("list", replaced(given, ';', '\n'));
        catalogue list = {};
        std::string read = output_of([&] { catalogue_load(list, "list"); });
        return replaced(read + entries_text(list), '\n', ';');
    });
}

TEST_F(catalogue_test, EntriesAreSelectedDeletedAndAdded) {
    catalogue_add("early", "nowhere");  // no catalogue is current yet
    EXPECT_EQ(output_of(catalogues_load),
              "failed to open resources/pushdown_maps.txt\n"
              "failed to open resources/turing_maps.txt\n");
    selected_entry = 2;
    catalogue_select();
    EXPECT_EQ(selected_entry, 0);
    std::string typed = "mine";
    catalogue_add(str_of(typed), "custom_state_machines/mine");
    typed = "else";
    catalogue_add("mine", "elsewhere");  // listed already
    catalogue_delete_selected();
    EXPECT_EQ(entries_text(*current_catalogue),
              "[b|maps/b][c|maps/c][mine|custom_state_machines/mine]");
    selected_entry = 2;
    catalogue_delete_selected();  // an entry without its file; the last one left is loaded
    EXPECT_EQ(selected_entry, 1);
    EXPECT_EQ(game_map.states.count, 3);
    EXPECT_EQ(file_get("resources/state_maps.txt"), "b maps/b\nc maps/c\n");
    machine_kind = turing_machine;
    catalogue_save();
    EXPECT_EQ(current_catalogue, &catalogues[turing_machine]);
    catalogue_select();
    EXPECT_EQ(catalogue_selected(), nullptr);
    machine_kind = machine_kind_count;
    catalogue_select();
    EXPECT_EQ(current_catalogue, &catalogues[turing_machine]);
}

TEST_F(catalogue_test, WhatAnotherGameChangedStaysChanged) {
    catalogues_load();
    catalogue_select();
    file_put("resources/state_maps.txt", "a maps/a\nc maps/c\ntheirs maps/t\n");
    catalogue_add("mine", "maps/m");
    EXPECT_EQ(file_get("resources/state_maps.txt"),
              "a maps/a\nc maps/c\nmine maps/m\ntheirs maps/t\n");
    catalogue_add("more", "maps/n");
    catalogue_delete_selected();
    EXPECT_EQ(file_get("resources/state_maps.txt"),
              "c maps/c\nmine maps/m\nmore maps/n\ntheirs maps/t\n");
}

TEST_F(catalogue_test, AFileThatCannotBeReadIsNotReplaced) {
    std::string large(static_cast<std::size_t>(catalogue_memory_limit) / 64, ' ');
    for (const char* name : {"readable before", "never readable"}) {
        output_of(catalogues_load);
        catalogue_select();
        file_put("resources/state_maps.txt", large);
        EXPECT_EQ(output_of([&] { catalogue_add(str_of(name), "maps/d"); }),
                  "failed to save catalogue: resources/state_maps.txt\n");
        EXPECT_EQ(file_get("resources/state_maps.txt"), large);
    }
}

// A case is the number of a family and a name: the path.
TEST_F(catalogue_test, CustomMapsStayInTheirFolder) {
    golden_check("maps/custom", [](const std::string& given) {
        machine_kind = given[0] - '0';
        std::string name = given.substr(2);
        return string_of(custom_map_path(str_of(name)));
    });
}

}  // namespace
