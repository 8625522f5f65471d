#include "tools/solver/placements.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "maps/model.h"
#include "rules/goal.h"
#include "tools/progress.h"
#include "tools/ways_out.h"

namespace {

constexpr i64 states_in_word = 4;
constexpr i64 stones_counted = 64;  // by which the least number of placements is told

// The transitions that a human can use, by the state that they leave.
ways_out human_ways_find() {
    ways_out ways = ways_out_find();
    for (std::vector<i64>& leaving : ways) {
        std::unordered_set<u16> seen;
        std::erase_if(leaving, [&](i64 t) {
            const transition& arc = game_map.transitions[t];
            return !transition_exists(arc) || !seen.insert(arc.to).second;
        });
    }
    return ways;
}

using stone_list = std::vector<u16>;

void words_write(const stone_list& sorted, std::vector<u64>& words) {
    std::fill(words.begin(), words.end(), 0);
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        words[i / states_in_word] |= u64{sorted[i]} << (16 * (i % states_in_word));
    }
}

void words_read(const u64* words, stone_list& sorted) {
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        sorted[i] = static_cast<u16>(words[i / states_in_word] >> (16 * (i % states_in_word)));
    }
}

stone_list stones_sorted() {
    stone_list sorted(stones.begin(), stones.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

// Puts one stone elsewhere, keeping the order.
void stone_put(stone_list& sorted, i64 index, u16 to) {
    auto stone = sorted.begin() + index;
    auto place = std::upper_bound(sorted.begin(), sorted.end(), to);
    if (place > stone) {
        std::rotate(stone, stone + 1, place);
        *(place - 1) = to;
    } else {
        std::rotate(place, stone, stone + 1);
        *place = to;
    }
}

// How many states a stone can come to stand on. Where `ends_on_accepting`, no game goes on after
// one came to an accepting state.
i64 reach_count(const ways_out& ways, u16 from, bool ends_on_accepting) {
    if (!state_exists(from)) {
        return 1;
    }
    std::vector<u8> seen(ways.size());
    std::vector<u16> open = {from};
    seen[from] = 1;
    for (std::size_t i = 0; i < open.size(); ++i) {
        for (i64 t : ways[open[i]]) {
            const u16 to = game_map.transitions[t].to;
            const bool ends = ends_on_accepting && game_map.states[to].accepting != 0;
            if (seen[to] == 0 && !ends) {
                seen[to] = 1;
                open.push_back(to);
            }
        }
    }
    return static_cast<i64>(open.size());
}

// A lower bound of how many placements there are: every choice of places for the first stones is
// one, but for their order.
f64 placements_least(const ways_out& ways, bool until_met) {
    const bool ends_on_accepting = until_met && settings.win_mode == win_any_accepting;
    const bool ends_at_once =
        until_met && (settings.win_mode == win_immediate || (ends_on_accepting && win_mode_met()));
    f64 least = 1;
    f64 product = 1;
    for (i64 i = 0; i < std::min(stones.count, stones_counted) && !ends_at_once; ++i) {
        product *= static_cast<f64>(reach_count(ways, stones[i], ends_on_accepting)) /
                   static_cast<f64>(i + 1);
        least = std::max(least, product);
    }
    return least;
}

struct placement_search {
    const ways_out& ways;
    placement_graph& graph;
    stone_list now;
    stone_list then;
    std::vector<u64> words;
};

// The win mode is asked of the game's own stones.
bool placement_meets(const stone_list& sorted) {
    std::copy(sorted.begin(), sorted.end(), stones.begin());
    return win_mode_met();
}

void placement_add(placement_search& search, const stone_list& sorted) {
    words_write(sorted, search.words);
    const i64 before = search.graph.pool.count;
    const i64 number = key_add(search.graph.pool, search.words.data());
    if (number == before) {
        search.graph.meets.push_back(placement_meets(sorted) ? 1 : 0);
    }
    search.graph.moves.targets.push_back(static_cast<u32>(number));
}

void moves_add(placement_search& search, i64 number) {
    words_read(key_words(search.graph.pool, number), search.now);
    for (std::size_t i = 0; i < search.now.size(); ++i) {
        const u16 state = search.now[i];
        if (!state_exists(state) || (i > 0 && search.now[i - 1] == state)) {
            continue;
        }
        for (i64 t : search.ways[state]) {
            search.then = search.now;
            stone_put(search.then, static_cast<i64>(i), game_map.transitions[t].to);
            placement_add(search, search.then);
            search.graph.arcs.push_back(static_cast<u32>(t));
        }
    }
}

work_state placements_explore(placement_search& search, bool until_met) {
    placement_graph& graph = search.graph;
    work_state state = work_well;
    for (i64 number = 0; number < graph.pool.count && state == work_well; ++number) {
        if (number == 0 || !until_met || at(graph.meets, number) == 0) {
            moves_add(search, number);
        }
        graph.moves.first.push_back(static_cast<u32>(graph.moves.targets.size()));
        if (number % std::max<i64>(1, work_stride / (graph.pool.width + 1)) == 0) {
            progress_show("placements", number, graph.pool.count);
            state = work_check(placements_bytes(graph));
        }
    }
    return state;
}

}  // namespace

work_state placements_find(placement_graph& graph, bool until_met) {
    graph = {};
    if (stones.count >= no_index) {
        return work_too_large;
    }
    graph.pool.width = (stones.count + states_in_word - 1) / states_in_word;
    const ways_out ways = human_ways_find();
    const f64 least_bytes = static_cast<f64>(8 * graph.pool.width + 32);
    if (placements_least(ways, until_met) * least_bytes > static_cast<f64>(work_bytes_most())) {
        return work_too_large;
    }
    const stone_list before(stones.begin(), stones.end());
    const stone_list start = stones_sorted();
    placement_search search = {ways, graph, start, start,
                               std::vector<u64>(static_cast<std::size_t>(graph.pool.width))};
    placement_add(search, start);
    graph.moves.targets.clear();
    work_state state = placements_explore(search, until_met);
    progress_end();
    std::copy(before.begin(), before.end(), stones.begin());
    return state == work_well ? work_check(placements_bytes(graph)) : state;
}

i64 placement_of_stones(const placement_graph& graph) {
    std::vector<u64> words(static_cast<std::size_t>(graph.pool.width));
    words_write(stones_sorted(), words);
    return key_find(graph.pool, words.data());
}

i64 placements_bytes(const placement_graph& graph) {
    return key_pool_bytes(graph.pool) + edges_bytes(graph.moves) +
           static_cast<i64>(graph.arcs.capacity() * sizeof(u32) + graph.meets.capacity());
}
