#include "game/record.h"

#include <cstdlib>

#include "game/turn_update.h"
#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/selection.h"
#include "tests/support/game.h"

namespace {

// Plays shipped maps with seats of all kinds. Humans, and who clicks for a computer, do anything
// that is open, also while a stone flies.
class record_test : public game_test {
  protected:
    std::mt19937_64 random{1};

    i64 below(i64 n) { return static_cast<i64>(random() % static_cast<u64>(n)); }

    void game_begin(const shipped_map& map) {
        globals_start();
        random_seed(random());
        machine_kind = map.kind;
        map_read(str_copy(str_of(map.text)));
        const char* const kinds[] = {"H", "HH", "H0", "1H2", "0H1H2", "HHH210", "2", "02"};
        seats_make(kinds[below(std::size(kinds))]);
        game_start();
        turn_update();
    }

    void human_act() {
        if (turn.move_timer <= 0) {
            deck_refill();  // as every update begins
        }
        game_act act;
        act.kind = static_cast<act_kind>(below(act_kind_count));
        act.arc = static_cast<i32>(below(std::max(game_map.transitions.count, i64{1})));
        act.card = static_cast<i32>(below(std::max(current_seat().hand.count, i64{1})));
        bool lands = act.kind == act_move && turn.move_timer > 0;
        if (!lands && act_is_open(act, false)) {
            record_take(act);
        }
    }

    // The running game again, from its deal and by a way back.
    void expect_same_again() {
        const u64 print = game_print();
        const i64 position = record.position;
        const turn_record before = turn;
        record_go(below(position + 1));
        record_go(position);
        ASSERT_EQ(game_print(), print) << position << "\n" << game_text();
        turn = before;
    }
};

// QUORREL_ACTS: how many acts at least.
TEST_F(record_test, GivesTheSameGameAgain) {
    const char* wanted = std::getenv("QUORREL_ACTS");
    i64 left = wanted != nullptr ? std::atoll(wanted) : 5'000;
    const std::vector<shipped_map> maps = shipped_maps();
    while (left > 0 && !HasFailure()) {
        game_begin(maps[static_cast<std::size_t>(below(std::ssize(maps)))]);
        for (i64 updates = below(4'000); updates > 0 && !HasFailure(); --updates) {
            const i64 position = record.position;
            for (i64 tries = below(30) == 0 ? 40 : 0; tries > 0; --tries) {
                human_act();
            }
            turn.think_timer = 0;
            turn_update();
            left -= record.position - position;
            if (turn.move_timer <= 0 && record.position != position) {
                deck_refill();
                expect_same_again();
            }
        }
    }
}

}  // namespace
