#include "tools/play_check.h"

#include "maps/model.h"
#include "maps/reader.h"
#include "rules/game_state.h"
#include "tools/map_play.h"

namespace {

constexpr i64 games = 40;
constexpr i64 first_turns = 400;
constexpr i64 at_once_limit = 20;  // 5 % of them
constexpr u64 seed = 1;
constexpr i64 tape_left = 9;  // the longest tape of the maps that ship

// What the tape withholds from the deck.
std::string tape_remark() {
    return settings.tape_length > 0 ? ", with " + std::to_string(settings.tape_length) +
                                          " cards on the tape, which a line \"tape 0\" leaves in it"
                                    : "";
}

// False when a human can be stuck.
bool stuck_check(i64 most, remarks& found) {
    for (i64 seats = 2; seats <= most; ++seats) {
        std::vector<i64> humans(static_cast<std::size_t>(seats), human_seat);
        play_record record = map_play(humans, games, seed);
        if (record.stuck > 0) {
            found.breaks_play.push_back(
                "with " + std::to_string(seats) + " seats a human got stuck in " +
                std::to_string(record.stuck) + " of " + std::to_string(games) +
                " games: no move, and the deck is empty" + tape_remark());
            return false;
        }
    }
    return true;
}

void first_turn_check(remarks& found) {
    play_record record = map_play({strength_hard, strength_hard}, first_turns, seed, 1);
    if (record.at_once > at_once_limit) {
        found.doubtful.push_back("the first turn won " + std::to_string(record.at_once) + " of " +
                                 std::to_string(first_turns) + " games");
    }
}

}  // namespace

void play_check(str text, i64 seats, remarks& found) {
    if (game_map.states.count == 0 || seats < 2) {
        return;
    }
    bool goes_on = true;
    if (machine_kind == pushdown_machine) {
        const i64 tape = settings.tape_length;
        settings.tape_length = tape_left;
        map_read(text);
        goes_on = stuck_check(seats, found);
        settings.tape_length = tape;
    }
    if (goes_on) {
        first_turn_check(found);
    }
}
