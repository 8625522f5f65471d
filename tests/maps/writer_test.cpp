#include "maps/writer.h"
#include "maps/saving.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <numeric>
#include <random>
#include <set>

#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/reader.h"
#include "tests/support/game.h"

namespace {

std::string map_text() {
    text_builder text = {};
    map_write(text);
    return string_of(text_builder_text(text));
}

void map_read(std::string_view text) {
    file_put("map", text);
    map_load("map");
}

using writer_test = game_test;

constexpr const char* pushdown_map =
    "map 0 0 1\nwin 0\ndeck 1 4 4 4\nhand 8\nstone 0\n* 0.5 -1\n. 2 0\n=> 0 1 0 0 0 \"A\"\n";

TEST_F(writer_test, MapsAreWrittenInTheirCanonicalForm) {
    struct {
        i64 kind;
        const char *read, *written;
    } const rows[] = {
        {pushdown_machine, pushdown_map, pushdown_map},
        {pushdown_machine,
         "# any order\r\n=> 0 1 0 0 0 \"A\"\n* .5 -1.\nhand 8\nstone 0\ngoal 1 1 1\n$ 2 0\n"
         "tape 9\ndeck 1 4 4 4\nwin 256 ever\nmap 0 0 1",
         pushdown_map},
        {state_machine, pushdown_map,
         "map 0 0 1\nwin 0\nstone 0\n* 0.5 -1\n. 2 0\n=> 0 1 0 0 0 \"A\"\n"},
        {turing_machine,
         "map 0 0 128\nwin 2\ndeck 2 6 5 3\nhand 7\ntape 12\ngoal 2 0 -4\ngoal 5 1 3 1 2 3\n"
         "goal 8 2 1 0 5 1 4 3 2\ngoal 3 0 0 1 1 1\n=> 3 3 45 12.5 -0.125 \"AR\"\n",
         "map 0 0 128\nwin 2\ndeck 2 6 5 3\ntape 12\ngoal 2 0 -4\ngoal 5 1 3 1 2 3\n"
         "goal 8 2 1 0 5 1 4 3 2\ngoal 3 0 0\n=> 3 3 45 12.5 -0.125 \"AR\"\n"},
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
        {state_machine, "map 0 0 1\nwin 0\n", "map 0 0 1\nwin 0\n"},
    };
    for (const auto& row : rows) {
        machine_kind = row.kind;
        for (const char* text : {row.read, row.written}) {
            map_read(text);
            EXPECT_EQ(map_text(), row.written) << text;
        }
    }
}

// A map of random values, whole numbers of every size among them.
void map_make_random(std::mt19937_64& random) {
    auto below = [&](u64 limit) { return static_cast<i64>(random() % limit); };
    auto whole = [&] { return static_cast<i64>(random()) >> below(64); };
    auto real = [&] { return static_cast<f64>(below(2'000'000) - 1'000'000) / (1 << below(20)); };
    auto index = [&] { return static_cast<u16>(whole()); };
    auto byte = [&] { return static_cast<u8>(random()); };
    auto any_card = [&] { return card{byte(), byte(), byte()}; };
    auto rule = [&] {
        std::string text(static_cast<std::size_t>(below(below(50) == 0 ? 6000 : 12)), ' ');
        for (char& c : text) {
            c = static_cast<char>(byte());
            c = c == '"' ? '\n' : c;
        }
        return str_copy(str_of(text));
    };
    machine_kind = below(machine_kind_count);
    game_map.origin_x = real();
    game_map.origin_y = real();
    game_map.scale = real();
    settings = {whole(), whole(), whole(), whole(), whole(), whole(), byte()};
    for (i64 i = below(9); i > 0; --i) {
        map_add_state(real(), real(), static_cast<u8>(below(2)));
        dyn_array_push(goals, {byte(), byte(), whole(), any_card(), any_card()});
        dyn_array_push(stones, index());
        map_add_transition(index(), index(), static_cast<i16>(whole()), static_cast<f32>(real()),
                           static_cast<f32>(real()), rule());
    }
}

TEST_F(writer_test, AWrittenMapIsReadBackToItself) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 1000; ++i) {
        map_clear();
        map_make_random(random);
        std::string text = map_text();
        settings = {};
        map_read(text);
        ASSERT_EQ(map_text(), text) << "map " << i;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(maps_folder())) {
        std::string text = entry.is_regular_file() ? file_get(entry.path().string()) : "";
        bool hand = text.find("\nhand ") != text.npos;
        machine_kind = hand ? pushdown_machine : turing_machine;
        map_read(text);
        text = map_text();
        map_read(text);
        EXPECT_EQ(map_text(), text) << entry.path();
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
        map_read(pushdown_map);
    }

    std::string save(std::string_view name) {
        return output_of([&] { map_save(str_of(name)); });
    }

    // Everything that a failed save must leave alone: all files, the map and the list.
    std::string kept() {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(".")) {
            std::string path = entry.path().string();
            files.insert(path + ": " + (entry.is_regular_file() ? file_get(path) : "") + "\n");
        }
        std::string text = map_text() + std::to_string(catalogue_count()) + "\n";
        return std::accumulate(files.begin(), files.end(), text);
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
    EXPECT_EQ(save("my-map!"), "saving map my-map! as custom_pushdown_machines/my_map_\n");
    EXPECT_NE(file_get("custom_pushdown_machines/my_map_").find("hand 3\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(catalogue_file));  // listed already: not written again
    EXPECT_EQ(save("more"), "saving map more as custom_pushdown_machines/more\n");
    EXPECT_EQ(file_get(catalogue_file), list + "more custom_pushdown_machines/more\n");
}

TEST_F(save_test, NoNameLeadsOutOfTheDirectory) {
    struct {
        const char *name, *path;
    } const rows[] = {
        {"../x", "custom_pushdown_machines/__/x"},
        {"/etc/x", "custom_pushdown_machines//etc/x"},
        {"a/../../x", "custom_pushdown_machines/a/__/__/x"},
        {"..x", "custom_pushdown_machines/__x"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(save(row.name), std::string("saving map ") + row.name + " as " + row.path + "\n");
        EXPECT_EQ(file_get(row.path), pushdown_map);
    }
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        std::string name = entry.path().filename().string();
        EXPECT_TRUE(name == "map" || name == "resources" || name == "custom_pushdown_machines")
            << name;
    }
}

TEST_F(save_test, AMapThatIsReplacedByAnotherOneIsKept) {
    struct {
        const char *name, *kept;
    } const rows[] = {
        {"new", ""}, {"new", ""}, {"old", "old"}, {"old", "old"}, {"/old", "old"},
    };
    for (const auto& row : rows) {
        save(row.name);
        EXPECT_EQ(kept_text(), *row.kept == '\0' ? "" : "old.pushdown: old\n") << row.name;
    }
    settings.hand_size = 3;
    save("old");
    EXPECT_EQ(kept_text(), std::string("old.pushdown: old\nold.pushdown: ") + pushdown_map + "\n");
}

TEST_F(save_test, AFileThatCannotBeKeptIsNotReplaced) {
    file_put("kept", "in the way");
    EXPECT_NE(save("old").find("failed to save map"), std::string::npos);
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), "old");
}

