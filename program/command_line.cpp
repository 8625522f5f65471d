#include "program/command_line.h"

#include <getopt.h>

#include <cassert>
#include <cstdio>
#include <cstring>

namespace {

constexpr int wrong_use = 2;

constexpr char help[] =
    "usage: quorrel [OPTION]... [FILE]...\n"
    "\n"
    "Starts the game. Each map FILE is first taken into your custom maps; a game FILE is opened.\n"
    "\n"
    "  --directory DIR  play in DIR instead of $XDG_DATA_HOME/quorrel or ~/.local/share/quorrel\n"
    "  --family NAME    the FILEs are maps of this family: state, pushdown or turing\n"
    "  --fullscreen     begin on the whole screen\n"
    "  --play MAP       play this MAP, a name on your lists or a file, straight away\n"
    "  --restore-maps   bring back the shipped maps that you removed from the lists\n"
    "  --seats SEAT,... the seats: up to six of human, easy, normal and hard\n"
    "  --still          without movement: stones jump, the title stands\n"
    "  --help           show this help and end\n"
    "  --version        show the version and end\n";

enum option_code : int {
    option_directory = 1,
    option_family,
    option_fullscreen,
    option_play,
    option_restore,
    option_still,
    option_seats,
    option_help,
    option_version
};

constexpr option options[] = {
    {"directory", required_argument, nullptr, option_directory},
    {"family", required_argument, nullptr, option_family},
    {"fullscreen", no_argument, nullptr, option_fullscreen},
    {"play", required_argument, nullptr, option_play},
    {"restore-maps", no_argument, nullptr, option_restore},
    {"seats", required_argument, nullptr, option_seats},
    {"still", no_argument, nullptr, option_still},
    {"help", no_argument, nullptr, option_help},
    {"version", no_argument, nullptr, option_version},
    {},
};

str argument_text(const char* argument) {
    return {argument, static_cast<i64>(std::strlen(argument))};
}

bool family_read(const char* name, i64& family) {
    family = family_named(argument_text(name));
    if (family == no_family) {
        std::fprintf(stderr, "quorrel: no such family: %s\n", name);
    }
    return family != no_family;
}

bool seats_read(const char* words, seat_list& seats) {
    bool known = seat_list_read(argument_text(words), seats);
    if (!known) {
        std::fprintf(stderr, "quorrel: no such seats: %s\n", words);
    }
    return known;
}

int answer(const char* text) {
    std::fputs(text, stdout);
    return 0;
}

int option_apply(int code, command_line& command) {
    switch (code) {
        case option_directory:
            command.directory = optarg;
            return command_play;
        case option_family:
            return family_read(optarg, command.family) ? command_play : wrong_use;
        case option_fullscreen:
            command.fullscreen = true;
            return command_play;
        case option_play:
            command.map_to_play = optarg;
            return command_play;
        case option_seats:
            return seats_read(optarg, command.seats) ? command_play : wrong_use;
        case option_restore:
            command.restore_maps = true;
            return command_play;
        case option_still:
            command.still = true;
            return command_play;
        case option_help:
            return answer(help);
        case option_version:
            return answer("quorrel " QUORREL_VERSION "\n");
        default:
            return wrong_use;  // getopt_long has named it
    }
}

}  // namespace

int command_line_read(int argument_count, char** arguments, command_line& command) {
    optind = 0;  // from the start, also when called again
    for (int code; (code = getopt_long(argument_count, arguments, "", options, nullptr)) != -1;) {
        if (int status = option_apply(code, command); status != command_play) {
            return status;
        }
    }
    assert(optind <= argument_count);
    command.files = arguments + optind;
    command.file_count = argument_count - optind;
    return command_play;
}
