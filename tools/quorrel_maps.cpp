// For people who make maps and teach with them: one command after the other.

#include <algorithm>
#include <cstdio>

#include "base/arena.h"
#include "platform/file.h"
#include "platform/headless/headless.h"
#include "platform/standard_streams.h"
#include "platform/system.h"
#include "program/globals.h"
#include "program/player_files.h"
#include "rules/random.h"
#include "tools/commands.h"

namespace {

struct command_form {
    std::string_view name;
    int (*run)(words arguments);
    const char* synopsis;
    const char* help;
};

// clang-format off
constexpr command_form commands[] = {
    {"check", check_command, "FAMILY [--cyclic] [--seats N] FILE...",
     "Name, one line each, what is wrong or doubtful in the maps; nothing of a good one.\n"
     "--cyclic: state machines are meant to have cycles. --seats: for at most N seats (6)."},
    {"play", play_command, "FAMILY FILE --seats SEAT,... [--games N] [--seed S]",
     "Play N games (100) dealt from seed S (1). SEAT is easy, normal, hard or human, for 1 to 6\n"
     "seats; a human plays by chance what the board offers. A game is given up after 2000\n"
     "turns and when nobody can go on."},
    {"trace", trace_command, "FILE --seats SEAT,... [--seed S] [--family FAMILY]",
     "Write one such game move by move."},
    {"explain", explain_command, "RULE [--card Aa1] [--top Bb2]",
     "Say what a rule asks; with a card, whether it may be played on the top card (without one:\n"
     "on the empty pile) and which part decides."},
    {"explain", explain_command, "\"goal 0 0 7\" [--tape Aa1,Bb2,...]",
     "Say what a goal asks, as its line in a map tells it; with a tape, whether it is met."},
    {"draw", draw_command, "FILE [-o FILE] [--numbers] [--family FAMILY]",
     "Draw the board for a worksheet, as SVG. --numbers: with the states' numbers."},
    {"list", list_command, "[FAMILY] [--all]",
     "List your own maps. --all: those of the game too."},
    {"add", add_command, "FILE... [--family FAMILY]",
     "Take map files into your maps."},
    {"remove", remove_command, "NAME [--family FAMILY]",
     "Take a map off your list; its file goes into kept/."},
    {"export", export_command, "NAME|FILE [-o FILE] [--family FAMILY]",
     "Write a map as a code of one line, for chat and mail. -o: as a file."},
    {"import", import_command, "CODE|FILE...",
     "Take maps from such codes, links that end in one, or files."},
};
// clang-format on

void help_put() {
    std::puts("usage: quorrel_maps COMMAND ...\n");
    for (const command_form& form : commands) {
        std::printf("  %s %s\n", form.name.data(), form.synopsis);
        std::string_view help = form.help;
        while (!help.empty()) {
            std::string_view line = help.substr(0, help.find('\n'));
            std::printf("        %.*s\n", static_cast<int>(line.size()), line.data());
            help.remove_prefix(std::min(help.size(), line.size() + 1));
        }
    }
    std::puts(
        "\nFAMILY is state, pushdown or turing; --family is needed where a file does not tell.\n"
        "Your maps are those of the game; --directory DIR names another directory than usual.\n"
        "The exit status is 0 when all is well, 1 when a map is doubtful, a game was given up or\n"
        "an answer is no, and 2 when the arguments or a file cannot be read.");
}

// Everything at its start value, and the game as it stands before its first frame.
void game_prepare() {
    headless_reset();
    globals_reset();
    arenas_create();
    if (!directory_is_whole(".")) {
        file_set_fallback(shipped_data_find());
    }
    system_init(system_all, key_repeat_off);
    random_seed(1);  // the same answer to the same question
}

int command_run(const words& arguments) {
    if (arguments.empty()) {
        return complain("no command", "see quorrel_maps --help");
    }
    if (arguments[0] == "--help") {
        help_put();
        return all_well;
    }
    for (const command_form& form : commands) {
        if (form.name == arguments[0]) {
            game_prepare();
            return form.run({arguments.begin() + 1, arguments.end()});
        }
    }
    return complain(arguments[0], "no such command; see quorrel_maps --help");
}

}  // namespace

int main(int argument_count, char** arguments) {
    standard_streams_open();
    return command_run({arguments + 1, arguments + argument_count});
}
