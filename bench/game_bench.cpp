// The game's own work: rules, a computer seat's decision, nimbers, reading a map.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "ai/computer.h"
#include "game/record.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/nimbers.h"
#include "maps/reader.h"
#include "platform/file.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/rule.h"
#include "rules/seats.h"

namespace {

// About 20 bytes each.
const char* const rules[] = {"!(~(A,B,C)) & (a|b|3)", "~(1,2,3) | T(A,B)&4", "(A|B|C) & !(a) ^ (3)",
                             "~(A,B,C,D) & (2|4)",    "T(a,b) & !(1,2) | F", "(A&a)|(B&b)|(C&c)",
                             "~(a,b,c,d) ^ (A | 1)",  "!(T(A)) & ~(1,2,3,4)"};
constexpr i64 rule_count = std::size(rules);

str rule_text(i64 index) {
    std::string_view text = rules[index % rule_count];
    return {text.data(), static_cast<i64>(text.size())};
}

// Fresh arenas and an empty map; what the benchmark before has allocated is given up.
void game_prepare(i64 kind) {
    static const bool created = (arenas_create(), true);
    static_cast<void>(created);
    arena_rewind(arena_persistent, 0);
    arena_rewind(arena_frame, 0);
    machine_kind = kind;
    game_map = {};
    settings = {};
    goals = {};
    stones = {};
    players = {};
    selected_entry = -1;
    deck = {};
    discard_pile = {};
    random_seed(1);
}

card random_card() {
    return {static_cast<u8>(random_below(6)), static_cast<u8>(random_below(6)),
            static_cast<u8>(1 + random_below(6))};
}

void rule_matches_run(benchmark::State& state) {
    game_prepare(pushdown_machine);
    dyn_array_push(discard_pile.cards, card{2, 0, 3});
    str rule = rule_text(state.range(0));
    state.SetLabel(std::string(rule.begin(), rule.end()));
    card tested = {1, 0, 4};
    for (auto _ : state) {
        benchmark::DoNotOptimize(rule_matches(rule, tested));
    }
}
BENCHMARK(rule_matches_run)->DenseRange(0, rule_count - 1);

void seat_hard_computer(i64 hand_size) {
    player seat;
    seat.is_computer = 1;
    seat.strength = strength_hard;
    for (i64 i = 0; i < hand_size; ++i) {
        dyn_array_push(seat.hand, random_card());
    }
    dyn_array_push(players, seat);
}

// Lets the hard seat decide on the same position again and again.
void decisions_run(benchmark::State& state) {
    std::vector<u16> places(stones.begin(), stones.end());
    std::vector<card> hand(players[0].hand.begin(), players[0].hand.end());
    dyn_array_push(discard_pile.cards, random_card());
    for (auto _ : state) {
        computer_act();
        state.PauseTiming();
        std::copy(places.begin(), places.end(), stones.data);
        std::copy(hand.begin(), hand.end(), players[0].hand.data);
        players[0].hand.count = static_cast<i64>(hand.size());
        discard_pile.cards.count = 1;
        arena_rewind(arena_frame, 0);
        state.ResumeTiming();
    }
    state.counters["states"] = static_cast<double>(game_map.states.count);
    state.counters["transitions"] = static_cast<double>(game_map.transitions.count);
    state.counters["hand"] = static_cast<double>(hand.size());
}

std::string largest_pushdown_map() {
    std::string largest;
    i64 most = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(QUORREL_SOURCE_DIR "/resources/maps/pushdown")) {
        std::string path = entry.path().string();
        map_load({path.data(), static_cast<i64>(path.size())});
        if (game_map.transitions.count > most) {
            most = game_map.transitions.count;
            largest = path;
        }
    }
    return largest;
}

void hard_decision_shipped(benchmark::State& state) {
    game_prepare(pushdown_machine);
    std::string path = largest_pushdown_map();
    map_load({path.data(), static_cast<i64>(path.size())});
    seat_hard_computer(0);
    game_start();
    decisions_run(state);
}
BENCHMARK(hard_decision_shipped)->Unit(benchmark::kMillisecond);

