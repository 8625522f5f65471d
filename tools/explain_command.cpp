#include <string>

#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/goal.h"
#include "rules/rule.h"
#include "tools/commands.h"
#include "tools/terminal.h"
#include "tools/words.h"
#include "words/card_words.h"
#include "words/rule_words.h"

namespace {

constexpr const char* chain_heads[] = {
    "all of these:", "one of these is enough:", "exactly one of these:"};

const char* chain_head(char kind) {
    return kind == '&' ? chain_heads[0] : kind == '|' ? chain_heads[1] : chain_heads[2];
}

void verdict_put(bool yes) {
    put(yes ? "yes" : "no", yes ? ink_good : ink_bad);
}

void words_put(str text) {
    put(view_of(text));
}

bool is_chain(const rule_part& part) {
    return part.kind == '&' || part.kind == '|' || part.kind == '^';
}

void part_words_put(const rule_part& part) {
    i64 mark = arenas[arena_frame].offset;
    words_put(rule_sentence(part));
    arena_rewind(arena_frame, mark);
}

// One line for each part, deeper ones further in; with a card, whether the part holds.
void part_put(const rule_part& part, std::size_t depth, const card* played) {
    if (played != nullptr) {
        bool holds = rule_part_holds(part, *played);
        verdict_put(holds);
        put(holds ? "  " : "   ");
    }
    put(std::string(2 * depth, ' '));
    if (!is_chain(part)) {
        part_words_put(part);
        put("\n");
        return;
    }
    put(chain_head(part.kind) + std::string("\n"));
    for (const rule_part* inner = part.first; inner != nullptr; inner = inner->next) {
        part_put(*inner, depth + 1, played);
    }
}

int rule_refuse(std::string_view rule, const rule_stop& stop) {
    put(rule);
    put("\n");
    put(std::string(static_cast<std::size_t>(stop.position), ' '));
    put("^", ink_bad);
    put(" byte " + std::to_string(stop.position) + ": ");
    put(view_of(stop.reason));
    put("\n");
    return failed;
}

int rule_explain(std::string_view rule, const card* played) {
    rule_stop stop = rule_stop_find(str_from(rule));
    if (stop.reason.length > 0) {
        return rule_refuse(rule, stop);
    }
    const rule_part& whole = rule_parts_read(str_from(rule));
    part_put(whole, 0, played);
    if (played == nullptr) {
        return all_well;
    }
    const dyn_array<card>& pile = discard_pile.cards;
    bool holds = rule_part_holds(whole, *played);
    words_put(card_name(*played));
    put(" on ");
    words_put(pile.count > 0 ? card_name(pile[0])
                             : str("the empty pile, which is of no colour, shape or number"));
    put(": ");
    verdict_put(holds);
    const rule_part& deciding = rule_part_deciding(whole, *played);
    if (&deciding != &whole) {
        put(", decided by ");
        words_put(deciding.text);
        put(": ");
        part_words_put(deciding);
    }
    put("\n");
    return holds ? all_well : failed;
}

int goal_explain(std::string_view line, bool has_tape) {
    settings.deck_colours = card_colour_count;
    settings.deck_shapes = card_shape_count;
    settings.deck_numbers = card_number_count;
    map_read(str_from(line));
    const goal& g = goals[0];
    words_put(goal_sentence(g));
    put("\n");
    if (!has_tape) {
        return all_well;
    }
    put("the tape counts " + std::to_string(goal_count(g)) + ": ");
    verdict_put(goal_met(g));
    put("\n");
    return goal_met(g) ? all_well : failed;
}

}  // namespace

int explain_command(const request& asked) {
    if (asked.names[0].starts_with("goal ")) {
        return goal_explain(asked.names[0], asked.has_tape);
    }
    return rule_explain(asked.names[0], asked.has_card ? &asked.played : nullptr);
}
