#include "game/show_panel.h"

#include <algorithm>

#include "base/text_builder.h"
#include "render/renderer.h"
#include "render/sprites.h"
#include "render/text.h"
#include "render/view.h"

namespace {

constexpr f64 text_size = 192;
constexpr f64 letter_width = 9.75;  // pixels of a letter of that size
constexpr f64 line_height = 24;
constexpr f64 margin = 12;
constexpr colour panel_tint = {0, 0, 0, 0.97f};
constexpr i64 paragraph_lines = 8;  // rules can have a thousand bytes

// How many of the text's bytes fit on a line of so many letters, ending at a blank if there is one.
i64 line_length(str text, i64 letters) {
    if (text.length <= letters) {
        return text.length;
    }
    i64 length = letters + 1;
    while (length > 0 && text[length - 1] != ' ') {
        --length;
    }
    return length > 0 ? length : letters;
}

// Puts a paragraph as lines of so many letters, without the end of a long one. Returns how many.
i64 paragraph_put(text_builder& broken, str text, i64 letters) {
    const str cut = "...";
    for (i64 lines = 1;; ++lines) {
        const bool is_cut = lines == paragraph_lines && text.length > letters;
        const i64 length = line_length(text, std::max(letters - (is_cut ? cut.length : 0), i64{1}));
        text_builder_put_str(broken, {text.data, length});
        text_builder_put_str(broken, is_cut ? cut : str());
        text_builder_put(broken, '\n');
        text = {text.data + length, text.length - length};
        if (text.length == 0 || is_cut) {
            return lines;
        }
    }
}

}  // namespace

void show_panel_draw(str text) {
    const auto letters = static_cast<i64>((render_target.width - 2 * margin) / letter_width);
    text_builder broken = text_builder_make(arena_frame);
    i64 lines = 0;
    while (text.length > 0) {
        const i64 length = std::find(text.begin(), text.end(), '\n') - text.begin();
        lines += paragraph_put(broken, {text.data, length}, letters);
        const i64 passed = std::min(length + 1, text.length);
        text = {text.data + passed, text.length - passed};
    }
    const f64 height = static_cast<f64>(lines) * line_height + 2 * margin;
    const f64 width = render_target.width;
    box_fill({0, bottom_panel_height, width, height}, panel_tint);
    text_draw(text_builder_text(broken), margin,
              bottom_panel_height + height - margin - line_height, text_size, colour_white,
              screen_space, text_left);
}
