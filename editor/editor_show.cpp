#include "editor/editor_show.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "game/board_show.h"
#include "game/map_drawing.h"
#include "rules/rule.h"
#include "words/map_words.h"

namespace {

constexpr i64 look_limit = 1000;       // stones and transitions that are looked at in one frame
constexpr i64 rule_bytes = 32 * 1024;  // of their rules, about
constexpr i64 line_limit = 8;
constexpr colour broken_tint = {1, 0, 0, 1};

// How many transitions are looked at; the first one is, however long its rule.
i64 transitions_looked_at() {
    const i64 most = std::min(game_map.transitions.count, look_limit);
    i64 bytes = 0;
    for (i64 t = 0; t < most; ++t) {
        bytes += game_map.transitions[t].rule.length;
        if (bytes > rule_bytes) {
            return std::max(t, i64{1});
        }
    }
    return most;
}

bool has_broken_rule(i64 index) {
    const transition& arc = game_map.transitions[index];
    return machine_kind == pushdown_machine && transition_exists(arc) &&
           !transition_carries_words(arc) && rule_stop_find(arc.rule).reason.length > 0;
}

struct remark_lines {
    text_builder text = text_builder_make(arena_frame);
    i64 count = 0;
};

void line_put(remark_lines& lines, str remark) {
    if (remark.length == 0 || lines.count >= line_limit) {
        return;
    }
    lines.count += 1;
    text_builder_put_str(lines.text, remark);
    text_builder_put(lines.text, '\n');
}

}  // namespace

void editor_show_draw() {
    const i64 count = transitions_looked_at();
    for (i64 t = 0; t < count; ++t) {
        if (has_broken_rule(t)) {
            transition_draw(on_board, game_map.transitions[t], broken_tint);
        }
    }
    state_plates_draw();
}

str editor_show_words() {
    remark_lines lines;
    line_put(lines, game_map.states.count == 0 ? str("no states: nothing can be played") : str());
    line_put(lines, win_mode_remark());
    for (i64 s = 0; s < std::min(stones.count, look_limit); ++s) {
        line_put(lines, stone_remark(s));
    }
    const i64 count = transitions_looked_at();
    for (i64 t = 0; t < count; ++t) {
        line_put(lines, reference_remark(t));
        line_put(lines, has_broken_rule(t) ? rule_remark(t) : str());
    }
    return text_builder_text(lines.text);
}
