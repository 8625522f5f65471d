#include "tools/solver/tape_solver.h"

#include <algorithm>
#include <cmath>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "tools/solver/solved.h"
#include "tools/solver/tape_game.h"

// Goals dealt to the seats and the same ones dealt one seat further on are one game with another
// seat to begin, so of all choices those are solved that come first among their turns round the
// table.

namespace {

using goal_choice = std::vector<std::size_t>;  // by seat, its goal

goal_choice turned(goal_choice choice, i64 by) {
    std::rotate(choice.begin(), choice.begin() + by, choice.end());
    return choice;
}

bool is_first_of_turns(const goal_choice& choice) {
    for (i64 by = 1; by < static_cast<i64>(choice.size()); ++by) {
        if (turned(choice, by) < choice) {
            return false;
        }
    }
    return true;
}

// Counts on; false after the last choice.
bool choice_next(goal_choice& choice, std::size_t goal_count) {
    for (std::size_t& chosen : choice) {
        chosen += 1;
        if (chosen < goal_count) {
            return true;
        }
        chosen = 0;
    }
    return false;
}

std::vector<goal> goals_chosen(const goal_choice& choice) {
    std::vector<goal> chosen;
    for (std::size_t index : choice) {
        chosen.push_back(goals.count > 0 ? goals[static_cast<i64>(index)] : goal{});
    }
    return chosen;
}

// The cards from which tapes are dealt.
struct tape_source {
    std::vector<card> cards;  // of the whole deck
    i64 from_deck;            // cards of a tape that come from it; an empty deck deals the others
};

tape_source source_find() {
    const i64 copies = std::clamp(settings.deck_copies, i64{0}, pile_limit);
    const i64 whole = std::min(pile_limit, card_kinds_count(deck_kinds()) * copies);
    tape_source source = {{tape.begin(), tape.end()}, std::min(tape.count, whole)};
    source.cards.resize(static_cast<std::size_t>(source.from_deck));
    source.cards.insert(source.cards.end(), deck.cards.begin(), deck.cards.end());
    return source;
}

// Adds up what becomes of all tapes, dealt card by card, when the mover has the first turn.
struct tape_weighing {
    const tape_game& played;
    const verdict_cells& cells;
    i64 mover;
    i64 from_deck;
    std::vector<i64> left;  // by digit: cards that the deck still holds
    i64 deck_left;
    deals_share sum;
};

void tapes_weigh(tape_weighing& weighing, i64 place, i64 number, f64 share) {
    const tape_game& played = weighing.played;
    if (place == played.length) {
        const i64 node = node_of(played, 0, head_now(played), number);
        deal_add(weighing.sum, verdict_at(played, weighing.cells, node, weighing.mover), share);
        return;
    }
    const i64 power = at(played.powers, place);
    if (place >= weighing.from_deck) {
        const i64 digit = card_digit(played.classes, card());
        tapes_weigh(weighing, place + 1, number + digit * power, share);
        return;
    }
    for (i64 digit = 0; digit < played.classes.radix; ++digit) {
        i64& count = at(weighing.left, digit);
        const f64 chance = static_cast<f64>(count) / static_cast<f64>(weighing.deck_left);
        if (count > 0) {
            count -= 1;
            weighing.deck_left -= 1;
            tapes_weigh(weighing, place + 1, number + digit * power, share * chance);
            count += 1;
            weighing.deck_left += 1;
        }
    }
}

deals_share tapes_share(const tape_game& played, const verdict_cells& cells,
                        const tape_source& source, i64 mover) {
    tape_weighing weighing = {played,
                              cells,
                              mover,
                              source.from_deck,
                              std::vector<i64>(static_cast<std::size_t>(played.classes.radix)),
                              static_cast<i64>(source.cards.size()),
                              {std::vector<f64>(static_cast<std::size_t>(played.seats))}};
    for (card c : source.cards) {
        at(weighing.left, card_digit(played.classes, c)) += 1;
    }
    tapes_weigh(weighing, 0, 0, 1);
    return weighing.sum;
}

// The choice's turns round the table that differ.
void turns_tell(const tape_game& played, const verdict_cells& cells, const tape_source& source,
                const goal_choice& choice, const std::function<void(const tape_deals&)>& tell) {
    for (i64 by = 0; by < played.seats && (by == 0 || turned(choice, by) != choice); ++by) {
        const i64 mover = by % played.movers;
        tell({turned(choice, by), tapes_share(played, cells, source, mover)});
    }
}

constexpr f64 choices_most = 1e6;

i64 choices_count(goal_choice choice, std::size_t goal_count) {
    i64 count = 0;
    do {
        count += is_first_of_turns(choice) ? 1 : 0;
    } while (choice_next(choice, goal_count));
    return count;
}

// Solves one choice and tells of it.
work_state choice_solve(const placement_graph& placements, const tape_source& source,
                        const goal_choice& choice, i64 choices,
                        const std::function<void(const tape_deals&)>& tell) {
    tape_game played;
    verdict_cells cells;
    std::vector<card> cards = source.cards;
    cards.push_back(card());
    work_state state = tape_game_make(played, placements, goals_chosen(choice), cards);
    if (state == work_well) {
        work_tell(played.node_count * played.movers * choices);
        state = game_solve(played, cells);
    }
    if (state == work_well) {
        turns_tell(played, cells, source, choice, tell);
    }
    return state;
}

}  // namespace

work_state tape_deals_solve(const std::function<void(const tape_deals&)>& tell, i64& too_large) {
    placement_graph placements;
    too_large = 0;
    const tape_source source = source_find();
    const auto goal_count = static_cast<std::size_t>(std::max<i64>(1, goals.count));
    goal_choice choice(static_cast<std::size_t>(players.count));
    work_state state = placements_find(placements, false);
    if (state != work_well ||
        std::pow(goal_count, static_cast<f64>(players.count)) > choices_most) {
        return state != work_well ? state : work_too_large;
    }
    const i64 choices = choices_count(choice, goal_count);
    do {
        if (is_first_of_turns(choice)) {
            state = choice_solve(placements, source, choice, choices, tell);
            too_large += state == work_too_large ? 1 : 0;
        }
    } while ((state == work_well || state == work_too_large) && choice_next(choice, goal_count));
    return state == work_too_large && too_large < choices ? work_well : state;
}

work_state tape_position_solve(solved_position& solved) {
    placement_graph placements;
    work_state state = placements_find(placements, false);
    std::vector<goal> wanted;
    for (i64 seat = 0; seat < players.count; ++seat) {
        wanted.push_back(players[(turn.current_player + seat) % players.count].goal);
    }
    tape_game played;
    if (state == work_well) {
        state = tape_game_make(played, placements, wanted, {tape.begin(), tape.end()});
    }
    verdict_cells cells;
    if (state == work_well) {
        work_tell(played.node_count * played.movers);
        state = game_solve(played, cells);
    }
    if (state != work_well) {
        return state;
    }
    const i64 node = node_of(played, 0, head_now(played), tape_number_now(played));
    solved = solved_from(cells, verdict_at(played, cells, node, 0));
    played.successors_visit(node, [&](i64 to) {
        const i64 arc = placements.arcs[solved.turns.size()];
        solved.turns.push_back({false, arc, no_card, turn_verdict(played, cells, 0, to)});
    });
    return state;
}
