// What every map that ships promises: the checks find nothing, and on state machines without
// cycles a hard seat that can win does.

#include <gmock/gmock.h>

#include "game/turn_update.h"
#include "maps/reader.h"
#include "rules/deal.h"
#include "tests/support/screen.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"

namespace {

class shipped_maps_test : public screen_test {
  protected:
    shipped_maps_test() {
        begin();
        frame();  // builds the camera's matrices
    }
};

using testing::IsEmpty;

struct shipped_map {
    machine_kind_value family;
    std::string path;
    bool cyclic;
};

std::vector<shipped_map> shipped_maps() {
    constexpr const char* folders[] = {"state", "pushdown", "turing"};
    std::vector<shipped_map> maps;
    for (auto family : {state_machine, pushdown_machine, turing_machine}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(maps_folder() / folders[family])) {
            if (entry.is_regular_file()) {
                bool cyclic = entry.path().parent_path().filename() == "cyclic";
                maps.push_back({family, entry.path().string(), cyclic});
            }
        }
    }
    return maps;
}

void load(const shipped_map& map) {
    settings = {};
    machine_kind = map.family;
    map_load(str_of(map.path));
}

TEST_F(shipped_maps_test, TheChecksAreSilent) {
    std::vector<shipped_map> maps = shipped_maps();
    EXPECT_GE(maps.size(), 3U * 14);
    for (const shipped_map& map : maps) {
        EXPECT_THAT(lines_check(str_of(file_get(map.path)), map.family), IsEmpty()) << map.path;
        output_of([&] { load(map); });
        EXPECT_THAT(map_check(map.cyclic), IsEmpty()) << map.path;
        EXPECT_THAT(layout_check(), IsEmpty()) << map.path;
    }
}

u8 nimber_sum() {
    u8 sum = 0;
    for (u16 state : stones) {
        sum ^= state_nimber(state);
    }
    return sum;
}

// Plays to the end; the hard seat that was first to move from a sum other than 0, none for none.
u8 seat_bound_to_win() {
    u8 bound = no_winner;
    while (turn.winner == no_winner) {
        bool to_move = turn.move_timer <= 0;
        if (bound == no_winner && to_move && current_seat().strength == strength_hard &&
            nimber_sum() != 0) {
            bound = static_cast<u8>(turn.current_player);
        }
        arena_rewind(arena_frame, 0);
        turn_update();
    }
    return bound;
}

TEST_F(shipped_maps_test, AHardSeatThatCanWinDoes) {
    constexpr const char* seatings[] = {"20", "02", "21", "12", "22"};
    for (const shipped_map& map : shipped_maps()) {
        for (i64 game = 0; game < 20 && map.family == state_machine && !map.cyclic; ++game) {
            load(map);
            seats_make(seatings[game % 5]);
            game_start();
            u8 bound = seat_bound_to_win();
            EXPECT_TRUE(bound == no_winner || bound == turn.winner) << map.path;
        }
    }
}

}  // namespace
