#include "words/rule_words.h"

#include <cassert>

#include "base/text_builder.h"
#include "rules/rule.h"
#include "rules/rule_parser.h"
#include "words/card_words.h"

namespace {

constexpr char signs[] = {'\0', '\0', '*', 'T', '~', '!', '&', '|', '^'};  // by kind of node
static_assert(signs[node_xor] == '^');

rule_part* part_make(char kind, str text, rule_part* first = nullptr) {
    return frame_array<rule_part>(1, {kind, text, first, nullptr});
}

void part_append(rule_part& whole, rule_part* part) {
    rule_part** end = &whole.first;
    while (*end != nullptr) {
        end = &(*end)->next;
    }
    *end = part;
}

// The part of a node of two. A chain of the same operator is one part.
rule_part* chain_make(char sign, str text, rule_part* left, rule_part* right) {
    if (left->kind != sign || sign == '^') {
        left = part_make(sign, {}, left);
    }
    part_append(*left, right);
    left->text = text;
    return left;
}

// The part of a node, by those of the nodes before it.
rule_part* part_of(const rule_node& node, str text, rule_part* const* parts) {
    const char sign = signs[node.kind];
    rule_part* left = parts[node.left];
    switch (node.kind) {
        case node_property:
            return part_make(text[0], text);
        case node_any:
            return part_make(sign, text);
        case node_and:
        case node_or:
        case node_xor:
            return chain_make(sign, text, left, parts[node.right]);
        default:
            return part_make(
                sign, text == left->text ? text_join({{&sign, 1}, "(", text, ")"}) : text, left);
    }
}

enum rule_subject { of_played, of_top, of_both, of_each };

constexpr str subject_names[] = {"the card", "the top card", "the card and the top card", "it"};

void sentence_put(text_builder& text, const rule_part& part, rule_subject subject,
                  bool is_negated = false);

// Whether words behind the part's sentence could be read as part of it.
bool is_open(const rule_part& part, rule_subject subject, bool is_negated = false) {
    switch (part.kind) {
        case 'T':
            return is_open(*part.first, of_top, is_negated);
        case '~':
            return !is_negated && is_open(*part.first, of_both);
        case '!':
            return subject == of_both || is_open(*part.first, subject, !is_negated);
        default:
            return part.first != nullptr && (subject == of_both || !is_negated);
    }
}

void delimited_put(text_builder& text, const rule_part& part, rule_subject subject) {
    bool delimits = is_open(part, subject);
    text_builder_put_str(text, delimits ? str("(") : str());
    sentence_put(text, part, subject);
    text_builder_put_str(text, delimits ? str(")") : str());
}

void chain_put(text_builder& text, const rule_part& part, rule_subject subject) {
    bool is_either = part.kind == '^';
    text_builder_put_str(text, is_either ? str("either ") : str());
    for (const rule_part* item = part.first; item != nullptr; item = item->next) {
        text_builder_put_str(text, item == part.first ? str()
                                   : part.kind == '&' ? str(" and ")
                                                      : str(" or "));
        if (item->kind == part.kind && !is_either) {
            sentence_put(text, *item, subject);
        } else {
            delimited_put(text, *item, subject);
        }
    }
    text_builder_put_str(text, is_either ? str(", but not both") : str());
}

void primary_put(text_builder& text, char symbol, rule_subject subject, bool is_negated) {
    card_property property;
    if (!card_property_read(symbol, property)) {
        text_builder_put_str(text, is_negated ? str("no card will do") : str("any card will do"));
        return;
    }
    text_builder_put_str(text, subject_names[subject]);
    text_builder_put(text, ' ');
    property_put(text,
                 is_negated           ? manner_is_not
                 : subject == of_both ? manner_are_both
                                      : manner_is,
                 property);
}

void denial_put(text_builder& text, const rule_part& part, rule_subject subject) {
    text_builder_put_str(text, "it is not so that (");
    sentence_put(text, part, subject);
    text_builder_put(text, ')');
}

void sentence_put(text_builder& text, const rule_part& part, rule_subject subject,
                  bool is_negated) {
    if (part.kind == 'T') {
        sentence_put(text, *part.first, of_top, is_negated);
    } else if (part.kind == '~') {
        is_negated ? denial_put(text, *part.first, of_both)
                   : sentence_put(text, *part.first, of_both);
    } else if (subject == of_both && part.first != nullptr) {
        // What is said of both cards, each for itself.
        text_builder_put_str(text, "for the card and the top card alike: ");
        sentence_put(text, part, of_each);
    } else if (part.kind == '!') {
        sentence_put(text, *part.first, subject, !is_negated);
    } else if (part.first == nullptr) {
        primary_put(text, part.kind, subject, is_negated);
    } else {
        is_negated ? denial_put(text, part, subject) : chain_put(text, part, subject);
    }
}

}  // namespace

const rule_part& rule_parts_read(str rule) {
    const rule_tree& tree = rule_parse(rule);
    assert(tree.count > 0);
    const str text = text_join({tree.text});
    rule_part** parts = frame_array<rule_part*>(tree.count, nullptr);
    for (i64 i = 0; i < tree.count; ++i) {
        const rule_node& node = tree.nodes[i];
        parts[i] = part_of(node, {text.data + node.first, node.end - node.first}, parts);
    }
    return *parts[tree.count - 1];
}

str rule_sentence(const rule_part& part) {
    text_builder text = text_builder_make(arena_frame);
    sentence_put(text, part, of_played);
    return text_builder_text(text);
}

bool rule_part_holds(const rule_part& part, card played) {
    return rule_matches(part.text, played);
}

const rule_part& rule_part_deciding(const rule_part& whole, card played) {
    bool holds = rule_part_holds(whole, played);
    if (whole.kind != (holds ? '|' : '&')) {
        return whole;
    }
    const rule_part* alone = whole.first;
    while (rule_part_holds(*alone, played) != holds) {
        alone = alone->next;
    }
    return rule_part_deciding(*alone, played);
}
