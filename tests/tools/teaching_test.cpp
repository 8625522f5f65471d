// The exercises of docs/teaching can be solved as tests/tools/solutions.txt tells: every trace is
// played through the game's rules, on the map and the hand that the game deals.

#include <algorithm>
#include <fstream>
#include <sstream>

#include "game/game_reader.h"
#include "game/record.h"
#include "game/turn_update.h"
#include "maps/loading.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "shown/selection.h"
#include "tests/support/game.h"
#include "tools/card_text.h"

namespace {

using teaching_test = game_test;

const std::filesystem::path source = QUORREL_SOURCE_DIR;

// The symbols of a hand in the field that `wanted` names, in order.
std::string hand_symbols(const dyn_array<card>& hand, const std::string& wanted) {
    card_property property;
    EXPECT_TRUE(card_property_read(wanted[0], property));
    std::string symbols;
    for (card c : hand) {
        symbols += card_symbol(c, property.field);
    }
    std::sort(symbols.begin(), symbols.end());
    return symbols;
}

// Starts the map again and again, as a pupil does, until such a hand is dealt; "-" is any.
void map_start(const std::string& path, std::size_t seats, const std::string& wanted) {
    machine_kind = family_named(str_of(path.substr(0, path.find_first_of("/_"))));
    map_load(str_of((source / "docs/teaching" / path).string()));
    seats_make(std::string(seats, 'H'));
    i64 deals_left = 100;
    do {
        game_start();
        deals_left -= 1;
    } while (wanted != "-" && hand_symbols(players[0].hand, wanted) != wanted && deals_left > 0);
    EXPECT_GT(deals_left, 0) << path;
}

i64 card_find(char symbol) {
    const dyn_array<card>& hand = current_seat().hand;
    card_property property;
    EXPECT_TRUE(card_property_read(symbol, property));
    auto found =
        std::find_if(hand.begin(), hand.end(), [&](card c) { return card_has(c, property); });
    return found - hand.begin();
}

// Selects "FROM>TO" or "FROM>TO:SYMBOL" as a human does, and takes or refuses it.
bool move_is_taken(const std::string& move) {
    u16 from = static_cast<u16>(std::stoi(move));
    u16 to = static_cast<u16>(std::stoi(move.substr(move.find('>') + 1)));
    const dyn_array<transition>& arcs = game_map.transitions;
    auto arc = std::find_if(arcs.begin(), arcs.end(),
                            [&](const transition& t) { return t.from == from && t.to == to; });
    selection = {from, to, static_cast<u16>(arc - arcs.begin()), no_card};
    if (std::size_t colon = move.find(':'); colon != move.npos) {
        selection.selected_card = card_find(move[colon + 1]);
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

// Everything that the seat to move may do, a computer's beside what it would decide on.
std::vector<recorded_act> acts_open() {
    const bool by_computer = current_seat().is_computer;
    std::vector<recorded_act> acts;
    for (u8 kind = act_move; kind < act_kind_count; ++kind) {
        const i64 arcs = kind == act_move ? game_map.transitions.count : 1;
        const i64 cards = kind == act_move ? current_seat().hand.count : 0;
        for (i64 i = 0; i < arcs * std::max(cards, i64{1}); ++i) {
            const i64 card = cards > 0 ? i % cards : no_card;
            const i64 arc = kind == act_move ? i / std::max(cards, i64{1}) : -1;
            game_act act = {act_kind{kind}, static_cast<i32>(arc), static_cast<i32>(card)};
            if (act_is_open(act, by_computer)) {
                acts.push_back({act, by_computer, false, 0});
            }
        }
    }
    return acts;
}

bool wins_within(i64 seat, i64 moves);

// Whether the seat wins once this is done, with so many of its own moves behind it; the position is
// left as it was.
bool wins_after(const recorded_act& act, i64 seat, i64 moves) {
    const i64 position = record.position;
    record_append(act);
    record_land();
    const bool wins = turn.winner == seat || (turn.winner == no_winner && wins_within(seat, moves));
    record_go(position);
    record.act_count = position;
    return wins;
}

// Whether it can win with its next `moves` moves whatever the others do.
bool wins_within(i64 seat, i64 moves) {
    const std::vector<recorded_act> acts = acts_open();
    auto wins = [&](const recorded_act& act) {
        const bool counts = turn.current_player == seat && act.what.kind != act_draw;
        return wins_after(act, seat, moves - (counts ? 1 : 0));
    };
    if (moves == 0 || acts.empty()) {
        return false;
    }
    return turn.current_player == seat ? std::any_of(acts.begin(), acts.end(), wins)
                                       : std::all_of(acts.begin(), acts.end(), wins);
}

// What begins the quickest win of the seat to move.
std::string quickest_win() {
    const i64 seat = turn.current_player;
    i64 moves = 1;
    while (!wins_within(seat, moves)) {
        moves += 1;
    }
    std::string text = "seat " + std::to_string(seat + 1) + " in " + std::to_string(moves) + " by";
    for (const recorded_act& act : acts_open()) {
        if (wins_after(act, seat, moves - (act.what.kind != act_draw ? 1 : 0))) {
            const transition& arc = game_map.transitions[act.what.arc];
            text += " " + std::to_string(arc.from) + ">" + std::to_string(arc.to);
            text += act.what.card < 0 ? "" : ":" + card_text(current_seat().hand[act.what.card]);
        }
    }
    return text;
}

TEST_F(teaching_test, EveryPositionIsWonAsItIsTold) {
    golden_check("tools/positions", [](const std::string& name) {
        globals_start();
        const std::string text =
            file_get((source / "docs/teaching/positions" / (name + ".quorrel-game")).string());
        text_fault fault;
        EXPECT_TRUE(game_read(str_of(text), trust_text, fault));
        return fault.reason.length > 0 ? string_of(fault.reason) : quickest_win();
    });
}

}  // namespace
