#include <algorithm>
#include <cstdio>

#include "game/game_writer.h"
#include "game/record.h"
#include "rules/cards.h"
#include "tools/card_text.h"
#include "tools/commands.h"
#include "tools/map_files.h"
#include "tools/map_play.h"
#include "tools/position_words.h"
#include "tools/terminal.h"

namespace {

f64 percent(i64 part, i64 whole) {
    return 100.0 * static_cast<f64>(part) / static_cast<f64>(whole);
}

void result_print(const play_record& played, const request& asked) {
    i64 finished = std::max<i64>(1, asked.games - played.unfinished - played.stuck);
    for (std::size_t seat = 0; seat < asked.seats.size(); ++seat) {
        std::printf("seat %zu %s: %.1f%% of wins\n", seat + 1, seat_names[asked.seats[seat]].data(),
                    percent(played.wins[seat], finished));
    }
    std::printf(
        "turns: median %lld, longest %lld\n", static_cast<long long>(median(played.turns)),
        static_cast<long long>(*std::max_element(played.turns.begin(), played.turns.end())));
    std::printf("moves %lld, passes %lld, draws %lld, unfinished %lld of %lld games\n",
                static_cast<long long>(played.moves), static_cast<long long>(played.passes),
                static_cast<long long>(played.draws), static_cast<long long>(played.unfinished),
                static_cast<long long>(asked.games));
    std::printf("won by the first turn %lld, stuck humans %lld\n",
                static_cast<long long>(played.at_once), static_cast<long long>(played.stuck));
}

// Writes the game as it is played.
struct trace_writer {
    std::vector<u16> places;  // of the stones before the turn

    void operator()(const play_event& event);
    void deal_write();
    void move_write(const play_event& event);
};

void trace_writer::deal_write() {
    for (const std::string& line : position_lines()) {
        put(line + "\n");
    }
}

void trace_writer::move_write(const play_event& event) {
    put(std::to_string(places[event.stone]) + ">" + std::to_string(stones[event.stone]), ink_name);
    if (machine_kind == pushdown_machine) {
        put(":", ink_name);
        put(card_text(card_array_top(discard_pile.cards)), ink_name);
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

// Has the last of the games recorded.
struct last_game_recorder {
    i64 games_left;

    void operator()(const play_event& event) {
        games_left -= event.kind == play_deal ? 1 : 0;
        if (event.kind == play_deal && games_left == 0) {
            record_begin(last_deal.start);
        }
    }
};

int game_save(const std::string& path) {
    if (!game_can_be_written()) {
        return complain(path, "the last game has no act, or its map is too large");
    }
    std::string text;
    game_write([](void* to, str piece) { *static_cast<std::string*>(to) += view_of(piece); },
               &text);
    return text_file_write(path, text);
}

}  // namespace

int play_command(const request& asked) {
    named_map map;
    if (!asked_map_read(asked, map)) {
        return failed;
    }
    map_open(map);
    const bool saves = !asked.game_out.empty();
    play_record played = map_play(asked.seats, asked.games, asked.seed, turn_limit,
                                  last_game_recorder{saves ? asked.games : 0});
    result_print(played, asked);
    if (saves && game_save(std::string(asked.game_out)) != all_well) {
        return failed;
    }
    return played.unfinished + played.stuck == 0 ? all_well : failed;
}

int trace_command(const request& asked) {
    named_map map;
    if (!asked_map_read(asked, map)) {
        return failed;
    }
    map_open(map);
    play_record played = map_play(asked.seats, 1, asked.seed, turn_limit, trace_writer());
    return played.unfinished + played.stuck == 0 ? all_well : failed;
}
