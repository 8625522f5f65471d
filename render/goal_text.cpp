#include "render/goal_text.h"

#include <cassert>

#include "base/numbers.h"
#include "render/text.h"

namespace {

void measure_put(text_buffer& buffer, const goal& g) {
    const measure_info& measure = measures[g.measure];
    if (measure.cards == 0) {
        text_buffer_put_plain(buffer, measure.name);
        return;
    }
    text_buffer_put_str(buffer, "num ");
    text_buffer_put(buffer, card_symbol(g.card_a, measure.field));
    if (measure.cards >= 2) {
        text_buffer_put_str(buffer, " or ");
        text_buffer_put(buffer, card_symbol(g.card_b, measure.field));
    }
}

}  // namespace

void goal_text_put(text_buffer& buffer, const goal& g) {
    assert(buffer.capacity - buffer.cursor >= goal_text_capacity);
    if (g.measure < measure_count) {
        measure_put(buffer, g);
    }
    if (g.comparison < comparison_count) {
        text_buffer_put(buffer, ' ');
        text_buffer_put_plain(buffer, comparison_names[g.comparison]);
        text_buffer_put(buffer, ' ');
    }
    text_buffer_put_int(buffer, g.target);
}

void goal_draw(const goal& g, f64 x, f64 y) {
    char bytes[goal_text_capacity];
    text_buffer goal_text = {bytes, goal_text_capacity, 0, 0};
    goal_text_put(goal_text, g);
    text_draw_icons(text_buffer_text(goal_text), x, y);
}
