#include "words/refusal_words.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "words/card_words.h"
#include "words/rule_words.h"
#include "words/turn_words.h"

namespace {

// By reason. A word between '<' and '>' stands for what `fillings` has for it.
constexpr str sentences[refusal_count] = {
    "",
    "no arrow leads from <from> to <to>",
    "another arrow leads from <from> to <to> before this one",
    "no stone stands on <from>",
    "choose a card, <rule>",
    "<card> does not fit, <reason>",
    "<seat> is to move",
    "there is no card to draw: only a move ends the turn",
    "you have drawn already: play a card, or end the turn with the sign in the corner",
    "only a move ends the turn, or a card that is drawn",
    "wait until the stone has landed",
    "press space to take up the turn",
    "cards come onto the stack by moves: click a state with a stone",
    "moves write on the tape: click a state with a stone",
    "nothing is here: click a state with a stone, then the state where an arrow leads",
};

const transition& arc_of(const refused_act& refused) {
    assert(0 <= refused.what.arc && refused.what.arc < game_map.transitions.count);
    return game_map.transitions[refused.what.arc];
}

card card_of(const refused_act& refused) {
    return current_seat().hand[refused.what.card];
}

// Whether the part looks at the top card.
bool looks_at_top(const rule_part& part) {
    return std::any_of(part.text.begin(), part.text.end(),
                       [](char c) { return c == 'T' || c == '~'; });
}

str top_words() {
    const dyn_array<card>& pile = discard_pile.cards;
    return pile.count == 0 ? str("; the stack is empty")
                           : text_join({"; the top card is ", card_name(card_array_top(pile))});
}

// What the rule wants that the card is not, or without a card all that it wants.
str wish(str rule, const card* played) {
    if (rule.length == 0) {
        return "this arrow has no rule, so no card fits";
    }
    if (rule_stop stop = rule_stop_find(rule); stop.reason.length > 0) {
        return text_join({"this arrow's rule cannot be read: ", stop.reason});
    }
    const rule_part& whole = rule_parts_read(rule);
    const rule_part& wanted = played == nullptr ? whole : rule_part_deciding(whole, *played);
    return text_join(
        {"this arrow asks: ", rule_sentence(wanted), looks_at_top(wanted) ? top_words() : str()});
}

// What a word between '<' and '>' stands for.
struct filling {
    str word;
    str (*text)(const refused_act& refused);
};

constexpr filling fillings[] = {
    {"from", [](const refused_act& refused) { return number_text(refused.from); }},
    {"to", [](const refused_act& refused) { return number_text(refused.to); }},
    {"seat", [](const refused_act&) { return seat_name(current_seat()); }},
    {"card", [](const refused_act& refused) { return card_name(card_of(refused)); }},
    {"rule", [](const refused_act& refused) { return rule_wish(arc_of(refused).rule); }},
    {"reason",
     [](const refused_act& refused) {
         card played = card_of(refused);
         return wish(arc_of(refused).rule, &played);
     }},
};

str filling_text(str word, const refused_act& refused) {
    const filling* found = std::find_if(std::begin(fillings), std::end(fillings),
                                        [=](const filling& row) { return row.word == word; });
    assert(found != std::end(fillings));
    return found->text(refused);
}

}  // namespace

str rule_wish(str rule) {
    return wish(rule, nullptr);
}

str refusal_sentence(const refused_act& refused) {
    assert(refused.why < refusal_count);
    text_builder text = text_builder_make(arena_frame);
    const char* rest = sentences[refused.why].begin();
    const char* end = sentences[refused.why].end();
    while (rest != end) {
        const char* open = std::find(rest, end, '<');
        text_builder_put_str(text, {rest, open - rest});
        if (open == end) {
            break;
        }
        const char* close = std::find(open, end, '>');
        text_builder_put_str(text, filling_text({open + 1, close - open - 1}, refused));
        rest = close + 1;
    }
    return text_builder_text(text);
}
