#include "game/record.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

#include "game/game_file.h"
#include "game/game_reader.h"
#include "game/game_writer.h"
#include "game/turn_update.h"
#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "shown/selection.h"
#include "tests/support/game.h"

namespace {

// Plays shipped maps with seats of all kinds. Humans, and who clicks for a computer, do anything
// that is open, also while a stone flies.
std::string game_written() {
    std::string text;
    game_write([](void* to, str piece) { *static_cast<std::string*>(to) += string_of(piece); },
               &text);
    return text;
}

// What became of a text, in words.
std::string game_read_back(const std::string& text) {
    text_fault fault;
    std::string answer = game_read(str_copy(str_of(text)), trust_nobody, fault) ? "" : "refused, ";
    return answer + std::to_string(record.act_count) + " acts" +
           (fault.reason.length == 0 ? "" : ", line " + std::to_string(fault.line)) + " " +
           string_of(fault.reason);
}

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
        const u64 fingerprint = game_fingerprint();
        const i64 position = record.position;
        const turn_record before = turn;
        record_go(below(position + 1));
        record_go(position);
        ASSERT_EQ(game_fingerprint(), fingerprint) << position << "\n" << game_text();
        if (position % 16 == 1 && record.act_count > 0) {
            const std::string text = game_written();
            ASSERT_EQ(game_read_back(text), std::to_string(record.act_count) + " acts ");
            ASSERT_EQ(game_fingerprint(), fingerprint) << text;
            ASSERT_EQ(game_written(), text);
        }
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

// Two seats on a small map, who play it to its end.
constexpr const char* duel =
    "quorrel game 1\n# by hand\nfamily pushdown\nseat human red\nseat hard blue\n"
    "chance 0000000000000001 0000000000000002 0000000000000003 0000000000000004\n"
    "cards 1 1 1 6 2 0\n|map 0 0 128\n| win 0\n| . 0 0\n| => 0 0 0 0 0 \"*\"\n\n";

TEST_F(record_test, TellsWhatIsWrongWithAText) {
    golden_check("game/game_texts", [](const std::string& change) {
        globals_start();
        random_seed(1);
        std::string text = duel;
        std::string acts = change.substr(change.find('|') + 1);
        if (std::string cut = change.substr(0, change.find('|')); !cut.empty()) {
            const std::size_t place = text.find(cut.substr(0, cut.find('>')));
            text.replace(place, cut.find('>'), cut.substr(cut.find('>') + 1));
        }
        return game_read_back(text + replaced(acts, ';', '\n'));
    });
}

// A program starts, plays, and ends somehow; the next ones go on.
TEST_F(record_test, GoesBackIntoTheGameUnderWay) {
    auto start = [] {
        globals_start();
        random_seed(1);
    };
    auto begin = [&](const char* acts) {
        start();
        EXPECT_EQ(game_read_back(duel + replaced(acts, ';', '\n')).find("refused"),
                  std::string::npos);
    };
    auto returned = [&] {
        start();
        return game_return() ? pile_text(players[0].hand) : "none";
    };
    EXPECT_EQ(returned(), "none");
    begin("move 0 0");
    game_file_write();
    const std::string first = returned();
    EXPECT_EQ(first.size(), 3U);
    EXPECT_TRUE(game_return()) << "from memory";
    EXPECT_EQ(pile_text(players[0].hand), first);
    // Another program's game takes the file; this one's moves out of its way.
    const game_file_record this_program = game_file;
    begin("draw");
    game_file_write();
    EXPECT_EQ(names_in("kept/games").size(), 1U);
    begin("draw;end");
    game_file = this_program;
    game_file.changes_written = 0;
    game_file_write();
    EXPECT_EQ(names_in("kept/games").size(), 2U);
    EXPECT_EQ(returned().size(), 11U) << "the newer one";
    // So it does for another game of the same program, but the newest stay.
    for (i64 i = 0; i < 30; ++i) {
        record.start.chance.s0 += 2;
        record.changes += 1;
        game_file_write();
    }
    EXPECT_EQ(names_in("kept/games").size(), 21U) << "with the one pushed aside";
    // A game that is over is not kept.
    turn.winner = 0;
    record_go(0);
    turn.winner = 0;
    game_file_write();
    EXPECT_EQ(returned(), "none");
}

// QUORREL_KILLS: how many programs are killed while they play on, each where the one before was.
TEST_F(record_test, LosesFewActsWhenKilled) {
    const char* wanted = std::getenv("QUORREL_KILLS");
    const std::string text = replaced(
        "quorrel game 1;family state;seat easy red;seat hard blue;"
        "chance 0000000000000001 0000000000000002 0000000000000003 0000000000000004;"
        "|map 0 0 128;|win 1;|stone 0;|. 0 0;|. 1 0;|=> 0 1 0;|=> 1 0 0;|=> 1 1 0;ai 1 move 0;",
        ';', '\n');
    auto* played = static_cast<std::atomic<i64>*>(mmap(nullptr, sizeof(std::atomic<i64>),
                                                       PROT_READ | PROT_WRITE,
                                                       MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    EXPECT_EQ(game_read_back(text), "1 acts ");
    game_file_write();
    for (i64 left = wanted != nullptr ? std::atoll(wanted) : 20; left > 0; --left) {
        globals_start();
        ASSERT_TRUE(game_return()) << file_get("under_way.quorrel-game");
        ASSERT_GE(record.position, *played - 5);
        *played = record.position;
        pid_t program = fork();
        while (program == 0) {
            turn.think_timer = 0;
            turn.move_timer = std::min(turn.move_timer, 0.001);
            turn_update();
            game_file_write_at_times();
            *played = record.position;
        }
        usleep(static_cast<useconds_t>(below(20'000)));
        kill(program, SIGKILL);
        waitpid(program, nullptr, 0);
    }
    EXPECT_GT(*played, 1);
}

}  // namespace
