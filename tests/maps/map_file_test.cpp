// Maps as text: what is read, what is written of it, and how it is saved.

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <random>
#include <set>

#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/reader.h"
#include "maps/writer.h"
#include "tests/support/game.h"

namespace {

using map_file_test = game_test;

std::string map_text() {
    text_builder text = {};
    map_write(text);
    return string_of(text_builder_text(text));
}

void map_put(std::string_view text) {
    file_put("map", text);
    map_load("map");
}

constexpr const char* turing_head = "map 0 0 128\nwin 0\ndeck 1 4 4 4\ntape 4\n";
constexpr const char* pushdown_map =
    "map 0 0 1\nwin 0\ndeck 1 4 4 4\nhand 8\nstone 0\n* 0.5 -1\n. 2 0\n=> 0 1 0 0 0 \"A\"\n";

TEST_F(map_file_test, RecordsFillTheLists) {
    struct {
        const char *file, *written;
    } const rows[] = {
        {"", ""},
        {"* 0 0", "* 0 0\n"},
        {"$ 2 -3\n. 2 -3\r\n", ". 2 -3\n. 2 -3\n"},
        {"stone 3\nstone 3\nstone 65536\nstone -1\n", "stone 3\nstone 3\nstone 0\nstone -1\n"},
        {" * 1 1\n#* 1 1\nmaps 1 2 3\n\nstones 1\n=>0 1 0\n", ""},
        {"=> 0 1 5\n=> 2 2 65535\trest\n", "=> 0 1 5 0 0 \"\"\n=> 2 2 -1 0 0 \"\"\n"},
        {"=> 0 1 300 2.5 -16 \"\"\n=> 0 1\n", "=> 0 1 300 2.5 -16 \"\"\n=> 0 1 0 0 0 \"\"\n"},
        {"=> 0 1 0 0 0 \"A|B", "=> 0 1 0 0 0 \"A|B\"\n"},
        {"=> 1 0 45 0 0 \"two\nlines\" rest\n. 1 1\n", ". 1 1\n=> 1 0 45 0 0 \"two\nlines\"\n"},
        {"goal 0 1 10\ngoal 4 2 3 1 0 1\n", "goal 0 1 10\ngoal 4 2 3 1 0 1\n"},
        {"goal 7 2 2 0 3 1 1 0 1", "goal 7 2 2 0 3 1 1 0 1\n"},
        {"goal 7 0 2 5 5 5\n", "goal 7 0 2 5 5 5 0 0 1\n"},
        {"goal 260 257 -5 256 511 -1\n", "goal 4 1 -5 0 -1 -1\n"},
        {"goal 4 0 1\t2 2 2\n", "goal 4 0 1 0 0 1\n"},
        // Several records on one line are read only in the order of the keywords.
        {"stone 1* 2 3", "stone 1\n* 2 3\n"},
        {"* 2 3stone 1", "* 2 3\n"},
        // A missing field is taken from the next line.
        {"* 5\n. 1 1\n. 2 2\n", "* 5 0\n. 2 2\n"},
        {"stone \nstone 2\n", "stone 0\nstone 2\n"},
    };
    machine_kind = turing_machine;
    for (const auto& row : rows) {
        map_put(row.file);
        EXPECT_EQ(map_text(), std::string(turing_head) + row.written) << row.file;
    }
}

TEST_F(map_file_test, SettingsStayUntilAFileNamesThem) {
    const std::pair<const char*, const char*> rows[] = {
        {"map 1 -2.5 64\n", "map 1 -2.5 64\nwin 0\ndeck 1 4 4 4\ntape 4\n"},
        {"win 258\r\nhand 7 cards\n", "map 1 -2.5 64\nwin 2\ndeck 1 4 4 4\ntape 4\n"},
        {"deck 2 3 5 6\ntape -9\n", "map 1 -2.5 64\nwin 2\ndeck 2 3 5 6\ntape -9\n"},
        {"deck 9 8\n", "map 1 -2.5 64\nwin 2\ndeck 9 8 0 0\ntape -9\n"},
        {"tape 99999999999999999999\nmap 1\n",
         "map 1 0 0\nwin 2\ndeck 9 8 0 0\ntape 7766279631452241919\n"},
    };
    machine_kind = turing_machine;
    for (const auto& [file, written] : rows) {
        map_put(file);
        EXPECT_EQ(map_text(), written) << file;
    }
    EXPECT_EQ(settings.hand_size, 7);
}

TEST_F(map_file_test, AFileThatCannotBeReadChangesNothing) {
    machine_kind = state_machine;
    map_put(". 0 0\n. 1 0\n=> 0 1 0\n");
    EXPECT_EQ(state_nimber(0), 1);
    machine_kind = pushdown_machine;
    map_put(pushdown_map);
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

TEST_F(map_file_test, MapsAreWrittenInTheirCanonicalForm) {
    struct {
        i64 kind;
        const char *read, *written;
    } const rows[] = {
        {pushdown_machine,
         "# any order\r\n=> 0 1 0 0 0 \"A\"\n* .5 -1.\nhand 8\nstone 0\ngoal 1 1 1\n$ 2 0\n"
         "tape 9\ndeck 1 4 4 4\nwin 256 ever\nmap 0 0 1",
         pushdown_map},
        {state_machine, pushdown_map,
         "map 0 0 1\nwin 0\nstone 0\n* 0.5 -1\n. 2 0\n=> 0 1 0 0 0 \"A\"\n"},
        // Bytes and indices beyond the signed ones wrap, whole numbers are written as they are.
        {turing_machine,
         "map -1.5 2.25 -32\nwin 200\ndeck -1 0 7 99\ntape -9223372036854775808\n"
         "goal 130 255 9223372036854775807 1 1 1\ngoal 7 3 0 128 0 -1 0 200 7\n"
         "stone 65535\nstone 40000\n=> 65535 32768 -181\n",
         "map -1.5 2.25 -32\nwin -56\ndeck -1 0 7 99\ntape -9223372036854775808\n"
         "goal -126 -1 9223372036854775807\ngoal 7 3 0 -128 0 -1 0 -56 7\n"
         "stone -1\nstone -25536\n=> -1 -32768 -181 0 0 \"\"\n"},
        // Reals end at four decimals; a zero has no sign and an offset no infinity.
        {state_machine,
         "map 9.99996 -0.00001 0.00004\nwin 0\n. -0.00006 -9.99996\n"
         "=> 0 1 0 -0.00001 999999999999999999999999999999999999999 \"two\nlines\" x\n",
         "map 10 0 0\nwin 0\n. -0.0001 -10\n"
         "=> 0 1 0 0 340282346638528929811768819974664093696 \"two\nlines\"\n"},
    };
    for (const auto& row : rows) {
        machine_kind = row.kind;
        for (const char* text : {row.read, row.written}) {
            map_put(text);
            EXPECT_EQ(map_text(), row.written) << text;
        }
    }
}

std::vector<std::string> shipped_files() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(maps_folder())) {
        if (entry.is_regular_file()) {
            files.push_back(file_get(entry.path()));
        }
    }
    return files;
}

