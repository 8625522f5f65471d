// The exercises of docs/teaching can be solved as tests/tools/solutions.txt tells: every trace is
// played through the game's rules.

#include <fstream>
#include <sstream>

#include "game/turn_update.h"
#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/selection.h"
#include "tests/support/game.h"

namespace {

using teaching_test = game_test;

const std::filesystem::path source = QUORREL_SOURCE_DIR;

void map_start(const std::string& path, std::size_t seats, const std::string& hand) {
    machine_kind = family_named(str_of(path.substr(0, path.find_first_of("/_"))));
    settings = {};
    tape_head = 0;
    map_load(str_of((source / "docs/teaching" / path).string()));
    seats_make(std::string(seats, 'H'));
    game_start();
    pile_set(players[0].hand, hand == "-" ? "" : replaced(hand, ',', ' '));
}

// Selects "FROM>TO" or "FROM>TO:CARD" as a human does, and takes or refuses it.
bool move_is_taken(const std::string& move) {
    u16 from = static_cast<u16>(std::stoi(move));
    u16 to = static_cast<u16>(std::stoi(move.substr(move.find('>') + 1)));
    const dyn_array<transition>& arcs = game_map.transitions;
    auto arc = std::find_if(arcs.begin(), arcs.end(),
                            [&](const transition& t) { return t.from == from && t.to == to; });
    selection = {from, to, static_cast<u16>(arc - arcs.begin()), no_card};
    if (std::size_t colon = move.find(':'); colon != move.npos) {
        const dyn_array<card>& hand = current_seat().hand;
        selection.selected_card =
            std::find(hand.begin(), hand.end(), card_of(move.substr(colon + 1))) - hand.begin();
    }
    turn_update();
    return turn.move_timer > 0;
}

TEST_F(teaching_test, EverySolutionWins) {
    std::ifstream traces(source / "tests/tools/solutions.txt");
    i64 played = 0;
    for (std::string line; std::getline(traces, line);) {
        std::istringstream words(line);
        std::size_t seats = 0;
        std::string path, hand, move;
        if (!(words >> seats >> path >> hand)) {
            continue;  // a remark
        }
        output_of([&] { map_start(path, seats, hand); });
        while (words >> move && move != "=") {
            bool refused = move[0] == '!';
            ASSERT_EQ(turn.winner, no_winner) << line << "\nbefore " << move;
            ASSERT_EQ(move_is_taken(move.substr(refused ? 1 : 0)), !refused) << line << "\n"
                                                                             << move;
            move_finish();
        }
        int winner = 0;
        words >> winner;
        EXPECT_EQ(turn.winner + 1, winner) << line << "\n" << game_text();
        played += 1;
    }
    EXPECT_GE(played, 12);
}

}  // namespace
