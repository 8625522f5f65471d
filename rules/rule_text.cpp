#include "rules/rule_text.h"

char rule_buffer[rule_length_limit];

namespace {

bool is_blank(char c) {
    return c == '\t' || c == '\n' || c == ' ';
}

}  // namespace

i64 rule_squeeze(str rule) {
    i64 size = 0;
    for (char c : rule) {
        if (size == rule_length_limit) {
            break;
        }
        if (!is_blank(c)) {
            rule_buffer[size] = c;
            size += 1;
        }
    }
    return size;
}

i64 rule_unsqueeze(str rule, i64 position) {
    i64 place = 0;
    for (i64 left = position; place < rule.length; ++place) {
        if (!is_blank(rule[place])) {
            if (left == 0) {
                break;
            }
            left -= 1;
        }
    }
    return place;
}
