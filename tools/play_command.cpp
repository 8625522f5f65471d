#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "rules/cards.h"
#include "tools/card_words.h"
#include "tools/commands.h"
#include "tools/map_play.h"
#include "tools/terminal.h"

namespace {

constexpr std::string_view seat_names[] = {"easy", "normal", "hard", "human"};
static_assert(std::size(seat_names) == human_seat + 1);

struct play_options {
    std::vector<i64> seats;
    i64 games = 100;
    u64 seed = 1;
};

bool seats_read(std::string_view list, std::vector<i64>& seats) {
    seats.clear();
    for (std::string_view name : list_split(list)) {
        seats.push_back(name_find(seat_names, name));
    }
    return std::count(seats.begin(), seats.end(), -1) == 0 && seats.size() <= player_limit;
}

option_form seats_form(play_options& options) {
    return {"--seats", true,
            [&](std::string_view value) { return seats_read(value, options.seats); }};
}

option_form seed_form(play_options& options) {
    return {"--seed", true,
            [&](std::string_view value) { return number_read(value, options.seed); }};
}

option_form games_form(play_options& options) {
    return {"--games", true, [&](std::string_view value) {
                return number_read(value, options.games) && options.games > 0;
            }};
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

// "Aa1 Bb2", the top card last.
std::string cards_text(const dyn_array<card>& cards) {
    std::string text;
    for (card c : cards) {
        text += (text.empty() ? "" : " ") + card_text(c);
    }
    return text;
}

// Writes the game as it is played.
struct trace_writer {
    std::vector<u16> places;  // of the stones before the turn

    void operator()(const play_event& event);
    void deal_write();
    void move_write(const play_event& event);
};

void trace_writer::deal_write() {
    if (machine_kind == turing_machine) {
        put("tape: " + cards_text(tape) + "\n");
    }
    for (i64 i = 0; i < players.count && machine_kind != state_machine; ++i) {
        put("seat " + std::to_string(i + 1));
        put(machine_kind == pushdown_machine ? " holds: " + cards_text(players[i].hand)
                                             : " wants: " + goal_sentence(players[i].goal));
        put("\n");
    }
}

void trace_writer::move_write(const play_event& event) {
    put(std::to_string(places[event.stone]) + ">" + std::to_string(stones[event.stone]), ink_name);
    if (machine_kind == pushdown_machine) {
        put(":" + card_text(card_array_top(discard_pile.cards)), ink_name);
    } else if (machine_kind == turing_machine) {
        put("  tape: " + cards_text(tape) + ", head at " + std::to_string(tape_head));
    }
}

void trace_writer::operator()(const play_event& event) {
    if (event.kind == play_deal) {
        deal_write();
    } else {
        put("seat " + std::to_string(event.seat + 1) + " ", ink_faint);
        switch (event.kind) {
            case play_move:
                move_write(event);
                break;
            case play_draw:
                put("draws " + card_text(card_array_top(players[event.seat].hand)));
                break;
            case play_pass:
                put("passes");
                break;
            case play_win:
                put("wins", ink_good);
                break;
            default:
                put("cannot go on", ink_bad);
        }
        put("\n");
    }
    places.assign(stones.begin(), stones.end());
}

}  // namespace

int play_command(words arguments) {
    play_options options;
    if (!options_take(arguments, {seats_form(options), games_form(options), seed_form(options)})) {
        return not_understood;
    }
    i64 family = arguments.empty() ? no_family : family_named(str_from(arguments[0]));
    if (family == no_family || arguments.size() != 2 || options.seats.empty()) {
        return complain("play", "wants a family, a file and seats");
    }
    str text;
    if (!map_file_read(arguments[1], text, family)) {
        return not_understood;
    }
    map_open(text, family);
    play_record record =
        map_play(options.seats, options.games, options.seed, isatty(STDERR_FILENO) != 0);
    record_print(record, options);
    return record.unfinished + record.stuck == 0 ? all_well : doubtful;
}

int trace_command(words arguments) {
    play_options options;
    i64 family = no_family;
    if (!options_take(arguments, {seats_form(options), seed_form(options), family_form(family)})) {
        return not_understood;
    }
    if (arguments.size() != 1 || options.seats.empty()) {
        return complain("trace", "wants a file and seats");
    }
    str text;
    if (!map_file_read(arguments[0], text, family)) {
        return not_understood;
    }
    map_open(text, family);
    play_record record = map_play(options.seats, 1, options.seed, false, trace_writer());
    return record.unfinished + record.stuck == 0 ? all_well : doubtful;
}
