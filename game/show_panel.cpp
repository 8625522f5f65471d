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

// How many of the text's bytes fit on a line of so many letters, ending at a blank if there is one.
i64 line_length(str text, i64 letters) {
    const char* end = text.begin() + std::min(text.length, letters + 1);
    const char* line_end = std::find(text.begin(), end, '\n');
    if (line_end != end || text.length <= letters) {
        return line_end - text.begin();
    }
    while (end != text.begin() && end[-1] != ' ') {
        --end;
    }
    return end != text.begin() ? end - text.begin() : letters;
}

}  // namespace

void show_panel_draw(str text) {
    auto letters = static_cast<i64>((render_target.width - 2 * margin) / letter_width);
    text_builder broken = text_builder_make(arena_frame);
    i64 lines = 0;
    while (text.length > 0) {
        i64 length = line_length(text, std::max(letters, i64{1}));
        text_builder_put_str(broken, {text.data, length});
        text_builder_put(broken, '\n');
        lines += 1;
        bool at_end = length < text.length && text[length] == '\n';
        i64 passed = length + (at_end ? 1 : 0);
        text = {text.data + passed, text.length - passed};
    }
    f64 height = static_cast<f64>(lines) * line_height + 2 * margin;
    f64 width = render_target.width;
    box_fill({0, bottom_panel_height, width, height}, panel_tint);
    text_draw(text_builder_text(broken), margin,
              bottom_panel_height + height - margin - line_height, text_size, colour_white,
              screen_space, text_left);
}
