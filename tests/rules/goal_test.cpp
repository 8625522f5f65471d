#include "rules/goal.h"

#include <sstream>

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

using goal_test = game_test;

// A case is a measure, two cards, the deck's numbers and a tape: the count, and by which of the
// comparisons with a target of 2 the goal is met.
TEST_F(goal_test, MeasuresCountTheTape) {
    golden_check("rules/goals", [](const std::string& given) {
        std::istringstream in(given);
        int measure = 0;
        std::string a, b, cards;
        in >> measure >> a >> b >> settings.deck_numbers;
        std::getline(in, cards);
        pile_set(tape, cards);
        goal g = {static_cast<u8>(measure), 0, 2, card_of(a), card_of(b)};
        std::string met;
        for (; g.comparison <= comparison_count; g.comparison += 1) {
            met += goal_met(g) ? " yes" : " no";
        }
        return std::to_string(goal_count(g)) + met;
    });
}

// A case is a family, a win mode, whether the hand is empty and the goal met, and the stones, of
// whose states 0 and 2 are accepting: whether the seat wins.
TEST_F(goal_test, AWinNeedsTheFamilysTestAndTheWinMode) {
    golden_check("rules/wins", [](const std::string& given) {
        std::istringstream in(given);
        i64 kind = 0;
        int mode = 0;
        bool hand_empty = false, met = false;
        in >> kind >> mode >> hand_empty >> met;
        std::vector<u16> places;
        for (u16 state; in >> state;) {
            places.push_back(state);
        }
        map_make(kind, "*.*", {}, places);
        settings.win_mode = static_cast<u8>(mode);
        seats_make("HH");
        turn.current_player = 1;  // the other seat would win and must not matter
        for (i64 i : {0, 1}) {
            players[i].goal.target = (i == 1) == met ? 3 : 0;
            pile_set(players[i].hand, (i == 1) == hand_empty ? "" : "Aa1");
        }
        pile_set(tape, "Aa1 Aa2");
        return std::string(win_check() ? "wins" : "goes on");
    });
}

}  // namespace