TEST_F(save_test, AMapTooLargeToBeReadAgainIsNotWritten) {
    std::string rule(text_file_limit, 'A');
    game_map.transitions[0].rule = str_of(rule);
    EXPECT_NE(save("old").find("failed to save map"), std::string::npos);
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), "old");
    EXPECT_EQ(kept_text(), "");
}

// For its life, no file can grow beyond `bytes`, as on a full disk.
class full_disk {
  public:
    explicit full_disk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        limit_set(bytes);
    }
    ~full_disk() {
        limit_set(RLIM_INFINITY);
        std::signal(SIGXFSZ, SIG_DFL);
    }

    static void limit_set(rlim_t bytes) {
        rlimit limit;
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = std::min(bytes, limit.rlim_max);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
};

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
    for (const auto& name : {"folder", "", "old/x", "old/"}) {
        expect_failure(name);
        EXPECT_EQ(kept(), before) << name;
    }
    expect_failure(std::string(500, 'n'));
    EXPECT_EQ(kept(), before);
    for (rlim_t bytes : {rlim_t{500}, rlim_t{4096}, rlim_t{map_text().size() - 1}}) {
        full_disk full(bytes);
        expect_failure("old");
        EXPECT_EQ(kept(), before) << bytes;
    }
    {
        locked_directory locked("custom_pushdown_machines");
        expect_failure("old");
        expect_failure("new");
    }
    EXPECT_EQ(kept(), before);
    EXPECT_EQ(save("old"), "saving map old as custom_pushdown_machines/old\n");
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), map_text());
}

TEST_F(save_test, AKilledSaveLeavesTheEarlierFiles) {
    game_map.transitions[0].rule = str_copy(str_of(std::string(9000, 'A')));
    auto save_until_killed = [] {
        std::freopen("/dev/null", "w", stdout);
        full_disk::limit_set(4096);
        map_save("old");
    };
    EXPECT_EXIT(save_until_killed(), testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_EQ(file_get("custom_pushdown_machines/old"), "old");
    EXPECT_EQ(file_get(catalogue_file), earlier_list);
}

TEST_F(save_test, AListThatCannotBeWrittenKeepsTheSavedMap) {
    const std::string told = "failed to save catalogue: resources/pushdown_maps.txt\n";
    std::filesystem::permissions("custom_pushdown_machines", std::filesystem::perms::all);
    std::string output;
    {
        locked_directory locked("resources");
        output = save("new");
    }
    EXPECT_EQ(output, "saving map new as custom_pushdown_machines/new\n" + told);
    EXPECT_EQ(file_get("custom_pushdown_machines/new"), pushdown_map);
    EXPECT_EQ(file_get(catalogue_file), earlier_list);
    EXPECT_EQ(catalogue_count(), 2);
}

}  // namespace
