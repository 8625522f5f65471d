#include "maps/reader.h"

#include <algorithm>
#include <memory>
#include <random>
#include <sstream>

#include "maps/file_text.h"
#include "tests/support/game.h"

namespace {

using reader_test = game_test;

// The lists of the loaded map, one line each; then what a record cannot show is compared too.
std::string lists_text() {
    std::ostringstream text;
    for (const map_state& s : game_map.states) {
        text << (s.accepting ? '*' : '.') << s.x << ',' << s.y << ' ';
    }
    for (u16 state : stones) {
        text << 's' << state << ' ';
    }
    for (const goal& g : goals) {
        text << 'g' << int{g.measure} << ' ' << int{g.comparison} << ' ' << g.target;
        for (card c : {g.card_a, g.card_b}) {
            text << ' ' << int{c.colour} << '/' << int{c.shape} << '/' << int{c.number};
        }
        text << ' ';
    }
    for (const transition& t : game_map.transitions) {
        text << t.from << '>' << t.to << '(' << t.bend << ' ' << t.label_dx << ' ' << t.label_dy
             << ' ' << string_of(t.rule) << ") ";
    }
    return text.str();
}

std::string settings_text() {
    std::ostringstream text;
    text << game_map.origin_x << ' ' << game_map.origin_y << ' ' << game_map.scale << " w"
         << int{settings.win_mode} << " d" << settings.deck_copies << ' ' << settings.deck_colours
         << ' ' << settings.deck_shapes << ' ' << settings.deck_numbers << " h"
         << settings.hand_size << " t" << settings.tape_length;
    return text.str();
}

constexpr const char* start_settings = "0 0 128 w0 d1 4 4 4 h8 t4";

constexpr const char* turing_example =
    "map 0 0 128\nwin 0\ndeck 1 4 4 4\ntape 4\ngoal 7 2 2 0 0 1 1 0 1\nstone 0\n. 0 0\n* 1 0\n"
    "=> 0 1 0 0 -16 \"AR\"\n";

TEST_F(reader_test, RecordsFillTheLists) {
    struct {
        const char *file, *lists;
    } const rows[] = {
        {"", ""},
        {"* 0 0", "*0,0 "},
        {"$ 2 -3\n. 2 -3\r\n", ".2,-3 .2,-3 "},
        {"stone 3\nstone 3\nstone 65536\nstone -1\n", "s3 s3 s0 s65535 "},
        {" * 1 1\n#* 1 1\nmaps 1 2 3\n\nstones 1\n=>0 1 0\n", ""},
        {"=> 0 1 5\n=> 2 2 65535\trest\n", "0>1(5 0 0 ) 2>2(-1 0 0 ) "},
        {"=> 0 1\n", "0>1(0 0 0 ) "},
        {"=> 0 1 0 2.5 -16 \"\"\n", "0>1(0 2.5 -16 ) "},
        {"=> 0 1 0 0 0 \"A|B", "0>1(0 0 0 A|B) "},
        {"=> 1 0 45 0 0 \"two\nlines\" rest\n. 1 1\n", ".1,1 1>0(45 0 0 two\nlines) "},
        {"goal 0 1 10\n", "g0 1 10 0/0/1 0/0/1 "},
        {"goal 4 2 3 1 0 1\n", "g4 2 3 1/0/1 0/0/1 "},
        {"goal 7 2 2 0 0 1 1 0 1", "g7 2 2 0/0/1 1/0/1 "},
        {"goal 300 257 -5 256 511 -1\n", "g44 1 -5 0/255/255 0/0/1 "},
        {"goal 4 0 1\t2 2 2\n", "g4 0 1 0/0/1 0/0/1 "},
        // Several records on one line are read only in the order of the keywords.
        {"stone 1* 2 3", "*2,3 s1 "},
        {"* 2 3stone 1", "*2,3 "},
        // A missing field is taken from the next line.
        {"* 5\n. 1 1\n. 2 2\n", "*5,0 .2,2 "},
        {"stone \nstone 2\n", "s0 s2 "},
        {turing_example, ".0,0 *1,0 s0 g7 2 2 0/0/1 1/0/1 0>1(0 0 -16 AR) "},
    };
    machine_kind = turing_machine;
    for (const auto& row : rows) {
        map_read(str_of(row.file));
        EXPECT_EQ(lists_text(), row.lists) << row.file;
        EXPECT_EQ(settings_text(), start_settings) << row.file;
    }
}

TEST_F(reader_test, SettingsStayUntilAFileNamesThem) {
    struct {
        const char *file, *settings;
    } const rows[] = {
        {". 0 0\n", start_settings},
        {"map 1 -2.5 64\n", "1 -2.5 64 w0 d1 4 4 4 h8 t4"},
        {"win 258\r\nhand 7 cards\n", "1 -2.5 64 w2 d1 4 4 4 h7 t4"},
        {"deck 2 3 5 6\ntape -9\n", "1 -2.5 64 w2 d2 3 5 6 h7 t-9"},
        {"deck 9 8\n. 1 1\n", "1 -2.5 64 w2 d9 8 0 0 h7 t-9"},
        {"hand 99999999999999999999\nmap 1\n", "1 0 0 w2 d9 8 0 0 h7766279631452241919 t-9"},
    };
    machine_kind = turing_machine;
    for (const auto& row : rows) {
        map_read(str_of(row.file));
        EXPECT_EQ(settings_text(), row.settings) << row.file;
    }
}

TEST_F(reader_test, AFileThatCannotBeReadChangesNothing) {
    file_put("map", turing_example);
    map_load("map");
    std::string before = lists_text() + settings_text();
    file_put("huge", std::string(text_file_limit + 1, '.'));
    std::filesystem::create_directory("folder");
    for (const char* path : {"missing", "folder", "huge", ""}) {
        i64 offset = arenas[arena_persistent].offset;
        EXPECT_EQ(output_of([&] { map_load(str_of(path)); }),
                  std::string("failed to load map: ") + path + "\n");
        EXPECT_EQ(lists_text() + settings_text(), before);
        EXPECT_EQ(arenas[arena_persistent].offset, offset);
    }
}

TEST_F(reader_test, LoadingAgainNeedsNoNewMemory) {
    machine_kind = state_machine;
    std::string large(1'000'000, '#');
    for (const char* line : {"\n. 0 0", "\n. 1 0", "\n=> 0 1 0 0 0 \"a\""}) {
        large += line;
    }
    file_put("large", large);
    file_put("small", turing_example);
    map_load("large");
    i64 offset = arenas[arena_persistent].offset;
    for (i64 i = 0; i < 300; ++i) {
        map_load("small");
        map_load("large");
    }
    EXPECT_LT(arenas[arena_persistent].offset - offset, 1000);
    EXPECT_EQ(string_of(game_map.transitions[0].rule), "a");
}

TEST_F(reader_test, AMapThatMemoryCannotHoldChangesNothing) {
    file_put("map", turing_example);
    map_load("map");
    std::string before = lists_text() + settings_text();
    std::string states = "win 1\n";
    for (i64 i = 0; i < 100'000; ++i) {
        states += ". 0 0\n";
    }
    file_put("states", states);
    arena& memory = arenas[arena_persistent];
    const i64 left_for_play = i64{16} * 1024 * 1024;
    memory.capacity = memory.offset + left_for_play + 3'000'000;  // 24 bytes each, and the text
    EXPECT_EQ(output_of([] { map_load("states"); }), "failed to load map: states\n");
    EXPECT_EQ(lists_text() + settings_text(), before);
    memory.capacity += 300'000;
    for (i64 loads = 0; loads < 10; ++loads) {
        EXPECT_EQ(output_of([] { map_load("states"); }), "");
        EXPECT_EQ(game_map.states.count, 100'000);
    }
}

TEST_F(reader_test, NimbersAreComputedForStateMachinesOnly) {
    machine_kind = state_machine;
    map_read(". 0 0\n. 1 0\n=> 0 1 0\n");
    EXPECT_EQ(state_nimber(0), 1);
    EXPECT_EQ(state_nimber(2), no_nimber);
    machine_kind = pushdown_machine;
    map_read(". 0 0\n");
    EXPECT_EQ(game_map.nimber_count, 2);
}

// Reads `text` from a block that ends with it, so that a step past it is noticed.
void map_read_exactly(const std::string& text) {
    std::unique_ptr<char[]> bytes(new char[text.size()]);
    std::copy(text.begin(), text.end(), bytes.get());
    map_read({bytes.get(), static_cast<i64>(text.size())});
    lists_text();  // touches every rule
    map_clear();
}

TEST_F(reader_test, CutAndBrokenFilesAreReadWithinTheirBytes) {
    std::vector<std::string> files = {turing_example};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(maps_folder())) {
        if (entry.is_regular_file()) {
            files.push_back(file_get(entry.path().string()));
        }
    }
    machine_kind = turing_machine;
    std::mt19937_64 random(7);
    for (const std::string& file : files) {
        for (std::size_t size = 0; size <= file.size(); ++size) {
            map_read_exactly(file.substr(0, size));
        }
        for (int i = 0; i < 60; ++i) {
            map_read_exactly(text_broken(file, random));
        }
    }
}

}  // namespace
