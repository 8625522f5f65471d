#include "tools/maker/judge.h"

#include <algorithm>
#include <vector>

#include "base/arena.h"
#include "maps/model.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/rule_tops.h"
#include "rules/seats.h"
#include "tools/layout_check.h"
#include "tools/maker/choices.h"
#include "tools/map_check.h"
#include "tools/map_files.h"
#include "tools/map_play.h"
#include "tools/play_check.h"
#include "tools/solver/tape_solver.h"
#include "tools/words.h"

namespace {

constexpr const char* doubtful = "it is doubtful to the check";

constexpr u64 seed = 1;
constexpr i64 most_turns = 150;  // of a game, else it stalls
constexpr i64 share_limit = 60;  // percent of the games that one seat may win
constexpr i64 least_hard_share = 65;
constexpr f64 least_choice = 1.5;
constexpr i64 shortest = 3;  // turns of nine games in ten
constexpr i64 longest = 40;

// A few games first, with more room for chance, then those that count.
struct play_stage {
    i64 games;
    i64 leeway;  // percent
};

constexpr play_stage stages[] = {{4, 40}, {30, 20}, {200, 0}};

std::vector<i64> equals_of(i64 seats, i64 strength) {
    return std::vector<i64>(static_cast<std::size_t>(seats), strength);
}

i64 percent(i64 part, i64 whole) {
    return whole == 0 ? 100 : 100 * part / whole;
}

// The cards of the deck, one of each.
std::vector<card> deck_cards() {
    std::vector<card> cards;
    for (i64 i = 0; i < card_kinds_count(deck_kinds()); ++i) {
        cards.push_back(card_at(deck_kinds(), i));
    }
    return cards;
}

// Of all pairs of a card and a top card, the percent in which the rule lets the card through.
i64 rule_share(str rule, const std::vector<card>& cards) {
    static rule_answers answers;
    rule_answers_find(answers, rule, cards.data(), std::ssize(cards));
    card_set in_deck;
    for (card c : cards) {
        card_set_add(in_deck, c);
    }
    i64 let_through = 0;
    for (std::size_t top = 0; top < cards.size(); ++top) {
        let_through += card_set_count(answers.matching[answers.of_top[top]] & in_deck);
    }
    return percent(let_through, std::ssize(cards) * std::ssize(cards));
}

const char* rules_judge() {
    const std::vector<card> cards = deck_cards();
    for (const transition& arc : game_map.transitions) {
        const i64 share = rule_share(arc.rule, cards);
        if (share < 10 || share > 90) {
            return "a rule matches hardly any card or nearly all";
        }
    }
    return nullptr;
}

const char* structure_judge() {
    remarks found;
    map_check(false, found);
    if (!found.breaks_play.empty() || !found.doubtful.empty()) {
        return doubtful;
    }
    return machine_kind == pushdown_machine ? rules_judge() : nullptr;
}

i64 most_wins(const play_record& played) {
    return *std::ranges::max_element(played.wins);
}

// Whether nine of ten games last neither shorter nor longer than they may.
bool lengths_are_good(std::vector<i64> turns) {
    std::ranges::sort(turns);
    const std::size_t twentieth = (turns.size() + 19) / 20;
    return shortest <= turns[twentieth] && turns[turns.size() - 1 - twentieth] <= longest;
}

// What games between equals tell.
const char* play_judge(const named_map& map, i64 seats, judgement& judged) {
    // On a state machine nobody can win who errs less, since hard seats do not err.
    const i64 strength = machine_kind == state_machine ? i64{strength_normal} : i64{strength_hard};
    for (const play_stage& stage : stages) {
        choice_count choices;
        map_open(map);
        const play_record played =
            map_play(equals_of(seats, strength), stage.games, seed, most_turns,
                     [&](const play_event& event) { choices_count(choices, event); });
        if (played.unfinished > 0) {
            return "a game does not end";
        }
        if (!lengths_are_good(played.turns)) {
            return "games are too short or too long";
        }
        judged.most_share = percent(most_wins(played), stage.games);
        if (judged.most_share > share_limit + stage.leeway) {
            return "one seat wins too often";
        }
        judged.turns = median(played.turns);
        judged.choice = choice_of(choices);
        if (judged.choice < least_choice) {
            return "there is hardly a choice";
        }
    }
    return nullptr;
}

// How often hard seats beat easy ones, in both orders.
const char* strength_judge(const named_map& map, judgement& judged) {
    for (const play_stage& stage : stages) {
        map_open(map);
        const play_record first =
            map_play({strength_hard, strength_easy}, stage.games / 2, seed, most_turns);
        map_open(map);
        const play_record second =
            map_play({strength_easy, strength_hard}, stage.games / 2, seed, most_turns);
        judged.hard_share = percent(first.wins[0] + second.wins[1], stage.games);
        if (judged.hard_share < least_hard_share - stage.leeway) {
            return "hard seats do not beat easy ones";
        }
    }
    return nullptr;
}

// No seat may win most deals of a turing machine when nobody errs, as far as that is quickly found.
const char* perfect_judge(const named_map& map, i64 seats) {
    map_open(map);
    player_count = seats;
    seats_adjust();
    random_seed(seed);
    game_start();
    deals_share all = {std::vector<f64>(static_cast<std::size_t>(seats))};
    f64 choices = 0;
    i64 too_large = 0;
    tape_deals_solve(
        [&](const tape_deals& deals) {
            choices += 1;
            deals_add(all, deals.share);
        },
        too_large);
    const f64 most = *std::ranges::max_element(all.wins);
    return too_large == 0 && 100 * most > static_cast<f64>(share_limit) * choices
               ? "one seat wins too often when nobody errs"
               : nullptr;
}

const char* looks_judge(const named_map& map) {
    remarks found;
    map_open(map);
    layout_check(found);
    if (!found.looks.empty() || !found.labels.empty()) {
        return "something lies in the way of something else";
    }
    play_check(str_from(map.text), player_limit, found);
    return found.breaks_play.empty() && found.doubtful.empty() ? nullptr : doubtful;
}

// From which sum of states, turns and four times the choice on a map is of the level 2, 3, 4 and 5.
constexpr f64 level_steps[machine_kind_count][map_level_limit - 1] = {
    {20, 24, 30, 37},
    {27, 33, 42, 52},
    {18, 20.5, 24, 29},
};

i64 level_of(const judgement& judged) {
    const f64 sum = static_cast<f64>(judged.states + judged.turns) + 4 * judged.choice;
    const auto& steps = level_steps[machine_kind];
    return 1 + std::ranges::count_if(steps, [&](f64 step) { return sum >= step; });
}

}  // namespace

judgement map_judge(const named_map& map, i64 seats) {
    judgement judged;
    map_open(map);
    judged.states = game_map.states.count;
    judged.fault = structure_judge();
    if (judged.fault == nullptr) {
        judged.fault = play_judge(map, seats, judged);
    }
    if (judged.fault == nullptr) {
        judged.fault =
            map.family == turing_machine ? perfect_judge(map, seats) : strength_judge(map, judged);
    }
    if (judged.fault == nullptr) {
        judged.fault = looks_judge(map);
    }
    judged.level = level_of(judged);
    return judged;
}

judgement candidate_judge(const map_wish& wish, i64 seats, named_map& map) {
    arena_rewind(arena_frame, 0);
    text_builder text = text_builder_make(arena_frame);
    text_builder name = text_builder_make(arena_frame);
    if (!map_make(wish, text, name)) {
        return {.fault = "a text has no room"};
    }
    map = {wish.family, std::string(view_of(text_builder_text(name))),
           std::string(view_of(text_builder_text(text)))};
    return map_judge(map, seats);
}
