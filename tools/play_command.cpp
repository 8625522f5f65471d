#include <algorithm>
#include <cstdio>

#include "rules/cards.h"
#include "tools/card_words.h"
#include "tools/commands.h"
#include "tools/map_files.h"
#include "tools/map_play.h"
#include "tools/terminal.h"

namespace {

f64 percent(i64 part, i64 whole) {
    return 100.0 * static_cast<f64>(part) / static_cast<f64>(whole);
}

void record_print(const play_record& record, const request& asked) {
    i64 finished = std::max<i64>(1, asked.games - record.unfinished - record.stuck);
    for (std::size_t seat = 0; seat < asked.seats.size(); ++seat) {
        std::printf("seat %zu %s: %.1f%% of wins\n", seat + 1, seat_names[asked.seats[seat]].data(),
                    percent(record.wins[seat], finished));
    }
    std::printf(
        "turns: median %lld, longest %lld\n", static_cast<long long>(median(record.turns)),
        static_cast<long long>(*std::max_element(record.turns.begin(), record.turns.end())));
    std::printf("moves %lld, passes %lld, draws %lld, unfinished %lld of %lld games\n",
                static_cast<long long>(record.moves), static_cast<long long>(record.passes),
                static_cast<long long>(record.draws), static_cast<long long>(record.unfinished),
                static_cast<long long>(asked.games));
    std::printf("won by the first turn %lld, stuck humans %lld\n",
                static_cast<long long>(record.at_once), static_cast<long long>(record.stuck));
}

// "Aa1 Bb2", the top card last.
std::string cards_text(const dyn_array<card>& cards) {
    std::string text;
    for (card c : cards) {
        text += text.empty() ? "" : " ";
        text += card_text(c);
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

}  // namespace

int play_command(const request& asked) {
    named_map map;
    if (!asked_map_read(asked, map)) {
        return failed;
    }
    map_open(map);
    play_record record = map_play(asked.seats, asked.games, asked.seed);
    record_print(record, asked);
    return record.unfinished + record.stuck == 0 ? all_well : failed;
}

int trace_command(const request& asked) {
    named_map map;
    if (!asked_map_read(asked, map)) {
        return failed;
    }
    map_open(map);
    play_record record = map_play(asked.seats, 1, asked.seed, turn_limit, trace_writer());
    return record.unfinished + record.stuck == 0 ? all_well : failed;
}