void hard_decision_stress(benchmark::State& state) {
    game_prepare(pushdown_machine);
    settings.deck_colours = settings.deck_shapes = settings.deck_numbers = 6;
    for (i64 s = 0; s < 64; ++s) {
        map_add_state(0, 0, 0);
        if (s % 4 != 3) {
            dyn_array_push(stones, static_cast<u16>(s));
        }
    }
    for (i64 t = 0; t < 256; ++t) {
        map_add_transition(static_cast<u16>(t % 64), static_cast<u16>(random_below(64)), 0, 0, 0,
                           rule_text(t / 3));
    }
    seat_hard_computer(30);
    decisions_run(state);
}
BENCHMARK(hard_decision_stress)->Unit(benchmark::kMillisecond);

void nimbers_compute_run(benchmark::State& state) {
    game_prepare(state_machine);
    for (i64 s = 0; s < 256; ++s) {
        map_add_state(0, 0, 0);
    }
    for (i64 t = 0; t < 4096; ++t) {  // always to a lower state: no cycle
        u64 from = 1 + random_below(255);
        map_add_transition(static_cast<u16>(from), static_cast<u16>(random_below(from)), 0, 0, 0,
                           {});
    }
    i64 mark = arenas[arena_persistent].offset;
    for (auto _ : state) {
        nimbers_compute();
        arena_rewind(arena_persistent, mark);
        arena_rewind(arena_frame, 0);
    }
}
BENCHMARK(nimbers_compute_run)->Unit(benchmark::kMillisecond);

// A map text of 1 MiB: states, stones and transitions with their labels and rules.
std::string large_map() {
    std::string text = "map 0 0 128\nwin 0\ndeck 1 6 6 6\nhand 8\n";
    for (i64 line = 0; text.size() < 1024 * 1024; ++line) {
        std::string number = std::to_string(line % 60000);
        text += line % 4 == 0 ? ". " + number + ".25 -3.5\n"
                              : "=> 12 " + number + " 0 16.5 -24 \"~(A,B,C,D) & (2|4)\"\n";
    }
    text.resize(1024 * 1024);
    return text;
}

void map_load_run(benchmark::State& state) {
    game_prepare(pushdown_machine);
    char path[] = "/tmp/quorrel-bench-XXXXXX";
    close(mkstemp(path));
    str name = {path, static_cast<i64>(sizeof path - 1)};
    std::string text = large_map();
    file_id file = file_open(name, file_mode_write);
    file_write(file, static_cast<i64>(text.size()), text.data());
    file_close(file);
    map_load(name);  // the lists get their room
    i64 mark = arenas[arena_persistent].offset;
    for (auto _ : state) {
        map_load(name);
        arena_rewind(arena_persistent, mark);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<i64>(text.size()));
    std::remove(path);
}
BENCHMARK(map_load_run)->Unit(benchmark::kMillisecond);

// A game that nobody wins, of two easy computers.
void endless_game_start(i64 kind) {
    game_prepare(kind);
    map_read(
        "map 0 0 128\nwin 1\ndeck 20 4 4 4\nhand 8\ntape 6\ngoal 0 0 99\nstone 0\n. 0 0\n. 1 0\n"
        "=> 0 1 0 0 0 \"A|B|1\"\n=> 1 0 0 0 0 \"C|a|2\"\n=> 0 0 0 0 0 \"D|b\"\n");
    seat_list seats;
    seat_list_read("easy,easy", seats);
    seats_set(seats);
    game_start();
    record_follow();
}

// From the end of a game of 300 turns to its deal and forward again, by family.
void record_walk(benchmark::State& state) {
    endless_game_start(state.range(0));
    for (i64 turns = 0; turns < 300;) {
        const i8 seat = turn.current_player;
        arena_rewind(arena_frame, 0);
        record_take_computer();
        record_land();
        turns += turn.current_player != seat ? 1 : 0;
    }
    const i64 end = record.position;
    for (auto _ : state) {
        record_go(0);
        record_go(end);
    }
}
BENCHMARK(record_walk)->DenseRange(0, machine_kind_count - 1)->Unit(benchmark::kMicrosecond);

// A human's move, without the record (0) and with it (1).
void move_take(benchmark::State& state) {
    endless_game_start(state_machine);
    record.whole = state.range(0) != 0;
    for (auto _ : state) {
        record.position = 0;
        record_take(move_along(game_map.transitions[stones[0]]));
        turn.move_timer = 0;
    }
}
BENCHMARK(move_take)->DenseRange(0, 1);

}  // namespace