// Also when it was broken before; reals keep their value up to 10^10.
TEST_F(map_file_test, AWrittenMapIsReadBackToItself) {
    std::mt19937_64 random(3);
    for (const std::string& file : shipped_files()) {
        for (int i = 0; i < 12; ++i) {
            machine_kind = static_cast<i64>(random() % 3);
            output_of([&] { map_put(i == 0 ? file : text_broken(file, random)); });
            std::string text = map_text();
            output_of([&] { map_put(text); });
            auto is_digit = [](char c, char) { return '0' <= c && c <= '9'; };
            bool large = std::search_n(text.begin(), text.end(), 11, '0', is_digit) != text.end();
            EXPECT_TRUE(large || map_text() == text) << text;
        }
    }
}

// Loads `text` from a block that ends where the memory ends, so that a step past it is noticed.
// The lists must have room already.
void map_load_exactly(const std::string& text) {
    arena kept = arenas[arena_persistent];
    std::unique_ptr<char[]> bytes(new char[text.size()]);
    arenas[arena_persistent] = {bytes.get(), static_cast<i64>(text.size()), 0};
    map_put(text);
    arenas[arena_persistent] = kept;
    map_text();  // touches every rule
    map_clear();
}

TEST_F(map_file_test, CutAndBrokenFilesAreReadWithinTheirBytes) {
    for (i64 i = 0; i < 5000; ++i) {  // room for every list
        map_add_state(0, 0, 0);
        map_add_transition(0, 0, 0, 0, 0, {});
        dyn_array_push(stones, 0);
        dyn_array_push(goals, goal{});
    }
    machine_kind = turing_machine;
    std::mt19937_64 random(7);
    std::vector<std::string> files = shipped_files();
    for (std::size_t i = 0; i < files.size(); ++i) {
        for (int times = 0; times < 30; ++times) {
            map_load_exactly(text_broken(files[i], random));
        }
        for (std::size_t size = 0; i % 8 == 0 && size <= files[i].size(); ++size) {
            map_load_exactly(files[i].substr(0, size));
        }
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
        map_put(pushdown_map);
    }

    std::string save(std::string_view name) {
        return output_of([&] { map_save(str_of(name)); });
    }

    // Everything that a failed save must leave alone: all files, the map and the list.
    std::string kept() {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(".")) {
            std::string path = entry.path();
            files.insert(path + ": " + (entry.is_regular_file() ? file_get(path) : "") + "\n");
        }
        std::string text = map_text() + std::to_string(catalogue_count()) + "\n";
        for (const std::string& file : files) {
            text += file;
        }
        return text;
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
}

