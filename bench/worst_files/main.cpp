// Plays the worst files of 256 KiB and 4 MiB, or of the KiB given, through every kind of frame and
// prints what the dearest took: milliseconds of the processor's time, the least of three, on the
// headless platform. Waiting for the disk does not count.
//
// With "--write" it writes the maps of 4 MiB into the working directory instead, as FAMILY.NUMBER.

#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "bench/worst_files/files.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/saving.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "program/frame.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

using act = std::function<void()>;

f64 processor_ms() {
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<f64>(now.tv_sec) * 1e3 + static_cast<f64>(now.tv_nsec) / 1e6;
}

// What `measured` takes after `before`, at the least.
f64 least_ms(const act& before, const act& measured) {
    f64 least = 1e9;
    for (int turn = 0; turn < 3; ++turn) {
        before();
        f64 start = processor_ms();
        measured();
        least = std::min(least, processor_ms() - start);
    }
    return least;
}

void file_put(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

constexpr str map_path = "worst.map";

void screen_show(bool list, bool editor) {
    screens = {};
    screens.title_menu_open = false;
    screens.map_list_open = list;
    screens.editor_open = editor;
}

void seat_take(bool computer, u64 strength) {
    players.count = 0;
    player seat;
    seat.is_computer = computer;
    seat.strength = strength;
    dyn_array_push(players, seat);
}

void game_show(bool computer, u64 strength) {
    screen_show(false, false);
    seat_take(computer, strength);
    game_start();
    turn.show_nimbers = true;
    turn.think_timer = 0;
}

void editor_show() {
    screen_show(false, true);
    map_load(map_path);
    map_work_begin();
    map_work_is_saved(map_path);
    selection = {};
}

void frame() {
    program_frame();
}

struct frame_kind {
    const char* name;
    act before;
    act measured;
};

const std::vector<frame_kind> frame_kinds = {
    {"load", [] { screen_show(true, false); },
     [] {
         map_load(map_path);
         frame();
     }},
    {"list", [] { screen_show(true, false); }, frame},
    {"start", [] {},
     [] {
         game_show(false, 0);
         frame();
     }},
    {"board", [] { game_show(false, 0); }, frame},
    {"easy", [] { game_show(true, strength_easy); }, frame},
    {"normal", [] { game_show(true, strength_normal); }, frame},
    {"hard", [] { game_show(true, strength_hard); }, frame},
    {"turn's end",
     [] {
         game_show(false, 0);
         turn.move_timer = 0.001;
     },
     frame},
    {"editor", editor_show, frame},
    {"remove",
     [] {
         editor_show();
         selection.selected_state = 0;
         headless_key_press(key_delete);
     },
     frame},
    {"save",
     [] {
         editor_show();
         std::filesystem::remove_all("custom_state_machines");
     },
     [] {
         map_save("worst");
         frame();
     }},
    {"save again",
     [] {
         editor_show();
         map_save("worst");
         map_add_state(1, 2, 0);
     },
     [] {
         map_save("worst");
         frame();
     }},
    {"leave",
     [] {
         editor_show();
         map_add_state(1, 2, 0);
         headless_key_press(key_escape);
     },
     frame},
};

void row_print(const char* name, const std::vector<f64>& figures) {
    std::printf("| %s |", name);
    for (f64 figure : figures) {
        std::printf(figure < 10 ? " %.1f |" : " %.0f |", figure);
    }
    std::printf("\n");
    std::fflush(stdout);
}

void quietly(const act& work) {
    std::fflush(stdout);
    int said = dup(1);
    if (std::freopen("said.txt", "w", stdout) == nullptr) {
        std::abort();
    }
    work();
    std::fflush(stdout);
    dup2(said, 1);
    close(said);
}

void map_play(const worst_file& map, std::size_t size) {
    file_put("worst.map", map.make(size));
    machine_kind = map.family;
    catalogues[machine_kind].count = 0;
    dyn_array_push(catalogues[machine_kind], {"worst", map_path});
    current_catalogue = &catalogues[machine_kind];
    selected_entry = 0;
    std::vector<f64> figures;
    quietly([&] {
        for (const frame_kind& kind : frame_kinds) {
            figures.push_back(least_ms(kind.before, kind.measured));
        }
        map_work.open = false;
    });
    row_print(map.name, figures);
}

void maps_play(std::size_t size) {
    std::printf("| |");
    for (const frame_kind& kind : frame_kinds) {
        std::printf(" %s |", kind.name);
    }
    std::printf("\n|%s\n", std::string(frame_kinds.size() + 1, '|').c_str());
    for (const worst_file& map : worst_maps()) {
        quietly(program_start);
        map_play(map, size);
        program_end();
    }
}

// Start-up, its first frame, the map list, and saving a map that is not in the list yet.
void other_files_play(const char* name) {
    std::vector<f64> figures;
    quietly([&] {
        figures.push_back(least_ms([] {},
                                   [] {
                                       program_start();
                                       frame();
                                       program_end();
                                   }));
        program_start();
        machine_kind = state_machine;
        current_catalogue = &catalogues[machine_kind];
        figures.push_back(least_ms([] { screen_show(true, false); }, frame));
        i64 saved = 0;
        figures.push_back(least_ms([&] { saved += 1; },
                                   [&] {
                                       const char names[] = "abc";
                                       map_save({names + saved % 3, 1});
                                       frame();
                                   }));
        program_end();
    });
    row_print(name, figures);
}

void size_play(std::size_t kib) {
    namespace files = std::filesystem;
    std::printf("\n%zu KiB\n\n", kib);
    maps_play(kib * 1024);
    std::printf("\n| | start-up | list | save |\n|||||\n");
    file_put("resources/state_maps.txt", worst_catalogue(kib * 1024));
    other_files_play("a list of maps");
    files::copy(QUORREL_SOURCE_DIR "/resources", "resources",
                files::copy_options::overwrite_existing | files::copy_options::recursive);
    file_put("resources/font_info.txt", worst_font(kib * 1024));
    other_files_play("a font of pictures");
    files::copy(QUORREL_SOURCE_DIR "/resources", "resources",
                files::copy_options::overwrite_existing | files::copy_options::recursive);
}

void maps_write() {
    int number = 0;
    for (const worst_file& map : worst_maps()) {
        std::string name = std::to_string(map.family);
        name += '.';
        name += std::to_string(++number);
        file_put(name, map.make(std::size_t{4096} * 1024));
    }
}

}  // namespace

int main(int count, char** words) {
    if (count == 2 && std::string(words[1]) == "--write") {
        maps_write();
        return EXIT_SUCCESS;
    }
    namespace files = std::filesystem;
    files::path folder =
        files::temp_directory_path() / ("quorrel-worst-" + std::to_string(getpid()));
    files::create_directory(folder);
    files::current_path(folder);
    files::copy(QUORREL_SOURCE_DIR "/resources", "resources", files::copy_options::recursive);
    headless_reset();
    std::vector<std::size_t> sizes = {256, 4096};
    if (count > 1) {
        sizes.clear();
        std::transform(words + 1, words + count, std::back_inserter(sizes),
                       [](const char* word) { return std::strtoul(word, nullptr, 10); });
    }
    std::for_each(sizes.begin(), sizes.end(), size_play);
    files::current_path(files::temp_directory_path());
    files::remove_all(folder);
}
