// For people who make maps: names what is doubtful in them and lets computer seats play them.

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

#include "base/arena.h"
#include "maps/file_text.h"
#include "maps/model.h"
#include "maps/reader.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "platform/headless/headless.h"
#include "platform/system.h"
#include "program/globals.h"
#include "program/player_files.h"
#include "render/camera.h"
#include "render/font.h"
#include "render/renderer.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"
#include "tools/map_play.h"

namespace {

constexpr const char* usage =
    "usage: quorrel_maps check FAMILY [--cyclic] FILE...\n"
    "       quorrel_maps play FAMILY FILE --seats SEAT,... [--games N] [--seed S]\n"
    "\n"
    "FAMILY is state, pushdown or turing; SEAT is easy, normal, hard or human, one for each of 1\n"
    "to 6 seats. A human plays by chance what the board offers humans.\n"
    "\n"
    "check names, one line each, what is wrong or doubtful in the maps; it is silent about good\n"
    "ones. --cyclic says that state machines are meant to have cycles.\n"
    "play plays N games (100) dealt from seed S (1); a game is given up after 2000 turns and when\n"
    "no stone of a state machine can move.\n"
    "\n"
    "The exit status is 0 when all is well, 1 when a map is doubtful, a game was given up or a\n"
    "human was stuck, and 2 when the arguments or a file cannot be read.\n";

enum exit_status { all_well = 0, doubtful = 1, not_understood = 2 };

using words = std::vector<std::string_view>;

constexpr std::string_view family_names[] = {"state", "pushdown", "turing"};
constexpr std::string_view seat_names[] = {"easy", "normal", "hard", "human"};
static_assert(std::size(family_names) == machine_kind_count);
static_assert(std::size(seat_names) == human_seat + 1);

// The place of `name` among `names`, -1 when it is none of them.
template <std::size_t count>
i64 name_find(const std::string_view (&names)[count], std::string_view name) {
    for (std::size_t i = 0; i < count; ++i) {
        if (names[i] == name) {
            return static_cast<i64>(i);
        }
    }
    return -1;
}

template <typename number>
bool number_read(std::string_view text, number& value) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

str str_of(std::string_view text) {
    return {text.data(), static_cast<i64>(text.size())};
}

int complain(std::string_view what, std::string_view about) {
    std::fprintf(stderr, "quorrel_maps: %.*s: %.*s\n%s", static_cast<int>(about.size()),
                 about.data(), static_cast<int>(what.size()), what.data(), usage);
    return not_understood;
}

bool file_missing(std::string_view path, str& text) {
    if (file_read_all(str_of(path), text)) {
        return false;
    }
    std::fprintf(stderr, "quorrel_maps: cannot read %.*s\n", static_cast<int>(path.size()),
                 path.data());
    return true;
}

// Everything at its start value, and the game as it stands before its first frame.
void game_prepare() {
    headless_reset();
    globals_reset();
    arenas_create();
    if (!directory_exists("resources")) {
        file_set_fallback(shipped_data_find());
    }
    system_init(system_all, key_repeat_off);
}

// A frame in which the board can be drawn and the draws looked at.
void drawing_prepare() {
    renderer_init();
    camera_matrices_build(render_target.width, render_target.height);
    render_frame_begin();
    headless_record(true);
}

// Loads the map; of a state machine that is meant to have cycles no nimbers are sought.
void map_load_as(std::string_view path, machine_kind_value family, bool cyclic) {
    settings = {};
    machine_kind = cyclic ? pushdown_machine : family;
    map_load(str_of(path));
    machine_kind = family;
}

void append(remarks& to, const remarks& more) {
    to.insert(to.end(), more.begin(), more.end());
}

int file_check(std::string_view path, machine_kind_value family, bool cyclic) {
    str text;
    if (file_missing(path, text)) {
        return not_understood;
    }
    remarks found = lines_check(text, family);
    map_load_as(path, family, cyclic);
    append(found, map_check(cyclic));
    append(found, layout_check());
    for (const std::string& remark : found) {
        std::printf("%.*s: %s\n", static_cast<int>(path.size()), path.data(), remark.c_str());
    }
    return found.empty() ? all_well : doubtful;
}

int check_command(machine_kind_value family, const words& arguments) {
    bool cyclic = !arguments.empty() && arguments[0] == "--cyclic";
    words paths(arguments.begin() + (cyclic ? 1 : 0), arguments.end());
    if (paths.empty()) {
        return complain("no file to check", "check");
    }
    drawing_prepare();
    if (font.line_height == 0) {
        std::fputs("quorrel_maps: no font, so labels cannot be checked: resources are missing\n",
                   stderr);
        return not_understood;
    }
    int worst = all_well;
    for (std::string_view path : paths) {
        worst = std::max(worst, file_check(path, family, cyclic && family == state_machine));
    }
    return worst;
}

struct play_options {
    std::vector<i64> seats;
    i64 games = 100;
    u64 seed = 1;
};

bool seats_read(std::string_view list, std::vector<i64>& seats) {
    while (true) {
        std::size_t comma = list.find(',');
        i64 seat = name_find(seat_names, list.substr(0, comma));
        if (seat < 0 || static_cast<i64>(seats.size()) == player_limit) {
            return false;
        }
        seats.push_back(seat);
        if (comma == std::string_view::npos) {
            return true;
        }
        list.remove_prefix(comma + 1);
    }
}

bool option_read(std::string_view name, std::string_view value, play_options& options) {
    if (name == "--seats") {
        options.seats.clear();
        return seats_read(value, options.seats);
    }
    if (name == "--games") {
        return number_read(value, options.games) && options.games > 0;
    }
    return name == "--seed" && number_read(value, options.seed);
}

f64 percent(i64 part, i64 whole) {
    return 100.0 * static_cast<f64>(part) / static_cast<f64>(whole);
}

void record_print(const play_record& record, const play_options& options) {
    i64 finished = std::max<i64>(1, options.games - record.unfinished - record.stuck);
    for (std::size_t seat = 0; seat < options.seats.size(); ++seat) {
        std::printf("seat %zu %s: %.1f%% of wins\n", seat + 1,
                    seat_names[options.seats[seat]].data(), percent(record.wins[seat], finished));
    }
    std::printf(
        "turns: median %lld, longest %lld\n", static_cast<long long>(median(record.turns)),
        static_cast<long long>(*std::max_element(record.turns.begin(), record.turns.end())));
    std::printf("moves %lld, passes %lld, draws %lld, unfinished %lld of %lld games\n",
                static_cast<long long>(record.moves), static_cast<long long>(record.passes),
                static_cast<long long>(record.draws), static_cast<long long>(record.unfinished),
                static_cast<long long>(options.games));
    std::printf("won by the first turn %lld, stuck humans %lld\n",
                static_cast<long long>(record.at_once), static_cast<long long>(record.stuck));
}

int play_command(machine_kind_value family, const words& arguments) {
    play_options options;
    if (arguments.empty()) {
        return complain("no file to play", "play");
    }
    for (std::size_t i = 1; i < arguments.size(); i += 2) {
        if (i + 1 == arguments.size() || !option_read(arguments[i], arguments[i + 1], options)) {
            return complain("not an option with a value that it takes", arguments[i]);
        }
    }
    if (options.seats.empty()) {
        return complain("no seats", "play");
    }
    str text;
    if (file_missing(arguments[0], text)) {
        return not_understood;
    }
    map_load_as(arguments[0], family, false);
    play_record record =
        map_play(options.seats, options.games, options.seed, isatty(STDERR_FILENO) != 0);
    record_print(record, options);
    return record.unfinished + record.stuck == 0 ? all_well : doubtful;
}

int command_run(const words& arguments) {
    if (arguments.size() < 2) {
        std::fputs(usage, stderr);
        return not_understood;
    }
    i64 family = name_find(family_names, arguments[1]);
    if (family < 0) {
        return complain("no such family", arguments[1]);
    }
    words rest(arguments.begin() + 2, arguments.end());
    game_prepare();
    if (arguments[0] == "check") {
        return check_command(static_cast<machine_kind_value>(family), rest);
    }
    if (arguments[0] == "play") {
        return play_command(static_cast<machine_kind_value>(family), rest);
    }
    return complain("no such command", arguments[0]);
}

}  // namespace

int main(int argc, char** argv) {
    return command_run(words(argv + 1, argv + argc));
}
