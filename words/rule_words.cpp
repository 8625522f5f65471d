#include "words/rule_words.h"

#include "base/text_builder.h"
#include "rules/rule.h"
#include "words/card_words.h"

namespace {

struct part_reader {
    str text;
    i64 at;
};

rule_part* expression_read(part_reader& reader);

char next_byte(const part_reader& reader) {
    return reader.at < reader.text.length ? reader.text[reader.at] : '\0';
}

bool is_list_operator(char c) {
    return c == 'T' || c == '~' || c == '!';
}

bool is_chain_operator(char c) {
    return c == '&' || c == '|' || c == '^';
}

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

// What the reader has passed since the place.
str text_since(const part_reader& reader, i64 start) {
    return {reader.text.data + start, reader.at - start};
}

rule_part* primary_read(part_reader& reader) {
    i64 start = reader.at;
    char c = next_byte(reader);
    reader.at += 1;
    if (c != '(') {
        return part_make(c, text_since(reader, start));
    }
    rule_part* part = expression_read(reader);
    reader.at += 1;  // the ")"
    return part;
}

// The values of a list, each behind the operator, as parts of a '|'.
rule_part* list_read(part_reader& reader, char kind) {
    rule_part* list = part_make('|', {});
    do {
        reader.at += 1;  // the "(" or ","
        rule_part* item = expression_read(reader);
        str text = text_join({{&kind, 1}, "(", item->text, ")"});
        part_append(*list, part_make(kind, text, item));
    } while (next_byte(reader) == ',');
    reader.at += 1;
    return list->first->next == nullptr ? list->first : list;
}

rule_part* unary_read(part_reader& reader) {
    i64 start = reader.at;
    char kind = next_byte(reader);
    if (!is_list_operator(kind)) {
        return primary_read(reader);
    }
    reader.at += 1;
    rule_part* part = next_byte(reader) == '(' ? list_read(reader, kind)
                                               : part_make(kind, {}, primary_read(reader));
    part->text = text_since(reader, start);
    return part;
}

rule_part* expression_read(part_reader& reader) {
    i64 start = reader.at;
    rule_part* left = unary_read(reader);
    while (is_chain_operator(next_byte(reader))) {
        char kind = next_byte(reader);
        reader.at += 1;
        rule_part* right = unary_read(reader);
        if (left->kind != kind || kind == '^') {
            left = part_make(kind, {}, left);
        }
        part_append(*left, right);
        left->text = text_since(reader, start);
    }
    return left;
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
    text_builder text = text_builder_make(arena_frame);
    for (char c : rule) {
        bool is_blank = c == '\t' || c == '\n' || c == ' ';
        if (!is_blank && text.length < rule_length_limit) {
            text_builder_put(text, c);
        }
    }
    part_reader reader = {text_builder_text(text), 0};
    return *expression_read(reader);
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
