#include "tools/tape_check.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/goal.h"
#include "rules/turns.h"
#include "tools/words.h"

namespace {

// Searching the tapes takes the cube of their length; a longer one does not fit a window.
constexpr i64 tape_search_limit = 64;

bool action_changes(str action, card written_on) {
    for (card& c : tape) {
        c = written_on;
    }
    tape_head = 0;
    tape_apply(action);
    bool written = std::any_of(tape.begin(), tape.end(), [&](card c) { return c != written_on; });
    return written || tape_head != 0;
}

// Whether a letter stands where those of a move do, and is none.
bool move_is_lost(str action, char& letter) {
    letter = action.length > 1 ? action[1] : ' ';
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 && letter != 'L' && letter != 'R';
}

void actions_check(remarks& found) {
    constexpr card first = {0, 0, 1};
    constexpr card second = {1, 1, 2};
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        str action = game_map.transitions[t].rule;
        if (!action_changes(action, first) && !action_changes(action, second)) {
            found.doubtful.push_back(transition_name(t) + " has an action that does nothing");
        } else if (char letter; move_is_lost(action, letter)) {
            found.doubtful.push_back(transition_name(t) + " has an action that ends in \"" +
                                     letter + "\", which moves nothing: L and R do");
        }
    }
}

// The cards that can stand on the tape: those in play, and each of them with one thing written.
std::vector<card> tape_cards(const std::vector<card>& in_play) {
    std::vector<card> cards = in_play;
    std::set<std::string_view> written;
    for (const transition& arc : game_map.transitions) {
        bool is_new = written.insert(view_of(arc.rule).substr(0, 1)).second;
        for (std::size_t i = 0; i < in_play.size() && is_new && tape.count > 0; ++i) {
            tape_head = 0;
            tape[0] = in_play[i];
            tape_apply(arc.rule);
            cards.push_back(tape[0]);
        }
    }
    return cards;
}

std::vector<u8> field_values(const std::vector<card>& cards, u8 card::*field) {
    std::set<u8> values;
    for (card c : cards) {
        values.insert(c.*field);
    }
    return {values.begin(), values.end()};
}

// A few cards that between them show every colour, shape and number of the given ones.
std::vector<card> sample_cards(const std::vector<card>& cards) {
    std::vector<u8> colours = field_values(cards, &card::colour);
    std::vector<u8> shapes = field_values(cards, &card::shape);
    std::vector<u8> numbers = field_values(cards, &card::number);
    std::vector<card> samples;
    for (std::size_t i = 0; i < std::max({colours.size(), shapes.size(), numbers.size()}); ++i) {
        samples.push_back(
            {colours[i % colours.size()], shapes[i % shapes.size()], numbers[i % numbers.size()]});
    }
    return samples;
}

struct goal_answers {
    bool met = false;
    bool missed = false;
};

void goal_ask(const goal& g, goal_answers& answers) {
    (goal_met(g) ? answers.met : answers.missed) = true;
}

// Asks the goal about tapes that give every count it can have: those of two kinds of card, in every
// share, for sums and counted cards, and those of the first so many kinds for distinct ones.
goal_answers goal_try(const goal& g, const std::vector<card>& samples) {
    goal_answers answers;
    for (card a : samples) {
        for (card b : samples) {
            std::fill(tape.begin(), tape.end(), a);
            goal_ask(g, answers);
            for (card& c : tape) {
                c = b;
                goal_ask(g, answers);
            }
        }
    }
    i64 kinds = static_cast<i64>(samples.size());
    for (i64 distinct = 1; distinct <= kinds; ++distinct) {
        for (i64 i = 0; i < tape.count; ++i) {
            tape[i] = samples[static_cast<std::size_t>(i % distinct)];
        }
        goal_ask(g, answers);
    }
    return answers;
}

void goals_check(const std::vector<card>& in_play, remarks& found) {
    if (goals.count == 0) {
        found.breaks_play.push_back("no goal: nobody can win");
    }
    std::vector<card> samples = sample_cards(tape_cards(in_play));
    for (i64 i = 0; i < goals.count && tape.count <= tape_search_limit; ++i) {
        goal_answers answers = goal_try(goals[i], samples);
        if (!answers.met || !answers.missed) {
            std::vector<std::string>& group = answers.met ? found.doubtful : found.breaks_play;
            group.push_back("goal " + std::to_string(i) + " is met by " +
                            (answers.met ? "every" : "no") + " tape");
        }
    }
}

}  // namespace

void tape_check(const std::vector<card>& in_play, remarks& found) {
    actions_check(found);
    goals_check(in_play, found);
}
