#include <algorithm>

#include "rules/game_state.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"
#include "tools/map_files.h"
#include "tools/play_check.h"
#include "tools/progress.h"
#include "tools/terminal.h"

namespace {

// In the order in which they are told.
struct remark_group {
    const char* name;
    std::vector<std::string> remarks::*words;
    std::size_t shown;  // at most, unless all are asked for
    const char* rest;   // what the others are called
};

constexpr remark_group groups[] = {
    {"breaks play", &remarks::breaks_play, 20, "more of these"},
    {"doubtful", &remarks::doubtful, 20, "more of these"},
    {"looks", &remarks::looks, 20, "more of these"},
    {"looks", &remarks::labels, 0, "labels that leave the window or lie over something"},
};

void line_put(std::string_view map, const remark_group& group, const std::string& words) {
    put(map, ink_name);
    put(": ");
    put(group.name, group.words == &remarks::breaks_play ? ink_bad : ink_plain);
    put(": " + words + "\n");
}

void group_put(std::string_view map, const remark_group& group, const remarks& found, bool all) {
    const std::vector<std::string>& words = found.*group.words;
    const std::size_t shown = all ? words.size() : std::min(group.shown, words.size());
    for (std::size_t i = 0; i < shown; ++i) {
        line_put(map, group, words[i]);
    }
    if (shown < words.size()) {
        std::string count = std::to_string(words.size() - shown);
        line_put(map, group, group.rest + (": " + count + ", --all names them"));
    }
}

bool is_empty(const remarks& found) {
    return std::ranges::all_of(
        groups, [&](const remark_group& group) { return (found.*group.words).empty(); });
}

int place_check(const map_place& place, const request& asked) {
    named_map map;
    if (!map_read_at(place, asked.family, map)) {
        return failed;
    }
    const str text = str_from(map.text);
    const bool cyclic = asked.cyclic && map.family == state_machine;
    remarks found;
    lines_check(text, static_cast<machine_kind_value>(map.family), found);
    map_open(map, !cyclic);
    map_check(cyclic, found);
    layout_check(found);
    map_open(map, !cyclic);
    play_check(text, asked.most_seats, found);
    progress_end();
    for (const remark_group& group : groups) {
        group_put(place.word, group, found, asked.all);
    }
    return is_empty(found) ? all_well : failed;
}

}  // namespace

int check_command(const request& asked) {
    std::vector<map_place> places;
    if (!board_frame_begin() || !map_places_find(asked, places)) {
        return failed;
    }
    int worst = all_well;
    for (const map_place& place : places) {
        worst = std::max(worst, place_check(place, asked));
    }
    return worst;
}