TEST_F(save_test, NoNameLeadsOutOfTheDirectoryAndThoseOfOneFileAreTold) {
    struct {
        const char *name, *path, *told;
    } const rows[] = {
        {"../x", "__/x", ""}, {"/etc/x", "/etc/x", ""}, {"old", "old", ""},
        {"a!", "a_", ""},     {"a-", "a_", "a!"},       {"/a_", "/a_", "a!"},
        {"b/c", "b/c", ""},   {"b//c", "b//c", "b/c"},  {"older", "older", ""},
    };
    for (const auto& row : rows) {
        std::string path = std::string("custom_pushdown_machines/") + row.path;
        std::string told = std::string("file shared with map ") + row.told + "\n";
        EXPECT_EQ(save(row.name), std::string("saving map ") + row.name + " as " + path + "\n" +
                                      (*row.told == '\0' ? "" : told));
        EXPECT_EQ(file_get(path), pushdown_map);
    }
}

void file_size_limit(rlim_t bytes) {
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    setrlimit(RLIMIT_FSIZE, &limit);
}

// For its life, the player may not write to the directory, not even as root.
class locked_directory {
  public:
    explicit locked_directory(const char* path) : locked(path) {
        std::filesystem::permissions(".", mode(0755));
        std::filesystem::permissions(locked, mode(0555));
        EXPECT_EQ(getuid() == 0 ? seteuid(65534) : 0, 0);
    }
    ~locked_directory() {
        EXPECT_EQ(getuid() == 0 ? seteuid(0) : 0, 0);
        std::filesystem::permissions(locked, mode(0755));
    }

  private:
    static std::filesystem::perms mode(int bits) {
        return static_cast<std::filesystem::perms>(bits);
    }

    const char* locked;
};

TEST_F(save_test, AFailedSaveChangesNothing) {
    std::filesystem::create_directory("custom_pushdown_machines/folder");
    game_map.transitions[0].rule = str_copy(str_of(std::string(9000, 'A')));
    const std::string before = kept();
    auto expect_failure = [&](const std::string& name) {
        std::string path = "custom_pushdown_machines/" + name;
        EXPECT_EQ(save(name),
                  "saving map " + name + " as " + path + "\nfailed to save map: " + path + "\n");
    };
    for (const std::string& name :
         {std::string("folder"), std::string(), std::string("old/x"), std::string(500, 'n')}) {
        expect_failure(name);
        EXPECT_EQ(kept(), before) << name;
    }
    std::signal(SIGXFSZ, SIG_IGN);
    file_size_limit(4096);  // as on a full disk
    expect_failure("old");
    file_size_limit(RLIM_INFINITY);
    std::signal(SIGXFSZ, SIG_DFL);
    {
        locked_directory locked("custom_pushdown_machines");
        expect_failure("old");
        expect_failure("new");
    }
    EXPECT_EQ(kept(), before);
    auto save_until_killed = [] {
        std::freopen("/dev/null", "w", stdout);
        file_size_limit(4096);
        map_save("old");
    };
    EXPECT_EXIT(save_until_killed(), testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), "old");
    EXPECT_EQ(file_get(catalogue_file), earlier_list);
}

TEST_F(save_test, AListThatCannotBeWrittenKeepsTheSavedMap) {
    std::filesystem::permissions("custom_pushdown_machines", std::filesystem::perms::all);
    locked_directory locked("resources");
    EXPECT_EQ(save("new"),
              "saving map new as custom_pushdown_machines/new\n"
              "failed to save catalogue: resources/pushdown_maps.txt\n");
    EXPECT_EQ(file_get("custom_pushdown_machines/new"), pushdown_map);
    EXPECT_EQ(file_get(catalogue_file), earlier_list);
    EXPECT_EQ(catalogue_count(), 2);
}

}  // namespace
