#include "render/goal_text.h"

#include "base/numbers.h"
#include "render/text.h"
#include "rules/goal.h"

namespace {

// What a goal counts: the words, then for a measure of cards the property that `card_a`, or
// either of two cards, must have, written as a character counted from `first`.
struct measure_text {
    str words;
    u8 card::*property;
    char first;
    bool either;
};

// clang-format off
constexpr measure_text measure_texts[measure_count] = {
    {"sum", nullptr, 0, false},
    {"# %distin%ct %colors", nullptr, 0, false},
    {"# %distin%ct sh%ap%es", nullptr, 0, false},
    {"# %distin%ct num%b%ers", nullptr, 0, false},
    {"num ", &card::colour, 'A', false},
    {"num ", &card::shape, 'a', false},
    {"num ", &card::number, '0', false},
    {"num ", &card::colour, 'A', true},
    {"num ", &card::shape, 'a', true},
    {"num ", &card::number, '0', true},
};
// clang-format on

constexpr str comparison_texts[comparison_count] = {
    " %ex%a%ctly ",
    " %at most ",
    " %at l%e%ast ",
};

void measure_put(text_buffer& buffer, const goal& g) {
    const measure_text& measure = measure_texts[g.measure];
    text_buffer_put_str(buffer, measure.words);
    if (measure.property != nullptr) {
        text_buffer_put(buffer, static_cast<char>(measure.first + g.card_a.*measure.property));
    }
    if (measure.either) {
        text_buffer_put_str(buffer, " or ");
        text_buffer_put(buffer, static_cast<char>(measure.first + g.card_b.*measure.property));
    }
}

}  // namespace

void goal_text_put(text_buffer& buffer, const goal& g) {
    if (g.measure < measure_count) {
        measure_put(buffer, g);
    }
    if (g.comparison < comparison_count) {
        text_buffer_put_str(buffer, comparison_texts[g.comparison]);
    }
    text_buffer_put_int(buffer, g.target);
}

void goal_draw(const goal& g, f64 x, f64 y) {
    char bytes[goal_text_capacity];
    text_buffer goal_text = {bytes, goal_text_capacity, 0, 0};
    goal_text_put(goal_text, g);
    text_draw(text_buffer_text(goal_text), x, y, 256, colour_white, true, true, true);
}
