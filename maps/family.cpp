#include "maps/family.h"

#include "maps/scan.h"

namespace {

// What was met in a text.
struct family_signs {
    bool map, deck, hand, tape, rule, action;
};

bool has_number(const text_cursor& cursor, str keyword) {
    i64 first = cursor.position + keyword.length;
    if (!text_has_prefix(cursor, keyword) || first >= cursor.size) {
        return false;
    }
    char c = cursor.data[first];
    return ('0' <= c && c <= '9') || c == '-' || c == '.';
}

bool is_map_line(const text_cursor& cursor) {
    return has_number(cursor, "map ") || has_number(cursor, "* ") || has_number(cursor, ". ") ||
           has_number(cursor, "$ ");
}

bool is_operator(char c) {
    return c == '&' || c == '|' || c == '^' || c == '!' || c == '~' || c == '*' || c == '(' ||
           c == 'T';
}

// The quoted text of a transition's line; empty when it has none.
str label_of(str line) {
    text_cursor cursor = {line.data, line.length, 0};
    text_scan_until(cursor, '"');
    cursor.position += 1;
    return text_scan_until(cursor, '"');
}

void label_signs_find(str label, family_signs& signs) {
    bool moves_head = label.length == 2 && (label[1] == 'L' || label[1] == 'R');
    signs.action = signs.action || moves_head;
    for (char c : label) {
        signs.rule = signs.rule || is_operator(c);
    }
}

void line_signs_find(str line, family_signs& signs) {
    text_cursor cursor = {line.data, line.length, 0};
    signs.map = signs.map || is_map_line(cursor);
    signs.deck = signs.deck || text_has_prefix(cursor, "deck ");
    signs.hand = signs.hand || text_has_prefix(cursor, "hand ");
    signs.tape = signs.tape || text_has_prefix(cursor, "tape ") || text_has_prefix(cursor, "goal ");
    if (text_has_prefix(cursor, "=> ")) {
        label_signs_find(label_of(line), signs);
    }
}

family_signs signs_find(str text) {
    family_signs signs = {};
    text_cursor cursor = {text.data, text.length, 0};
    for (str line; text_next_line(cursor, line);) {
        line_signs_find(line, signs);
    }
    return signs;
}

}  // namespace

i64 family_named(str name) {
    for (i64 family = 0; family < machine_kind_count; ++family) {
        if (family_names[family] == name) {
            return family;
        }
    }
    return no_family;
}

bool text_is_map(str text) {
    return signs_find(text).map;
}

i64 map_family_find(str text) {
    family_signs signs = signs_find(text);
    if (signs.hand != signs.tape) {
        return signs.hand ? pushdown_machine : turing_machine;
    }
    if (!signs.hand && !signs.deck) {
        return state_machine;
    }
    if (signs.rule != signs.action) {
        return signs.rule ? pushdown_machine : turing_machine;
    }
    return no_family;
}
