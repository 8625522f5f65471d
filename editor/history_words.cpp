#include "editor/history_words.h"

#include "base/numbers.h"
#include "base/tidings.h"
#include "maps/map_bytes.h"
#include "maps/model.h"

namespace {

struct list_words {
    i64 map_counts::*count;
    str added;
    str removed;
};

// In the order in which they are looked at: what is removed takes along what stands below it.
constexpr list_words lists[] = {
    {&map_counts::states, "a new state", "removal of a state"},
    {&map_counts::transitions, "a new arrow", "removal of an arrow"},
    {&map_counts::stones, "a new stone", "removal of a stone"},
    {&map_counts::goals, "a new goal", "removal of a goal"},
};

// By `map_part_name`; a number follows a blank at the end.
constexpr str part_words[] = {
    "place of the map",
    "deck",
    "hand",
    "tape",
    "win",
    "goal ",
    "stone ",
    "place of state ",
    "accepting of state ",
    "arrow ",
    "bend of arrow ",
    "label of arrow ",
    "rule of arrow ",
};

void tell(bool forward, str words, str number = {}) {
    tiding_tell(tiding_news, {forward ? str("done again: ") : str("taken back: "), words, number});
}

}  // namespace

map_counts map_counts_now() {
    return {game_map.states.count, game_map.transitions.count, stones.count, goals.count};
}

void step_tell(bool forward, bool other_map, const map_counts& before, str map, i64 place) {
    if (other_map) {
        tell(forward, "another map");
        return;
    }
    const map_counts now = map_counts_now();
    for (const list_words& list : lists) {
        if (const i64 more = now.*list.count - before.*list.count; more != 0) {
            tell(forward, (more > 0) == forward ? list.added : list.removed);
            return;
        }
    }
    const map_part part = map_part_at(map, place);
    const str words = part_words[part.name];
    bool numbered = words[words.length - 1] == ' ';
    tell(forward, words, numbered ? number_text(part.index) : str());
}
