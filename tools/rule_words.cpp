#include "tools/rule_words.h"

#include <algorithm>

#include "rules/rule.h"
#include "tools/card_words.h"
#include "tools/words.h"

namespace {

struct part_reader {
    std::string_view text;
    std::size_t at;
};

rule_part expression_read(part_reader& reader);

bool is_list_operator(char c) {
    return c == 'T' || c == '~' || c == '!';
}

bool is_chain_operator(char c) {
    return c == '&' || c == '|' || c == '^';
}

rule_part primary_read(part_reader& reader) {
    char c = reader.text[reader.at++];
    if (c != '(') {
        return {c, {c}, {}};
    }
    rule_part part = expression_read(reader);
    reader.at += 1;  // the ")"
    return part;
}

std::vector<rule_part> list_read(part_reader& reader) {
    if (reader.text[reader.at] != '(') {
        return {primary_read(reader)};
    }
    std::vector<rule_part> items;
    do {
        reader.at += 1;  // the "(" or ","
        items.push_back(expression_read(reader));
    } while (reader.text[reader.at] == ',');
    reader.at += 1;
    return items;
}

rule_part unary_read(part_reader& reader) {
    std::size_t start = reader.at;
    char kind = reader.text[start];
    if (!is_list_operator(kind)) {
        return primary_read(reader);
    }
    reader.at += 1;
    std::vector<rule_part> parts;
    for (const rule_part& item : list_read(reader)) {
        parts.push_back({kind, std::string{kind, '('} + item.text + ")", {item}});
    }
    std::string text(reader.text.substr(start, reader.at - start));
    return parts.size() == 1 ? rule_part{kind, text, parts[0].parts} : rule_part{'|', text, parts};
}

rule_part expression_read(part_reader& reader) {
    std::size_t start = reader.at;
    rule_part left = unary_read(reader);
    while (reader.at < reader.text.size() && is_chain_operator(reader.text[reader.at])) {
        char kind = reader.text[reader.at++];
        rule_part right = unary_read(reader);
        std::string text(reader.text.substr(start, reader.at - start));
        if (left.kind == kind && kind != '^') {
            left.parts.push_back(right);
            left.text = text;
        } else {
            left = {kind, text, {left, right}};
        }
    }
    return left;
}

enum rule_subject { of_played, of_top, of_both, of_each };

constexpr const char* subject_names[] = {"the card", "the top card", "the card and the top card",
                                         "it"};

// A sentence is open when words behind it could be read as part of it.
struct rule_sentence_text {
    std::string text;
    bool is_open = false;
};

rule_sentence_text sentence(const rule_part& part, rule_subject subject, bool negated = false);

std::string delimited(const rule_sentence_text& said) {
    return said.is_open ? "(" + said.text + ")" : said.text;
}

rule_sentence_text negation(const rule_sentence_text& said) {
    return {"it is not so that (" + said.text + ")"};
}

rule_sentence_text chain_sentence(const rule_part& part, rule_subject subject) {
    const char* between = part.kind == '&' ? " and " : " or ";
    std::string joined;
    for (const rule_part& item : part.parts) {
        const rule_sentence_text said = sentence(item, subject);
        bool reads_on = item.kind == part.kind && part.kind != '^';
        joined += joined.empty() ? "" : between;
        joined += reads_on ? said.text : delimited(said);
    }
    return {part.kind == '^' ? "either " + joined + ", but not both" : joined, true};
}

std::string primary_sentence(char symbol, rule_subject subject, bool negated) {
    card_property property;
    if (!card_property_read(symbol, property)) {
        return negated ? "no card will do" : "any card will do";
    }
    std::string is = negated              ? property_is_not(property)
                     : subject == of_both ? property_are_both(property)
                                          : property_is(property);
    return std::string(subject_names[subject]) + " " + is;
}

// What is said of both cards, each for itself.
rule_sentence_text alike(const rule_part& part) {
    return {"for the card and the top card alike: " + sentence(part, of_each).text, true};
}

rule_sentence_text sentence(const rule_part& part, rule_subject subject, bool negated) {
    if (part.kind == 'T') {
        return sentence(part.parts[0], of_top, negated);
    }
    if (part.kind == '~') {
        const rule_sentence_text said = sentence(part.parts[0], of_both);
        return negated ? negation(said) : said;
    }
    if (subject == of_both && !part.parts.empty()) {
        return alike(part);
    }
    if (part.kind == '!') {
        return sentence(part.parts[0], subject, !negated);
    }
    if (is_chain_operator(part.kind)) {
        const rule_sentence_text said = chain_sentence(part, subject);
        return negated ? negation(said) : said;
    }
    return {primary_sentence(part.kind, subject, negated)};
}

}  // namespace

rule_part rule_parts_read(std::string_view rule) {
    std::string text(rule);
    std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    text.resize(std::min(text.size(), std::size_t{rule_length_limit}));
    part_reader reader = {text, 0};
    return expression_read(reader);
}

std::string rule_sentence(const rule_part& part) {
    return sentence(part, of_played).text;
}

bool rule_part_holds(const rule_part& part, card played) {
    return rule_matches(str_from(part.text), played);
}

const rule_part& rule_part_deciding(const rule_part& whole, card played) {
    bool holds = rule_part_holds(whole, played);
    if (whole.kind != (holds ? '|' : '&')) {
        return whole;
    }
    auto alone = std::find_if(whole.parts.begin(), whole.parts.end(), [&](const rule_part& part) {
        return rule_part_holds(part, played) == holds;
    });
    return rule_part_deciding(*alone, played);
}
