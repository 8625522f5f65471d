#pragma once

// What a command of quorrel_maps is asked for: the words behind it and its options.

#include "maps/card.h"
#include "maps/family.h"
#include "rules/game_state.h"
#include "tools/words.h"

// `failed` is also the answer of a map that is doubtful and of a rule or goal that is not met.
enum exit_status { all_well = 0, failed = 1, wrong_use = 2 };

struct request {
    words names;                 // what is no option, in its order
    i64 family = no_family;      // of all files; `no_family` to let each tell
    std::string_view directory;  // of the player; empty for the usual one
    std::string_view out;        // path of a file to write; empty for standard output
    bool all = false;
    bool cyclic = false;
    bool numbers = false;
    i64 most_seats = player_limit;
    std::vector<i64> seats = {strength_hard, strength_hard};  // strengths and `human_seat`
    i64 games = 100;
    u64 seed = 1;
    std::string_view game_out;  // path of a file for a game's text; empty for none
    i64 position = -1;          // acts of a game after which it is drawn; below 0 to tell the acts
    i64 seat_count = 2;
    i64 deals = 100;
    i64 megabytes = 1024;
    i64 seconds = 600;
    i64 states = 0;  // of a map to make, as `map_wish` has them; 0 for any
    i64 stones = 0;
    i64 level = 0;
    i64 count = 1;  // of maps
    bool move = false;
    bool has_card = false;
    card played = {};
    bool has_tape = false;  // `--tape` fills the game's tape, and `--top` its discard pile
};

inline constexpr int request_is_read = -1;
inline constexpr int request_for_help = -2;

// Reads the options whose codes are `codes`, as the table of them has them, from arguments that
// begin with the command's name. Is it neither of the two above, then it is the exit status, once
// the wrong use is named on standard error.
int request_read(const char* codes, int argument_count, char** arguments, request& asked);

// Names what is wrong in one line on standard error.
int complain(std::string_view about, std::string_view what, exit_status status = failed);
