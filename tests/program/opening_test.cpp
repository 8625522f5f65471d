#include "program/opening.h"
#include "program/daily_maps.h"

#include <getopt.h>

#include "maps/catalogue.h"
#include "platform/file.h"
#include "program/globals.h"
#include "shown/screens.h"
#include "tests/support/game.h"

namespace {

// What the player sees first.
std::string opened_text() {
    if (screens.title_menu_open) {
        return "title " + string_of(family_names[machine_kind]) + " " +
               std::to_string(players.count) + " seats";
    }
    const catalogue_entry* entry = catalogue_selected();
    std::string text = string_of(family_names[machine_kind]) + " " +
                       (entry != nullptr ? string_of(entry->name) : "-");
    for (const player& seat : players) {
        text += " " + string_of(seat_kinds[seat.is_computer ? 1 + seat.strength : 0]) + " " +
                "ABCDEF"[seat.colour_index];
    }
    return text;
}

using opening_test = game_test;

// A case are the arguments: what is said, and what is on the screen.
TEST_F(opening_test, shows_what_is_asked_for_or_tells_why_not) {
    for (str family : family_names) {
        file_put("resources/" + string_of(family) + "_maps.txt", "twice maps/twice\n");
    }
    file_put("resources/font_info.txt", "");
    file_put("resources/pushdown_maps.txt", "first maps/twice\nduel maps/duel\ngone maps/gone\n");
    file_put("maps/twice", "* 0 0\n");
    file_put("maps/duel", "hand 1\n* 0 0\n");
    file_put("in/new.quorrel", "tape 3\n* 0 0\n");
    file_put("in/game",
             "quorrel game 1\nfamily state\nseat easy blue\nchance 0000000000000001"
             " 0000000000000002 0000000000000003 0000000000000004\n| * 0 0\n");
    golden_check("program/openings", [](const std::string& given) {
        globals_start();
        std::vector<std::string> words = words_of("quorrel " + given);
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        command_line command;
        command_line_read(static_cast<int>(words.size()), arguments.data(), command);
        opening wanted;
        bool prepared = false;
        testing::internal::CaptureStderr();
        const std::string said = output_of([&] {
            prepared = opening_prepare(command, no_day, wanted);
            globals_start();
            random_seed(1);
            catalogues_load();
            opening_show(command, wanted);
        });
        return replaced(said + testing::internal::GetCapturedStderr(), '\n', ';') +
               (prepared ? opened_text() : "ended");
    });
}

}  // namespace
