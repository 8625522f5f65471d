#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

#include "platform/directory.h"
#include "platform/file.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/maker/judge.h"
#include "tools/map_files.h"
#include "tools/progress.h"
#include "tools/solver/work.h"
#include "tools/terminal.h"

namespace {

constexpr i64 solver_megabytes = 8;
constexpr u64 largest_number = 1'000'000'000'000;
constexpr i64 most_refused = 5'000;  // candidates in a row, then it is given up

// What becomes of the candidates.
struct make_work {
    i64 made = 0;
    i64 refused = 0;                    // since the last one made
    std::map<std::string, i64> faults;  // how often each was found since then
};

// With a wish for states or stones and none for a level, a map of every level will do.
bool any_level(const request& asked) {
    return asked.level == 0 && (asked.states > 0 || asked.stones > 0);
}

map_wish wish_of(const request& asked) {
    map_wish wish = {.family = asked.family, .states = asked.states, .stones = asked.stones};
    wish.level = asked.level > 0 ? asked.level : wish.level;
    return wish;
}

std::string map_words(const judgement& judged) {
    char words[200];
    std::snprintf(words, sizeof words,
                  ": level %lld, %lld states, %lld turns, a good move in %.1f, "
                  "at most %lld%% won by a seat",
                  static_cast<long long>(judged.level), static_cast<long long>(judged.states),
                  static_cast<long long>(judged.turns), judged.choice,
                  static_cast<long long>(judged.most_share));
    return judged.hard_share == 0
               ? words
               : words + (", " + std::to_string(judged.hard_share) + "% by hard against easy");
}

// Writes the map into the folder, where no other text stands under its name.
int map_put(const std::string& folder, const named_map& map, const judgement& judged) {
    const std::string path = folder + "/" + map.name;
    std::string there;
    if (file_exists(str_from(path)) &&
        (!text_file_read(str_from(path), map.name, there) || there != map.text)) {
        return complain(map.name, "is there already and another one: nothing was written");
    }
    const int status = text_file_write(path, map.text);
    if (status == all_well) {
        put(map.name, ink_name);
        put(map_words(judged) + "\n");
        std::fflush(stdout);
    }
    return status;
}

int give_up(const make_work& work) {
    auto most =
        std::ranges::max_element(work.faults, {}, [](const auto& fault) { return fault.second; });
    return complain("make", "none of " + number_grouped(most_refused) +
                                " candidates was good; mostly, " + most->first);
}

// Looks at one candidate.
int candidate_take(const request& asked, const std::string& folder, map_wish& wish,
                   make_work& work) {
    named_map map;
    const judgement judged = candidate_judge(wish, asked.seat_count, map);
    wish.number += 1;
    const bool fits = any_level(asked) || judged.level == wish.level;
    if (judged.fault == nullptr && fits) {
        work.made += 1;
        work.refused = 0;
        work.faults.clear();
        return map_put(folder, map, judged);
    }
    work.refused += 1;
    work.faults[judged.fault != nullptr ? judged.fault : "it is of another level"] += 1;
    return work.refused < most_refused ? all_well : give_up(work);
}

}  // namespace

int make_command(const request& asked) {
    if (asked.family == no_family) {
        return complain("make", "needs a family: state, pushdown or turing", wrong_use);
    }
    if (asked.seed > largest_number) {
        return complain("--seed", "takes a number from 0 to 1000000000000", wrong_use);
    }
    if (!board_frame_begin()) {
        return failed;
    }
    const std::string folder(view_of(path_absolute(asked.out.empty() ? "." : str_from(asked.out))));
    map_wish wish = wish_of(asked);
    wish.number = asked.seed;
    make_work work;
    work_begin({solver_megabytes << 20, work_limits().seconds});
    int status = all_well;
    while (work.made < asked.count && status == all_well) {
        progress_show("maps", work.made, asked.count);
        status = candidate_take(asked, folder, wish, work);
        if (status == all_well && work_check(0) == work_interrupted) {
            status = complain("make", "was interrupted");
        }
    }
    progress_end();
    return status;
}
