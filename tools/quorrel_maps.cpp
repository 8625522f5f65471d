// For people who make maps and teach with them: one command after the other.

#include <algorithm>
#include <cstdio>
#include <limits>

#include "base/arena.h"
#include "base/tidings.h"
#include "platform/file.h"
#include "platform/headless/headless.h"
#include "platform/standard_streams.h"
#include "platform/system.h"
#include "program/globals.h"
#include "program/player_files.h"
#include "rules/random.h"
#include "tools/commands.h"

namespace {

constexpr std::size_t many = std::numeric_limits<std::size_t>::max();

struct command_form {
    std::string_view name;
    int (*run)(const request& asked);
    const char* options;  // their codes
    std::size_t least;    // words beside the options
    std::size_t most;
    const char* synopsis;
    const char* help;
};

// clang-format off
constexpr command_form commands[] = {
    {"check", check_command, "afdcm", 1, many,
     "[FAMILY] MAP... [--cyclic] [--seats N] [--all]",
     "Name what is wrong or doubtful in the maps, what breaks play first; nothing of a good one.\n"
     "--cyclic: state machines are meant to have cycles. --seats: for at most N seats (6).\n"
     "--all: every label and all lines, of which otherwise 20 of a kind are shown."},
    {"play", play_command, "fdsgrS", 1, 1,
     "[FAMILY] MAP [--seats SEAT,...] [--games N] [--seed S] [--save-game FILE]",
     "Play N games (100) dealt from seed S (1). SEAT is easy, normal, hard or human, for 1 to 6\n"
     "seats (hard,hard); a human plays by chance what the board offers. A game is given up after\n"
     "2000 turns and when nobody can go on. --save-game: with the last game as a FILE, which the\n"
     "game opens; cut behind any of its acts it is a position to play from."},
    {"trace", trace_command, "fdsr", 1, 1,
     "[FAMILY] MAP [--seats SEAT,...] [--seed S]",
     "Write one such game move by move."},
    {"replay", replay_command, "oPn", 1, 1,
     "FILE [--svg N [-o FILE] [--numbers]]",
     "Tell a game, which the FILE holds, act by act in plain words. --svg: draw the position after\n"
     "N acts, with what the seats hold."},
    {"solve", solve_command, "fdkDrMLvwna", 1, 1,
     "[FAMILY] MAP|GAME [--seats N] [--move] [--all] [--svg FILE [--numbers]]\n"
     "        [--deals N] [--seed S] [--memory MB] [--time SECONDS]",
     "Say who wins when nobody errs: 2 seats or N, of all deals of a turing machine, of N deals (100)\n"
     "of a pushdown machine with open hands, dealt from seed S (1). --move: what the seat to move\n"
     "does best, at the start or in a game that was kept as a file, and what else it could do.\n"
     "--svg: draws that, too. It gives up what takes more than 1024 MB or 600 s; what ctrl+c and\n"
     "the time leave unfinished is told as far as it went."},
    {"make", make_command, "foKNOlCr", 0, 0,
     "FAMILY [--level N] [--states N] [--stones N] [--seats N] [--count N] [--seed S] [-o FOLDER]",
     "Make N maps (1) that are fair and good to play, as files named by what they are. --level: 1\n"
     "to 5 (3). --seats: for N (2), which between equals win alike. The candidates are numbered, from\n"
     "S (1) on, and a number is the same map everywhere."},
    {"explain", explain_command, "ptT", 1, 1,
     "RULE|GOAL [--card Aa1] [--top Bb2] [--tape Aa1,Bb2,...]",
     "Say what a rule asks; with a card, whether it may be played on the top card (without one:\n"
     "on the empty pile) and which part decides. Or say what a goal asks, as its line in a map,\n"
     "such as \"goal 0 0 7\", tells it; with a tape, whether it is met."},
    {"draw", draw_command, "fdon", 1, 1,
     "[FAMILY] MAP [-o FILE] [--numbers]",
     "Draw the board for a worksheet, as SVG. --numbers: with the states' numbers."},
    {"sheet", sheet_command, "fdokr", 1, many,
     "[FAMILY] MAP|GAME... [-o FILE] [--seats N] [--seed S]",
     "Write a work sheet of one HTML file, sheet.html or FILE: a page for each map or game that was\n"
     "kept as a file, with its board, its rules in words and lines for answers, and at its end the\n"
     "solutions. The remarks of a file, lines that begin with #, are the tasks, those that begin\n"
     "with \"Solution:\" go to the solutions. Maps are for 2 seats or N and dealt from seed S (1)."},
    {"list", list_command, "fda", 0, 0,
     "[FAMILY] [--all]",
     "List your own maps. --all: those of the game too."},
    {"import", import_command, "fd", 1, many,
     "CODE|FILE...",
     "Take maps into yours: from files, codes and links that end in one, also from mails."},
    {"add", import_command, "fd", 1, many,
     "FILE...",
     "The same."},
    {"export", export_command, "fdo", 1, 1,
     "[FAMILY] MAP [-o FILE]",
     "Write a map as a code of one line, for chat and mail. -o: as a file."},
    {"remove", remove_command, "fd", 1, 1,
     "[FAMILY] NAME",
     "Take a map off your list; its file goes into kept/."},
};
// clang-format on

void command_help_put(const command_form& form) {
    std::printf("  %s %s\n", form.name.data(), form.synopsis);
    std::string_view help = form.help;
    while (!help.empty()) {
        std::string_view line = help.substr(0, help.find('\n'));
        std::printf("        %.*s\n", static_cast<int>(line.size()), line.data());
        help.remove_prefix(std::min(help.size(), line.size() + 1));
    }
}

int help_put() {
    std::puts("usage: quorrel_maps COMMAND ...\n");
    std::for_each(std::begin(commands), std::end(commands), command_help_put);
    std::puts(
        "\nMAP is a file, the name of one of your maps, which are those of the game, or a code.\n"
        "--directory DIR names another directory of yours than usual. FAMILY is state, pushdown\n"
        "or turing, also as --family FAMILY: it is needed where a file does not tell its own and\n"
        "where several families have a map of that name.\n"
        "\n"
        "The exit status is 0 when all is well, 2 for a wrong command line, and 1 when something\n"
        "could not be done, a map is doubtful, a game was given up or an answer is no.");
    return all_well;
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

// A family may stand before the words that the command needs.
void family_take(request& asked, std::size_t least) {
    i64 family = asked.names.size() > least ? family_named(str_from(asked.names[0])) : no_family;
    if (family != no_family) {
        asked.family = family;
        asked.names.erase(asked.names.begin());
    }
}

// Runs the command with the arguments from its name on.
int command_run(const command_form& form, int argument_count, char** arguments) {
    game_prepare();
    request asked;
    int status = request_read(form.options, argument_count, arguments, asked);
    if (status == request_for_help) {
        command_help_put(form);
        return all_well;
    }
    if (status != request_is_read) {
        return status;
    }
    family_take(asked, form.least);
    if (asked.names.size() < form.least || asked.names.size() > form.most) {
        return complain("usage",
                        std::string("quorrel_maps ") + form.name.data() + " " + form.synopsis,
                        wrong_use);
    }
    status = form.run(asked);
    bool has_failed = tidings.is_new && tidings.kind == tiding_failure;
    return has_failed
               ? complain(form.name, {tidings.text, static_cast<std::size_t>(tidings.length)})
               : status;
}

int command_find_and_run(int argument_count, char** arguments) {
    if (argument_count < 2) {
        return complain("no command", "see quorrel_maps --help", wrong_use);
    }
    std::string_view name = arguments[1];
    if (name == "--help" || name == "-h") {
        return help_put();
    }
    if (name == "--version") {
        std::puts("quorrel_maps " QUORREL_VERSION);
        return all_well;
    }
    auto form = std::ranges::find(commands, name, &command_form::name);
    return form == std::end(commands)
               ? complain(name, "no such command; see quorrel_maps --help", wrong_use)
               : command_run(*form, argument_count - 1, arguments + 1);
}

}  // namespace

int main(int argument_count, char** arguments) {
    standard_streams_open();
    int status = command_find_and_run(argument_count, arguments);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return complain("standard output", "cannot be written");
    }
    return status;
}
